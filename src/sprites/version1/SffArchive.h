// SPDX-License-Identifier: MIT
//
// SffArchive: the structure of a version 1 sprite archive (.sff): a header and a chain of subfiles.
//
// Little-endian. File header, as far as it matters:
//
//   offset size
//        0   12  signature, not checked
//       12    4  version bytes, lowest part first; the last one is the main number
//       16    4  number of groups, not used
//       20    4  number of images: how many subfiles the chain is followed for
//       24    4  offset of the first subfile
//
// Subfile, at its offset:
//
//        0    4  offset of the next subfile
//        4    4  length of the picture data; 0 = linked
//        8    4  axis x, axis y
//       12    4  group, image
//       16    2  link index: the subfile whose picture is shown
//       18    1  not 0: the palette of the picture before
//       19   13  comment, not used
//       32    -  a PCX picture; the last 768 bytes of `length` are its palette
//
// Numbers of two bytes are signed. The chain may run through the file in any order.
//
// Bad input: SubfileChain ends, with a reason for people, where the chain leaves the file, comes
// back to a subfile, or uses many times the bytes that the file has, as only subfiles that lie over
// each other can. So time and memory stay in proportion to the file, whatever stands in it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <unordered_set>

#include "base/Integers.h"
#include "platform/Files.h"

namespace scenara {

inline constexpr std::size_t kSubfileHeaderSize = 32;

struct SffHeader {
    std::array<std::uint8_t, 4> version{};
    std::uint32_t imageCount = 0;
    std::uint32_t firstSubfile = 0;

    // "2.01" and the like, from the version bytes.
    [[nodiscard]] std::string VersionText() const;
    // The layout of version 2 is another one.
    [[nodiscard]] bool IsVersion2() const { return version[3] == 2; }
};

// Raises RunTimeError "Input past end of file" for a file that ends in its header.
[[nodiscard]] SffHeader ReadSffHeader(InputFile& archive);

struct Subfile {
    std::uint32_t position = 0;  // in the file
    std::uint32_t next = 0;
    Long length = 0;
    Integer axisX = 0;
    Integer axisY = 0;
    Integer group = 0;
    Integer image = 0;
    Integer link = 0;
    bool samePalette = false;

    [[nodiscard]] bool IsLinked() const { return length == 0; }
    // Where its picture begins.
    [[nodiscard]] std::uint64_t Start() const {
        return std::uint64_t{position} + kSubfileHeaderSize;
    }
};

// How many of `wanted` bytes the file has from `start` on.
[[nodiscard]] std::uint64_t Available(const InputFile& file, std::uint64_t start,
                                      std::uint64_t wanted);

// How much of a file an archive has used. Each byte belongs to one subfile, so that a sound archive
// uses it once.
class ArchiveUse {
public:
    explicit ArchiveUse(std::uint64_t fileSize) : fileSize_(fileSize) {}

    // Bytes of a header, and of a picture that is shown. A damaged one may take its neighbour's, so
    // there may be twice as many as the file has.
    void CountShown(std::uint64_t bytes) { shown_ += bytes; }
    // Bytes that were read in vain. Pictures that fail may each have been read to the file's end,
    // so there may be eight times as many.
    void CountLost(std::uint64_t bytes) { lost_ += bytes; }

    // There are more: subfiles lie over each other.
    [[nodiscard]] bool IsTooMuch() const { return shown_ / 2 > fileSize_ || lost_ / 8 > fileSize_; }

private:
    std::uint64_t fileSize_;
    std::uint64_t shown_ = 0;
    std::uint64_t lost_ = 0;
};

// The subfiles of an archive, one after the other.
class SubfileChain {
public:
    SubfileChain(InputFile& archive, const SffHeader& header);

    // Moves to the next subfile; false when the header's number of images has been seen, or the
    // chain is broken: then Broken() tells.
    [[nodiscard]] bool Next();

    // The subfile that Next() found.
    [[nodiscard]] const Subfile& Current() const { return subfile_; }

    // The chain counts headers, whoever loads pictures counts these. It breaks where that is too
    // much.
    [[nodiscard]] ArchiveUse& Use() { return use_; }

    // Why the chain ended early; nothing when it did not.
    [[nodiscard]] const std::optional<std::string>& Broken() const { return broken_; }

private:
    bool Break(const std::string& reason);

    InputFile& archive_;
    std::uint32_t imageCount_;
    std::uint32_t nextPosition_;
    std::uint32_t seen_ = 0;
    ArchiveUse use_;
    Subfile subfile_;
    std::unordered_set<std::uint32_t> visited_;
    std::optional<std::string> broken_;
};

}  // namespace scenara
