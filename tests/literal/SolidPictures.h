// SPDX-License-Identifier: MIT
//
// Stages of solid pictures, which show where something is and nothing else. They are added to what
// is there, black, so that an overlap is seen as well as a gap.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "literal/ProgramCanvas.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {

inline constexpr std::uint32_t kSolidColour = 0x404040;

// Sizes, as tests name them.
inline constexpr const char* kOld = "320 x 240";
inline constexpr const char* kTwice = "640 x 480";
inline constexpr const char* kFourTimes = "1280 x 960";

// Across and down, in pixels.
struct Pair {
    int x;
    int y;
};

// A picture of which this much is solid, from its left upper corner on; the rest is of colour 0.
[[nodiscard]] samplemaker::Sff1Subfile SolidSprite(std::int16_t group, std::int16_t image,
                                                   const Pair& axis, const Pair& size,
                                                   const Pair& solid);
[[nodiscard]] samplemaker::Sff1Subfile SolidSprite(std::int16_t group, std::int16_t image,
                                                   const Pair& axis, const Pair& size);

// The sprites that kBlock and the like (PlaceRows.h) name.
[[nodiscard]] const std::vector<std::byte>& SolidArchive();

// With room for the camera, unless the settings say something else.
[[nodiscard]] std::string SolidDefinition(const std::string& settings, const std::string& elements);

// What is not as it must be; empty when all is. The size is "320 x 240", what must be covered
// "left,top,right,bottom" once or several times, with blanks between; what of it lies outside does
// not count.
[[nodiscard]] std::string Wrong(const ShownCanvas& shown, const std::string& size,
                                const std::string& covered, std::uint32_t colour = kSolidColour);

}  // namespace scenara::test
