// SPDX-License-Identifier: MIT
//
// LiteralStage: a second renderer, for comparing the program's pictures with. It is written from
// the rules alone, shares nothing with render/, and does everything the long way: each copy of each
// element in order, pixel by pixel.
//
// It has a clock, a camera and motion of its own; of the loaded model it takes what was read from
// the files and nothing that a start-up sets.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "literal/LiteralSpace.h"
#include "literal/LiteralTexels.h"
#include "literal/LiteralZoom.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara::test {

// Where drawing with additions differs from plain drawing, one word per rule.
struct LiteralRules {
    bool onCanvas = true;           // of the stage's own size; places come from sums, in double
    bool blends = true;             // trans, alpha and the frames' own blending count
    bool mirrorsAboutAxis = true;   // H, V and HV; plain: H within the frame's rectangle
    bool dummiesAreEnabled = true;  // from the start
    bool keepsUpperBound = true;    // plain: raised to the topmost picture's edge + 1
    bool clearsPicture = true;      // to black, or as the stage says, before each frame
    bool wholeSwings = true;        // sin.x, sin.y: a whole swing in a period, the phase in degrees
    bool movesOnce = true;          // in a frame, with layerno below 0
    bool movesHidden = true;        // what is not visible drifts and swings on
    bool enabledIsEnable = true;    // as a controller's type
    bool unknownIsDummy = true;     // a type that is no known word; plain: drawn like "normal"

    bool endsOnBounds = true;  // a camera step that is beyond a bound by a hair

    bool mixesTexels = false;  // Smooth: pixels of scaled pictures are means

    static LiteralRules Of(const ViewOptions& view) {
        return view.Additions ? LiteralRules{.mixesTexels = view.Smooth}
                              : LiteralRules{.onCanvas = false,
                                             .blends = false,
                                             .mirrorsAboutAxis = false,
                                             .dummiesAreEnabled = false,
                                             .keepsUpperBound = false,
                                             .clearsPicture = false,
                                             .wholeSwings = false,
                                             .movesOnce = false,
                                             .movesHidden = false,
                                             .enabledIsEnable = false,
                                             .unknownIsDummy = false,
                                             .endsOnBounds = false};
    }
};

// The keys that are held during a frame.
struct LiteralKeys {
    bool left = false;
    bool right = false;
    bool up = false;
    bool down = false;
};

// Sums and products are worked out in double; what plain drawing keeps of them is a 32-bit float.
[[nodiscard]] constexpr double Wide(float value) {
    return static_cast<double>(value);
}

class LiteralStage {
public:
    // A model as LoadStage leaves it. It outlives this, and its textures do, too.
    LiteralStage(const StageModel& loaded, const LiteralRules& rules);

    void DrawFrame(const LiteralKeys& keys);

    // From now on, within the stage's limits; the camera is brought back to its bounds there.
    void SetZoom(double zoom);

    // Line by line, 0xRRGGBB. Black before the first frame.
    [[nodiscard]] const std::vector<std::uint32_t>& Picture() const { return picture_; }
    // Pixels of it that may be otherwise: a picture is turned there, and devices differ by a hair.
    // 1 = in doubt.
    [[nodiscard]] const std::vector<std::uint8_t>& InDoubt() const { return inDoubt_; }
    [[nodiscard]] int Width() const { return space_.CanvasWidth(); }
    [[nodiscard]] int Height() const { return space_.CanvasHeight(); }

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
        std::array<double, 2> start{};     // with its parent's
        std::array<double, 2> position{};  // plain: where it is drawn now
        std::array<float, 2> delta{};
        std::array<float, 2> velocity{};
        std::array<double, 2> motion{};  // all displacement that is not the camera's
        std::array<Swing, 2> swings{};
        std::array<float, 2> notedSwing{};  // as this frame begins
        std::array<double, 2> notedMotion{};
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
        bool trueColor = false;
        std::vector<std::uint32_t> texels;  // ARGB, colour 0 with an alpha of 0

