// SPDX-License-Identifier: MIT
//
// ByteWriter: a growing block of bytes, little-endian unless a name says otherwise.
//
// The block starts empty; each call adds at its end. Values are given in their unsigned width, so a
// number that does not fit does not compile without a visible cast.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace scenara::samplemaker {

class ByteWriter {
public:
    void U8(std::uint8_t value) { block_.push_back(static_cast<std::byte>(value)); }

    void U16(std::uint16_t value) {
        U8(static_cast<std::uint8_t>(value & 0xFFU));
        U8(static_cast<std::uint8_t>(value >> 8U));
    }

    void U32(std::uint32_t value) {
        U16(static_cast<std::uint16_t>(value & 0xFFFFU));
        U16(static_cast<std::uint16_t>(value >> 16U));
    }

    void BigU16(std::uint16_t value) {
        U8(static_cast<std::uint8_t>(value >> 8U));
        U8(static_cast<std::uint8_t>(value & 0xFFU));
    }

    void BigU32(std::uint32_t value) {
        BigU16(static_cast<std::uint16_t>(value >> 16U));
        BigU16(static_cast<std::uint16_t>(value & 0xFFFFU));
    }

    // The text's bytes, and nothing behind them.
    void Text(std::string_view text) { Append(std::as_bytes(std::span(text))); }

    // The text, and zeros behind it, `size` bytes in all; the text is no longer than that.
    void PaddedText(std::string_view text, std::size_t size) {
        Text(text);
        Fill(size - text.size(), 0);
    }

    void Fill(std::size_t count, std::uint8_t value) {
        block_.insert(block_.end(), count, static_cast<std::byte>(value));
    }

    void Append(std::span<const std::byte> bytes);

    [[nodiscard]] std::size_t Size() const { return block_.size(); }
    [[nodiscard]] std::vector<std::byte> Take() && { return std::move(block_); }

private:
    std::vector<std::byte> block_;
};

}  // namespace scenara::samplemaker
