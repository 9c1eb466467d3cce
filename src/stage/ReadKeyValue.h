// SPDX-License-Identifier: MIT
//
// ReadKeyValue: the one reader of "key = value, value, ..." lines, shared by stage definitions and
// the configuration file, and of bare "value, value, ..." lines through the key "!@!".
//
// Syntax. Only blanks stand before a key; "=" or a blank stands right behind it. ";" starts a
// comment. Keys match without regard to case. Values are counted by commas, from 1; value 0 is the
// whole text behind "=", cut at its first blank when a digit stands before that ("5 10" is "5",
// "my stage" stays whole). The last of several values counts as absent when it is empty or a lone
// "."; one between commas is what stands there, even nothing.
//
// The caller offers every line to the reader once per key; most calls end at the first look. So the
// lower-cased form of a line is made once, by KeyLine, for all of them.
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "base/Integers.h"
#include "platform/Messages.h"

namespace scenara {

// The key that reads a line of bare values.
inline constexpr std::string_view kBareValues = "!@!";

inline constexpr MessageKind kMessagePosZero{"cut-line", Severity::Warning};
inline constexpr MessageKind kMessageDoomFix{"flip-for-time", Severity::Warning};

// A line and its lower-cased form. The text outlives it.
class KeyLine {
public:
    KeyLine(std::string_view line);  // NOLINT(google-explicit-constructor): a line is a text
    KeyLine(const char* line) : KeyLine(std::string_view(line)) {}  // NOLINT: the same

    // Takes another line into the same memory.
    void Assign(std::string_view line);

    [[nodiscard]] std::string_view Text() const { return text_; }
    [[nodiscard]] std::string_view Lower() const { return lower_; }

private:
    std::string_view text_;
    std::string lower_;
};

// The field that receives a value, with the ordinary conversion of its type: whole numbers by
// lenient reading and ties-to-even rounding, texts as they are. Storing a number that does not fit
// raises RunTimeError "Overflow" and leaves the field as it was.
class FieldTarget {
public:
    // A field is handed over as itself.
    FieldTarget(Integer& field) : field_(&field) {}      // NOLINT(google-explicit-constructor)
    FieldTarget(Long& field) : field_(&field) {}         // NOLINT(google-explicit-constructor)
    FieldTarget(Single& field) : field_(&field) {}       // NOLINT(google-explicit-constructor)
    FieldTarget(std::string& field) : field_(&field) {}  // NOLINT(google-explicit-constructor)

    [[nodiscard]] bool IsText() const { return std::holds_alternative<std::string*>(field_); }
    void Store(std::string_view text) const;
    void Store(double number) const;

private:
    std::variant<Integer*, Long*, Single*, std::string*> field_;
};

// Looks for `key` (in lower case) on `line` and stores its value number `valueIndex` into `target`.
//
//   valueIndex   in/out: becomes 0 when it was 1 and the line holds no comma
//   keepCase     kFalse: the value is taken from the lower-cased line
//   numericOnly  kTrue: characters at the end of the value that are no digits are dropped first
//   found        kTrue when `target` received the value, else kFalse with `target` unchanged
//
// Kept: keepCase and numericOnly, which every caller leaves off
// (ReadKeyValue.KeepCaseKeepsTheCase).
// Deliberate: a bare line whose last value is the fifth and reads "h" has left its time out. It
// stores 0 there, says "DOOM FIX" and reports not found
// (ReadKeyValue.DoomFixStoresZeroWhenFifthValueIsH).
// Deliberate: a key that stands on the line only in another letter case may have anything before it
// (ReadKeyValue.KeyInOtherCaseMayFollowAnything).
void ReadKeyValue(const KeyLine& line, std::string_view key, FieldTarget target,
                  Integer& valueIndex, Integer keepCase, Integer numericOnly, Integer& found,
                  Messages& messages);

}  // namespace scenara
