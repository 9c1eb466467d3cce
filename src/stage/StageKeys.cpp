// SPDX-License-Identifier: MIT
#include "stage/StageKeys.h"

#include <array>
#include <cmath>
#include <string_view>

#include "base/NumberText.h"
#include "base/Text.h"
#include "platform/View.h"
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
    if (type.empty() || type == "null" || IsKnownKind(type)) {
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

// One value is for both axes.
void ReadZoomDelta(KeyOffer& line, BackgroundElement& element) {
    if (line.Values("zoomdelta", element.zoomDelta[0], element.zoomDelta[1]) == kFirst) {
        element.zoomDelta[1] = element.zoomDelta[0];
    }
}

// Addition: keys that a plain reader passes over.
void ReadMoreElementKeys(KeyOffer& line, BackgroundElement& element) {
    const unsigned alpha = line.Values("alpha", element.alphaSource, element.alphaDestination);
    element.alphaDestinationGiven |= GivenBit((alpha & kSecond) != 0, 1);
    line.Values("sin.x", element.sinState[0], element.sinState[1], element.sinState[2]);
    line.Values("windowdelta", element.windowDeltaX, element.windowDeltaY);
    line.Whole("yscalestart", element.yscaleStart);
    line.Whole("yscaledelta", element.yscaleDelta);
    line.Values("scalestart", element.scaleStart[0], element.scaleStart[1]);
    line.Values("scaledelta", element.scaleDelta[0], element.scaleDelta[1]);
    ReadZoomDelta(line, element);
    line.Values("width", element.rowWidths[0], element.rowWidths[1]);
    auto& [left, top, right, bottom] = element.maskWindow;
    if (line.Values("maskwindow", left, top, right, bottom) == kAllFour) {
        element.maskWindowActive = 1;
    }
}

// Addition: what a whole number, just read, leaves of the file's value. Nothing where the value is
// too large for a fraction to count.
void ReadFraction(KeyOffer& line, std::string_view key, Integer index, double whole,
                  Single& fraction) {
    Single value = 0;
    if (line.Value(key, index, value)) {
        const double rest = static_cast<double>(value) - whole;
        fraction = std::fabs(rest) <= 0.5 ? static_cast<Single>(rest) : 0;
    }
}

// Of those of the first two values of a key that were given (bits of KeyOffer::Values).
void ReadFractions(KeyOffer& line, std::string_view key, unsigned given, double first,
                   double second, std::array<Single, 2>& fractions) {
    if ((given & kFirst) != 0) {
        ReadFraction(line, key, 1, first, fractions[0]);
    }
    if ((given & kSecond) != 0) {
        ReadFraction(line, key, 2, second, fractions[1]);
    }
}

void ReadStart(KeyOffer& line, BackgroundElement& element) {
    const unsigned given = line.Values("start", element.startX, element.startY);
    if (line.Additions()) {
        ReadFractions(line, "start", given, element.startX, element.startY, element.startFraction);
    }
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

// Of a frame line. What is no number has not been given: as 0 it would hide the frame.
void ReadIfThere(KeyOffer& line, Integer index, Single& value) {
    if (BeginsWithNumber(line.BareValue(index))) {
        line.Value(kBareValues, index, value);
    }
}

void ReadVersion(KeyOffer& line, StageModel& model) {
    constexpr double kFirstVersion = 1;
    constexpr double kBeyondVersions = 100;  // older ones are dates, such as 04,14,2002
    std::string text;
    if (line.Text("mugenversion", text)) {
        const double version = Contains(text, ",") ? 0 : LeadingNumber(text);
        const bool known = version >= kFirstVersion && version < kBeyondVersions;
        model.MugenVersion = known ? static_cast<Single>(version) : 0;
    }
}

// Addition: the music's loudness and loop. No number is no volume; as 0 it would be silence.
void ReadMusicKeys(KeyOffer& line, StageModel& model) {
    std::string text;
    if (line.Whole("bgmvolume", text) && BeginsWithNumber(text)) {
        line.Whole("bgmvolume", model.MusicVolume);
    }
    line.Whole("bgvolume", model.MusicVolumeOffset);
    line.Whole("bgmloopstart", model.MusicLoopStart);
    line.Whole("bgmloopend", model.MusicLoopEnd);
}

// Swings have several values, other types one. Addition: the type may come after them.
void ReadCtrlValue(KeyOffer& line, BgCtrl& control) {
    const bool swings = Contains(control.type, "sin");
    const bool either = line.Additions() && control.type.empty();
    if (!swings) {
        control.given |= GivenBit(line.Whole("value", control.value), kGivenValue);
    }
    // One that is too large for both is reported once.
    if (swings || (either && !line.WasTooLarge())) {
        const unsigned values = line.Values("value", control.value1, control.value2);
        if (line.Additions()) {
            ReadFractions(line, "value", values, control.value1, control.value2,
                          control.swingFraction);
            line.Value("value", 3, control.value3);
        }
        control.given |= GivenBit((values & kFirst) != 0, kGivenValue1);
        control.given |= GivenBit((values & kSecond) != 0, kGivenValue2);
    }
}

// A number alone leaves the other one as it is designed.
void ReadLocalcoord(KeyOffer& line, StageModel& model) {
    const unsigned given = line.Values("localcoord", model.localcoordWidth, model.localcoordHeight);
    if (given == kFirst) {
        model.localcoordHeight = View().height;
    } else if (given == kSecond) {
        model.localcoordWidth = View().width;
    }
}

}  // namespace

void ReadElementKeys(KeyOffer& line, BackgroundElement& element, Messages& messages) {
    if (line.Whole("type", element.type)) {
        NormaliseType(element, line.Additions());
    }
    line.Whole("mask", element.mask);
    const bool sprite = line.Values("spriteno", element.spriteGroup, element.spriteImage) != 0;
    ReadStart(line, element);
    // The number; FinishElements finds the action.
    const bool action = line.Whole("actionno", element.actionIndex);
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
        element.picturesGiven |= GivenBit(sprite, kGivenSprite);
        element.picturesGiven |= GivenBit(action, kGivenAction);
    }
    line.Whole("layerno", element.layerno);
    line.Values("xscale", element.xscaleTop, element.xscaleBottom);
    if (line.Additions()) {
        ReadMoreElementKeys(line, element);
    }
}

