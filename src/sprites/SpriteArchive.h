// SPDX-License-Identifier: MIT
//
// SpriteArchive: a sprite archive of whatever format, for everyone who wants pictures of it: which
// sprites there are, which picture each shows, and in which colours.
//
// First the walk: Next() until there is none. Then the loads, of which those that go on at the same
// time are in the caller's hands (PictureQueue.h does that for all).
//
//                 stages (sprites/sff2.h)            characters (character/CharacterSprites.h)
//   pictures      all of them, in their order        those that are wanted
//   links name    a sprite that was kept             a sprite before it
//   colours       Palettes::AsTheyCome               OneForAll; with additions InForce
//
// The rows on links and colours are those of version 1 (version1/SffWalk.h). In archives of version
// 2 each sprite names its palette and the sprite that it is linked to (version2/Sff2Archive.h).
//
// All that is wrong with the archive is reported here, under the reader's names for it. Not for
// several threads.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "sprites/PaletteBytes.h"
#include "sprites/PictureLoad.h"
#include "stage/ViewOptions.h"

namespace scenara {

class PngPictures;

// What stands in every archive's header, whatever comes after it: bytes 12 to 15, the main number
// last.
struct ArchiveVersion {
    std::array<std::uint8_t, 4> parts{};

    // "2.01" and the like.
    [[nodiscard]] std::string Text() const;
    // The layout of version 2 is another one.
    [[nodiscard]] bool Is2() const { return parts[3] == 2; }
};

// Raises RunTimeError "Input past end of file" for a file that ends before it.
[[nodiscard]] ArchiveVersion ReadArchiveVersion(InputFile& archive);

// Addition: archives of version 2. Of all others it is not looked at whether they are of version 1.
[[nodiscard]] bool MayRead(const ArchiveVersion& version, const ViewOptions& options);

// What a reader wants of an archive.
struct ArchiveRules {
    // Version 1: the palette of a picture of 256 colours.
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

// What the loading of an archive works with; all of it outlives that.
struct ArchiveSource {
    InputFile& archive;
    const std::string& name;  // for messages
    TextureMaker& device;
    Messages& messages;
    const ViewOptions& options;
    const PngPictures* png = nullptr;  // none: the machine reads no PNG
    unsigned helpers = HelpersOfThisMachine();

    std::uint64_t helpFrom = kHelpFrom;

    // Threads that decode beside the one that loads: one less than there are processors, within
    // reason.
    [[nodiscard]] static unsigned HelpersOfThisMachine();
    // They are begun where so much work is left (PictureLoad::Work): with less it takes longer to
    // wake them than they save.
    static constexpr std::uint64_t kHelpFrom = std::uint64_t{24} << 20U;
};

// A sprite as the archive lists it.
struct ArchiveSprite {
    Long group = 0;
    Integer image = 0;
    Integer axisX = 0;
    Integer axisY = 0;
    bool linked = false;  // it shows the same picture as another one, in the same colours
};

class SpriteArchive : NotCopied {
public:
    virtual ~SpriteArchive() = default;

    // To the next sprite of the walk. False at the end.
    [[nodiscard]] virtual bool Next() = 0;

    // How many sprites there are so far, each by its place.
    [[nodiscard]] virtual std::size_t Count() const = 0;
    [[nodiscard]] virtual const ArchiveSprite& At(std::size_t place) const = 0;
    // How many there are to be, as the archive says.
    [[nodiscard]] virtual std::uint32_t Announced() const = 0;

    // The loads have come to this place, after the walk: whether there is a sprite. False for good
    // at the end, which is reported where it comes too early. Whoever loads in another order
    // reaches Count() before the first load.
    [[nodiscard]] virtual bool Reach(std::size_t place) = 0;
    // The sprite at this place, the last one that was reached, is shown.
    virtual void Keep(std::size_t place) = 0;

    // Which other sprite's picture a linked one shows; that may be linked, too, and stands before
    // it. Nothing where it names none that it can.
    [[nodiscard]] virtual std::optional<std::size_t> LinkOf(std::size_t place) const = 0;
    // The link at `place` names none, so that `shownBy` has no picture.
    virtual void SayBadLink(std::size_t shownBy, std::size_t place) = 0;

    // The place of the picture that a sprite shows, be it by links of links, and whether there is
    // one; where not, it is the place of the link that names none.
    struct Shown {
        std::size_t place = 0;
        bool there = false;
    };
    [[nodiscard]] Shown PictureOf(std::size_t place) const;

    // Textures of about so many bytes are to come, that of the next load included.
    virtual void Expect(std::uint64_t bytes) = 0;
    // Loads the picture at a place, which is not linked. Begin gives nothing where those that were
    // begun before must be finished first; once they are it gives a load. Whoever was given it has
    // it decoded and hands it to Finish, in the order of Begin, or drops it.
    [[nodiscard]] virtual std::unique_ptr<PictureLoad> Begin(std::size_t place) = 0;
    // For the sprite that shows it. False: reported.
    [[nodiscard]] virtual bool Finish(std::unique_ptr<PictureLoad> load, std::size_t shownBy,
                                      SpritePicture& picture) = 0;

    // Colour 0 of the palette of the archive's first sprite, ARGB; black where there is none. After
    // the walk.
    [[nodiscard]] virtual std::uint32_t FirstColor() = 0;
};

// The reader for an archive's version. Raises RunTimeError for a file that ends in its header.
[[nodiscard]] std::unique_ptr<SpriteArchive> OpenArchive(const ArchiveSource& source,
                                                         const ArchiveRules& rules);

}  // namespace scenara
