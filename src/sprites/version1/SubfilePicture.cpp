// SPDX-License-Identifier: MIT
#include "sprites/version1/SubfilePicture.h"

#include <algorithm>
#include <optional>
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

std::string WhichImage(const Subfile& subfile) {
    return "Group " + std::to_string(subfile.group) + " Image " + std::to_string(subfile.image);
}

}  // namespace

SubfilePictures::SubfilePictures(InputFile& archive, TextureMaker& device, Messages& messages,
                                 const ViewOptions& options)
    : archive_(archive), messages_(messages), options_(options), decoder_(device, messages) {}

bool SubfilePictures::Load(const Subfile& subfile, ArchiveUse& use, PcxPicture& picture,
                           const PaletteBytes* colors) {
    if (colors != nullptr) {
        decoder_.SetPalette(*colors);
    }
    const std::uint64_t start = subfile.Start();
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
        const std::optional<PcxHeader> header = ReadSubfilePcxHeader(archive_, subfile);
        if (!header) {
            throw RunTimeError(RunTimeErrorKind::InputPastEnd, "the file ends in the PCX header");
        }
        header_ = *header;
        const std::uint64_t dataStart = start + kPcxHeaderSize;
        const auto claimed = static_cast<std::uint64_t>(std::max(length - kDataShorterBy, Long{0}));
        const std::uint64_t packed = Available(archive_, dataStart, claimed);
        if (header_.NeededBytes() <= MostUnpackedBytes(header_, packed)) {
            ReadData(dataStart, packed);
        }
        if (colors == nullptr) {
            hasItsPalette = TakePalette(subfile, start + static_cast<std::uint64_t>(length));
        }
        CheckPcxHeader(header_, packed);
        loaded = decoder_.LoadPCX(header_, std::span(data_).first(dataSize_), picture);
    } catch (...) {
        decoder_.HandleError(TextOfCurrentError());
    }
    if (loaded && !hasItsPalette) {
        SayPaletteIsMissing(subfile);
    }
    if (loaded) {
        use.CountShown(kPcxHeaderSize + picture.consumed);
    } else {
        use.CountLost(kPcxHeaderSize + dataSize_);
    }
    return loaded;
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

bool SubfilePictures::TakePalette(const Subfile& subfile, std::uint64_t end) {
    if (!header_.Is256Colors() || (subfile.samePalette && havePalette_)) {
        return true;
    }
    const PcxPlace data = {subfile.Start() + kPcxHeaderSize, end,
                           std::span<const std::byte>(data_).first(dataSize_)};
    PaletteBytes palette = palette_;
    const bool whole =
        ReadPalette(archive_, data, options_.Additions ? &header_ : nullptr, palette);
    if (whole || !havePalette_) {  // of the first one at least what there is
        palette_ = palette;
        decoder_.SetPalette(palette_);
    }
    havePalette_ = havePalette_ || whole;
    return whole;
}

void SubfilePictures::SayPaletteIsMissing(const Subfile& subfile) {
    std::string text = "PCX Error:  " + WhichImage(subfile);
    text.append(kCrLf).append(havePalette_
                                  ? "Its palette is not in the file, the one before it is used.."
                                  : "Its palette is not whole in the file, the rest is black..");
    messages_.MsgBox(kMessageMissingPalette, std::move(text));
}

}  // namespace scenara
