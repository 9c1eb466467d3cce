// SPDX-License-Identifier: MIT
#include "scenara-shot/ModelJson.h"

#include <array>
#include <concepts>

#include <rapidjson/ostreamwrapper.h>
#include <rapidjson/prettywriter.h>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {
namespace {

// Writes "name": value pairs, numbers in the program's own form.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out) : stream_(out) { writer_.SetIndent(' ', 2); }

    void Object(auto&& members) {
        writer_.StartObject();
        members();
        writer_.EndObject();
    }

    template <typename Records>
    void Array(const char* name, const Records& records, auto&& write) {
        writer_.Key(name);
        writer_.StartArray();
        for (const auto& record : records) {
            write(record);
        }
        writer_.EndArray();
    }

    template <typename NumberList>
    void NumberArray(const char* name, const NumberList& numbers) {
        writer_.SetFormatOptions(rapidjson::kFormatSingleLineArray);
        Array(name, numbers, [&](auto number) { Value(number); });
        writer_.SetFormatOptions(rapidjson::kFormatDefault);
    }

    void Key(const char* name) { writer_.Key(name); }

    template <typename ValueType>
    void Member(const char* name, const ValueType& value) {
        writer_.Key(name);
        Value(value);
    }

    void Value(std::string_view text) {
        const std::string utf8 = ToUtf8(text);
        writer_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
    }
    void Value(const std::string& text) { Value(std::string_view(text)); }
    void Value(float number) { Raw(NumberText(number)); }
    template <std::integral Number>
    void Value(Number number) {
        Raw(NumberText(std::int64_t{number}));
    }

private:
    void Raw(const std::string& number) {
        writer_.RawValue(number.data(), number.size(), rapidjson::kNumberType);
    }

    rapidjson::OStreamWrapper stream_;
    rapidjson::PrettyWriter<rapidjson::OStreamWrapper> writer_{stream_};
};

void WriteSettings(JsonWriter& json, const StageModel& model) {
    json.Key("settings");
    json.Object([&] {
        json.Member("StageTitle", model.StageTitle);
        json.Member("CamStartX", model.CamStartX);
        json.Member("CamStartY", model.CamStartY);
        json.Member("BoundLeft", model.BoundLeft);
        json.Member("BoundRight", model.BoundRight);
        json.Member("BoundHigh", model.BoundHigh);
        json.Member("BoundLow", model.BoundLow);
        json.Member("MusicFile", model.MusicFile);
        json.Member("ZOffset", model.ZOffset);
        json.Member("ZOffsetLink", model.ZOffsetLink);
        json.Member("P1StartX", model.P1StartX);
        json.Member("Tension", model.Tension);
        json.Member("ScreenLeft", model.ScreenLeft);
        json.Member("ScreenRight", model.ScreenRight);
        json.Member("CamX", model.CamX);
        json.Member("CamY", model.CamY);
        json.Member("LastImageWidth", model.LastImageWidth);
        json.Member("LastImageHeight", model.LastImageHeight);
    });
}

void WriteElement(JsonWriter& json, const BackgroundElement& element) {
    json.Object([&] {
        json.Member("type", element.type);
        json.Member("mask", element.mask);
        json.Member("spriteGroup", element.spriteGroup);
        json.Member("spriteImage", element.spriteImage);
        json.Member("startX", element.startX);
        json.Member("startY", element.startY);
        json.Member("posX", element.posX);
        json.Member("posY", element.posY);
        json.Member("deltaX", element.deltaX);
        json.Member("deltaY", element.deltaY);
        json.Member("tileX", element.tileX);
        json.Member("tileY", element.tileY);
        json.Member("tileSpacingX", element.tileSpacingX);
        json.Member("tileSpacingY", element.tileSpacingY);
        json.Member("velocityX", element.velocityX);
        json.Member("velocityY", element.velocityY);
        json.Member("actionIndex", element.actionIndex);
        json.Member("spriteIndex", element.spriteIndex);
        json.Member("layerno", element.layerno);
        json.Member("lastTileIndex", element.lastTileIndex);
        json.Member("frameIndex", element.frameIndex);
        json.Member("frameTime", element.frameTime);
        json.Member("name", element.name);
        json.Member("positionlink", element.positionlink);
        json.Member("linkParent", element.linkParent);
        json.NumberArray("sinState", element.sinState);
        json.Member("sinYAmplitude", element.sinYAmplitude);
        json.Member("sinYPeriod", element.sinYPeriod);
        json.Member("sinYPhase", element.sinYPhase);
        json.NumberArray("ctrlOffset", element.ctrlOffset);
        json.Member("visible", element.visible);
        json.Member("enabled", element.enabled);
        json.Member("trans", element.trans);
        json.NumberArray("ctrlPos", element.ctrlPos);
        json.Member("id", element.id);
        json.Member("windowX1", element.windowX1);
        json.Member("windowX2", element.windowX2);
        json.Member("windowY1", element.windowY1);
        json.Member("windowY2", element.windowY2);
        json.Member("windowActive", element.windowActive);
        json.Member("xscaleTop", element.xscaleTop);
        json.Member("xscaleBottom", element.xscaleBottom);
    });
}

