// SPDX-License-Identifier: MIT
//
// StageModel: one stage in memory, as tables of plain records and a group of stage-wide settings.
//
// Filled in file order by the loader (LoadStage.h) and from the sprite archive (sprites/sff2.h),
// given its first runtime values by the stage start-up, advanced every frame by the drawing,
// emptied by Clear(). Tables are indexed from 0; their counts are 16-bit, so none holds more than
// kMaxRecords. An index field refers to a position in another table, -1 meaning none. Positions are
// in units of the stage (platform/View.h), times are ticks of one frame. Every number starts at 0
// and every text empty, unless a field says otherwise.
//
// Texts are bytes as the file has them (Windows ANSI code page).
#pragma once

#include <array>
#include <compare>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "platform/Direct3D8.h"
#include "stage/Blending.h"
#include "stage/ControlKind.h"
#include "stage/ElementKind.h"
#include "stage/FrameFlip.h"

namespace scenara {

inline constexpr std::size_t kMaxRecords = std::numeric_limits<Integer>::max();

inline constexpr std::size_t kCacheLine = 64;

// Places of the camera, x as CamX has it; everywhere, to begin with.
struct CameraBox {
    Single left = -std::numeric_limits<Single>::infinity();
    Single right = std::numeric_limits<Single>::infinity();
    Single high = -std::numeric_limits<Single>::infinity();
    Single low = std::numeric_limits<Single>::infinity();

    [[nodiscard]] bool Has(Single x, Single y) const {
        return x >= left && x <= right && y >= high && y <= low;
    }
};

// One [BG ...] section.
struct alignas(kCacheLine) BackgroundElement {
    // What a frame looks at of an element that is not seen, of which there may be thousands: one
    // line of the cache.
    ElementKind kind = ElementKind::Still;  // runtime: what type comes to
    Byte visible = 0;                       // runtime: 1 = drawn
    Byte enabled = 0;                       // runtime: 1 = drawn and animated
    Byte windowActive = 0;                  // 1 = all four values were given, so the window holds
    Integer layerno = 0;                    // 0 = behind the characters, 1 = in front
    Integer spriteIndex = 0;  // into Sprites; -1 = no picture, -2 = pictures of an action
    Integer linkParent = 0;   // runtime: the index of the element that it is linked to
    Integer actionIndex = 0;  // into Actions for "anim"; else the number as the file has it
    Single velocityX = 0;     // drift per frame
    Single velocityY = 0;
    Long tileX = 0;  // 0 = one picture, 1 = without end, n = n pictures
    Long tileY = 0;
    CameraBox seenFrom;  // addition, runtime, no part of a stage as written out: where the camera
                         // has to be for it to be seen, of one that nothing moves
    Integer frameIndex = 0;  // runtime: the action's frame on screen
    Integer frameTime = 0;   // runtime: ticks that are left of it
    Single sinYAmplitude = 0;
    std::array<Single, 3> sinState{};  // runtime: sideways swing (amplitude, period, phase)

    // What it takes to place it: the next line of the cache.
    std::array<double, 2> motion{};  // addition, runtime: the same as ctrlPos, summed more exactly
    std::array<Single, 2> sinOffset{};   // runtime: where the swing stands now
    std::array<Single, 2> ctrlOffset{};  // runtime: offsets by its link
    Single posX = 0;                     // runtime, plainly: where it is drawn now
    Single posY = 0;
    Long startX = 0;  // where the element's axis point stands, from the middle of the view
    Long startY = 0;
    std::array<Single, 2> startFraction{};  // addition: what these leave of the file's values
    Single deltaX = 1.0F;                   // how far it moves per unit of the camera
    Single deltaY = 1.0F;

