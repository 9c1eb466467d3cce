// SPDX-License-Identifier: MIT
#include "render/SeenFrom.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "render/DrawOptions.h"
#include "render/ElementPlacement.h"
#include "render/ElementScale.h"
#include "render/Motion.h"
#include "stage/CameraZoom.h"
#include "stage/ModelLookup.h"
#include "stage/StageSpace.h"

namespace scenara {
namespace {

struct Range {
    Single least = -std::numeric_limits<Single>::infinity();
    Single most = std::numeric_limits<Single>::infinity();
};

// Where the camera is while something touches the view that begins at `place` while the camera is
// at 0, is so long, and goes back by `perStep` with each step of it. Rounding moves a picture by
// less than a pixel.
Range SeenWhere(double place, double length, double perStep, Long view) {
    const double after = place - view - 1;
    const double before = place + length + 1;
    constexpr Single kFar = std::numeric_limits<Single>::infinity();
    if (perStep == 0) {
        return after < 0 && before > 0 ? Range() : Range{kFar, -kFar};
    }
    const auto [least, most] = std::minmax({after / perStep, before / perStep});
    return {std::nextafter(static_cast<Single>(least), -kFar),
            std::nextafter(static_cast<Single>(most), kFar)};
}

// Which elements a controller may move, at their places in ElementsById. Each range is looked at
// once, however many elements are in it.
std::vector<bool> AreControlled(const StageModel& model) {
    std::vector<std::int64_t> begun(model.ElementsById.size() + 1);
    for (const BgCtrlDef& group : model.CtrlDefs) {
        for (const BgCtrl& control : group.controls) {
            for (const auto& [first, end] : control.targets) {
                ++begun.at(static_cast<std::size_t>(first));
                --begun.at(static_cast<std::size_t>(end));
            }
        }
    }
    std::vector<bool> controlled(model.Elements.size());
    std::int64_t ranges = 0;
    for (std::size_t i = 0; i < model.ElementsById.size(); ++i) {
        ranges += begun[i];
        controlled.at(static_cast<std::size_t>(model.ElementsById[i])) = ranges > 0;
    }
    return controlled;
}

bool Stays(const BackgroundElement& element) {
    return element.kind == ElementKind::Still && !ShowsFrames(element) && element.tileX == 0 &&
           element.tileY == 0 && !Drifts(element) && !Swings(element) && element.linkParent == -1 &&
           !ScalesWithCamera(element);
}

}  // namespace

void NoteWhereSeen(StageModel& model, const View& view) {
    const StageSpace space = SpaceOf(model);
    const CanvasSize canvas = view.Canvas();
    const DrawOptions options{
        .additions = true, .view = view, .zoom = model.CamZoom, .ground = GroundRow(model, 0)};
    const std::vector<bool> controlled = AreControlled(model);
    for (std::size_t i = 0; i < model.Elements.size(); ++i) {
        BackgroundElement& element = model.Elements[i];
        element.seenFrom = {};
        const std::optional<PlacedPicture> picture =
            Stays(element) && !controlled[i] ? PlaceElement(model, element, options) : std::nullopt;
        if (!picture) {
            continue;
        }
        const SpriteEntry& sprite = RecordAt(model.Sprites, picture->slot, "sprite");
        const double perUnit = view.detail * space.hires;
        const ElementScale zoom = ZoomOf(element, options.zoom);
        // The camera's x is stored negated.
        const Range across =
            SeenWhere(picture->x, sprite.width * picture->scaleX,
                      -perUnit * zoom.x * static_cast<double>(element.deltaX), canvas.width);
        const Range down =
            SeenWhere(picture->y, sprite.height * picture->scaleY,
                      perUnit * zoom.y * static_cast<double>(element.deltaY), canvas.height);
        element.seenFrom = {across.least, across.most, down.least, down.most};
    }
}

void ForgetWhereSeen(StageModel& model) {
    for (BackgroundElement& element : model.Elements) {
        element.seenFrom = {};
    }
}

}  // namespace scenara
