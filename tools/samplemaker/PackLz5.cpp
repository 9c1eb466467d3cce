// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "samplemaker/Lz5Matches.h"
#include "samplemaker/PackingParts.h"
#include "samplemaker/Sff2Packing.h"

namespace scenara::samplemaker {
namespace {

constexpr std::size_t kLongestByteRun = 7;
constexpr std::size_t kShortestWordRun = 8;
constexpr std::size_t kLongestWordRun = 263;
constexpr std::size_t kFarthestShortCopy = 256;
constexpr std::size_t kShortestShortCopy = 2;
constexpr std::size_t kLongestShortCopy = 64;
constexpr std::size_t kFarthestLongCopy = 1024;
constexpr std::size_t kShortestLongCopy = 3;
constexpr std::size_t kLongestLongCopy = 258;

// Puts packets behind one another, with their control bytes before each eight of them.
class Lz5Writer {
public:
    // 1 to 7 pixels, or 8 to 263.
    void Run(std::size_t count, std::uint8_t colour) {
        BeginPacket(false);
        if (count <= kLongestByteRun) {
            Add(count << 5U | colour);
        } else {
            Add(colour);
            Add(count - kShortestWordRun);
        }
    }

    // The upper two bits of four short copies are the distance of the fourth. So the first three
    // are written with `bits` (0 to 3) there, and get the right ones when the fourth is known.
    void ShortCopy(Lz5Match match, unsigned bits = 0) {
        BeginPacket(true);
        if (saved_ < firstThree_.size()) {
            firstThree_.at(saved_++) = out_.size();
            Add(bits << 6U | (match.count - 1));
            Add(match.back - 1);
            return;
        }
        const std::size_t distance = match.back - 1;
        for (std::size_t i = 0; i < firstThree_.size(); ++i) {
            std::byte& first = out_.at(firstThree_.at(i));
            first = (first & std::byte{0x3F}) | static_cast<std::byte>(UpperBits(distance, i));
        }
        Add(UpperBits(distance, 3) | (match.count - 1));
        saved_ = 0;
    }

    void LongCopy(Lz5Match match) {
        BeginPacket(true);
        const std::size_t distance = match.back - 1;
        Add((distance >> 8U) << 6U);
        Add(distance & 0xFFU);
        Add(match.count - kShortestLongCopy);
    }

    [[nodiscard]] std::vector<std::byte> Take() && { return std::move(out_); }

private:
    // What the copy number `i` of four holds of the distance, in bits 7 and 6.
    static std::size_t UpperBits(std::size_t distance, std::size_t i) {
        return (distance << (2 * i)) & 0xC0U;
    }

    void Add(std::size_t value) { out_.push_back(static_cast<std::byte>(value)); }

    void BeginPacket(bool isCopy) {
        if (packets_ % 8 == 0) {
            control_ = out_.size();
            Add(0);
        }
        if (isCopy) {
            out_.at(control_) |= std::byte{1} << packets_ % 8;
        }
        ++packets_;
    }