    Single sinYPeriod = 0;            // ticks of a swing; plainly of half a swing
    Single sinYPhase = 0;             // degrees; plainly ticks, runtime: the swing's time
    Integer positionlink = 0;         // not 0: stands relative to the last element without it
    std::array<Single, 2> linkSin{};  // runtime: of a linked element: where its parent's stands
    std::array<Single, 4> ctrlPos{};  // runtime: 0 and 1: motion that is not the camera's
    std::string type;                 // "normal", "parallax", "anim", "dummy", or a word of no kind
    Integer mask = 0;                 // 1 = colour 0 is transparent
    Long spriteGroup = 0;             // the picture, by its numbers in the archive
    Integer spriteImage = 0;
    Long tileSpacingX = 0;
    Long tileSpacingY = 0;
    Integer lastTileIndex = 0;  // runtime
    std::string name;           // of the section header; "No name"
    std::string trans;          // blending, as the file has it
    Long id = 0;                // by which controllers name it
    Single windowX1 = 0;        // drawn inside of this rectangle only, in view pixels
    Single windowX2 = 0;
    Single windowY1 = 0;
    Single windowY2 = 0;
    Single xscaleTop = 0;  // parallax: relative speed of the top row
    Single xscaleBottom = 0;

    // Additions.
    Integer alphaSource = 256;  // with trans "add" and "addalpha": parts of 256
    Integer alphaDestination = 0;
    Blending blending;        // what trans and alpha come to
    Single windowDeltaX = 0;  // how far the window moves per unit of the camera
    Single windowDeltaY = 0;
    Single yscaleStart = 100;  // parallax: at the ground view it is 100 / yscaleStart as tall
    Single yscaleDelta = 0;    // and per unit of the camera's height
    std::array<Single, 2> scaleStart{1.0F, 1.0F};  // of its picture, with the camera at 0
    std::array<Single, 2> scaleDelta{};            // and per unit that it moves with the camera
    std::array<Single, 2> zoomDelta{1.0F, 1.0F};   // how much of the camera's zoom it takes
    std::array<Single, 2> rowWidths{0, -1};  // parallax: of the top and the bottom row, in pixels
                                             // of pictures; -1 = not given
    std::array<Single, 4> maskWindow{};  // left, top, right, bottom, from the view's upper middle;
                                         // right and bottom lie outside

    // As the file has it, not the parent's; no part of a stage as written out.
    std::array<Single, 2> deltaRead{1.0F, 1.0F};

    // Additions.
    Byte alphaDestinationGiven = 0;   // 1 = alphaDestination is the file's
    Byte framesBlend = 1;             // 0 = what trans says holds for every frame, none too
    Byte tileSpacingGiven = 0;        // bits: 1 = across, 2 = down
    Byte picturesGiven = 0;           // kGivenSprite, kGivenAction
    Byte maskWindowActive = 0;        // 1 = all four values were given, so the window holds
    std::array<Long, 2> swingTick{};  // runtime: the frame that each swing is in
};
static_assert(offsetof(BackgroundElement, sinState) + sizeof(Single) <= kCacheLine,
              "up to the amplitude of the sideways swing");
static_assert(offsetof(BackgroundElement, deltaY) + sizeof(Single) <= 2 * kCacheLine,
              "all that it takes to place one that is not linked");

// Which of its keys for pictures an element was given.
inline constexpr Byte kGivenSprite = 1;
inline constexpr Byte kGivenAction = 2;

// A spriteIndex: the element shows the frames of an action.
inline constexpr Integer kPicturesOfAction = -2;

// Whether the element shows frames. An "anim" does; addition: others may, too.
[[nodiscard]] inline bool ShowsFrames(const BackgroundElement& element) {
    return element.kind == ElementKind::Animated || element.spriteIndex == kPicturesOfAction;
}

// One subfile of the sprite archive, with its picture as a texture.
struct SpriteEntry {
    Integer axisX = 0;  // the pixel of the picture that is laid on an element's axis point
    Integer axisY = 0;
    Integer width = 0;  // pixels
    Integer height = 0;
    Long group = 0;
    Integer image = 0;
    Integer selfIndex = 0;                      // its own position in Sprites
    std::shared_ptr<Direct3DTexture8> texture;  // shared with the entries that are linked to it
    Long reserved = 0;
    Integer masked = 0;  // 1 = a still element with mask 1 shows this picture
    Byte keyAlpha = 0;   // the transparent colour: palette entry 0 made opaque
    Byte keyRed = 0;
    Byte keyGreen = 0;
    Byte keyBlue = 0;
    Integer linkedTo = -1;  // -1 = has a picture of its own; else the archive's link index
    Byte trueColor = 0;     // addition: 1 = it has no palette: always mixed by its alpha
};

// Copies of a sprite that repeat, as one picture: what a repeat is of, and what it looks like
// (render/TilePatterns.h).
struct PatternKey {
    Integer sprite = -1;    // into Sprites
    bool mirrored = false;  // left to right
    bool flipped = false;   // top to bottom
    bool solid = false;     // drawn with the sprite's transparent pixels in their colour
    Integer width = 0;      // pixels from one copy to the next
    Integer height = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): a comparison with 0 of the compiler's own
    auto operator<=>(const PatternKey&) const = default;
};
struct TilePattern {
    PatternKey key;
    SpriteEntry picture;  // of which texture and size count
};

