// SPDX-License-Identifier: MIT
#include "sprites/modFilePCX.h"

#include <algorithm>
#include <limits>
#include <string>
#include <vector>

#include "base/ByteReader.h"
#include "base/RunTimeError.h"
#include "sprites/PcxLines.h"

namespace scenara {
namespace {

constexpr std::uint8_t kManufacturer = 10;
constexpr std::uint32_t kOpaque = 0xFF000000;

// The fast path writes padding into the texture's memory; a file with lines much longer than its
// picture does not get that memory.
constexpr Long kMostPadding = 64;

// Texture bytes per packed byte beyond which the pixels are counted before the texture is made, so
// that data which claim much and hold little get no memory.
constexpr std::uint64_t kSuspiciousYield = 32;

constexpr std::uint32_t Opaque(unsigned red, unsigned green, unsigned blue) {
    return kOpaque | red << 16U | green << 8U | blue;
}

constexpr std::uint32_t Keyed(std::uint32_t color) {
    return color & ~kOpaque;
}

// The planes that the format gives to each number of bits.
bool IsKnownKind(const PcxHeader& header) {
    switch (header.bitsPerPixel) {
        case 1: return header.planes >= 1 && header.planes <= 4;
        case 2:
        case 4: return header.planes == 1;
        case 8: return header.planes == 1 || header.planes == 3 || header.planes == 4;
        default: return false;
    }
}

// The 16 colours of the header as words; colour 0 transparent for pictures of one plane.
ColorTable HeaderColors(const PcxHeader& header) {
    ColorTable table{};
    for (std::size_t i = 0; i < 16; ++i) {
        table[i] = Opaque(header.colors[i * 3], header.colors[i * 3 + 1], header.colors[i * 3 + 2]);
    }
    if (header.planes == 1) {
        table[0] = Keyed(table[0]);
    }
    return table;
}

// The colour index at pixel x of a line below 8 bits, or with one bit in each of its planes.
std::size_t IndexAt(std::span<const std::uint8_t> line, const PcxHeader& header, std::size_t x) {
    const unsigned bits = header.bitsPerPixel;
    const std::size_t byte = x * bits / 8;
    const unsigned shift = 8U - bits - static_cast<unsigned>(x * bits % 8);
    const unsigned mask = (1U << bits) - 1U;
    unsigned index = 0;
    for (std::size_t plane = 0; plane < header.planes; ++plane) {
        const unsigned value = line[plane * header.bytesPerLine + byte];
        index |= (value >> shift & mask) << plane * bits;
    }
    return index;
}

void IndexedLine(std::span<const std::uint8_t> line, const PcxHeader& header,
                 const ColorTable& colors, std::span<std::uint32_t> pixels) {
    if (header.Is256Colors()) {
        std::transform(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(pixels.size()),
                       pixels.begin(), [&](std::uint8_t index) { return colors[index]; });
        return;
    }
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        pixels[x] = colors[IndexAt(line, header, x)];
    }
}

void TrueColorLine(std::span<const std::uint8_t> line, const PcxHeader& header,
                   std::span<std::uint32_t> pixels) {
    const auto green = line.subspan(header.bytesPerLine);
    const auto blue = green.subspan(header.bytesPerLine);
    for (std::size_t x = 0; x < pixels.size(); ++x) {
        pixels[x] = Opaque(line[x], green[x], blue[x]);
    }
}

// Pixels in the key colour become transparent; with no key yet, none.
void ApplyKeyByColor(std::span<std::uint32_t> pixels, std::uint32_t key) {
    if (key != 0) {
        std::replace(pixels.begin(), pixels.end(), key, Keyed(key));
    }
}

TextureParameters ParametersFor(const PcxHeader& header, std::uint32_t key) {
    TextureParameters parameters;
    parameters.width = header.Width();
    parameters.height = header.Height();
    parameters.colorKey = key;
    parameters.bringsIn = true;
    if (header.Is256Colors() && header.IsRunLength() &&
        header.bytesPerLine <= header.Width() + kMostPadding) {
        parameters.wantedPitch = header.bytesPerLine;
        parameters.wantedSlack = kUnpackSlack;
    }
    return parameters;
}

// A header may claim as much as its data could yield at the best; data that claim very much are
// counted.
void CheckYield(const PcxHeader& header, std::span<const std::byte> data) {
    const std::uint64_t texture = static_cast<std::uint64_t>(header.Width()) *
                                  static_cast<std::uint64_t>(header.Height()) *
                                  sizeof(std::uint32_t);
    if (texture / kSuspiciousYield > data.size() &&
        UnpackedLength(data, header.IsRunLength(), header.NeededBytes()) < header.NeededBytes()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd,
                           "the pixels end after " + std::to_string(data.size()) + " bytes");
    }
}

