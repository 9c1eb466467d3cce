// SPDX-License-Identifier: MIT
//
// KeyReading: one call of ReadKeyValue with all that comes back, for tests.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/headless/HeadlessMessages.h"
#include "stage/ReadKeyValue.h"

namespace scenara::test {

struct ReadingOptions {
    Integer keepCase = kFalse;
    Integer numericOnly = kFalse;
};

template <typename Field>
struct Reading {
    Field value{};
    Integer found = 99;  // the reader is to write it in every case
    Integer valueIndex = 0;
    std::vector<std::string> messages;
};

using TextReading = Reading<std::string>;

// What texts hold before the call.
inline const std::string kBefore = "(before)";

template <typename Field>
void ReadInto(Reading<Field>& read, std::string_view line, std::string_view key, Integer valueIndex,
              const Field& before, const ReadingOptions& options = {}) {
    HeadlessMessages messages(
        [&read](const Message& message) { read.messages.push_back(message.text); });
    read.value = before;
    read.valueIndex = valueIndex;
    ReadKeyValue(line, key, read.value, read.valueIndex, options.keepCase, options.numericOnly,
                 read.found, messages);
}

template <typename Field>
Reading<Field> Read(std::string_view line, std::string_view key, Integer valueIndex,
                    const Field& before, const ReadingOptions& options = {}) {
    Reading<Field> read;
    ReadInto(read, line, key, valueIndex, before, options);
    return read;
}

inline TextReading ReadText(std::string_view line, std::string_view key, Integer valueIndex,
                            const ReadingOptions& options = {}) {
    return Read<std::string>(line, key, valueIndex, kBefore, options);
}

// The value as text or number, or these when the line gives none.
inline const std::string kAbsent = "(absent)";
inline constexpr Single kNoNumber = -98765.0F;

inline std::string TextOf(std::string_view line, std::string_view key, Integer valueIndex = 0,
                          const ReadingOptions& options = {}) {
    const TextReading read = ReadText(line, key, valueIndex, options);
    if (read.found == kTrue) {
        return read.value;
    }
    return read.value == kBefore ? kAbsent : "changed to " + read.value;
}

inline Single NumberOf(std::string_view line, std::string_view key, Integer valueIndex) {
    const Reading<Single> read = Read<Single>(line, key, valueIndex, kNoNumber);
    return read.value;
}

}  // namespace scenara::test
