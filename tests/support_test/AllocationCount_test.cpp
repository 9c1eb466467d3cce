// SPDX-License-Identifier: MIT
#include "support/AllocationCount.h"

#include <cstdint>
#include <memory>
#include <new>
#include <vector>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

TEST(AllocationCount, StandsStillWhileNothingIsAskedFor) {
    std::vector<int> numbers(100);
    const std::size_t before = AllocationCount();
    for (int& number : numbers) {
        number = 1;
    }
    EXPECT_EQ(AllocationCount(), before);
}

// A compiler may leave out memory that nobody looks at.
void LookAt(const void* memory) {
    static const void* volatile seen = nullptr;
    seen = memory;
    static_cast<void>(seen);
}

TEST(AllocationCount, CountsEveryKindOfNew) {
    struct alignas(64) Aligned {
        std::uint8_t bytes[64];
    };
    const auto countOf = [](auto&& allocate) {
        const std::size_t before = AllocationCount();
        const auto kept = allocate();
        LookAt(kept.get());
        return AllocationCount() - before;
    };
    EXPECT_EQ(countOf([] { return std::make_unique<int>(1); }), 1U);
    EXPECT_EQ(countOf([] { return std::make_unique<int[]>(10); }), 1U);
    EXPECT_EQ(countOf([] { return std::make_unique<Aligned>(); }), 1U);
    EXPECT_EQ(countOf([] { return std::make_unique<Aligned[]>(3); }), 1U);
    EXPECT_EQ(countOf([] { return std::unique_ptr<int>(new (std::nothrow) int(1)); }), 1U);
    EXPECT_EQ(countOf([] { return std::make_shared<int>(1); }), 1U);
}

TEST(AllocationCount, AlignsWhatWantsToBeAligned) {
    struct alignas(256) Aligned {
        std::uint8_t byte;
    };
    for (int time = 0; time < 8; ++time) {
        const auto aligned = std::make_unique<Aligned>();
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(aligned.get()) % 256, 0U);
    }
}

}  // namespace
}  // namespace scenara::test
