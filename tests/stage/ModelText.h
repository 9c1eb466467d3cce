// SPDX-License-Identifier: MIT
//
// ModelText: a stage model as text, every field of every record on a line of its own.
//
// Two models are the same when their texts are; where they differ the test shows the fields. Of a
// texture it tells a sum over its pixels.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/NumberText.h"
#include "stage/StageModel.h"

namespace scenara::test {

class FieldList {
public:
    template <typename Value>
    FieldList& Add(std::string_view name, const Value& value) {
        text_.append(name).append("=").append(AsText(value)).append("\n");
        return *this;
    }

    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    static std::string AsText(const std::string& value) { return "'" + value + "'"; }
    static std::string AsText(Single value) { return NumberText(value); }
    static std::string AsText(Integer value) { return std::to_string(value); }
    static std::string AsText(Long value) { return std::to_string(value); }
    static std::string AsText(Byte value) { return std::to_string(int{value}); }
    static std::string AsText(std::uint64_t value) { return std::to_string(value); }

    template <typename List>
    static std::string AsText(const List& list) {
        std::string text;
        for (const auto& value : list) {
            text.append(AsText(value)).append(" ");
        }
        return text;
    }

    std::string text_;
};

inline std::string ModelText(const BackgroundElement& element) {
    return FieldList()
        .Add("type", element.type)
        .Add("mask", element.mask)
        .Add("spriteGroup", element.spriteGroup)
        .Add("spriteImage", element.spriteImage)
        .Add("startX", element.startX)
        .Add("startY", element.startY)
        .Add("posX", element.posX)
        .Add("posY", element.posY)
        .Add("deltaX", element.deltaX)
        .Add("deltaY", element.deltaY)
        .Add("tileX", element.tileX)
        .Add("tileY", element.tileY)
        .Add("tileSpacingX", element.tileSpacingX)
        .Add("tileSpacingY", element.tileSpacingY)
        .Add("velocityX", element.velocityX)
        .Add("velocityY", element.velocityY)
        .Add("actionIndex", element.actionIndex)
        .Add("spriteIndex", element.spriteIndex)
        .Add("layerno", element.layerno)
        .Add("lastTileIndex", element.lastTileIndex)
        .Add("frameIndex", element.frameIndex)
        .Add("frameTime", element.frameTime)
        .Add("name", element.name)
        .Add("positionlink", element.positionlink)
        .Add("linkParent", element.linkParent)
        .Add("sinState", element.sinState)
        .Add("sinYAmplitude", element.sinYAmplitude)
        .Add("sinYPeriod", element.sinYPeriod)
        .Add("sinYPhase", element.sinYPhase)
        .Add("ctrlOffset", element.ctrlOffset)
        .Add("visible", element.visible)
        .Add("enabled", element.enabled)
        .Add("trans", element.trans)
        .Add("ctrlPos", element.ctrlPos)
        .Add("id", element.id)
        .Add("windowX1", element.windowX1)
        .Add("windowX2", element.windowX2)
        .Add("windowY1", element.windowY1)
        .Add("windowY2", element.windowY2)
        .Add("windowActive", element.windowActive)
        .Add("xscaleTop", element.xscaleTop)
        .Add("xscaleBottom", element.xscaleBottom)
        .Text();
}

// A sum (FNV-1a) over size and pixels, 0 without a texture.
inline std::uint64_t PixelSum(Direct3DTexture8* texture) {
    if (texture == nullptr) {
        return 0;
    }
    std::uint64_t sum = 14695981039346656037U;
    const auto add = [&sum](std::uint32_t word) { sum = (sum ^ word) * 1099511628211U; };
    add(static_cast<std::uint32_t>(texture->Width()));
    add(static_cast<std::uint32_t>(texture->Height()));
    const LockedPixels pixels = texture->LockRect();
    for (std::int32_t y = 0; y < texture->Height(); ++y) {
        for (std::int32_t x = 0; x < texture->Width(); ++x) {
            add(pixels.words[static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.pitch) +
                             static_cast<std::size_t>(x)]);
        }
    }
    texture->UnlockRect();
    return sum;
}

