// SPDX-License-Identifier: MIT
#include "stage/StageModel.h"

#include <algorithm>

namespace scenara {
namespace {

template <typename Table, typename Wanted>
Integer FirstIndex(const Table& table, Wanted wanted) {
    const auto found = std::find_if(table.begin(), table.end(), wanted);
    return found == table.end() ? Integer{-1} : static_cast<Integer>(found - table.begin());
}

}  // namespace

void StageModel::Clear() {
    *this = StageModel();
}

Integer FindSprite(const StageModel& model, Long group, Integer image) {
    return FirstIndex(model.Sprites, [&](const SpriteEntry& sprite) {
        return sprite.group == group && sprite.image == image;
    });
}

Integer FindAction(const StageModel& model, Integer actionNo) {
    return FirstIndex(model.Actions,
                      [&](const StageAction& action) { return action.actionNo == actionNo; });
}

}  // namespace scenara
