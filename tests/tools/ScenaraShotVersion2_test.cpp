// SPDX-License-Identifier: MIT
//
// scenara-shot with an archive of version 2: its picture, its sprites as files, its model, and what
// it says.
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include "ShotProgram.h"
#include "samplemaker/Sff2Pictures.h"
#include "samplemaker/Sff2Writer.h"
#include "support/GoldenPicture.h"

namespace scenara::test {
namespace {

using samplemaker::AlphaPicture;
using samplemaker::IndexedPicture;
using samplemaker::Sff2Archive;
using samplemaker::Sff2Coding;
using samplemaker::Sff2Sprite;

constexpr std::uint32_t kGround = 0xFF643C14;

Sff2Sprite At(unsigned group, unsigned image, int axis, Sff2Sprite sprite) {
    sprite.group = static_cast<std::uint16_t>(group);
    sprite.image = static_cast<std::uint16_t>(image);
    sprite.axisX = static_cast<std::int16_t>(axis);
    return sprite;
}

// 0,0  the ground, a colour of its own all over
// 1,0  20 x 20 pixels of true colours, half of which is seen
// 1,1  4 x 4 pixels: in its first row colour 0 and colours with the alphas 255, 128 and 0
// 60000,32767  linked to 1,1, with another axis
Sff2Archive ArchiveWithAlpha() {
    Sff2Archive archive;
    samplemaker::Sff2Palette palette;
    palette.colours = {{1, 2, 3, 0}, {100, 60, 20, 255}, {9, 8, 7, 128}, {40, 50, 60, 0}};
    archive.palettes.push_back(palette);
    const IndexedPicture ground{320, 240, std::vector<std::uint8_t>(320 * 240, 1), {}};
    archive.sprites.push_back(At(0, 0, 160, Sff2SpriteOf(ground, Sff2Coding::Rle8)));
    const AlphaPicture glass{20, 20, std::vector(400, samplemaker::Rgba{200, 40, 240, 128})};
    archive.sprites.push_back(At(1, 0, 0, Sff2SpriteOf(glass, Sff2Coding::Png32)));
    IndexedPicture four{4, 4, std::vector<std::uint8_t>(16, 1), {}};
    four.pixels = {0, 1, 2, 3, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    archive.sprites.push_back(At(1, 1, 0, Sff2SpriteOf(four, Sff2Coding::Lz5)));
    Sff2Sprite link;
    link.width = 4;
    link.height = 4;
    link.link = 2;
    archive.sprites.push_back(At(60000, 32767, -7, link));
    return archive;
}

constexpr const char* kGlassStage =
    "[BGdef]\nspr = a.sff\n[BG ground]\ntype = normal\nspriteno = 0,0\n"
    "[BG glass]\ntype = normal\nspriteno = 1,0\nstart = 0,100\n";

class ScenaraShotVersion2 : public ScenaraShot {
protected:
    // The stage with this archive.
    void Put(const Sff2Archive& archive, const samplemaker::Sff2Options& options = {}) {
        PutStage("a.def", kGlassStage);
        const std::vector<std::byte> bytes = samplemaker::WriteSff2(archive, options);
        Write(Path("mugen/stages/a.sff"),
              std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    }

    [[nodiscard]] std::vector<std::uint32_t> PixelsOfFile(const std::string& file) const {
        const std::optional<Picture> picture = ReadPicture(Path(file));
        if (!picture) {
            ADD_FAILURE() << file << " is no picture";
            return {};
        }
        return picture->pixels;
    }

    [[nodiscard]] rapidjson::Document Model() const {
        rapidjson::Document json;
        json.Parse(Contents(Path("a.json")).c_str());
        return json;
    }
};

TEST_F(ScenaraShotVersion2, ShowsItsPictures) {
    Put(ArchiveWithAlpha());
    EXPECT_EQ(RunHere("a.def --out " + Path("a.png")), 0);
    EXPECT_EQ(err_, "");
    const std::vector<std::uint32_t> pixels = PixelsOfFile("a.png");
    ASSERT_EQ(pixels.size(), 320U * 240);
    EXPECT_EQ(pixels[110 * 320 + 150], kGround);
    // Half of both: 150, 50, 130.
    EXPECT_EQ(pixels[110 * 320 + 170], 0xFF963282U);
    EXPECT_EQ(pixels[110 * 320 + 181], kGround);
}

TEST_F(ScenaraShotVersion2, WritesItsSpritesWithAllOfTheirAlpha) {
    Put(ArchiveWithAlpha());
    EXPECT_EQ(RunHere("a.def --sprites " + Path("sprites")), 0);
    EXPECT_EQ(err_, "");
    EXPECT_THAT(PixelsOfFile("sprites/0000_0_0.png"), testing::Each(kGround));
    const auto glass = PixelsOfFile("sprites/0001_1_0.png");
    EXPECT_EQ(glass.size(), 400U);
    EXPECT_THAT(glass, testing::Each(0x80C828F0U));
    std::vector<std::uint32_t> four(16, kGround);
    four[0] = 0x00010203;
    four[2] = 0x80090807;
    four[3] = 0x0028323C;
    EXPECT_EQ(PixelsOfFile("sprites/0002_1_1.png"), four);
    int files = 0;
    for ([[maybe_unused]] const auto& file : fs::directory_iterator(Path("sprites"))) {
        ++files;
    }
    EXPECT_EQ(files, 4);
}

TEST_F(ScenaraShotVersion2, WritesItsModel) {
    Put(ArchiveWithAlpha());
    EXPECT_EQ(RunHere("a.def --model " + Path("a.json")), 0);
    EXPECT_EQ(err_, "");
    const rapidjson::Document model = Model();
    const auto& sprites = model["sprites"];
    ASSERT_EQ(sprites.Size(), 4U);
    EXPECT_EQ(sprites[1]["trueColor"].GetInt(), 1);
    EXPECT_EQ(sprites[1]["width"].GetInt(), 20);
    EXPECT_EQ(sprites[2]["trueColor"].GetInt(), 0);
    EXPECT_EQ(sprites[2]["image"].GetInt(), 1);
    EXPECT_EQ(sprites[2]["keyBlue"].GetInt(), 3);
    EXPECT_EQ(sprites[3]["group"].GetInt(), 60000);
    EXPECT_EQ(sprites[3]["axisX"].GetInt(), -7);
    EXPECT_EQ(sprites[3]["width"].GetInt(), 4);
    EXPECT_EQ(sprites[3]["linkedTo"].GetInt(), 2);
    EXPECT_EQ(model["elements"][1]["spriteIndex"].GetInt(), 1);
    EXPECT_EQ(model["messages"].Size(), 0U);
}

// What is wrong is said on a line; all other sprites are there.
TEST_F(ScenaraShotVersion2, NamesADamagedSprite) {
    struct Damage {
        const char* name;
        std::function<void(Sff2Archive&)> damage;
        std::vector<std::string> words;
    };
    const Damage rows[] = {
        {"pixels that end early",
         [](Sff2Archive& archive) { archive.sprites[2].data.resize(2); },
         {"Group 1 Image 1", "LZ5"}},
        {"a PNG that is none",
         [](Sff2Archive& archive) { archive.sprites[1].data.assign(60, std::byte{7}); },
         {"Group 1 Image 0", "PNG32"}},
        {"a coding that nobody knows",
         [](Sff2Archive& archive) { archive.sprites[1].format = 77; },
         {"Group 1 Image 0", "77"}},
        {"a link to itself",
         [](Sff2Archive& archive) { archive.sprites[3].link = 3; },
         {"Group 60000", "There is no sprite 3 before it"}},
        {"a palette that is not there",
         [](Sff2Archive& archive) { archive.sprites[2].palette = 5; },
         {"a.sff", "alette 5"}},
    };
    for (const Damage& row : rows) {
        SCOPED_TRACE(row.name);
        Sff2Archive archive = ArchiveWithAlpha();
        row.damage(archive);
        Put(archive);
        EXPECT_EQ(RunHere("a.def --model " + Path("a.json") + " --out " + Path("a.png")), 0);
        for (const std::string& words : row.words) {
            EXPECT_THAT(err_, testing::HasSubstr(words));
        }
        EXPECT_EQ(PixelsOfFile("a.png").at(110 * 320 + 150), kGround);
    }
}

TEST_F(ScenaraShotVersion2, PlainlyIsAStageWithoutSpritesAndSaysWhy) {
    for (const auto& [version, text] :
         {std::pair{samplemaker::kSff200, "2.00"}, {samplemaker::kSff201, "2.01"}}) {
        samplemaker::Sff2Options options;
        options.version = version;
        Put(ArchiveWithAlpha(), options);
        EXPECT_EQ(RunHere("a.def --plain --model " + Path("a.json") + " --out " + Path("a.png")),
                  0);
        EXPECT_EQ(err_, "SFF Error:  " + Path("mugen/stages/a.sff") +
                            " This is an archive of version " + std::string(text) +
                            ", only version 1 can be read.\n");
        EXPECT_EQ(Model()["sprites"].Size(), 0U);
        EXPECT_EQ(PixelsOfFile("a.png").at(110 * 320 + 150), 0xFF000000U);
    }
}

}  // namespace
}  // namespace scenara::test
