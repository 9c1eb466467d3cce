// SPDX-License-Identifier: MIT
//
// KeyRows: what tests of the keys share. A row is a line and the fields of a record that it
// changes; everything else of the record must be as it was.
#pragma once

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/HeadlessMessages.h"

namespace scenara::test {

template <typename Record>
struct Row {
    const char* name = "";  // of the test
    std::string_view line;
    void (*change)(Record&) = nullptr;

    // In messages of tests, too.
    friend std::ostream& operator<<(std::ostream& out, const Row& row) { return out << row.name; }
};

// Names a test after its row.
struct RowName {
    template <typename Info>
    std::string operator()(const Info& info) const {
        return info.param.name;
    }
};

// The change of a line that is not for this kind of record.
template <typename Record>
void Unchanged(Record&) {}

inline std::vector<std::string> Texts(const HeadlessMessages& messages) {
    std::vector<std::string> texts;
    for (const Message& message : messages.Recorded()) {
        texts.push_back(message.text);
    }
    return texts;
}

}  // namespace scenara::test
