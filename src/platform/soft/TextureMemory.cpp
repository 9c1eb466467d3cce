// SPDX-License-Identifier: MIT
#include "platform/soft/TextureMemory.h"

#include <algorithm>
#include <limits>

#include "base/RunTimeError.h"
#include "platform/PageMemory.h"
#include "platform/soft/Poison.h"

namespace scenara {
namespace {

constexpr std::size_t kAlignment = 64;

// More than any system has, and few enough that sums of their bytes do not overflow.
constexpr std::size_t kMostWords = std::numeric_limits<std::size_t>::max() / 16;

constexpr std::size_t RoundUp(std::size_t value, std::size_t unit) {
    return (value + unit - 1) / unit * unit;
}

std::size_t BytesOf(std::size_t words) {
    return RoundUp(words * sizeof(std::uint32_t), kAlignment);
}

}  // namespace

TextureMemory::~TextureMemory() {
    while (!blocks_.empty()) {
        Drop(blocks_.front());
    }
}

TextureMemory::Piece TextureMemory::Allocate(std::size_t words, Pages pages) {
    if (words > kMostWords) {
        throw RunTimeError(RunTimeErrorKind::OutOfMemory);
    }
    const std::size_t bytes = BytesOf(words);
    Block& block = BlockWithRoom(bytes);
    std::byte* const start = block.start + block.used;
    // The block is bare memory; from here on these bytes are words.
    Piece piece = {{reinterpret_cast<std::uint32_t*>(start), words},
                   &block,
                   Extend(block, block.used + bytes)};
    if (pages == Pages::Now) {
        try {
            BringIn(piece);
        } catch (const RunTimeError&) {
            block.committed -= piece.missing.size();
            if (block.pieces == 0) {
                Drop(block);  // what it has of pages is wanted elsewhere now
            }
            throw;
        }
    }
    block.used += bytes;
    ++block.pieces;
    usedBytes_ += bytes;
    Unpoison(start, words * sizeof(std::uint32_t));
    return piece;
}

void TextureMemory::BringIn(Piece& piece) {
    if (!piece.missing.empty()) {
        CommitPages(piece.missing.data(), piece.missing.size());
        piece.missing = {};
    }
}

void TextureMemory::Release(const Piece& piece) {
    Block& block = *piece.block;
    const std::size_t bytes = BytesOf(piece.words.size());
    auto* const start = reinterpret_cast<std::byte*>(piece.words.data());
    Poison(start, bytes);
    usedBytes_ -= bytes;
    --block.pieces;
    if (!piece.missing.empty()) {
        // Those behind them count as not there either, and are brought in again.
        block.committed =
            std::min(block.committed, static_cast<std::size_t>(piece.missing.data() - block.start));
    }
    if (block.pieces == 0) {
        block.used = 0;
        DropSurplus();
    } else if (start + bytes == block.start + block.used) {
        block.used -= bytes;
    }
}

void TextureMemory::Shrink(Piece& piece, std::size_t words) {
    if (words >= piece.words.size()) {
        return;
    }
    Block& block = *piece.block;
    const std::size_t before = BytesOf(piece.words.size());
    const std::size_t after = BytesOf(words);
    auto* const start = reinterpret_cast<std::byte*>(piece.words.data());
    const bool last = start + before == block.start + block.used;
    if (last && after > 0) {
        block.used -= before - after;
        usedBytes_ -= before - after;
        Poison(start + after, before - after);
        piece.words = piece.words.first(words);
    }
}

std::size_t TextureMemory::CommittedBytes() const {
    std::size_t bytes = 0;
    for (const Block& block : blocks_) {
        bytes += block.committed;
    }
    return bytes;
}

TextureMemory::Block& TextureMemory::BlockWithRoom(std::size_t bytes) {
    // First fit: the few pictures that leave room at the end of a block are followed by others
    // that find it.
    for (Block& block : blocks_) {
        if (block.size - block.used >= bytes) {
            return block;
        }
    }
    const std::size_t size = std::max(kBlockBytes, RoundUp(bytes, kLargePage));
    std::byte* const start = ReservePages(size);
    Poison(start, size);
    return blocks_.emplace_back(Block{start, size, 0, 0, 0});
}

// Pages up to `end`: those that it did not have.
std::span<std::byte> TextureMemory::Extend(Block& block, std::size_t end) const {
    const std::size_t before = block.committed;
    while (block.committed < end) {
        const std::size_t missing = end - block.committed;
        std::byte* const start = block.start + block.committed;
        const bool atLargePage = block.committed % kLargePage == 0;
        const bool fills = missing >= kLargePage || expected_ >= kLargePage;
        if (atLargePage && (fills || usedBytes_ >= kLargePagesFrom)) {
            const std::size_t whole = std::max(missing / kLargePage, std::size_t{1}) * kLargePage;
            PreferLargePages(start, whole);
            block.committed += whole;
        } else {
            const std::size_t toLargePage = kLargePage - block.committed % kLargePage;
            block.committed += std::min(RoundUp(missing, kSmallPage), toLargePage);
        }
    }
    return {block.start + before, block.committed - before};
}

void TextureMemory::Drop(Block& block) {
    Unpoison(block.start, block.size);
    ReleasePages(block.start, block.size);
    blocks_.remove_if([&](const Block& other) { return &other == &block; });
}

void TextureMemory::DropSurplus() {
    std::size_t kept = 0;
    for (auto block = blocks_.begin(); block != blocks_.end();) {
        if (block->pieces == 0 && kept + block->committed > kKeptBytes) {
            Drop(*block++);
        } else {
            kept += block->pieces == 0 ? block->committed : 0;
            ++block;
        }
    }
}

}  // namespace scenara
