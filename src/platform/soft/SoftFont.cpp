// SPDX-License-Identifier: MIT
#include "platform/soft/SoftFont.h"

#include <algorithm>

#include "base/Text.h"
#include "platform/soft/TextLayout.h"

namespace scenara {
namespace {

using soft::Glyph;
using soft::GlyphCache;

// Columns and rows; right and bottom lie outside. Empty when they do not lie behind left and top.
struct Box {
    std::int64_t left;
    std::int64_t top;
    std::int64_t right;
    std::int64_t bottom;
};

Box Common(const Box& a, const Box& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
            std::min(a.bottom, b.bottom)};
}

struct Target {
    std::span<std::uint32_t> pixels;
    std::int32_t width;
    Box clip;  // inside of the picture
};

// `color` over `pixel`, where `weight` / (255 x 255) of it are covered.
std::uint32_t Blended(std::uint32_t pixel, std::uint32_t color, std::uint32_t weight) {
    constexpr std::uint32_t kWhole = 255 * 255;  // odd: there is no half to round
    const auto mixed = [&](unsigned shift) {
        const std::uint32_t above = (color >> shift) & 0xFFU;
        const std::uint32_t below = (pixel >> shift) & 0xFFU;
        return ((above * weight + below * (kWhole - weight) + kWhole / 2) / kWhole) << shift;
    };
    return (pixel & 0xFF000000U) | mixed(16) | mixed(8) | mixed(0);
}

// Draws a glyph whose upper left pixel is at (left, top).
void DrawGlyph(const Target& target, const Glyph& glyph, std::span<const std::uint8_t> coverage,
               std::int64_t left, std::int64_t top, std::uint32_t color) {
    const Box shown = Common({left, top, left + glyph.width, top + glyph.height}, target.clip);
    const std::uint32_t alpha = color >> 24U;
    for (std::int64_t y = shown.top; y < shown.bottom; ++y) {
        for (std::int64_t x = shown.left; x < shown.right; ++x) {
            const auto from = static_cast<std::size_t>((y - top) * glyph.width + (x - left));
            auto& pixel = target.pixels[static_cast<std::size_t>(y * target.width + x)];
            pixel = Blended(pixel, color, coverage[from] * alpha);
        }
    }
}

void DrawLine(const Target& target, GlyphCache& glyphs, const soft::PlacedLine& line,
              TextEncoding encoding, std::uint32_t color) {
    std::int64_t pen = line.left;
    const std::int64_t baseLine = line.top + glyphs.Ascent();
    for (std::size_t at = 0; at < line.text.size();) {
        const CodePoint character = CodePointAt(line.text, at, encoding);
        at += character.length;
        if (soft::IsControl(character.value)) {
            continue;
        }
        const Glyph& glyph = glyphs.GlyphOf(character.value);
        DrawGlyph(target, glyph, glyphs.CoverageOf(glyph), pen + glyph.left, baseLine - glyph.above,
                  color);
        pen += glyph.advance;
    }
}

}  // namespace

std::unique_ptr<GlyphCache> MakeSoftFont(const FontDescription& description) {
    const auto file = soft::FindFontFile(description);
    return file ? GlyphCache::Open(*file, description.size) : nullptr;
}

void DrawSoftText(GlyphCache* glyphs, std::uint32_t color, std::string_view text,
                  const RECT& rectangle, std::uint32_t format, std::span<std::uint32_t> pixels,
                  std::int32_t width, std::int32_t height) {
    if (glyphs == nullptr || width < 1 || height < 1 ||
        pixels.size() / static_cast<std::size_t>(width) < static_cast<std::size_t>(height)) {
        return;
    }
    const Box picture{0, 0, width, height};
    const Box frame{rectangle.left, rectangle.top, rectangle.right, rectangle.bottom};
    const Target target{pixels, width,
                        (format & DT_NOCLIP) != 0 ? picture : Common(picture, frame)};
    const TextEncoding encoding = EncodingOf(text);
    soft::TextLayout layout(text, encoding, rectangle, format, glyphs->LineHeight(), *glyphs);
    while (const auto line = layout.Next()) {
        DrawLine(target, *glyphs, *line, encoding, color);
    }
}

}  // namespace scenara
