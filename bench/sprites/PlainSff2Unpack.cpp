// SPDX-License-Identifier: MIT
#include "sprites/PlainSff2Unpack.h"

#include <algorithm>

namespace scenara::bench {
namespace {

class PlainUnpack {
public:
    PlainUnpack(std::span<const std::byte> packed, const ColorTable& colors,
                std::span<std::uint32_t> pixels)
        : packed_(packed), colors_(colors), pixels_(pixels) {}

    std::size_t Rle8() {
        while (IsGoingOn()) {
            const std::size_t b = Next();
            if ((b & 0xC0U) == 0x40U) {
                Run(b & 0x3FU, Next());
            } else {
                Run(1, b);
            }
        }
        return written_;
    }

    std::size_t Rle5() {
        while (IsGoingOn()) {
            const std::size_t run = Next();
            const std::size_t head = Next();
            Run(run + 1, (head & 128U) != 0 ? Next() : 0);
            for (std::size_t left = head & 127U; left > 0 && IsGoingOn(); --left) {
                const std::size_t data = Next();
                Run((data >> 5U) + 1, data & 31U);
            }
        }
        return written_;
    }

    std::size_t Lz5() {
        std::size_t saved = 0;
        std::size_t shortCopies = 0;
        while (IsGoingOn()) {
            std::size_t control = Next();
            for (int packet = 0; packet < 8 && IsGoingOn(); ++packet, control >>= 1U) {
                const std::size_t b = Next();
                if ((control & 1U) == 0) {
                    const std::size_t count = b >> 5U;
                    Run(count != 0 ? count : Next() + 8, b & 31U);
                } else if ((b & 63U) == 0) {
                    const std::size_t back = (b << 2U | Next()) + 1;
                    Copy(Next() + 3, back);
                } else {
                    saved |= b >> 6U << (6 - 2 * shortCopies);
                    if (++shortCopies < 4) {
                        Copy((b & 63U) + 1, Next() + 1);
                    } else {
                        Copy((b & 63U) + 1, saved + 1);
                        saved = 0;
                        shortCopies = 0;
                    }
                }
            }
        }
        return written_;
    }

private:
    [[nodiscard]] bool IsGoingOn() const {
        return written_ < pixels_.size() && at_ < packed_.size();
    }

    std::size_t Next() { return std::to_integer<std::size_t>(packed_[at_++]); }

    void Run(std::size_t count, std::size_t index) {
        count = std::min(count, pixels_.size() - written_);
        std::fill_n(pixels_.data() + written_, count, colors_[index]);
        written_ += count;
    }

    void Copy(std::size_t count, std::size_t back) {
        count = std::min(count, pixels_.size() - written_);
        std::uint32_t* const out = pixels_.data() + written_;
        for (std::size_t i = 0; i < count; ++i) {
            out[i] = *(out + i - back);
        }
        written_ += count;
    }

    std::span<const std::byte> packed_;
    const ColorTable& colors_;
    std::span<std::uint32_t> pixels_;
    std::size_t at_ = 0;
    std::size_t written_ = 0;
};

}  // namespace

std::size_t PlainUnpackSff2(Sff2Packing packing, std::span<const std::byte> packed,
                            const ColorTable& colors, std::span<std::uint32_t> pixels) {
    PlainUnpack unpack(packed, colors, pixels);
    switch (packing) {
        case Sff2Packing::Rle8: return unpack.Rle8();
        case Sff2Packing::Rle5: return unpack.Rle5();
        case Sff2Packing::Lz5: return unpack.Lz5();
    }
    return 0;
}

}  // namespace scenara::bench
