// SPDX-License-Identifier: MIT
#include "character/CharacterSprites.h"

#include <cstdint>
#include <limits>
#include <map>
#include <memory>

#include "character/CharacterMessages.h"
#include "stage/RecordNumbers.h"

namespace scenara {
namespace {

// A walk through the headers of an absurd archive takes seconds; an ordinary one has a few
// thousand.
constexpr std::size_t kHeadersBetweenEvents = 16384;

constexpr std::size_t kMaxSprites = std::numeric_limits<Integer>::max();

// A picture that frames are to show.
struct Wanted {
    std::optional<std::size_t> place{};  // the first subfile of this group and image
    std::optional<Integer> sprite{};     // once it was tried; -1: it cannot be had
};

SffRules RulesOf(const ViewOptions& options, const std::optional<PaletteBytes>& act) {
    SffRules rules;
    rules.palettes =
        options.Additions && !act ? SffRules::Palettes::InForce : SffRules::Palettes::OneForAll;
    rules.given = act;
    rules.badArchive = rules.badPicture = rules.badLink = kMessageCharacterSprite;
    return rules;
}

Long ColorKeyOf(const PaletteBytes& palette) {
    return std::to_integer<Long>(palette[0]) | std::to_integer<Long>(palette[1]) << 8 |
           std::to_integer<Long>(palette[2]) << 16;
}

class CharacterSpriteLoader {
public:
    CharacterSpriteLoader(TestCharacter& character, const SffSource& source,
                          const std::optional<PaletteBytes>& act, const CharacterProgress& progress)
        : character_(character), progress_(progress), walk_(source, RulesOf(source.options, act)) {}

    void Load() {
        for (const CharAction& action : character_.Actions) {
            for (const CharFrame& frame : action.frames) {
                if (frame.group >= 0 && frame.image >= 0) {
                    wanted_.try_emplace(SpriteKey(frame.group, frame.image));
                }
            }
        }
        FindPlaces();
        character_.ColorKey = ColorKeyOf(walk_.OneForAll());
        for (CharAction& action : character_.Actions) {
            for (CharFrame& frame : action.frames) {
                Wanted* const wanted = Find(frame.group, frame.image);
                if (wanted == nullptr || !wanted->place) {
                    continue;
                }
                if (!wanted->sprite) {
                    if (progress_.endRequested()) {
                        return;
                    }
                    wanted->sprite = AddSprite(*wanted->place);
                    progress_.doEvents();
                }
                frame.texture = *wanted->sprite;
            }
        }
    }

private:
    // Nothing where no frame is to show it.
    [[nodiscard]] Wanted* Find(Integer group, Integer image) {
        const auto found = wanted_.find(SpriteKey(group, image));
        return found == wanted_.end() ? nullptr : &found->second;
    }

    void FindPlaces() {
        while (walk_.Next()) {
            if (walk_.Count() % kHeadersBetweenEvents == 0) {
                progress_.doEvents();
                if (progress_.endRequested()) {
                    return;
                }
            }
            Wanted* const wanted = Find(walk_.Last().group, walk_.Last().image);
            if (wanted != nullptr && !wanted->place) {
                wanted->place = walk_.Count() - 1;
            }
        }
    }

    // The index of the new sprite, -1 when it cannot be had.
    [[nodiscard]] Integer AddSprite(std::size_t place) {
        const std::optional<std::size_t> source = walk_.PictureOf(place);
        if (!source || character_.Sprites.size() >= kMaxSprites) {
            return -1;
        }
        const Subfile& subfile = walk_.At(place);
        const auto [texture, isNew] = textures_.try_emplace(*source);
        PcxPicture picture;
        if (isNew && walk_.Load(*source, subfile, picture)) {
            picture.texture->PreLoad();
            texture->second = picture.texture;
        }
        if (!texture->second) {
            return -1;
        }
        character_.Sprites.push_back({subfile.axisX, subfile.axisY, texture->second});
        return static_cast<Integer>(character_.Sprites.size() - 1);
    }

    TestCharacter& character_;
    const CharacterProgress& progress_;
    SffWalk walk_;
    std::map<std::uint64_t, Wanted> wanted_;                             // by group and image
    std::map<std::size_t, std::shared_ptr<Direct3DTexture8>> textures_;  // by place; none: failed
};

}  // namespace

void LoadCharacterSprites(TestCharacter& character, const SffSource& source,
                          const std::optional<PaletteBytes>& act,
                          const CharacterProgress& progress) {
    CharacterSpriteLoader(character, source, act, progress).Load();
}

}  // namespace scenara
