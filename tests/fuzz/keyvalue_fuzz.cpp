// SPDX-License-Identifier: MIT
//
// Any bytes as a line, read for a key and value number that the first bytes choose.
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/RunTimeError.h"
#include "platform/headless/HeadlessMessages.h"
#include "stage/ReadKeyValue.h"
#include "support/FuzzChecks.h"

namespace {

using namespace scenara;

constexpr std::array<std::string_view, 8> kKeys = {"!@!",   "type",  "start", "id",
                                                   "sin.y", "delta", "x",     "ctrlid"};

template <typename Field>
void ReadInto(Field start, const KeyLine& line, std::string_view key, Integer index, Integer keep,
              Integer numeric) {
    HeadlessMessages messages;
    Field field = start;
    Integer valueIndex = index;
    Integer found = 99;
    try {
        ReadKeyValue(line, key, field, valueIndex, keep, numeric, found, messages);
    } catch (const RunTimeError& error) {
        test::Require(error.Kind() == RunTimeErrorKind::Overflow, "only the field can refuse");
        test::Require(field == start, "a value that does not fit changes nothing");
    }
    test::Require(found == kTrue || found == kFalse, "found is always written");
    test::Require(valueIndex == index || (index == 1 && valueIndex == 0),
                  "only value 1 becomes value 0");
    const bool doomFix =
        messages.Recorded().size() == 1 && messages.Recorded().front().kind == kMessageDoomFix;
    test::Require(found == kTrue || doomFix || field == start, "not found changes nothing");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    const std::string_view key = kKeys[data[0] % kKeys.size()];
    const auto index = static_cast<Integer>(data[1] % 8);
    const Integer keep = (data[1] & 8U) != 0 ? kTrue : kFalse;
    const Integer numeric = (data[1] & 16U) != 0 ? kTrue : kFalse;
    const std::string text(reinterpret_cast<const char*>(data) + 2, size - 2);
    const KeyLine line{std::string_view(text)};
    ReadInto<Integer>(77, line, key, index, keep, numeric);
    ReadInto<Long>(77, line, key, index, keep, numeric);
    ReadInto<Single>(77.0F, line, key, index, keep, numeric);
    ReadInto<std::string>("before", line, key, index, keep, numeric);
    return 0;
}
