// SPDX-License-Identifier: MIT
#include "sprites/sff2.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "sprites/ScaledPicture.h"
#include "sprites/SffArchive.h"
#include "sprites/SpriteMessages.h"
#include "sprites/SubfilePicture.h"
#include "sprites/TextureBudget.h"

namespace scenara {
namespace {

// A title bar shows less; a longer title would be copied for each of thousands of sprites.
constexpr std::size_t kLongestTitle = 255;

std::uint64_t PairKey(Long group, Integer image) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(group)) << 16U |
           static_cast<std::uint16_t>(image);
}

// The pictures that a still element shows with its colour 0 left out, sorted. (No hash table: a
// file could choose numbers that all fall into one place of it.)
std::vector<std::uint64_t> MaskedPictures(const StageModel& model) {
    std::vector<std::uint64_t> pictures;
    for (const BackgroundElement& element : model.Elements) {
        if (element.mask == 1 && (element.type == "parallax" || element.type == "normal")) {
            pictures.push_back(PairKey(element.spriteGroup, element.spriteImage));
        }
    }
    std::sort(pictures.begin(), pictures.end());
    return pictures;
}

// The pictures that opaque stills show and nothing else, sorted: in all others colour 0 may be left
// out, be it by another number that is linked to them.
std::vector<std::uint64_t> OpaquePictures(const StageModel& model) {
    std::vector<std::uint64_t> opaque;
    std::vector<std::uint64_t> keyed;
    for (const BackgroundElement& element : model.Elements) {
        const bool plain = element.mask != 1 && element.blending.kind == BlendKind::None;
        (plain ? opaque : keyed).push_back(PairKey(element.spriteGroup, element.spriteImage));
    }
    for (const StageAction& action : model.Actions) {
        for (const StageFrame& frame : action.frames) {
            keyed.push_back(PairKey(frame.group, frame.image));
        }
    }
    std::sort(opaque.begin(), opaque.end());
    std::sort(keyed.begin(), keyed.end());
    std::vector<std::uint64_t> only;
    std::set_difference(opaque.begin(), opaque.end(), keyed.begin(), keyed.end(),
                        std::back_inserter(only));
    return only;
}

class SpriteLoader {
public:
    SpriteLoader(StageModel& model, InputFile& archive, const SffHeader& header,
                 TextureMaker& device, Messages& messages, const ViewOptions& options, double scale)
        : model_(model),
          header_(header),
          textures_(device),
          scaler_(textures_, scale),
          isScaled_(scale != 1),
          messages_(messages),
          chain_(archive, header),
          pictures_(archive, textures_, messages, options),
          masked_(MaskedPictures(model)),
          opaque_(scale == 1 ? std::vector<std::uint64_t>() : OpaquePictures(model)) {}

    SubfileChain& Chain() { return chain_; }

    // The subfile that the chain stands on, as an entry of Sprites. False: it was dropped.
    [[nodiscard]] bool LoadSubfile() {
        const SubfileHeader& subfile = chain_.Header();
        SpriteEntry entry;
        if (!(subfile.IsLinked() ? TakeLinked(entry) : TakePicture(entry))) {
            return false;
        }
        entry.axisX = subfile.axisX;
        entry.axisY = subfile.axisY;
        entry.group = subfile.group;
        entry.image = subfile.image;
        entry.selfIndex = model_.SpriteCount;
        entry.masked = IsMasked(subfile) ? Integer{1} : Integer{0};
        model_.Sprites.push_back(std::move(entry));
        model_.SpriteCount = Incremented(model_.SpriteCount);
        return true;
    }

private:
    [[nodiscard]] bool IsMasked(const SubfileHeader& subfile) const {
        return std::binary_search(masked_.begin(), masked_.end(),
                                  PairKey(subfile.group, subfile.image));
    }

    [[nodiscard]] bool IsKeyed(const SubfileHeader& subfile) const {
        return !std::binary_search(opaque_.begin(), opaque_.end(),
                                   PairKey(subfile.group, subfile.image));
    }

    [[nodiscard]] bool TakeLinked(SpriteEntry& entry) {
        const Integer link = chain_.Header().link;
        if (link < 0 || link >= model_.SpriteCount) {
            messages_.MsgBox(kMessageLinkError,
                             BadLinkText(chain_.Header().group, chain_.Header().image, link));
            return false;
        }
        entry = model_.Sprites[static_cast<std::size_t>(link)];
        entry.linkedTo = link;
        return true;
    }

