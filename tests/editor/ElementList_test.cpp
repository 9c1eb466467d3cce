// SPDX-License-Identifier: MIT
#include "editor/ElementList.h"

#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/NumberText.h"
#include "editor/EditedStage.h"
#include "render/Controllers.h"
#include "render/ExpectError.h"

namespace scenara {
namespace {

using test::AddControl;
using test::During;
using test::EditedStage;
using test::ExpectError;
using test::StageBuilder;
using test::WithX;
using testing::ElementsAre;

// Elements a to f with ids 10, 20, 30, 20, 50 and 60; d is linked to c, and the ground follows e.
class ListMoves : public testing::Test {
protected:
    ListMoves() {
        const Integer square = stage.build.Sprite("square", 10, 10, 0, 0);
        Long id = 10;
        for (const char* name : {"a", "b", "c", "d", "e", "f"}) {
            stage.Named(name, square, 160, 60).id = id;
            id += 10;
        }
        stage.Element(3).id = 20;
        stage.Element(3).positionlink = 1;
        stage.model.ZOffsetLink = 50;
        stage.Start();
        EXPECT_EQ(Parent("d"), "c");
        EXPECT_EQ(Ground(), "e");
    }

    BackgroundElement& Called(const std::string& name) {
        for (BackgroundElement& element : stage.model.Elements) {
            if (element.name == name) {
                return element;
            }
        }
        throw std::out_of_range(name);
    }
    std::string NameAt(Integer index) {
        return index == -1 ? "none" : stage.Element(static_cast<std::size_t>(index)).name;
    }
    std::string Parent(const std::string& name) { return NameAt(Called(name).linkParent); }
    std::string Ground() { return NameAt(stage.model.ZOffsetLink); }

