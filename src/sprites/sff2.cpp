// SPDX-License-Identifier: MIT
#include "sprites/sff2.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/RunTimeError.h"
#include "sprites/ScaledPicture.h"
#include "sprites/SpriteMessages.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SffWalk.h"
#include "stage/RecordNumbers.h"

namespace scenara {
namespace {

// A title bar shows less; a longer title would be copied for each of thousands of sprites.
constexpr std::size_t kLongestTitle = 255;

// How the elements of a stage show a picture.
class PictureUse {
public:
    explicit PictureUse(const StageModel& model) {
        for (const BackgroundElement& element : model.Elements) {
            const std::uint64_t key = SpriteKey(element.spriteGroup, element.spriteImage);
            if (element.mask == 1 && (element.type == "parallax" || element.type == "normal")) {
                masked_.Add(key, 0);
            }
            const bool plain = element.mask != 1 && element.blending.kind == BlendKind::None;
            (plain ? opaque_ : keyed_).Add(key, 0);
        }
        for (const StageAction& action : model.Actions) {
            for (const StageFrame& frame : action.frames) {
                keyed_.Add(SpriteKey(frame.group, frame.image), 0);
            }
        }
        for (FirstIndex* pictures : {&masked_, &opaque_, &keyed_}) {
            pictures->Sort();
        }
    }

    // A still element shows it with its colour 0 left out.
    [[nodiscard]] bool IsMasked(const Subfile& subfile) const { return Has(masked_, subfile); }

    // Opaque stills show it and nothing else: in all others colour 0 may be left out, be it by
    // another number that is linked to them.
    [[nodiscard]] bool IsOpaque(const Subfile& subfile) const {
        return Has(opaque_, subfile) && !Has(keyed_, subfile);
    }

private:
    static bool Has(const FirstIndex& pictures, const Subfile& subfile) {
        return pictures.Find(SpriteKey(subfile.group, subfile.image)) >= 0;
    }

    FirstIndex masked_;
    FirstIndex opaque_;
    FirstIndex keyed_;
};

class SpriteLoader {
public:
    SpriteLoader(StageModel& model, const SffSource& source, double scale)
        : model_(model),
          source_(source),
          walk_(source, {SffRules::Palettes::AsTheyCome, std::nullopt, kMessageSffError,
                         kMessagePcxError, kMessageLinkError}),
          use_(model),
          scaler_(walk_.Textures(), scale),
          isScaled_(scale != 1) {}

    void Load(Window& window) {
        while (!window.EndRequested() && walk_.Next()) {
            window.SetCaption(LoadingCaption(model_.StageTitle,
                                             static_cast<std::uint32_t>(walk_.Count() - 1),
                                             source_.header.imageCount));
            if (model_.Sprites.size() >= kMaxRecords) {
                SayRestIsSkipped(
                    source_.messages, kMessageSffError, source_.name,
                    "Overflow: more than " + std::to_string(kMaxRecords) + " sprites.");
                return;
            }
            if (LoadSubfile(walk_.Last())) {
                window.DoEvents();
            }
        }
    }

private:
    // As an entry of Sprites. False: it was dropped.
    [[nodiscard]] bool LoadSubfile(const Subfile& subfile) {
        SpriteEntry entry;
        if (!(subfile.IsLinked() ? TakeLinked(subfile, entry) : TakePicture(subfile, entry))) {
            return false;
        }
        entry.axisX = subfile.axisX;
        entry.axisY = subfile.axisY;
        entry.group = subfile.group;
        entry.image = subfile.image;
        entry.selfIndex = model_.SpriteCount;
        entry.masked = use_.IsMasked(subfile) ? Integer{1} : Integer{0};
        model_.Sprites.push_back(std::move(entry));
        model_.SpriteCount = Incremented(model_.SpriteCount);
        return true;
    }

    [[nodiscard]] bool TakeLinked(const Subfile& subfile, SpriteEntry& entry) {
        const std::optional<std::size_t> link =
            walk_.LinkOf(subfile, model_.Sprites.size(), subfile);
        if (!link) {
            return false;
        }
        entry = model_.Sprites[*link];
        entry.linkedTo = subfile.link;
        return true;
    }

    [[nodiscard]] bool TakePicture(const Subfile& subfile, SpriteEntry& entry) {
        PcxPicture picture;
        scaler_.SetKeyed(!use_.IsOpaque(subfile));
        if (!walk_.Load(walk_.Count() - 1, subfile, picture, isScaled_ ? &scaler_ : nullptr)) {
            if (source_.header.imageCount == 1) {
                source_.messages.MsgBox(
                    kMessageOnlyImage,
                    "Oh, and that was the only image!  Just pretend it's really dark!");
            }
            return false;
        }
        entry.texture = std::move(picture.texture);
        if (isScaled_) {
            entry.fileWidth = ToInteger(picture.width);
            entry.fileHeight = ToInteger(picture.height);
        }
        entry.width = ToInteger(entry.texture->Width());
        entry.height = ToInteger(entry.texture->Height());
        entry.keyAlpha = static_cast<Byte>(picture.key >> 24U);
        entry.keyRed = static_cast<Byte>(picture.key >> 16U);
        entry.keyGreen = static_cast<Byte>(picture.key >> 8U);
        entry.keyBlue = static_cast<Byte>(picture.key);
        model_.LastImageWidth = entry.width;
        model_.LastImageHeight = entry.height;
        return true;
    }

    StageModel& model_;
    SffSource source_;
    SffWalk walk_;
    PictureUse use_;
    PictureScaler scaler_;
    bool isScaled_;
};

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
        SpriteLoader(model, {archive, name, header, device, messages, options}, scale).Load(window);
    } catch (...) {
        SayArchiveError(messages, kMessageSffError, name, TextOfCurrentError());
    }
}

}  // namespace scenara
