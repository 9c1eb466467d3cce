// SPDX-License-Identifier: MIT
#include "app/LoadMessages.h"

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/HeroStage.h"
#include "app/OncePerKind.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr const char* kOffer = "Do not show this again for this stage";
constexpr const char* kHere = "/stages/here.def";
constexpr const char* kThere = "/stages/there.def";

// What the user sees of boxes, in short: "text", or "text?" for one with an offer.
class SeenBoxes : public Messages {
public:
    void Show(const Message& message) override { seen.push_back(message.text); }
    bool ShowWithOffer(const Message& message, const std::string& offer) override {
        EXPECT_EQ(offer, kOffer);
        seen.push_back(message.text + "?");
        return takes.contains(message.text);
    }
    [[nodiscard]] std::vector<std::string> Take() { return std::exchange(seen, {}); }

    std::vector<std::string> seen;
    std::set<std::string> takes;  // texts whose offer is taken
};

constexpr const char* kTwoMore =
    "There are 2 more problems.\r\nAll of them are listed under Extras, Problems.";
constexpr const char* kOneMore = "There is 1 more problem.\r\nIt is listed under Extras, Problems.";

class LoadMessagesTest : public testing::Test {
protected:
    // A load of the stage that reports these kinds, each by its own name.
    std::vector<std::string> Load(const std::string& file, const std::vector<std::string>& kinds,
                                  bool additions = true) {
        messages.BeginStage(file, additions);
        Say(kinds);
        messages.End();
        EXPECT_EQ(boxes.seen.empty(), additions || kinds.empty()) << "they wait";
        messages.ShowHeld();
        return boxes.Take();
    }
    void Say(const std::vector<std::string>& kinds) {
        for (const std::string& kind : kinds) {
            messages.Show({MessageKind(kind.c_str(), Severity::Warning), kind});
        }
    }
    [[nodiscard]] std::vector<std::string> Listed() const {
        std::vector<std::string> texts;
        for (const Problem& problem : list.Kept()) {
            texts.push_back(problem.text);
        }
        return texts;
    }

    SeenBoxes boxes;
    ProblemList list;
    LoadMessages messages{boxes, list};
};

struct Boxes {
    const char* name;
    std::vector<std::string> said;
    std::vector<std::string> seen;
    std::set<std::string> takes = {};
};

void PrintTo(const Boxes& row, std::ostream* out) {
    *out << row.name;
}

class LoadBoxes : public LoadMessagesTest, public testing::WithParamInterface<Boxes> {};

TEST_P(LoadBoxes, AreAsManyAsOneWants) {
    boxes.takes = GetParam().takes;
    EXPECT_EQ(Load(kHere, GetParam().said), GetParam().seen);
    EXPECT_EQ(Listed(), GetParam().said) << "whatever was shown";
}

