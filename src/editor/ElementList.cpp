// SPDX-License-Identifier: MIT
#include "editor/ElementList.h"

#include <utility>

#include "render/PrepareStage.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

// Everything that points at an element by its index points at `moved` of it. Expects the records to
// be in their new places.
template <typename Moved>
void Repoint(StageModel& model, Moved moved) {
    for (BackgroundElement& element : model.Elements) {
        element.linkParent = moved(element.linkParent);
    }
    model.ZOffsetLink = moved(model.ZOffsetLink);
    OrderElementsById(model);
}

// A follower is shown with its parent's swing, and without one with its own.
void KeepItsPlace(BackgroundElement& follower) {
    follower.posX += follower.linkSin[0] - follower.sinOffset[0];
    follower.posY += follower.linkSin[1] - follower.sinOffset[1];
}

}  // namespace

void SwapElements(StageModel& model, Integer a, Integer b) {
    std::swap(RecordAt(model.Elements, a, "element"), RecordAt(model.Elements, b, "element"));
    Repoint(model, [a, b](Integer index) {
        if (index == a) {
            return b;
        }
        return index == b ? a : index;
    });
}

void DeleteElement(StageModel& model, Integer index) {
    static_cast<void>(RecordAt(model.Elements, index, "element"));
    for (BackgroundElement& element : model.Elements) {
        if (element.linkParent == index) {
            KeepItsPlace(element);
        }
    }
    model.Elements.erase(model.Elements.begin() + index);
    model.ElementCount = static_cast<Integer>(model.ElementCount - 1);
    Repoint(model, [index](Integer other) {
        if (other == index) {
            return Integer{-1};
        }
        return other > index ? static_cast<Integer>(other - 1) : other;
    });
}

void CloneElement(StageModel& model, Integer index) {
    BackgroundElement clone = RecordAt(model.Elements, index, "element");
    const Integer count = Incremented(model.ElementCount);
    // What can fail does so before anything has changed.
    model.ElementsById.reserve(static_cast<std::size_t>(count));
    model.Elements.insert(model.Elements.begin() + index + 1, std::move(clone));
    model.ElementCount = count;
    Repoint(model, [index](Integer other) {
        return other > index ? static_cast<Integer>(other + 1) : other;
    });
}

}  // namespace scenara
