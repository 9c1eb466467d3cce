// SPDX-License-Identifier: MIT
#include <algorithm>
#include <utility>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/PackingParts.h"
#include "samplemaker/Sff2Packing.h"

namespace scenara::samplemaker {
namespace {

constexpr std::size_t kLongestFirstRun = 256;
constexpr std::size_t kLongestDataRun = 8;
constexpr std::size_t kMostDataBytes = 127;

class Rle5Packet {
public:
    Rle5Packet(std::size_t run, std::uint8_t colour, bool withColour)
        : run_(run), colour_(colour), withColour_(withColour) {}

    void AddRun(std::size_t count, std::uint8_t colour) {
        data_.U8(static_cast<std::uint8_t>((count - 1) << 5U | colour));
    }

    // How many more data bytes there is room for.
    [[nodiscard]] std::size_t Room() const { return kMostDataBytes - data_.Size(); }

    void Write(ByteWriter& out) && {
        out.U8(static_cast<std::uint8_t>(run_ - 1));
        out.U8(static_cast<std::uint8_t>((withColour_ ? 0x80U : 0U) | data_.Size()));
        if (withColour_) {
            out.U8(colour_);
        }
        out.Append(std::move(data_).Take());
    }

private:
    std::size_t run_;
    std::uint8_t colour_;
    bool withColour_;
    ByteWriter data_;
};

// A run joins the packet before it where its data bytes are no more than a packet of its own.
std::vector<std::byte> ShortestRle5(std::span<const std::uint8_t> pixels) {
    ByteWriter out;
    for (std::size_t at = 0; at < pixels.size();) {
        const std::size_t first = RunAt(pixels, at, kLongestFirstRun);
        Rle5Packet packet(first, pixels[at], pixels[at] != 0);
        at += first;
        while (at < pixels.size()) {
            const std::size_t run = RunAt(pixels, at, kLongestFirstRun);
            const std::size_t bytes = (run + kLongestDataRun - 1) / kLongestDataRun;
            const std::size_t asPacket = pixels[at] != 0 ? 3 : 2;
            if (bytes > asPacket || bytes > packet.Room()) {
                break;
            }
            for (std::size_t left = run; left > 0;) {
                const std::size_t count = std::min(left, kLongestDataRun);
                packet.AddRun(count, pixels[at]);
                left -= count;
            }
            at += run;
        }
        std::move(packet).Write(out);
    }
    return std::move(out).Take();
}

std::vector<std::byte> AnyRle5(std::span<const std::uint8_t> pixels, Random& random) {
    ByteWriter out;
    for (std::size_t at = 0; at < pixels.size();) {
        const std::size_t first = AnyRun(random, pixels, at, kLongestFirstRun);
        Rle5Packet packet(first, pixels[at], pixels[at] != 0 || OneIn(random, 2));
        at += first;
        for (std::size_t left = AnyLength(random, 0, kMostDataBytes);
             left > 0 && at < pixels.size(); --left) {
            const std::size_t count = AnyRun(random, pixels, at, kLongestDataRun);
            packet.AddRun(count, pixels[at]);
            at += count;
        }
        std::move(packet).Write(out);
    }
    return std::move(out).Take();
}

}  // namespace

std::vector<std::byte> PackRle5(std::span<const std::uint8_t> pixels, PackingChoice choice) {
    RequireColours(pixels, 32, "SFF: RLE5 holds 32 colours");
    if (choice.seed == 0) {
        return ShortestRle5(pixels);
    }
    Random random(choice.seed);
    return AnyRle5(pixels, random);
}

}  // namespace scenara::samplemaker