INSTANTIATE_TEST_SUITE_P(
    Of, LoadBoxes,
    testing::Values(Boxes{"Nothing", {}, {}}, Boxes{"One", {"a"}, {"a"}},
                    Boxes{"OneKindTwice", {"a", "a"}, {"a", "a?"}},
                    Boxes{"AKindBetweenOthers", {"a", "b", "a"}, {"a", "b", "a?"}},
                    Boxes{"FourKinds", {"a", "b", "c", "d"}, {"a", "b", "c", kOneMore}},
                    Boxes{"FiveOfAKind", {"a", "a", "a", "a", "a"}, {"a", "a?", "a?", kTwoMore}},
                    Boxes{"FiveOfAKindAndNoMore", {"a", "a", "a", "a", "a"}, {"a", "a?"}, {"a"}},
                    Boxes{"OthersAfterThat",
                          {"a", "a", "a", "b", "a", "c", "d", "a"},
                          {"a", "a?", "b", kTwoMore},
                          {"a"}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(LoadMessagesTest, TheWishLastsForTheStageAndNoOther) {
    boxes.takes = {"a"};
    EXPECT_THAT(Load(kHere, {"a", "a"}), ElementsAre("a", "a?"));
    EXPECT_THAT(Load(kThere, {"a"}), ElementsAre("a"));
    EXPECT_THAT(Load(kHere, {"a", "b"}), ElementsAre("b"));
    EXPECT_THAT(Listed(), ElementsAre("a", "b")) << "listed all the same";
}

TEST_F(LoadMessagesTest, ABoxThatComesWithEveryLoadCanBeTheLastOne) {
    EXPECT_THAT(Load(kHere, {"a"}), ElementsAre("a"));
    boxes.takes = {"a"};
    EXPECT_THAT(Load(kHere, {"a"}), ElementsAre("a?"));
    EXPECT_THAT(Load(kHere, {"a"}), IsEmpty());
}

TEST_F(LoadMessagesTest, ManyStagesLaterTheWishIsForgotten) {
    boxes.takes = {"a"};
    static_cast<void>(Load(kHere, {"a", "a"}));
    for (std::size_t i = 1; i < LoadMessages::kMostStages; ++i) {
        static_cast<void>(Load(std::to_string(i), {"b"}));
    }
    EXPECT_THAT(Load(kHere, {"a"}), IsEmpty());
    for (std::size_t i = 0; i < LoadMessages::kMostStages; ++i) {
        static_cast<void>(Load(std::to_string(i), {"b"}));
    }
    EXPECT_THAT(Load(kHere, {"a"}), ElementsAre("a"));
}

TEST_F(LoadMessagesTest, PlainEveryBoxIsAPlainOne) {
    boxes.takes = {"a"};
    EXPECT_THAT(Load(kHere, {"a", "a", "a", "a", "a"}, false), SizeIs(5));
    EXPECT_THAT(Load(kHere, {"a"}, false), ElementsAre("a"));
    EXPECT_THAT(Listed(), ElementsAre("a"));
}

TEST_F(LoadMessagesTest, BetweenLoadsTheyAreShownAndNotListed) {
    Say({"a", "a", "a", "a", "a"});
    EXPECT_THAT(boxes.Take(), ElementsAre("a", "a", "a", "a", "a"));
    messages.End();
    EXPECT_THAT(boxes.Take(), IsEmpty());
    EXPECT_FALSE(list.HasBegun());
    static_cast<void>(Load(kHere, {"b"}));
    Say({"c"});
    EXPECT_THAT(Listed(), ElementsAre("b"));
}

TEST_F(LoadMessagesTest, ACharacterTakesThePlaceOfTheOneBefore) {
    static_cast<void>(Load(kHere, {"stage"}));
    for (const char* const kind : {"first", "second"}) {
        messages.BeginCharacter(kHere, true);
        Say({kind, kind});
        messages.End();
        EXPECT_THAT(Listed(), ElementsAre("stage", kind, kind));
        EXPECT_THAT(boxes.Take(), ElementsAre(kind, std::string(kind) + "?"));
    }
    static_cast<void>(Load(kThere, {}));
    EXPECT_THAT(Listed(), IsEmpty());
}

TEST_F(LoadMessagesTest, OfTheCharacterThatComesWithTheStageGoWithIt) {
    messages.BeginStage(kHere, true);
    Say({"stage"});
    messages.CharacterFollows();
    Say({"hero", "hero"});
    messages.End();
    EXPECT_THAT(Listed(), ElementsAre("stage", "hero", "hero"));
    for (const bool isLoaded : {false, true, false}) {
        messages.BeginCharacter(kHere, true, isLoaded);
        messages.End();
        EXPECT_EQ(Listed().size(), isLoaded ? 3U : 1U);
        EXPECT_EQ(list.Count(), Listed().size());
    }
    messages.BeginCharacter(kHere, true);
    Say({"other"});
    messages.End();
    EXPECT_THAT(Listed(), ElementsAre("stage", "other"));
    messages.BeginCharacter(kHere, true, true);
    messages.End();
    EXPECT_THAT(Listed(), ElementsAre("stage", "other")) << "those of the one before do not return";
}

// The same, step by step, from all that was ever said.
TEST_F(LoadMessagesTest, AreAsABookOfAllThatWasSaidHasThem) {
    std::mt19937 random(20261123);  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
    const auto below = [&](std::size_t end) { return random() % end; };
    std::map<std::string, std::vector<std::string>> seenOf;  // kinds of a stage's boxes
    std::map<std::string, std::set<std::string>> unwanted;
    for (int round = 0; round < Rounds(500); ++round) {
        const std::string file = below(2) == 0 ? kHere : kThere;
        boxes.takes = below(2) == 0 ? std::set<std::string>{"a", "c"} : std::set<std::string>{};
        std::vector<std::string> said(below(9));
        std::ranges::generate(said,
                              [&] { return std::string(1, static_cast<char>('a' + below(5))); });

        std::vector<std::string> expected;
        std::size_t more = 0;
        for (const std::string& kind : said) {
            if (unwanted[file].contains(kind)) {
                continue;
            }
            if (expected.size() >= 3) {
                ++more;
                continue;
            }
            const bool again = std::ranges::count(seenOf[file], kind) > 0;
            expected.push_back(again ? kind + "?" : kind);
            seenOf[file].push_back(kind);
            if (again && boxes.takes.contains(kind)) {
                unwanted[file].insert(kind);
            }
        }
        std::vector<std::string> seen = Load(file, said);
        ASSERT_EQ(seen.size(), expected.size() + (more > 0 ? 1 : 0)) << round;
        if (more > 0) {
            EXPECT_THAT(seen.back(), testing::HasSubstr(" " + std::to_string(more) + " more"));
            seen.pop_back();
        }
        ASSERT_EQ(seen, expected) << round;
        ASSERT_EQ(Listed(), said);
    }
}

TEST(OncePerKind, HandsOnTheFirstOfAKind) {
    SeenBoxes boxes;
    OncePerKind once(boxes);
    const std::string one = "kind";
    const std::string same = "kind";
    once.MsgBox(one.c_str(), "1");
    once.MsgBox("other", "2");
    once.MsgBox(same.c_str(), "3");
    EXPECT_THAT(boxes.seen, ElementsAre("1", "2"));
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
    EXPECT_THAT(texts(false, true, 1), Each(StartsWith("Overflow: velocity")));
    const std::vector<std::string> all = texts(true, false, 1);
    ASSERT_THAT(all, SizeIs(4)) << "three, and how many more";
    EXPECT_EQ(all.back(), kOneMore);
    EXPECT_THAT(texts(true, true, 1), SizeIs(2));
    EXPECT_THAT(texts(true, true, 2), SizeIs(2)) << "nor when it is loaded again";
}

// --- the list, as the program fills it ---

using Problems = Program;

TEST_F(Problems, AreListedOfTheStageLoadedLast) {
    EXPECT_FALSE(form[Menu::mnuProblems].enabled);
    // By the second one a copy is read: its lines are too long for their ends.
    for (const std::string& before : {std::string(), "; " + std::string(600, 'x') + "\n"}) {
        files.Put("/mugen/stages/d.def", before + StageWithManyProblems());
        Show(Drop("/mugen/stages/d.def"));
        EXPECT_TRUE(form[Menu::mnuProblems].enabled);
        EXPECT_EQ(form.problems.Count(), 4U);
        for (const Problem& problem : form.problems.Kept()) {
            EXPECT_THAT(problem.text, StartsWith("Overflow: velocity"));
            EXPECT_EQ(problem.file, "/mugen/stages/d.def");
            EXPECT_GT(problem.line, 3);
        }
    }
    Click(Menu::mnuProblems);
    EXPECT_EQ(dialogs.Problems(), &form.problems);
    Show(Drop(kStageA));
    EXPECT_EQ(form.problems.Count(), 0U);
    EXPECT_TRUE(form[Menu::mnuProblems].enabled);
}

TEST_F(Problems, OfALoadThatFailsStayInTheList) {
    user = InTurn({All({Select(kItemC), [this] { files.Delete(kStageC); }})});
    program.lstStages_Click(kItemA);
    LetRest();
    ASSERT_EQ(form.problems.Count(), 1U);
    EXPECT_EQ(form.problems.Kept().front().text, MessageTexts().back());
    EXPECT_TRUE(form[Menu::mnuProblems].enabled);
    EXPECT_EQ(Caption(), program.AppTitle);
    EXPECT_TRUE(form.picLoad.visible);
}

TEST_F(Problems, OfAnErrorThatEndsALoadAreItsMessageToo) {
    direct3D.FailAt(StartStep::Device);
    Show(Select(kItemA));
    ASSERT_GE(form.problems.Count(), 1U);
    EXPECT_TRUE(form[Menu::mnuProblems].enabled);
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
        for (const Message& message : stage.messages.Recorded()) {
            const bool isCharacters = message.kind != kMessageMoreProblems;
            EXPECT_EQ(message.title, isCharacters ? "Cohortia" : "") << message.text;
            EXPECT_EQ(message.icon, isCharacters ? MessageIcon::Exclamation : MessageIcon::None);
        }
        return stage.MessageTexts();
    };
    const std::vector<std::string> plain = texts(false, true);
    ASSERT_THAT(plain, SizeIs(10));
    const std::vector<std::string> all = texts(true, false);
    ASSERT_THAT(all, SizeIs(4)) << "three, and how many more";
    EXPECT_TRUE(std::equal(all.begin(), all.end() - 1, plain.begin()));
    EXPECT_THAT(all.back(), StartsWith("There are 7 more problems."));
    const std::vector<std::string> silenced = texts(true, true);
    ASSERT_THAT(silenced, SizeIs(4)) << "two of one kind, one of the other";
    EXPECT_THAT(silenced.back(), StartsWith("There "));
}

class ProblemsOfACharacter : public HeroProgram {
protected:
    [[nodiscard]] std::size_t OfTheStage() const {
        return static_cast<std::size_t>(std::ranges::count(
            form.problems.Kept(), std::string("/mugen/stages/d.def"), &Problem::file));
    }
    // All others are the character's.
    [[nodiscard]] Act Expect(std::size_t ofTheCharacter) {
        return [this, ofTheCharacter] {
            EXPECT_EQ(OfTheStage(), 4U);
            EXPECT_EQ(form.problems.Count() - OfTheStage(), ofTheCharacter);
        };
    }
};

TEST_F(ProblemsOfACharacter, GoAndComeWithItAlsoWhenItCameWithTheStage) {
    constexpr std::size_t kOfTheHero = 10;
    Start(Chosen("Char = True\r\n"));
    PutBrokenHero(*this);
    const std::string other = "/mugen/chars/other/hero.def";
    for (const char* const name : {"hero.air", "hero.cns", "hero.sff", "hero.def"}) {
        const CharacterMachine whole;
        const std::string path = std::string("/mugen/chars/hero/") + name;
        files.Put(std::string("/mugen/chars/other/") + name, whole.files.Get(path));
    }
    files.Put(other, files.Get(other) + "\nst = stcommon\n");
    files.Put("/mugen/stages/d.def", StageWithManyProblems());
    WhileAIsShown({Drop("/mugen/stages/d.def"), Expect(kOfTheHero), Choose(Menu::mnuChar),
                   Expect(0), Choose(Menu::mnuChar), Expect(kOfTheHero), Choose(Menu::mnuReload),
                   Expect(kOfTheHero), Drop(other), Expect(0), Drop(kHero), Expect(kOfTheHero)});
}

INSTANTIATE_TEST_SUITE_P(ByEitherItem, LoadingACharacter,
                         testing::Values(Menu::mnuChar, Menu::mnuChange));

}  // namespace
}  // namespace scenara::test
