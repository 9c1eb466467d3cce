// SPDX-License-Identifier: MIT
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "platform/posix/ProgramFolder.h"
#include "platform/soft/SoftFont.h"
#include "support/AllocationCount.h"

namespace scenara {
namespace {

using Pixels = std::vector<std::uint32_t>;

constexpr std::int32_t kWidth = 120;
constexpr std::int32_t kHeight = 60;
constexpr std::uint32_t kGround = 0x12406080;
constexpr std::uint32_t kInk = 0xFFFFFFFF;
constexpr RECT kWhole{0, 0, kWidth, kHeight};

const FontDescription kDescription{"Times New Roman", 12, true, false};

class SoftFontTest : public testing::Test {
protected:
    // The picture with `text` drawn on the ground.
    [[nodiscard]] Pixels Drawn(std::string_view text, const RECT& rectangle,
                               std::uint32_t format = 0, std::uint32_t color = kInk) const {
        Pixels pixels(std::size_t{kWidth} * kHeight, kGround);
        Draw(pixels, text, rectangle, format, color);
        return pixels;
    }

    void Draw(Pixels& pixels, std::string_view text, const RECT& rectangle,
              std::uint32_t format = 0, std::uint32_t color = kInk) const {
        DrawSoftText(font_.get(), color, text, rectangle, format, pixels, kWidth, kHeight);
    }

    [[nodiscard]] soft::GlyphCache& Glyphs() const { return *font_; }

    [[nodiscard]] std::int32_t WidthOf(std::u32string_view text) const {
        std::int32_t width = 0;
        for (const char32_t character : text) {
            width += Glyphs().WidthOf(character);
        }
        return width;
    }

