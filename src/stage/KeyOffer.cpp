// SPDX-License-Identifier: MIT
#include "stage/KeyOffer.h"

#include <algorithm>
#include <string>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "stage/StageModel.h"

namespace scenara {

bool KeyOffer::Whole(std::string_view key, FieldTarget target) {
    return Value(key, 0, target);
}

bool KeyOffer::Value(std::string_view key, Integer index, FieldTarget target) {
    Integer found = kFalse;
    tooLarge_ = false;
    if (Additions() && !(MayStandHere(key) && CountsHere(key) && HasValue(key, index, target))) {
        return false;
    }
    try {
        ReadKeyValue(line_, key, target, index, kFalse, kFalse, found, messages_);
    } catch (const RunTimeError&) {
        tooLarge_ = true;
        messages_.SayOverflow(kMessageOverflow, key == kBareValues ? "frame" : key, PlaceOf(key));
    }
    if (found != kFalse && given_ != nullptr && key != kBareValues) {
        given_->Add(lineNumber_, key);
    }
    return found != kFalse;
}

// A frame's values have no key: they are the whole line.
MessagePlace KeyOffer::PlaceOf(std::string_view key) const {
    const auto* const at = std::search(asWritten_.begin(), asWritten_.end(), key.begin(), key.end(),
                                       [](char a, char b) { return LowerCase(a) == LowerCase(b); });
    const bool found = key != kBareValues && at != asWritten_.end();
    return {lineNumber_, found ? at - asWritten_.begin() + 1 : 0};
}

bool KeyOffer::Text(std::string_view key, std::string& target) {
    if (!Whole(key, target)) {
        return false;
    }
    if (Additions()) {
        const std::string_view line = line_.Text();
        target = Trim(line.substr(line.find('=') + 1));
    }
    return true;
}

// Addition: only blanks before the key, in whatever case it is written. So "p2StartX" is not
// "startx".
bool KeyOffer::MayStandHere(std::string_view key) const {
    const std::string_view lower = line_.Lower();
    return key == kBareValues || lower.find_first_not_of(' ') == lower.find(key);
}

// Addition: of a key that is given twice the first line counts. Frames have none.
bool KeyOffer::CountsHere(std::string_view key) const {
    return key == kBareValues || given_ == nullptr || !given_->Before(lineNumber_, key);
}

// Addition: an empty first value is not a value. The field stays as it is, and a later line can
// still give the key. ReadKeyValue judges the values after the first comma.
bool KeyOffer::HasValue(std::string_view key, Integer index, const FieldTarget& target) const {
    if (key == kBareValues || index > 1) {
        return true;
    }
    const std::string_view line = line_.Lower();
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return true;
    }
    const std::string_view values = line.substr(equals + 1);
    const bool whole = index == 0 && target.IsText();
    return !Trim(whole ? values : values.substr(0, values.find(','))).empty();
}

std::string KeyOffer::BareValue(Integer index) const {
    std::string_view rest = line_.Lower();
    for (Integer skipped = 1; skipped < index && !rest.empty(); ++skipped) {
        rest.remove_prefix(std::min(rest.find(','), rest.size() - 1) + 1);
    }
    std::string value(rest.substr(0, rest.find(',')));
    std::erase(value, ' ');
    return value;
}

void KeyOffer::List(std::string_view key, std::vector<Long>& list) {
    std::vector<Long> numbers;
    std::string text;
    for (Integer index = 1; index <= static_cast<Integer>(kMaxCtrlIds); ++index) {
        text.clear();
        if (!Value(key, index, text) && index > 1) {
            break;
        }
        Long number = 0;
        if (!text.empty() && Value(key, index, number)) {
            numbers.push_back(number);
        }
    }
    if (!numbers.empty()) {
        list = std::move(numbers);
    }
}

std::string Unquoted(std::string_view text) {
    const bool isQuoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
    return std::string(isQuoted ? text.substr(1, text.size() - 2) : text);
}

}  // namespace scenara
