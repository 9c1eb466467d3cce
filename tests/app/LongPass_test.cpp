// SPDX-License-Identifier: MIT
//
// Frames that take long: the window goes on hearing of the user, and one that is to be left is.
#include "show/LongPass.h"

#include <algorithm>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::Contains;
using testing::Not;

constexpr std::int64_t kSecond = HeadlessClock::kFrequency;
constexpr const char* kHeavyTitle = "heavy <<TOO HEAVY>>";

// --- by itself ---

class Watched : public testing::Test {
protected:
    // A frame of so many elements, each of which takes so long; how many of them were drawn.
    int Frame(int elements, std::int64_t each) {
        clock.SetCountsPerLook(0);
        watch.Begin();
        clock.SetCountsPerLook(each);
        int drawn = 0;
        for (int i = 0; i < elements; ++i) {
            drawn += watch.GoesOn() ? 1 : 0;
        }
        return drawn;
    }

    HeadlessClock clock;
    int looks = 0;
    int leaveAt = 0;  // the look at which the user leaves
    HeadlessWindow window;
    int told = 0;
    LongPass watch{clock, window, [this] { ++told; }};

    void SetUp() override {
        window.SetDuringPass([this](HeadlessWindow& its) {
            if (++looks == leaveAt) {
                its.SetLeavingWaits();
            }
        });
    }
};

TEST_F(Watched, AFrameWithinATenthOfASecondTakesNothingIn) {
    EXPECT_EQ(Frame(99, kSecond / 1000), 99);
    EXPECT_EQ(looks, 0);
    EXPECT_FALSE(watch.TooHeavy());
}

TEST_F(Watched, ALongFrameTakesEventsInEveryTenthOfASecond) {
    EXPECT_EQ(Frame(450, kSecond / 1000), 450);
    EXPECT_EQ(looks, 4);
    EXPECT_FALSE(watch.GivenUp());
}

TEST_F(Watched, AWishToLeaveEndsTheFrameAtTheNextElement) {
    leaveAt = 2;
    EXPECT_EQ(Frame(1000, kSecond / 1000), 199);
    EXPECT_TRUE(watch.GivenUp());
    window.DoEvents();
    EXPECT_EQ(Frame(50, kSecond / 1000), 50) << "the next frame is whole again";
    EXPECT_FALSE(watch.GivenUp());
}

TEST_F(Watched, TheEndOfTheProgramEndsTheFrame) {
    window.RequestEnd();
    EXPECT_EQ(Frame(1000, kSecond / 1000), 99);
}

TEST_F(Watched, OneLongFrameAloneDoesNotMakeTheStageHeavy) {
    Frame(300, kSecond / 1000);
    EXPECT_FALSE(watch.TooHeavy());
    Frame(10, kSecond / 1000);
    Frame(300, kSecond / 1000);
    EXPECT_FALSE(watch.TooHeavy());
    Frame(300, kSecond / 1000);
    EXPECT_TRUE(watch.TooHeavy()) << "the second in a row";
    EXPECT_EQ(told, 1);
}

TEST_F(Watched, HalfASecondIsTooHeavyAtOnce) {
    Frame(499, kSecond / 1000);
    EXPECT_FALSE(watch.TooHeavy());
    watch.Forget();
    Frame(501, kSecond / 1000);
    EXPECT_TRUE(watch.TooHeavy());
    Frame(501, kSecond / 1000);
    EXPECT_EQ(told, 1) << "it is told once";
}

TEST_F(Watched, AFrameThatIsOneLongElementIsLongToo) {
    const auto frame = [this](std::int64_t itTakes) {
        clock.SetCountsPerLook(0);
        watch.Begin();
        EXPECT_TRUE(watch.GoesOn());
        clock.SetCountsPerLook(itTakes);
        watch.End();
    };
    frame(kSecond / 3);
    EXPECT_FALSE(watch.TooHeavy());
    frame(kSecond / 3);
    EXPECT_TRUE(watch.TooHeavy());
    watch.Forget();
    frame(kSecond);
    EXPECT_TRUE(watch.TooHeavy());
    EXPECT_FALSE(watch.GivenUp());
    EXPECT_EQ(looks, 0) << "it is drawn: nothing is left to be ended";
}

TEST_F(Watched, ASecondWithoutALongFrameMakesItLight) {
    Frame(600, kSecond / 1000);
    EXPECT_FALSE(watch.BecameLight()) << "the long frame was in this second";
    Frame(10, kSecond / 1000);
    EXPECT_TRUE(watch.BecameLight());
    EXPECT_FALSE(watch.TooHeavy());
    EXPECT_FALSE(watch.BecameLight());
}

TEST_F(Watched, AnotherStageBeginsLight) {
    Frame(600, kSecond / 1000);
    watch.Forget();
    EXPECT_FALSE(watch.TooHeavy());
    Frame(300, kSecond / 1000);
    EXPECT_FALSE(watch.TooHeavy());
}

TEST(LongPass, WithoutACounterNothingIsTakenIn) {
    class NoCounter : public Clock {
    public:
        Long GetTickCount() override { return 1; }
        std::int64_t QueryPerformanceCounter() override { return ++looked_; }
        std::int64_t QueryPerformanceFrequency() override { return 0; }

    private:
        std::int64_t looked_ = 0;
    } clock;
    HeadlessWindow window;
    LongPass watch(clock, window, [] { FAIL(); });
    watch.Begin();
    window.RequestEnd();
    EXPECT_TRUE(watch.GoesOn());
}