    std::unique_ptr<soft::GlyphCache> font_ = MakeSoftFont(kDescription);
};

Pixels Ground() {
    return Pixels(std::size_t{kWidth} * kHeight, kGround);
}

bool IsInside(std::size_t index, const RECT& rectangle) {
    const auto x = static_cast<std::int32_t>(index % kWidth);
    const auto y = static_cast<std::int32_t>(index / kWidth);
    return x >= rectangle.left && x < rectangle.right && y >= rectangle.top && y < rectangle.bottom;
}

// `inside` where the rectangle is, `outside` elsewhere.
Pixels Combined(const Pixels& inside, const Pixels& outside, const RECT& rectangle) {
    Pixels combined = outside;
    for (std::size_t i = 0; i < combined.size(); ++i) {
        if (IsInside(i, rectangle)) {
            combined[i] = inside[i];
        }
    }
    return combined;
}

// The smallest rectangle that holds all that was drawn.
RECT InkOf(const Pixels& pixels) {
    RECT ink{kWidth, kHeight, 0, 0};
    for (std::size_t i = 0; i < pixels.size(); ++i) {
        if (pixels[i] != kGround) {
            const auto x = static_cast<std::int32_t>(i % kWidth);
            const auto y = static_cast<std::int32_t>(i / kWidth);
            ink = {std::min(ink.left, x), std::min(ink.top, y), std::max(ink.right, x + 1),
                   std::max(ink.bottom, y + 1)};
        }
    }
    return ink;
}

TEST_F(SoftFontTest, DrawsFromTheUpperLeftCorner) {
    const RECT ink = InkOf(Drawn("HH", {20, 10, 120, 60}));
    EXPECT_GE(ink.left, 20);
    EXPECT_LE(ink.left, 22);
    EXPECT_GT(ink.top, 10);
    EXPECT_EQ(ink.bottom, 10 + Glyphs().Ascent()) << "H stands on the base line";
    EXPECT_GT(ink.right, 20 + WidthOf(U"H"));
    EXPECT_LE(ink.right, 20 + WidthOf(U"HH") + 1) << "a serif may reach into the next cell";
}

TEST_F(SoftFontTest, BlendsCoverageTimesAlphaToTheNearestValue) {
    const soft::Glyph glyph = Glyphs().GlyphOf(U'S');
    const auto coverage = Glyphs().CoverageOf(glyph);
    bool partly = false;
    for (const std::uint32_t color : {0xFFFFFFFFU, 0xFF000000U, 0x80FF4001U, 0x01FFFFFFU}) {
        const Pixels pixels = Drawn("S", {3, 2, 100, 50}, 0, color);
        const std::int32_t left = 3 + glyph.left;
        const std::int32_t top = 2 + Glyphs().Ascent() - glyph.above;
        for (std::int32_t y = 0; y < kHeight; ++y) {
            for (std::int32_t x = 0; x < kWidth; ++x) {
                const bool inGlyph =
                    x >= left && x < left + glyph.width && y >= top && y < top + glyph.height;
                const int covered =
                    inGlyph ? coverage[static_cast<std::size_t>((y - top) * glyph.width + x - left)]
                            : 0;
                partly = partly || (covered > 0 && covered < 255);
                const double weight = covered / 255.0 * ((color >> 24U) / 255.0);
                const auto channel = [&](unsigned shift) {
                    const double above = (color >> shift) & 0xFFU;
                    const double below = (kGround >> shift) & 0xFFU;
                    return static_cast<std::uint32_t>(
                               std::lround(above * weight + below * (1 - weight)))
                           << shift;
                };
                ASSERT_EQ(pixels[static_cast<std::size_t>(y * kWidth + x)],
                          0x12000000U | channel(16) | channel(8) | channel(0))
                    << x << ", " << y;
            }
        }
    }
    EXPECT_TRUE(partly) << "the glyph has soft edges";
}

TEST_F(SoftFontTest, ATransparentColourDrawsNothing) {
    EXPECT_EQ(Drawn("HHH", kWhole, 0, 0x00FFFFFF), Ground());
}

TEST_F(SoftFontTest, IsCutAtTheRectangle) {
    const RECT rectangle{10, 8, 37, 15};
    const Pixels uncut = Drawn("WgWgWgWg", rectangle, DT_NOCLIP);
    const Pixels cut = Drawn("WgWgWgWg", rectangle);
    EXPECT_EQ(cut, Combined(uncut, Ground(), rectangle));
    EXPECT_NE(cut, Ground());
    EXPECT_NE(cut, uncut);
    const RECT ink = InkOf(uncut);
    EXPECT_GT(ink.right, rectangle.right);
    EXPECT_GT(ink.bottom, rectangle.bottom);
}

TEST_F(SoftFontTest, IsCutAtThePictureInAnyCase) {
    // The same picture as the middle of a larger one.
    constexpr std::int32_t kMargin = 40;
    constexpr std::int32_t kLargeWidth = kWidth + 2 * kMargin;
    constexpr std::int32_t kLargeHeight = kHeight + 2 * kMargin;
    Pixels large(std::size_t{kLargeWidth} * kLargeHeight, kGround);
    const std::string text = "WgWgWgWgWgWgWgWgWg\nWgWgWgWgWg\nWg\nWgWgWg\nWgWg";
    DrawSoftText(font_.get(), kInk, text, {20, 20, 30, 30}, DT_NOCLIP, large, kLargeWidth,
                 kLargeHeight);
    Pixels middle;
    for (std::int32_t y = 0; y < kHeight; ++y) {
        const auto line = large.begin() + std::ptrdiff_t{y + kMargin} * kLargeWidth + kMargin;
        middle.insert(middle.end(), line, line + kWidth);
    }
    EXPECT_EQ(Drawn(text, {20 - kMargin, 20 - kMargin, 30 - kMargin, 30 - kMargin}, DT_NOCLIP),
              middle);
    EXPECT_EQ(Drawn(text, {20 - kMargin, 20 - kMargin, 1000, 1000}), middle)
        << "a rectangle that reaches beyond the picture cuts nothing inside of it";
}

TEST_F(SoftFontTest, AlignsByTheWidthOfTheText) {
    const std::int32_t width = WidthOf(U"Wide 12");
    EXPECT_EQ(Drawn("Wide 12", {10, 5, 110, 55}, DT_RIGHT),
              Drawn("Wide 12", {110 - width, 5, 110, 55}));
    EXPECT_EQ(Drawn("Wide 12", {10, 5, 110, 55}, DT_CENTER),
              Drawn("Wide 12", {10 + (100 - width) / 2, 5, 110, 55}));
    const RECT ink = InkOf(Drawn("H", {10, 5, 110, 55}, DT_RIGHT));
    EXPECT_LE(ink.right, 110);
    EXPECT_GE(ink.right, 108) << "it ends in the rectangle's last columns";
}

TEST_F(SoftFontTest, AlignsByTheHeightOfAllLines) {
    const std::int32_t line = Glyphs().LineHeight();
    EXPECT_EQ(Drawn("up\ndown", {10, 5, 110, 55}, DT_BOTTOM),
              Drawn("up\ndown", {10, 55 - 2 * line, 110, 55}));
    EXPECT_EQ(Drawn("up\ndown", {10, 5, 110, 55}, DT_VCENTER),
              Drawn("up\ndown", {10, 5 + (50 - 2 * line) / 2, 110, 55}));
    EXPECT_EQ(Drawn("down", {10, 5, 110, 55}, 10),
              Drawn("down", {110 - WidthOf(U"down"), 55 - line, 110, 55}));
}

TEST_F(SoftFontTest, DrawsLinesBelowEachOther) {
    const std::int32_t line = Glyphs().LineHeight();
    Pixels apart = Drawn("one", {10, 0, 120, 60});
    Draw(apart, "two", {10, line, 120, 60});
    for (const char* text : {"one\r\ntwo", "one\ntwo", "one\rtwo"}) {
        EXPECT_EQ(Drawn(text, {10, 0, 120, 60}), apart);
    }
    EXPECT_EQ(Drawn("one two", {10, 0, 10 + WidthOf(U"one tw"), 60}, DT_WORDBREAK), apart);
    EXPECT_EQ(Drawn("one\r\ntwo", kWhole, DT_SINGLELINE), Drawn("onetwo", kWhole));
}

TEST_F(SoftFontTest, DrawsBothEncodingsAlike) {
    EXPECT_EQ(Drawn("caf\xE9 \x80 \x93x\x94", kWhole),
              Drawn("caf\u00E9 \u20AC \u201Cx\u201D", kWhole));
    EXPECT_NE(Drawn("\xE9", kWhole), Ground());
}

TEST_F(SoftFontTest, DrawsEveryCharacterThatCanBeShownAndNoOther) {
    EXPECT_NE(Drawn("a&b", kWhole), Drawn("ab", kWhole));
    EXPECT_EQ(Drawn("a\t\001b\x7F\x1B", kWhole), Drawn("ab", kWhole));
    EXPECT_EQ(Drawn(std::string_view("a\0b", 3), kWhole), Drawn("ab", kWhole));
    EXPECT_EQ(Drawn("\U0010FFFF", kWhole), Drawn("\uE123", kWhole)) << "the font's missing glyph";
}

TEST_F(SoftFontTest, TheInformationLineFitsItsRectangle) {
    if (Glyphs().LineHeight() > 20) {
        GTEST_SKIP() << "another font";
    }
    const RECT rectangle{5, 5, 205, 25};
    EXPECT_EQ(Drawn("Cam 12.5,0  60 FPS", rectangle),
              Drawn("Cam 12.5,0  60 FPS", rectangle, DT_NOCLIP));
}

TEST_F(SoftFontTest, TakesRectanglesOfEveryKind) {
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(Drawn("HHH", {10, 10, 10, 50}), Ground());
    EXPECT_EQ(Drawn("HHH", {10, 10, 50, 10}), Ground());
    EXPECT_EQ(Drawn("HHH", {50, 50, 10, 10}), Ground()) << "turned around";
    EXPECT_EQ(Drawn("HHH", {500, 10, 900, 50}), Ground());
    EXPECT_EQ(Drawn("HHH", {10, -900, 50, -500}), Ground());
    EXPECT_EQ(Drawn("HHH", {kLeast, kLeast, kMost, kMost}), Ground());
    EXPECT_NE(Drawn("HHH", {50, 10, 10, 50}, DT_NOCLIP), Ground()) << "nothing to be cut by";
    for (std::uint32_t format = 0; format < 0x40; ++format) {
        for (const std::uint32_t clip : {0U, DT_NOCLIP}) {
            static_cast<void>(Drawn("HHH HH\nH", {kMost, kMost, kLeast, kLeast}, format | clip));
            static_cast<void>(Drawn("HHH HH\nH", {kLeast, kLeast, kMost, kMost}, format | clip));
        }
    }
    EXPECT_EQ(Drawn("HHH", {kLeast, kLeast, kWidth, kHeight}, DT_RIGHT | DT_BOTTOM),
              Drawn("HHH", kWhole, DT_RIGHT | DT_BOTTOM));
}

TEST_F(SoftFontTest, TakesTextsOfEverySize) {
    std::string text(std::size_t{1} << 20U, 'W');
    EXPECT_EQ(Drawn(text, kWhole), Drawn(text.substr(0, 20), kWhole));
    for (std::size_t i = 0; i < text.size(); i += 3) {
        text[i] = static_cast<char>(i * 7919U >> 3U);
    }
    const RECT rectangle{10, 10, 100, 50};
    for (const std::uint32_t format :
         {0U, DT_RIGHT | DT_BOTTOM, DT_CENTER | DT_VCENTER | DT_WORDBREAK, DT_SINGLELINE}) {
        const Pixels pixels = Drawn(text, rectangle, format);
        EXPECT_EQ(Combined(Ground(), pixels, rectangle), Ground());
    }
    EXPECT_EQ(Drawn("", kWhole), Ground());
}

TEST_F(SoftFontTest, DrawsNothingWherePixelsAreMissing) {
    Pixels pixels(std::size_t{kWidth} * kHeight - 1, kGround);
    DrawSoftText(font_.get(), kInk, "HHH", kWhole, 0, pixels, kWidth, kHeight);
    DrawSoftText(font_.get(), kInk, "HHH", kWhole, 0, pixels, 0, kHeight);
    DrawSoftText(font_.get(), kInk, "HHH", kWhole, 0, pixels, kWidth, -1);
    DrawSoftText(font_.get(), kInk, "HHH", kWhole, 0, {}, kWidth, kHeight);
    EXPECT_EQ(pixels, Pixels(pixels.size(), kGround));
}

TEST_F(SoftFontTest, DrawsWithoutAllocatingOnceTheGlyphsAreThere) {
    const std::string text = "Cam -12.5,0  60 FPS caf\xE9\r\nmore";
    Pixels pixels = Ground();
    Draw(pixels, text, kWhole);
    const std::size_t rendered = Glyphs().RenderCount();
    const std::size_t allocated = test::AllocationCount();
    Draw(pixels, text, kWhole);
    Draw(pixels, text, kWhole, DT_WORDBREAK | DT_CENTER | DT_VCENTER);
    EXPECT_EQ(test::AllocationCount(), allocated);
    EXPECT_EQ(Glyphs().RenderCount(), rendered);
}

TEST(SoftFont, WithoutGlyphsDrawsNothing) {
    Pixels pixels = Ground();
    DrawSoftText(nullptr, kInk, "HHH", kWhole, 0, pixels, kWidth, kHeight);
    EXPECT_EQ(pixels, Ground());
}

// In a program of its own, whose font library finds no fonts.
TEST(SoftFontDeathTest, OnASystemWithoutFontsDrawsNothing) {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const TemporaryFolder folder;
    const std::string configuration = folder.Path() + "fonts.conf";
    std::ofstream(configuration) << "<fontconfig></fontconfig>";
    EXPECT_EXIT(
        {
            setenv("FONTCONFIG_FILE", configuration.c_str(), 1);
            const auto font = MakeSoftFont(kDescription);
            Pixels pixels = Ground();
            DrawSoftText(font.get(), kInk, "HHH", kWhole, 0, pixels, kWidth, kHeight);
            std::filesystem::remove_all(folder.Path());  // nobody's destructor runs here
            std::exit(font == nullptr && pixels == Ground() ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
}  // namespace scenara
