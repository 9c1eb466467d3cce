// SPDX-License-Identifier: MIT
//
// ByteReader: little-endian values out of a block of bytes that it does not own.
//
// Every read gives the whole value or raises RunTimeError "Input past end of file" with a text such
// as "PCX header: 2 bytes wanted at 66, 1 there". There is no partial read and no bare pointer is
// handed out, so code on top of it stays inside the block. The block and the name outlive the
// reader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace scenara {

class ByteReader {
public:
    // `what` names the block in errors: "archive header", "subfile header".
    ByteReader(std::span<const std::byte> block, std::string_view what)
        : block_(block), what_(what) {}

    // The next `count` bytes; the one place that checks.
    std::span<const std::byte> Take(std::uint64_t count);
    void Skip(std::uint64_t count) { Take(count); }

    std::uint8_t U8() { return std::to_integer<std::uint8_t>(Take(1).front()); }
    std::uint16_t U16();
    std::int16_t I16() { return static_cast<std::int16_t>(U16()); }
    std::uint32_t U32();
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }

    [[nodiscard]] std::size_t Position() const { return position_; }

private:
    std::span<const std::byte> block_;
    std::string_view what_;
    std::size_t position_ = 0;
};

}  // namespace scenara
