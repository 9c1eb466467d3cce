// SPDX-License-Identifier: MIT
#include "app/StageCatalog.h"

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/NaturalOrder.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A name that begins with "-" is of a file that is no stage.
std::vector<StageEntry> Stages(const std::vector<std::string>& names) {
    std::vector<StageEntry> stages;
    for (const std::string& name : names) {
        const bool isStage = !name.starts_with('-');
        stages.push_back({"/m/stages/" + name + ".def",
                          name,
                          FoldCase(name),
                          {},
                          true,
                          isStage,
                          FoldCase(name)});
    }
    std::sort(stages.begin(), stages.end(), [](const StageEntry& a, const StageEntry& b) {
        return IsNaturallyBefore(a.order, b.order);
    });
    return stages;
}

class Catalog : public testing::Test {
protected:
    void Take(const std::vector<std::string>& names) { catalog.Take(Stages(names)); }
    void Select(const std::string& name) { list.ListIndex = catalog.IndexOf(FileOf(name)); }
    static std::string FileOf(const std::string& name) { return "/m/stages/" + name + ".def"; }
    [[nodiscard]] std::string Selected() const {
        return list.ListIndex < 0 ? "" : list.items.at(static_cast<std::size_t>(list.ListIndex));
    }
    [[nodiscard]] std::string After(Long steps) const {
        const Long index = catalog.After(steps);
        return index < 0 ? "" : list.items.at(static_cast<std::size_t>(index));
    }

    ListBox list;
    StageCatalog catalog{list};
};

TEST_F(Catalog, FillsTheList) {
    Take({"b", "a", "-readme"});
    EXPECT_THAT(list.items, ElementsAre("-readme", "a", "b"));
    EXPECT_EQ(list.filled, 1U);
    EXPECT_TRUE(list.details.at(0).isDimmed);
    EXPECT_EQ(list.details.at(0).tip,
              "/m/stages/-readme.def\nNot a stage: it has no section [Camera].");
    EXPECT_FALSE(list.details.at(1).isDimmed);
    EXPECT_EQ(list.total, 3U);
    Take({"b", "a", "-readme"});
    EXPECT_EQ(list.filled, 1U) << "the same items";
    EXPECT_EQ(list.detailed, 2U);
    Take({"b"});
    EXPECT_EQ(list.filled, 2U);
}

TEST_F(Catalog, TellsNameAndAuthorInTheTip) {
    std::vector<StageEntry> stages = Stages({"a"});
    stages[0].info = {"Night", "", "Ann"};
    catalog.Take(stages);
    EXPECT_EQ(list.details.at(0).tip, "Night, by Ann\n/m/stages/a.def");
    stages[0].info = {"Night", "Deep Night", ""};
    catalog.Take(stages);
    EXPECT_EQ(list.details.at(0).tip, "Deep Night\n/m/stages/a.def");
    stages[0].info = {"", "", "Ann"};
    catalog.Take(stages);
    EXPECT_EQ(list.details.at(0).tip, "by Ann\n/m/stages/a.def");
}

TEST_F(Catalog, WhatIsSelectedStaysSoByItsFile) {
    Take({"b", "c"});
    Select("c");
    Take({"a", "b", "c", "d"});
    EXPECT_EQ(Selected(), "c");
    catalog.Filter("C");
    EXPECT_EQ(Selected(), "c");
    EXPECT_THAT(list.items, ElementsAre("c"));
    catalog.Filter("d");
    EXPECT_EQ(Selected(), "");
    catalog.Filter("nothing like that");
    EXPECT_THAT(list.items, IsEmpty());
    EXPECT_EQ(list.note, "No stage has all these words.");
    EXPECT_EQ(list.total, 4U);
    catalog.Filter("");
    EXPECT_EQ(list.note, "");
    EXPECT_EQ(list.items.size(), 4U);
}

