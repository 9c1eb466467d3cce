// SPDX-License-Identifier: MIT
//
// CharacterMachine: a character in memory, and what it says and does while it loads.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "character/LoadCharacter.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/png/LibPngPictures.h"
#include "sprites/ArchiveLoad.h"
#include "support/MemoryFiles.h"

namespace scenara::test {

inline constexpr const char* kHero = "/mugen/chars/hero/hero.def";
inline constexpr const char* kHeroFiles =
    "[Files]\nanim = hero.air\nsprite = hero.sff\ncns = hero.cns\n";
inline constexpr const char* kHeroAnimation =
    "[Begin Action 0]\n0,0, 0,0, 7\n0,1, 0,0, 9\n"
    "[Begin Action 5]\n5,0, 0,0, 4, H\n5,0, 0,0, 3\n"
    "[Begin Action 20]\n20,0, 1,-2, 5\n20,1, 0,0, 6\n";

// Each picture in a palette of its own (PaletteOf), seeds from 1 on: 0,0 0,1 5,0 20,0 20,1 and 9,9,
// which nothing shows. Widths from 4 on, heights 6, axes 1,2 3,4 and so on.
inline std::vector<Sff1Subfile> HeroSubfiles() {
    std::vector<Sff1Subfile> subfiles;
    const std::pair<int, int> numbers[] = {{0, 0}, {0, 1}, {5, 0}, {20, 0}, {20, 1}, {9, 9}};
    int seed = 0;
    for (const auto& [group, image] : numbers) {
        const auto picture =
            StripedPicture(4 + seed, 6, PaletteOf(static_cast<std::uint8_t>(seed + 1)));
        subfiles.push_back(WithAxis(Shown(static_cast<std::int16_t>(group),
                                          static_cast<std::int16_t>(image), WritePcx(picture)),
                                    1 + 2 * seed, 2 + 2 * seed));
        ++seed;
    }
    return subfiles;
}

struct CharacterMachine {
    CharacterMachine() {
        Put("hero.def", std::string("[Info]\ndisplayname = \"The Hero\"\n") + kHeroFiles);
        Put("hero.air", kHeroAnimation);
        Put("hero.cns", "[Size]\nxscale = .5\nyscale = .75\n[Velocity]\nwalk.fwd = 2.4\n");
        PutArchive(HeroSubfiles());
    }

    // A file of the character's folder.
    void Put(const std::string& name, std::string bytes) {
        files.Put("/mugen/chars/hero/" + name, std::move(bytes));
    }
    void PutArchive(const std::vector<Sff1Subfile>& subfiles, const Sff1Options& options = {}) {
        files.Put("/mugen/chars/hero/hero.sff",
                  std::span<const std::byte>(WriteSff1(subfiles, options)));
    }

    bool Load(const std::string& path = kHero) {
        return LoadCharacter(path, character,
                             {files,
                              messages,
                              device,
                              view,
                              {[this](const std::string& caption) { captions.push_back(caption); },
                               [this] { ++turns; }, [this] { return turns >= endAtTurn; }},
                              &png});
    }

    [[nodiscard]] std::vector<std::string> Texts() const { return TextsOf(messages); }
    // The pixels that a frame shows.
    [[nodiscard]] Words Pixels(Integer slot, std::size_t frame) const {
        const Integer texture = character.ActionIn(slot).frames.at(frame).texture;
        return PixelsOf(*character.Sprites.at(static_cast<std::size_t>(texture)).texture);
    }

    MemoryFiles files;
    HeadlessMessages messages;
    RecordingDevice device;
    LibPngPictures png;
    ViewOptions view;
    TestCharacter character;
    std::vector<std::string> captions;
    int turns = 0;
    int endAtTurn = 1000;
};

}  // namespace scenara::test
