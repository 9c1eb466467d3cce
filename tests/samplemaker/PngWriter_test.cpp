// SPDX-License-Identifier: MIT
//
// Written pictures as two other decoders read them: libpng's and libavcodec's.
#include "samplemaker/PngWriter.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

#include <gtest/gtest.h>
#include <png.h>

#include "AvPng.h"
#include "FileParts.h"
#include "RandomPixels.h"
#include "samplemaker/Noise.h"
#include "support/Rounds.h"

namespace scenara::samplemaker {
namespace {

// RGBA by libpng's simplified reader, empty when it cannot.
std::vector<Rgba> ReadByPng(const std::vector<std::byte>& file, int width, int height) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_memory(&image, file.data(), file.size()) == 0) {
        return {};
    }
    EXPECT_EQ(image.width, static_cast<unsigned>(width));
    EXPECT_EQ(image.height, static_cast<unsigned>(height));
    image.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(image));
    if (png_image_finish_read(&image, nullptr, bytes.data(), 0, nullptr) == 0) {
        return {};
    }
    std::vector<Rgba> pixels;
    for (std::size_t at = 0; at < bytes.size(); at += 4) {
        pixels.push_back({bytes[at], bytes[at + 1], bytes[at + 2], bytes[at + 3]});
    }
    return pixels;
}

PngOptions RandomOptions(Random& random) {
    PngOptions options;
    options.filter = static_cast<PngFilter>(random.Whole(0, 6));
    options.interlaced = random.Whole(0, 1) == 0;
    options.chunkSize = static_cast<std::size_t>(random.Whole(0, 2) == 0 ? random.Whole(1, 50) : 0);
    return options;
}

std::uint8_t RandomByte(Random& random) {
    return static_cast<std::uint8_t>(random.Whole(0, 255));
}

IndexedPicture RandomIndexed(Random& random, int bits) {
    IndexedPicture picture;
    picture.width = random.Whole(1, 40);
    picture.height = random.Whole(1, 30);
    picture.pixels = RandomPixels(random, picture.width * picture.height, 1 << std::min(bits, 8));
    for (Rgb& colour : picture.palette) {
        colour = {RandomByte(random), RandomByte(random), RandomByte(random)};
    }
    return picture;
}

AlphaPicture RandomTranslucent(Random& random) {
    AlphaPicture picture{random.Whole(1, 40), random.Whole(1, 30), {}};
    const std::vector<std::uint8_t> values =
        RandomPixels(random, picture.width * picture.height * 4, 256);
    for (std::size_t at = 0; at < values.size(); at += 4) {
        picture.pixels.push_back({values[at], values[at + 1], values[at + 2], values[at + 3]});
    }
    return picture;
}

TEST(PngWriter, ColoursOfIndicesAreThoseOfOtherDecoders) {
    Random random(21);
    for (int round = test::Rounds(600); round > 0; --round) {
        PngOptions options = RandomOptions(random);
        options.bits = 1 << random.Whole(0, 3);
        const IndexedPicture picture = RandomIndexed(random, options.bits);
        const std::vector<std::byte> file = WritePng(picture, options);
        std::vector<Rgba> wanted;
        for (const std::uint8_t pixel : picture.pixels) {
            const Rgb colour = picture.palette.at(pixel);
            wanted.push_back({colour.red, colour.green, colour.blue, 255});
        }
        ASSERT_EQ(ReadByPng(file, picture.width, picture.height), wanted) << "round " << round;
        const AvPng decoded = DecodePngByAv(file);
        ASSERT_EQ(decoded.width, picture.width);
        ASSERT_EQ(decoded.height, picture.height);
        ASSERT_EQ(decoded.indices, picture.pixels) << "round " << round;
    }
}

TEST(PngWriter, GreySamplesAreTheIndices) {
    Random random(22);
    for (int round = test::Rounds(500); round > 0; --round) {
        PngOptions options = RandomOptions(random);
        const bool withAlpha = random.Whole(0, 2) == 0;
        options.samples = withAlpha ? PngSamples::GreyAndAlpha : PngSamples::Grey;
        options.bits = 1 << random.Whole(withAlpha ? 3 : 0, 4);
        const IndexedPicture picture = RandomIndexed(random, options.bits);
        // It scales those below 8 bits.
        const int scale = options.bits < 8 ? 255 / ((1 << options.bits) - 1) : 1;
        std::vector<std::uint8_t> wanted;
        for (const std::uint8_t pixel : picture.pixels) {
            wanted.push_back(static_cast<std::uint8_t>(pixel * scale));
        }
        ASSERT_EQ(DecodePngByAv(WritePng(picture, options)).indices, wanted)
            << options.bits << " bits, alpha " << withAlpha << ", round " << round;
    }
}

