// SPDX-License-Identifier: MIT
//
// LiteralStage: a second renderer, for comparing the program's pictures with. It is written from
// the rules alone, shares nothing with render/, and does everything the long way: each copy of each
// element in order, pixel by pixel.
//
// It has a clock, a camera and motion of its own; of the loaded model it takes what was read from
// the files and nothing that a start-up sets. Not for hires and localcoord.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "stage/StageModel.h"

namespace scenara::test {

// Where drawing with additions differs from plain drawing, one word per rule.
struct LiteralRules {
    bool blends = true;              // trans, alpha and the frames' own blending count
    bool mirrorsAboutAxis = true;    // H, V and HV; plain: H within the frame's rectangle
    bool dummiesAreEnabled = true;   // from the start
    bool keepsUpperBound = true;     // plain: raised to the topmost picture's edge + 1
    bool movesWindows = true;        // windowdelta
    bool oneForNegativeStep = true;  // n tiles at a distance below 0: one; plain: none
    bool clearsPicture = true;       // to black, or as the stage says, before each frame
    bool tilesMirrored = true;       // frames with H or HV, too
    bool wholeSwings = true;       // sin.x, sin.y: a whole swing in a period, the phase in degrees
    bool movesOnce = true;         // in a frame, with layerno below 0
    bool movesHidden = true;       // what is not visible drifts and swings on
    bool shearsFromMiddle = true;  // parallax: with the axis' whole distance
    bool stretches = true;         // parallax: yscalestart, yscaledelta
    bool sideBySide = true;        // animations that are given no distance
    bool enabledIsEnable = true;   // as a controller's type
    bool unknownIsDummy = true;    // a type that is no known word; plain: drawn like "normal"

    static LiteralRules Of(bool additions) {
        return additions ? LiteralRules{}
                         : LiteralRules{.blends = false,
                                        .mirrorsAboutAxis = false,
                                        .dummiesAreEnabled = false,
                                        .keepsUpperBound = false,
                                        .movesWindows = false,
                                        .oneForNegativeStep = false,
                                        .clearsPicture = false,
                                        .tilesMirrored = false,
                                        .wholeSwings = false,
                                        .movesOnce = false,
                                        .movesHidden = false,
                                        .shearsFromMiddle = false,
                                        .stretches = false,
                                        .sideBySide = false,
                                        .enabledIsEnable = false,
                                        .unknownIsDummy = false};
    }
};

// The keys that are held during a frame.
struct LiteralKeys {
    bool left = false;
    bool right = false;
    bool up = false;
    bool down = false;
};

inline constexpr int kLiteralWidth = 320;
inline constexpr int kLiteralHeight = 240;

// Sums and products are worked out in double; what is kept of them is a 32-bit float.
[[nodiscard]] constexpr double Wide(float value) {
    return static_cast<double>(value);
}

class LiteralStage {
public:
    // A model as LoadStage leaves it. It outlives this, and its textures do, too.
    LiteralStage(const StageModel& loaded, const LiteralRules& rules);

    void DrawFrame(const LiteralKeys& keys);

    // Line by line, 0xRRGGBB. Black before the first frame.
    [[nodiscard]] const std::vector<std::uint32_t>& Picture() const { return picture_; }

private:
    struct Swing {
        float amplitude = 0;
        float period = 0;
        float time = 0;
        float offset = 0;
        float phase = 0;  // of a whole one, in degrees
    };

    // What changes of an element while the stage runs; index 0 is x, 1 is y.
    struct Element {
        const BackgroundElement* file = nullptr;
        bool animated = false;
        bool parallax = false;
        bool dummy = false;
        bool visible = true;
        bool enabled = true;
        int parent = -1;
        std::array<float, 2> position{};
        std::array<float, 2> delta{};
        std::array<float, 2> velocity{};
        std::array<float, 2> motion{};  // all displacement that is not the camera's
        std::array<Swing, 2> swings{};
        std::array<float, 2> notedSwing{};  // as this frame begins
        std::array<float, 2> notedMotion{};
        int action = -1;
        int frame = 0;
        int frameTime = 0;
    };

    struct Control {
        const BgCtrl* file = nullptr;
        std::vector<std::size_t> targets;
        std::int64_t timer = 0;
    };
    struct Group {
        const BgCtrlDef* file = nullptr;
        std::vector<Control> controls;
        std::int64_t timer = 0;
    };

    struct Image {
        int width = 0;
        int height = 0;
        int axisX = 0;
        int axisY = 0;
        std::vector<std::uint32_t> texels;  // ARGB, colour 0 with an alpha of 0
    };

    // Columns and rows, both ends included.
    struct Window {
        int left = 0;
        int top = 0;
        int right = kLiteralWidth - 1;
        int bottom = kLiteralHeight - 1;
    };

    // How the pixels of a picture are brought to the screen.
    struct Paint {
        Window window;
        Blending blending;
        bool masked = false;
        bool mirrored = false;
        bool upsideDown = false;
    };

    // Start-up (LiteralStage.cpp).
    void ReadImages();
    void PlaceCamera();
    void PlaceElement(std::size_t index);
    void RaiseUpperBound();
    void ResolveControls();

    // Controllers and clocks (LiteralControls.cpp).
    void RunControls();
    void Act(const BgCtrl& control, Element& element);
    void TickAnimation(Element& element);

    // A pass (LiteralStage.cpp).
    enum class Pass : std::uint8_t { Back, Front };
    void DrawPass(Pass pass, const LiteralKeys& keys);
    void Move(Element& element) const;
    void SwingWhole(Element& element) const;
    [[nodiscard]] std::uint32_t ClearColor() const;
    void FollowCamera(Element& element);
    void MoveCamera(const LiteralKeys& keys);
    [[nodiscard]] bool HasPictures(const Element& element) const;

    // What is seen of an element (LiteralPicture.cpp).
    void Draw(const Element& element);
    // Where the picture's left upper corner and the element's axis point stand.
    struct Place {
        float x;
        float y;
        double axisX;
        double axisY;
    };
    [[nodiscard]] double Stretch(const BackgroundElement& element) const;
    void DrawRows(const Element& element, const Image& image, const Place& place,
                  const Paint& paint);
    void DrawTiles(const Element& element, const Image& image, std::int64_t x, std::int64_t y,
                   const Paint& paint);
    [[nodiscard]] std::vector<std::int64_t> Copies(std::int64_t first, std::int64_t count,
                                                   std::int64_t step, std::int64_t size,
                                                   std::int64_t viewSize) const;
    [[nodiscard]] Window WindowOf(const BackgroundElement& element) const;
    // The rows of the picture from firstRow to before endRow.
    void DrawCopy(const Image& image, std::int64_t x, std::int64_t y, int firstRow, int endRow,
                  const Paint& paint);

    const StageModel& model_;
    LiteralRules rules_;
    std::vector<Image> images_;
    std::vector<Element> elements_;
    std::vector<Group> groups_;
    std::array<float, 2> camera_{};  // stored: x negated
    std::array<float, 2> previousCamera_{};
    int upperBound_ = 0;
    std::vector<std::uint32_t> picture_;
};

}  // namespace scenara::test