// --- in the program ---

constexpr int kElements = 50;

// Elements that drift, so that it shows whether they were moved on.
void PutHeavy(RunningStage& stage) {
    std::string text = RunningStage::Stage("heavy");
    for (int i = 1; i < kElements; ++i) {
        text += "[BG more]\ntype = normal\nspriteno = 0,0\nstart = 0,0\nvelocity = 1\n";
    }
    stage.files.Put("/mugen/stages/heavy.def", text);
}

// From the first frame on every element takes a fiftieth of a second: a whole frame takes one.
struct HeavyStage {
    // What the user does at one of the looks into the frame, which are counted from 1, and when
    // messages are let through after it.
    Act during = {};
    Act after = {};
    int actAt = 3;
    bool additions = true;

    std::vector<double> drifted;  // of each element, when the frame had ended
    std::vector<std::string> captions;
    int shown = 0;
    int looks = 0;

    void Run() {
        RunningStage stage(
            InTurn({[](RunningStage& its) { its.clock.SetCountsPerLook(kSecond / kElements); },
                    [this](RunningStage& its) {
                        its.clock.SetCountsPerLook(0);
                        captions = its.window.Captions();
                        shown = its.sink.shown;
                        for (const BackgroundElement& element : its.model.Elements) {
                            drifted.push_back(element.motion[0]);
                        }
                        if (after) {
                            after(its);
                        }
                    }}),
            additions);
        PutHeavy(stage);
        stage.window.SetDuringPass([&](HeadlessWindow&) {
            if (++looks == actAt && during) {
                during(stage);
            }
        });
        stage.Open("/mugen/stages/heavy.def");
    }
};

TEST(HeavyStages, AreNamedInTheCaptionWhileTheFrameStillIsDrawn) {
    HeavyStage heavy;
    heavy.actAt = 6;
    bool named = false;
    heavy.during = [&](RunningStage& stage) { named = stage.Caption() == kHeavyTitle; };
    heavy.Run();
    EXPECT_GE(heavy.looks, 6);
    EXPECT_TRUE(named);
}

TEST(HeavyStages, KeepTheirTitleInPlainMode) {
    HeavyStage heavy;
    heavy.additions = false;
    heavy.Run();
    EXPECT_GE(heavy.looks, 6) << "events are taken in all the same";
    EXPECT_THAT(heavy.captions, Not(Contains(kHeavyTitle)));
}

TEST(HeavyStages, AFrameThatIsGivenUpIsNotShownAndMovesOn) {
    HeavyStage whole;
    whole.Run();
    HeavyStage left;
    left.during = [](RunningStage& stage) { stage.window.SetLeavingWaits(); };
    left.Run();
    EXPECT_EQ(left.looks, 3) << "nothing more is looked at";
    EXPECT_EQ(left.shown, whole.shown - 1);
    EXPECT_EQ(left.drifted, whole.drifted) << "elements are where a whole frame takes them";
}

TEST(HeavyStages, AreLightAgainWhenTheirFramesAre) {
    std::string caption;
    HeavyStage heavy;
    RunningStage stage(
        InTurn({[](RunningStage& its) { its.clock.SetCountsPerLook(kSecond / kElements); },
                [&](RunningStage& its) {
                    caption = its.Caption();
                    its.clock.SetCountsPerLook(0);
                },
                [](RunningStage& its) { its.clock.Advance(61); },
                [](RunningStage& its) { its.clock.Advance(61); }, Wait}));
    PutHeavy(stage);
    stage.Open("/mugen/stages/heavy.def");
    EXPECT_EQ(caption, kHeavyTitle);
    EXPECT_EQ(stage.Caption(), "heavy");
}

TEST(HeavyStages, WhilePausedTheCaptionSaysThat) {
    std::string caption;
    HeavyStage heavy;
    heavy.after = [&](RunningStage& stage) {
        stage.Click(Menu::mnuPause);
        caption = stage.Caption();
        stage.Click(Menu::mnuPause);
    };
    heavy.Run();
    EXPECT_EQ(caption, "heavy <<PAUSED>>");
}

TEST(HeavyStages, AFrameThatWasGivenUpIsShownWholeThoughTheStageIsPausedByThen) {
    int shown = 0;
    HeavyStage heavy;
    heavy.during = [](RunningStage& stage) { stage.window.SetLeavingWaits(); };
    heavy.after = [&](RunningStage& stage) {
        stage.Click(Menu::mnuPause);
        stage.user = InTurn({[&](RunningStage& its) { shown = its.sink.shown; }});
    };
    heavy.Run();
    EXPECT_GT(shown, heavy.shown);
}

TEST(HeavyStages, AnotherStageHasItsOwnTitle) {
    std::vector<std::string> captions;
    HeavyStage heavy;
    heavy.after = [&](RunningStage& stage) {
        EXPECT_EQ(stage.Caption(), kHeavyTitle);
        stage.user = InTurn({[&](RunningStage& its) { captions = its.window.Captions(); }});
        stage.program.Form_OLEDragDrop({"/mugen/stages/a.def"});
    };
    heavy.Run();
    ASSERT_FALSE(captions.empty());
    EXPECT_EQ(captions.back(), "first");
}

}  // namespace
}  // namespace scenara::test
