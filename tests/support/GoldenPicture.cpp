// SPDX-License-Identifier: MIT
#include "support/GoldenPicture.h"

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string_view>
#include <utility>

#include <png.h>

#include "base/Path.h"
#include "base/RunTimeError.h"
#include "scenara-shot/PngFile.h"

namespace scenara::test {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;

GoldenMode currentMode = GoldenMode::Compare;

bool HasPixels(std::span<const std::uint32_t> pixels, std::int32_t width, std::int32_t height) {
    return width > 0 && height > 0 &&
           pixels.size() == static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
}

bool IsSameSize(const Picture& a, const Picture& b) {
    return a.width == b.width && a.height == b.height;
}

std::string SizeText(const Picture& picture) {
    return std::to_string(picture.width) + " x " + std::to_string(picture.height);
}

std::string ColorText(std::uint32_t pixel) {
    std::ostringstream text;
    text << "0x" << std::hex << std::uppercase << std::setfill('0') << std::setw(6)
         << (pixel & ~kOpaque);
    return text.str();
}

// Empty when it was written, otherwise why not.
std::string WritePicture(const std::string& path, const Picture& picture) {
    std::error_code ignored;  // the writing fails if this did
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    try {
        WritePngFile(path, picture.pixels, picture.width, picture.height, picture.width);
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return {};
}

// Where a picture was left for people, or why not, as the end of a sentence.
std::string LeftAt(const std::string& path, const Picture& picture) {
    const std::string error = WritePicture(path, picture);
    return error.empty() ? "is " + path : "could not be written: " + error;
}

// White where two pictures of the same size differ, black elsewhere.
Picture DifferencesOf(const Picture& a, const Picture& b) {
    Picture differences{{}, a.width, a.height};
    std::transform(a.pixels.begin(), a.pixels.end(), b.pixels.begin(),
                   std::back_inserter(differences.pixels),
                   [](std::uint32_t x, std::uint32_t y) { return x == y ? kOpaque : kWhite; });
    return differences;
}

std::string HowToUpdate() {
    std::string filter;
    const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
    if (test != nullptr) {
        filter = std::string(" --gtest_filter=") + test->test_suite_name() + "." + test->name();
    }
    return "If it is right, run this test program with" + filter + " --update and commit the file.";
}

}  // namespace

std::optional<Picture> ReadPicture(const std::string& path) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        return std::nullopt;
    }
    image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) == 0) {
        return std::nullopt;
    }
    Picture picture;
    picture.width = static_cast<std::int32_t>(image.width);
    picture.height = static_cast<std::int32_t>(image.height);
    picture.pixels.reserve(bytes.size() / 4);
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        picture.pixels.push_back(std::uint32_t{bytes[at + 3]} << 24U |
                                 std::uint32_t{bytes[at]} << 16U |
                                 std::uint32_t{bytes[at + 1]} << 8U | bytes[at + 2]);
    }
    return picture;
}

GoldenPictures::GoldenPictures(std::string goldenFolder, std::string actualFolder, GoldenMode mode)
    : goldenFolder_(std::move(goldenFolder)), actualFolder_(std::move(actualFolder)), mode_(mode) {}

testing::AssertionResult GoldenPictures::Match(const std::string& name,
                                               std::span<const std::uint32_t> pixels,
                                               std::int32_t width, std::int32_t height) const {
    if (!HasPixels(pixels, width, height)) {
        return testing::AssertionFailure()
               << name << ": " << pixels.size() << " pixels are no picture of " << width << " x "
               << height;
    }
    Picture actual{{}, width, height};
    std::transform(pixels.begin(), pixels.end(), std::back_inserter(actual.pixels),
                   [](std::uint32_t pixel) { return pixel | kOpaque; });
    auto golden = ReadPicture(JoinPath(goldenFolder_, name + ".png"));
    if (golden) {
        for (std::uint32_t& pixel : golden->pixels) {
            pixel |= kOpaque;
        }
    }
    return mode_ == GoldenMode::Update ? Update(name, actual, golden)
                                       : Compare(name, actual, golden);
}

testing::AssertionResult GoldenPictures::Compare(const std::string& name, const Picture& actual,
                                                 const std::optional<Picture>& golden) const {
    if (golden && IsSameSize(*golden, actual) && golden->pixels == actual.pixels) {
        return testing::AssertionSuccess();
    }
    const std::string goldenPath = JoinPath(goldenFolder_, name + ".png");
    const std::string actualPath = JoinPath(actualFolder_, name + ".png");
    auto failure = testing::AssertionFailure();
    if (!golden) {
        failure << "there is no picture " << goldenPath << " to compare with.";
    } else if (!IsSameSize(*golden, actual)) {
        failure << goldenPath << " has " << SizeText(*golden) << " pixels, the test's picture "
                << SizeText(actual) << ".";
    } else {
        const Picture differences = DifferencesOf(*golden, actual);
        const auto count = std::ranges::count(differences.pixels, kWhite);
        const auto first = static_cast<std::size_t>(std::ranges::find(differences.pixels, kWhite) -
                                                    differences.pixels.begin());
        const auto width = static_cast<std::size_t>(actual.width);
        failure << goldenPath << " differs in " << count << " of " << actual.pixels.size()
                << " pixels. The first is (" << first % width << ", " << first / width
                << "): expected " << ColorText(golden->pixels[first]) << ", got "
                << ColorText(actual.pixels[first]) << ".\nThe picture of the differences "
                << LeftAt(JoinPath(actualFolder_, name + "-differences.png"), differences) << ".";
    }
    return failure << "\nThe test's picture " << LeftAt(actualPath, actual) << ".\n"
                   << HowToUpdate();
}

testing::AssertionResult GoldenPictures::Update(const std::string& name, const Picture& actual,
                                                const std::optional<Picture>& golden) const {
    if (golden && IsSameSize(*golden, actual) && golden->pixels == actual.pixels) {
        return testing::AssertionSuccess();
    }
    const std::string path = JoinPath(goldenFolder_, name + ".png");
    const std::string error = WritePicture(path, actual);
    if (!error.empty()) {
        return testing::AssertionFailure() << error;
    }
    std::cout << "[  GOLDEN  ] " << path << " written\n";
    return testing::AssertionSuccess();
}

testing::AssertionResult MatchesGolden(const std::string& name,
                                       std::span<const std::uint32_t> pixels, std::int32_t width,
                                       std::int32_t height) {
    return GoldenPictures(SCENARA_GOLDEN_FOLDER, SCENARA_ACTUAL_FOLDER, currentMode)
        .Match(name, pixels, width, height);
}

void SetGoldenMode(GoldenMode mode) {
    currentMode = mode;
}

GoldenMode TakeGoldenMode(int& argc, char** argv) {
    const std::string_view kSwitch = "--update";
    char** const end = argv + argc;
    char** const kept =
        std::remove_if(argv, end, [&](const char* word) { return word == kSwitch; });
    if (kept == end) {
        return GoldenMode::Compare;
    }
    *kept = nullptr;  // as behind the last argument of main
    argc = static_cast<int>(kept - argv);
    return GoldenMode::Update;
}

}  // namespace scenara::test
