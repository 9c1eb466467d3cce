// SPDX-License-Identifier: MIT
//
// The packings of samplemaker/Sff2Packing.h undone byte by byte. Bytes that end early, or a copy
// from before the first pixel, raise std::out_of_range.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

namespace scenara::samplemaker {

struct LiteralPixels {
    std::vector<std::uint8_t> pixels;  // as many as were wanted
    std::size_t bytesRead = 0;
    std::set<std::string_view> forms{};  // the odd kinds of packets that came up
};

class LiteralDecoding {
public:
    LiteralDecoding(const std::vector<std::byte>& packed, std::size_t wanted)
        : packed_(packed), wanted_(wanted) {}

    [[nodiscard]] bool Done() const { return out_.pixels.size() >= wanted_; }

    unsigned Byte() { return std::to_integer<unsigned>(packed_.at(out_.bytesRead++)); }

    void Run(unsigned count, unsigned colour) {
        for (; count > 0; --count) {
            out_.pixels.push_back(static_cast<std::uint8_t>(colour));
        }
    }

    void Copy(unsigned count, unsigned back) {
        for (; count > 0; --count) {
            out_.pixels.push_back(out_.pixels.at(out_.pixels.size() - back));
        }
    }

    void Note(bool is, const char* form) {
        if (is) {
            out_.forms.insert(form);
        }
    }

    LiteralPixels Take() && {
        Note(out_.pixels.size() > wanted_, "beyond the end");
        out_.pixels.resize(wanted_);
        return std::move(out_);
    }

private:
    const std::vector<std::byte>& packed_;
    std::size_t wanted_;
    LiteralPixels out_;
};

inline LiteralPixels LiteralRle8(const std::vector<std::byte>& packed, std::size_t wanted) {
    LiteralDecoding decoding(packed, wanted);
    while (!decoding.Done()) {
        const unsigned b = decoding.Byte();
        if ((b & 0xC0U) == 0x40U) {
            const unsigned colour = decoding.Byte();
            decoding.Note((b & 0x3FU) == 0, "RLE8 run of nothing");
            decoding.Note((b & 0x3FU) == 1 && (colour & 0xC0U) != 0x40U, "RLE8 run of a pixel");
            decoding.Note((b & 0x3FU) == 63, "RLE8 longest run");
            decoding.Run(b & 0x3FU, colour);
        } else {
            decoding.Run(1, b);
        }
    }
    return std::move(decoding).Take();
}

inline LiteralPixels LiteralRle5(const std::vector<std::byte>& packed, std::size_t wanted) {
    LiteralDecoding decoding(packed, wanted);
    while (!decoding.Done()) {
        const unsigned r = decoding.Byte();
        const unsigned h = decoding.Byte();
        const unsigned colour = (h & 0x80U) != 0 ? decoding.Byte() : 0;
        decoding.Note((h & 0x80U) == 0, "RLE5 no colour byte");
        decoding.Note((h & 0x80U) != 0 && colour == 0, "RLE5 colour byte of 0");
        decoding.Note((h & 0x7FU) == 0, "RLE5 no data bytes");
        decoding.Note((h & 0x7FU) == 127, "RLE5 most data bytes");
        decoding.Note(r == 255, "RLE5 longest run");
        decoding.Run(r + 1, colour);
        for (unsigned n = h & 0x7FU; n > 0 && !decoding.Done(); --n) {
            const unsigned d = decoding.Byte();
            decoding.Run((d >> 5U) + 1, d & 31U);
        }
    }
    return std::move(decoding).Take();
}

inline LiteralPixels LiteralLz5(const std::vector<std::byte>& packed, std::size_t wanted) {
    LiteralDecoding decoding(packed, wanted);
    unsigned saved = 0;
    unsigned shortCopies = 0;
    while (!decoding.Done()) {
        const unsigned control = decoding.Byte();
        for (unsigned packet = 0; packet < 8 && !decoding.Done(); ++packet) {
            const unsigned b = decoding.Byte();
            if ((control >> packet & 1U) == 0) {
                const unsigned count = b >> 5U;
                const unsigned pixels = count != 0 ? count : decoding.Byte() + 8;
                decoding.Note(pixels == 8, "LZ5 shortest long run");
                decoding.Note(pixels == 263, "LZ5 longest run");
                decoding.Run(pixels, b & 31U);
            } else if ((b & 0x3FU) == 0) {
                const unsigned c = decoding.Byte();
                const unsigned d = decoding.Byte();
                const unsigned back = ((b << 2U) | c) + 1;
                decoding.Note(back <= 256 && d + 3 <= 64,
                              "LZ5 long copy where a short one would do");
                decoding.Note(back > 256, "LZ5 far copy");
                decoding.Note(back < d + 3, "LZ5 long copy of what it writes");
                decoding.Note(d == 255, "LZ5 longest copy");
                decoding.Copy(d + 3, back);
            } else {
                saved |= (b & 0xC0U) >> (2 * shortCopies);
                ++shortCopies;
                decoding.Note((b & 0x3FU) == 63, "LZ5 longest short copy");
                decoding.Note(shortCopies == 4, "LZ5 fourth short copy");
                if (shortCopies < 4) {
                    decoding.Copy((b & 0x3FU) + 1, decoding.Byte() + 1);
                } else {
                    decoding.Copy((b & 0x3FU) + 1, saved + 1);
                    saved = 0;
                    shortCopies = 0;
                }
            }
        }
    }
    return std::move(decoding).Take();
}

}  // namespace scenara::samplemaker
