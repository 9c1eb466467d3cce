// SPDX-License-Identifier: MIT
//
// SffWalk: an archive of version 1 as a SpriteArchive (which says what that does).
//
// Links are positions. For stages they name one of the sprites that were kept, for characters a
// subfile of the chain before the linked one.
//
// Each picture's palette and each one's share of the file are those of a load one by one, whatever
// goes on at the same time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "sprites/ArchiveUse.h"
#include "sprites/SpriteArchive.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SubfilePicture.h"

namespace scenara {

class SffWalk final : public SpriteArchive {
public:
    // Raises RunTimeError for a file that ends in its header.
    SffWalk(const ArchiveSource& source, const ArchiveRules& rules);

    [[nodiscard]] bool Next() override;
    [[nodiscard]] std::size_t Count() const override { return entries_.size(); }
    [[nodiscard]] const ArchiveSprite& At(std::size_t place) const override {
        return entries_[place].sprite;
    }
    [[nodiscard]] std::uint32_t Announced() const override { return header_.imageCount; }
    [[nodiscard]] bool Reach(std::size_t place) override;
    void Keep(std::size_t place) override { kept_.push_back(place); }
    [[nodiscard]] std::optional<std::size_t> LinkOf(std::size_t place) const override;
    void SayBadLink(std::size_t shownBy, std::size_t place) override;
    void Expect(std::uint64_t bytes) override { source_.device.Expect(bytes); }
    [[nodiscard]] std::unique_ptr<PictureLoad> Begin(std::size_t place) override;
    [[nodiscard]] bool Finish(std::unique_ptr<PictureLoad> load, std::size_t shownBy,
                              SpritePicture& picture) override;
    [[nodiscard]] std::uint32_t FirstColor() override;

private:
    struct Entry {
        Subfile subfile;
        ArchiveSprite sprite;
        std::uint32_t paletteFrom = 0;  // the place whose palette it has or shares
    };
    class Load;

    [[nodiscard]] const Subfile& SubfileAt(std::size_t place) const {
        return entries_[place].subfile;
    }
    [[nodiscard]] const PaletteBytes& OneForAll();
    // None: it must wait.
    [[nodiscard]] std::optional<PaletteBytes> ColorsOf(std::size_t place, bool& missed);
    [[nodiscard]] bool FindLender(std::uint32_t place, std::optional<std::uint32_t>& lender);

    ArchiveSource source_;
    ArchiveRules rules_;
    SffHeader header_;
    SubfileChain chain_;
    SubfilePictures pictures_;
    std::vector<Entry> entries_;
    std::exception_ptr walkFailure_;        // of the disk
    std::optional<std::uint32_t> inForce_;  // at the end of the walk so far
    std::map<std::uint32_t, std::optional<std::uint32_t>> lenders_;
    bool oneIsMissed_ = false;  // OneForAll is not whole, which is to be reported

    // Of the loads.
    ArchiveUse use_;
    std::size_t reached_ = 0;  // places
    bool ended_ = false;
    std::vector<std::size_t> kept_;  // places
    bool saidOverused_ = false;
};

}  // namespace scenara
