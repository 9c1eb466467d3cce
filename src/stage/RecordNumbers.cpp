// SPDX-License-Identifier: MIT
#include "stage/RecordNumbers.h"

#include <algorithm>

namespace scenara {
namespace {

std::uint64_t ActionKey(Integer actionNo) {
    return static_cast<std::uint16_t>(actionNo);
}

}  // namespace

std::uint64_t SpriteKey(Long group, Integer image) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(group)) << 16U |
           static_cast<std::uint16_t>(image);
}

void FirstIndex::Sort() {
    std::sort(places_.begin(), places_.end());
}

Integer FirstIndex::Find(std::uint64_t key) const {
    const auto found =
        std::lower_bound(places_.begin(), places_.end(), std::pair(key, Integer{-1}));
    return found == places_.end() || found->first != key ? Integer{-1} : found->second;
}

ActionNumbers::ActionNumbers(const StageModel& model) {
    for (std::size_t i = 0; i < model.Actions.size(); ++i) {
        index_.Add(ActionKey(model.Actions[i].actionNo), i);
    }
    index_.Sort();
}

Integer ActionNumbers::Find(Integer actionNo) const {
    return index_.Find(ActionKey(actionNo));
}

SpriteNumbers::SpriteNumbers(const StageModel& model) {
    for (std::size_t i = 0; i < model.Sprites.size(); ++i) {
        index_.Add(SpriteKey(model.Sprites[i].group, model.Sprites[i].image), i);
    }
    index_.Sort();
}

Integer SpriteNumbers::Find(Long group, Integer image) const {
    return index_.Find(SpriteKey(group, image));
}

}  // namespace scenara
