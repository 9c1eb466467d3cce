// SPDX-License-Identifier: MIT
#include "stage/FinishElements.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace scenara {
namespace {

constexpr Long kMostTiles = 999'999;

// FindSprite and FindAction for thousands of elements and frames: the first index of each key,
// looked up in sorted order instead of searched for. (No hash table: a file could choose numbers
// that all fall into one place of it.)
class FirstIndex {
public:
    void Add(std::uint64_t key, std::size_t index) {
        places_.emplace_back(key, static_cast<Integer>(index));
    }

    // Between adding and finding.
    void Sort() { std::sort(places_.begin(), places_.end()); }

    [[nodiscard]] Integer Find(std::uint64_t key) const {
        const auto found =
            std::lower_bound(places_.begin(), places_.end(), std::pair(key, Integer{-1}));
        return found == places_.end() || found->first != key ? Integer{-1} : found->second;
    }

private:
    std::vector<std::pair<std::uint64_t, Integer>> places_;  // key and index
};

std::uint64_t ActionKey(Integer actionNo) {
    return static_cast<std::uint16_t>(actionNo);
}

std::uint64_t SpriteKey(Long group, Integer image) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(group)) << 16U |
           static_cast<std::uint16_t>(image);
}

void FinishBlending(BackgroundElement& element, bool belowVersion1) {
    std::optional<Integer> destination;
    if (element.alphaDestinationGiven != 0) {
        destination = element.alphaDestination;
    }
    element.blending = ElementBlending(element.trans, element.alphaSource, destination);
    element.framesBlend = FramesBlend(element.trans, belowVersion1) ? Byte{1} : Byte{0};
}

}  // namespace

void FinishElements(StageModel& model, Messages& messages, const ViewOptions& options) {
    FirstIndex actions;
    for (std::size_t i = 0; i < model.Actions.size(); ++i) {
        actions.Add(ActionKey(model.Actions[i].actionNo), i);
    }
    actions.Sort();
    for (BackgroundElement& element : model.Elements) {
        element.deltaRead = {element.deltaX, element.deltaY};
        if (element.type == "anim") {
            element.mask = 1;
        }
        if (element.tileX > kMostTiles) {
            element.tileX = 1;
        }
        if (element.type == "anim") {
            element.actionIndex = actions.Find(ActionKey(element.actionIndex));
        }
        if (element.tileX < 0) {
            element.tileX = 1;
            messages.MsgBox(kMessageNegativeTileX, "TileX < 0");
        }
        if (element.tileY < 0) {
            element.tileY = 1;
            messages.MsgBox(kMessageNegativeTileY, "TileY < 0");
        }
        if (options.Additions) {
            FinishBlending(element, model.MugenVersion < 1);
        }
    }
}

void ResolveSprites(StageModel& model) {
    FirstIndex sprites;
    for (std::size_t i = 0; i < model.Sprites.size(); ++i) {
        sprites.Add(SpriteKey(model.Sprites[i].group, model.Sprites[i].image), i);
    }
    sprites.Sort();
    for (BackgroundElement& element : model.Elements) {
        element.spriteIndex =
            element.type == "anim"
                ? Integer{-1}
                : sprites.Find(SpriteKey(element.spriteGroup, element.spriteImage));
    }
    // Of every action, since a controller may make an element show any.
    for (StageAction& action : model.Actions) {
        for (StageFrame& frame : action.frames) {
            frame.spriteIndex = sprites.Find(SpriteKey(frame.group, frame.image));
        }
    }
}

}  // namespace scenara
