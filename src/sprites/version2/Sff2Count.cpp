// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Count.h"

#include <algorithm>
#include <cstdint>

namespace scenara {
namespace {

// The packed bytes, one after the other.
class PackedBytes {
public:
    explicit PackedBytes(std::span<const std::byte> bytes) : bytes_(bytes) {}

    [[nodiscard]] std::size_t Left() const { return bytes_.size() - at_; }
    // There is one.
    std::size_t Next() { return std::to_integer<std::size_t>(bytes_[at_++]); }

private:
    std::span<const std::byte> bytes_;
    std::size_t at_ = 0;
};

std::size_t CountRle8(PackedBytes bytes, std::size_t wanted) {
    std::size_t count = 0;
    while (count < wanted && bytes.Left() > 0) {
        const std::size_t b = bytes.Next();
        if ((b & 0xC0U) != 0x40U) {
            ++count;
        } else if (bytes.Left() > 0) {
            bytes.Next();
            count += b & 0x3FU;
        }
    }
    return count;
}

std::size_t CountRle5(PackedBytes bytes, std::size_t wanted) {
    std::size_t count = 0;
    while (count < wanted && bytes.Left() >= 2) {
        const std::size_t run = bytes.Next() + 1;
        const std::size_t head = bytes.Next();
        if ((head & 0x80U) != 0) {
            if (bytes.Left() == 0) {
                break;
            }
            bytes.Next();
        }
        count += run;
        for (std::size_t n = head & 0x7FU; n > 0 && bytes.Left() > 0 && count < wanted; --n) {
            count += (bytes.Next() >> 5U) + 1;
        }
    }
    return count;
}

Sff2Unpacked CountLz5(PackedBytes bytes, std::size_t wanted) {
    std::size_t count = 0;
    std::size_t saved = 0;
    unsigned shortCopies = 0;
    while (count < wanted && bytes.Left() > 0) {
        std::size_t control = bytes.Next();
        for (int packet = 0; packet < 8 && count < wanted && bytes.Left() > 0; ++packet) {
            const bool copies = (control & 1U) != 0;
            control >>= 1U;
            const std::size_t b = bytes.Next();
            std::size_t back = 0;
            std::size_t made = 0;
            if (!copies && b >> 5U != 0) {
                made = b >> 5U;
            } else if (!copies) {
                if (bytes.Left() < 1) {
                    return {count};
                }
                made = bytes.Next() + 8;
            } else if ((b & 63U) == 0) {
                if (bytes.Left() < 2) {
                    return {count};
                }
                back = (b << 2U | bytes.Next()) + 1;
                made = bytes.Next() + 3;
            } else {
                saved = (saved << 2U | b >> 6U) & 255U;
                const bool fourth = shortCopies++ % 4 == 3;
                if (!fourth && bytes.Left() < 1) {
                    return {count};
                }
                back = (fourth ? saved : bytes.Next()) + 1;
                made = (b & 63U) + 1;
            }
            if (back > count) {
                return {count, true};
            }
            count += made;
        }
    }
    return {count};
}

}  // namespace

Sff2Unpacked CountSff2(Sff2Packing packing, std::span<const std::byte> packed, std::size_t wanted) {
    Sff2Unpacked result;
    switch (packing) {
        case Sff2Packing::Rle8: result.written = CountRle8(PackedBytes(packed), wanted); break;
        case Sff2Packing::Rle5: result.written = CountRle5(PackedBytes(packed), wanted); break;
        case Sff2Packing::Lz5: result = CountLz5(PackedBytes(packed), wanted); break;
    }
    result.written = std::min(result.written, wanted);
    return result;
}

}  // namespace scenara
