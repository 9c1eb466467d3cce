// SPDX-License-Identifier: MIT
#include "sprites/version1/SffWalk.h"

#include <algorithm>
#include <utility>

#include "sprites/SpriteMessages.h"

namespace scenara {

SffWalk::SffWalk(const SffSource& source, const SffRules& rules)
    : source_(source),
      rules_(rules),
      chain_(source.archive, source.header),
      textures_(source.device),
      pictures_(source.archive, textures_, source.messages, source.options) {}

bool SffWalk::Next() {
    if (!chain_.Next()) {
        if (chain_.Broken()) {
            SayRestIsSkipped(source_.messages, rules_.badArchive, source_.name, *chain_.Broken());
        }
        return false;
    }
    const Subfile& subfile = chain_.Current();
    if (!subfile.IsLinked() && (!subfile.samePalette || !inForce_)) {
        inForce_ = static_cast<std::uint32_t>(entries_.size());
    }
    entries_.push_back({subfile, inForce_.value_or(0)});
    return true;
}

std::optional<std::size_t> SffWalk::LinkOf(const Subfile& linked, std::size_t count,
                                           const Subfile& shownBy) {
    const Integer link = linked.link;
    if (link >= 0 && static_cast<std::size_t>(link) < count) {
        return static_cast<std::size_t>(link);
    }
    source_.messages.MsgBox(rules_.badLink, BadLinkText(shownBy.group, shownBy.image, link));
    return std::nullopt;
}

// A link goes back, so there is an end.
std::optional<std::size_t> SffWalk::PictureOf(std::size_t place) {
    const Subfile& shownBy = At(place);
    std::optional<std::size_t> at = place;
    while (at && At(*at).IsLinked()) {
        at = LinkOf(At(*at), *at, shownBy);
    }
    return at;
}

bool SffWalk::Load(std::size_t place, const Subfile& shownBy, PcxPicture& picture) {
    if (chain_.Use().IsTooMuch()) {
        if (!std::exchange(saidOverused_, true)) {
            SayRestIsSkipped(source_.messages, rules_.badArchive, source_.name,
                             "The subfiles lie over each other.");
        }
        return false;
    }
    std::optional<PaletteBytes> colors;
    if (rules_.palettes != SffRules::Palettes::AsTheyCome) {
        colors = ColorsOf(place);
    }
    if (!pictures_.Load(At(place), chain_.Use(), picture, colors ? &*colors : nullptr)) {
        source_.messages.MsgBox(rules_.badPicture, DamagedSpriteText(shownBy.group, shownBy.image));
        return false;
    }
    textures_.KeepLast();
    return true;
}

const PaletteBytes& SffWalk::OneForAll() {
    if (!rules_.given) {
        PaletteBytes& first = rules_.given.emplace(PaletteBytes{});
        oneIsMissed_ = Count() > 0 && !ReadSubfilePalette(source_.archive, At(0),
                                                          source_.options.Additions, first);
    }
    return *rules_.given;
}

PaletteBytes SffWalk::ColorsOf(std::size_t place) {
    if (rules_.palettes == SffRules::Palettes::InForce) {
        if (const auto lender = Lender(entries_[place].paletteFrom)) {
            PaletteBytes palette{};
            static_cast<void>(ReadSubfilePalette(source_.archive, At(*lender), false, palette));
            return palette;
        }
    }
    const PaletteBytes& palette = OneForAll();
    if (std::exchange(oneIsMissed_, false)) {
        SayArchiveError(source_.messages, rules_.badArchive, source_.name,
                        "The palette of its first image is not whole, the rest is black..");
    }
    return palette;
}

// The subfile whose palette is in force where that of `place` should be: this one, or, where it has
// none or not all of it, the next one before. What was found is kept, so that the whole archive is
// looked through at most once.
std::optional<std::uint32_t> SffWalk::Lender(std::uint32_t place) {
    std::vector<std::uint32_t> passed;
    std::optional<std::uint32_t> lender;
    for (;;) {
        if (const auto known = lenders_.find(place); known != lenders_.end()) {
            lender = known->second;
            break;
        }
        passed.push_back(place);
        PaletteBytes palette{};
        if (ReadSubfilePalette(source_.archive, At(place), true, palette)) {
            lender = place;
            break;
        }
        // As much of the file as may have been looked through.
        const auto claimed = static_cast<std::uint64_t>(std::max(At(place).length, Long{0}));
        chain_.Use().CountLost(Available(source_.archive, At(place).position, claimed));
        if (place == 0 || chain_.Use().IsTooMuch()) {
            break;
        }
        place = entries_[place - 1].paletteFrom;
    }
    for (const std::uint32_t each : passed) {
        lenders_[each] = lender;
    }
    return lender;
}

}  // namespace scenara
