// SPDX-License-Identifier: MIT
//
// ConfigurationLine: one line of QX.CFG, offered to the settings one by one, and the form in which
// a path stands on it.
//
// ReadKeyValue decides whether a key stands on the line. Four settings are paths and names of the
// user's, which may hold anything: ";", "=", digits before blanks, even the key of another setting
// or their own. They are everything behind their "=", blanks at both ends left out. So, on a line
// that begins with one of their keys, no key is looked for behind the "=".
//
// A line break, and a blank at either end, would not come back from such a line. They are written
// as a zero byte, which no path holds, and a letter.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Integers.h"
#include "platform/Messages.h"
#include "stage/ReadKeyValue.h"

namespace scenara {

// A path or a name as the value of a line, at the end of `line`; and back.
void AppendLineValue(std::string_view text, std::string& line);
[[nodiscard]] std::string FromLineValue(std::string_view value);

class ConfigurationLine {
public:
    // The text outlives this. `number`, from 1, is for messages.
    ConfigurationLine(std::string_view text, std::int64_t number, Messages& messages);

    // Each: whether the key (lower case) is on this line and `target` has received its value.

    // A path or a name.
    bool Path(std::string_view key, std::string& target);

    // The value in lower case.
    bool Word(std::string_view key, std::string& target);

    // A number that does not fit leaves the target as it was, and is said.
    bool Number(std::string_view key, Single& target);

private:
    [[nodiscard]] bool InPath(std::string_view key) const;

    std::string_view text_;
    std::int64_t number_;
    Messages& messages_;
    KeyLine whole_;
    KeyLine head_;  // of a path's line: up to its "="; else the whole line
    bool isPath_ = false;
};

}  // namespace scenara
