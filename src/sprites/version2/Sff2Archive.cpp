// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Archive.h"

#include <limits>
#include <utility>

#include "sprites/SpriteMessages.h"

namespace scenara {
namespace {

// Behind these no sprite can name another one, and what they share is no longer looked for.
constexpr std::uint32_t kMostShared = 65536;

}  // namespace

Sff2Archive::Sff2Archive(const ArchiveSource& source, const ArchiveRules& rules)
    : source_(source),
      rules_(rules),
      header_(ReadSff2Header(source.archive)),
      palettes_(source.archive, header_),
      sprites_(source.archive, header_),
      pictures_(source, header_, rules) {}

Sff2Archive::Data Sff2Archive::DataOf(const Sff2SpriteNode& node) {
    return {node.offset, node.length, node.inTdata,
            node.coding, node.depth,  std::uint32_t{node.width} << 16U | node.height};
}

// True colours have no palette; one that is told all the same makes no difference.
Sff2Archive::Shown Sff2Archive::ShownAt(const Sff2SpriteNode& node) const {
    return {DataOf(node), node.IsTrueColor() ? kNone : palettes_.OwnerOf(node.palette)};
}

bool Sff2Archive::Next() {
    try {
        if (walkFailure_ || !sprites_.Next()) {
            return false;
        }
    } catch (...) {
        walkFailure_ = std::current_exception();  // what was found up to here is shown
        return false;
    }
    const auto place = static_cast<std::uint32_t>(entries_.size());
    Entry entry;
    entry.node = sprites_.Current();
    entry.image = entry.node.image;
    entry.sprite = {entry.node.group, static_cast<Integer>(entry.node.image), entry.node.axisX,
                    entry.node.axisY, false};
    const bool linked = entry.node.IsLinked();
    if (linked) {
        const std::uint16_t link = entry.node.link;
        entry.broken = link >= place || entries_[link].broken;
        if (entry.broken) {
            // An empty one that names itself has no picture to be missed.
            entry.sprite.linked = !entry.node.IsEmpty() || link != place;
        } else {
            const std::uint16_t palette = entry.node.palette;
            entry.node = entries_[link].node;
            entry.node.palette = palette;
            entry.node.link = link;
        }
    }
    if (entry.image > std::numeric_limits<Integer>::max()) {
        entry.sprite.linked = false;  // so that it is reported as what it is
    } else if (!entry.broken && !entry.node.IsEmpty() && place < kMostShared) {
        entry.isFirst = known_.insert(DataOf(entry.node)).second;
        const auto [first, isNew] = first_.try_emplace(ShownAt(entry.node), place);
        if (!isNew && linked) {
            entry.sprite.linked = true;
            entry.link = first->second;
        }
    }
    entries_.push_back(entry);
    return true;
}

bool Sff2Archive::Reach(std::size_t place) {
    if (ended_ || place < Count()) {
        return !ended_;
    }
    ended_ = true;
    if (walkFailure_) {
        std::rethrow_exception(walkFailure_);
    }
    if (sprites_.InFile() < sprites_.Announced()) {
        SayRestIsSkipped(source_.messages, rules_.badArchive, source_.name,
                         "Sprite " + std::to_string(sprites_.InFile() + 1) + " of " +
                             std::to_string(sprites_.Announced()) + ": the file ends there.");
    }
    return false;
}

std::optional<std::size_t> Sff2Archive::LinkOf(std::size_t place) const {
    const Entry& entry = entries_[place];
    return entry.link == kNone ? std::nullopt : std::optional<std::size_t>(entry.link);
}

void Sff2Archive::SayBadLink(std::size_t shownBy, std::size_t place) {
    const Entry& shown = entries_[shownBy];
    const Entry& entry = entries_[place];
    const std::uint32_t link = entry.link == kNone ? entry.node.link : entry.link;
    source_.messages.MsgBox(
        rules_.badLink,
        BadLinkText(shown.sprite.group, static_cast<Long>(shown.image), static_cast<Long>(link)));
}

std::unique_ptr<PictureLoad> Sff2Archive::Begin(std::size_t place) {
    const Entry& entry = entries_[place];
    Sff2Pictures::Picture picture =
        entry.isFirst ? Sff2Pictures::Picture::First : Sff2Pictures::Picture::InOtherColors;
    if (entry.image > std::numeric_limits<Integer>::max()) {
        picture = Sff2Pictures::Picture::BeyondNumbers;
    }
    return pictures_.Begin(entry.node, palettes_.ColorsOf(entry.node.palette), picture);
}

bool Sff2Archive::Finish(std::unique_ptr<PictureLoad> load, std::size_t shownBy,
                         SpritePicture& picture) {
    const Entry& entry = entries_[shownBy];
    return pictures_.Finish(static_cast<Sff2Load&>(*load), {entry.sprite.group, entry.image},
                            picture);
}

std::uint32_t Sff2Archive::FirstColor() {
    return entries_.empty() ? 0 : palettes_.ColorsOf(entries_[0].node.palette).colors[0];
}

}  // namespace scenara
