// SPDX-License-Identifier: MIT
#include "samplemaker/Sff1Writer.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "FileParts.h"

namespace scenara::samplemaker {
namespace {

Sff1Subfile WithData(std::int16_t group, std::int16_t image, std::vector<std::byte> data) {
    Sff1Subfile subfile;
    subfile.group = group;
    subfile.image = image;
    subfile.data = std::move(data);
    return subfile;
}

Sff1Subfile Linked(std::int16_t group, std::int16_t image, std::int16_t linkIndex) {
    Sff1Subfile subfile = WithData(group, image, {});
    subfile.linkIndex = linkIndex;
    return subfile;
}

const std::vector<std::byte> kTwo = {std::byte{0xAA}, std::byte{0xAB}};
const std::vector<std::byte> kThree = {std::byte{0xBA}, std::byte{0xBB}, std::byte{0xBC}};

TEST(Sff1Writer, FileHeader) {
    const std::vector<std::byte> file =
        WriteSff1({WithData(5, 0, kTwo), WithData(5, 1, kThree), Linked(9, 0, 0)});

    // clang-format off
    EXPECT_EQ(Part(file, 0, 36), (Values{
        'E', 'l', 'e', 'c', 'b', 'y', 't', 'e', 'S', 'p', 'r', 0,
        0, 1, 0, 1,
        2, 0, 0, 0,   // groups
        3, 0, 0, 0,   // images
        0, 2, 0, 0,   // first subfile at 512
        32, 0, 0, 0,  // subfile header
        1, 0, 0, 0})); // shared palettes
    // clang-format on
    EXPECT_EQ(Part(file, 36, 512 - 36), Values(512 - 36, 0));
    EXPECT_EQ(file.size(), 512U + 3 * 32 + 5);
}

TEST(Sff1Writer, SubfileHeader) {
    Sff1Subfile subfile = WithData(-1, 258, kTwo);
    subfile.axisX = 160;
    subfile.axisY = -17;
    subfile.samePalette = true;
    subfile.comment = "sky";
    const std::vector<std::byte> file = WriteSff1({subfile});

    // clang-format off
    EXPECT_EQ(Part(file, 512, 34), (Values{
        0, 0, 0, 0,      // no next subfile
        2, 0, 0, 0,      // length
        160, 0,          // axis
        0xEF, 0xFF,
        0xFF, 0xFF,      // group
        2, 1,            // image
        0, 0,            // link index
        1,               // palette of the one before
        's', 'k', 'y', 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
        0xAA, 0xAB}));
    // clang-format on
}

TEST(Sff1Writer, ALinkedSubfileHasLengthZeroAndTheIndex) {
    const std::vector<std::byte> file = WriteSff1({WithData(0, 0, kTwo), Linked(0, 1, 300)});
    EXPECT_EQ(U32At(file, 512), 546U);
    EXPECT_EQ(U32At(file, 546 + 4), 0U);
    EXPECT_EQ(Part(file, 546 + 16, 2), (Values{0x2C, 1}));
    EXPECT_EQ(file.size(), 546U + 32);
}

TEST(Sff1Writer, LengthMayCountBytesThatAreNotThere) {
    Sff1Subfile subfile = WithData(0, 0, kTwo);
    subfile.lengthSurplus = 768;
    const std::vector<std::byte> file = WriteSff1({subfile});
    EXPECT_EQ(U32At(file, 516), 770U);
    EXPECT_EQ(file.size(), 512U + 32 + 2);

    subfile.lengthSurplus = -3;
    EXPECT_EQ(U32At(WriteSff1({subfile}), 516), 0xFFFFFFFFU);
}

TEST(Sff1Writer, TheChainMayRunBackwardsThroughTheFile) {
    Sff1Options options;
    options.fileOrder = {1, 0};
    options.lastNext = LastNext::EndOfFile;
    const std::vector<std::byte> file =
        WriteSff1({WithData(0, 0, kTwo), WithData(0, 1, kThree)}, options);

    EXPECT_EQ(U32At(file, 24), 512U + 35) << "the chain begins at the second place of the file";
    EXPECT_EQ(U32At(file, 547), 512U) << "and goes back to the first";
    EXPECT_EQ(U32At(file, 512), file.size()) << "the end of the chain names the end of the file";
    EXPECT_EQ(Part(file, 512 + 32, 3), (Values{0xBA, 0xBB, 0xBC}));
    EXPECT_EQ(Part(file, 547 + 32, 2), (Values{0xAA, 0xAB}));
}

TEST(Sff1Writer, GapsLieBeforeSubfiles) {
    std::vector<Sff1Subfile> subfiles = {WithData(0, 0, kTwo), WithData(0, 1, kThree)};
    subfiles[1].gapBefore = 2;
    Sff1Options options;
    options.firstGap = 3;
    options.gapValue = 0xEE;
    const std::vector<std::byte> file = WriteSff1(subfiles, options);

    EXPECT_EQ(U32At(file, 24), 515U);
    EXPECT_EQ(Part(file, 512, 3), Values(3, 0xEE));
    EXPECT_EQ(U32At(file, 515), 515U + 34 + 2);
    EXPECT_EQ(Part(file, 549, 2), Values(2, 0xEE));
}

TEST(Sff1Writer, TheHeaderSaysWhatItIsToldTo) {
    Sff1Options options;
    options.version = {0, 0, 0, 2};
    options.paletteType = 0;
    options.groups = 70000;
    options.images = 1;
    const std::vector<std::byte> file = WriteSff1({}, options);
    EXPECT_EQ(Part(file, 12, 4), (Values{0, 0, 0, 2}));
    EXPECT_EQ(U32At(file, 16), 70000U);
    EXPECT_EQ(U32At(file, 20), 1U);
    EXPECT_EQ(Part(file, 32, 1), Values{0});
    EXPECT_EQ(file.size(), 512U);
}

TEST(Sff1Writer, RefusesWhatTheFieldsCannotHold) {
    Sff1Subfile subfile = WithData(0, 0, kTwo);
    subfile.comment = std::string(14, 'x');
    EXPECT_THROW(WriteSff1({subfile}), std::invalid_argument);
    subfile.comment.pop_back();
    EXPECT_NO_THROW(WriteSff1({subfile}));
    subfile.lengthSurplus = std::numeric_limits<std::int32_t>::max();
    EXPECT_THROW(WriteSff1({subfile}), std::invalid_argument);

    Sff1Options options;
    options.fileOrder = {0, 0};
    EXPECT_THROW(WriteSff1({WithData(0, 0, {}), WithData(0, 1, {})}, options),
                 std::invalid_argument);
    options.fileOrder = {0};
    EXPECT_THROW(WriteSff1({WithData(0, 0, {}), WithData(0, 1, {})}, options),
                 std::invalid_argument);
}

}  // namespace
}  // namespace scenara::samplemaker
