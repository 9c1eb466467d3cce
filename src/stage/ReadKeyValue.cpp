// SPDX-License-Identifier: MIT
#include "stage/ReadKeyValue.h"

#include <algorithm>
#include <optional>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr std::size_t kNone = std::string_view::npos;

// Behind this character a line holds nothing (byte 0x81, which the code page leaves open).
constexpr char kLineStop = '\x81';

// Where the key stands on the line in exactly this case, only blanks may stand before it. `lower`
// is its first place in any case, and so at or before the exact one.
bool OnlyBlanksBefore(std::string_view text, std::string_view key, std::size_t lower) {
    const std::size_t exact = text.find(key, lower == kNone ? 0 : lower);
    return exact == kNone || std::min(text.find_first_not_of(' '), exact) == exact;
}

bool StandsAlone(std::string_view lower, std::size_t behindKey) {
    return behindKey < lower.size() && (lower[behindKey] == '=' || lower[behindKey] == ' ');
}

// The n-th value's own text, from `start` to `end`: blanks before it do not count, and a blank
// behind its first character ends it.
std::string_view OneValue(std::string_view text, std::size_t start, std::size_t end) {
    const std::string_view value = text.substr(start, end - start);
    const std::size_t first = value.find_first_not_of(' ');
    return first == kNone ? std::string_view{}
                          : value.substr(first, value.find(' ', first) - first);
}

// Where the n-th value starts, kNone when there are fewer.
std::size_t StartOfValue(std::string_view text, Integer valueIndex) {
    std::size_t start = 0;
    for (Integer skipped = 1; skipped < valueIndex; ++skipped) {
        const std::size_t comma = text.find(',', start);
        if (comma == kNone) {
            return kNone;
        }
        start = comma + 1;
    }
    return start;
}

std::string_view WithoutTrailingNonDigits(std::string_view text) {
    if (IsNumeric(text)) {
        return text;
    }
    const std::size_t last = text.find_last_of("0123456789");
    return text.substr(0, last == kNone ? 0 : last + 1);
}

std::string_view WholeValue(std::string_view text) {
    const std::string_view value = Trim(text);
    const std::size_t blank = value.find(' ');
    const bool cut = blank != kNone && IsDigit(value[blank - 1]);
    return cut ? value.substr(0, blank) : value;
}

// The part of the line that holds the values: without its comment and, for a named key, what stands
// behind "=". Nothing when the line gives the key no value.
std::optional<std::string_view> ValuesOf(std::string_view text, std::string_view key,
                                         std::size_t keyAt, Messages& messages) {
    const bool bare = key == kBareValues;
    const std::size_t comment = text.find(';');
    const bool keyCutAway = !bare && keyAt + key.size() > text.size();
    const std::size_t firstPlace = bare ? text.find(',') : keyAt;
    const bool behindComment = comment != kNone && firstPlace != kNone && comment < firstPlace;
    if (keyCutAway || behindComment) {
        messages.MsgBox(kMessagePosZero, "pos=0");
        return std::nullopt;
    }
    std::size_t searchFrom = keyAt;
    if (comment != kNone) {
        const std::size_t blanks = std::min(text.find_first_not_of(' '), comment);
        text = Trim(text.substr(0, comment));
        searchFrom -= bare ? 0 : blanks;
    }
    if (bare) {
        return text;
    }
    const std::size_t equals = text.find('=', searchFrom);
    if (equals == kNone) {
        return std::nullopt;
    }
    return text.substr(equals + 1);
}

// Value 2 and above. False when it is absent.
bool StoreLaterValue(std::string_view values, FieldTarget target, Integer valueIndex,
                     Messages& messages) {
    const std::size_t start = StartOfValue(values, valueIndex);
    if (start == kNone) {
        return false;
    }
    const std::size_t nextComma = values.find(',', start);
    const bool last = nextComma == kNone;
    const std::string_view value = OneValue(values, start, last ? values.size() : nextComma);
    if (last && valueIndex == 5 && EqualsIgnoringCase(value, "h")) {
        target.Store(0.0);
        messages.MsgBox(kMessageDoomFix, "DOOM FIX");
        return false;
    }
    if (last && (value.empty() || value == ".")) {
        return false;
    }
    target.Store(value);
    return true;
}

}  // namespace

KeyLine::KeyLine(std::string_view line) {
    Assign(line);
}

void KeyLine::Assign(std::string_view line) {
    text_ = line;
    LowerCase(line, lower_);
}

void FieldTarget::Store(std::string_view text) const {
    if (std::string* const* field = std::get_if<std::string*>(&field_)) {
        (*field)->assign(text);
    } else {
        Store(LeadingNumber(text));
    }
}

void FieldTarget::Store(double number) const {
    struct Convert {
        double number;
        void operator()(Integer* field) const { *field = ToInteger(number); }
        void operator()(Long* field) const { *field = ToLong(number); }
        void operator()(Single* field) const { *field = ToSingle(number); }
        void operator()(std::string* field) const { *field = NumberText(number); }
    };
    std::visit(Convert{number}, field_);
}

void ReadKeyValue(const KeyLine& line, std::string_view key, FieldTarget target,
                  Integer& valueIndex, Integer keepCase, Integer numericOnly, Integer& found,
                  Messages& messages) {
    found = kFalse;
    const bool bare = key == kBareValues;
    const std::size_t keyAt = line.Lower().find(key);
    if (line.Text().empty() || (keyAt == kNone && !bare) ||
        !OnlyBlanksBefore(line.Text(), key, keyAt) ||
        (!bare && !StandsAlone(line.Lower(), keyAt + key.size()))) {
        return;
    }
    std::string_view text = keepCase == kFalse ? line.Lower() : line.Text();
    text = text.substr(0, text.find(kLineStop));

    if (!Contains(text, ",")) {
        if (valueIndex >= 2) {
            return;
        }
        valueIndex = valueIndex == 1 ? Integer{0} : valueIndex;
    }
    std::optional<std::string_view> values = ValuesOf(text, key, bare ? 0 : keyAt, messages);
    if (!values || valueIndex < 0) {
        return;
    }
    if (numericOnly != kFalse) {
        values = WithoutTrailingNonDigits(*values);
    }
    if (valueIndex >= 2) {
        found = StoreLaterValue(*values, target, valueIndex, messages) ? kTrue : kFalse;
        return;
    }
    if (valueIndex == 1) {
        target.Store(LeadingNumber(Trim(values->substr(0, values->find(',')))));
    } else {
        target.Store(WholeValue(*values));
    }
    found = kTrue;
}

}  // namespace scenara
