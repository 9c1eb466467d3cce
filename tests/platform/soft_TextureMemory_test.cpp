// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <random>
#include <thread>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "platform/PageMemory.h"
#include "platform/soft/Poison.h"
#include "platform/soft/TextureMemory.h"
#include "support/Raises.h"

namespace scenara {
namespace {

using Piece = TextureMemory::Piece;

constexpr std::size_t kWord = sizeof(std::uint32_t);
constexpr std::size_t kMegabyte = std::size_t{1} << 20U;
constexpr std::size_t kBlockWords = TextureMemory::kBlockBytes / kWord;

void Fill(const Piece& piece, std::uint32_t value) {
    std::fill(piece.words.begin(), piece.words.end(), value);
}

bool IsFilledWith(const Piece& piece, std::uint32_t value) {
    return std::all_of(piece.words.begin(), piece.words.end(),
                       [&](std::uint32_t word) { return word == value; });
}

TEST(TextureMemory, HoldsNothingAtFirst) {
    const TextureMemory memory;
    EXPECT_EQ(memory.UsedBytes(), 0U);
    EXPECT_EQ(memory.CommittedBytes(), 0U);
}

TEST(TextureMemory, GivesAsManyWordsAsAskedForAlignedTo64Bytes) {
    TextureMemory memory;
    std::vector<Piece> pieces;
    for (const std::size_t words :
         std::initializer_list<std::size_t>{1, 2, 15, 16, 17, 31, 1000, 5, 320 * 240, 3}) {
        const Piece piece = memory.Allocate(words);
        EXPECT_EQ(piece.words.size(), words);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(piece.words.data()) % 64, 0U);
        pieces.push_back(piece);
    }
    std::for_each(pieces.begin(), pieces.end(), [&](const Piece& p) { memory.Release(p); });
    EXPECT_EQ(memory.UsedBytes(), 0U);
}

TEST(TextureMemory, PiecesDoNotOverlap) {
    TextureMemory memory;
    std::mt19937 random(64);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    std::vector<Piece> pieces;
    for (std::uint32_t i = 0; i < 500; ++i) {
        pieces.push_back(memory.Allocate(1 + random() % 3000));
        Fill(pieces.back(), i);
        if (random() % 3 == 0) {  // a picture that failed
            memory.Release(pieces.back());
            pieces.pop_back();
            pieces.push_back(memory.Allocate(1 + random() % 3000));
            Fill(pieces.back(), i);
        }
    }
    for (std::uint32_t i = 0; i < pieces.size(); ++i) {
        EXPECT_TRUE(IsFilledWith(pieces[i], i)) << "piece " << i;
    }
}

TEST(TextureMemory, UsedBytesAreThoseOfThePiecesUpToTheAlignment) {
    TextureMemory memory;
    const Piece small = memory.Allocate(1);
    EXPECT_EQ(memory.UsedBytes(), 64U);
    const Piece exact = memory.Allocate(16);
    EXPECT_EQ(memory.UsedBytes(), 128U);
    const Piece more = memory.Allocate(17);
    EXPECT_EQ(memory.UsedBytes(), 256U);
    memory.Release(exact);
    EXPECT_EQ(memory.UsedBytes(), 192U);
    memory.Release(small);
    memory.Release(more);
    EXPECT_EQ(memory.UsedBytes(), 0U);
}

TEST(TextureMemory, ASmallStageTakesWhatItNeedsAndNoMore) {
    TextureMemory memory;
    std::mt19937 random(4096);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    // Up to half a block, with big pictures among the small ones.
    for (int i = 0; memory.UsedBytes() < TextureMemory::kBlockBytes / 2; ++i) {
        const std::size_t most = i % 10 == 9 ? std::size_t{5} << 20U : std::size_t{100} << 10U;
        static_cast<void>(memory.Allocate(1 + random() % (most / kWord)));
        ASSERT_GE(memory.CommittedBytes(), memory.UsedBytes());
        ASSERT_LT(memory.CommittedBytes() - memory.UsedBytes(), kSmallPage);
    }
}

TEST(TextureMemory, ALargeStageTakesAtMostOneLargePageMore) {
    TextureMemory memory;
    for (std::size_t i = 0; i < 66; ++i) {
        static_cast<void>(memory.Allocate(kMegabyte / kWord));  // fills the first block exactly
    }
    for (int i = 0; i < 200; ++i) {
        static_cast<void>(memory.Allocate(5000));
        ASSERT_GT(memory.UsedBytes(), TextureMemory::kLargePagesFrom);
        ASSERT_LT(memory.CommittedBytes() - memory.UsedBytes(), kLargePage);
    }
}

TEST(TextureMemory, APieceGivenBackAsTheLastOneCostsNothing) {
    TextureMemory memory;
    const Piece kept = memory.Allocate(1000);
    Fill(kept, 7);
    const std::size_t used = memory.UsedBytes();
    const Piece failed = memory.Allocate(100000);
    const std::size_t committed = memory.CommittedBytes();
    for (int i = 0; i < 1000; ++i) {
        memory.Release(i == 0 ? failed : memory.Allocate(100000));
        ASSERT_EQ(memory.UsedBytes(), used);
    }
    const Piece next = memory.Allocate(100000);
    EXPECT_EQ(next.words.data(), failed.words.data());
    EXPECT_EQ(memory.CommittedBytes(), committed);
    EXPECT_TRUE(IsFilledWith(kept, 7));
}

TEST(TextureMemory, TheNextStageFindsTheMemoryOfTheLastOne) {
    TextureMemory memory;
    std::size_t committed = 0;
    std::vector<std::uint32_t*> firstTime;
    for (int stage = 0; stage < 5; ++stage) {
        std::vector<Piece> pieces;
        std::vector<std::uint32_t*> places;
        for (std::size_t i = 0; i < 40; ++i) {
            pieces.push_back(memory.Allocate(i * 1000 + 1));
            places.push_back(pieces.back().words.data());
        }
        if (stage == 0) {
            committed = memory.CommittedBytes();
            firstTime = places;
        }
        EXPECT_EQ(places, firstTime);
        EXPECT_EQ(memory.CommittedBytes(), committed);
        for (const Piece& piece : pieces) {  // oldest first, as a table is emptied
            memory.Release(piece);
        }
        EXPECT_EQ(memory.UsedBytes(), 0U);
        EXPECT_EQ(memory.CommittedBytes(), committed);
    }
}

TEST(TextureMemory, ABlockBeginsAnewOnlyOnceItsLastPieceIsGone) {
    TextureMemory memory;
    const Piece first = memory.Allocate(1000);
    const Piece second = memory.Allocate(1000);
    Fill(second, 3);
    memory.Release(first);
    const Piece third = memory.Allocate(10);
    Fill(third, 4);
    EXPECT_TRUE(IsFilledWith(second, 3)) << "still in use";
    memory.Release(second);
    EXPECT_TRUE(IsFilledWith(third, 4));
    memory.Release(third);
    EXPECT_EQ(memory.Allocate(1).words.data(), first.words.data());
}

TEST(TextureMemory, LaterPiecesFindTheRoomThatABigOneLeft) {
    TextureMemory memory;
    const Piece most = memory.Allocate(kBlockWords - 1024);
    const std::size_t committed = memory.CommittedBytes();
    const Piece big = memory.Allocate(kBlockWords);  // does not fit: a block of its own
    const Piece small = memory.Allocate(1024);
    EXPECT_EQ(small.words.data(), most.words.data() + most.words.size());
    EXPECT_EQ(memory.CommittedBytes(), committed + 1024 * kWord + TextureMemory::kBlockBytes);
    EXPECT_EQ(big.words.size(), kBlockWords);
}

TEST(TextureMemory, APieceMayBeLargerThanABlock) {
    TextureMemory memory;
    const std::size_t words = kBlockWords + 12345;
    const Piece piece = memory.Allocate(words);
    ASSERT_EQ(piece.words.size(), words);
    piece.words.front() = 1;
    piece.words.back() = 2;
    EXPECT_LT(memory.CommittedBytes() - memory.UsedBytes(), kLargePage);
    memory.Release(piece);
    EXPECT_EQ(memory.UsedBytes(), 0U);
}

TEST(TextureMemory, KeepsNoMoreThanItsLimitWithoutPieces) {
    TextureMemory memory;
    std::vector<Piece> pieces;
    for (std::size_t bytes = 0; bytes <= TextureMemory::kKeptBytes + TextureMemory::kBlockBytes;
         bytes += TextureMemory::kBlockBytes) {
        pieces.push_back(memory.Allocate(kBlockWords));
    }
    EXPECT_GT(memory.CommittedBytes(), TextureMemory::kKeptBytes);
    for (const Piece& piece : pieces) {
        memory.Release(piece);
        EXPECT_LE(memory.CommittedBytes() - memory.UsedBytes(), TextureMemory::kKeptBytes);
    }
    EXPECT_EQ(memory.CommittedBytes(), TextureMemory::kKeptBytes) << "as much as it may";
}

TEST(TextureMemory, GivesBackAPieceThatIsLargerThanTheLimit) {
    TextureMemory memory;
    const Piece small = memory.Allocate(100);
    const Piece huge = memory.Allocate(TextureMemory::kKeptBytes / kWord + 1);
    memory.Release(huge);
    EXPECT_LT(memory.CommittedBytes(), kMegabyte);
    memory.Release(small);
    EXPECT_EQ(memory.UsedBytes(), 0U);
}

TEST(TextureMemory, RaisesOutOfMemoryAndGoesOn) {
    TextureMemory memory;
    const Piece kept = memory.Allocate(1000);
    Fill(kept, 9);
    const std::size_t used = memory.UsedBytes();
    const std::size_t committed = memory.CommittedBytes();
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
    for (const std::size_t words : {kMost, kMost - 15, kMost / 4, kMost / 4 + 1, kMost / 8,
                                    kMost / 8 + 1, std::size_t{1} << 50U}) {
        EXPECT_THAT([&] { return memory.Allocate(words); },
                    test::Raises(RunTimeErrorKind::OutOfMemory))
            << words;
        EXPECT_EQ(memory.UsedBytes(), used);
        EXPECT_EQ(memory.CommittedBytes(), committed);
    }
    Fill(memory.Allocate(1000), 1);
    EXPECT_TRUE(IsFilledWith(kept, 9));
}

TEST(TextureMemory, WhatIsExpectedComesInLargePages) {
    struct Row {
        std::uint64_t expected;
        std::size_t committed;
    };
    for (const Row& row :
         {Row{0, kSmallPage}, {2 * kLargePage - 1, kSmallPage}, {2 * kLargePage, kLargePage}}) {
        TextureMemory memory;
        memory.Expect(row.expected);
        static_cast<void>(memory.Allocate(10));
        EXPECT_EQ(memory.CommittedBytes(), row.committed) << row.expected;
    }
}

// Pieces as they come to their memory: at once, later, on another thread, or never.
TEST(TextureMemory, PagesMayComeLaterOnAnotherThread) {
    TextureMemory memory;
    std::mt19937 random(65);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    std::vector<Piece> pieces;
    for (int round = 0; round < 3; ++round) {
        for (std::uint32_t i = 0; i < 60; ++i) {
            const bool later = random() % 4 != 0;
            const std::size_t words = random() % 10 == 0 ? 900'000 : 1 + random() % 5000;
            Piece piece = memory.Allocate(
                words, later ? TextureMemory::Pages::Later : TextureMemory::Pages::Now);
            EXPECT_TRUE(later || piece.missing.empty());
            if (random() % 5 == 0) {  // a picture that failed before it was begun
                memory.Release(piece);
                continue;
            }
            pieces.push_back(piece);
        }
        std::thread other([&] {
            for (std::uint32_t i = 0; i < pieces.size(); ++i) {
                TextureMemory::BringIn(pieces[i]);
                EXPECT_TRUE(pieces[i].missing.empty());
                Fill(pieces[i], i);
            }
        });
        for (int i = 0; i < 200; ++i) {
            memory.Release(memory.Allocate(1 + random() % 5000, TextureMemory::Pages::Later));
        }
        other.join();
        for (std::uint32_t i = 0; i < pieces.size(); ++i) {
            EXPECT_TRUE(IsFilledWith(pieces[i], i)) << "piece " << i;
        }
    }
}

TEST(TextureMemory, PagesThatWereNotBroughtInCountAsNotThere) {
    TextureMemory memory;
    static_cast<void>(memory.Allocate(1000));
    const std::size_t committed = memory.CommittedBytes();
    const Piece dropped = memory.Allocate(100'000, TextureMemory::Pages::Later);
    EXPECT_FALSE(dropped.missing.empty());
    memory.Release(dropped);
    EXPECT_EQ(memory.CommittedBytes(), committed);
    Piece again = memory.Allocate(100'000, TextureMemory::Pages::Later);
    EXPECT_EQ(again.missing.size(), dropped.missing.size());
    TextureMemory::BringIn(again);
    memory.Release(again);
    EXPECT_GT(memory.CommittedBytes(), committed);
    EXPECT_TRUE(memory.Allocate(100'000, TextureMemory::Pages::Later).missing.empty());
}

TEST(TextureMemory, APieceOfNoWordsTakesNothing) {
    TextureMemory memory;
    const Piece none = memory.Allocate(0);
    EXPECT_TRUE(none.words.empty());
    EXPECT_EQ(memory.UsedBytes(), 0U);
    const Piece one = memory.Allocate(1);
    Fill(one, 5);
    memory.Release(none);
    EXPECT_TRUE(IsFilledWith(one, 5));
    memory.Release(one);
    EXPECT_EQ(memory.UsedBytes(), 0U);
}

#ifdef SCENARA_HAS_ASAN
TEST(TextureMemory, TheAddressSanitizerGuardsWhatBelongsToNobody) {
    TextureMemory memory;
    const auto poisoned = [](const std::uint32_t* word) {
        return __asan_address_is_poisoned(word) != 0;
    };
    const Piece first = memory.Allocate(17);
    const Piece second = memory.Allocate(16);
    EXPECT_FALSE(poisoned(first.words.data() + 16));
    EXPECT_TRUE(poisoned(first.words.data() + 17)) << "up to the alignment";
    EXPECT_FALSE(poisoned(second.words.data()));
    EXPECT_TRUE(poisoned(second.words.data() + 16)) << "behind the last piece";

    memory.Release(first);
    EXPECT_TRUE(poisoned(first.words.data())) << "given back";
    memory.Release(second);
    EXPECT_TRUE(poisoned(second.words.data()));
    EXPECT_FALSE(poisoned(memory.Allocate(4).words.data())) << "given out again";
}
#endif

}  // namespace
}  // namespace scenara
