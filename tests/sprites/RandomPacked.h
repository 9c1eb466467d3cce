// SPDX-License-Identifier: MIT
//
// RandomPacked: valid packed pixels of version 2 sprite archives, and the indices that they mean,
// known from how they were chosen. The same seed gives the same ones everywhere.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "sprites/version2/Sff2Unpack.h"

namespace scenara::test {

class RandomPacked {
public:
    struct Stream {
        std::vector<std::byte> packed;
        std::vector<std::uint8_t> indices;
        // How many pixels there are behind each run, copy or single pixel.
        std::vector<std::size_t> borders;
    };

    explicit RandomPacked(std::uint32_t seed) : engine_(seed) {}

    // 0 to most.
    std::size_t Number(std::size_t most) { return engine_() % (most + 1); }

    // Up to `packets` packets (RLE8: runs and single pixels).
    Stream Make(Sff2Packing packing, std::size_t packets) {
        stream_ = {};
        // How long runs and copies mostly are.
        usualLength_ = std::size_t{1} << Number(8);
        nearCopies_ = Number(2) == 0;
        switch (packing) {
            case Sff2Packing::Rle8: Rle8(packets); break;
            case Sff2Packing::Rle5: Rle5(packets); break;
            case Sff2Packing::Lz5: Lz5(packets); break;
        }
        return stream_;
    }

    // Any bytes, of very different kinds.
    std::vector<std::byte> Rubbish(std::size_t size) {
        const std::size_t mask = Number(1) == 0 ? 255 : Number(255);
        const std::size_t bits = Number(1) == 0 ? 0 : Number(255);
        std::vector<std::byte> bytes(size);
        for (std::byte& byte : bytes) {
            const std::size_t value = Number(9) == 0 ? Number(255) : (Number(255) & mask) | bits;
            byte = static_cast<std::byte>(value);
        }
        return bytes;
    }

private:
    // From least to most, mostly short.
    std::size_t Length(std::size_t least, std::size_t most) {
        switch (Number(20)) {
            case 0: return most;
            case 1: return least;
            case 2: return least + Number(most - least);
            default: return least + Number(std::min(most - least, usualLength_));
        }
    }

    void Rle8(std::size_t packets) {
        for (std::size_t i = 0; i < packets; ++i) {
            const std::size_t color = Number(255);
            const bool runOnly = color >= 64 && color < 128;
            if (runOnly || Number(1) == 0) {
                const std::size_t count = Length(0, 63);
                Write(64 + count);
                Write(color);
                Run(count, color);
            } else {
                Write(color);
                Run(1, color);
            }
        }
    }

    void Rle5(std::size_t packets) {
        while (packets > 0) {
            const std::size_t count = Length(1, 256);
            const std::size_t data = std::min(Length(0, 127), packets - 1);
            const bool hasColor = Number(2) != 0;
            const std::size_t color = hasColor ? Number(31) : 0;
            Write(count - 1);
            Write((hasColor ? 128 : 0) + data);
            if (hasColor) {
                Write(color);
            }
            Run(count, color);
            for (std::size_t i = 0; i < data; ++i) {
                const std::size_t dataCount = Length(1, 8);
                const std::size_t dataColor = Number(31);
                Write((dataCount - 1) * 32 + dataColor);
                Run(dataCount, dataColor);
            }
            packets -= 1 + data;
        }
    }

    void Lz5(std::size_t packets) {
        std::size_t shortCopies = 0;  // of the four
        std::size_t fourthBack = 0;   // how far the last of them goes; chosen with the first
        for (std::size_t i = 0; i < packets; ++i) {
            if (i % 8 == 0) {
                control_ = stream_.packed.size();
                Write(0);
            }
            const std::size_t there = stream_.indices.size();
            if (there == 0 || Number(2) == 0) {
                Lz5Run();
                continue;
            }
            stream_.packed[control_] |= static_cast<std::byte>(1U << i % 8);
            if (Number(3) == 0) {
                const std::size_t back = Back(std::min<std::size_t>(there, 1024));
                const std::size_t count = Length(3, 258);
                Write((back - 1) / 256 * 64);
                Write((back - 1) % 256);
                Write(count - 3);
                Copy(back, count);
                continue;
            }
            const std::size_t most = std::min<std::size_t>(there, 256);
            if (shortCopies == 0) {
                fourthBack = Back(most);
            }
            const std::size_t count = Length(2, 64);
            const std::size_t upper = (fourthBack - 1) >> (6 - 2 * shortCopies) & 3U;
            Write(upper * 64 + count - 1);
            std::size_t back = fourthBack;
            if (shortCopies < 3) {
                back = Back(most);
                Write(back - 1);
            }
            Copy(back, count);
            shortCopies = (shortCopies + 1) % 4;
        }
    }

    void Lz5Run() {
        const std::size_t color = Number(31);
        const bool isLong = Number(3) == 0;
        const std::size_t count = isLong ? Length(8, 263) : Length(1, 7);
        Write(isLong ? color : count * 32 + color);
        if (isLong) {
            Write(count - 8);
        }
        Run(count, color);
    }

    // 1 to most.
    std::size_t Back(std::size_t most) {
        const std::size_t near = nearCopies_ ? std::min<std::size_t>(most, 18) : most;
        return Number(15) == 0 ? most : 1 + Number(near - 1);
    }

    void Write(std::size_t byte) { stream_.packed.push_back(static_cast<std::byte>(byte)); }

    void Run(std::size_t count, std::size_t color) {
        stream_.indices.insert(stream_.indices.end(), count, static_cast<std::uint8_t>(color));
        stream_.borders.push_back(stream_.indices.size());
    }

    void Copy(std::size_t back, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i) {
            const std::uint8_t index = stream_.indices[stream_.indices.size() - back];
            stream_.indices.push_back(index);
        }
        stream_.borders.push_back(stream_.indices.size());
    }

    std::mt19937 engine_;
    Stream stream_;
    std::size_t usualLength_ = 1;
    bool nearCopies_ = false;
    std::size_t control_ = 0;  // where the group's control byte stands
};

}  // namespace scenara::test
