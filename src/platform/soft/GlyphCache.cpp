// SPDX-License-Identifier: MIT
#include "platform/soft/GlyphCache.h"

#include <algorithm>
#include <utility>

#include <freetype/freetype.h>
#include <ft2build.h>

namespace scenara::soft {
namespace {

constexpr std::int32_t kNoSlot = -1;

// The font library counts in 64ths of a pixel.
std::int32_t PixelsOf(FT_Pos position) {
    return static_cast<std::int32_t>((position + 32) >> 6);
}

}  // namespace

void GlyphCache::LibraryCloser::operator()(FT_LibraryRec_* library) const {
    FT_Done_FreeType(library);
}

void GlyphCache::FaceCloser::operator()(FT_FaceRec_* face) const {
    FT_Done_Face(face);
}

std::unique_ptr<GlyphCache> GlyphCache::Open(const FontFile& file, std::int32_t points,
                                             std::size_t mostGlyphs) {
    FT_Library openLibrary = nullptr;
    if (FT_Init_FreeType(&openLibrary) != 0) {
        return nullptr;
    }
    Library library(openLibrary);
    FT_Face openFace = nullptr;
    if (FT_New_Face(library.get(), file.path.c_str(), file.index, &openFace) != 0) {
        return nullptr;
    }
    Face face(openFace);
    constexpr FT_UInt kPointsPerInch = 96;
    const std::int32_t size = std::clamp(points, 1, kMostPoints);
    if (!FT_IS_SCALABLE(face.get()) || face->num_glyphs < 1 ||
        FT_Set_Char_Size(face.get(), 0, FT_F26Dot6{size} * 64, kPointsPerInch, kPointsPerInch) !=
            0) {
        return nullptr;
    }
    return std::unique_ptr<GlyphCache>(
        new GlyphCache(std::move(library), std::move(face), mostGlyphs));
}

GlyphCache::GlyphCache(Library library, Face face, std::size_t mostGlyphs)
    : library_(std::move(library)),
      face_(std::move(face)),
      ascent_(PixelsOf(face_->size->metrics.ascender)),
      lineHeight_(std::max(1, ascent_ - PixelsOf(face_->size->metrics.descender))),
      mostGlyphs_(mostGlyphs),
      slots_(static_cast<std::size_t>(face_->num_glyphs), kNoSlot) {}

const Glyph& GlyphCache::GlyphOf(char32_t character) {
    std::uint32_t index = FT_Get_Char_Index(face_.get(), character);
    if (index >= slots_.size()) {
        index = 0;  // a broken table in the font; 0 is the glyph for missing characters
    }
    if (slots_[index] == kNoSlot) {
        Render(index);
    }
    return glyphs_[static_cast<std::size_t>(slots_[index])];
}

std::span<const std::uint8_t> GlyphCache::CoverageOf(const Glyph& glyph) const {
    return std::span(coverage_).subspan(glyph.coverage, static_cast<std::size_t>(glyph.width) *
                                                            static_cast<std::size_t>(glyph.height));
}

// A glyph that the library cannot render is kept as one without width and coverage.
void GlyphCache::Render(std::uint32_t index) {
    if (glyphs_.size() >= mostGlyphs_ || coverage_.size() >= kMostBytes) {
        std::fill(slots_.begin(), slots_.end(), kNoSlot);
        glyphs_.clear();
        coverage_.clear();
    }
    ++renderCount_;
    Glyph glyph;
    glyph.coverage = coverage_.size();
    if (FT_Load_Glyph(face_.get(), index, FT_LOAD_RENDER | FT_LOAD_NO_BITMAP) == 0) {
        const FT_GlyphSlot slot = face_->glyph;
        const FT_Bitmap& bitmap = slot->bitmap;
        glyph.advance = std::max(0, PixelsOf(slot->advance.x));
        // What has no outline (a blank) has no pixels; what is rendered has rows from the top down.
        if (bitmap.pixel_mode == FT_PIXEL_MODE_GRAY && bitmap.pitch > 0) {
            glyph.left = slot->bitmap_left;
            glyph.above = slot->bitmap_top;
            glyph.width = static_cast<std::int32_t>(bitmap.width);
            glyph.height = static_cast<std::int32_t>(bitmap.rows);
            for (std::size_t y = 0; y < bitmap.rows; ++y) {
                const std::uint8_t* const row =
                    bitmap.buffer + y * static_cast<std::size_t>(bitmap.pitch);
                coverage_.insert(coverage_.end(), row, row + bitmap.width);
            }
        }
    }
    slots_[index] = static_cast<std::int32_t>(glyphs_.size());
    glyphs_.push_back(glyph);
}

}  // namespace scenara::soft
