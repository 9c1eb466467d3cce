// SPDX-License-Identifier: MIT
//
// SffWalk: one walk over an archive of version 1, for everyone who wants pictures of it: which
// subfiles there are, which picture each shows, and in which colours.
//
//                 stages (sprites/sff2.h)            characters (character/CharacterSprites.h)
//   pictures      all of them, on the way            after the walk, those that are wanted
//   links name    an entry of Sprites: LinkOf        a subfile of the chain: PictureOf
//   colours       Palettes::AsTheyCome               OneForAll; with additions InForce
//
// All that is wrong with the archive is reported here, under the reader's names for it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "sprites/TextureBudget.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SubfilePicture.h"
#include "stage/ViewOptions.h"

namespace scenara {

// What a reader wants of an archive.
struct SffRules {
    // The palette of a picture of 256 colours.
    enum class Palettes {
        AsTheyCome,  // its own, or the last one that was loaded; pictures are loaded in their order
        InForce,     // its own, or that of the last one before it that has one; in any order
        OneForAll,   // `given`, or that of the first subfile; also where none is in force
    };
    Palettes palettes = Palettes::AsTheyCome;
    std::optional<PaletteBytes> given;

    MessageKind badArchive;
    MessageKind badPicture;
    MessageKind badLink;
};

// What a walk works with; all of it outlives the walk.
struct SffSource {
    InputFile& archive;
    const std::string& name;  // for messages
    const SffHeader& header;
    TextureMaker& device;
    Messages& messages;
    const ViewOptions& options;
};

class SffWalk {
public:
    SffWalk(const SffSource& source, const SffRules& rules);

    // To the next subfile. False at the end; a chain that breaks off was reported.
    [[nodiscard]] bool Next();

    // How many subfiles there are so far, each by its place in the chain, and the newest.
    [[nodiscard]] std::size_t Count() const { return entries_.size(); }
    [[nodiscard]] const Subfile& At(std::size_t place) const { return entries_[place].subfile; }
    [[nodiscard]] const Subfile& Last() const { return entries_.back().subfile; }

    // What a linked subfile names, where that is one of the first `count`. Nothing: that was
    // reported, as of the subfile that would show it.
    [[nodiscard]] std::optional<std::size_t> LinkOf(const Subfile& linked, std::size_t count,
                                                    const Subfile& shownBy);
    // The place of the picture that a subfile shows, be it by links of links; nothing as above.
    [[nodiscard]] std::optional<std::size_t> PictureOf(std::size_t place);

    // The picture at a place, in its colours, for a subfile that shows it. False: reported.
    [[nodiscard]] bool Load(std::size_t place, const Subfile& shownBy, PcxPicture& picture);

    // The palette of Palettes::OneForAll, black as far as there is none. After the walk.
    [[nodiscard]] const PaletteBytes& OneForAll();

private:
    struct Entry {
        Subfile subfile;
        std::uint32_t paletteFrom = 0;  // the place whose palette it has or shares
    };

    [[nodiscard]] PaletteBytes ColorsOf(std::size_t place);
    [[nodiscard]] std::optional<std::uint32_t> Lender(std::uint32_t place);

    SffSource source_;
    SffRules rules_;
    SubfileChain chain_;
    TextureBudget textures_;
    SubfilePictures pictures_;
    std::vector<Entry> entries_;
    std::optional<std::uint32_t> inForce_;  // at the end of the walk so far
    std::map<std::uint32_t, std::optional<std::uint32_t>> lenders_;
    bool oneIsMissed_ = false;  // OneForAll is not whole, which is to be reported
    bool saidOverused_ = false;
};

}  // namespace scenara