    EditedStage stage;
};

// Controllers act as if the stage had been started with the list as it is now.
TEST_F(ListMoves, LeaveControllersWhatTheyActOn) {
    WithX(During(AddControl(stage.build.Group(0, {20}), "veladd"), 0, 100), 1);
    WithX(During(AddControl(stage.build.Group(0, {60, 10}), "veladd"), 0, 100), 10);
    WithX(During(AddControl(stage.build.Group(), "veladd"), 0, 100), 100);
    stage.Start();
    const auto velocities = [this] {
        for (BackgroundElement& element : stage.model.Elements) {
            element.velocityX = 0;
        }
        RunControllers(stage.model);
        std::string text;
        for (const BackgroundElement& element : stage.model.Elements) {
            text.append(element.name).append(NumberText(element.velocityX)).append(" ");
        }
        return text;
    };
    EXPECT_EQ(velocities(), "a110 b101 c100 d101 e100 f110 ");
    SwapElements(stage.model, 0, 1);
    EXPECT_EQ(velocities(), "b101 a110 c100 d101 e100 f110 ");
    DeleteElement(stage.model, 1);
    EXPECT_EQ(velocities(), "b101 c100 d101 e100 f110 ");
    CloneElement(stage.model, 4);
    EXPECT_EQ(velocities(), "b101 c100 d101 e100 f110 f110 ");
}

TEST_F(ListMoves, OfNoElementAreAnErrorAndChangeNothing) {
    const std::function<void()> moves[] = {
        [&] { SwapElements(stage.model, 5, 6); }, [&] { SwapElements(stage.model, -1, 0); },
        [&] { DeleteElement(stage.model, 6); },   [&] { DeleteElement(stage.model, -1); },
        [&] { CloneElement(stage.model, 6); },    [&] { CloneElement(stage.model, -1); }};
    for (const auto& move : moves) {
        ExpectError(RunTimeErrorKind::SubscriptOutOfRange, move);
        EXPECT_EQ(stage.Names(), "a b c d e f");
        EXPECT_EQ(stage.model.ElementCount, 6);
    }
}

using Swap = ListMoves;

TEST_F(Swap, ChangesTwoRecords) {
    SwapElements(stage.model, 1, 2);
    EXPECT_EQ(stage.Names(), "a c b d e f");
    EXPECT_EQ(stage.model.ElementCount, 6);
}

TEST_F(Swap, LinksAndGroundStayWithTheirElements) {
    SwapElements(stage.model, 2, 3);  // parent and child
    EXPECT_EQ(stage.Names(), "a b d c e f");
    EXPECT_EQ(Parent("d"), "c");
    SwapElements(stage.model, 4, 5);
    EXPECT_EQ(stage.Names(), "a b d c f e");
    EXPECT_EQ(Ground(), "e");
    SwapElements(stage.model, 3, 4);
    EXPECT_EQ(Parent("d"), "c");
    EXPECT_EQ(Parent("a"), "none");
}

TEST_F(Swap, ControllersFindTheirElements) {
    SwapElements(stage.model, 0, 1);
    // In order of id, then of index: a 10, b 20, d 20, c 30, e 50, f 60.
    EXPECT_THAT(stage.model.ElementsById, ElementsAre(1, 0, 3, 2, 4, 5));
}

using DeleteOne = ListMoves;

TEST_F(DeleteOne, MovesAllBehindItOnePlaceDown) {
    DeleteElement(stage.model, 1);
    EXPECT_EQ(stage.Names(), "a c d e f");
    EXPECT_EQ(stage.model.ElementCount, 5);
    EXPECT_EQ(Parent("d"), "c");
    EXPECT_EQ(Ground(), "e");
    EXPECT_THAT(stage.model.ElementsById, ElementsAre(0, 2, 1, 3, 4));
}

TEST_F(DeleteOne, LeavesThoseBeforeIt) {
    DeleteElement(stage.model, 5);
    EXPECT_EQ(stage.Names(), "a b c d e");
    EXPECT_EQ(Parent("d"), "c");
    EXPECT_EQ(Ground(), "e");
}

TEST_F(DeleteOne, ItsFollowersFollowNobodyAndStayWhereTheyAre) {
    Called("c").velocityX = 2;
    stage.Frames(3);
    const test::Lines before = stage.BackPass();
    DeleteElement(stage.model, 2);
    EXPECT_EQ(Parent("d"), "none");
    EXPECT_EQ(Called("d").ctrlOffset[0], 6);  // three frames of drift, as it stood
    EXPECT_EQ(before.at(3), stage.BackPass().at(2));
}

TEST_F(DeleteOne, FollowersOfASwingingParentStayWhereTheyAre) {
    Called("c").sinState = {10, 8, 0};
    Called("c").sinYAmplitude = 6;
    Called("c").sinYPeriod = 5;
    stage.Frames(3);
    const test::Lines before = stage.BackPass();
    ASSERT_NE(Called("d").linkSin[0], 0);
    ASSERT_NE(Called("d").linkSin[1], 0);
    DeleteElement(stage.model, 2);
    const test::Lines after = stage.BackPass();
    EXPECT_EQ(before.at(3), after.at(2));
    EXPECT_EQ(stage.BackPass().at(2), after.at(2)) << "and stand still";
}

TEST_F(DeleteOne, FollowersWithASwingOfTheirOwnSwingOnFromWhereTheyAre) {
    Called("d").sinState = {10, 8, 0};
    stage.Frames(3);
    const test::Lines before = stage.BackPass();
    DeleteElement(stage.model, 2);
    const test::Lines after = stage.BackPass();
    EXPECT_EQ(before.at(3), after.at(2));
    EXPECT_NE(stage.BackPass().at(2), after.at(2)) << "its swing is seen now";
}

TEST_F(DeleteOne, TheGroundFollowsNothingThen) {
    DeleteElement(stage.model, 4);
    EXPECT_EQ(stage.model.ZOffsetLink, -1);
}

TEST_F(DeleteOne, ControllersOfItsIdActOnTheOthersOnly) {
    BgCtrlDef& group = stage.build.Group(0, {20});
    WithX(During(AddControl(group, "posadd"), 0, 100), 1);
    stage.Start();
    DeleteElement(stage.model, 1);  // b; d has the same id
    const Single a = Called("a").posX;
    const Single d = Called("d").posX;
    stage.Frames(1);
    EXPECT_EQ(Called("a").posX, a);
    EXPECT_EQ(Called("d").posX, d + 1);
    DeleteElement(stage.model, 2);  // d
    stage.Frames(1);
    for (const char* name : {"a", "c", "e", "f"}) {
        EXPECT_EQ(Called(name).posX, a) << name;
    }
}

TEST_F(DeleteOne, EmptiesTheListInTheEnd) {
    for (int i = 0; i < 6; ++i) {
        DeleteElement(stage.model, 0);
    }
    EXPECT_EQ(stage.model.ElementCount, 0);
    EXPECT_TRUE(stage.model.ElementsById.empty());
}

using Clone = ListMoves;

TEST_F(Clone, StandsRightBehindItsOriginal) {
    Called("b").tileX = 7;
    CloneElement(stage.model, 1);
    EXPECT_EQ(stage.Names(), "a b b c d e f");
    EXPECT_EQ(stage.model.ElementCount, 7);
    EXPECT_EQ(stage.Element(2).tileX, 7);
    EXPECT_EQ(stage.Element(2).id, 20);
}

TEST_F(Clone, LinksAndGroundStayWithTheirElements) {
    CloneElement(stage.model, 0);
    EXPECT_EQ(stage.Names(), "a a b c d e f");
    EXPECT_EQ(Parent("d"), "c");
    EXPECT_EQ(Ground(), "e");
    CloneElement(stage.model, 4);
    EXPECT_EQ(stage.Element(5).name, "d");
    EXPECT_EQ(NameAt(stage.Element(5).linkParent), "c");
}

TEST_F(Clone, OfAParentLeavesTheChildrenWithTheOriginal) {
    CloneElement(stage.model, 2);
    EXPECT_EQ(stage.Names(), "a b c c d e f");
    EXPECT_EQ(stage.Element(4).linkParent, 2);
}

TEST_F(Clone, IsActedOnByTheSameControllers) {
    CloneElement(stage.model, 1);
    // a 10; b, its clone and d 20; c 30; e 50; f 60.
    EXPECT_THAT(stage.model.ElementsById, ElementsAre(0, 1, 2, 4, 3, 5, 6));
}

TEST_F(Clone, OfTheLastOneIsTheLast) {
    CloneElement(stage.model, 5);
    EXPECT_EQ(stage.Names(), "a b c d e f f");
}

TEST_F(Clone, InAFullListIsAnOverflowAndChangesNothing) {
    stage.model.Elements.resize(kMaxRecords);
    stage.model.ElementCount = 32767;
    ExpectError(RunTimeErrorKind::Overflow, [&] { CloneElement(stage.model, 0); });
    EXPECT_EQ(stage.model.Elements.size(), kMaxRecords);
    EXPECT_EQ(stage.model.ElementCount, 32767);
}

}  // namespace
}  // namespace scenara
