// SPDX-License-Identifier: MIT
//
// The packings of version 2 sprite archives by the letter of the format: byte by byte and pixel by
// pixel, with no regard to speed. Sff2Unpack.h has the formats, and what is made of bad input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "sprites/version2/Sff2Unpack.h"

namespace scenara::test {

struct LiteralUnpacked {
    std::vector<std::uint8_t> indices;
    bool damaged = false;
};

class LiteralUnpack {
public:
    LiteralUnpack(std::span<const std::byte> packed, std::size_t wanted)
        : packed_(packed), wanted_(wanted) {}

    LiteralUnpacked Unpack(Sff2Packing packing) {
        switch (packing) {
            case Sff2Packing::Rle8: Rle8(); break;
            case Sff2Packing::Rle5: Rle5(); break;
            case Sff2Packing::Lz5: Lz5(); break;
        }
        return unpacked_;
    }

private:
    void Rle8() {
        while (!IsFull()) {
            const auto b = Next();
            if (!b) {
                return;
            }
            if ((*b & 0xC0) != 0x40) {
                Put(1, *b);
                continue;
            }
            const auto color = Next();
            if (!color) {
                return;
            }
            Put(*b & 0x3F, *color);
        }
    }

    void Rle5() {
        while (!IsFull()) {
            const auto run = Next();
            const auto head = Next();
            if (!run || !head) {
                return;
            }
            std::optional<int> color = 0;
            if (*head >= 128) {
                color = Next();
            }
            if (!color) {
                return;
            }
            Put(*run + 1, *color);
            for (int i = 0; i < *head % 128; ++i) {
                const auto data = Next();
                if (!data) {
                    return;
                }
                Put(*data / 32 + 1, *data % 32);
            }
        }
    }

    void Lz5() {
        while (true) {
            const auto control = Next();
            if (!control) {
                return;
            }
            for (int bit = 1; bit < 256; bit *= 2) {
                if (IsFull() || !((*control & bit) == 0 ? Lz5Run() : Lz5Copy())) {
                    return;
                }
            }
        }
    }

    bool Lz5Run() {
        const auto b = Next();
        if (!b) {
            return false;
        }
        int count = *b / 32;
        if (count == 0) {
            const auto more = Next();
            if (!more) {
                return false;
            }
            count = *more + 8;
        }
        Put(count, *b % 32);
        return true;
    }

    bool Lz5Copy() {
        const auto b = Next();
        if (!b) {
            return false;
        }
        if (*b % 64 == 0) {
            const auto c = Next();
            const auto d = Next();
            return c && d && Copy(*b / 64 * 256 + *c + 1, *d + 3);
        }
        const int upper = *b / 64;
        if (shortCopies_ < 3) {
            const int places[] = {64, 16, 4};
            saved_ += upper * places[shortCopies_];
            ++shortCopies_;
            const auto c = Next();
            return c && Copy(*c + 1, *b % 64 + 1);
        }
        const int back = saved_ + upper + 1;
        saved_ = 0;
        shortCopies_ = 0;
        return Copy(back, *b % 64 + 1);
    }

    bool Copy(int back, int count) {
        if (static_cast<std::size_t>(back) > unpacked_.indices.size()) {
            unpacked_.damaged = true;
            return false;
        }
        for (int i = 0; i < count; ++i) {
            Put(1, unpacked_.indices[unpacked_.indices.size() - static_cast<std::size_t>(back)]);
        }
        return true;
    }

    void Put(int count, int color) {
        for (int i = 0; i < count && !IsFull(); ++i) {
            unpacked_.indices.push_back(static_cast<std::uint8_t>(color));
        }
    }

    [[nodiscard]] bool IsFull() const { return unpacked_.indices.size() >= wanted_; }

    std::optional<int> Next() {
        if (at_ >= packed_.size()) {
            return std::nullopt;
        }
        return std::to_integer<int>(packed_[at_++]);
    }

    std::span<const std::byte> packed_;
    std::size_t wanted_;
    std::size_t at_ = 0;
    LiteralUnpacked unpacked_;
    int shortCopies_ = 0;  // of the four
    int saved_ = 0;
};

}  // namespace scenara::test
