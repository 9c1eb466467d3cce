// SPDX-License-Identifier: MIT
//
// KeyOffer: one line of a stage definition, offered to the keys of its section one by one.
//
// Each call asks ReadKeyValue for one key and stores what the line gives it. A value that does not
// fit its field leaves the field as it was and is reported ("Overflow: delta, line 12"); it never
// ends a load.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Messages.h"
#include "stage/GivenKeys.h"
#include "stage/ReadKeyValue.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr MessageKind kMessageOverflow{"overflow", Severity::Warning};

class KeyOffer {
public:
    // `asWritten` is the line as it stands in the file, for messages. All of it outlives the offer.
    // Addition: keys that `given` has from lines before have no value here, and those that have one
    // come to it.
    KeyOffer(const KeyLine& line, std::string_view asWritten, std::int64_t lineNumber,
             Messages& messages, const ViewOptions& options, GivenKeys* given = nullptr)
        : line_(line),
          asWritten_(asWritten),
          lineNumber_(lineNumber),
          messages_(messages),
          options_(options),
          given_(given) {}

    // The whole value. True when the line gives the key one.
    bool Whole(std::string_view key, FieldTarget target);

    // Values 1, 2, ... into the targets, in order; bit n of the result is set when value n + 1 was
    // given.
    template <typename... Targets>
    unsigned Values(std::string_view key, Targets&... targets) {
        unsigned given = 0;
        Integer index = 0;
        ((given |= Value(key, ++index, targets) ? 1U << static_cast<unsigned>(index - 1) : 0U),
         ...);
        return given;
    }

    // Value number `index` alone.
    bool Value(std::string_view key, Integer index, FieldTarget target);

    // A text setting: the whole value; with additions all that stands behind "=", in its own case.
    bool Text(std::string_view key, std::string& target);

    [[nodiscard]] bool Additions() const { return options_.Additions; }

    // Whether the last value asked for was there and did not fit its field.
    [[nodiscard]] bool WasTooLarge() const { return tooLarge_; }

    // Value number `index` of a line of bare values, in lower case and without any blanks; empty
    // when there are fewer.
    [[nodiscard]] std::string BareValue(Integer index) const;

    // The first kMaxCtrlIds values as a list of numbers; replaces `list` when the line gives the
    // key any. Those that do not fit are left out, and so are empty ones. But plainly an empty one
    // before the first comma is 0, as for every key.
    void List(std::string_view key, std::vector<Long>& list);

private:
    [[nodiscard]] bool MayStandHere(std::string_view key) const;
    [[nodiscard]] bool CountsHere(std::string_view key) const;
    [[nodiscard]] bool HasValue(std::string_view key, Integer index,
                                const FieldTarget& target) const;
    [[nodiscard]] MessagePlace PlaceOf(std::string_view key) const;

    const KeyLine& line_;
    std::string_view asWritten_;
    std::int64_t lineNumber_;
    Messages& messages_;
    const ViewOptions& options_;
    GivenKeys* given_;
    bool tooLarge_ = false;
};

// A text setting without the quotes around it, if it has any.
[[nodiscard]] std::string Unquoted(std::string_view text);

}  // namespace scenara
