// SPDX-License-Identifier: MIT
#include "render/PrepareStage.h"

#include <algorithm>
#include <limits>
#include <numeric>
#include <optional>

#include "render/AnimationClock.h"
#include "render/Controllers.h"
#include "render/Mixing.h"
#include "stage/CameraZoom.h"
#include "stage/ElementStart.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

double Within(double value, double least, double most) {
    return std::min(std::max(value, least), most);
}

// A number that may be too large for its field, as near as the field comes to it.
Single NearestSingle(double value) {
    constexpr auto kMost = static_cast<double>(std::numeric_limits<Single>::max());
    return static_cast<Single>(Within(value, -kMost, kMost));
}

// The sprite whose axis an element is laid out by; none for an animated one.
const SpriteEntry* StillSprite(const StageModel& model, const BackgroundElement& element) {
    if (ShowsFrames(element) || element.spriteIndex == -1) {
        return nullptr;
    }
    return &RecordAt(model.Sprites, element.spriteIndex, "sprite");
}

// What the words of the file come to.
void ResolveWords(StageModel& model, bool additions) {
    for (BackgroundElement& element : model.Elements) {
        element.kind = KindOf(element.type, additions);
    }
    ResolveControls(model, additions);
    for (StageAction& action : model.Actions) {
        ResolveFrames(action);
    }
}

void ResolveLinks(StageModel& model) {
    Integer parent = -1;
    for (std::size_t i = 0; i < model.Elements.size(); ++i) {
        BackgroundElement& element = model.Elements[i];
        if (element.positionlink == 0) {
            element.linkParent = -1;
            parent = static_cast<Integer>(i);
            continue;
        }
        element.linkParent = parent;
        if (parent != -1) {
            // The camera is to move both alike.
            const BackgroundElement& leader = model.Elements[static_cast<std::size_t>(parent)];
            element.deltaX = leader.deltaX;
            element.deltaY = leader.deltaY;
        }
    }
}

// Elements' starts count from the middle of the view.
void Place(const StageModel& model, const View& view, BackgroundElement& element) {
    const StartPlace start = StartOf(model, element);
    const SpriteEntry* const sprite = StillSprite(model, element);
    const double axisX = sprite == nullptr ? 0 : sprite->axisX;
    const double axisY = sprite == nullptr ? 0 : sprite->axisY;
    // What is shown of the camera, x to the right.
    const double cameraX = -static_cast<double>(model.CamX);
    const auto cameraY = static_cast<double>(model.CamY);
    element.posX = NearestSingle(view.Centre() + (start.x - axisX) -
                                 static_cast<double>(element.deltaX) * cameraX);
    element.posY = NearestSingle((start.y - axisY) - static_cast<double>(element.deltaY) * cameraY);
}

void SetRuntimeValues(const StageModel& model, const ViewOptions& options,
                      BackgroundElement& element) {
    element.lastTileIndex = -1;
    element.frameIndex = 0;
    element.frameTime = 0;
    element.ctrlOffset = {};
    element.ctrlPos = {};
    element.motion = {};
    element.sinOffset = {};
    element.linkSin = {};
    element.visible = 1;
    // Plain, a dummy waits for a controller, and so do those that are linked to it.
    const bool waits = element.kind == ElementKind::Dummy && !options.Additions;
    element.enabled = waits ? Byte{0} : Byte{1};
    element.swingTick = {};
    if (ShowsFrames(element)) {
        element.spriteIndex = kPicturesOfAction;
        if (const StageAction* const action = ActionOf(model, element)) {
            element.frameTime = action->frames.front().time;
        }
    }
}

void SetBackTimers(StageModel& model) {
    for (BgCtrlDef& group : model.CtrlDefs) {
        group.timer = 0;
        for (BgCtrl& control : group.controls) {
            control.timer = 0;
        }
    }
}

void PreLoadTexture(const SpriteEntry& sprite) {
    if (sprite.texture) {
        sprite.texture->PreLoad();
    }
}