TEST_F(Catalog, FindsAFileHoweverItIsSpelled) {
    Take({"a", "b"});
    EXPECT_EQ(catalog.IndexOf("/M/STAGES\\B.DEF"), 1);
    EXPECT_EQ(catalog.IndexOf("/m/stages/c.def"), -1);
    EXPECT_EQ(catalog.IndexOf(""), -1);
}

TEST_F(Catalog, StepsGoToTheEndsAndNoFurther) {
    Take({"a", "b", "c", "d"});
    const struct {
        const char* selected;
        Long steps;
        const char* after;
    } rows[] = {
        {"a", 1, "b"},    {"a", 2, "c"},     {"a", 100, "d"},        {"d", 1, ""},
        {"a", -1, ""},    {"c", -5, "a"},    {"b", 2147483647, "d"}, {"c", -2147483647, "a"},
        {"none", 1, "a"}, {"none", -1, "d"}, {"none", 3, "c"},
    };
    for (const auto& row : rows) {
        Select(row.selected);
        EXPECT_EQ(After(row.steps), row.after) << row.selected << ", " << row.steps;
    }
}

TEST_F(Catalog, StepsPassOverWhatIsNoStage) {
    Take({"-0", "a", "b", "c"});
    catalog.NoteIsNone(FileOf("b"));
    EXPECT_TRUE(list.details.at(2).isDimmed);
    const struct {
        const char* selected;
        Long steps;
        const char* after;
    } rows[] = {
        {"a", 1, "c"}, {"c", -1, "a"}, {"a", -1, ""}, {"c", -100, "a"}, {"a", 2, "c"},
    };
    for (const auto& row : rows) {
        Select(row.selected);
        EXPECT_EQ(After(row.steps), row.after) << row.selected << ", " << row.steps;
    }
    Take({"-0", "-1"});
    EXPECT_EQ(After(1), "");
    EXPECT_EQ(After(100), "");
}

TEST_F(Catalog, StepsGoOnFromWhatCouldNotBeOpened) {
    Take({"a", "b", "c"});
    Select("a");
    catalog.PassOver(1);
    EXPECT_EQ(After(1), "c");
    EXPECT_EQ(After(-1), "") << "before what is selected";
    list.ListIndex = -1;
    EXPECT_EQ(After(1), "c");
    EXPECT_EQ(After(-1), "a");
    catalog.ForgetPassed();
    EXPECT_EQ(After(1), "a");
}

TEST_F(Catalog, StepsGoOnFromWhereTheSelectedOneWasThatHasGone) {
    Take({"a", "b", "c"});
    Select("b");
    Take({"a", "c"});
    EXPECT_EQ(Selected(), "");
    EXPECT_EQ(After(1), "c");
    EXPECT_EQ(After(-1), "a");
}

// From anywhere, whatever the list: to the next stage there is, or nowhere.
TEST_F(Catalog, AStepLeadsToTheNextStage) {
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::vector<std::string> names;
        const auto count = random() % 8;
        for (unsigned i = 0; i < count; ++i) {
            names.push_back(std::string(1, static_cast<char>('a' + i)));
        }
        Take(names);
        std::vector<bool> isStage(count, true);
        for (std::size_t i = 0; i < count; ++i) {
            if (random() % 3 == 0) {
                isStage[i] = false;
                catalog.NoteIsNone(FileOf(names[i]));
            }
        }
        list.ListIndex = static_cast<Long>(random() % (count + 1)) - 1;
        catalog.ForgetPassed();
        Long next = list.ListIndex + 1;
        while (next < static_cast<Long>(count) && !isStage[static_cast<std::size_t>(next)]) {
            ++next;
        }
        EXPECT_EQ(catalog.After(1), next < static_cast<Long>(count) ? next : -1);
        Long before = list.ListIndex < 0 ? static_cast<Long>(count) - 1 : list.ListIndex - 1;
        while (before >= 0 && !isStage[static_cast<std::size_t>(before)]) {
            --before;
        }
        EXPECT_EQ(catalog.After(-1), before);
    }
}

}  // namespace
}  // namespace scenara::test
