// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>

#include "sprites/version2/PixelStores.h"
#include "sprites/version2/Sff2UnpackLoops.h"

namespace scenara::unpack {
namespace {

constexpr std::size_t kLongestPacket = 3;
constexpr std::size_t kLongestShortCopy = 64;
constexpr std::size_t kLongestPixels = 263;
// What a store may go beyond its run or copy.
constexpr std::size_t kSurplus = std::max(kFillStep, 2 * kCopyStep);
// Pixels that there has to be room for when a packet of up to kLongestShortCopy pixels begins, and
// any packet.
constexpr std::size_t kLz5Room = kLongestShortCopy + kSurplus;
constexpr std::size_t kLz5LongRoom = kLongestPixels + kSurplus;
static_assert(kLz5Room <= kUnpackSlack);

// The upper bits that four short copies leave for the last of them.
class SavedBits {
public:
    // How far back the short copy `b` goes; `next` is the byte behind it.
    std::size_t Back(std::size_t b, std::size_t next) {
        saved_ = (saved_ << 2U | b >> 6U) & 255U;
        const std::size_t back = NextIsFourth() ? saved_ : next;
        ++copies_;
        return back + 1;
    }
    [[nodiscard]] bool NextIsFourth() const { return (copies_ & 3U) == 3; }

private:
    std::size_t saved_ = 0;
    unsigned copies_ = 0;
};

struct Packet {
    std::size_t length;  // bytes
    std::size_t count;   // pixels
    std::size_t back;    // 0: a run
    std::size_t color;
};

// The packet that begins with `bytes`, kLongestPacket of them.
[[gnu::always_inline]] inline Packet ReadRun(const std::uint8_t* bytes) {
    const std::size_t count = bytes[0] >> 5U;
    const std::size_t color = bytes[0] & 31U;
    return count != 0 ? Packet{1, count, 0, color} : Packet{2, std::size_t{bytes[1]} + 8, 0, color};
}

[[gnu::always_inline]] inline Packet ReadCopy(const std::uint8_t* bytes, SavedBits& saved) {
    const std::size_t b = bytes[0];
    if ((b & 63U) == 0) {
        return {3, std::size_t{bytes[2]} + 3, (b << 2U | bytes[1]) + 1, 0};
    }
    const std::size_t length = saved.NextIsFourth() ? 1 : 2;
    return {length, (b & 63U) + 1, saved.Back(b, bytes[1]), 0};
}

// Between two packets.
struct Lz5Place {
    std::size_t at = 0;
    std::size_t written = 0;
    unsigned control = 0;      // the next packet's bit is the lowest
    unsigned packetsLeft = 0;  // of the group
    SavedBits saved;
    bool damaged = false;
};

// Near the ends of the spans.
Sff2Unpacked CarefulLz5(std::span<const std::byte> packed, const ColorTable& colors,
                        std::span<std::uint32_t> pixels, std::size_t wanted, Lz5Place place) {
    while (place.written < wanted && place.at < packed.size() && !place.damaged) {
        if (place.packetsLeft == 0) {
            place.control = std::to_integer<unsigned>(packed[place.at++]);
            place.packetsLeft = 8;
            continue;
        }
        const std::size_t there = std::min(packed.size() - place.at, kLongestPacket);
        std::array<std::uint8_t, kLongestPacket> bytes{};
        for (std::size_t i = 0; i < there; ++i) {
            bytes.at(i) = std::to_integer<std::uint8_t>(packed[place.at + i]);
        }
        const Packet packet =
            (place.control & 1U) == 0 ? ReadRun(bytes.data()) : ReadCopy(bytes.data(), place.saved);
        if (packet.length > there) {
            break;
        }
        if (packet.back > place.written) {
            place.damaged = true;
            break;
        }
        const std::size_t count = std::min(packet.count, wanted - place.written);
        const auto made = pixels.subspan(place.written, count);
        if (packet.back == 0) {
            std::ranges::fill(made, colors[packet.color]);
        } else {
            const auto from = pixels.subspan(place.written - packet.back, count);
            for (std::size_t i = 0; i < count; ++i) {
                made[i] = from[i];
            }
        }
        place.at += packet.length;
        place.written += count;
        place.control >>= 1U;
        --place.packetsLeft;
    }
    return {std::min(place.written, wanted), place.damaged};
}

// As far as whole packets are there, and there is room for what they store.
Lz5Place FastLz5(std::span<const std::byte> packed, const ColorTable& colors,
                 std::span<std::uint32_t> pixels, std::size_t wanted) {
    const std::uint8_t* const bytes = reinterpret_cast<const std::uint8_t*>(packed.data());
    // A control byte and a packet.
    const std::size_t bytesEnd = PlacesFor(1 + kLongestPacket, packed.size());
    const std::size_t stop = std::min(PlacesFor(kLz5Room, pixels.size()), wanted);
    const std::size_t longStop = PlacesFor(kLz5LongRoom, pixels.size());
    Lz5Place place;
    while (place.at < bytesEnd && place.written < stop) {
        if (place.packetsLeft == 0) {
            place.control = bytes[place.at++];
            place.packetsLeft = 8;
        }
        const std::uint8_t* const next = bytes + place.at;
        std::uint32_t* const out = pixels.data() + place.written;
        Packet packet;
        if ((place.control & 1U) == 0) {
            packet = ReadRun(next);
            if (packet.count > 7 && place.written >= longStop) {
                break;
            }
            FillPixels(out, colors[packet.color], packet.count);
        } else {
            packet = ReadCopy(next, place.saved);
            if (packet.back > place.written) {
                place.damaged = true;
                break;
            }
            if (packet.length == 3 && place.written >= longStop) {
                break;
            }
            CopyPixels(out, packet.back, packet.count);
        }
        place.at += packet.length;
        place.written += packet.count;
        place.control >>= 1U;
        --place.packetsLeft;
    }
    return place;
}

}  // namespace

Sff2Unpacked UnpackLz5(std::span<const std::byte> packed, const ColorTable& colors,
                       std::span<std::uint32_t> pixels, std::size_t wanted) {
    return CarefulLz5(packed, colors, pixels, wanted, FastLz5(packed, colors, pixels, wanted));
}

}  // namespace scenara::unpack