    [[nodiscard]] bool TakePicture(SpriteEntry& entry) {
        PcxPicture picture;
        if (isScaled_) {
            scaler_.SetKeyed(IsKeyed(chain_.Header()));
        }
        if (!pictures_.Load(chain_, picture, isScaled_ ? &scaler_ : nullptr)) {
            messages_.MsgBox(kMessagePcxError,
                             DamagedSpriteText(chain_.Header().group, chain_.Header().image));
            if (header_.imageCount == 1) {
                messages_.MsgBox(
                    kMessageOnlyImage,
                    "Oh, and that was the only image!  Just pretend it's really dark!");
            }
            return false;
        }
        textures_.KeepLast();
        entry.texture = std::move(picture.texture);
        if (isScaled_) {
            entry.fileWidth = ToInteger(picture.width);
            entry.fileHeight = ToInteger(picture.height);
        }
        entry.width = ToInteger(entry.texture->Width());
        entry.height = ToInteger(entry.texture->Height());
        entry.keyAlpha = picture.key.alpha;
        entry.keyRed = picture.key.red;
        entry.keyGreen = picture.key.green;
        entry.keyBlue = picture.key.blue;
        model_.LastImageWidth = entry.width;
        model_.LastImageHeight = entry.height;
        return true;
    }

    StageModel& model_;
    const SffHeader& header_;
    TextureBudget textures_;
    PictureScaler scaler_;
    bool isScaled_;
    Messages& messages_;
    SubfileChain chain_;
    SubfilePictures pictures_;
    std::vector<std::uint64_t> masked_;
    std::vector<std::uint64_t> opaque_;
};

void LoadChain(StageModel& model, InputFile& archive, const std::string& name,
               const SffHeader& header, TextureMaker& device, Window& window, Messages& messages,
               const ViewOptions& options, double scale) {
    SpriteLoader loader(model, archive, header, device, messages, options, scale);
    SubfileChain& chain = loader.Chain();
    while (!window.EndRequested() && chain.Next()) {
        window.SetCaption(LoadingCaption(model.StageTitle, chain.Index(), header.imageCount));
        if (model.Sprites.size() >= kMaxRecords) {
            SayRestIsSkipped(messages, kMessageSffError, name,
                             "Overflow: more than " + std::to_string(kMaxRecords) + " sprites.");
            return;
        }
        if (loader.LoadSubfile()) {
            window.DoEvents();
        }
    }
    if (chain.Broken()) {
        SayRestIsSkipped(messages, kMessageSffError, name, *chain.Broken());
    }
}

// Cut between characters, should the bytes be UTF-8.
std::string_view ShortTitle(std::string_view title) {
    std::size_t length = std::min(title.size(), kLongestTitle);
    const auto continues = [&](std::size_t at) {
        return at < title.size() && (static_cast<unsigned char>(title[at]) & 0xC0U) == 0x80U;
    };
    for (int back = 0; back < 3 && length > 0 && continues(length); ++back) {
        --length;
    }
    return title.substr(0, length);
}

}  // namespace

std::string LoadingCaption(const std::string& title, std::uint32_t done, std::uint32_t count) {
    const double percent = RoundToEven(100.0 * done / count);
    const std::string number =
        percent == 0.0 ? std::string() : std::to_string(static_cast<int>(percent));
    return "Loading " + std::string(ShortTitle(title)) + " " + number + "%";
}

void LoadSprites(StageModel& model, InputFile& archive, const std::string& name,
                 TextureMaker& device, Window& window, Messages& messages,
                 const ViewOptions& options, double scale) {
    try {
        const SffHeader header = ReadSffHeader(archive);
        if (header.IsVersion2()) {
            SayArchiveError(messages, kMessageSffVersion, name,
                            "This is an archive of version " + header.VersionText() +
                                ", only version 1 can be read.");
            return;
        }
        LoadChain(model, archive, name, header, device, window, messages, options, scale);
    } catch (...) {
        SayArchiveError(messages, kMessageSffError, name, TextOfCurrentError());
    }
}

}  // namespace scenara
