// SPDX-License-Identifier: MIT
//
// Sff2Archive: an archive of version 2 as a SpriteArchive (which says what that does).
//
// A linked sprite shows the picture of one before it, with an axis of its own, and in the colours
// of its own palette. So one whose colours are others is a picture of its own here, made from the
// same data; only those that share colours, too, are linked. Images above 32767 cannot be named by
// stages and frames, and are left out, which is said.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

#include "sprites/SpriteArchive.h"
#include "sprites/version2/Sff2Nodes.h"
#include "sprites/version2/Sff2Palettes.h"
#include "sprites/version2/Sff2Pictures.h"

namespace scenara {

class Sff2Archive final : public SpriteArchive {
public:
    // Raises RunTimeError for a file that ends in its header.
    Sff2Archive(const ArchiveSource& source, const ArchiveRules& rules);

    [[nodiscard]] bool Next() override;
    [[nodiscard]] std::size_t Count() const override { return entries_.size(); }
    [[nodiscard]] const ArchiveSprite& At(std::size_t place) const override {
        return entries_[place].sprite;
    }
    [[nodiscard]] std::uint32_t Announced() const override { return sprites_.Announced(); }
    [[nodiscard]] bool Reach(std::size_t place) override;
    void Keep([[maybe_unused]] std::size_t place) override {}
    [[nodiscard]] std::optional<std::size_t> LinkOf(std::size_t place) const override;
    void SayBadLink(std::size_t shownBy, std::size_t place) override;
    void Expect(std::uint64_t bytes) override { source_.device.Expect(bytes); }
    [[nodiscard]] std::unique_ptr<PictureLoad> Begin(std::size_t place) override;
    [[nodiscard]] bool Finish(std::unique_ptr<PictureLoad> load, std::size_t shownBy,
                              SpritePicture& picture) override;
    [[nodiscard]] std::uint32_t FirstColor() override;

private:
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    struct Entry {
        Sff2SpriteNode node;  // of its data; of its own numbers only link and palette count
        ArchiveSprite sprite;
        std::uint16_t image = 0;     // its own, of which the sprite has what can be named
        std::uint32_t link = kNone;  // the place that it is linked to
        bool broken = false;         // it is linked to none
        bool isFirst = false;        // of those that show the same data
    };
    // Where the data of a picture stand, and what they are.
    using Data =
        std::tuple<std::uint32_t, std::uint32_t, bool, Sff2Coding, std::uint8_t, std::uint32_t>;
    // And whose colours they take.
    using Shown = std::pair<Data, std::uint32_t>;

    [[nodiscard]] static Data DataOf(const Sff2SpriteNode& node);
    [[nodiscard]] Shown ShownAt(const Sff2SpriteNode& node) const;

    ArchiveSource source_;
    ArchiveRules rules_;
    Sff2Header header_;
    Sff2Palettes palettes_;
    Sff2SpriteTable sprites_;
    Sff2Pictures pictures_;
    std::vector<Entry> entries_;
    std::map<Shown, std::uint32_t> first_;  // the first place of each
    std::set<Data> known_;
    std::exception_ptr walkFailure_;  // of the disk
    bool ended_ = false;
};

}  // namespace scenara
