// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>

#include "base/RunTimeError.h"
#include "platform/PageMemory.h"
#include "support/Raises.h"

namespace scenara {
namespace {

// Reserved address space, given back at the end.
class Reserved {
public:
    explicit Reserved(std::size_t bytes) : bytes_(bytes), start_(ReservePages(bytes)) {}
    Reserved(const Reserved&) = delete;
    Reserved& operator=(const Reserved&) = delete;
    ~Reserved() { ReleasePages(start_, bytes_); }

    [[nodiscard]] std::byte* Start() const { return start_; }
    [[nodiscard]] std::span<std::byte> All() const { return {start_, bytes_}; }

    [[nodiscard]] std::size_t PagesInMemory() const {
        std::array<unsigned char, 4 * kLargePage / kSmallPage> there{};
        EXPECT_LE(bytes_, 4 * kLargePage);
        EXPECT_EQ(::mincore(start_, bytes_, there.data()), 0);
        return static_cast<std::size_t>(std::count_if(
            there.begin(), there.end(), [](unsigned flags) { return flags % 2 != 0; }));
    }

private:
    std::size_t bytes_;
    std::byte* start_;
};

// Whether this kernel can bring pages in by a call at all.
bool CommitsByCall() {
    const Reserved memory(kLargePage);
    constexpr int kPopulateWrite = 23;
    return ::madvise(memory.Start(), kSmallPage, kPopulateWrite) == 0;
}

TEST(PageMemory, IsAlignedToLargePages) {
    for (const std::size_t pages : {std::size_t{1}, std::size_t{2}, std::size_t{33}}) {
        const Reserved memory(pages * kLargePage);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(memory.Start()) % kLargePage, 0U);
    }
}

TEST(PageMemory, IsZeroAtFirstAndKeepsWhatIsWritten) {
    const Reserved memory(2 * kLargePage);
    CommitPages(memory.Start(), 3 * kSmallPage);
    PreferLargePages(memory.Start() + kLargePage, kLargePage);
    CommitPages(memory.Start() + kLargePage, kLargePage);
    const auto committed = {memory.All().first(3 * kSmallPage), memory.All().last(kLargePage)};
    for (const std::span<std::byte> part : committed) {
        EXPECT_TRUE(std::all_of(part.begin(), part.end(), [](auto b) { return b == std::byte{}; }));
        std::fill(part.begin(), part.end(), std::byte{0xA5});
    }
    CommitPages(memory.Start(), 3 * kSmallPage);
    for (const std::span<std::byte> part : committed) {
        EXPECT_TRUE(std::all_of(part.begin(), part.end(), [](auto b) {
            return b == std::byte{0xA5};
        })) << "committing again changes nothing";
    }
}

TEST(PageMemory, ReservedBytesCostNothingUntilTheyAreTouched) {
    const Reserved memory(4 * kLargePage);
    EXPECT_EQ(memory.PagesInMemory(), 0U);
    memory.All()[kLargePage + 5] = std::byte{1};
    EXPECT_EQ(memory.PagesInMemory(), 1U) << "and then one small page";
}

TEST(PageMemory, CommittingBringsExactlyThosePagesIn) {
    if (!CommitsByCall()) {
        GTEST_SKIP() << "this kernel brings pages in at their first use only";
    }
    const Reserved memory(2 * kLargePage);
    EXPECT_EQ(memory.PagesInMemory(), 0U);
    CommitPages(memory.Start() + 5 * kSmallPage, 7 * kSmallPage);
    EXPECT_EQ(memory.PagesInMemory(), 7U);
    PreferLargePages(memory.Start() + kLargePage, kLargePage);
    CommitPages(memory.Start() + kLargePage, kLargePage);
    EXPECT_EQ(memory.PagesInMemory(), 7U + kLargePage / kSmallPage);
}

TEST(PageMemory, RaisesWhenThereAreNotThatManyAddresses) {
    EXPECT_THAT([] { return ReservePages(std::size_t{1} << 60U); },
                test::Raises(RunTimeErrorKind::OutOfMemory));
}

TEST(PageMemory, RaisesWhenPagesCannotBeHad) {
    if (!CommitsByCall()) {
        GTEST_SKIP() << "this kernel brings pages in at their first use only";
    }
    std::byte* const start = ReservePages(2 * kLargePage);
    ReleasePages(start + kLargePage, kLargePage);
    EXPECT_THAT([&] { CommitPages(start + kLargePage, kSmallPage); },
                test::Raises(RunTimeErrorKind::OutOfMemory));
    ReleasePages(start, kLargePage);
}

}  // namespace
}  // namespace scenara
