// SPDX-License-Identifier: MIT
#include "stage/StageKeys.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/NumberText.h"
#include "base/Text.h"
#include "stage/Blending.h"

namespace scenara {
namespace {

constexpr unsigned kFirst = 1U;
constexpr unsigned kSecond = 2U;
constexpr unsigned kAllFour = 15U;

// Behind the flip on a frame line.
constexpr Integer kBlendingValue = 7;

// Addition: a kind that is none of the known words is decided by its first letter ("nrm", "anim
// loop").
void KindByFirstLetter(std::string& type) {
    if (type.empty() || IsKnownKind(type)) {
        return;
    }
    switch (type.front()) {
        case 'n': type = "normal"; break;
        case 'p': type = "parallax"; break;
        case 'a': type = "anim"; break;
        case 'd': type = "dummy"; break;
        default: break;
    }
}

// Short forms of the element kinds, and what an animated one starts with.
void NormaliseType(BackgroundElement& element, bool additions) {
    if (element.type == "ani") {
        element.type = "anim";
    } else if (element.type == "paral") {
        element.type = "parallax";
    } else if (element.type == "norm") {
        element.type = "normal";
    }
    if (additions) {
        KindByFirstLetter(element.type);
    }
    if (element.type == "anim" && element.tileSpacingGiven == 0) {
        element.tileSpacingX = 1;
        element.tileSpacingY = 1;
    }
}

Byte GivenBit(bool given, Byte bit) {
    return given ? bit : Byte{0};
}

// Addition: keys that a plain reader passes over.
void ReadMoreElementKeys(KeyOffer& line, BackgroundElement& element) {
    const unsigned alpha = line.Values("alpha", element.alphaSource, element.alphaDestination);
    element.alphaDestinationGiven |= GivenBit((alpha & kSecond) != 0, 1);
    line.Values("sin.x", element.sinState[0], element.sinState[1], element.sinState[2]);
    line.Values("windowdelta", element.windowDeltaX, element.windowDeltaY);
    line.Whole("yscalestart", element.yscaleStart);
    line.Whole("yscaledelta", element.yscaleDelta);
}

void SayWindowDelta(KeyOffer& line, Messages& messages) {
    std::string notUsed;
    if (line.Whole("windowdelta", notUsed)) {
        messages.MsgBox(kMessageWindowDelta, "Windowdelta not supported just yet..");
    }
}

// What can be shown of a flip: with additions both ways.
bool CanFlip(std::string_view flip, bool additions) {
    return flip == "h" || (additions && (flip == "v" || flip == "hv" || flip == "vh"));
}

// Addition: a name loses the quotes around it.
void Unquote(std::string& name) {
    if (name.size() >= 2 && name.front() == '"' && name.back() == '"') {
        name = name.substr(1, name.size() - 2);
    }
}

}  // namespace

bool IsKnownKind(std::string_view type) {
    constexpr std::array<std::string_view, 5> kKnown = {"normal", "parallax", "anim", "dummy",
                                                        "null"};
    return std::find(kKnown.begin(), kKnown.end(), type) != kKnown.end();
}

void ReadElementKeys(KeyOffer& line, BackgroundElement& element, Messages& messages) {
    if (line.Whole("type", element.type)) {
        NormaliseType(element, line.Additions());
    }
    line.Whole("mask", element.mask);
    line.Values("spriteno", element.spriteGroup, element.spriteImage);
    line.Values("start", element.startX, element.startY);
    line.Whole("actionno", element.actionIndex);  // the number; FinishElements finds the action
    line.Values("delta", element.deltaX, element.deltaY);
    line.Values("velocity", element.velocityX, element.velocityY);
    line.Values("tile", element.tileX, element.tileY);
    line.Whole("id", element.id);
    line.Whole("trans", element.trans);
    line.Values("sin.y", element.sinYAmplitude, element.sinYPeriod, element.sinYPhase);
    if (line.Values("window", element.windowX1, element.windowY1, element.windowX2,
                    element.windowY2) == kAllFour) {
        element.windowActive = 1;
    }
    if (!line.Additions()) {
        SayWindowDelta(line, messages);
    }
    line.Whole("positionlink", element.positionlink);
    const unsigned spacing = line.Values("tilespacing", element.tileSpacingX, element.tileSpacingY);
    if (line.Additions()) {
        element.tileSpacingGiven |= static_cast<Byte>(spacing);
    }
    line.Whole("layerno", element.layerno);
    line.Values("xscale", element.xscaleTop, element.xscaleBottom);
    if (line.Additions()) {
        ReadMoreElementKeys(line, element);
    }
}

void ReadFrame(KeyOffer& line, StageFrame& frame, Messages& messages) {
    line.Values(kBareValues, frame.group, frame.image, frame.offsetX, frame.offsetY, frame.time,
                frame.flip);
    // An empty field between two commas is no flip.
    if (!frame.flip.empty() && !CanFlip(frame.flip, line.Additions())) {
        messages.MsgBox(kMessageVerticalFlip, "vertical flip not coded yet dude..");
    }
    std::string blending;
    if (line.Additions() && line.Value(kBareValues, kBlendingValue, blending)) {
        frame.blending = FrameBlending(blending);
    }
}

void ReadCtrlDefKeys(KeyOffer& line, BgCtrlDef& group) {
    line.Whole("looptime", group.looptime);
    line.List("ctrlid", group.ctrlIds);
}

void ReadCtrlKeys(KeyOffer& line, BgCtrl& control) {
    line.Whole("type", control.type);
    const bool start = line.Value("time", 1, control.startTime);
    const bool end = line.Value("time", 2, control.endTime) || line.WasTooLarge();
    line.Value("time", 3, control.loopTime);
    if (start && !end) {
        control.endTime = control.startTime;
    }
    line.List("ctrlid", control.ctrlIds);
    control.given |= GivenBit(line.Whole("x", control.x), kGivenX);
    control.given |= GivenBit(line.Whole("y", control.y), kGivenY);
    if (Contains(control.type, "sin")) {
        const unsigned values = line.Values("value", control.value1, control.value2);
        control.given |= GivenBit((values & kFirst) != 0, kGivenValue1);
        control.given |= GivenBit((values & kSecond) != 0, kGivenValue2);
    } else {
        control.given |= GivenBit(line.Whole("value", control.value), kGivenValue);
    }
}

void ReadInfoKeys(KeyOffer& line, StageModel& model) {
    constexpr double kFirstVersion = 1;
    constexpr double kBeyondVersions = 100;  // older ones are dates, such as 04,14,2002
    std::string text;
    if (line.Text("mugenversion", text)) {
        const double version = Contains(text, ",") ? 0 : LeadingNumber(text);
        const bool known = version >= kFirstVersion && version < kBeyondVersions;
        model.MugenVersion = known ? static_cast<Single>(version) : 0;
    }
}

void ReadSettingKeys(KeyOffer& line, StageModel& model, std::string& spr) {
    if (line.Text("name", model.StageTitle) && line.Additions()) {
        Unquote(model.StageTitle);
    }
    line.Whole("startx", model.CamStartX);
    line.Whole("starty", model.CamStartY);
    line.Whole("boundleft", model.BoundLeft);
    line.Whole("boundright", model.BoundRight);
    line.Whole("boundhigh", model.BoundHigh);
    // Deliberate: whatever the file says, the camera never goes below the ground view
    // (LoadStage.BoundLowIsAlwaysZero).
    std::string notUsed;
    if (line.Whole("boundlow", notUsed)) {
        model.BoundLow = 0;
    }
    line.Text("bgmusic", model.MusicFile);
    line.Text("spr", spr);
    line.Whole("zoffset", model.ZOffset);
    line.Whole("zoffsetlink", model.ZOffsetLink);
    line.Whole("p1startx", model.P1StartX);
    line.Whole("tension", model.Tension);
    line.Whole("screenleft", model.ScreenLeft);
    line.Whole("screenright", model.ScreenRight);
    if (line.Additions()) {
        line.Whole("hires", model.hires);
        line.Values("localcoord", model.localcoordWidth, model.localcoordHeight);
    }
}

}  // namespace scenara
