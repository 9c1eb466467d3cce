// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Archive.h"

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

// True colours have no palette; one that is told all the same makes no difference.
Sff2Archive::Shown Sff2Archive::ShownAt(const Sff2SpriteNode& node) const {
    return {node.offset,
            node.length,
            node.inTdata,
            node.coding,
            node.depth,
            std::uint32_t{node.width} << 16U | node.height,
            node.IsTrueColor() ? kNone : palettes_.OwnerOf(node.palette)};
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
    entry.sprite = {entry.node.group, static_cast<Integer>(entry.node.image), entry.node.axisX,
                    entry.node.axisY, false};
    if (entry.node.IsLinked()) {
        const std::uint16_t link = entry.node.link;
        entry.broken = link >= place || entries_[link].broken;
        if (entry.broken) {
            // An empty one has no picture to be missed.
            entry.sprite.linked = !entry.node.IsEmpty();
        } else {
            const std::uint16_t palette = entry.node.palette;
            entry.node = entries_[link].node;
            entry.node.palette = palette;
            entry.node.link = link;
        }
    }
    if (!entry.broken && !entry.node.IsEmpty() && place < kMostShared) {
        const auto [first, isNew] = first_.try_emplace(ShownAt(entry.node), place);
        if (!isNew) {
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
    const ArchiveSprite& sprite = At(shownBy);
    const Entry& entry = entries_[place];
    const std::uint32_t link = entry.link == kNone ? entry.node.link : entry.link;
    source_.messages.MsgBox(rules_.badLink,
                            BadLinkText(sprite.group, sprite.image, static_cast<Long>(link)));
}

std::unique_ptr<PictureLoad> Sff2Archive::Begin(std::size_t place) {
    const Sff2SpriteNode& node = entries_[place].node;
    return pictures_.Begin(node, palettes_.ColorsOf(node.palette));
}

bool Sff2Archive::Finish(std::unique_ptr<PictureLoad> load, std::size_t shownBy,
                         SpritePicture& picture) {
    return pictures_.Finish(static_cast<Sff2Load&>(*load), At(shownBy), picture);
}

std::uint32_t Sff2Archive::FirstColor() {
    return entries_.empty() ? 0 : palettes_.ColorsOf(entries_[0].node.palette).colors[0];
}

}  // namespace scenara
