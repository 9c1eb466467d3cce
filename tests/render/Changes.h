// SPDX-License-Identifier: MIT
//
// Changes: what has become of a record, field by field: "posX=5, sinOffset=0 8", or "" when it is
// as it was.
#pragma once

#include <string>

#include "stage/ModelText.h"

namespace scenara::test {

template <typename Record>
std::string Changes(const Record& before, const Record& after) {
    std::string was = FieldsText(before);
    std::string is = FieldsText(after);
    std::string changes;
    while (!is.empty()) {
        const std::string line = is.substr(0, is.find('\n'));
        if (line != was.substr(0, was.find('\n'))) {
            changes.append(changes.empty() ? "" : ", ")
                .append(line, 0, line.find_last_not_of(' ') + 1);
        }
        was.erase(0, was.find('\n') + 1);
        is.erase(0, is.find('\n') + 1);
    }
    return changes;
}

}  // namespace scenara::test
