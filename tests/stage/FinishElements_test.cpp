// SPDX-License-Identifier: MIT
#include "stage/FinishElements.h"

#include <initializer_list>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessMessages.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

BackgroundElement Element(const std::string& type) {
    BackgroundElement element;
    element.type = type;
    return element;
}

std::vector<std::string> Finish(StageModel& model) {
    HeadlessMessages messages;
    FinishElements(model, messages, kPlainView);
    std::vector<std::string> texts;
    for (const Message& message : messages.Recorded()) {
        EXPECT_EQ(message.title, "");
        EXPECT_EQ(message.icon, MessageIcon::None);
        texts.push_back(message.text);
    }
    return texts;
}

struct Finished {
    BackgroundElement element;
    std::vector<std::string> said;
};

Finished FinishOne(const BackgroundElement& element) {
    StageModel model;
    model.Elements.push_back(element);
    Finished finished;
    finished.said = Finish(model);
    finished.element = model.Elements.front();
    return finished;
}

TEST(FinishElements, AnimatedElementsAreMasked) {
    EXPECT_EQ(FinishOne(Element("anim")).element.mask, 1);
    for (const std::string type : {"normal", "parallax", "dummy", ""}) {
        EXPECT_EQ(FinishOne(Element(type)).element.mask, 0) << type;
    }
}