        [[nodiscard]] std::uint32_t At(std::int64_t column, std::int64_t row) const {
            return texels[static_cast<std::size_t>(row * width + column)];
        }
    };

    // Columns or rows of the picture, from the first to before the last.
    struct Span {
        std::int64_t begin = 0;
        std::int64_t end = 0;
    };
    struct Window {
        Span columns;
        Span rows;
    };

    // What an element shows now, and how its pixels are brought to the picture.
    struct Shown {
        const Image* image = nullptr;
        std::array<double, 2> offset{};  // of a frame
        std::array<double, 2> scale{1, 1};
        double angle = 0;                // degrees, counter-clockwise
        std::array<bool, 2> mirrored{};  // left to right, top to bottom
        bool masked = false;             // each pixel counts as much as its alpha says
        Blending blending;
        Window window;
        bool mixesTexels = false;  // drawn at another size than its own, and so that they are mixed

        [[nodiscard]] bool CountsAlpha() const {
            return masked || blending.kind != BlendKind::None;
        }
    };

    // Start-up (LiteralStage.cpp).
    void ReadImages();
    void PlaceCamera();
    void PlaceGround();
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
    struct Sides;
    [[nodiscard]] Sides CameraSides() const;
    void KeepCamera();
    [[nodiscard]] bool HasPictures(const Element& element) const;
    [[nodiscard]] double Kept(double value) const;

    // What is seen of an element (LiteralPicture.cpp).
    [[nodiscard]] std::optional<Shown> ShownOf(const Element& element) const;
    // What it shows of its frame (LiteralFrames.cpp).
    void ReadFrame(const Element& element, Shown& shown) const;
    [[nodiscard]] static const StageFrame& NextFrame(const StageAction& action, int frame);
    // How far its swing has taken it, or the swing and the motion of its parent.
    [[nodiscard]] double CarriedBy(const Element& element, std::size_t axis) const;
    // One texel of it at a place within the picture.
    void Put(std::int64_t x, std::int64_t y, std::uint32_t texel, const Shown& shown);
    [[nodiscard]] Span Whole(std::size_t axis) const;

    // Plainly (LiteralPlain.cpp).
    void DrawPlainly(const Element& element, Shown& shown);
    void DrawPlainRows(const Element& element, const Shown& shown, double x, double y);
    void DrawPlainTiles(const Element& element, const Shown& shown, std::int64_t x, std::int64_t y);
    [[nodiscard]] Window PlainWindow(const BackgroundElement& element) const;
    // The rows of the picture from firstRow to before endRow.
    void DrawPlainCopy(const Shown& shown, std::int64_t x, std::int64_t y, int firstRow,
                       int endRow);

    // On the canvas (LiteralCanvas.cpp). Window and mixing of what is shown are set there.
    // Of a picture, along one axis, in canvas pixels before rounding.
    struct Reach {
        double near = 0;
        double size = 0;
        bool mirrored = false;
    };
    // Along one axis, in the picture's own pixels.
    struct Tiling {
        std::int64_t count = 0;
        std::int64_t distance = 0;
        bool touching = false;  // each copy ends where the next one begins
    };
    void DrawOnCanvas(const Element& element, Shown& shown);
    [[nodiscard]] double AxisPlace(const Element& element, std::size_t axis) const;
    // How much of the camera's zoom it takes.
    [[nodiscard]] double ZoomOf(const BackgroundElement& element, std::size_t axis) const;
    // Where a place of the canvas is seen at its zoom: nearer to the middle, and to the ground.
    [[nodiscard]] double Zoomed(const BackgroundElement& element, std::size_t axis,
                                double place) const;
    // Canvas pixels of a pixel of its pictures; below 0 they are mirrored.
    [[nodiscard]] double PixelOf(const Element& element, std::size_t axis) const;
    // The same of the picture that it shows, which its frame may scale.
    [[nodiscard]] double PixelOf(const Element& element, const Shown& shown,
                                 std::size_t axis) const;
    [[nodiscard]] Reach ReachOf(const Shown& shown, std::size_t axis, double place,
                                double pixel) const;
    [[nodiscard]] Tiling TilingOf(const BackgroundElement& element, const Shown& shown,
                                  std::size_t axis) const;
    [[nodiscard]] std::vector<Span> Copies(const Reach& reach, const Tiling& tiling, double step,
                                           std::size_t axis) const;
    [[nodiscard]] Window CanvasWindow(const BackgroundElement& element) const;
    // Some rows of the picture, brought to columns and rows. The rows count from the upper edge of
    // the picture as it is mirrored.
    void DrawQuad(const Shown& shown, const Span& columns, const Span& rows, const Span& texelRows,
                  const std::array<bool, 2>& mirrored);
    [[nodiscard]] static std::uint32_t MixedTexel(const Shown& shown, const TwoTexels& across,
                                                  const TwoTexels& down,
                                                  const std::array<bool, 2>& mirrored);

    // Turned pictures, on the canvas (LiteralTurned.cpp).
    struct TurnedPicture;
    struct TexelChoice {
        std::uint32_t texel = 0;
        bool sure = true;  // every device shows the same
    };
    [[nodiscard]] static bool IsTurned(const Shown& shown);
    void DrawTurned(const Element& element, const Shown& shown);
    [[nodiscard]] TurnedPicture TurnedPictureOf(const Element& element, const Shown& shown) const;
    [[nodiscard]] std::vector<double> TurnedPlaces(const TurnedPicture& turned,
                                                   const Tiling& tiling, double step, double place,
                                                   std::size_t axis) const;
    void DrawTurnedCopy(const Shown& shown, TurnedPicture& turned,
                        const std::array<double, 2>& about);
    void PutTurned(std::int64_t x, std::int64_t y, const Shown& shown, const TurnedPicture& turned,
                   const std::array<double, 2>& within);
    [[nodiscard]] static TexelChoice TexelsOfTurned(const Shown& shown, const TurnedPicture& turned,
                                                    const std::array<double, 2>& within);

    // Rows of parallax elements, on the canvas (LiteralRows.cpp). The height t is 0 for the first
    // row and 1 for the last one.
    struct Row;
    void DrawRows(const Element& element, const Shown& shown);
    [[nodiscard]] double Stretch(const BackgroundElement& element) const;
    [[nodiscard]] static bool HasWidths(const BackgroundElement& element);
    [[nodiscard]] Row ShearedRow(const Element& element, const Shown& shown, double t) const;
    [[nodiscard]] Row WidenedRow(const Element& element, const Shown& shown, double t) const;

    const StageModel& model_;
    LiteralRules rules_;
    LiteralSpace space_;
    LiteralZoom zoomLimits_;
    double zoom_ = 1;
    double ground_ = 0;  // the row of the canvas that all is zoomed about
    std::vector<Image> images_;
    std::vector<Element> elements_;
    std::vector<Group> groups_;
    std::array<double, 2> camera_{};  // stored: x negated
    std::array<double, 2> previousCamera_{};
    std::array<double, 2> seenFrom_{};  // where the camera is for this frame, in shown coordinates
    int upperBound_ = 0;
    std::vector<std::uint32_t> picture_;
    std::vector<std::uint8_t> inDoubt_;
};

}  // namespace scenara::test
