// SPDX-License-Identifier: MIT
#include "sprites/version1/SffWalk.h"

#include <algorithm>
#include <utility>

#include "sprites/SpriteMessages.h"

namespace scenara {

// A picture on its way, or none where the archive is used up.
class SffWalk::Load final : public PictureLoad {
public:
    explicit Load(std::unique_ptr<SubfileLoad> subfile) : subfile_(std::move(subfile)) {}

    [[nodiscard]] std::size_t HeldBytes() const override {
        return subfile_ ? subfile_->HeldBytes() : 0;
    }
    [[nodiscard]] std::uint64_t TextureBytes() const override {
        return subfile_ ? subfile_->TextureBytes() : 0;
    }
    [[nodiscard]] SubfileLoad* OfSubfile() const { return subfile_.get(); }

    bool missesOne = false;  // the palette for all is not whole, and this picture shows it

private:
    void DoDecode() override {
        if (subfile_) {
            subfile_->Decode();
        }
    }

    std::unique_ptr<SubfileLoad> subfile_;
};

SffWalk::SffWalk(const ArchiveSource& source, const ArchiveRules& rules)
    : source_(source),
      rules_(rules),
      header_(ReadSffHeader(source.archive)),
      chain_(source.archive, header_),
      pictures_(source.archive, source.device, source.messages, source.options),
      use_(source.archive.Size()) {}

bool SffWalk::Next() {
    try {
        if (walkFailure_ || !chain_.Next()) {
            return false;
        }
    } catch (...) {
        walkFailure_ = std::current_exception();  // what was found up to here is shown
        return false;
    }
    const Subfile& subfile = chain_.Current();
    if (!subfile.IsLinked() && (!subfile.samePalette || !inForce_)) {
        inForce_ = static_cast<std::uint32_t>(entries_.size());
    }
    const ArchiveSprite sprite = {subfile.group, subfile.image, subfile.axisX, subfile.axisY,
                                  subfile.IsLinked()};
    entries_.push_back({subfile, sprite, inForce_.value_or(0)});
    return true;
}

bool SffWalk::Reach(std::size_t place) {
    while (!ended_ && reached_ < Count() && reached_ <= place) {
        use_.CountShown(kSubfileHeaderSize);
        if (use_.IsTooMuch()) {
            ended_ = true;
            const std::uint32_t position = SubfileAt(reached_).position;
            SayRestIsSkipped(source_.messages, rules_.badArchive, source_.name,
                             chain_.BreakText(reached_, position, kSubfilesOverlap));
        }
        ++reached_;
    }
    if (ended_ || place < Count()) {
        return !ended_;
    }
    ended_ = true;
    if (walkFailure_) {
        std::rethrow_exception(walkFailure_);
    }
    if (chain_.Broken()) {
        SayRestIsSkipped(source_.messages, rules_.badArchive, source_.name, *chain_.Broken());
    }
    return false;
}

std::optional<std::size_t> SffWalk::LinkOf(std::size_t place) const {
    const Integer link = SubfileAt(place).link;
    if (link < 0) {
        return std::nullopt;
    }
    const auto named = static_cast<std::size_t>(link);
    if (rules_.palettes == ArchiveRules::Palettes::AsTheyCome) {
        return named < kept_.size() ? std::optional(kept_[named]) : std::nullopt;
    }
    return named < place ? std::optional(named) : std::nullopt;
}

void SffWalk::SayBadLink(std::size_t shownBy, std::size_t place) {
    const Subfile& subfile = SubfileAt(shownBy);
    source_.messages.MsgBox(rules_.badLink,
                            BadLinkText(subfile.group, subfile.image, SubfileAt(place).link));
}

std::unique_ptr<PictureLoad> SffWalk::Begin(std::size_t place) {
    if (use_.IsTooMuch()) {
        return std::make_unique<Load>(nullptr);
    }
    std::optional<PaletteBytes> colors;
    bool missed = false;
    if (rules_.palettes != ArchiveRules::Palettes::AsTheyCome) {
        colors = ColorsOf(place, missed);
        if (!colors) {
            return nullptr;
        }
    }
    auto subfile = pictures_.Begin(SubfileAt(place), colors ? &*colors : nullptr);
    if (!subfile) {
        oneIsMissed_ = oneIsMissed_ || missed;
        return nullptr;
    }
    auto load = std::make_unique<Load>(std::move(subfile));
    load->missesOne = missed;
    return load;
}

bool SffWalk::Finish(std::unique_ptr<PictureLoad> load, std::size_t shownBy,
                     SpritePicture& picture) {
    auto& own = static_cast<Load&>(*load);
    SubfileLoad* const subfile = own.OfSubfile();
    if (subfile == nullptr || use_.IsTooMuch()) {
        if (subfile != nullptr) {
            pictures_.Drop(*subfile);
        }
        if (!std::exchange(saidOverused_, true)) {
            SayRestIsSkipped(source_.messages, rules_.badArchive, source_.name,
                             "The subfiles lie over each other.");
        }
        return false;
    }
    if (own.missesOne) {
        SayArchiveError(source_.messages, rules_.badArchive, source_.name,
                        "The palette of its first image is not whole, the rest is black..");
    }
    PcxPicture pcx;
    if (!pictures_.Finish(*subfile, use_, pcx)) {
        source_.messages.MsgBox(rules_.badPicture,
                                DamagedSpriteText(At(shownBy).group, At(shownBy).image));
        return false;
    }
    picture.texture = std::move(pcx.texture);
    picture.key = pcx.key;
    return true;
}

std::uint32_t SffWalk::FirstColor() {
    const PaletteBytes& palette = OneForAll();
    return std::to_integer<std::uint32_t>(palette[0]) << 16U |
           std::to_integer<std::uint32_t>(palette[1]) << 8U |
           std::to_integer<std::uint32_t>(palette[2]);
}

// The palette of Palettes::OneForAll, black as far as there is none.
const PaletteBytes& SffWalk::OneForAll() {
    if (!rules_.given) {
        PaletteBytes& first = rules_.given.emplace(PaletteBytes{});
        oneIsMissed_ = Count() > 0 && !ReadSubfilePalette(source_.archive, SubfileAt(0),
                                                          source_.options.Additions, first);
    }
    return *rules_.given;
}

std::optional<PaletteBytes> SffWalk::ColorsOf(std::size_t place, bool& missed) {
    if (rules_.palettes == ArchiveRules::Palettes::InForce) {
        std::optional<std::uint32_t> lender;
        if (!FindLender(entries_[place].paletteFrom, lender)) {
            return std::nullopt;
        }
        if (lender) {
            PaletteBytes palette{};
            static_cast<void>(
                ReadSubfilePalette(source_.archive, SubfileAt(*lender), false, palette));
            return palette;
        }
    }
    const PaletteBytes& palette = OneForAll();
    missed = std::exchange(oneIsMissed_, false);
    return palette;
}

// The subfile whose palette is in force where that of `place` should be: this one, or, where it has
// none or not all of it, the next one before. What was found is kept, so that the whole archive is
// looked through at most once. False: what the pictures under way use must be known first.
bool SffWalk::FindLender(std::uint32_t place, std::optional<std::uint32_t>& lender) {
    std::vector<std::uint32_t> passed;
    for (;;) {
        if (const auto known = lenders_.find(place); known != lenders_.end()) {
            lender = known->second;
            break;
        }
        passed.push_back(place);
        PaletteBytes palette{};
        if (ReadSubfilePalette(source_.archive, SubfileAt(place), true, palette)) {
            lender = place;
            break;
        }
        if (pictures_.UnderWay() > 0) {
            return false;
        }
        // As much of the file as may have been looked through.
        const Subfile& subfile = SubfileAt(place);
        const auto claimed = static_cast<std::uint64_t>(std::max(subfile.length, Long{0}));
        use_.CountLost(Available(source_.archive, subfile.position, claimed));
        if (place == 0 || use_.IsTooMuch()) {
            break;
        }
        place = entries_[place - 1].paletteFrom;
    }
    for (const std::uint32_t each : passed) {
        lenders_[each] = lender;
    }
    return true;
}

}  // namespace scenara
