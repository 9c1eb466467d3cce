// SPDX-License-Identifier: MIT
#include "sprites/SubfilePicture.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "base/RunTimeError.h"
#include "base/Text.h"

namespace scenara {
namespace {

// What a subfile of negative length is taken to be.
constexpr Long kLengthInsteadOfNegative = 256;

// The data of a picture are the subfile's without the PCX header, and one byte more.
constexpr Long kDataShorterBy = 127;

std::string WhichImage(const SubfileHeader& subfile) {
    return "Group " + std::to_string(subfile.group) + " Image " + std::to_string(subfile.image);
}

// How many of `wanted` bytes the file has from `start` on.
std::uint64_t Available(const InputFile& file, std::uint64_t start, std::uint64_t wanted) {
    return start < file.Size() ? std::min(wanted, file.Size() - start) : 0;
}

}  // namespace

SubfilePictures::SubfilePictures(InputFile& archive, TextureMaker& device, Messages& messages,
                                 const ViewOptions& options)
    : archive_(archive), messages_(messages), options_(options), decoder_(device, messages) {}

bool SubfilePictures::Load(SubfileChain& chain, PcxPicture& picture, PictureLines* lines) {
    return LoadFrom(chain, chain.Header(), chain.Position(), true, picture, lines);
}

bool SubfilePictures::LoadInColors(SubfileChain& chain, const SubfileHeader& subfile,
                                   std::uint32_t position, const PaletteBytes& palette,
                                   PcxPicture& picture) {
    decoder_.SetPalette(palette);
    return LoadFrom(chain, subfile, position, false, picture, nullptr);
}

bool SubfilePictures::LoadFrom(SubfileChain& chain, const SubfileHeader& subfile,
                               std::uint32_t position, bool takesPalette, PcxPicture& picture,
                               PictureLines* lines) {
    const std::uint64_t start = std::uint64_t{position} + kSubfileHeaderSize;
    Long length = subfile.length;
    if (length < 0) {
        messages_.MsgBox(kMessageNegativeLength,
                         "Please report by e-mail to the authors of this program that you have "
                         "seen this message: " +
                             WhichImage(subfile) + " has a negative length.");
        length = kLengthInsteadOfNegative;
    }
    dataSize_ = 0;
    bool hasItsPalette = true;
    bool loaded = false;
    try {
        ReadHeader(start);
        const std::uint64_t dataStart = start + kPcxHeaderSize;
        const auto claimed = static_cast<std::uint64_t>(std::max(length - kDataShorterBy, Long{0}));
        const std::uint64_t packed = Available(archive_, dataStart, claimed);
        if (header_.NeededBytes() <= MostUnpackedBytes(header_, packed)) {
            ReadData(dataStart, packed);
        }
        if (takesPalette) {
            hasItsPalette = TakePalette(chain, start + static_cast<std::uint64_t>(length));
        }
        CheckPcxHeader(header_, packed);
        loaded = decoder_.LoadPCX(header_, std::span(data_).first(dataSize_), picture, lines);
    } catch (...) {
        decoder_.HandleError("LoadPCX", TextOfCurrentError());
    }
    if (loaded && !hasItsPalette) {
        SayPaletteIsMissing(subfile);
    }
    if (loaded) {
        chain.CountShownBytes(kPcxHeaderSize + picture.consumed);
    } else {
        chain.CountLostBytes(kPcxHeaderSize + dataSize_);
    }
    return loaded;
}

void SubfilePictures::ReadHeader(std::uint64_t start) {
    std::array<std::byte, kPcxHeaderSize> bytes{};
    if (archive_.ReadAt(start, bytes) < bytes.size()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd, "the file ends in the PCX header");
    }
    header_ = ReadPcxHeader(bytes);
}

void SubfilePictures::ReadData(std::uint64_t start, std::uint64_t packed) {
    // The pixels at their worst packing, and the palette with its mark.
    const std::uint64_t useful = MostPackedBytes(header_) + 1 + kPcxPaletteSize;
    const auto size = static_cast<std::size_t>(std::min(packed, useful));
    if (data_.size() < size) {
        data_ = {};  // growing would hold the old bytes and the new ones at once
        data_.resize(size);
    }
    dataSize_ = archive_.ReadAt(start, std::span(data_).first(size));
}

bool SubfilePictures::TakePalette(const SubfileChain& chain, std::uint64_t end) {
    const bool own = !chain.Header().samePalette || chain.Index() == 0 || !havePalette_;
    if (!header_.Is256Colors() || !own) {
        return true;
    }
    const std::uint64_t dataStart =
        std::uint64_t{chain.Position()} + kSubfileHeaderSize + kPcxHeaderSize;
    if (end < kPcxPaletteSize) {
        return false;
    }
    const std::uint64_t paletteStart = end - kPcxPaletteSize;
    const auto data = std::span<const std::byte>(data_).first(dataSize_);
    if (options_.Additions && !IsPaletteAt(archive_, header_, dataStart, paletteStart, data)) {
        return false;
    }
    const bool whole = ReadPalette(paletteStart, dataStart);
    havePalette_ = havePalette_ || whole;
    return whole;
}

void SubfilePictures::SayPaletteIsMissing(const SubfileHeader& subfile) {
    std::string text = "PCX Error:  " + WhichImage(subfile);
    text.append(kCrLf).append(havePalette_
                                  ? "Its palette is not in the file, the one before it is used.."
                                  : "Its palette is not whole in the file, the rest is black..");
    messages_.MsgBox(kMessageMissingPalette, std::move(text));
}

bool SubfilePictures::ReadPalette(std::uint64_t start, std::uint64_t dataStart) {
    // Nearly always it was read with the pixels.
    if (start >= dataStart && start + kPcxPaletteSize <= dataStart + dataSize_) {
        const auto data = std::span<const std::byte>(data_);
        decoder_.SetPalette(
            data.subspan(static_cast<std::size_t>(start - dataStart)).first<kPcxPaletteSize>());
        return true;
    }
    std::array<std::byte, kPcxPaletteSize> bytes{};
    const bool whole = archive_.ReadAt(start, bytes) == bytes.size();
    if (whole || !havePalette_) {
        decoder_.SetPalette(bytes);  // of the first one at least what there is
    }
    return whole;
}

}  // namespace scenara
