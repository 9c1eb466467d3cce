// SPDX-License-Identifier: MIT
#include "scenara-shot/FrameFiles.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>

#include "base/RunTimeError.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara {
namespace {

TEST(FrameFileName, PutsTheNumberBeforeTheExtension) {
    EXPECT_EQ(FrameFileName("a.png", 1), "a-00001.png");
    EXPECT_EQ(FrameFileName("dir.png/a.b.PNG", 12345), "dir.png/a.b-12345.PNG");
    EXPECT_EQ(FrameFileName("/x/.png", 7), "/x/-00007.png");
}

TEST(FrameFileName, PutsItBehindANameOfAnotherKind) {
    EXPECT_EQ(FrameFileName("a", 1), "a-00001");
    EXPECT_EQ(FrameFileName("png", 1), "png-00001");
    EXPECT_EQ(FrameFileName("a.bmp", 1), "a.bmp-00001");
    EXPECT_EQ(FrameFileName("a.png.old", 1), "a.png.old-00001");
}

TEST(FrameFileName, HasMoreThanFiveDigitsWhereItNeedsThem) {
    EXPECT_EQ(FrameFileName("a.png", 99999), "a-99999.png");
    EXPECT_EQ(FrameFileName("a.png", 100000), "a-100000.png");
    EXPECT_EQ(FrameFileName("a.png", 2147483647), "a-2147483647.png");
}

TEST(WriteFrameFile, WritesTheViewOpaqueWhateverTheTopBytesHold) {
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "a.png";
    std::vector<std::uint32_t> pixels(std::size_t{320} * 240, 0xFF000000U);
    pixels[0] = 0x00102030;
    pixels[319] = 0x80405060;
    pixels[320] = 0xFF708090;
    pixels.back() = 0x01FFFFFF;
    WriteFrameFile(path, CanvasSize(), pixels);

    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    ASSERT_NE(png_image_begin_read_from_file(&image, path.c_str()), 0);
    ASSERT_EQ(image.width, 320U);
    ASSERT_EQ(image.height, 240U);
    image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
    ASSERT_NE(png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr), 0);
    using Pixel = std::vector<std::uint8_t>;
    const auto pixelAt = [&](std::ptrdiff_t index) {
        return Pixel(bytes.begin() + index * 4, bytes.begin() + index * 4 + 4);
    };
    EXPECT_EQ(pixelAt(0), (Pixel{0x10, 0x20, 0x30, 0xFF}));
    EXPECT_EQ(pixelAt(1), (Pixel{0, 0, 0, 0xFF}));
    EXPECT_EQ(pixelAt(319), (Pixel{0x40, 0x50, 0x60, 0xFF}));
    EXPECT_EQ(pixelAt(320), (Pixel{0x70, 0x80, 0x90, 0xFF}));
    EXPECT_EQ(pixelAt(320 * 240 - 1), (Pixel{0xFF, 0xFF, 0xFF, 0xFF}));
}

TEST(WriteFrameFile, WantsAllOfTheView) {
    const TemporaryFolder folder;
    const std::vector<std::uint32_t> pixels(std::size_t{320} * 240 - 1);
    try {
        WriteFrameFile(folder.Path() + "a.png", CanvasSize(), pixels);
        FAIL() << "written from pixels that are not there";
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.Kind(), RunTimeErrorKind::SubscriptOutOfRange);
    }
}

}  // namespace
}  // namespace scenara
