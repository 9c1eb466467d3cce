// SPDX-License-Identifier: MIT
#include "editor/DebugEditor.h"

#include "base/NumberText.h"
#include "editor/ElementList.h"
#include "render/ElementScale.h"
#include "stage/ModelLookup.h"
#include "stage/StageSpace.h"

namespace scenara {
namespace {

constexpr Integer kFrontLayer = 1;
constexpr Integer kBackLayer = 0;

}  // namespace

void DebugEditor::Select(Integer index) {
    selected_ = index;
    followed_ = kNone;
    ForgetPresses();
}

std::optional<ViewFrame> DebugEditor::Outline() const {
    if (!IsOn() || selected_ == kNone) {
        return std::nullopt;
    }
    return OutlineOf(context_.model, Drawing(), selected_);
}

void DebugEditor::MouseDown(const ViewPoint& point) {
    if (!IsOn()) {
        return;
    }
    Select(TopmostElementAt(context_.model, Drawing(), point));
    if (selected_ != kNone) {
        BeginDrag(point);
    }
}

// What the camera has moved the element by, where the element has followed it to: a camera key may
// have been accepted since, which the next pass brings to the elements.
DebugEditor::Offset DebugEditor::CameraOffset(const BackgroundElement& element) const {
    return {static_cast<double>(element.deltaX) * static_cast<double>(context_.camera.previousX),
            -static_cast<double>(element.deltaY) * static_cast<double>(context_.camera.previousY)};
}

void DebugEditor::BeginDrag(const ViewPoint& point) {
    const BackgroundElement& element = RecordAt(context_.model.Elements, selected_, "element");
    const Offset camera = CameraOffset(element);
    followed_ = selected_;
    drag_ = {{point.x + camera.x - static_cast<double>(element.posX),
              point.y + camera.y - static_cast<double>(element.posY)},
             element.startX,
             element.startY,
             {},
             point,
             {element.motion[0], element.motion[1]}};
}

// Addition: an element stands where its start and its motion say, and what drifts is held.
void DebugEditor::MoveStart(Integer index, const ViewPoint& point) {
    const StageSpace space = SpaceOf(context_.model);
    const double pixels = context_.view.detail * space.hires;
    BackgroundElement& dragged = RecordAt(context_.model.Elements, index, "element");
    const ElementScale zoom = ZoomOf(dragged, context_.model.CamZoom);
    if (zoom.x == 0 || zoom.y == 0) {
        return;  // it has been zoomed out of sight
    }
    // From where it was last, for the zoom may change on the way.
    const Offset moved{
        drag_.moved.x + (double{1} * point.x - drag_.from.x) / (pixels * space.scaleX * zoom.x),
        drag_.moved.y + (double{1} * point.y - drag_.from.y) / (pixels * space.scaleY * zoom.y)};
    const auto start = [](Long from, double pointer, double motion) {
        return ToLong(from + pointer - motion);
    };
    const Long startX = start(drag_.startX, moved.x, dragged.motion[0] - drag_.motion.x);
    const Long startY = start(drag_.startY, moved.y, dragged.motion[1] - drag_.motion.y);
    drag_.moved = moved;
    drag_.from = point;
    dragged.startX = startX;
    dragged.startY = startY;
}

void DebugEditor::MouseMove(const ViewPoint& point) {
    if (!IsOn() || followed_ == kNone) {
        return;
    }
    // Given up before it can fail: else every further move would fail again, each with its message.
    const Integer dragged = std::exchange(followed_, kNone);
    if (context_.options.Additions) {
        MoveStart(dragged, point);
        followed_ = dragged;
        actions_.Edited();
        return;
    }
    const BackgroundElement& element = RecordAt(context_.model.Elements, dragged, "element");
    const Offset camera = CameraOffset(element);
    Shift(dragged, {point.x - drag_.grab.x + camera.x - static_cast<double>(element.posX),
                    point.y - drag_.grab.y + camera.y - static_cast<double>(element.posY)});
    followed_ = dragged;
    actions_.Edited();
}

void DebugEditor::Shift(Integer index, const Offset& by) {
    StageModel& model = context_.model;
    const Offset moved{drag_.moved.x + by.x, drag_.moved.y + by.y};
    // From where it began, so that what is rounded does not add up. Both, before either is stored.
    const Long startX = ToLong(drag_.startX + moved.x);
    const Long startY = ToLong(drag_.startY + moved.y);
    drag_.moved = moved;
    BackgroundElement& dragged = RecordAt(model.Elements, index, "element");
    dragged.startX = startX;
    dragged.startY = startY;
    for (BackgroundElement& element : model.Elements) {
        if (&element == &dragged || element.linkParent == index) {
            element.posX = static_cast<Single>(static_cast<double>(element.posX) + by.x);
            element.posY = static_cast<Single>(static_cast<double>(element.posY) + by.y);
        }
    }
}

void DebugEditor::AtEndOfPass() {
    if (!IsOn()) {
        Clear();
        return;
    }
    if (context_.flags.Unframed != 0) {
        ForgetPresses();
        return;
    }
    const Long now = context_.clock.GetTickCount();
    if (!KeyGateIsOpen(context_.camera, now)) {
        return;
    }
    // The gate closes before the key acts: one that ends in an error does not do so in every pass.
    if (const std::optional<VirtualKey> key = PressedKey()) {
        context_.camera.lastKeyTick = now;
        Act(*key);
    }
}

// A key that is still down is down at the next question, too.
void DebugEditor::ForgetPresses() const {
    for (const VirtualKey key : {VirtualKey::NumpadPlus, VirtualKey::NumpadMinus,
                                 VirtualKey::Delete, VirtualKey::Insert, VirtualKey::D}) {
        static_cast<void>(context_.keyboard.IsDown(key));
    }
}

// The first key of those that can act now; whether there is anything for it to do is its own
// affair.
std::optional<VirtualKey> DebugEditor::PressedKey() const {
    if (selected_ != kNone) {
        for (const VirtualKey key : {VirtualKey::NumpadPlus, VirtualKey::NumpadMinus,
                                     VirtualKey::Delete, VirtualKey::Insert}) {
            if (context_.keyboard.IsDown(key)) {
                return key;
            }
        }
    }
    return context_.keyboard.IsDown(VirtualKey::D) ? std::optional(VirtualKey::D) : std::nullopt;
}

void DebugEditor::Act(VirtualKey key) {
    switch (key) {
        case VirtualKey::NumpadPlus: MoveUp(); break;
        case VirtualKey::NumpadMinus: MoveDown(); break;
        case VirtualKey::Delete: Delete(); break;
        case VirtualKey::Insert: Clone(); break;
        default: actions_.DataCheck(); return;
    }
    actions_.Edited();
}

void DebugEditor::MoveUp() {
    StageModel& model = context_.model;
    if (selected_ + 1 < model.ElementCount) {
        const auto next = static_cast<Integer>(selected_ + 1);
        SwapElements(model, selected_, next);
        SelectionMovesTo(next);
        ShowPlace();
    } else {
        RecordAt(model.Elements, selected_, "element").layerno = kFrontLayer;
    }
}

void DebugEditor::MoveDown() {
    StageModel& model = context_.model;
    if (selected_ - 1 <= 0) {
        return;
    }
    BackgroundElement& element = RecordAt(model.Elements, selected_, "element");
    if (element.layerno == kFrontLayer) {
        element.layerno = kBackLayer;
        return;
    }
    const auto previous = static_cast<Integer>(selected_ - 1);
    SwapElements(model, selected_, previous);
    SelectionMovesTo(previous);
    ShowPlace();
}

void DebugEditor::Delete() {
    if (selected_ == 0) {
        return;
    }
    DeleteElement(context_.model, selected_);
    Clear();
    actions_.SetCaption("Deleted..");
}

void DebugEditor::Clone() {
    CloneElement(context_.model, selected_);
    SelectionMovesTo(static_cast<Integer>(selected_ + 1));
    actions_.SetCaption("Cloned..");
}

void DebugEditor::SelectionMovesTo(Integer index) {
    selected_ = index;
    if (followed_ != kNone) {
        followed_ = index;
    }
}

void DebugEditor::ShowPlace() const {
    const BackgroundElement& element = RecordAt(context_.model.Elements, selected_, "element");
    actions_.SetCaption('"' + element.name + "\" - Background Element #" +
                        NumberText(std::int32_t{selected_} + 1) + "/" +
                        NumberText(context_.model.ElementCount));
}

}  // namespace scenara
