// SPDX-License-Identifier: MIT
#include "show/RepeatedMessages.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"

namespace scenara::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr const char* kOffer = "Do not show this again while this stage loads";

class RepeatedMessagesTest : public testing::Test {
protected:
    static void Say(Messages& messages, MessageKind kind, const std::string& text) {
        messages.Show({kind, text, "Title", MessageIcon::Exclamation});
    }
    [[nodiscard]] std::vector<std::string> Shown() const {
        std::vector<std::string> texts;
        for (const Message& message : shown_.Recorded()) {
            texts.push_back(message.text);
        }
        return texts;
    }

    HeadlessMessages shown_;
};

TEST_F(RepeatedMessagesTest, OffersFromTheSecondOfAKindOn) {
    RepeatedMessages messages(shown_, Repeats::Offered);
    Say(messages, "one", "1");
    Say(messages, "two", "2");
    EXPECT_THAT(shown_.Offers(), IsEmpty());
    Say(messages, "one", "3");
    Say(messages, "one", "4");
    EXPECT_THAT(Shown(), ElementsAre("1", "2", "3", "4"));
    EXPECT_THAT(shown_.Offers(), ElementsAre(kOffer, kOffer));
    EXPECT_EQ(shown_.Recorded()[2].title, "Title");
    EXPECT_EQ(shown_.Recorded()[2].icon, MessageIcon::Exclamation);
}

TEST_F(RepeatedMessagesTest, AnOfferThatIsTakenHoldsForItsKindAlone) {
    RepeatedMessages messages(shown_, Repeats::Offered);
    shown_.TakeOffers(true);
    Say(messages, "one", "1");
    Say(messages, "one", "2");
    Say(messages, "one", "3");
    Say(messages, "two", "4");
    Say(messages, "one", "5");
    EXPECT_THAT(Shown(), ElementsAre("1", "2", "4"));
}

TEST_F(RepeatedMessagesTest, AKindIsItsTextAndNotItsPlaceInMemory) {
    RepeatedMessages messages(shown_, Repeats::Offered);
    const std::string first = "kind";
    const std::string second = "kind";
    Say(messages, first.c_str(), "1");
    Say(messages, second.c_str(), "2");
    EXPECT_THAT(shown_.Offers(), SizeIs(1));
}

TEST_F(RepeatedMessagesTest, WithoutOffersEveryBoxIsAPlainOne) {
    RepeatedMessages messages(shown_, Repeats::Shown);
    shown_.TakeOffers(true);
    for (int i = 0; i < 5; ++i) {
        Say(messages, "one", "again");
    }
    EXPECT_THAT(Shown(), SizeIs(5));
    EXPECT_THAT(shown_.Offers(), IsEmpty());
}

// Four elements, each with a value that its field cannot hold.
std::string StageWithManyProblems() {
    std::string text = "[Camera]\n[BGdef]\nspr = stages/a.sff\n";
    for (int i = 0; i < 4; ++i) {
        text += "[BG x]\ntype = normal\nspriteno = 0,0\nvelocity = 1e99\n";
    }
    return text;
}

TEST(LoadingStage, SaysARepeatedProblemAsOftenAsTheUserWants) {
    const auto texts = [](bool additions, bool takes, int loads) {
        RunningStage stage({}, additions);
        stage.files.Put("/mugen/stages/d.def", StageWithManyProblems());
        stage.messages.TakeOffers(takes);
        stage.user = InTurn({});
        for (int i = 0; i < loads; ++i) {
            stage.program.Form_OLEDragDrop({"/mugen/stages/d.def"});
        }
        return stage.MessageTexts();
    };
    ASSERT_THAT(texts(false, true, 1), SizeIs(4));
    EXPECT_THAT(texts(false, true, 1), Each(testing::StartsWith("Overflow: velocity")));
    EXPECT_THAT(texts(true, false, 1), SizeIs(4));
    EXPECT_THAT(texts(true, true, 1), SizeIs(2));
    EXPECT_THAT(texts(true, true, 2), SizeIs(4)) << "the next load says it again";
}

// Six pictures are wanted and none can be decoded: a box of the decoder's and one of the loader's
// for each.
void PutBrokenHero(RunningStage& stage) {
    CharacterMachine hero;
    auto subfiles = HeroSubfiles();
    for (Sff1Subfile& subfile : subfiles) {
        subfile.data = BrokenPcx();
    }
    hero.PutArchive(subfiles);
    PutHero(stage, hero);
}

class LoadingACharacter : public testing::TestWithParam<Menu> {};

TEST_P(LoadingACharacter, SaysARepeatedProblemAsOftenAsTheUserWants) {
    const auto texts = [](bool additions, bool takes) {
        RunningStage stage({}, additions);
        stage.Load();
        PutBrokenHero(stage);
        stage.dialogs.Answer(kHero);
        stage.messages.TakeOffers(takes);
        stage.user = InTurn({[](RunningStage& running) { running.Click(GetParam()); }});
        stage.program.Form_OLEDragDrop({"/mugen/stages/a.def"});
        EXPECT_THAT(stage.messages.Recorded(), Each(testing::Field(&Message::title, "Cohortia")));
        EXPECT_THAT(stage.messages.Recorded(),
                    Each(testing::Field(&Message::icon, MessageIcon::Exclamation)));
        return stage.MessageTexts();
    };
    const std::vector<std::string> plain = texts(false, true);
    ASSERT_THAT(plain, SizeIs(10));
    EXPECT_THAT(texts(true, false), SizeIs(10));
    const std::vector<std::string> silenced = texts(true, true);
    EXPECT_THAT(silenced, SizeIs(4)) << "two of each kind";
    EXPECT_EQ(silenced, std::vector<std::string>(plain.begin(), plain.begin() + 4));
}

INSTANTIATE_TEST_SUITE_P(ByEitherItem, LoadingACharacter,
                         testing::Values(Menu::mnuChar, Menu::mnuChange));

}  // namespace
}  // namespace scenara::test
