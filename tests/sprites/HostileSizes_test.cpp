// SPDX-License-Identifier: MIT
//
// Files that claim more than they hold, or more than anybody has.
#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "PcxDecoding.h"
#include "sprites/PcxLines.h"
#include "sprites/SffArchive.h"
#include "sprites/modFilePCX.h"
#include "sprites/sff2.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

void PutU16(std::vector<std::byte>& bytes, std::size_t at, unsigned value) {
    bytes[at] = static_cast<std::byte>(value);
    bytes[at + 1] = static_cast<std::byte>(value >> 8U);
}

// 8192 x 8192 pixels of one bit, for which 264 KB of runs could be enough.
std::vector<std::byte> HugeOneBitPicture(std::byte filler) {
    std::vector<std::byte> pcx(kPcxHeaderSize + 270'000, filler);
    std::fill_n(pcx.begin(), kPcxHeaderSize, std::byte{0});
    pcx[0] = std::byte{10};
    pcx[2] = std::byte{1};
    pcx[3] = std::byte{1};
    pcx[65] = std::byte{1};
    PutU16(pcx, 8, 8191);
    PutU16(pcx, 10, 8191);
    PutU16(pcx, 66, 1024);
    return pcx;
}

TEST(HostileSizes, DataThatHoldLessThanTheyClaimGetNoTexture) {
    PcxDecoding decoding;
    EXPECT_FALSE(decoding.Load(HugeOneBitPicture(std::byte{5})));  // single pixels
    EXPECT_TRUE(decoding.device.Created().empty());
    EXPECT_THAT(decoding.Texts(), ElementsAre(HasSubstr("the pixels end after 270000 bytes")));
}

TEST(HostileSizes, DataThatHoldWhatTheyClaimGetIt) {
    PcxDecoding decoding;
    EXPECT_TRUE(decoding.Load(HugeOneBitPicture(std::byte{255})));  // runs of 63
    EXPECT_EQ(decoding.device.Created().size(), 1U);
}

TEST(UnpackedLength, CountsRunsAndSinglesUpToWhatIsWanted) {
    const std::vector<std::byte> data = {std::byte{7},   std::byte{195}, std::byte{200},
                                         std::byte{192}, std::byte{1},   std::byte{255}};
    EXPECT_EQ(UnpackedLength(data, true, 100), 4U);
    EXPECT_EQ(UnpackedLength(data, true, 2), 2U);
    EXPECT_EQ(UnpackedLength(data, false, 100), 6U);
    EXPECT_EQ(UnpackedLength(data, false, 5), 5U);
    EXPECT_EQ(UnpackedLength({}, true, 5), 0U);
}

TEST(HostileSizes, ALongTitleIsCutInTheCaption) {
    const std::string title(300, 'x');
    EXPECT_EQ(LoadingCaption(title, 1, 2), "Loading " + title.substr(0, 255) + " 50%");
    // Not within a character.
    const std::string accents = std::string(254, 'x') + "\xC3\xA9";
    EXPECT_EQ(LoadingCaption(accents, 1, 2), "Loading " + std::string(254, 'x') + " 50%");
}

TEST(SubfileChain, EndsWhereAnOffsetLeadsIntoTheFileHeader) {
    std::vector<std::byte> archive(512 + 32);
    archive[20] = std::byte{2};  // images
    PutU16(archive, 24, 512);    // the first one; its next offset is 0
    PutU16(archive, 512 + 14, 3);
    MemoryFile file{std::span<const std::byte>(archive)};
    SubfileChain chain(file, ReadSffHeader(file));
    EXPECT_TRUE(chain.Next());
    EXPECT_FALSE(chain.Next());
    EXPECT_EQ(chain.Broken(), "Subfile 2 of 2 at 0: the chain ends there.");
}

}  // namespace
}  // namespace scenara::test
