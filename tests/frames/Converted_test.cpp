// SPDX-License-Identifier: MIT
//
// Stages and characters with archives of version 1, and the same with those archives converted to
// version 2, in each of its codings: on the screen they are the same, pixel for pixel, while the
// camera moves.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "frames/PaintedStage.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "support/ConvertArchive.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using FileBytes = std::vector<std::byte>;
// By their paths, which begin with "/mugen/".
using FolderFiles = std::map<std::string, FileBytes>;

struct CodingRow {
    const char* name;
    ConvertTo coding;
    std::array<std::uint8_t, 4> version = samplemaker::kSff201;
};

// Mixed has all codings, so that the others only look at every fifth frame.
constexpr CodingRow kMixedRow = {"mixed", ConvertTo::Mixed};
constexpr CodingRow kOtherRows[] = {
    {"raw", ConvertTo::Raw},   {"RLE8", ConvertTo::Rle8},
    {"RLE5", ConvertTo::Rle5}, {"LZ5", ConvertTo::Lz5},
    {"PNG8", ConvertTo::Png8}, {"mixed in 2.00", ConvertTo::Mixed, samplemaker::kSff200},
};
#ifdef SCENARA_SANITIZED
// Each takes several times as long, and the mixed one has all codings.
constexpr int kLongRun = 60;
constexpr std::size_t kOthers = 0;
#else
constexpr int kLongRun = 150;
constexpr std::size_t kOthers = std::size(kOtherRows);
#endif
constexpr int kPassed = 4;

// To both sides, up, down and aslant.
constexpr const char* kEverywhere = "right+up:45,left:60,left+down:20,right:25";

bool IsCharacterFile(const std::string& path) {
    return path.starts_with("/mugen/chars/");
}

FolderFiles Converted(FolderFiles files, const CodingRow& row) {
    for (auto& [path, bytes] : files) {
        if (path.ends_with(".sff")) {
            const auto reader = IsCharacterFile(path) ? ConvertFor::Character : ConvertFor::Stage;
            bytes = ConvertArchive(bytes, {reader, row.coding, row.version});
        }
    }
    return files;
}

std::unique_ptr<ShotStage> ShownWith(const FolderFiles& folder, const std::string& stage,
                                     const std::string& character) {
    auto files = std::make_unique<MemoryFiles>();
    for (const auto& [path, bytes] : folder) {
        files->Put(path, std::span<const std::byte>(bytes));
    }
    return std::make_unique<ShotStage>(std::move(files), stage, "/mugen/", character, ViewOptions(),
                                       kEverywhere);
}

testing::AssertionResult SamePictures(const ShotStage& one, const ShotStage& other) {
    if (one.PictureSize() != other.PictureSize()) {
        return testing::AssertionFailure() << "of another size";
    }
    if (one.Picture() == other.Picture()) {
        return testing::AssertionSuccess();
    }
    const auto [first, second] = std::ranges::mismatch(one.Picture(), other.Picture());
    const auto at = first - one.Picture().begin();
    const auto width = one.PictureSize().width;
    return testing::AssertionFailure() << "at " << at % width << ", " << at / width << ": "
                                       << std::hex << *first << " became " << *second;
}

// All codings beside the archives as they are, frame by frame.
void ExpectTheSame(const FolderFiles& folder, const std::string& stage,
                   const std::string& character = {}) {
    const auto version1 = ShownWith(folder, stage, character);
    ASSERT_GT(version1->Model().SpriteCount, 0);
    ASSERT_EQ(version1->TestChar().CharLoaded, !character.empty());
    struct Side {
        const CodingRow* row;
        std::unique_ptr<ShotStage> stage;
    };
    std::vector<Side> others;
    for (const CodingRow& row : std::span(kOtherRows).first(kOthers)) {
        others.push_back({&row, ShownWith(Converted(folder, row), stage, character)});
    }
    const auto mixed = ShownWith(Converted(folder, kMixedRow), stage, character);
    EXPECT_EQ(mixed->MessageTexts(), version1->MessageTexts());
    for (int frame = 1; frame <= kLongRun; ++frame) {
        version1->Run(1);
        mixed->Run(1);
        ASSERT_TRUE(SamePictures(*version1, *mixed)) << kMixedRow.name << ", frame " << frame;
        if (frame % (kPassed + 1) != 0) {
            continue;
        }
        for (const Side& side : others) {
            side.stage->Pass(kPassed);
            side.stage->Run(1);
            ASSERT_TRUE(SamePictures(*version1, *side.stage))
                << side.row->name << ", frame " << frame;
        }
    }
    EXPECT_NE(version1->Model().CamX, 0.0F);
}

