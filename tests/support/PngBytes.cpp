// SPDX-License-Identifier: MIT
#include "support/PngBytes.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <ostream>

#include <zlib.h>

namespace scenara::test {
namespace {

using Line = std::vector<std::uint8_t>;

constexpr int kFilters = 5;

void Append(PngBytes& bytes, std::uint32_t number) {
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::byte>(number >> shift));
    }
}

std::uint32_t ChecksumOf(std::span<const std::byte> bytes) {
    return static_cast<std::uint32_t>(
        ::crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())));
}

// First column and step, first line and step of each pass.
struct Pass {
    int x, dx, y, dy;
};

std::vector<Pass> PassesOf(const PngShape& shape) {
    if (!shape.interlaced) {
        return {{0, 1, 0, 1}};
    }
    return {{0, 8, 0, 8}, {4, 8, 0, 8}, {0, 4, 4, 8}, {2, 4, 0, 4},
            {0, 2, 2, 4}, {1, 2, 0, 2}, {0, 1, 1, 2}};
}

// The pixels of one line of a pass, as bits side by side.
Line LineOf(const PngShape& shape, const PngSamples& samples, const Pass& pass, int y) {
    Line line;
    int used = 8;  // bits of the last byte
    for (int x = pass.x; x < shape.width; x += pass.dx) {
        for (int channel = 0; channel < shape.Channels(); ++channel) {
            const unsigned sample = samples[static_cast<std::size_t>(
                (y * shape.width + x) * shape.Channels() + channel)];
            if (shape.bits == 16) {
                line.push_back(static_cast<std::uint8_t>(sample >> 8U));
            }
            if (shape.bits >= 8) {
                line.push_back(static_cast<std::uint8_t>(sample));
                continue;
            }
            if (used == 8) {
                line.push_back(0);
                used = 0;
            }
            used += shape.bits;
            line.back() = static_cast<std::uint8_t>(line.back() | sample << (8 - used));
        }
    }
    return line;
}

int Paeth(int left, int above, int corner) {
    const int guess = left + above - corner;
    const int byLeft = std::abs(guess - left);
    const int byAbove = std::abs(guess - above);
    const int byCorner = std::abs(guess - corner);
    if (byLeft <= byAbove && byLeft <= byCorner) {
        return left;
    }
    return byAbove <= byCorner ? above : corner;
}

int Predicted(int filter, int left, int above, int corner) {
    switch (filter) {
        case 1: return left;
        case 2: return above;
        case 3: return (left + above) / 2;
        case 4: return Paeth(left, above, corner);
        default: return 0;
    }
}

void AppendFiltered(PngBytes& out, const Line& line, const Line& above, std::size_t pixelBytes,
                    int filter) {
    out.push_back(static_cast<std::byte>(filter));
    for (std::size_t i = 0; i < line.size(); ++i) {
        const int left = i < pixelBytes ? 0 : line[i - pixelBytes];
        const int corner = i < pixelBytes || above.empty() ? 0 : above[i - pixelBytes];
        const int over = above.empty() ? 0 : above[i];
        out.push_back(static_cast<std::byte>(line[i] - Predicted(filter, left, over, corner)));
    }
}

}  // namespace

int PngShape::Channels() const {
    constexpr std::array<int, 7> kChannels = {1, 0, 3, 1, 2, 0, 4};
    return kChannels.at(static_cast<std::size_t>(colorType));
}

std::string TextOf(const PngShape& shape) {
    return "type " + std::to_string(shape.colorType) + ", " + std::to_string(shape.bits) +
           " bits, " + std::to_string(shape.width) + " x " + std::to_string(shape.height) +
           (shape.interlaced ? ", interlaced" : "");
}

void PrintTo(const PngShape& shape, std::ostream* out) {
    *out << TextOf(shape);
}

std::vector<PngShape> PngShapes(int width, int height) {
    std::vector<PngShape> shapes;
    for (const int colorType : {0, 2, 3, 4, 6}) {
        for (const int bits : {1, 2, 4, 8, 16}) {
            const bool isSmall = bits < 8 && colorType != 0 && colorType != 3;
            if (!isSmall && (bits < 16 || colorType != 3)) {
                shapes.push_back({width, height, bits, colorType, false});
            }
        }
    }
    return shapes;
}

