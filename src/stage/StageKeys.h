// SPDX-License-Identifier: MIT
//
// Every key that a stage definition can hold, and the field that it fills. One procedure per kind
// of section, one line per key, in the order in which a line is tried; what a key does beyond
// filling its field stands right at it. All other keys are passed over without a word.
#pragma once

#include <string>
#include <string_view>

#include "stage/KeyOffer.h"
#include "stage/StageModel.h"

namespace scenara {

inline constexpr MessageKind kMessageWindowDelta{"windowdelta", Severity::Warning};
inline constexpr MessageKind kMessageVerticalFlip{"unknown-flip", Severity::Warning};

// [BG ...]
void ReadElementKeys(KeyOffer& line, BackgroundElement& element, Messages& messages);

// A frame line of [Begin Action n]: group, image, x, y, time, flip; with additions also blending,
// scale across and down, angle.
void ReadFrame(KeyOffer& line, StageFrame& frame, Messages& messages);

// Addition: what a line between two frames, "Interpolate" and one of four words, says to go over
// from one to the other (kInterpolated... bits); 0 for any other line. `line` is in lower case.
[[nodiscard]] Byte InterpolatedBy(std::string_view line);

// [BGCtrlDef ...]
void ReadCtrlDefKeys(KeyOffer& line, BgCtrlDef& group);

// [BGCtrl ...]
void ReadCtrlKeys(KeyOffer& line, BgCtrl& control);

// Addition: settings that count in a section of their own only. `section`: its name in lower case.
void ReadKeysOfSection(KeyOffer& line, StageModel& model, std::string_view section);

// Every section of settings, whatever its name. `spr` receives the sprite archive's name.
void ReadSettingKeys(KeyOffer& line, StageModel& model, std::string& spr);

}  // namespace scenara