// Whole picture in one go: 8 bits, run-length packed, and the texture's lines as long as the
// file's. How many bytes of the data that took.
std::size_t DecodeWhole(const PcxTask& task) {
    const auto wanted = static_cast<std::size_t>(task.header.PictureBytes());
    const UnpackResult result =
        UnpackPcx(task.path, task.data, task.colors, task.lock->Words(), wanted);
    if (result.written < task.header.NeededBytes()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd,
                           "the pixels end after " + std::to_string(task.data.size()) + " bytes");
    }
    return result.consumed;
}

// The same line by line, for all kinds.
std::size_t DecodeLines(const PcxTask& task) {
    const PcxHeader& header = task.header;
    const bool onePlane = header.planes == 1;
    PcxLines lines(task.data, header.IsRunLength());
    std::vector<std::uint8_t> line(header.LineBytes());
    for (Long y = 0; y < header.Height(); ++y) {
        const bool last = y + 1 == header.Height();
        const std::size_t needed = last ? header.LastLineBytes() : line.size();
        lines.Next(std::span(line).first(needed));
        lines.NextIfThere(std::span(line).subspan(needed));
        const std::span<std::uint32_t> pixels = task.lock->Line(y);
        if (header.bitsPerPixel == 8 && !onePlane) {
            TrueColorLine(line, header, pixels);
        } else {
            IndexedLine(line, header, task.colors, pixels);
        }
        if (!onePlane) {
            ApplyKeyByColor(pixels, task.keyBefore);
        }
    }
    return lines.Consumed();
}

}  // namespace

std::uint64_t PcxHeader::PictureBytes() const {
    const Long height = Height();
    return height < 1 ? 0 : std::uint64_t{LineBytes()} * static_cast<std::uint64_t>(height);
}

std::size_t PcxHeader::LastLineBytes() const {
    const auto pixels = static_cast<std::size_t>(std::max(Width(), Long{0}));
    const std::size_t lastPlane = (pixels * bitsPerPixel + 7) / 8;
    return std::min(LineBytes() - std::min(LineBytes(), std::size_t{bytesPerLine}) + lastPlane,
                    LineBytes());
}

PcxHeader ReadPcxHeader(std::span<const std::byte, kPcxHeaderSize> bytes) {
    ByteReader reader(bytes, "PCX header");
    PcxHeader header;
    header.manufacturer = reader.U8();
    reader.Skip(1);
    header.encoding = reader.U8();
    header.bitsPerPixel = reader.U8();
    header.xMin = reader.U16();
    header.yMin = reader.U16();
    header.xMax = reader.U16();
    header.yMax = reader.U16();
    reader.Skip(4);
    for (std::uint8_t& color : header.colors) {
        color = reader.U8();
    }
    reader.Skip(1);
    header.planes = reader.U8();
    header.bytesPerLine = reader.U16();
    return header;
}

std::uint64_t MostUnpackedBytes(const PcxHeader& header, std::uint64_t packed) {
    return header.IsRunLength() ? packed / 2 * 63 + packed % 2 : packed;
}

std::uint64_t MostPackedBytes(const PcxHeader& header) {
    return header.IsRunLength() ? header.PictureBytes() * 2 : header.PictureBytes();
}

