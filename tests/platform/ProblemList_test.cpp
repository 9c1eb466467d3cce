// SPDX-License-Identifier: MIT
#include "platform/ProblemList.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace scenara {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

Message Said(Severity severity, std::string text, MessagePlace place = {}) {
    return {
        MessageKind("kind", severity), std::move(text), {}, MessageIcon::None, std::move(place)};
}

TEST(ProblemList, HasEachMessageAsALine) {
    ProblemList list;
    EXPECT_FALSE(list.HasBegun());
    list.Begin();
    EXPECT_TRUE(list.HasBegun());
    list.Add(
        Said(Severity::Error, "SFF FILE:\r\na.sff\r\nCOULD NOT BE FOUND!", {0, 0, "/s/a.def"}));
    list.Add(Said(Severity::Warning, "\tOverflow: start, line 7 ", {7, 3, "/s/a.def"}));
    list.Add(Said(Severity::Note, "said"));
    EXPECT_THAT(
        list.Kept(),
        ElementsAre(Problem{Severity::Error, "SFF FILE: a.sff COULD NOT BE FOUND!", "/s/a.def", 0},
                    Problem{Severity::Warning, "Overflow: start, line 7", "/s/a.def", 7},
                    Problem{Severity::Note, "said", "", 0}));
    std::vector<std::string> lines;
    for (const Problem& problem : list.Kept()) {
        lines.push_back(LineOf(problem));
    }
    EXPECT_THAT(lines, ElementsAre("/s/a.def: error: SFF FILE: a.sff COULD NOT BE FOUND!",
                                   "/s/a.def:7: warning: Overflow: start, line 7", "note: said"));
}

struct Summary {
    std::vector<Severity> said;
    const char* text;
};

TEST(ProblemList, SaysHowManyThereAre) {
    constexpr Severity kError = Severity::Error;
    constexpr Severity kWarning = Severity::Warning;
    constexpr Severity kNote = Severity::Note;
    for (const Summary& row : std::vector<Summary>{
             {{}, "No problems"},
             {{kNote}, "1 note"},
             {{kWarning, kError, kWarning}, "1 error, 2 warnings"},
             {{kNote, kNote, kError, kError, kWarning}, "2 errors, 1 warning, 2 notes"}}) {
        ProblemList list;
        list.Begin();
        for (const Severity severity : row.said) {
            list.Add(Said(severity, "text"));
        }
        EXPECT_EQ(SummaryOf(list), row.text);
        EXPECT_EQ(RestOf(list), "");
        EXPECT_EQ(list.Count(), row.said.size());
    }
}

TEST(ProblemList, OfAMillionKeepsTheFirstOnesAndCountsTheRest) {
    constexpr std::size_t kMillion = 1'000'000;
    ProblemList list;
    list.Begin();
    for (std::size_t i = 0; i < kMillion; ++i) {
        list.Add(Said(Severity::Warning, std::to_string(i)));
    }
    EXPECT_THAT(list.Kept(), SizeIs(ProblemList::kMostKept));
    EXPECT_EQ(list.Kept().back().text, "9999");
    EXPECT_EQ(SummaryOf(list), "1000000 warnings");
    EXPECT_EQ(RestOf(list), "and 990000 more");
    list.Begin();
    EXPECT_THAT(list.Kept(), IsEmpty());
    EXPECT_EQ(list.Count(), 0U);
}

TEST(ProblemList, CutsWhatIsTooLongBetweenTwoCharacters) {
    ProblemList list;
    list.Begin();
    std::string text = "x";
    for (int i = 0; i < 100'000; ++i) {
        text += "\xC3\xA9";
    }
    list.Add(Said(Severity::Note, text, {1, 1, text}));
    const std::string& kept = list.Kept().front().text;
    EXPECT_LE(kept.size(), ProblemList::kMostLength);
    EXPECT_EQ(kept.substr(kept.size() - 5), "\xC3\xA9...");
    EXPECT_LE(list.Kept().front().file.size(), ProblemList::kMostLength);
}

TEST(ProblemList, GoesBackToItsMark) {
    ProblemList list;
    list.Begin();
    list.Add(Said(Severity::Error, "stays"));
    list.Mark();
    const auto marked = list.Generation();
    list.BackToMark();
    EXPECT_EQ(list.Generation(), marked) << "nothing has gone";
    list.Add(Said(Severity::Note, "goes"));
    EXPECT_EQ(list.Generation(), marked) << "there is only more";
    list.BackToMark();
    EXPECT_NE(list.Generation(), marked);
    EXPECT_THAT(list.Kept(), ElementsAre(Problem{Severity::Error, "stays", "", 0}));
    EXPECT_EQ(SummaryOf(list), "1 error");
}

}  // namespace
}  // namespace scenara