TEST(FinishElements, TileXBeyond999999IsWithoutEnd) {
    BackgroundElement element = Element("normal");
    element.tileX = 1'000'000;
    EXPECT_EQ(FinishOne(element).element.tileX, 1);
    EXPECT_THAT(FinishOne(element).said, IsEmpty());
    element.tileX = 2'147'483'647;
    EXPECT_EQ(FinishOne(element).element.tileX, 1);
    element.tileX = 999'999;
    EXPECT_EQ(FinishOne(element).element.tileX, 999'999);
}

TEST(FinishElements, TileYHasNoUpperLimit) {
    BackgroundElement element = Element("normal");
    element.tileY = 1'000'000;
    EXPECT_EQ(FinishOne(element).element.tileY, 1'000'000);
}

TEST(FinishElements, NegativeTileXBecomesOneAndIsSaid) {
    BackgroundElement element = Element("anim");
    element.tileX = -1;
    const Finished finished = FinishOne(element);
    EXPECT_EQ(finished.element.tileX, 1);
    EXPECT_EQ(finished.element.tileY, 0);
    EXPECT_THAT(finished.said, ElementsAre("TileX < 0"));
}

TEST(FinishElements, NegativeTileYBecomesOneAndIsSaid) {
    for (const Long count : {-1, -2'147'483'647 - 1}) {
        BackgroundElement element = Element("normal");
        element.tileY = count;
        const Finished finished = FinishOne(element);
        EXPECT_EQ(finished.element.tileX, 0) << count;
        EXPECT_EQ(finished.element.tileY, 1) << count;
        EXPECT_THAT(finished.said, ElementsAre("TileY < 0")) << count;
    }
}

TEST(FinishElements, EveryNegativeTileCountIsSaid) {
    StageModel model;
    model.Elements.resize(3);
    model.Elements[0].tileX = -1;
    model.Elements[2].tileX = -5;
    model.Elements[2].tileY = -5;
    EXPECT_THAT(Finish(model), ElementsAre("TileX < 0", "TileX < 0", "TileY < 0"));
}

StageModel WithActions(std::initializer_list<int> numbers) {
    StageModel model;
    for (const int number : numbers) {
        model.Actions.emplace_back().actionNo = static_cast<Integer>(number);
    }
    return model;
}

Integer ActionIndexOf(StageModel model, const std::string& type, int number) {
    model.Elements.push_back(Element(type));
    model.Elements.back().actionIndex = static_cast<Integer>(number);
    EXPECT_THAT(Finish(model), IsEmpty());
    return model.Elements.back().actionIndex;
}

TEST(FinishElements, ActionNumberBecomesTheIndexOfTheFirstSuchAction) {
    const StageModel model = WithActions({7, 5, -1, 5, 0});
    EXPECT_EQ(ActionIndexOf(model, "anim", 7), 0);
    EXPECT_EQ(ActionIndexOf(model, "anim", 5), 1);
    EXPECT_EQ(ActionIndexOf(model, "anim", -1), 2);
    EXPECT_EQ(ActionIndexOf(model, "anim", 0), 4);
}

TEST(FinishElements, ActionThatIsNotThereIsMinusOne) {
    EXPECT_EQ(ActionIndexOf(WithActions({7, 5}), "anim", 6), -1);
    EXPECT_EQ(ActionIndexOf(WithActions({}), "anim", 0), -1);
}

TEST(FinishElements, StillElementsKeepTheNumberOfTheFile) {
    EXPECT_EQ(ActionIndexOf(WithActions({7, 5}), "normal", 5), 5);
    EXPECT_EQ(ActionIndexOf(WithActions({7, 5}), "", 99), 99);
}

TEST(FinishElements, StageWithoutElements) {
    StageModel model;
    EXPECT_THAT(Finish(model), IsEmpty());
    ResolveSprites(model);
    EXPECT_TRUE(model.Elements.empty());
}

// Sprites

StageModel WithSprites() {
    StageModel model;
    model.Sprites.resize(4);
    model.Sprites[0].group = 5;
    model.Sprites[1].image = 3;
    model.Sprites[2].group = 5;  // the same pair as entry 0
    model.Sprites[3].group = -1;
    model.Sprites[3].image = -1;
    return model;
}

Integer SpriteIndexOf(const std::string& type, Long group, Integer image) {
    StageModel model = WithSprites();
    BackgroundElement& element = model.Elements.emplace_back(Element(type));
    element.spriteGroup = group;
    element.spriteImage = image;
    ResolveSprites(model);
    return element.spriteIndex;
}

TEST(ResolveSprites, StillElementsGetTheFirstEntryOfTheirPair) {
    for (const std::string type : {"normal", "parallax", "dummy", "", "strange"}) {
        EXPECT_EQ(SpriteIndexOf(type, 5, 0), 0) << type;
        EXPECT_EQ(SpriteIndexOf(type, 0, 3), 1) << type;
        EXPECT_EQ(SpriteIndexOf(type, -1, -1), 3) << type;
    }
}

TEST(ResolveSprites, PairThatIsNotThereIsMinusOne) {
    EXPECT_EQ(SpriteIndexOf("normal", 5, 1), -1);
    EXPECT_EQ(SpriteIndexOf("normal", 65541, 0), -1);
}

TEST(ResolveSprites, AnimatedElementsHaveNoneOfTheirOwn) {
    EXPECT_EQ(SpriteIndexOf("anim", 5, 0), -1);
}

TEST(ResolveSprites, FramesOfEveryActionGetTheirSprite) {
    StageModel model = WithSprites();
    model.Actions.resize(2);  // no element shows either
    for (StageAction& action : model.Actions) {
        action.frames.resize(3);
        action.frames[0].image = 3;
        action.frames[1].group = 5;
        action.frames[2].group = 9;
    }
    ResolveSprites(model);
    for (const StageAction& action : model.Actions) {
        EXPECT_EQ(action.frames[0].spriteIndex, 1);
        EXPECT_EQ(action.frames[1].spriteIndex, 0);
        EXPECT_EQ(action.frames[2].spriteIndex, -1);
    }
}

TEST(ResolveSprites, WithoutSpritesNothingHasOne) {
    StageModel model;
    model.Elements.push_back(Element("normal"));
    model.Actions.emplace_back().frames.emplace_back();
    ResolveSprites(model);
    EXPECT_EQ(model.Elements[0].spriteIndex, -1);
    EXPECT_EQ(model.Actions[0].frames[0].spriteIndex, -1);
}

TEST(ResolveSprites, FindsWhatASearchFinds) {
    StageModel model;
    for (int i = 0; i < 300; ++i) {
        SpriteEntry& sprite = model.Sprites.emplace_back();
        sprite.group = i * 7 % 11 - 5;
        sprite.image = static_cast<Integer>(i * 5 % 13 - 6);
        BackgroundElement& element = model.Elements.emplace_back(Element("normal"));
        element.spriteGroup = i % 15 - 7;
        element.spriteImage = static_cast<Integer>(i / 15 - 8);
    }
    ResolveSprites(model);
    for (const BackgroundElement& element : model.Elements) {
        Integer found = -1;
        for (Integer i = 299; i >= 0; --i) {
            const SpriteEntry& sprite = model.Sprites[static_cast<std::size_t>(i)];
            found = sprite.group == element.spriteGroup && sprite.image == element.spriteImage
                        ? i
                        : found;
        }
        EXPECT_EQ(element.spriteIndex, found);
    }
}

}  // namespace
}  // namespace scenara::test