void ReadFrame(KeyOffer& line, StageFrame& frame, Messages& messages) {
    const unsigned given = line.Values(kBareValues, frame.group, frame.image, frame.offsetX,
                                       frame.offsetY, frame.time, frame.flip);
    constexpr unsigned kOffsetX = 4U;
    constexpr unsigned kOffsetY = 8U;
    if (line.Additions() && (given & kOffsetX) != 0) {
        ReadFraction(line, kBareValues, 3, frame.offsetX, frame.offsetFraction[0]);
    }
    if (line.Additions() && (given & kOffsetY) != 0) {
        ReadFraction(line, kBareValues, 4, frame.offsetY, frame.offsetFraction[1]);
    }
    // An empty field between two commas is no flip.
    if (!frame.flip.empty() && !CanFlip(frame.flip, line.Additions())) {
        messages.MsgBox(kMessageVerticalFlip, "vertical flip not coded yet dude..");
    }
    if (line.Additions()) {
        frame.blending = FrameBlending(line.BareValue(kBlendingValue));
        ReadIfThere(line, kBlendingValue + 1, frame.scale[0]);
        ReadIfThere(line, kBlendingValue + 2, frame.scale[1]);
        ReadIfThere(line, kBlendingValue + 3, frame.angle);
    }
}

Byte InterpolatedBy(std::string_view line) {
    struct Word {
        std::string_view name;
        Byte bit;
    };
    static constexpr Word kWords[] = {{"offset", kInterpolatedOffset},
                                      {"blend", kInterpolatedBlend},
                                      {"scale", kInterpolatedScale},
                                      {"angle", kInterpolatedAngle}};
    constexpr std::string_view kInterpolate = "interpolate";
    const std::string_view text = Trim(line);
    if (!text.starts_with(kInterpolate)) {
        return 0;
    }
    const std::string_view rest = Trim(text.substr(kInterpolate.size()));
    for (const auto& [name, bit] : kWords) {
        if (rest.starts_with(name)) {
            return bit;
        }
    }
    return 0;
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
    ReadCtrlValue(line, control);
}

void ReadKeysOfSection(KeyOffer& line, StageModel& model, std::string_view section) {
    if (section == "info") {
        ReadVersion(line, model);
        if (line.Text("author", model.Author)) {
            model.Author = Unquoted(model.Author);
        }
    } else if (section == "stageinfo") {
        line.Whole("hires", model.hires);
        ReadLocalcoord(line, model);
        line.Whole("xscale", model.StageXScale);
        line.Whole("yscale", model.StageYScale);
    } else if (section == "bgdef") {
        auto& [red, green, blue] = model.bgclearcolor;
        line.Whole("debugbg", model.debugbg);
        line.Values("bgclearcolor", red, green, blue);
    } else if (section == "camera") {
        line.Whole("zoomout", model.ZoomOut);
        line.Whole("zoomin", model.ZoomIn);
        line.Whole("startzoom", model.StartZoom);
    } else if (section == "music") {
        ReadMusicKeys(line, model);
    }
}

void ReadSettingKeys(KeyOffer& line, StageModel& model, std::string& spr) {
    if (line.Text("name", model.StageTitle) && line.Additions()) {
        model.StageTitle = Unquoted(model.StageTitle);
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
}

}  // namespace scenara