void WriteFrame(JsonWriter& json, const StageFrame& frame) {
    json.Object([&] {
        json.Member("group", frame.group);
        json.Member("image", frame.image);
        json.Member("spriteIndex", frame.spriteIndex);
        json.Member("offsetX", frame.offsetX);
        json.Member("offsetY", frame.offsetY);
        json.Member("time", frame.time);
        json.Member("flip", frame.flip);
    });
}

void WriteAction(JsonWriter& json, const StageAction& action) {
    json.Object([&] {
        json.Array("frames", action.frames,
                   [&](const StageFrame& frame) { WriteFrame(json, frame); });
        json.Member("loopstart", action.loopstart);
        json.Member("frameCount", action.frameCount);
        json.Member("actionNo", action.actionNo);
    });
}

void WriteControl(JsonWriter& json, const BgCtrl& control) {
    json.Object([&] {
        json.Member("type", control.type);
        json.Member("startTime", control.startTime);
        json.Member("endTime", control.endTime);
        json.Member("loopTime", control.loopTime);
        json.NumberArray("ctrlIds", control.ctrlIds);
        json.Member("x", control.x);
        json.Member("y", control.y);
        json.Member("value", control.value);
        json.Member("timer", control.timer);
        json.Member("value1", control.value1);
        json.Member("value2", control.value2);
    });
}

void WriteCtrlDef(JsonWriter& json, const BgCtrlDef& group) {
    json.Object([&] {
        json.Member("looptime", group.looptime);
        json.Member("timer", group.timer);
        json.NumberArray("ctrlIds", group.ctrlIds);
        json.Member("controlCount", group.controlCount);
        json.Array("controls", group.controls,
                   [&](const BgCtrl& control) { WriteControl(json, control); });
    });
}

void WriteSprite(JsonWriter& json, const SpriteEntry& sprite) {
    json.Object([&] {
        json.Member("axisX", sprite.axisX);
        json.Member("axisY", sprite.axisY);
        json.Member("width", sprite.width);
        json.Member("height", sprite.height);
        json.Member("group", sprite.group);
        json.Member("image", sprite.image);
        json.Member("selfIndex", sprite.selfIndex);
        json.Member("reserved", sprite.reserved);
        json.Member("masked", sprite.masked);
        json.Member("keyAlpha", sprite.keyAlpha);
        json.Member("keyRed", sprite.keyRed);
        json.Member("keyGreen", sprite.keyGreen);
        json.Member("keyBlue", sprite.keyBlue);
        json.Member("linkedTo", sprite.linkedTo);
    });
}

}  // namespace

void WriteModelJson(std::ostream& out, const StageModel& model,
                    const std::vector<Message>& messages) {
    JsonWriter json(out);
    json.Object([&] {
        WriteSettings(json, model);
        json.Array("elements", model.Elements, [&](const auto& e) { WriteElement(json, e); });
        json.Array("actions", model.Actions, [&](const auto& a) { WriteAction(json, a); });
        json.Array("ctrlDefs", model.CtrlDefs, [&](const auto& g) { WriteCtrlDef(json, g); });
        json.Array("sprites", model.Sprites, [&](const auto& s) { WriteSprite(json, s); });
        json.Array("messages", messages, [&](const Message& m) { json.Value(m.text); });
    });
    out << '\n';
}

}  // namespace scenara
