// SPDX-License-Identifier: MIT
//
// StageCatalog: all stages of the MUGEN folder, and which of them the list has at the moment: those
// that its filter lets through.
//
// The list is filled from here and only here, with additions. What is selected stays so by its
// file, wherever that stands after the list was filled anew.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "app/StageFinder.h"
#include "base/Integers.h"
#include "platform/Form.h"

namespace scenara {

class StageCatalog {
public:
    // It outlives this.
    explicit StageCatalog(ListBox& list) : list_(list) {}

    // These are all from now on, in their order.
    void Take(std::vector<StageEntry> stages);
    // Only those with every word of it are listed from now on.
    void Filter(const std::string& words);
    // The list is not its own any more: it has no items.
    void Leave();

    // How many there are, whatever the filter.
    [[nodiscard]] std::size_t Count() const { return stages_.size(); }

    // Of an item of the list.
    [[nodiscard]] const StageEntry& At(Long index) const {
        return stages_.at(listed_.at(static_cast<std::size_t>(index)));
    }
    // The item with that file; -1: none.
    [[nodiscard]] Long IndexOf(std::string_view file) const;

    // The file turned out to be no stage.
    void NoteIsNone(std::string_view file);

    // The item could not be opened: steps go on from it, though something else is selected. Nothing
    // is passed over any more once something else is opened.
    void PassOver(Long index) { passed_ = At(index).order; }
    void ForgetPassed() { passed_.clear(); }

    // The item to which so many steps lead (below 0 backwards) from what is selected, or was passed
    // over, or stood there and has gone; no further than the first and the last one. What is known
    // to be no stage is not counted. -1: none.
    [[nodiscard]] Long After(Long steps) const;
    // That item, or one near it where it is known to be no stage and there are others.
    [[nodiscard]] Long NearestStage(Long index) const;

private:
    struct Selection {
        std::string file;  // empty: none
        std::string order;
    };

    [[nodiscard]] Selection Selected() const;
    void Fill(const Selection& selected);
    void ShowDetails();
    [[nodiscard]] Long From(bool forwards) const;
    [[nodiscard]] Long FirstStageFrom(Long index, Long step) const;
    [[nodiscard]] Long CountListed() const { return static_cast<Long>(listed_.size()); }

    ListBox& list_;
    std::vector<StageEntry> stages_;
    std::vector<std::size_t> listed_;  // which of them, in the list's order
    std::string words_;                // of the filter, folded
    std::string passed_;               // the order of what was passed over, or has gone
};

}  // namespace scenara