// Every picture that may be drawn by its alpha: of stills that are, and of all actions, since a
// controller may make an element show any.
void PreLoadTextures(const StageModel& model, const ViewOptions& options) {
    for (const BackgroundElement& element : model.Elements) {
        if (const SpriteEntry* const sprite = StillSprite(model, element)) {
            const Blending blending = options.Additions ? element.blending : Blending();
            if (MixingOf(element, blending, *sprite) != Mixing::Solid) {
                PreLoadTexture(*sprite);
            }
        }
    }
    for (const StageAction& action : model.Actions) {
        for (const StageFrame& frame : action.frames) {
            if (frame.spriteIndex >= 0) {
                PreLoadTexture(RecordAt(model.Sprites, frame.spriteIndex, "sprite"));
            }
        }
    }
}

double UpperEdge(const StageModel& model, const BackgroundElement& element) {
    double edge = StartOf(model, element).y;
    if (const SpriteEntry* const sprite = StillSprite(model, element)) {
        return edge - sprite->axisY;
    }
    if (!ShowsFrames(element)) {
        return edge;
    }
    const StageAction* const action = ActionOf(model, element);
    if (action != nullptr && action->frames.front().spriteIndex != -1) {
        const StageFrame& frame = action->frames.front();
        edge += frame.offsetY - RecordAt(model.Sprites, frame.spriteIndex, "sprite").axisY;
    }
    return edge;
}

}  // namespace

void PlaceCamera(StageModel& model, Camera& camera, const View& view) {
    model.CamZoom = ZoomRangeOf(model).Kept(static_cast<double>(model.StartZoom));
    PlaceCamera(model, camera, view, {-model.CamStartX, ToSingle(model.CamStartY)});
}

void PlaceCamera(StageModel& model, Camera& camera, const View& view, const CameraPlace& place) {
    const double beyond = BeyondBounds(model, view);
    const double x = Within(0 - static_cast<double>(place.x), model.BoundLeft - beyond,
                            model.BoundRight + beyond);
    const double y = Within(static_cast<double>(place.y), model.BoundHigh, model.BoundLow);
    model.CamX = static_cast<Single>(0 - x);
    model.CamY = static_cast<Single>(y);
    camera.previousX = model.CamX;
    camera.previousY = model.CamY;
}

void OrderElementsById(StageModel& model) {
    model.ElementsById.resize(model.Elements.size());
    std::iota(model.ElementsById.begin(), model.ElementsById.end(), Integer{0});
    std::stable_sort(model.ElementsById.begin(), model.ElementsById.end(),
                     [&](Integer a, Integer b) {
                         return model.Elements[static_cast<std::size_t>(a)].id <
                                model.Elements[static_cast<std::size_t>(b)].id;
                     });
    ResolveTargets(model);
}

void ResolveZOffsetLink(StageModel& model) {
    Integer index = -1;
    // -1 is what a stage without the key has.
    for (std::size_t i = 0; i < model.Elements.size() && model.ZOffsetLink != -1; ++i) {
        if (model.Elements[i].id == model.ZOffsetLink) {
            index = static_cast<Integer>(i);
            break;
        }
    }
    model.ZOffsetLink = index;
}

void RaiseUpperBound(StageModel& model) {
    std::optional<double> smallest;
    for (const BackgroundElement& element : model.Elements) {
        if (element.tileY == 1) {
            return;
        }
        const double edge = UpperEdge(model, element);
        smallest = smallest ? std::min(*smallest, edge) : edge;
    }
    if (smallest && model.BoundHigh < *smallest) {
        constexpr double kMost = std::numeric_limits<Integer>::max();
        model.BoundHigh = ToInteger(std::min(*smallest + 1, kMost));
    }
}

void PrepareElements(StageModel& model, const ViewOptions& options, const View& view) {
    ResolveWords(model, options.Additions);
    ResolveLinks(model);
    for (BackgroundElement& element : model.Elements) {
        Place(model, view, element);
        SetRuntimeValues(model, options, element);
    }
    SetBackTimers(model);
    OrderElementsById(model);
    ResolveZOffsetLink(model);
    if (!options.Additions) {
        RaiseUpperBound(model);
    }
    PreLoadTextures(model, options);
}

}  // namespace scenara
