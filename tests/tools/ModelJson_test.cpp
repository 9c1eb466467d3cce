// SPDX-License-Identifier: MIT
#include "scenara-shot/ModelJson.h"

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <rapidjson/document.h>

namespace scenara {
namespace {

using rapidjson::Document;
using rapidjson::Value;

std::string TextOf(const StageModel& model, const std::vector<Message>& messages = {}) {
    std::ostringstream out;
    WriteModelJson(out, model, messages);
    return out.str();
}

Document Parse(const StageModel& model, const std::vector<Message>& messages = {}) {
    Document document;
    document.Parse(TextOf(model, messages).c_str());
    return document;
}

// Its members' names in their order, with blanks between them.
std::string NamesOf(const Value& object) {
    std::string names;
    for (const auto& member : object.GetObject()) {
        names.append(names.empty() ? "" : " ").append(member.name.GetString());
    }
    return names;
}

// One record in every table.
StageModel OneOfEach() {
    StageModel model;
    model.Elements.emplace_back();
    model.Sprites.emplace_back();
    model.Actions.emplace_back().frames.emplace_back();
    model.CtrlDefs.emplace_back().controls.emplace_back();
    return model;
}

TEST(ModelJson, HasTheTablesInOrder) {
    EXPECT_EQ(NamesOf(Parse(StageModel())), "settings elements actions ctrlDefs sprites messages");
}

TEST(ModelJson, NamesMembersAsTheModelDoesInItsOrder) {
    const Document json = Parse(OneOfEach());
    EXPECT_EQ(NamesOf(json["settings"]),
              "StageTitle CamStartX CamStartY BoundLeft BoundRight BoundHigh BoundLow MusicFile"
              " ZOffset ZOffsetLink P1StartX Tension ScreenLeft ScreenRight CamX CamY"
              " LastImageWidth LastImageHeight ElementCount SpriteCount ActionCount CtrlDefCount"
              " ElementsById hires localcoordWidth localcoordHeight MugenVersion "
              "debugbg bgclearcolor MusicVolume MusicVolumeOffset MusicLoopStart MusicLoopEnd"
              " StageXScale StageYScale ZoomOut ZoomIn StartZoom CamZoom");
    EXPECT_EQ(NamesOf(json["elements"][0]),
              "type mask spriteGroup spriteImage startX startY posX posY deltaX deltaY tileX tileY"
              " tileSpacingX tileSpacingY velocityX velocityY actionIndex spriteIndex layerno"
              " lastTileIndex frameIndex frameTime name positionlink linkParent sinState"
              " sinYAmplitude sinYPeriod sinYPhase ctrlOffset visible enabled trans ctrlPos id"
              " windowX1 windowX2 windowY1 windowY2 windowActive xscaleTop xscaleBottom alphaSource"
              " alphaDestination blending windowDeltaX windowDeltaY yscaleStart yscaleDelta"
              " sinOffset linkSin deltaRead kind alphaDestinationGiven framesBlend tileSpacingGiven"
              " picturesGiven swingTick startFraction motion scaleStart scaleDelta"
              " zoomDelta rowWidths maskWindow maskWindowActive");
    EXPECT_EQ(NamesOf(json["elements"][0]["blending"]), "kind source destination");
    EXPECT_EQ(NamesOf(json["sprites"][0]),
              "axisX axisY width height group image selfIndex reserved masked keyAlpha keyRed"
              " keyGreen keyBlue linkedTo trueColor");
    EXPECT_EQ(NamesOf(json["actions"][0]), "frames loopstart frameCount actionNo");
    EXPECT_EQ(NamesOf(json["actions"][0]["frames"][0]),
              "group image spriteIndex offsetX offsetY time flip runtimeA runtimeB blending"
              " offsetFraction scale angle interpolated");
    EXPECT_EQ(NamesOf(json["ctrlDefs"][0]),
              "looptime timer ctrlIds controlCount controls runtimeA runtimeB");
    EXPECT_EQ(NamesOf(json["ctrlDefs"][0]["controls"][0]),
              "type startTime endTime loopTime ctrlIds x y value timer value1 value2 given"
              " value3 swingFraction");
}

TEST(ModelJson, WritesFloatsInTheirShortestForm) {
    StageModel model;
    model.CamStartX = 0.1F;
    model.CamX = -12.5F;
    const std::string text = TextOf(model);
    EXPECT_NE(text.find("\"CamStartX\": 0.1,"), std::string::npos);
    EXPECT_NE(text.find("\"CamX\": -12.5,"), std::string::npos);
}

TEST(ModelJson, WritesArrayFieldsAsArrays) {
    StageModel model = OneOfEach();
    model.Elements[0].sinState = {1.5F, 2, 3};
    model.CtrlDefs[0].ctrlIds = {4, -5};
    const Document json = Parse(model);
    ASSERT_EQ(json["elements"][0]["sinState"].Size(), 3U);
    EXPECT_EQ(json["elements"][0]["sinState"][0].GetFloat(), 1.5F);
    EXPECT_EQ(json["elements"][0]["ctrlPos"].Size(), 4U);
    ASSERT_EQ(json["ctrlDefs"][0]["ctrlIds"].Size(), 2U);
    EXPECT_EQ(json["ctrlDefs"][0]["ctrlIds"][1].GetInt(), -5);
}

TEST(ModelJson, WritesBlendingAsAWordAndItsParts) {
    StageModel model = OneOfEach();
    model.Elements[0].blending = {BlendKind::AddAlpha, 100, 200};
    const std::vector<std::pair<BlendKind, std::string>> rows = {{BlendKind::None, "none"},
                                                                 {BlendKind::Add, "add"},
                                                                 {BlendKind::Add1, "add1"},
                                                                 {BlendKind::Sub, "sub"},
                                                                 {BlendKind::AddAlpha, "addalpha"}};
    for (const auto& [kind, word] : rows) {
        model.Actions[0].frames[0].blending.kind = kind;
        const Document json = Parse(model);
        EXPECT_EQ(json["actions"][0]["frames"][0]["blending"]["kind"].GetString(), word);
    }
    const Document json = Parse(model);
    EXPECT_EQ(json["elements"][0]["blending"]["source"].GetInt(), 100);
    EXPECT_EQ(json["elements"][0]["blending"]["destination"].GetInt(), 200);
}

TEST(ModelJson, TurnsAnsiTextsIntoUtf8AndEscapesThem) {
    StageModel model;
    model.StageTitle = "\"caf\xE9\"\t\x01";
    const Document json = Parse(model, {{"kind", "a\r\nb", {}, MessageIcon::None}});
    ASSERT_FALSE(json.HasParseError());
    EXPECT_STREQ(json["settings"]["StageTitle"].GetString(), "\"caf\xC3\xA9\"\t\x01");
    EXPECT_STREQ(json["messages"][0].GetString(), "a\r\nb");
}

}  // namespace
}  // namespace scenara
