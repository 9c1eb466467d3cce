// SPDX-License-Identifier: MIT
#include "desktop/Screenshot.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <sstream>
#include <stdexcept>
#include <utility>

namespace scenara::test {
namespace {

std::uint32_t BigEndian(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8U | static_cast<unsigned char>(bytes.at(at + i));
    }
    return value;
}

}  // namespace

std::optional<Place> PaintedIn(const Screenshot& shot) {
    constexpr int kPointer = 64;
    std::vector<int> inColumn(static_cast<std::size_t>(shot.width));
    std::vector<int> inLine(static_cast<std::size_t>(shot.height));
    for (std::size_t y = 0, i = 0; y < inLine.size(); ++y) {
        for (std::size_t x = 0; x < inColumn.size(); ++x, ++i) {
            if (shot.rgb[i] != kBackground) {
                ++inColumn[x];
                ++inLine[y];
            }
        }
    }
    const auto isPainted = [](int count) { return count > kPointer; };
    const auto range = [&](const std::vector<int>& counts) {
        const auto first = std::find_if(counts.begin(), counts.end(), isPainted);
        const auto last = std::find_if(counts.rbegin(), counts.rend(), isPainted);
        return std::pair(static_cast<int>(first - counts.begin()),
                         static_cast<int>(last.base() - counts.begin()));
    };
    const auto [left, right] = range(inColumn);
    const auto [top, bottom] = range(inLine);
    return right > left && bottom > top
               ? std::optional(Place{left, top, right - left, bottom - top})
               : std::nullopt;
}

Screenshot ReadDump(const std::string& dump) {
    constexpr std::size_t kColourSize = 12;
    constexpr std::size_t kShortest = 100;  // its header, without a name
    if (dump.size() < kShortest) {
        return {};
    }
    Screenshot shot;
    shot.width = static_cast<int>(BigEndian(dump, 16));
    shot.height = static_cast<int>(BigEndian(dump, 20));
    const std::size_t pixelBytes = BigEndian(dump, 44) / 8;
    const std::size_t lineBytes = BigEndian(dump, 48);
    const std::size_t start = BigEndian(dump, 0) + BigEndian(dump, 76) * kColourSize;
    if (dump.size() < start + static_cast<std::size_t>(shot.height) * lineBytes) {
        return {};
    }
    shot.rgb.resize(static_cast<std::size_t>(shot.width) * static_cast<std::size_t>(shot.height));
    std::uint32_t* pixel = shot.rgb.data();
    for (int y = 0; y < shot.height; ++y) {
        const char* from = dump.data() + start + static_cast<std::size_t>(y) * lineBytes;
        for (int x = 0; x < shot.width; ++x, from += pixelBytes) {
            std::memcpy(pixel++, from, 3);
        }
    }
    return shot;
}

Screenshot ReadPixelMap(const std::string& map) {
    std::istringstream header(map);
    std::string kind;
    Screenshot shot;
    int most = 0;
    header >> kind >> shot.width >> shot.height >> most;
    if (!header || kind != "P6" || most != 255 || shot.width < 1 || shot.height < 1) {
        return {};
    }
    const std::size_t start = static_cast<std::size_t>(header.tellg()) + 1;
    const std::size_t count =
        static_cast<std::size_t>(shot.width) * static_cast<std::size_t>(shot.height);
    if (map.size() < start + count * 3) {
        return {};
    }
    shot.rgb.reserve(count);
    for (std::size_t i = start; i < start + count * 3; i += 3) {
        const auto part = [&](std::size_t at) {
            return static_cast<std::uint32_t>(static_cast<unsigned char>(map[at]));
        };
        shot.rgb.push_back(part(i) << 16U | part(i + 1) << 8U | part(i + 2));
    }
    return shot;
}

std::uint32_t Screenshot::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        throw std::out_of_range("outside of the screen");
    }
    return rgb[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x)];
}

}  // namespace scenara::test
