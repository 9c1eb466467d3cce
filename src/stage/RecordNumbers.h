// SPDX-License-Identifier: MIT
//
// Records by the numbers that the files know them by: for looking up thousands of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "stage/StageModel.h"

namespace scenara {

// A picture's group and image as one number.
[[nodiscard]] std::uint64_t SpriteKey(Long group, Integer image);

// The first index of each key, looked up in sorted order. (No hash table: a file could choose
// numbers that all fall into one place of it.)
class FirstIndex {
public:
    void Add(std::uint64_t key, std::size_t index) {
        places_.emplace_back(key, static_cast<Integer>(index));
    }

    // Between adding and finding.
    void Sort();

    // -1 for a key that was not added.
    [[nodiscard]] Integer Find(std::uint64_t key) const;

private:
    std::vector<std::pair<std::uint64_t, Integer>> places_;  // key and index
};

// The actions of a stage as they are now.
class ActionNumbers {
public:
    explicit ActionNumbers(const StageModel& model);

    // The first action of this number, -1 when there is none.
    [[nodiscard]] Integer Find(Integer actionNo) const;

private:
    FirstIndex index_;
};

// The sprites of a stage as they are now.
class SpriteNumbers {
public:
    explicit SpriteNumbers(const StageModel& model);

    // The first entry with this group and image, -1 when there is none.
    [[nodiscard]] Integer Find(Long group, Integer image) const;

private:
    FirstIndex index_;
};

}  // namespace scenara