    std::vector<std::byte> out_;
    std::size_t control_ = 0;  // where the last control byte stands
    unsigned packets_ = 0;
    std::array<std::size_t, 3> firstThree_{};  // where the short copies of an unfinished four begin
    std::size_t saved_ = 0;                    // how many there are
};

enum class Lz5Kind { Run, ShortCopy, LongCopy };

struct Lz5Packet {
    Lz5Kind kind = Lz5Kind::Run;
    std::size_t count = 0;
    std::size_t back = 0;                                            // of copies
    std::uint32_t cost = std::numeric_limits<std::uint32_t>::max();  // of it and all that follow
};

// In eighths of a byte, with the bit of the control byte; a fourth of the short copies lack a byte.
constexpr std::uint32_t kCostOfByteRun = 9;
constexpr std::uint32_t kCostOfWordRun = 17;
constexpr std::uint32_t kCostOfShortCopy = 15;
constexpr std::uint32_t kCostOfLongCopy = 25;

// The best packet at each pixel, from the last one to the first. What is left never costs more when
// it begins a pixel later, because the first packet of it can be made shorter by one; so of each
// kind only the longest packet has to be looked at.
std::vector<Lz5Packet> BestPackets(std::span<const std::uint8_t> pixels) {
    const Lz5Matches matches(pixels);
    std::vector<Lz5Packet> best(pixels.size());
    std::size_t run = 0;
    for (std::size_t at = pixels.size(); at-- > 0;) {
        const bool goesOn = at + 1 < pixels.size() && pixels[at] == pixels[at + 1];
        run = goesOn ? run + 1 : 1;
        const auto offer = [&](Lz5Kind kind, std::size_t count, std::size_t back,
                               std::uint32_t cost) {
            const std::size_t next = at + count;
            const std::uint32_t sum = cost + (next < best.size() ? best[next].cost : 0);
            if (sum < best[at].cost) {
                best[at] = {kind, count, back, sum};
            }
        };
        if (run >= kShortestWordRun) {
            offer(Lz5Kind::Run, std::min(run, kLongestWordRun), 0, kCostOfWordRun);
        }
        offer(Lz5Kind::Run, std::min(run, kLongestByteRun), 0, kCostOfByteRun);
        const Lz5Match near = matches.Longest(at, kFarthestShortCopy, kLongestShortCopy);
        if (near.count >= kShortestShortCopy) {
            offer(Lz5Kind::ShortCopy, near.count, near.back, kCostOfShortCopy);
        }
        const Lz5Match far = matches.Longest(at, kFarthestLongCopy, kLongestLongCopy);
        if (far.count >= kShortestLongCopy) {
            offer(Lz5Kind::LongCopy, far.count, far.back, kCostOfLongCopy);
        }
    }
    return best;
}

std::vector<std::byte> ShortestLz5(std::span<const std::uint8_t> pixels) {
    const std::vector<Lz5Packet> best = BestPackets(pixels);
    Lz5Writer out;
    for (std::size_t at = 0; at < pixels.size(); at += best[at].count) {
        const Lz5Packet& packet = best[at];
        switch (packet.kind) {
            case Lz5Kind::Run: out.Run(packet.count, pixels[at]); break;
            case Lz5Kind::ShortCopy: out.ShortCopy({packet.back, packet.count}); break;
            case Lz5Kind::LongCopy: out.LongCopy({packet.back, packet.count}); break;
        }
    }
    return std::move(out).Take();
}

// One of those that a reader must take at this place, at random.
class AnyLz5 {
public:
    AnyLz5(std::span<const std::uint8_t> pixels, Random& random)
        : pixels_(pixels), random_(random), matches_(pixels) {}

    std::vector<std::byte> Pack() && {
        for (std::size_t at = 0; at < pixels_.size();) {
            at += Packet(at);
        }
        return std::move(out_).Take();
    }

private:
    // Returns how many pixels it is.
    std::size_t Packet(std::size_t at) {
        const auto skipped = static_cast<std::size_t>(OneIn(random_, 2) ? random_.Whole(0, 20) : 0);
        if (OneIn(random_, 3)) {
            Lz5Match match = matches_.Longest(at, kFarthestShortCopy, kLongestShortCopy, skipped);
            if (match.count >= kShortestShortCopy) {
                match.count = AnyLength(random_, kShortestShortCopy, match.count);
                out_.ShortCopy(match, static_cast<unsigned>(random_.Whole(0, 3)));
                return match.count;
            }
        }
        if (OneIn(random_, 3)) {
            Lz5Match match = matches_.Longest(at, kFarthestLongCopy, kLongestLongCopy, skipped);
            if (match.count >= kShortestLongCopy) {
                match.count = AnyLength(random_, kShortestLongCopy, match.count);
                out_.LongCopy(match);
                return match.count;
            }
        }
        const std::size_t count = AnyRun(random_, pixels_, at, kLongestWordRun);
        out_.Run(count, pixels_[at]);
        return count;
    }

    std::span<const std::uint8_t> pixels_;
    Random& random_;
    Lz5Matches matches_;
    Lz5Writer out_;
};

}  // namespace

std::vector<std::byte> PackLz5(std::span<const std::uint8_t> pixels, PackingChoice choice) {
    RequireColours(pixels, 32, "SFF: LZ5 holds 32 colours");
    if (choice.seed == 0) {
        return ShortestLz5(pixels);
    }
    Random random(choice.seed);
    return AnyLz5(pixels, random).Pack();
}

}  // namespace scenara::samplemaker
