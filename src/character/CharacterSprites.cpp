// SPDX-License-Identifier: MIT
#include "character/CharacterSprites.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <map>
#include <utility>
#include <vector>

#include "base/Text.h"
#include "sprites/SpriteMessages.h"
#include "sprites/SubfilePicture.h"
#include "sprites/TextureBudget.h"

namespace scenara {
namespace {

// A walk through the headers of an absurd archive takes seconds; an ordinary one has a few
// thousand.
constexpr std::size_t kHeadersBetweenEvents = 16384;

constexpr std::size_t kMaxSprites = std::numeric_limits<Integer>::max();

using Pair = std::pair<Integer, Integer>;  // group and image

// One subfile of the walk through the chain.
struct Subfile {
    SubfileHeader header;
    std::uint32_t position = 0;
    std::uint32_t paletteFrom = 0;  // the subfile whose palette is in force for it
};

// Group and image of every frame that is to show something, each once, sorted.
std::vector<Pair> WantedPictures(const TestCharacter& character) {
    std::vector<Pair> wanted;
    for (const CharAction& action : character.Actions) {
        for (const CharFrame& frame : action.frames) {
            if (frame.group >= 0 && frame.image >= 0) {
                wanted.emplace_back(frame.group, frame.image);
            }
        }
    }
    std::sort(wanted.begin(), wanted.end());
    wanted.erase(std::unique(wanted.begin(), wanted.end()), wanted.end());
    return wanted;
}

Long ColorKeyOf(const PaletteBytes& palette) {
    return std::to_integer<Long>(palette[0]) | std::to_integer<Long>(palette[1]) << 8 |
           std::to_integer<Long>(palette[2]) << 16;
}

class CharacterSpriteLoader {
public:
    CharacterSpriteLoader(TestCharacter& character, InputFile& archive, const std::string& name,
                          const SffHeader& header, const std::optional<PaletteBytes>& act,
                          const CharacterSpritesContext& context)
        : character_(character),
          archive_(archive),
          name_(name),
          act_(act),
          context_(context),
          chain_(archive, header),
          budget_(context.device),
          pictures_(archive, budget_, context.messages, context.options) {}

    void Load() {
        Walk();
        ChooseColors();
        for (CharAction& action : character_.Actions) {
            for (CharFrame& frame : action.frames) {
                const auto found = places_.find({frame.group, frame.image});
                if (found == places_.end()) {
                    continue;
                }
                if (!found->second.tried) {
                    if (IsEnding()) {
                        return;
                    }
                    found->second.tried = true;
                    found->second.sprite = AddSprite(found->first, found->second.subfile);
                    DoEvents();
                }
                frame.texture = found->second.sprite;
            }
        }
    }

private:
    struct Place {
        std::size_t subfile = 0;
        bool tried = false;
        Integer sprite = -1;
    };

    [[nodiscard]] bool IsEnding() const {
        return context_.progress.endRequested && context_.progress.endRequested();
    }
    void DoEvents() const {
        if (context_.progress.doEvents) {
            context_.progress.doEvents();
        }
    }

    void Walk() {
        const std::vector<Pair> wanted = WantedPictures(character_);
        std::optional<std::uint32_t> inForce;
        while (chain_.Next()) {
            if (subfiles_.size() % kHeadersBetweenEvents == kHeadersBetweenEvents - 1) {
                DoEvents();
                if (IsEnding()) {
                    return;
                }
            }
            const SubfileHeader& header = chain_.Header();
            const auto index = static_cast<std::uint32_t>(subfiles_.size());
            if (!header.IsLinked() && (!header.samePalette || !inForce)) {
                inForce = index;
            }
            subfiles_.push_back({header, chain_.Position(), inForce.value_or(0)});
            const Pair picture(header.group, header.image);
            if (std::binary_search(wanted.begin(), wanted.end(), picture)) {
                places_.try_emplace(picture, Place{index});
            }
        }
        if (chain_.Broken()) {
            SayRestIsSkipped(context_.messages, kMessageCharacterSprite, name_, *chain_.Broken());
        }
    }

    void ChooseColors() {
        if (act_) {
            shared_ = *act_;
        } else if (!subfiles_.empty()) {
            const Subfile& first = subfiles_.front();
            sharedIsWhole_ = (!context_.options.Additions ||
                              BringsPalette(archive_, first.header, first.position)) &&
                             PaletteOf(first, shared_);
        }
        character_.ColorKey = ColorKeyOf(shared_);
    }

    // How much of the file may have been looked through for the palette of a subfile.
    [[nodiscard]] std::uint64_t PictureBytesOf(const Subfile& subfile) const {
        const auto claimed = static_cast<std::uint64_t>(std::max(subfile.header.length, Long{0}));
        return std::min(
            claimed, archive_.Size() - std::min<std::uint64_t>(archive_.Size(), subfile.position));
    }

    bool PaletteOf(const Subfile& subfile, PaletteBytes& palette) {
        return ReadSubfilePalette(archive_, subfile.header, subfile.position, palette);
    }

