// SPDX-License-Identifier: MIT
#include "character/CharacterAnimation.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "base/NumberText.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "character/CharacterMessages.h"
#include "character/CharacterText.h"
#include "platform/LineReader.h"

namespace scenara {
namespace {

constexpr std::string_view kBeginAction = "begin action";
constexpr Integer kNoGroup = -1;
constexpr std::size_t kMaxFrames = std::numeric_limits<Integer>::max();

// The text up to the next comma; `rest` goes on behind it.
std::string_view NextField(std::string_view& rest) {
    const std::size_t comma = rest.find(',');
    const std::string_view field = rest.substr(0, comma);
    rest = comma == std::string_view::npos ? std::string_view() : rest.substr(comma + 1);
    return TrimBlanks(field);
}

bool IsNegativeGroup(std::string_view line) {
    return line.size() > 1 && line[0] == '-' && IsDigit(line[1]) &&
           LeadingNumber(line.substr(0, line.find(','))) < 0;
}

class CharacterAnimationReader {
public:
    CharacterAnimationReader(Messages& messages, const ViewOptions& options)
        : messages_(messages), options_(options) {}

    // Fails at a frame with a negative group number in an action that is kept, where such a frame
    // is not read as a blank one.
    [[nodiscard]] bool ReadLine(std::string_view untrimmed, std::int64_t number) {
        number_ = number;
        line_.Assign(untrimmed);
        if (line_.SaysNothing()) {
            return true;
        }
        if (const auto at = line_.Before(kBeginAction)) {
            BeginAction(*at);
        } else if (action_ == nullptr) {
            return true;
        } else if (line_.Before("loopstart")) {
            action_->LoopStart = static_cast<Integer>(action_->frames.size());
        } else if (IsDigit(line_.Text().front())) {
            ReadFrame(false);
        } else if (IsNegativeGroup(line_.WithoutComment())) {
            if (!options_.Additions) {
                return false;
            }
            ReadFrame(true);
        }
        return true;
    }

    [[nodiscard]] std::array<CharAction, kKeptActions.size()>& Actions() { return actions_; }

private:
    void BeginAction(std::size_t at) {
        const std::string_view behind = line_.Text().substr(at + kBeginAction.size());
        const std::string_view text = TrimBlanks(behind.substr(0, behind.find(']')));
        const double number = LeadingNumber(text);
        const auto* const kept = std::find_if(kKeptActions.begin(), kKeptActions.end(),
                                              [&](Long action) { return action == number; });
        action_ = nullptr;
        if (kept == kKeptActions.end()) {
            return;
        }
        const auto slot = static_cast<std::size_t>(kept - kKeptActions.begin());
        if (options_.Additions) {
            // A header without a number, which reads as 0, must not take the place of the real one.
            if (begun_.at(slot) || !BeginsWithNumber(text)) {
                return;
            }
            begun_.at(slot) = true;
        }
        action_ = &actions_.at(slot);
        action_->actionNo = *kept;
    }

    void ReadFrame(bool hasNoGroup) {
        if (action_->frames.size() >= kMaxFrames) {
            if (!std::exchange(saidFull_, true)) {
                messages_.SayOverflow(kMessageCharacterOverflow, "frames of an action", {number_});
            }
            return;
        }
        std::string_view rest = line_.WithoutComment();
        CharFrame frame;
        frame.group = Field(NextField(rest), "group");
        if (hasNoGroup) {
            frame.group = std::min(frame.group, kNoGroup);  // -0.4 is below 0, too
        }
        frame.image = Field(NextField(rest), "image");
        frame.offsetX = Field(NextField(rest), "x");
        frame.offsetY = Field(NextField(rest), "y");
        frame.time = Field(NextField(rest), "time");
        frame.flip = rest.find_first_of("Hh") == std::string_view::npos ? Integer{0} : Integer{1};
        action_->frames.push_back(frame);
    }

    [[nodiscard]] Integer Field(std::string_view text, std::string_view what) {
        try {
            return ToInteger(LeadingNumber(text));
        } catch (const RunTimeError&) {
            messages_.SayOverflow(kMessageCharacterOverflow, what, {number_});
            return 0;
        }
    }

    Messages& messages_;
    const ViewOptions& options_;
    std::array<CharAction, kKeptActions.size()> actions_;
    std::array<bool, kKeptActions.size()> begun_{};  // with additions
    CharAction* action_ = nullptr;  // the block that is read; none: one that is not kept
    CharacterLine line_;
    std::int64_t number_ = 0;
    bool saidFull_ = false;
};

}  // namespace

std::int64_t ReadCharacterAnimation(InputFile& file,
                                    std::array<CharAction, kKeptActions.size()>& actions,
                                    Messages& messages, const ViewOptions& options) {
    CharacterAnimationReader reader(messages, options);
    LineReader lines(file);
    while (lines.Next()) {
        if (!reader.ReadLine(lines.Line(), lines.Number())) {
            return lines.Number();
        }
    }
    actions = std::move(reader.Actions());
    return 0;
}

}  // namespace scenara
