// SPDX-License-Identifier: MIT
//
// How the loop waits with additions, and what it does where nobody sees the stage.
#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/RunningStage.h"

namespace scenara::test {
namespace {

using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

constexpr std::int64_t kSecond = 1'000'000'000;  // in nanoseconds

void Hide(RunningStage& stage) {
    stage.window.SetSeen(false);
}

// A drifting stage in a window that is quiet: no message waits but those of the test.
class QuietLoop : public Program {
protected:
    explicit QuietLoop(bool additions = true) : Program(additions) {
        std::string stage = kStage;
        files.Put(kStageA, stage.replace(stage.find("tile = 1,1"), 10, "velocity = 1"));
        show.Which.CurrentStageFile = kStageA;
    }

    // Does `first` when the stage is shown, and lets it sleep so often; then `then`, and ends. Each
    // is done in a look for messages, which takes a frame of the clock.
    void Sleep(std::size_t times, const Act& first, const Act& then = Wait) {
        const auto acts = std::make_shared<RunningStage::User>(LeafingInTurn({first, then}));
        user = [this, acts](RunningStage& stage, int turns) {
            (*acts)(stage, turns);
            window.SetMessageWaiting(loop.LoadingStage != 0 || program.QuitRequested != kFalse ||
                                     woken_);
            before_ = window.Sleeps().size();
        };
        window.SetAtWaking([this, times](HeadlessWindow& its) {
            woken_ = its.Sleeps().size() >= before_ + times;
            its.SetMessageWaiting(woken_);
        });
        program.RunStage();
    }
    static Act Limit(Integer limit) {
        return [limit](RunningStage& stage) { stage.loop.FpsLimit = limit; };
    }
    static Act Seen(bool seen) {
        return [seen](RunningStage& stage) { stage.window.SetSeen(seen); };
    }

private:
    std::size_t before_ = 0;
    bool woken_ = false;
};

struct PlainQuietLoop : QuietLoop {
    PlainQuietLoop() : QuietLoop(false) {}
};

// --- Sleeping
// -------------------------------------------------------------------------------------

struct Quiet {
    const char* name;
    Act act;
    Integer limit;
    std::int64_t sleep;  // each, in nanoseconds
};

void PrintTo(const Quiet& row, std::ostream* out) {
    *out << row.name;
}

class OfStates : public QuietLoop, public testing::WithParamInterface<Quiet> {};

constexpr std::int64_t kSixtieth = kSecond / 60;

TEST_P(OfStates, SleepAsLongAsTheyMay) {
    Sleep(10, All({Limit(GetParam().limit), GetParam().act}));
    ASSERT_THAT(window.Sleeps(), SizeIs(10));
    const std::vector<std::int64_t> later(window.Sleeps().begin() + 1, window.Sleeps().end());
    EXPECT_THAT(later, Each(GetParam().sleep));
}

INSTANTIATE_TEST_SUITE_P(
    Of, OfStates,
    testing::Values(Quiet{"Running", Wait, 60, kSixtieth}, Quiet{"Running1", Wait, 1, kSecond},
                    Quiet{"Running1000", Wait, 1000, kSecond / 1000},
                    Quiet{"Paused", Choose(Menu::mnuPause), 60, kSixtieth},
                    Quiet{"Paused0", Choose(Menu::mnuPause), 0, kSixtieth},
                    Quiet{"Paused1", Choose(Menu::mnuPause), 1, kSixtieth},
                    Quiet{"Paused1000", Choose(Menu::mnuPause), 1000, kSixtieth},
                    Quiet{"Browsing0", Choose(Menu::mnuDebug), 0, kSixtieth},
                    Quiet{"Unseen", Hide, 60, kSixtieth}, Quiet{"Unseen0", Hide, 0, kSixtieth},
                    Quiet{"Unseen30", Hide, 30, kSecond / 30},
                    Quiet{"Unseen1000", Hide, 1000, kSixtieth}),
    testing::PrintToStringParamName());

TEST_F(QuietLoop, WithoutALimitAStageThatIsSeenNeverSleeps) {
    loop.FpsLimit = 0;
    user = QuitAt(100);
    program.RunStage();
    EXPECT_THAT(window.Sleeps(), IsEmpty());
}

TEST_F(PlainQuietLoop, NeverSleeps) {
    user = InTurn({Seen(false), Choose(Menu::mnuPause), Wait, Wait, Choose(Menu::mnuPause), Wait});
    program.RunStage();
    EXPECT_THAT(window.Sleeps(), IsEmpty());
}

// --- At one frame a second
// ------------------------------------------------------------------------

struct Answer {
    const char* name;
    Act act;
    std::function<bool(RunningStage&)> answered;
};

void PrintTo(const Answer& row, std::ostream* out) {
    *out << row.name;
}

class OfUsers : public QuietLoop, public testing::WithParamInterface<Answer> {};

TEST_P(OfUsers, AreAnsweredBeforeTheNextFrame) {
    std::int64_t frames = 0;
    bool answered = false;
    loop.FpsLimit = 1;
    const Act look = [&](RunningStage& stage) { answered = GetParam().answered(stage); };
    const auto acts = std::make_shared<RunningStage::User>(
        InTurn({All({[&] { frames = loop.TotalFrames; }, GetParam().act}), look}));
    user = [acts](RunningStage& stage, int turns) { (*acts)(stage, turns); };
    program.RunStage();
    EXPECT_TRUE(answered);
    EXPECT_THAT(window.Sleeps(), IsEmpty()) << "a message waits at each look";
    EXPECT_LE(loop.TotalFrames, frames + 1);
}

INSTANTIATE_TEST_SUITE_P(
    Of, OfUsers,
    testing::Values(Answer{"PauseKey", Tap(VirtualKey::Pause),
                           [](RunningStage& stage) { return stage.loop.Paused != 0; }},
                    Answer{"Another", [](RunningStage& stage) { stage.Open(kStageB); },
                           [](RunningStage& stage) { return stage.Caption() == "second"; }}),
    testing::PrintToStringParamName());

// --- Unseen
// ---------------------------------------------------------------------------------------

TEST_F(QuietLoop, AStageThatIsNotSeenMovesOnWithoutAPicture) {
    int shown = 0;
    Long frames = 0;
    user = InTurn({Wait, All({Seen(false), [&] { shown = sink.shown; }}), Wait, Wait,
                   All({Seen(true),
                        [&] {
                            EXPECT_EQ(sink.shown, shown);
                            frames = loop.TotalFrames;
                        }}),
                   [&] { EXPECT_EQ(sink.shown, shown + 1); }});
    program.RunStage();
    EXPECT_EQ(frames, kRestFrames + 5) << "each pass counts";
    EXPECT_EQ(model.Elements.front().motion[0], loop.TotalFrames);
}

TEST_F(PlainQuietLoop, DrawsWhatIsNotSeen) {
    user = InTurn({Seen(false), Wait, Wait});
    program.RunStage();
    EXPECT_EQ(sink.shown, 4);
}

TEST_F(QuietLoop, PausedAndUnseenItDoesNothing) {
    int shown = 0;
    user = InTurn({Wait, All({Choose(Menu::mnuPause), Seen(false), [&] { shown = sink.shown; }}),
                   Wait, Wait, Seen(true), Wait});
    program.RunStage();
    EXPECT_EQ(loop.TotalFrames, kRestFrames + 2);
    EXPECT_EQ(sink.shown, shown) << "the picture still stands there";
}

// Paused meanwhile, too.
TEST_F(QuietLoop, SeenAgainAPausedStageShowsWhereItIs) {
    std::vector<std::uint32_t> seenAgain;
    std::vector<std::uint32_t> drawnAnew;
    std::vector<std::uint32_t> before;
    user = InTurn({Wait, All({Seen(false), [&] { before = sink.last; }}), Wait, Wait,
                   Choose(Menu::mnuPause), Seen(true),
                   [&] {
                       seenAgain = sink.last;
                       show.NoteEdit();
                   },
                   [&] { drawnAnew = sink.last; }});
    program.RunStage();
    EXPECT_NE(seenAgain, before);
    EXPECT_EQ(seenAgain, drawnAnew);
}

TEST_F(QuietLoop, AStageThatOpensPausedAndUnseenIsDrawnWhenItIsSeen) {
    show.Pause(true);
    window.SetSeen(false);
    user = InTurn({Wait, [&] { EXPECT_EQ(sink.shown, 0); }, Seen(true),
                   [&] { EXPECT_EQ(sink.shown, 1); }, Wait});
    program.RunStage();
    EXPECT_EQ(sink.shown, 1);
    EXPECT_TRUE(ShowsSomething());
}

}  // namespace
}  // namespace scenara::test