PngSamples RandomPngSamples(const PngShape& shape, std::mt19937& random) {
    PngSamples samples(static_cast<std::size_t>(shape.width * shape.height * shape.Channels()));
    std::generate(samples.begin(), samples.end(),
                  [&] { return static_cast<std::uint16_t>(random() % (1U << shape.bits)); });
    return samples;
}

PngBytes PngLines(const PngShape& shape, const PngSamples& samples, int filter) {
    const auto pixelBytes =
        static_cast<std::size_t>(std::max(1, shape.Channels() * shape.bits / 8));
    PngBytes out;
    int lines = 0;
    for (const Pass& pass : PassesOf(shape)) {
        Line above;
        if (pass.x >= shape.width) {
            continue;
        }
        for (int y = pass.y; y < shape.height; y += pass.dy) {
            const Line line = LineOf(shape, samples, pass, y);
            AppendFiltered(out, line, above, pixelBytes,
                           filter < kFilters ? filter : lines++ % kFilters);
            above = line;
        }
    }
    return out;
}

PngBytes Deflated(std::span<const std::byte> bytes, int level) {
    uLongf size = ::compressBound(static_cast<uLong>(bytes.size()));
    PngBytes packed(size);
    ::compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uLong>(bytes.size()),
                level);
    packed.resize(size);
    return packed;
}

PngChunk PngHeader(const PngShape& shape) {
    PngChunk header{"IHDR", {}};
    Append(header.data, static_cast<std::uint32_t>(shape.width));
    Append(header.data, static_cast<std::uint32_t>(shape.height));
    for (const int value : {shape.bits, shape.colorType, 0, 0, shape.interlaced ? 1 : 0}) {
        header.data.push_back(static_cast<std::byte>(value));
    }
    return header;
}

std::vector<PngChunk> PngDataChunks(std::span<const std::byte> data, std::size_t most) {
    std::vector<PngChunk> chunks;
    do {
        const auto part = data.first(std::min(most, data.size()));
        chunks.push_back({"IDAT", {part.begin(), part.end()}});
        data = data.subspan(part.size());
    } while (!data.empty());
    return chunks;
}

PngBytes PngBytesOf(std::string_view text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

PngBytes PngFileOf(std::span<const PngChunk> chunks) {
    PngBytes file = PngBytesOf("\x89PNG\r\n\x1A\n");
    for (const PngChunk& chunk : chunks) {
        Append(file, static_cast<std::uint32_t>(chunk.data.size()));
        PngBytes checked = PngBytesOf(chunk.name);
        checked.insert(checked.end(), chunk.data.begin(), chunk.data.end());
        const std::uint32_t checksum = ChecksumOf(checked);
        file.insert(file.end(), checked.begin(), checked.end());
        Append(file, chunk.wrongChecksum ? ~checksum : checksum);
    }
    return file;
}

PngBytes PngFileOf(const PngShape& shape, std::span<const PngChunk> between,
                   const PngSamples& samples) {
    std::vector<PngChunk> chunks = {PngHeader(shape)};
    chunks.insert(chunks.end(), between.begin(), between.end());
    const std::vector<PngChunk> data = PngDataChunks(Deflated(PngLines(shape, samples)));
    chunks.insert(chunks.end(), data.begin(), data.end());
    chunks.push_back({"IEND", {}});
    return PngFileOf(chunks);
}

PngBytes WithRightChecksums(std::span<const std::byte> file) {
    constexpr std::size_t kSignature = 8;
    constexpr std::size_t kAround = 12;  // length, name, checksum
    PngBytes right(file.begin(), file.begin() + std::ptrdiff_t(std::min(kSignature, file.size())));
    while (file.size() - right.size() >= kAround) {
        const auto chunk = file.subspan(right.size());
        std::size_t length = 0;
        for (const std::byte byte : chunk.first(4)) {
            length = length << 8U | std::to_integer<std::size_t>(byte);
        }
        if (length > chunk.size() - kAround) {
            break;
        }
        right.insert(right.end(), chunk.begin(), chunk.begin() + std::ptrdiff_t(8 + length));
        Append(right, ChecksumOf(chunk.subspan(4, 4 + length)));
    }
    right.insert(right.end(), file.begin() + std::ptrdiff_t(right.size()), file.end());
    return right;
}

}  // namespace scenara::test