// What goes over from one frame of an action into the next one, tick by tick.
inline constexpr Byte kInterpolatedOffset = 1;
inline constexpr Byte kInterpolatedBlend = 2;
inline constexpr Byte kInterpolatedScale = 4;
inline constexpr Byte kInterpolatedAngle = 8;

// One line of an action.
struct StageFrame {
    Long group = 0;
    Integer image = 0;
    Integer spriteIndex = -1;  // into Sprites; -1 = not in the archive
    Integer offsetX = 0;       // pixels, from the element's axis point
    Integer offsetY = 0;
    Integer time = 0;      // ticks; negative = for ever
    Integer runtimeA = 0;  // two words of the drawing's own
    Integer runtimeB = 0;
    std::string flip;  // the sixth value as the file has it; "h" = mirrored

    // Additions.
    Blending blending;  // of this frame alone, for elements that leave it to the frames
    std::array<Single, 2> offsetFraction{};  // what the offsets leave of the file's values
    std::array<Single, 2> scale{1.0F, 1.0F};
    Single angle = 0;       // degrees, counter-clockwise
    Byte interpolated = 0;  // kInterpolated... bits: goes over into this frame from the one before

    // What the start-up makes of the above, and no part of a stage as written out.
    FrameFlip flips = FrameFlip::None;
    Integer next = 0;  // the frame that follows, past those that take no time
};

// One [Begin Action n] block.
struct StageAction {
    std::vector<StageFrame> frames;
    Integer loopstart = 0;   // the frame that follows the last one
    Integer frameCount = 0;  // how many frames were read
    Integer actionNo = 0;    // the n of the block
};

// Which values a control was given; the drawing treats a missing one as "leave it".
inline constexpr Byte kGivenX = 1;
inline constexpr Byte kGivenY = 2;
inline constexpr Byte kGivenValue = 4;
inline constexpr Byte kGivenValue1 = 8;
inline constexpr Byte kGivenValue2 = 16;

// Elements that stand one after the other in ElementsById, from `first` to before `end`.
struct ElementRange {
    Integer first = 0;
    Integer end = 0;
};

// One [BGCtrl ...] section.
struct BgCtrl {
    std::string type;    // "null", "visible", "enable", "velset", "veladd", "posset", "posadd",
                         // "anim", "sinx", "siny"
    Long startTime = 0;  // ticks of the group's timer
    Long endTime = 0;    // the startTime when the file gives none
    Long loopTime = 0;
    std::vector<Long> ctrlIds;  // of elements; empty = those of the group
    Single x = 0;
    Single y = 0;
    Integer value = 0;
    Long timer = 0;                         // runtime
    Byte given = 0;                         // kGiven... bits
    Integer value1 = 0;                     // of "sinx" and "siny": amplitude
    Integer value2 = 0;                     // and period
    Integer value3 = 0;                     // addition: the frame of the swing that it begins in
    std::array<Single, 2> swingFraction{};  // addition: what value1 and value2 leave of the file's

