// SPDX-License-Identifier: MIT
//
// PcxLines: PCX data of any kind, byte by byte, one line after the other.
//
// The plain way through the data, for pictures that the fast unpacking of whole pictures
// (PcxUnpack.h) is not made for: raw ones, several planes, fewer than 8 bits, odd pitches. A run
// that is longer than its line goes on in the next. A line is filled whole or the data have ended,
// which raises RunTimeError "Input past end of file". The data outlive the reader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace scenara {

// How many bytes the data yield, counted up to `wanted`; nothing is unpacked.
[[nodiscard]] std::uint64_t UnpackedLength(std::span<const std::byte> data, bool runLength,
                                           std::uint64_t wanted);

class PcxLines {
public:
    // `runLength`: the data are packed; otherwise they are the bytes themselves.
    PcxLines(std::span<const std::byte> data, bool runLength)
        : data_(data), runLength_(runLength) {}

    void Next(std::span<std::uint8_t> line);

    // As many bytes as there are for `line`; how many that were.
    std::size_t NextIfThere(std::span<std::uint8_t> line);

    // Bytes of the data that are used up.
    [[nodiscard]] std::size_t Consumed() const { return at_; }

private:
    // The next run or single byte; false at the end of the data.
    [[nodiscard]] bool NextRun();

    std::span<const std::byte> data_;
    std::size_t at_ = 0;
    std::size_t runLeft_ = 0;
    std::uint8_t runValue_ = 0;
    bool runLength_;
};

}  // namespace scenara
