// SPDX-License-Identifier: MIT
#include "literal/LiteralStage.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>
#include <optional>
#include <utility>

namespace scenara::test {
namespace {

constexpr double kPlainMiddle = 160;

// The camera and what it is compared with are 32-bit floats.
double Single(double value) {
    return Wide(static_cast<float>(value));
}

}  // namespace

// How far the camera goes, in shown coordinates.
struct LiteralStage::Sides {
    double left = 0;
    double right = 0;
};

LiteralStage::LiteralStage(const StageModel& loaded, const LiteralRules& rules)
    : model_(loaded),
      rules_(rules),
      space_(rules.onCanvas ? LiteralSpace::Of(loaded) : LiteralSpace()),
      zoomLimits_(rules.onCanvas ? LiteralZoom::Of(loaded) : LiteralZoom()),
      zoom_(zoomLimits_.start),
      picture_(static_cast<std::size_t>(Width()) * static_cast<std::size_t>(Height()), 0),
      inDoubt_(picture_.size(), 0) {
    ReadImages();
    PlaceCamera();
    elements_.resize(model_.Elements.size());
    for (std::size_t i = 0; i < elements_.size(); ++i) {
        PlaceElement(i);
    }
    PlaceGround();
    upperBound_ = model_.BoundHigh;
    if (!rules_.keepsUpperBound) {
        RaiseUpperBound();
    }
    ResolveControls();
}

void LiteralStage::ReadImages() {
    for (const SpriteEntry& sprite : model_.Sprites) {
        Image image{sprite.width, sprite.height,         sprite.axisX,
                    sprite.axisY, sprite.trueColor == 1, {}};
        const LockedPixels locked = sprite.texture->LockRectToRead();
        for (int y = 0; y < image.height; ++y) {
            for (int x = 0; x < image.width; ++x) {
                const auto place =
                    static_cast<std::size_t>(y) * static_cast<std::size_t>(locked.pitch) +
                    static_cast<std::size_t>(x);
                image.texels.push_back(locked.words[place]);
            }
        }
        sprite.texture->UnlockRect();
        images_.push_back(std::move(image));
    }
}

void LiteralStage::PlaceCamera() {
    camera_ = {-Wide(model_.CamStartX), Wide(model_.CamStartY)};
    KeepCamera();
    previousCamera_ = camera_;
}

// Raised to the lower bound first, then cut to the higher one.
void LiteralStage::KeepCamera() {
    const auto [left, right] = CameraSides();
    camera_[0] = -std::min(std::max(-camera_[0], left), right);
    camera_[1] = std::min(std::max(camera_[1], double(model_.BoundHigh)), double(model_.BoundLow));
}

LiteralStage::Sides LiteralStage::CameraSides() const {
    const double exact = zoomLimits_.BeyondBounds(zoom_, space_.width);
    const double beyond = space_.wholeCamera ? std::floor(exact) : exact;
    return {Single(model_.BoundLeft - beyond), Single(model_.BoundRight + beyond)};
}

void LiteralStage::SetZoom(double zoom) {
    zoom_ = zoomLimits_.Within(zoom);
    KeepCamera();
}

// The ground is where the stage says, and as much lower as the element that it is linked to
// begins: it does not follow what moves that.
void LiteralStage::PlaceGround() {
    double ground = model_.ZOffset;
    const auto linked = std::ranges::find_if(elements_, [this](const Element& element) {
        return model_.ZOffsetLink != -1 && element.file->id == model_.ZOffsetLink;
    });
    if (linked != elements_.end()) {
        ground += space_.half * space_.scale[1] * linked->start[1];
    }
    ground_ = space_.detail * ground;
}

// The axis point of a linked element is its parent's plus its own start; it moves with the camera
// as its parent does.
void LiteralStage::PlaceElement(std::size_t index) {
    const BackgroundElement& file = model_.Elements[index];
    Element& element = elements_[index];
    element.file = &file;
    element.animated = file.type == "anim";
    element.parallax = file.type == "parallax";
    const bool known = element.animated || element.parallax || file.type == "normal";
    element.dummy = file.type == "dummy" || (!known && rules_.unknownIsDummy);
    // The loader has looked which of the others show an action.
    element.animated = element.animated || file.spriteIndex == kPicturesOfAction;
    element.enabled = !element.dummy || rules_.dummiesAreEnabled;
    element.velocity = {file.velocityX, file.velocityY};
    element.delta = {file.deltaX, file.deltaY};
    element.swings[0] = {file.sinState[0], file.sinState[1], file.sinState[2], 0, 0};
    element.swings[1] = {file.sinYAmplitude, file.sinYPeriod, file.sinYPhase, 0, 0};
    if (rules_.wholeSwings) {
        for (Swing& swing : element.swings) {
            swing.phase = std::exchange(swing.time, 0.0F);
        }
    }
    element.start = {file.startX + Wide(file.startFraction[0]),
                     file.startY + Wide(file.startFraction[1])};
    if (file.positionlink != 0) {
        for (std::size_t before = 0; before < index; ++before) {
            if (model_.Elements[before].positionlink == 0) {
                element.parent = static_cast<int>(before);
            }
        }
    }
    if (element.parent >= 0) {
        const BackgroundElement& parent = model_.Elements[static_cast<std::size_t>(element.parent)];
        element.start[0] += parent.startX + Wide(parent.startFraction[0]);
        element.start[1] += parent.startY + Wide(parent.startFraction[1]);
        element.delta = {parent.deltaX, parent.deltaY};
    }
    int axisX = 0;
    int axisY = 0;
    if (element.animated) {
        element.action = file.actionIndex;
        if (element.action >= 0) {
            const StageAction& action = model_.Actions[static_cast<std::size_t>(element.action)];
            element.frameTime = action.frames.empty() ? 0 : action.frames[0].time;
        }
    } else if (file.spriteIndex >= 0) {
        const Image& image = images_[static_cast<std::size_t>(file.spriteIndex)];
        axisX = image.axisX;
        axisY = image.axisY;
    }
    const double x = kPlainMiddle + element.start[0] - axisX + Wide(element.delta[0]) * camera_[0];
    const double y = element.start[1] - axisY - Wide(element.delta[1]) * camera_[1];
    element.position = {Kept(x), Kept(y)};
}

// With the camera at 0, 0. An element that is tiled down without end has no upper edge.
void LiteralStage::RaiseUpperBound() {
    std::optional<float> topmost;
    for (const Element& element : elements_) {
        if (element.file->tileY == 1) {
            return;
        }
        auto top = static_cast<float>(element.position[1]) +
                   element.delta[1] * static_cast<float>(camera_[1]);
        if (element.animated && element.action >= 0) {
            const StageAction& action = model_.Actions[static_cast<std::size_t>(element.action)];
            if (!action.frames.empty() && action.frames[0].spriteIndex >= 0) {
                const StageFrame& frame = action.frames[0];
                top +=
                    static_cast<float>(frame.offsetY) -
                    static_cast<float>(images_[static_cast<std::size_t>(frame.spriteIndex)].axisY);
            }
        }
        topmost = topmost ? std::min(*topmost, top) : top;
    }
    if (topmost && static_cast<float>(upperBound_) < *topmost) {
        upperBound_ = static_cast<int>(std::nearbyint(*topmost + 1));
    }
}

void LiteralStage::DrawFrame(const LiteralKeys& keys) {
    if (rules_.clearsPicture) {
        std::ranges::fill(picture_, ClearColor());
        std::ranges::fill(inDoubt_, std::uint8_t{0});
    }
    seenFrom_ = {space_.CameraAt(-camera_[0]), space_.CameraAt(camera_[1])};
    RunControls();
    for (Element& element : elements_) {
        TickAnimation(element);
    }
    for (Element& element : elements_) {
        if (rules_.wholeSwings) {
            SwingWhole(element);
        }
        element.notedSwing = {element.swings[0].offset, element.swings[1].offset};
        element.notedMotion = element.motion;
    }
    DrawPass(Pass::Back, keys);
    DrawPass(Pass::Front, keys);
}

std::uint32_t LiteralStage::ClearColor() const {
    if (model_.debugbg == 1) {
        return 0xFF00FF;
    }
    std::uint32_t colour = 0;
    for (const int channel : model_.bgclearcolor) {
        colour = colour * 256 + static_cast<std::uint32_t>(std::min(std::max(channel, 0), 255));
    }
    return colour;
}

void LiteralStage::DrawPass(Pass pass, const LiteralKeys& keys) {
    for (Element& element : elements_) {
        const int layer = element.file->layerno;
        const bool selected = pass == Pass::Back ? layer < 1 : layer != 0;
        if (selected && element.enabled && HasPictures(element)) {
            if (element.visible) {
                if (std::optional<Shown> shown = ShownOf(element)) {
                    rules_.onCanvas ? DrawOnCanvas(element, *shown) : DrawPlainly(element, *shown);
                }
            }
            const bool comesAgain = pass == Pass::Back && layer < 0;
            if ((element.visible || rules_.movesHidden) && !(comesAgain && rules_.movesOnce)) {
                Move(element);
            }
        }
        FollowCamera(element);
    }
    previousCamera_ = camera_;
    MoveCamera(keys);
}

// A dummy needs none; an animation needs an action, whatever its frames show.
bool LiteralStage::HasPictures(const Element& element) const {
    if (element.dummy) {
        return true;
    }
    if (element.animated) {
        return element.action >= 0 &&
               !model_.Actions[static_cast<std::size_t>(element.action)].frames.empty();
    }
    return element.file->spriteIndex >= 0;
}

void LiteralStage::Move(Element& element) const {
    for (std::size_t axis = 0; axis < 2; ++axis) {
        element.position[axis] = Kept(element.position[axis] + Wide(element.velocity[axis]));
        element.motion[axis] = Kept(element.motion[axis] + Wide(element.velocity[axis]));
        Swing& swing = element.swings[axis];
        if (swing.amplitude != 0 && swing.period != 0 && !rules_.wholeSwings) {
            swing.offset = static_cast<float>(
                Wide(swing.amplitude) *
                std::sin(std::numbers::pi / Wide(swing.period) * Wide(swing.time)));
            swing.time += 1;
            if (swing.time == 2 * swing.period) {
                swing.time = 0;
            }
        }
    }
}

void LiteralStage::SwingWhole(Element& element) const {
    for (Swing& swing : element.swings) {
        if (!element.enabled || swing.period <= 0 || !HasPictures(element)) {
            continue;
        }
        const double turns = Wide(swing.time) / Wide(swing.period) + Wide(swing.phase) / 360;
        swing.offset =
            static_cast<float>(Wide(swing.amplitude) * std::sin(2 * std::numbers::pi * turns));
        if (std::abs(swing.offset) < 1.0F / (1 << 20)) {
            swing.offset = 0;  // what a sine is beside 0 is no swing
        }
        swing.time += 1;
    }
}

// What is kept of a sum.
double LiteralStage::Kept(double value) const {
    return rules_.onCanvas ? value : Wide(static_cast<float>(value));
}

// By the camera's step, whatever the distance was. The stored x is negated and the stored y is not.
void LiteralStage::FollowCamera(Element& element) {
    if (camera_[0] != previousCamera_[0]) {
        const double step = Wide(element.delta[0]);
        element.position[0] =
            Kept(element.position[0] + (previousCamera_[0] - camera_[0] > 0 ? -step : step));
    }
    if (camera_[1] != previousCamera_[1]) {
        const double step = Wide(element.delta[1]);
        element.position[1] =
            Kept(element.position[1] + (previousCamera_[1] - camera_[1] > 0 ? step : -step));
    }
}

// A step is made whole or not at all.
void LiteralStage::MoveCamera(const LiteralKeys& keys) {
    const double across = Single(space_.CameraStep()[0]);
    const double down = Single(space_.CameraStep()[1]);
    const auto [leftmost, rightmost] = CameraSides();
    const double hair = rules_.endsOnBounds ? 1.0 / 256 : 0;
    const auto upTo = [&](double place, double bound) {
        return place > bound && place <= bound + hair ? bound : place;
    };
    const double right = upTo(Single(-camera_[0] + across), rightmost);
    if (keys.right && right <= rightmost) {
        camera_[0] = -right;
    }
    const double left = -upTo(-Single(-camera_[0] - across), -leftmost);
    if (keys.left && left >= leftmost) {
        camera_[0] = -left;
    }
    const double upper = -upTo(-Single(camera_[1] - down), -double(upperBound_));
    if (keys.up && upper >= upperBound_) {
        camera_[1] = upper;
    }
    const double lower = upTo(Single(camera_[1] + down), model_.BoundLow);
    if (keys.down && lower <= model_.BoundLow) {
        camera_[1] = lower;
    }
}

}  // namespace scenara::test
