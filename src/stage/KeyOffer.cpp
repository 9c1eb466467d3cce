// SPDX-License-Identifier: MIT
#include "stage/KeyOffer.h"

#include <string>

#include "base/RunTimeError.h"
#include "stage/StageModel.h"

namespace scenara {

void SayOverflow(Messages& messages, std::string_view what, std::int64_t lineNumber) {
    std::string text = "Overflow: ";
    text.append(what).append(", line ").append(std::to_string(lineNumber));
    messages.MsgBox(kMessageOverflow, std::move(text));
}

bool KeyOffer::Whole(std::string_view key, FieldTarget target) {
    return Value(key, 0, target);
}

KeyOffer::Answer KeyOffer::Ask(std::string_view key, Integer index, FieldTarget target) {
    Integer found = kFalse;
    try {
        ReadKeyValue(line_, key, target, index, kFalse, kFalse, found, messages_);
    } catch (const RunTimeError&) {
        SayOverflow(messages_, key == kBareValues ? "frame" : key, lineNumber_);
        return Answer::TooLarge;
    }
    return found != kFalse ? Answer::Stored : Answer::Absent;
}

bool KeyOffer::Value(std::string_view key, Integer index, FieldTarget target) {
    return Ask(key, index, target) == Answer::Stored;
}

void KeyOffer::List(std::string_view key, std::vector<Long>& list) {
    std::vector<Long> numbers;
    for (Integer index = 1; index <= Integer{kMaxCtrlIds}; ++index) {
        Long number = 0;
        const Answer answer = Ask(key, index, number);
        if (answer == Answer::Absent) {
            break;
        }
        if (answer == Answer::Stored) {
            numbers.push_back(number);
        }
    }
    if (!numbers.empty()) {
        list = std::move(numbers);
    }
}

}  // namespace scenara
