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

// Larger buffers are rarely wanted again.
constexpr std::size_t kMostSpare = std::size_t{128} << 10U;

std::string WhichImage(const Subfile& subfile) {
    return "Group " + std::to_string(subfile.group) + " Image " + std::to_string(subfile.image);
}

}  // namespace

SubfilePictures::SubfilePictures(InputFile& archive, TextureMaker& device, Messages& messages,
                                 const ViewOptions& options)
    : archive_(archive),
      messages_(messages),
      options_(options),
      textures_(device),
      decoder_(textures_, messages) {}

std::unique_ptr<SubfileLoad> SubfilePictures::Begin(const Subfile& subfile,
                                                    const PaletteBytes* colors) {
    auto load = std::make_unique<SubfileLoad>();
    load->subfile_ = subfile;
    if (!spare_.empty()) {
        load->data_ = std::move(spare_.back());
        spare_.pop_back();
    }
    const std::uint64_t taken = textures_.Taken();
    bool waits = false;
    try {
        Read(*load, colors);
        waits = load->header_.planes != 1 && underWay_ > 0;
        if (!waits) {
            decoder_.Prepare(load->header_, std::span(load->data_).first(load->dataSize_),
                             load->task_);
        }
    } catch (...) {
        load->Fail();
        waits = textures_.IsFull() && underWay_ > 0;
    }
    load->textureBytes_ = textures_.Taken() - taken;
    ++underWay_;
    if (waits) {
        End(*load);
        return nullptr;
    }
    return load;
}

// What of a subfile makes a picture, and the palette that it leaves to the next one.
void SubfilePictures::Read(SubfileLoad& load, const PaletteBytes* colors) {
    if (colors != nullptr) {
        decoder_.SetPalette(*colors);
    }
    const Subfile& subfile = load.subfile_;
    const Long length = subfile.length < 0 ? kLengthInsteadOfNegative : subfile.length;
    const std::optional<PcxHeader> header = ReadSubfilePcxHeader(archive_, subfile);
    if (!header) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd, "the file ends in the PCX header");
    }
    load.header_ = *header;
    const std::uint64_t dataStart = subfile.Start() + kPcxHeaderSize;
    const auto claimed = static_cast<std::uint64_t>(std::max(length - kDataShorterBy, Long{0}));
    const std::uint64_t packed = Available(archive_, dataStart, claimed);
    if (header->NeededBytes() <= MostUnpackedBytes(*header, packed)) {
        ReadData(load, dataStart, packed);
    }
    if (colors == nullptr) {
        load.hasItsPalette_ =
            TakePalette(load, subfile.Start() + static_cast<std::uint64_t>(length));
        load.lacksAny_ = !havePalette_;
    }
    CheckPcxHeader(*header, packed);
}

bool SubfilePictures::Finish(SubfileLoad& load, ArchiveUse& use, PcxPicture& picture) {
    if (load.subfile_.length < 0) {
        messages_.MsgBox(kMessageNegativeLength,
                         "Please report by e-mail to the authors of this program that you have "
                         "seen this message: " +
                             WhichImage(load.subfile_) + " has a negative length.");
    }
    bool loaded = false;
    try {
        load.RaiseFailure();
        picture = decoder_.Take(load.task_);
        loaded = true;
    } catch (...) {
        decoder_.HandleError(TextOfCurrentError());
    }
    if (loaded && !load.hasItsPalette_) {
        SayPaletteIsMissing(load);
    }
    if (loaded) {
        use.CountShown(kPcxHeaderSize + picture.consumed);
        load.textureBytes_ = 0;  // they stay
    } else {
        use.CountLost(kPcxHeaderSize + load.dataSize_);
    }
    End(load);
    return loaded;
}

void SubfilePictures::Drop(SubfileLoad& load) {
    End(load);
}

void SubfilePictures::End(SubfileLoad& load) {
    textures_.GiveBack(load.textureBytes_);
    if (load.data_.size() <= kMostSpare) {
        spare_.push_back(std::move(load.data_));
    }
    --underWay_;
}

void SubfilePictures::ReadData(SubfileLoad& load, std::uint64_t start, std::uint64_t packed) {
    // The pixels at their worst packing, and the palette with its mark.
    const std::uint64_t useful = MostPackedBytes(load.header_) + 1 + kPcxPaletteSize;
    const auto size = static_cast<std::size_t>(std::min(packed, useful));
    if (load.data_.size() < size) {
        load.data_ = {};  // growing would hold the old bytes and the new ones at once
        load.data_.resize(size);
    }
    load.dataSize_ = archive_.ReadAt(start, std::span(load.data_).first(size));
}

bool SubfilePictures::TakePalette(const SubfileLoad& load, std::uint64_t end) {
    if (!load.header_.Is256Colors() || (load.subfile_.samePalette && havePalette_)) {
        return true;
    }
    const PcxPlace data = {load.subfile_.Start() + kPcxHeaderSize, end,
                           std::span<const std::byte>(load.data_).first(load.dataSize_)};
    PaletteBytes palette = palette_;
    const bool whole =
        ReadPalette(archive_, data, options_.Additions ? &load.header_ : nullptr, palette);
    if (whole || !havePalette_) {  // of the first one at least what there is
        palette_ = palette;
        decoder_.SetPalette(palette_);
    }
    havePalette_ = havePalette_ || whole;
    return whole;
}

void SubfilePictures::SayPaletteIsMissing(const SubfileLoad& load) {
    std::string text = "PCX Error:  " + WhichImage(load.subfile_);
    text.append(kCrLf).append(load.lacksAny_
                                  ? "Its palette is not whole in the file, the rest is black.."
                                  : "Its palette is not in the file, the one before it is used..");
    messages_.MsgBox(kMessageMissingPalette, std::move(text));
}

}  // namespace scenara
