// SPDX-License-Identifier: MIT
#include "character/CharacterSprites.h"

#include <cstdint>
#include <limits>
#include <map>
#include <memory>
#include <unordered_set>
#include <vector>

#include "character/CharacterMessages.h"
#include "sprites/PictureQueue.h"
#include "stage/RecordNumbers.h"

namespace scenara {
namespace {

// A walk through the headers of an absurd archive takes seconds; an ordinary one has a few
// thousand.
constexpr std::size_t kHeadersBetweenEvents = 16384;

constexpr std::size_t kMaxSprites = std::numeric_limits<Integer>::max();

// A picture that frames are to show.
struct Wanted {
    std::optional<std::size_t> place{};  // the first sprite of this group and image
    std::optional<Integer> sprite{};     // once it was tried; -1: it cannot be had
};

ArchiveRules RulesOf(const ViewOptions& options, const std::optional<PaletteBytes>& act) {
    ArchiveRules rules;
    rules.palettes = options.Additions && !act ? ArchiveRules::Palettes::InForce
                                               : ArchiveRules::Palettes::OneForAll;
    rules.given = act;
    rules.badArchive = rules.badPicture = rules.badLink = kMessageCharacterSprite;
    return rules;
}

// From ARGB.
Long ColorKeyOf(std::uint32_t color) {
    return static_cast<Long>((color >> 16U & 0xFFU) | (color & 0xFF00U) | (color & 0xFFU) << 16U);
}

class CharacterSpriteLoader {
public:
    CharacterSpriteLoader(TestCharacter& character, const ArchiveSource& source,
                          const std::optional<PaletteBytes>& act, const CharacterProgress& progress)
        : character_(character),
          source_(source),
          progress_(progress),
          archive_(OpenArchive(source, RulesOf(source.options, act))) {}

    void Load() {
        ForEachFrame([&](const CharFrame& frame) {
            if (frame.group >= 0 && frame.image >= 0) {
                wanted_.try_emplace(SpriteKey(frame.group, frame.image));
            }
            return true;
        });
        FindPlaces();
        static_cast<void>(archive_->Reach(archive_->Count()));
        character_.ColorKey = ColorKeyOf(archive_->FirstColor());
        PictureQueue pictures(*archive_, PicturesInOrder(), source_);
        ForEachFrame([&](CharFrame& frame) {
            Wanted* const wanted = Find(frame.group, frame.image);
            if (wanted == nullptr || !wanted->place) {
                return true;
            }
            if (!wanted->sprite) {
                if (progress_.endRequested()) {
                    return false;
                }
                wanted->sprite = AddSprite(*wanted->place, pictures);
                progress_.doEvents();
            }
            frame.texture = *wanted->sprite;
            return true;
        });
    }

private:
    // Until `visit` is false.
    template <typename Visit>
    void ForEachFrame(Visit visit) {
        for (CharAction& action : character_.Actions) {
            for (CharFrame& frame : action.frames) {
                if (!visit(frame)) {
                    return;
                }
            }
        }
    }

    // Nothing where no frame is to show it.
    [[nodiscard]] Wanted* Find(Long group, Integer image) {
        const auto found = wanted_.find(SpriteKey(group, image));
        return found == wanted_.end() ? nullptr : &found->second;
    }

    void FindPlaces() {
        while (archive_->Next()) {
            if (archive_->Count() % kHeadersBetweenEvents == 0) {
                progress_.doEvents();
                if (progress_.endRequested()) {
                    return;
                }
            }
            const std::size_t place = archive_->Count() - 1;
            Wanted* const wanted = Find(archive_->At(place).group, archive_->At(place).image);
            if (wanted != nullptr && !wanted->place) {
                wanted->place = place;
            }
        }
    }

    // The places of all pictures that frames show, each once, as the frames come to them.
    [[nodiscard]] std::vector<std::size_t> PicturesInOrder() {
        std::vector<std::size_t> places;
        std::unordered_set<std::size_t> listed;
        ForEachFrame([&](const CharFrame& frame) {
            const Wanted* const wanted = Find(frame.group, frame.image);
            if (wanted != nullptr && wanted->place) {
                const SpriteArchive::Shown shown = archive_->PictureOf(*wanted->place);
                if (shown.there && listed.insert(shown.place).second) {
                    places.push_back(shown.place);
                }
            }
            return true;
        });
        return places;
    }

    // The index of the new sprite, -1 when it cannot be had.
    [[nodiscard]] Integer AddSprite(std::size_t place, PictureQueue& pictures) {
        const SpriteArchive::Shown shown = archive_->PictureOf(place);
        if (!shown.there) {
            archive_->SayBadLink(place, shown.place);
            return -1;
        }
        if (character_.Sprites.size() >= kMaxSprites) {
            return -1;
        }
        const auto [texture, isNew] = textures_.try_emplace(shown.place);
        SpritePicture picture;
        if (isNew && pictures.Next(place, picture)) {
            picture.texture->PreLoad();
            texture->second = picture.texture;
        }
        if (!texture->second) {
            return -1;
        }
        const ArchiveSprite& sprite = archive_->At(place);
        character_.Sprites.push_back({sprite.axisX, sprite.axisY, texture->second});
        return static_cast<Integer>(character_.Sprites.size() - 1);
    }

    TestCharacter& character_;
    const ArchiveSource& source_;
    const CharacterProgress& progress_;
    std::unique_ptr<SpriteArchive> archive_;
    std::map<std::uint64_t, Wanted> wanted_;                             // by group and image
    std::map<std::size_t, std::shared_ptr<Direct3DTexture8>> textures_;  // by place; none: failed
};

}  // namespace

void LoadCharacterSprites(TestCharacter& character, const ArchiveSource& source,
                          const std::optional<PaletteBytes>& act,
                          const CharacterProgress& progress) {
    CharacterSpriteLoader(character, source, act, progress).Load();
}

}  // namespace scenara
