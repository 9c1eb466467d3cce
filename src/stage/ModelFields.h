// SPDX-License-Identifier: MIT
//
// ModelFields: the one list of each record's fields, for whoever walks all of them: the JSON of a
// model, the tests' comparison.
//
// ForEachField(record, visit) calls visit(name, field) for every field of the record, tables of
// records within it included; textures and the pictures made of them (TilePatterns) are left out,
// for they are no values, and so are seenFrom, which follows from the others, and what is only told
// to the user (Author, Archive). The order is that of
// the model as written out: new fields go to the end, so that what is there keeps its place.
#pragma once

#include <concepts>
#include <type_traits>

#include "stage/StageModel.h"

namespace scenara {

// Record is Wanted, const or not.
template <typename Record, typename Wanted>
concept RecordOf = std::same_as<std::remove_const_t<Record>, Wanted>;

template <RecordOf<Blending> Record>
void ForEachField(Record& blending, auto&& visit) {
    visit("kind", blending.kind);
    visit("source", blending.source);
    visit("destination", blending.destination);
}

template <RecordOf<BackgroundElement> Record>
void ForEachField(Record& element, auto&& visit) {
    visit("type", element.type);
    visit("mask", element.mask);
    visit("spriteGroup", element.spriteGroup);
    visit("spriteImage", element.spriteImage);
    visit("startX", element.startX);
    visit("startY", element.startY);
    visit("posX", element.posX);
    visit("posY", element.posY);
    visit("deltaX", element.deltaX);
    visit("deltaY", element.deltaY);
    visit("tileX", element.tileX);
    visit("tileY", element.tileY);
    visit("tileSpacingX", element.tileSpacingX);
    visit("tileSpacingY", element.tileSpacingY);
    visit("velocityX", element.velocityX);
    visit("velocityY", element.velocityY);
    visit("actionIndex", element.actionIndex);
    visit("spriteIndex", element.spriteIndex);
    visit("layerno", element.layerno);
    visit("lastTileIndex", element.lastTileIndex);
    visit("frameIndex", element.frameIndex);
    visit("frameTime", element.frameTime);
    visit("name", element.name);
    visit("positionlink", element.positionlink);
    visit("linkParent", element.linkParent);
    visit("sinState", element.sinState);
    visit("sinYAmplitude", element.sinYAmplitude);
    visit("sinYPeriod", element.sinYPeriod);
    visit("sinYPhase", element.sinYPhase);
    visit("ctrlOffset", element.ctrlOffset);
    visit("visible", element.visible);
    visit("enabled", element.enabled);
    visit("trans", element.trans);
    visit("ctrlPos", element.ctrlPos);
    visit("id", element.id);
    visit("windowX1", element.windowX1);
    visit("windowX2", element.windowX2);
    visit("windowY1", element.windowY1);
    visit("windowY2", element.windowY2);
    visit("windowActive", element.windowActive);
    visit("xscaleTop", element.xscaleTop);
    visit("xscaleBottom", element.xscaleBottom);
    visit("alphaSource", element.alphaSource);
    visit("alphaDestination", element.alphaDestination);
    visit("blending", element.blending);
    visit("windowDeltaX", element.windowDeltaX);
    visit("windowDeltaY", element.windowDeltaY);
    visit("yscaleStart", element.yscaleStart);
    visit("yscaleDelta", element.yscaleDelta);
    visit("sinOffset", element.sinOffset);
    visit("linkSin", element.linkSin);
    visit("deltaRead", element.deltaRead);
    visit("kind", element.kind);
    visit("alphaDestinationGiven", element.alphaDestinationGiven);
    visit("framesBlend", element.framesBlend);
    visit("tileSpacingGiven", element.tileSpacingGiven);
    visit("picturesGiven", element.picturesGiven);
    visit("swingTick", element.swingTick);
    visit("startFraction", element.startFraction);
    visit("motion", element.motion);
    visit("scaleStart", element.scaleStart);
    visit("scaleDelta", element.scaleDelta);
    visit("zoomDelta", element.zoomDelta);
    visit("rowWidths", element.rowWidths);
    visit("maskWindow", element.maskWindow);
    visit("maskWindowActive", element.maskWindowActive);
}

template <RecordOf<SpriteEntry> Record>
void ForEachField(Record& sprite, auto&& visit) {
    visit("axisX", sprite.axisX);
    visit("axisY", sprite.axisY);
    visit("width", sprite.width);
    visit("height", sprite.height);
    visit("group", sprite.group);
    visit("image", sprite.image);
    visit("selfIndex", sprite.selfIndex);
    visit("reserved", sprite.reserved);
    visit("masked", sprite.masked);
    visit("keyAlpha", sprite.keyAlpha);
    visit("keyRed", sprite.keyRed);
    visit("keyGreen", sprite.keyGreen);
    visit("keyBlue", sprite.keyBlue);
    visit("linkedTo", sprite.linkedTo);
    visit("trueColor", sprite.trueColor);
}

template <RecordOf<StageFrame> Record>
void ForEachField(Record& frame, auto&& visit) {
    visit("group", frame.group);
    visit("image", frame.image);
    visit("spriteIndex", frame.spriteIndex);
    visit("offsetX", frame.offsetX);
    visit("offsetY", frame.offsetY);
    visit("time", frame.time);
    visit("flip", frame.flip);
    visit("runtimeA", frame.runtimeA);
    visit("runtimeB", frame.runtimeB);
    visit("blending", frame.blending);
    visit("offsetFraction", frame.offsetFraction);
    visit("scale", frame.scale);
    visit("angle", frame.angle);
    visit("interpolated", frame.interpolated);
}

template <RecordOf<StageAction> Record>
void ForEachField(Record& action, auto&& visit) {
    visit("frames", action.frames);
    visit("loopstart", action.loopstart);
    visit("frameCount", action.frameCount);
    visit("actionNo", action.actionNo);
}

template <RecordOf<BgCtrl> Record>
void ForEachField(Record& control, auto&& visit) {
    visit("type", control.type);
    visit("startTime", control.startTime);
    visit("endTime", control.endTime);
    visit("loopTime", control.loopTime);
    visit("ctrlIds", control.ctrlIds);
    visit("x", control.x);
    visit("y", control.y);
    visit("value", control.value);
    visit("timer", control.timer);
    visit("value1", control.value1);
    visit("value2", control.value2);
    visit("given", control.given);
    visit("value3", control.value3);
    visit("swingFraction", control.swingFraction);
}

template <RecordOf<BgCtrlDef> Record>
void ForEachField(Record& group, auto&& visit) {
    visit("looptime", group.looptime);
    visit("timer", group.timer);
    visit("ctrlIds", group.ctrlIds);
    visit("controlCount", group.controlCount);
    visit("controls", group.controls);
    visit("runtimeA", group.runtimeA);
    visit("runtimeB", group.runtimeB);
}

// Of the whole stage, but for its tables of records, which ForEachTable has.
template <RecordOf<StageModel> Record>
void ForEachField(Record& model, auto&& visit) {
    visit("StageTitle", model.StageTitle);
    visit("CamStartX", model.CamStartX);
    visit("CamStartY", model.CamStartY);
    visit("BoundLeft", model.BoundLeft);
    visit("BoundRight", model.BoundRight);
    visit("BoundHigh", model.BoundHigh);
    visit("BoundLow", model.BoundLow);
    visit("MusicFile", model.MusicFile);
    visit("ZOffset", model.ZOffset);
    visit("ZOffsetLink", model.ZOffsetLink);
    visit("P1StartX", model.P1StartX);
    visit("Tension", model.Tension);
    visit("ScreenLeft", model.ScreenLeft);
    visit("ScreenRight", model.ScreenRight);
    visit("CamX", model.CamX);
    visit("CamY", model.CamY);
    visit("LastImageWidth", model.LastImageWidth);
    visit("LastImageHeight", model.LastImageHeight);
    visit("ElementCount", model.ElementCount);
    visit("SpriteCount", model.SpriteCount);
    visit("ActionCount", model.ActionCount);
    visit("CtrlDefCount", model.CtrlDefCount);
    visit("ElementsById", model.ElementsById);
    visit("hires", model.hires);
    visit("localcoordWidth", model.localcoordWidth);
    visit("localcoordHeight", model.localcoordHeight);
    visit("MugenVersion", model.MugenVersion);
    visit("debugbg", model.debugbg);
    visit("bgclearcolor", model.bgclearcolor);
    visit("MusicVolume", model.MusicVolume);
    visit("MusicVolumeOffset", model.MusicVolumeOffset);
    visit("MusicLoopStart", model.MusicLoopStart);
    visit("MusicLoopEnd", model.MusicLoopEnd);
    visit("StageXScale", model.StageXScale);
    visit("StageYScale", model.StageYScale);
    visit("ZoomOut", model.ZoomOut);
    visit("ZoomIn", model.ZoomIn);
    visit("StartZoom", model.StartZoom);
    visit("CamZoom", model.CamZoom);
}

template <RecordOf<StageModel> Record>
void ForEachTable(Record& model, auto&& visit) {
    visit("elements", model.Elements);
    visit("actions", model.Actions);
    visit("ctrlDefs", model.CtrlDefs);
    visit("sprites", model.Sprites);
}

}  // namespace scenara
