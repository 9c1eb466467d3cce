// SPDX-License-Identifier: MIT
#include "sprites/sff2.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/RunTimeError.h"
#include "sprites/SpriteMessages.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SffWalk.h"
#include "stage/RecordNumbers.h"

namespace scenara {
namespace {

// A title bar shows less; a longer title would be copied for each of thousands of sprites.
constexpr std::size_t kLongestTitle = 255;

// Which pictures still elements show with their colour 0 left out.
FirstIndex MaskedPictures(const StageModel& model) {
    FirstIndex masked;
    for (const BackgroundElement& element : model.Elements) {
        if (element.mask == 1 && (element.type == "parallax" || element.type == "normal")) {
            masked.Add(SpriteKey(element.spriteGroup, element.spriteImage), 0);
        }
    }
    masked.Sort();
    return masked;
}

class SpriteLoader {
public:
    SpriteLoader(StageModel& model, const SffSource& source)
        : model_(model),
          source_(source),
          walk_(source, {SffRules::Palettes::AsTheyCome, std::nullopt, kMessageSffError,
                         kMessagePcxError, kMessageLinkError}),
          masked_(MaskedPictures(model)) {}

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
        const bool masked = masked_.Find(SpriteKey(subfile.group, subfile.image)) >= 0;
        entry.masked = masked ? Integer{1} : Integer{0};
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
        if (!walk_.Load(walk_.Count() - 1, subfile, picture)) {
            if (source_.header.imageCount == 1) {
                source_.messages.MsgBox(
                    kMessageOnlyImage,
                    "Oh, and that was the only image!  Just pretend it's really dark!");
            }
            return false;
        }
        entry.texture = std::move(picture.texture);
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
    FirstIndex masked_;
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
                 const ViewOptions& options) {
    try {
        const SffHeader header = ReadSffHeader(archive);
        if (header.IsVersion2()) {
            SayArchiveError(messages, kMessageSffVersion, name,
                            "This is an archive of version " + header.VersionText() +
                                ", only version 1 can be read.");
            return;
        }
        SpriteLoader(model, {archive, name, header, device, messages, options}).Load(window);
    } catch (...) {
        SayArchiveError(messages, kMessageSffError, name, TextOfCurrentError());
    }
}

}  // namespace scenara
