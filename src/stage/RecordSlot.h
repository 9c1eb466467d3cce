// SPDX-License-Identifier: MIT
//
// RecordSlot: where the record of one kind that is being read lives: at the end of its table, or
// in a place of its own when it is not to be kept.
//
// The reader goes on the same way in both cases, so what follows a section that is dropped is read
// and checked like any other and has no effect. The table must not grow by other hands meanwhile.
#pragma once

#include <vector>

#include "base/NotCopied.h"
#include "stage/StageModel.h"

namespace scenara {

template <typename Record>
class RecordSlot : NotCopied {
public:
    // Starts a new record at the end of `table` and counts it. False when the table is full: then
    // the record is read and not kept.
    bool Append(std::vector<Record>& table, Integer& count) {
        if (table.size() >= kMaxRecords) {
            Discard();
            return false;
        }
        count = Incremented(count);
        record_ = &table.emplace_back();
        return true;
    }

    // Starts a record that is not kept.
    void Discard() {
        discarded_ = Record();
        record_ = &discarded_;
    }

    // Takes the record out of its table again, which it is the last of.
    void Remove(std::vector<Record>& table, Integer& count) {
        table.pop_back();
        --count;
        Discard();
    }

    [[nodiscard]] bool IsKept() const { return record_ != &discarded_; }
    [[nodiscard]] Record& Current() { return *record_; }

private:
    Record discarded_;
    Record* record_ = &discarded_;
};

}  // namespace scenara