// --- stages of others, and the bundled ones ---

struct ConvertedStage {
    const char* folder;
    const char* stage;  // without ".def"
    const char* character = "";
};

// What a test's name in a report ends with.
void PrintTo(const ConvertedStage& row, std::ostream* out) {
    *out << row.stage << " " << row.character;
}

void ReadFolder(FolderFiles& files, const std::filesystem::path& folder, const std::string& path) {
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        std::ifstream stream(entry.path(), std::ios::binary);
        const std::string text((std::istreambuf_iterator<char>(stream)), {});
        const auto bytes = std::as_bytes(std::span(text));
        files[path + entry.path().filename().string()] = {bytes.begin(), bytes.end()};
    }
}

class ConvertedStages : public testing::TestWithParam<ConvertedStage> {};

TEST_P(ConvertedStages, LookTheSame) {
    const auto& [folderName, stage, character] = GetParam();
    const std::filesystem::path folder(folderName);
    const std::string name(stage);
    if (!std::filesystem::exists(folder / "stages" / (name + ".def"))) {
        GTEST_SKIP() << "no " << name << ".def in " << folder
                     << " (set SCENARA_SAMPLE_DATA to a MUGEN folder)";
    }
    FolderFiles files;
    ReadFolder(files, folder / "stages", "/mugen/stages/");
    std::erase_if(files, [&](const auto& file) {
        return file.first != "/mugen/stages/" + name + ".def" &&
               file.first != "/mugen/stages/" + name + ".sff";
    });
    std::string definition;
    if (const std::string hero(character); !hero.empty()) {
        ReadFolder(files, folder / "chars" / hero, "/mugen/chars/" + hero + "/");
        definition = "/mugen/chars/" + hero + "/" + hero + ".def";
    }
    ExpectTheSame(files, "/mugen/stages/" + name + ".def", definition);
}

INSTANTIATE_TEST_SUITE_P(, ConvertedStages,
                         testing::Values(ConvertedStage{SCENARA_BUNDLED_DATA, "cloudharbour"},
                                         ConvertedStage{SCENARA_BUNDLED_DATA, "lanternpier"},
                                         ConvertedStage{SCENARA_BUNDLED_DATA, "lanternpier",
                                                        "lanternkeeper"},
                                         ConvertedStage{SCENARA_BUNDLED_DATA, "nightexpress"},
                                         ConvertedStage{SCENARA_BUNDLED_DATA, "thousandpanes"},
                                         ConvertedStage{SCENARA_SAMPLE_DATA, "kfm"},
                                         ConvertedStage{SCENARA_SAMPLE_DATA, "stage0"},
                                         ConvertedStage{SCENARA_SAMPLE_DATA, "stage0", "kfm"}),
                         [](const auto& suite) {
                             const std::string hero(suite.param.character);
                             return suite.param.stage + (hero.empty() ? "" : "_with_" + hero);
                         });

// --- a stage of 32 colours, which RLE5 and LZ5 have room for ---

constexpr int kMostColours = 32;

samplemaker::Sff1Subfile SmallSubfile(std::int16_t group, const samplemaker::Canvas& canvas) {
    samplemaker::Palette palette{};
    for (unsigned i = 0; i < kMostColours; ++i) {
        palette.at(i) = {static_cast<std::uint8_t>(8 * i), static_cast<std::uint8_t>(i * i / 4),
                         static_cast<std::uint8_t>(255 - 7 * i)};
    }
    samplemaker::Sff1Subfile subfile;
    subfile.group = group;
    subfile.axisX = static_cast<std::int16_t>(canvas.Width() / 2);
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(palette));
    return subfile;
}

