// SPDX-License-Identifier: MIT
#include "stage/ElementStart.h"

#include "stage/ModelLookup.h"

namespace scenara {
namespace {

StartPlace OwnStart(const BackgroundElement& element) {
    return {element.startX + static_cast<double>(element.startFraction[0]),
            element.startY + static_cast<double>(element.startFraction[1])};
}

}  // namespace

StartPlace StartOf(const StageModel& model, const BackgroundElement& element) {
    const StartPlace own = OwnStart(element);
    if (element.linkParent == -1) {
        return own;
    }
    const StartPlace parent = OwnStart(RecordAt(model.Elements, element.linkParent, "element"));
    return {parent.x + own.x, parent.y + own.y};
}

StartPlace DisplacementOf(const StageModel& model, const BackgroundElement& element) {
    const auto sum = [](const BackgroundElement& from, std::size_t axis) {
        return from.motion.at(axis) + static_cast<double>(from.sinOffset.at(axis));
    };
    if (element.linkParent == -1) {
        return {sum(element, 0), sum(element, 1)};
    }
    const BackgroundElement& parent = RecordAt(model.Elements, element.linkParent, "element");
    return {element.motion[0] + sum(parent, 0), element.motion[1] + sum(parent, 1)};
}

}  // namespace scenara
