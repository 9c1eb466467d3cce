// SPDX-License-Identifier: MIT
#include "sprites/sff2.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "sprites/PictureQueue.h"
#include "sprites/SpriteMessages.h"
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

// Sprites in a walk between two looks at the window.
constexpr std::size_t kWalkedBetweenEvents = 16384;

ArchiveRules StageRules() {
    ArchiveRules rules;
    rules.badArchive = kMessageSffError;
    rules.badPicture = kMessagePcxError;
    rules.badLink = kMessageLinkError;
    return rules;
}

class SpriteLoader {
public:
    SpriteLoader(StageModel& model, const ArchiveSource& source, Window& window,
                 const std::function<bool()>& givenUp)
        : model_(model),
          source_(source),
          window_(window),
          givenUp_(givenUp),
          archive_(OpenArchive(source, StageRules())),
          masked_(MaskedPictures(model)) {}

    void Load() {
        PictureQueue pictures(*archive_, PicturesInOrder(), source_);
        for (std::size_t place = 0; !Ends() && archive_->Reach(place); ++place) {
            window_.SetCaption(LoadingCaption(model_.StageTitle, static_cast<std::uint32_t>(place),
                                              archive_->Announced()));
            if (model_.Sprites.size() >= kMaxRecords) {
                SayRestIsSkipped(
                    source_.messages, kMessageSffError, source_.name,
                    "Overflow: more than " + std::to_string(kMaxRecords) + " sprites.");
                return;
            }
            // Addition: also where one is left out, for there may be thousands of these.
            if (LoadSprite(place, pictures) || source_.options.Additions) {
                window_.DoEvents();
            }
        }
    }

private:
    [[nodiscard]] bool Ends() const { return window_.EndRequested() || (givenUp_ && givenUp_()); }

    [[nodiscard]] std::vector<std::size_t> PicturesInOrder() {
        std::vector<std::size_t> places;
        while (archive_->Next()) {
            const std::size_t place = archive_->Count() - 1;
            if (!archive_->At(place).linked) {
                places.push_back(place);
            }
            if (archive_->Count() % kWalkedBetweenEvents == 0) {
                window_.DoEvents();
                if (Ends()) {
                    break;
                }
            }
        }
        return places;
    }

    // As an entry of Sprites. False: it was dropped.
    [[nodiscard]] bool LoadSprite(std::size_t place, PictureQueue& pictures) {
        const ArchiveSprite& sprite = archive_->At(place);
        SpriteEntry entry;
        entryOf_.push_back(-1);
        if (!(sprite.linked ? TakeLinked(place, entry) : TakePicture(place, pictures, entry))) {
            return false;
        }
        entry.axisX = sprite.axisX;
        entry.axisY = sprite.axisY;
        entry.group = sprite.group;
        entry.image = sprite.image;
        entry.selfIndex = model_.SpriteCount;
        const bool masked = masked_.Find(SpriteKey(sprite.group, sprite.image)) >= 0;
        entry.masked = masked ? Integer{1} : Integer{0};
        entryOf_.back() = model_.SpriteCount;
        archive_->Keep(place);
        model_.Sprites.push_back(std::move(entry));
        model_.SpriteCount = Incremented(model_.SpriteCount);
        return true;
    }

    [[nodiscard]] bool TakeLinked(std::size_t place, SpriteEntry& entry) {
        const std::optional<std::size_t> link = archive_->LinkOf(place);
        if (!link || entryOf_[*link] < 0) {
            archive_->SayBadLink(place, place);
            return false;
        }
        entry = model_.Sprites[static_cast<std::size_t>(entryOf_[*link])];
        entry.linkedTo = entryOf_[*link];
        return true;
    }

    [[nodiscard]] bool TakePicture(std::size_t place, PictureQueue& pictures, SpriteEntry& entry) {
        SpritePicture picture;
        if (!pictures.Next(place, picture)) {
            if (archive_->Announced() == 1) {
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
        entry.trueColor = picture.trueColor ? Byte{1} : Byte{0};
        model_.LastImageWidth = entry.width;
        model_.LastImageHeight = entry.height;
        return true;
    }

    StageModel& model_;
    const ArchiveSource& source_;
    Window& window_;
    const std::function<bool()>& givenUp_;
    std::unique_ptr<SpriteArchive> archive_;
    FirstIndex masked_;
    std::vector<Integer> entryOf_;  // of the sprite at each place; -1: it was dropped
};

}  // namespace

std::string LoadingCaption(const std::string& title, std::uint32_t done, std::uint32_t count) {
    const double percent = RoundToEven(100.0 * done / count);
    const std::string number =
        percent == 0.0 ? std::string() : std::to_string(static_cast<int>(percent));
    return "Loading " + std::string(Beginning(title, kLongestTitle)) + " " + number + "%";
}

void LoadSprites(StageModel& model, const ArchiveSource& source, Window& window,
                 const std::function<bool()>& givenUp) {
    try {
        const ArchiveVersion version = ReadArchiveVersion(source.archive);
        model.Archive.version = version.Text();
        if (!MayRead(version, source.options)) {
            SayArchiveError(source.messages, kMessageSffVersion, source.name,
                            "This is an archive of version " + version.Text() +
                                ", only version 1 can be read.");
            return;
        }
        SpriteLoader(model, source, window, givenUp).Load();
    } catch (...) {
        SayArchiveError(source.messages, kMessageSffError, source.name, TextOfCurrentError());
    }
}

}  // namespace scenara