void CheckPcxHeader(const PcxHeader& header, std::uint64_t packed) {
    const auto bad = [](const std::string& detail) {
        return RunTimeError(RunTimeErrorKind::BadFormat, detail);
    };
    if (header.manufacturer != kManufacturer) {
        throw bad("not a PCX picture");
    }
    if (!IsKnownKind(header)) {
        throw bad("no PCX kind has " + std::to_string(header.planes) + " planes of " +
                  std::to_string(header.bitsPerPixel) + " bits");
    }
    const Long width = header.Width();
    const Long height = header.Height();
    const std::string size = std::to_string(width) + " x " + std::to_string(height) + " pixels";
    if (width < 1 || height < 1) {
        throw bad(size);
    }
    constexpr Long most = std::numeric_limits<Integer>::max();
    if (width > most || height > most) {
        throw RunTimeError(RunTimeErrorKind::Overflow, size);
    }
    if (Long{header.bytesPerLine} * 8 < width * header.bitsPerPixel) {
        throw bad(std::to_string(header.bytesPerLine) + " bytes per line for " + size);
    }
    if (header.NeededBytes() > MostUnpackedBytes(header, packed)) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd,
                           size + " cannot come from " + std::to_string(packed) + " bytes");
    }
}

PcxDecoder::PcxDecoder(TextureMaker& device, Messages& messages, UnpackPath path)
    : device_(device), messages_(messages), path_(path) {
    palette_.fill(kOpaque);  // black, until there is one
    palette_[0] = Keyed(kOpaque);
}

void PcxDecoder::SetPalette(std::span<const std::byte, kPcxPaletteSize> palette) {
    for (std::size_t i = 0; i < palette_.size(); ++i) {
        palette_[i] = Opaque(std::to_integer<unsigned>(palette[i * 3]),
                             std::to_integer<unsigned>(palette[i * 3 + 1]),
                             std::to_integer<unsigned>(palette[i * 3 + 2]));
    }
    palette_[0] = Keyed(palette_[0]);
}

bool PcxDecoder::LoadPCX(const PcxHeader& header, std::span<const std::byte> data,
                         PcxPicture& picture) {
    try {
        PcxTask task;
        Prepare(header, data, task);
        Decode(task);
        picture = Take(task);
        return true;
    } catch (...) {
        HandleError(TextOfCurrentError());
    }
    return false;
}

void PcxDecoder::HandleError(std::string_view reason) {
    std::string text = "An ERROR has occurred!!\r\nLoadPCX\r\nHandleError: ";
    messages_.MsgBox(kMessageLoadPcx, std::move(text.append(reason)));
}

void PcxDecoder::Prepare(const PcxHeader& header, std::span<const std::byte> data, PcxTask& task) {
    CheckPcxHeader(header, data.size());
    CheckYield(header, data);
    const bool onePlane = header.planes == 1;
    task.header = header;
    task.data = data;
    task.colors = header.Is256Colors() ? palette_ : HeaderColors(header);
    task.keyBefore = key_;
    task.path = path_;
    task.picture.width = header.Width();
    task.picture.height = header.Height();
    task.picture.key = onePlane ? task.colors[0] | kOpaque : key_;
    task.picture.texture = device_.CreateTexture(ParametersFor(header, task.picture.key));
    task.lock.emplace(task.picture.texture);
}

void PcxDecoder::Decode(PcxTask& task) {
    task.lock->BringIn();
    const std::int32_t wanted = ParametersFor(task.header, task.picture.key).wantedPitch;
    const bool whole = wanted != 0 && wanted == task.lock->Pitch();
    task.picture.consumed = whole ? DecodeWhole(task) : DecodeLines(task);
}

PcxPicture PcxDecoder::Take(PcxTask& task) {
    task.lock.reset();
    if (task.header.planes != 1) {
        messages_.MsgBox(kMessageThreePlanes, "yo...");
    }
    key_ = task.picture.key;
    return task.picture;
}

}  // namespace scenara