    PaletteBytes ColorsOf(const Subfile& subfile) {
        PaletteBytes own{};
        if (context_.options.Additions && !act_) {
            if (const std::optional<std::uint32_t> from = Lender(subfile.paletteFrom)) {
                static_cast<void>(PaletteOf(subfiles_[*from], own));
                return own;
            }
        }
        if (!std::exchange(sharedIsWhole_, true)) {
            SayArchiveError(context_.messages, kMessageCharacterSprite, name_,
                            "The palette of its first image is not whole, the rest is black..");
        }
        return shared_;
    }

    // The subfile whose palette is in force where that of `from` should be: `from`, or, where it
    // has none or not all of it, the next one before. What was found is kept, so that the whole
    // archive is looked through at most once.
    std::optional<std::uint32_t> Lender(std::uint32_t from) {
        std::vector<std::uint32_t> passed;
        std::optional<std::uint32_t> lender;
        for (;;) {
            if (const auto known = lenders_.find(from); known != lenders_.end()) {
                lender = known->second;
                break;
            }
            passed.push_back(from);
            PaletteBytes palette{};
            const Subfile& subfile = subfiles_[from];
            if (BringsPalette(archive_, subfile.header, subfile.position) &&
                PaletteOf(subfile, palette)) {
                lender = from;
                break;
            }
            chain_.CountLostBytes(PictureBytesOf(subfile));
            if (from == 0 || chain_.IsOverused()) {
                break;
            }
            from = subfiles_[from - 1].paletteFrom;
        }
        for (const std::uint32_t index : passed) {
            lenders_[index] = lender;
        }
        return lender;
    }

    // Follows links to the subfile that has the picture. A link goes back, so there is an end.
    [[nodiscard]] std::optional<std::size_t> PictureOf(std::size_t index, const Pair& picture) {
        while (subfiles_[index].header.IsLinked()) {
            const Integer link = subfiles_[index].header.link;
            if (link < 0 || static_cast<std::size_t>(link) >= index) {
                context_.messages.MsgBox(kMessageCharacterSprite,
                                         BadLinkText(picture.first, picture.second, link));
                return std::nullopt;
            }
            index = static_cast<std::size_t>(link);
        }
        return index;
    }

    // The index of the new sprite, -1 when it cannot be had.
    [[nodiscard]] Integer AddSprite(const Pair& picture, std::size_t index) {
        const std::optional<std::size_t> source = PictureOf(index, picture);
        if (!source || character_.Sprites.size() >= kMaxSprites) {
            return -1;
        }
        const auto decoded = textures_.find(*source);
        const std::shared_ptr<Direct3DTexture8> texture =
            decoded != textures_.end() ? decoded->second : Decode(*source, picture);
        if (!texture) {
            return -1;
        }
        CharSprite sprite;
        sprite.axisX = subfiles_[index].header.axisX;
        sprite.axisY = subfiles_[index].header.axisY;
        sprite.texture = texture;
        character_.Sprites.push_back(std::move(sprite));
        return static_cast<Integer>(character_.Sprites.size() - 1);
    }

    [[nodiscard]] std::shared_ptr<Direct3DTexture8> Decode(std::size_t source,
                                                           const Pair& picture) {
        PcxPicture decoded;
        const Subfile& subfile = subfiles_[source];
        if (chain_.IsOverused()) {
            SayOverused();
        } else if (pictures_.LoadInColors(chain_, subfile.header, subfile.position,
                                          ColorsOf(subfile), decoded)) {
            budget_.KeepLast();
            decoded.texture->PreLoad();
        } else {
            context_.messages.MsgBox(kMessageCharacterSprite,
                                     DamagedSpriteText(picture.first, picture.second));
        }
        textures_.emplace(source, decoded.texture);
        return decoded.texture;
    }

    void SayOverused() {
        if (!std::exchange(saidOverused_, true)) {
            SayRestIsSkipped(context_.messages, kMessageCharacterSprite, name_,
                             "The subfiles lie over each other.");
        }
    }

    TestCharacter& character_;
    InputFile& archive_;
    const std::string& name_;
    const std::optional<PaletteBytes>& act_;
    const CharacterSpritesContext& context_;
    SubfileChain chain_;
    TextureBudget budget_;
    SubfilePictures pictures_;
    PaletteBytes shared_{};
    bool sharedIsWhole_ = true;  // or that it is not has been said
    std::map<std::uint32_t, std::optional<std::uint32_t>> lenders_;
    std::vector<Subfile> subfiles_;
    std::map<Pair, Place> places_;  // of the wanted pictures that the archive has
    std::map<std::size_t, std::shared_ptr<Direct3DTexture8>> textures_;  // by subfile; none: failed
    bool saidOverused_ = false;
};

}  // namespace

void LoadCharacterSprites(TestCharacter& character, InputFile& archive, const SffHeader& header,
                          const std::string& name, const std::optional<PaletteBytes>& act,
                          const CharacterSpritesContext& context) {
    CharacterSpriteLoader(character, archive, name, header, act, context).Load();
}

}  // namespace scenara