TEST(PngWriter, ColoursAreThoseOfOtherDecoders) {
    Random random(23);
    for (int round = test::Rounds(600); round > 0; --round) {
        PngOptions options = RandomOptions(random);
        options.bits = random.Whole(0, 3) == 0 ? 16 : 8;
        const AlphaPicture picture = RandomTranslucent(random);
        TrueColourPicture plain{picture.width, picture.height, {}};
        std::vector<Rgba> opaque;
        for (const Rgba& pixel : picture.pixels) {
            plain.pixels.push_back({pixel.red, pixel.green, pixel.blue});
            opaque.push_back({pixel.red, pixel.green, pixel.blue, 255});
        }
        ASSERT_EQ(DecodePngByAv(WritePng(picture, options)).colours, picture.pixels)
            << options.bits << " bits, round " << round;
        ASSERT_EQ(DecodePngByAv(WritePng(plain, options)).colours, opaque)
            << options.bits << " bits, round " << round;
        if (options.bits == 8) {
            ASSERT_EQ(ReadByPng(WritePng(picture, options), picture.width, picture.height),
                      picture.pixels);
            ASSERT_EQ(ReadByPng(WritePng(plain, options), picture.width, picture.height), opaque);
        }
    }
}

TEST(PngWriter, OneColourMayBeTransparent) {
    const TrueColourPicture picture{3, 1, {{1, 2, 3}, {250, 2, 3}, {1, 2, 3}}};
    PngOptions options;
    options.transparent = {1, 2, 3};
    for (const int bits : {8, 16}) {
        options.bits = bits;
        std::vector<int> alphas;
        for (const Rgba& pixel : ReadByPng(WritePng(picture, options), 3, 1)) {
            alphas.push_back(pixel.alpha);
        }
        EXPECT_EQ(alphas, (Values{0, 255, 0})) << bits;
    }
}

TEST(PngWriter, ThePaletteMayMeanNothingOrBeLeftOut) {
    const IndexedPicture picture{2, 1, {0, 1}, Palette{Rgb{1, 2, 3}, Rgb{4, 5, 6}}};
    PngOptions options;
    options.bits = 1;
    // Signature and IHDR, and at 33 the chunk of the palette.
    EXPECT_EQ(Part(WritePng(picture, options), 33, 14),
              (Values{0, 0, 0, 6, 'P', 'L', 'T', 'E', 1, 2, 3, 4, 5, 6}));
    options.palette = PngPalette::BlackAndClear;
    EXPECT_EQ(Part(WritePng(picture, options), 33, 14),
              (Values{0, 0, 0, 6, 'P', 'L', 'T', 'E', 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Part(WritePng(picture, options), 51, 10),
              (Values{0, 0, 0, 2, 't', 'R', 'N', 'S', 0, 0}));
    options.palette = PngPalette::None;
    EXPECT_EQ(Part(WritePng(picture, options), 37, 4), (Values{'I', 'D', 'A', 'T'}));
}

TEST(PngWriter, TheHeaderSaysWhatItIsToldTo) {
    PngOptions options;
    options.interlaced = true;
    options.bits = 4;
    options.statedWidth = 0x01020304;
    options.statedHeight = 0x85060708;
    const std::vector<std::byte> file = WritePng({1, 1, {9}, {}}, options);
    EXPECT_EQ(Part(file, 0, 29),
              (Values{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',  //
                      0,    0,   0,   13,  'I',  'H',  'D',  'R',   //
                      1,    2,   3,   4,   0x85, 6,    7,    8,    4, 3, 0, 0, 1}));
}

TEST(PngWriter, CutsItsDataIntoChunks) {
    Random random(24);
    PngOptions options;
    const IndexedPicture picture = RandomIndexed(random, 8);
    const std::size_t whole = WritePng(picture, options).size();
    options.chunkSize = 1;
    const std::vector<std::byte> file = WritePng(picture, options);
    const std::size_t data = whole - (8 + 25 + 12 + 768 + 12 + 12);
    EXPECT_EQ(file.size(), whole + (data - 1) * 12);
}

TEST(PngWriter, RefusesWhatTheFormatCannotHold) {
    const IndexedPicture picture{2, 1, {0, 4}, {}};
    struct Row {
        const char* name;
        int bits;
        PngSamples samples;
        bool taken;
    };
    const Row rows[] = {
        {"4 in 1 bit", 1, PngSamples::Indices, false},
        {"4 in 2 bits", 2, PngSamples::Grey, false},
        {"4 in 4 bits", 4, PngSamples::Indices, true},
        {"3 bits", 3, PngSamples::Indices, false},
        {"indices of 16 bits", 16, PngSamples::Indices, false},
        {"grey of 16 bits", 16, PngSamples::Grey, true},
        {"grey and alpha of 4 bits", 4, PngSamples::GreyAndAlpha, false},
        {"grey and alpha of 8 bits", 8, PngSamples::GreyAndAlpha, true},
    };
    for (const Row& row : rows) {
        PngOptions options;
        options.bits = row.bits;
        options.samples = row.samples;
        if (row.taken) {
            EXPECT_NO_THROW(WritePng(picture, options)) << row.name;
        } else {
            EXPECT_THROW(WritePng(picture, options), std::invalid_argument) << row.name;
        }
    }
    EXPECT_THROW(WritePng(IndexedPicture{2, 2, {0, 4}, {}}), std::invalid_argument);
    EXPECT_THROW(WritePng(AlphaPicture{0, 2, {}}), std::invalid_argument);
    PngOptions options;
    options.bits = 4;
    EXPECT_THROW(WritePng(AlphaPicture{1, 1, {{}}}, options), std::invalid_argument);
    options.bits = 8;
    options.transparent = Rgb{};
    EXPECT_THROW(WritePng(AlphaPicture{1, 1, {{}}}, options), std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
