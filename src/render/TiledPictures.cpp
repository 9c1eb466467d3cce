// SPDX-License-Identifier: MIT
#include "render/TiledPictures.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <vector>

#include "stage/ModelLookup.h"

namespace scenara {
namespace {

// Far more than any stage has that is not made to keep the start-up busy.
constexpr std::size_t kMostFrames = 262144;

class TiledPictures {
public:
    using Visit = std::function<void(const BackgroundElement&, const ElementPicture&)>;

    TiledPictures(const StageModel& model, bool additions, const Visit& visit)
        : model_(model), additions_(additions), visit_(visit) {
        ListActionsOfControls();
    }

    void VisitAll() {
        for (const BackgroundElement& element : model_.Elements) {
            if (element.tileX != 0 || element.tileY != 0) {
                VisitOf(element);
            }
        }
    }

private:
    // Any animated element may come to show these.
    void ListActionsOfControls() {
        for (const BgCtrlDef& group : model_.CtrlDefs) {
            for (const BgCtrl& control : group.controls) {
                if (control.kind == ControlKind::Anim) {
                    actions_.push_back(control.actionIndex);
                }
            }
        }
        std::ranges::sort(actions_);
        actions_.erase(std::unique(actions_.begin(), actions_.end()), actions_.end());
    }

    void VisitOf(const BackgroundElement& element) {
        BackgroundElement shown = element;
        if (!ShowsFrames(element)) {
            VisitNow(shown);
            return;
        }
        VisitFrames(shown);
        for (const Integer action : actions_) {
            if (looked_ >= kMostFrames) {
                break;
            }
            if (action != element.actionIndex) {
                shown.actionIndex = action;
                VisitFrames(shown);
            }
        }
    }

    void VisitFrames(BackgroundElement& shown) {
        const StageAction* const action = ActionOf(model_, shown);
        const std::size_t count = action == nullptr ? 0 : action->frames.size();
        ++looked_;  // also where there is none
        for (std::size_t i = 0; i < count && looked_ < kMostFrames; ++i, ++looked_) {
            shown.frameIndex = static_cast<Integer>(i);
            VisitNow(shown);
        }
    }

    void VisitNow(const BackgroundElement& shown) const {
        if (const std::optional<ElementPicture> picture = PictureOf(model_, shown, additions_)) {
            visit_(shown, *picture);
        }
    }

    const StageModel& model_;
    bool additions_;
    const Visit& visit_;
    std::vector<Integer> actions_;
    std::size_t looked_ = 0;
};

}  // namespace

void ForEachTiledPicture(
    const StageModel& model, bool additions,
    const std::function<void(const BackgroundElement&, const ElementPicture&)>& visit) {
    TiledPictures(model, additions, visit).VisitAll();
}

bool HasPixels(const SpriteEntry& sprite) {
    return sprite.texture != nullptr && sprite.texture->Width() == sprite.width &&
           sprite.texture->Height() == sprite.height;
}

}  // namespace scenara
