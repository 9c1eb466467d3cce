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
// each other can. So its time and memory stay in proportion to the file, whatever stands in it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "base/Integers.h"
#include "platform/Files.h"
#include "sprites/ArchiveUse.h"

namespace scenara {

inline constexpr std::size_t kSubfileHeaderSize = 32;
inline constexpr std::string_view kSubfilesOverlap = "the subfiles lie over each other.";

struct SffHeader {
    std::uint32_t imageCount = 0;
    std::uint32_t firstSubfile = 0;
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

// The subfiles of an archive, one after the other.
class SubfileChain {
public:
    SubfileChain(InputFile& archive, const SffHeader& header);

    // Moves to the next subfile; false when the header's number of images has been seen, or the
    // chain is broken: then Broken() tells.
    [[nodiscard]] bool Next();

    // The subfile that Next() found.
    [[nodiscard]] const Subfile& Current() const { return subfile_; }

    // Why the chain ended early; nothing when it did not.
    [[nodiscard]] const std::optional<std::string>& Broken() const { return broken_; }

    // Where and why a chain ends: at the subfile after `before` others, whose header is there.
    [[nodiscard]] std::string BreakText(std::size_t before, std::uint32_t position,
                                        std::string_view reason) const;

private:
    bool Break(std::string_view reason);

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
