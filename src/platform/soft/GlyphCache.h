// SPDX-License-Identifier: MIT
//
// GlyphCache: the characters of one font file at one size, as coverage that can be blended.
//
// A glyph is rendered when it is asked for the first time and kept; a character that the font does
// not have is its glyph for missing ones. At most kMostGlyphs and about kMostBytes of coverage are
// kept: when they are full all are dropped, and those still in use come again. Asking for a glyph
// that is kept allocates nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/soft/FontFile.h"
#include "platform/soft/TextLayout.h"

// The font library's own types, so that its headers need not be known here.
struct FT_LibraryRec_;
struct FT_FaceRec_;

namespace scenara::soft {

// Pixels; what is drawn lies around the pen, which stands on the base line.
struct Glyph {
    std::int32_t left = 0;    // from the pen to the first column
    std::int32_t above = 0;   // from the base line up to the first row
    std::int32_t width = 0;   // columns of coverage
    std::int32_t height = 0;  // rows of coverage
    std::int32_t advance = 0;
    std::size_t coverage = 0;  // where it begins
};

class GlyphCache final : public CharacterWidths {
public:
    static constexpr std::size_t kMostGlyphs = 4096;
    static constexpr std::size_t kMostBytes = std::size_t{4} << 20U;
    static constexpr std::int32_t kMostPoints = 192;

    // None when the file is not there or is no scalable font. `points` at 96 to the inch are taken
    // as 1 to kMostPoints.
    [[nodiscard]] static std::unique_ptr<GlyphCache> Open(const FontFile& file, std::int32_t points,
                                                          std::size_t mostGlyphs = kMostGlyphs);

    // Pixels from a line's top to its base line, and from one line's top to the next one's.
    [[nodiscard]] std::int32_t Ascent() const { return ascent_; }
    [[nodiscard]] std::int32_t LineHeight() const { return lineHeight_; }

    // Both good until the next glyph is asked for.
    [[nodiscard]] const Glyph& GlyphOf(char32_t character);
    // Row by row, `width` bytes each: 0 = not covered, 255 = covered.
    [[nodiscard]] std::span<const std::uint8_t> CoverageOf(const Glyph& glyph) const;

    [[nodiscard]] std::int32_t WidthOf(char32_t character) override {
        return GlyphOf(character).advance;
    }

    // How often a glyph was rendered so far.
    [[nodiscard]] std::size_t RenderCount() const { return renderCount_; }
    [[nodiscard]] std::size_t KeptGlyphs() const { return glyphs_.size(); }

private:
    struct LibraryCloser {
        void operator()(FT_LibraryRec_* library) const;
    };
    struct FaceCloser {
        void operator()(FT_FaceRec_* face) const;
    };
    using Library = std::unique_ptr<FT_LibraryRec_, LibraryCloser>;
    using Face = std::unique_ptr<FT_FaceRec_, FaceCloser>;

    GlyphCache(Library library, Face face, std::size_t mostGlyphs);
    void Render(std::uint32_t index);

    Library library_;  // before the face, which needs it to the end
    Face face_;
    std::int32_t ascent_;
    std::int32_t lineHeight_;
    std::size_t mostGlyphs_;
    std::size_t renderCount_ = 0;
    std::vector<std::int32_t> slots_;  // by the font's glyph index: where in glyphs_, or kNoSlot
    std::vector<Glyph> glyphs_;
    std::vector<std::uint8_t> coverage_;
};

}  // namespace scenara::soft
