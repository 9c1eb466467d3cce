// SPDX-License-Identifier: MIT
#include "stage/FinishElements.h"

#include <unordered_map>

namespace scenara {
namespace {

constexpr Long kMostTiles = 999'999;

// FindSprite and FindAction for thousands of elements and frames: the first index of each key,
// looked up instead of searched for.
class FirstIndex {
public:
    void Add(std::uint64_t key, std::size_t index) {
        first_.emplace(key, static_cast<Integer>(index));  // keeps the one that is there
    }

    [[nodiscard]] Integer Find(std::uint64_t key) const {
        const auto found = first_.find(key);
        return found == first_.end() ? Integer{-1} : found->second;
    }

private:
    std::unordered_map<std::uint64_t, Integer> first_;
};

std::uint64_t ActionKey(Integer actionNo) {
    return static_cast<std::uint16_t>(actionNo);
}

std::uint64_t SpriteKey(Long group, Integer image) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(group)) << 16U |
           static_cast<std::uint16_t>(image);
}

}  // namespace

void FinishElements(StageModel& model, Messages& messages) {
    FirstIndex actions;
    for (std::size_t i = 0; i < model.Actions.size(); ++i) {
        actions.Add(ActionKey(model.Actions[i].actionNo), i);
    }
    for (BackgroundElement& element : model.Elements) {
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
    }
}

void ResolveSprites(StageModel& model) {
    FirstIndex sprites;
    for (std::size_t i = 0; i < model.Sprites.size(); ++i) {
        sprites.Add(SpriteKey(model.Sprites[i].group, model.Sprites[i].image), i);
    }
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
