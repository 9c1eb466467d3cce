// SPDX-License-Identifier: MIT
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/posix/ProgramFolder.h"
#include "platform/soft/GlyphCache.h"

namespace scenara::soft {
namespace {

const FontDescription kDescription{"Times New Roman", 12, true, false};

// The system's own font; tests need one, and the package list names it.
FontFile SystemFont() {
    const auto file = FindFontFile(kDescription);
    if (!file) {
        ADD_FAILURE() << "no font on this system";
        return {};
    }
    return *file;
}

std::unique_ptr<GlyphCache> OpenSystemFont(std::size_t mostGlyphs = GlyphCache::kMostGlyphs) {
    auto glyphs = GlyphCache::Open(SystemFont(), 12, mostGlyphs);
    EXPECT_NE(glyphs, nullptr);
    return glyphs;
}

TEST(FindFontFile, NamesAFileThatIsThereForANameThatNobodyKnowsToo) {
    EXPECT_TRUE(std::filesystem::is_regular_file(SystemFont().path));
    const auto file = FindFontFile({"No Font Has Such A Name", 12, false, true});
    ASSERT_TRUE(file);
    EXPECT_TRUE(std::filesystem::is_regular_file(file->path));
}

TEST(GlyphCache, OpensNothingThatIsNoFont) {
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "a.ttf";
    EXPECT_EQ(GlyphCache::Open({path, 0}, 12), nullptr);
    std::ofstream(path) << "no font";
    EXPECT_EQ(GlyphCache::Open({path, 0}, 12), nullptr);
    EXPECT_EQ(GlyphCache::Open({folder.Path(), 0}, 12), nullptr);
    EXPECT_EQ(GlyphCache::Open({SystemFont().path, 12345}, 12), nullptr);
}

TEST(GlyphCache, TakesSizesIntoItsRange) {
    const FontFile file = SystemFont();
    const auto heightAt = [&](std::int32_t points) {
        const auto glyphs = GlyphCache::Open(file, points);
        return glyphs ? glyphs->LineHeight() : 0;
    };
    EXPECT_EQ(heightAt(0), heightAt(1));
    EXPECT_EQ(heightAt(-5), heightAt(1));
    EXPECT_GT(heightAt(12), heightAt(6));
    EXPECT_EQ(heightAt(1000000), heightAt(GlyphCache::kMostPoints));
}

TEST(GlyphCache, TwelvePointsAreSixteenPixels) {
    const FontFile file = SystemFont();
    if (!file.path.ends_with("LiberationSerif-Bold.ttf")) {
        GTEST_SKIP() << "the numbers are those of another font";
    }
    const auto glyphs = GlyphCache::Open(file, 12);
    ASSERT_NE(glyphs, nullptr);
    // Of an em of 2048 units, 1825 lie above the base line and 443 below: 14.3 and 3.5 pixels.
    EXPECT_EQ(glyphs->Ascent(), 15);
    EXPECT_EQ(glyphs->LineHeight(), 19);
    // 1024 units of 2048.
    EXPECT_EQ(glyphs->WidthOf(U'0'), 8);
}

TEST(GlyphCache, ABlankIsWideAndShowsNothing) {
    const auto glyphs = OpenSystemFont();
    const Glyph& blank = glyphs->GlyphOf(U' ');
    EXPECT_GT(blank.advance, 0);
    EXPECT_TRUE(glyphs->CoverageOf(blank).empty());
}

TEST(GlyphCache, ALetterStandsOnTheBaseLine) {
    const auto glyphs = OpenSystemFont();
    const Glyph letter = glyphs->GlyphOf(U'H');
    EXPECT_EQ(letter.above, letter.height);
    EXPECT_GT(letter.height, 5);
    EXPECT_LT(letter.height, glyphs->Ascent());
    const auto coverage = glyphs->CoverageOf(letter);
    EXPECT_EQ(coverage.size(), static_cast<std::size_t>(letter.width * letter.height));
    EXPECT_EQ(*std::max_element(coverage.begin(), coverage.end()), 255);
    EXPECT_EQ(*std::min_element(coverage.begin(), coverage.end()), 0);

    const Glyph& tailed = glyphs->GlyphOf(U'g');
    EXPECT_GT(tailed.height, tailed.above);
}

TEST(GlyphCache, RendersEachCharacterOnce) {
    const auto glyphs = OpenSystemFont();
    for (int time = 0; time < 3; ++time) {
        for (const char32_t character : U"0123456789") {
            static_cast<void>(glyphs->GlyphOf(character));
        }
    }
    EXPECT_EQ(glyphs->RenderCount(), 11U) << "ten digits, and the missing one for the 0 at the end";
}

TEST(GlyphCache, HasOneGlyphForAllThatIsMissing) {
    const auto glyphs = OpenSystemFont();
    const Glyph missing = glyphs->GlyphOf(0x10FFFF);
    const std::size_t rendered = glyphs->RenderCount();
    for (const char32_t character : {0xE123U, 0xD800U, 0x110000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(glyphs->GlyphOf(character).coverage, missing.coverage);
    }
    EXPECT_EQ(glyphs->RenderCount(), rendered);
}

TEST(GlyphCache, BeginsAnewWhenItIsFull) {
    const auto small = OpenSystemFont(4);
    const auto large = OpenSystemFont();
    const std::u32string text = U"The quick brown fox jumps over the lazy dog";
    for (const char32_t character : text) {
        const Glyph& glyph = small->GlyphOf(character);
        const Glyph& expected = large->GlyphOf(character);
        ASSERT_EQ(glyph.advance, expected.advance);
        ASSERT_EQ(glyph.left, expected.left);
        ASSERT_EQ(glyph.above, expected.above);
        ASSERT_TRUE(std::ranges::equal(small->CoverageOf(glyph), large->CoverageOf(expected)));
        ASSERT_LE(small->KeptGlyphs(), 4U);
    }
    EXPECT_EQ(large->KeptGlyphs(), 28U) << "26 letters, the capital and the blank";
}

TEST(GlyphCache, DropsLargeGlyphsBeforeTheyTakeMuchMemory) {
    const auto glyphs = GlyphCache::Open(SystemFont(), GlyphCache::kMostPoints);
    ASSERT_NE(glyphs, nullptr);
    std::size_t bytes = 0;
    bool dropped = false;
    for (char32_t character = U'!'; character < 0x400; ++character) {
        const std::size_t kept = glyphs->KeptGlyphs();
        const Glyph& glyph = glyphs->GlyphOf(character);
        dropped = dropped || glyphs->KeptGlyphs() < kept;
        ASSERT_LE(glyph.coverage, GlyphCache::kMostBytes);
        bytes += glyphs->CoverageOf(glyph).size();
    }
    EXPECT_GT(bytes, GlyphCache::kMostBytes);
    EXPECT_TRUE(dropped);
}

}  // namespace
}  // namespace scenara::soft