    // What the start-up makes of the above, and no part of a stage as written out.
    ControlKind kind = ControlKind::None;
    Integer actionIndex = -1;           // of "anim"; into Actions, -1 = there is none
    std::vector<ElementRange> targets;  // on which it acts
};

// One [BGCtrlDef ...] section with the controls behind it.
struct BgCtrlDef {
    Long looptime = 0;  // ticks after which the timer starts again; 0 = never
    Long timer = 0;     // runtime
    std::vector<Long> ctrlIds;
    Long runtimeA = 0;  // this and runtimeB: words of the drawing's own
    Integer controlCount = 0;
    std::vector<BgCtrl> controls;
    Long runtimeB = 0;
};

// The longest list of element ids that a group or a control holds.
inline constexpr std::size_t kMaxCtrlIds = 10;

// A stage's sprite archive.
struct StageArchive {
    std::string path;  // as it was opened; empty: there is none
    std::string
        version;  // "1.01" and the like, as its header says it; empty: it has no whole header
};

// The order is that of the model as written out, whatever that costs in padding: there is one.
struct StageModel {  // NOLINT(clang-analyzer-optin.performance.Padding)
    std::vector<BackgroundElement> Elements;
    Integer ElementCount = 0;
    std::vector<SpriteEntry> Sprites;
    Integer SpriteCount = 0;
    std::vector<StageAction> Actions;
    Integer ActionCount = 0;
    std::vector<BgCtrlDef> CtrlDefs;
    Integer CtrlDefCount = 0;
    std::vector<Integer>
        ElementsById;  // runtime: every element's index, in order of id, then index
    std::vector<TilePattern> TilePatterns;  // runtime, in order of key

    std::string StageTitle;
    Single CamStartX = 0;
    Integer CamStartY = 0;
    Long BoundLeft = 0;  // of the camera
    Long BoundRight = 0;
    Integer BoundHigh = 0;  // negative = up
    Integer BoundLow = 0;
    std::string MusicFile;
    Integer ZOffset = 0;       // the ground line of the characters
    Integer ZOffsetLink = -1;  // id of the element that the ground line follows; -1 = none
    Integer P1StartX = 0;
    Integer Tension = 0;
    Integer ScreenLeft = 0;  // nearest that a character comes to the edge of the screen
    Integer ScreenRight = 0;
    Single CamX = 0;  // runtime: the camera, x negated
    Single CamY = 0;
    Integer LastImageWidth = 0;  // of the last picture decoded
    Integer LastImageHeight = 0;

    // Additions: the coordinates that a stage was made for (StageSpace says what they come to).
    Integer hires = 0;         // not 0: elements are laid out at double detail
    Long localcoordWidth = 0;  // of the view, in stage units; 0: as it is designed
    Long localcoordHeight = 0;
    Single StageXScale = 1;  // of elements: their starts, motion and pictures
    Single StageYScale = 1;

    // Additions: the camera's zoom, as the file has it (stage/CameraZoom.h says what it comes to).
    Single ZoomOut = 1;  // picture for picture: below 1 all is seen smaller, and more of it
    Single ZoomIn = 1;
    Single StartZoom = 1;
    double CamZoom = 1;  // runtime: where it stands

    // Addition: the version of MUGEN that the stage was made for, from 1 on; 0 = an older one.
    Single MugenVersion = 0;

    // Additions: what is seen where no element is.
    Integer debugbg = 0;                    // 1 = magenta, whatever bgclearcolor says
    std::array<Integer, 3> bgclearcolor{};  // red, green, blue

    // Additions: the music, as the file has it (MusicGain says what the volumes come to).
    Single MusicVolume = 100;       // percent of as it was recorded
    Integer MusicVolumeOffset = 0;  // the same for older stages: -255 is silence, 0 as recorded
    Long MusicLoopStart = 0;        // samples: played to the end, it goes on from the start
    Long MusicLoopEnd = -1;         // below 0: the file's own

    // For the user to read, and no part of a stage as written out.
    std::string Author;  // addition
    StageArchive Archive;

    // Releases every texture, empties the tables, and puts every setting back to its start.
    void Clear();
};

}  // namespace scenara