inline std::string ModelText(const SpriteEntry& sprite) {
    return FieldList()
        .Add("axisX", sprite.axisX)
        .Add("axisY", sprite.axisY)
        .Add("width", sprite.width)
        .Add("height", sprite.height)
        .Add("group", sprite.group)
        .Add("image", sprite.image)
        .Add("selfIndex", sprite.selfIndex)
        .Add("texture", PixelSum(sprite.texture.get()))
        .Add("reserved", sprite.reserved)
        .Add("masked", sprite.masked)
        .Add("keyAlpha", sprite.keyAlpha)
        .Add("keyRed", sprite.keyRed)
        .Add("keyGreen", sprite.keyGreen)
        .Add("keyBlue", sprite.keyBlue)
        .Add("linkedTo", sprite.linkedTo)
        .Text();
}

inline std::string ModelText(const StageFrame& frame) {
    return FieldList()
        .Add("group", frame.group)
        .Add("image", frame.image)
        .Add("spriteIndex", frame.spriteIndex)
        .Add("offsetX", frame.offsetX)
        .Add("offsetY", frame.offsetY)
        .Add("time", frame.time)
        .Add("runtimeA", frame.runtimeA)
        .Add("runtimeB", frame.runtimeB)
        .Add("flip", frame.flip)
        .Text();
}

inline std::string ModelText(const BgCtrl& control) {
    return FieldList()
        .Add("type", control.type)
        .Add("startTime", control.startTime)
        .Add("endTime", control.endTime)
        .Add("loopTime", control.loopTime)
        .Add("ctrlIds", control.ctrlIds)
        .Add("x", control.x)
        .Add("y", control.y)
        .Add("value", control.value)
        .Add("timer", control.timer)
        .Add("given", control.given)
        .Add("value1", control.value1)
        .Add("value2", control.value2)
        .Text();
}

inline std::string ModelText(const StageAction& action);
inline std::string ModelText(const BgCtrlDef& group);

// The records of a table, each under its heading.
template <typename Table>
std::string TableText(std::string_view name, const Table& table) {
    std::string text;
    for (std::size_t i = 0; i < table.size(); ++i) {
        text.append(name).append(" ").append(std::to_string(i)).append("\n");
        text.append(ModelText(table[i]));
    }
    return text;
}

inline std::string ModelText(const StageAction& action) {
    return FieldList()
               .Add("loopstart", action.loopstart)
               .Add("frameCount", action.frameCount)
               .Add("actionNo", action.actionNo)
               .Text() +
           TableText("frame", action.frames);
}

inline std::string ModelText(const BgCtrlDef& group) {
    return FieldList()
               .Add("looptime", group.looptime)
               .Add("timer", group.timer)
               .Add("ctrlIds", group.ctrlIds)
               .Add("runtimeA", group.runtimeA)
               .Add("controlCount", group.controlCount)
               .Text() +
           TableText("control", group.controls);
}

// The settings and counts alone.
inline std::string SettingsText(const StageModel& model) {
    return FieldList()
        .Add("ElementCount", model.ElementCount)
        .Add("SpriteCount", model.SpriteCount)
        .Add("ActionCount", model.ActionCount)
        .Add("CtrlDefCount", model.CtrlDefCount)
        .Add("StageTitle", model.StageTitle)
        .Add("CamStartX", model.CamStartX)
        .Add("CamStartY", model.CamStartY)
        .Add("BoundLeft", model.BoundLeft)
        .Add("BoundRight", model.BoundRight)
        .Add("BoundHigh", model.BoundHigh)
        .Add("BoundLow", model.BoundLow)
        .Add("MusicFile", model.MusicFile)
        .Add("ZOffset", model.ZOffset)
        .Add("ZOffsetLink", model.ZOffsetLink)
        .Add("P1StartX", model.P1StartX)
        .Add("Tension", model.Tension)
        .Add("ScreenLeft", model.ScreenLeft)
        .Add("ScreenRight", model.ScreenRight)
        .Add("CamX", model.CamX)
        .Add("CamY", model.CamY)
        .Add("LastImageWidth", model.LastImageWidth)
        .Add("LastImageHeight", model.LastImageHeight)
        .Text();
}

inline std::string ModelText(const StageModel& model) {
    return SettingsText(model) + TableText("element", model.Elements) +
           TableText("sprite", model.Sprites) + TableText("action", model.Actions) +
           TableText("group", model.CtrlDefs);
}

}  // namespace scenara::test
