// SPDX-License-Identifier: MIT
#include "scenara-shot/SpriteFiles.h"

#include <filesystem>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>

#include "base/RunTimeError.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/soft/SoftDevice.h"
#include "scenara-shot/PngFile.h"

namespace scenara {
namespace {

std::vector<std::uint8_t> ReadPng(const std::string& path, unsigned& width, unsigned& height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&image, path.c_str()) == 0) {
        return {};
    }
    image.format = PNG_FORMAT_RGBA;
    width = image.width;
    height = image.height;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr);
    return bytes;
}

TEST(PngFile, KeepsTheColourOfTransparentPixels) {
    const TemporaryFolder folder;
    const std::string path = folder.Path() + "a.png";
    // Two lines of two pixels, three words apart.
    const std::vector<std::uint32_t> pixels = {0xFF102030, 0x00AABBCC, 0,
                                               0x80FFFFFF, 0xFF000000, 0};
    WritePngFile(path, pixels, 2, 2, 3);
    unsigned width = 0;
    unsigned height = 0;
    const std::vector<std::uint8_t> expected = {0x10, 0x20, 0x30, 0xFF, 0xAA, 0xBB, 0xCC, 0,
                                                0xFF, 0xFF, 0xFF, 0x80, 0,    0,    0,    0xFF};
    EXPECT_EQ(ReadPng(path, width, height), expected);
    EXPECT_EQ(width, 2U);
    EXPECT_EQ(height, 2U);
}

TEST(PngFile, SaysWhichFileCannotBeWritten) {
    const TemporaryFolder folder;
    const std::vector<std::uint32_t> pixels = {0};
    try {
        WritePngFile(folder.Path() + "missing/a.png", pixels, 1, 1, 1);
        FAIL() << "written into a folder that is not there";
    } catch (const RunTimeError& error) {
        EXPECT_NE(std::string(error.what()).find("missing/a.png"), std::string::npos);
    }
}

TEST(SpriteFiles, AreNamedByIndexGroupAndImageInAFolderMadeForThem) {
    const TemporaryFolder folder;
    SoftDevice device;
    StageModel model;
    for (Integer i = 0; i < 2; ++i) {
        SpriteEntry sprite;
        sprite.width = 1;
        sprite.height = 1;
        sprite.selfIndex = i;
        sprite.group = -3;
        sprite.image = 70;
        TextureParameters parameters;
        parameters.width = 1;
        parameters.height = 1;
        sprite.texture = device.CreateTexture(parameters);
        sprite.texture->LockRect().words[0] = 0xFF000001U;
        model.Sprites.push_back(sprite);
    }
    WriteSpriteFiles(model, folder.Path() + "new/sprites");
    EXPECT_TRUE(std::filesystem::exists(folder.Path() + "new/sprites/0000_-3_70.png"));
    EXPECT_TRUE(std::filesystem::exists(folder.Path() + "new/sprites/0001_-3_70.png"));
}

TEST(SpriteFiles, HaveEveryAlphaAsItIs) {
    const TemporaryFolder folder;
    SoftDevice device;
    StageModel model;
    SpriteEntry sprite;
    sprite.width = 16;
    sprite.height = 16;
    sprite.trueColor = 1;
    TextureParameters parameters;
    parameters.width = 16;
    parameters.height = 16;
    sprite.texture = device.CreateTexture(parameters);
    const LockedPixels pixels = sprite.texture->LockRect();
    for (std::uint32_t alpha = 0; alpha < 256; ++alpha) {
        pixels.words[alpha] = alpha << 24U | 0x010203U;
    }
    sprite.texture->UnlockRect();
    model.Sprites.push_back(sprite);
    WriteSpriteFiles(model, folder.Path());
    unsigned width = 0;
    unsigned height = 0;
    const auto bytes = ReadPng(folder.Path() + "0000_0_0.png", width, height);
    ASSERT_EQ(bytes.size(), 4U * 256);
    for (std::size_t alpha = 0; alpha < 256; ++alpha) {
        EXPECT_EQ(bytes[4 * alpha], 1);
        EXPECT_EQ(bytes[4 * alpha + 1], 2);
        EXPECT_EQ(bytes[4 * alpha + 2], 3);
        EXPECT_EQ(bytes[4 * alpha + 3], alpha);
    }
}

}  // namespace
}  // namespace scenara
