// SPDX-License-Identifier: MIT
//
// Coverage: where a texture has anything to see when its transparent pixels are left out.
//
// Half of the pixels of a stage are transparent, in a few stretches per line. A bit for every
// block of kBlockTexels texels says whether one of them is visible, so that a draw of a line looks
// at the bits once, in one word, and neither reads nor writes where there is nothing. That takes
// 1/256 of the texture's memory, whatever is in it. Lists of stretches take more, and each stretch
// costs a mispredicted branch.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/soft/Texels.h"

namespace scenara::soft {

inline constexpr std::int32_t kBlockTexels = 8;

class Coverage {
public:
    enum class Kind {
        Unknown,      // not looked at yet
        Opaque,       // every alpha is 255
        Masked,       // every alpha is 0 or 255
        Translucent,  // there are others
    };

    // Bytes that LineBits may be read beyond its own.
    static constexpr std::size_t kReadBeyond = 8;

    Coverage() = default;

    // Unknown when there is no memory for the bits.
    [[nodiscard]] static Coverage Of(const Texels& texels);

    [[nodiscard]] Kind WhatKind() const { return kind_; }

    // Whether it has bits: Masked and Translucent.
    [[nodiscard]] bool HasBits() const { return bits_ != nullptr; }

    // Where it has bits: block b's bit is bit b % 8 of byte b / 8. LineBits(y + 1) is LinePitch()
    // further.
    [[nodiscard]] const std::uint8_t* LineBits(std::int32_t y) const {
        return bits_.get() + static_cast<std::ptrdiff_t>(y) * pitch_;
    }
    [[nodiscard]] std::ptrdiff_t LinePitch() const { return pitch_; }

private:
    Kind kind_ = Kind::Unknown;
    std::ptrdiff_t pitch_ = 0;
    std::unique_ptr<std::uint8_t[]> bits_;
};

}  // namespace scenara::soft
