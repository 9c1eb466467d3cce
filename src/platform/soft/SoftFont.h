// SPDX-License-Identifier: MIT
//
// SoftFont: text over the picture, drawn on the CPU with the system's fonts.
//
// Where there are none, or their library does not work, nothing is drawn: nobody shall lose the
// picture for the sake of a line of text.
//
// A character is blended with its coverage times the colour's alpha, exactly and then rounded to
// the nearest value; the pixels' top bytes stay. Once its glyphs are there a text is drawn without
// allocating anything. Characters are not kerned.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/Direct3D8.h"
#include "platform/soft/GlyphCache.h"

namespace scenara {

// The characters of a font; none where the system has no fonts.
[[nodiscard]] std::unique_ptr<soft::GlyphCache> MakeSoftFont(const FontDescription& description);

// Draws into `height` lines of `width` pixels, laid out as platform/soft/TextLayout.h says. What
// lies outside of the picture is not drawn, nor what lies outside of the rectangle (save with
// DT_NOCLIP). Nothing is drawn without glyphs, or when `pixels` are too few.
void DrawSoftText(soft::GlyphCache* glyphs, std::uint32_t color, std::string_view text,
                  const RECT& rectangle, std::uint32_t format, std::span<std::uint32_t> pixels,
                  std::int32_t width, std::int32_t height);

}  // namespace scenara