// Areas of one colour, patterns that repeat themselves, and hardly any order at all.
FileBytes SmallArchive() {
    const auto colour = [](int number) { return static_cast<std::uint8_t>(number % kMostColours); };
    samplemaker::Canvas backdrop(512, 240);
    backdrop.Paint([&](int x, int y) { return colour(x / 32 + y / 5); });
    samplemaker::Canvas tile(37, 19);
    tile.Paint([&](int x, int y) { return colour((x * x + 3 * y * y) / 7); });
    samplemaker::Canvas floor(640, 50);
    floor.Paint([&](int x, int y) { return colour((x / 3 + y) % 11 * (1 + x / 220)); });
    samplemaker::Canvas noise(64, 64);
    std::uint32_t seed = 1;
    noise.Paint([&](int, int) {
        seed = seed * 1664525U + 1013904223U;
        return static_cast<std::uint8_t>(seed >> 27U);
    });
    samplemaker::Sff1Subfile link;
    link.group = 4;
    link.axisY = 20;
    link.linkIndex = 1;
    return samplemaker::WriteSff1({SmallSubfile(0, backdrop), SmallSubfile(1, tile),
                                   SmallSubfile(2, floor), SmallSubfile(3, noise), link});
}

const FolderFiles& SmallStage() {
    static const FolderFiles kFiles = [] {
        const std::string definition =
            std::string(kRoom) +
            "[BGdef]\nspr = stages/small.sff\n"
            "[BG backdrop]\ntype = normal\nspriteno = 0,0\ndelta = .3,.3\ntile = 1,1\n"
            "[BG tiles]\ntype = normal\nspriteno = 1,0\nstart = -100,40\ndelta = .5,.7\nmask = 1\n"
            "tile = 7,3\ntilespacing = 9,4\nvelocity = .4,.1\n"
            "[BG floor]\ntype = parallax\nspriteno = 2,0\nstart = 0,190\nxscale = 1,2\n"
            "[BG noise]\ntype = normal\nspriteno = 3,0\nstart = 0,90\ntrans = addalpha\n"
            "alpha = 100,150\n"
            "[BG link]\ntype = normal\nspriteno = 4,0\nstart = 60,140\nmask = 1\ntrans = add\n";
        const auto bytes = std::as_bytes(std::span(definition));
        return FolderFiles{{"/mugen/stages/small.def", {bytes.begin(), bytes.end()}},
                           {"/mugen/stages/small.sff", SmallArchive()}};
    }();
    return kFiles;
}

TEST(ConvertedSmallStage, LooksTheSame) {
    ExpectTheSame(SmallStage(), "/mugen/stages/small.def");
}

unsigned NumberAt(const FileBytes& bytes, std::size_t at, std::size_t size) {
    unsigned number = 0;
    for (std::size_t i = size; i-- > 0;) {
        number = number << 8U | std::to_integer<unsigned>(bytes.at(at + i));
    }
    return number;
}

TEST(ConvertedSmallStage, IsInTheCodingsForFewColours) {
    constexpr unsigned kRle5 = 3;
    constexpr unsigned kLz5 = 4;
    for (const auto& [coding, code] : {std::pair{ConvertTo::Rle5, kRle5}, {ConvertTo::Lz5, kLz5}}) {
        const FolderFiles files = Converted(SmallStage(), {"", coding});
        const FileBytes& archive = files.at("/mugen/stages/small.sff");
        ASSERT_EQ(archive.at(15), std::byte{2});
        const unsigned nodes = NumberAt(archive, 36, 4);
        ASSERT_EQ(NumberAt(archive, 40, 4), 5U);
        for (unsigned i = 0; i < 4; ++i) {
            EXPECT_EQ(NumberAt(archive, nodes + 28 * i + 14, 1), code) << i;
        }
    }
}

}  // namespace
}  // namespace scenara::test
