// SPDX-License-Identifier: MIT
#include "app/SettingsKeeper.h"

#include <limits>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Asked every 100 ms, from `start` on; what is due is written. The times of the writings.
class Keeper : public testing::Test {
protected:
    Keeper() { keeper.Hold("old"); }

    std::vector<int> Writings(const std::vector<std::string>& texts, Long start = 5000) {
        std::vector<int> times;
        int time = 0;
        for (const std::string& text : texts) {
            const auto now = static_cast<Long>(static_cast<std::uint32_t>(start) +
                                               static_cast<std::uint32_t>(time));
            if (keeper.IsDue(text, now)) {
                times.push_back(time);
                keeper.Hold(text);
            }
            time += 100;
        }
        return times;
    }
    // Another one each time.
    static std::vector<std::string> Drag(int count) {
        std::vector<std::string> texts(static_cast<std::size_t>(count));
        for (std::size_t i = 0; i < texts.size(); ++i) {
            texts[i] = "width " + std::to_string(i);
        }
        return texts;
    }
    static std::vector<std::string> Times(int count, const std::string& text) {
        const std::vector<std::string> texts(static_cast<std::size_t>(count), text);
        return texts;
    }

    SettingsKeeper keeper;
};

TEST_F(Keeper, WritesNothingThatIsInTheFile) {
    EXPECT_THAT(Writings(Times(100, "old")), IsEmpty());
    EXPECT_FALSE(keeper.IsNew("old"));
    EXPECT_FALSE(keeper.Waits());
}

TEST_F(Keeper, WritesAChangeOnceASecondLater) {
    EXPECT_THAT(Writings(Times(100, "new")), ElementsAre(1000));
    EXPECT_FALSE(keeper.Waits());
}

TEST_F(Keeper, TellsThatAChangeWaits) {
    EXPECT_TRUE(keeper.IsNew("new"));
    EXPECT_THAT(Writings({"new"}), IsEmpty());
    EXPECT_TRUE(keeper.Waits());
}

TEST_F(Keeper, AChangeTakenBackIsNone) {
    std::vector<std::string> texts = Times(5, "new");
    texts.resize(100, "old");
    EXPECT_THAT(Writings(texts), IsEmpty());
    EXPECT_FALSE(keeper.Waits());
    // And the next one has a second of its own.
    EXPECT_THAT(Writings(Times(20, "new")), ElementsAre(1000));
}

TEST_F(Keeper, ADragIsWrittenAtItsEnd) {
    std::vector<std::string> texts = Drag(30);
    texts.resize(100, "width 29");
    EXPECT_THAT(Writings(texts), ElementsAre(2900 + 1000));
}

TEST_F(Keeper, ChangesWithoutEndAreWrittenEveryFiveSeconds) {
    EXPECT_THAT(Writings(Drag(200)), ElementsAre(5000, 10'100, 15'200));
}

TEST_F(Keeper, CountsOnWhereTheTicksBeginAnew) {
    EXPECT_THAT(Writings(Times(100, "new"), std::numeric_limits<Long>::max() - 300),
                ElementsAre(1000));
}

TEST_F(Keeper, NothingHeldIsNewWhateverItIs) {
    SettingsKeeper fresh;
    EXPECT_TRUE(fresh.IsNew("text"));
}

}  // namespace
}  // namespace scenara::test
