// SPDX-License-Identifier: MIT
//
// BothReadings: one definition, loaded with additions and plainly.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "PlainMachine.h"
#include "support/StageFixture.h"

namespace scenara::test {

class BothReadings {
public:
    explicit BothReadings(std::string_view definition) {
        EXPECT_TRUE(with_.Load(definition));
        EXPECT_TRUE(plain_.Load(definition));
    }

    [[nodiscard]] const StageModel& With() const { return with_.model; }
    [[nodiscard]] const StageModel& Plain() const { return plain_.model; }
    [[nodiscard]] const BackgroundElement& WithElement() const { return With().Elements.at(0); }
    [[nodiscard]] const BackgroundElement& PlainElement() const { return Plain().Elements.at(0); }
    [[nodiscard]] const StageFrame& WithFrame() const { return FrameOf(With()); }
    [[nodiscard]] const StageFrame& PlainFrame() const { return FrameOf(Plain()); }

    [[nodiscard]] const std::string& WithMusic() const { return with_.music; }
    [[nodiscard]] const std::string& PlainMusic() const { return plain_.music; }

    // Without the one that an archive is missing.
    [[nodiscard]] std::vector<std::string> WithTexts() const { return with_.OtherMessageTexts(); }
    [[nodiscard]] std::vector<std::string> PlainTexts() const { return plain_.OtherMessageTexts(); }

private:
    static const StageFrame& FrameOf(const StageModel& model) {
        return model.Actions.at(0).frames.at(0);
    }

    StageMachine with_;
    PlainMachine plain_;
};

}  // namespace scenara::test
