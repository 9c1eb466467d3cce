// SPDX-License-Identifier: MIT
//
// TextureMemory: where the pictures of a stage live, kept from one stage to the next.
//
// Getting fresh memory from the system costs more than decoding a picture into it, and a stage
// gives all of its textures back at once. So memory comes in large blocks that are filled from the
// start; a block whose last texture is gone begins anew with its pages still in place. A texture
// that is given back as the last one made (a picture that failed to decode) costs nothing. At most
// kKeptBytes are held without a texture in them; what is beyond goes back to the system.
//
// Pages come in small ones, so that a small stage takes what it needs and no more, and in large
// ones where that wastes little: inside a big picture, while more pictures are expected that will
// fill one, and for all once kLargePagesFrom bytes are in use.
//
// Bringing pages in takes longer than all else. A piece that is filled by another thread can leave
// that to it.
//
// Every piece is aligned to 64 bytes. Raises RunTimeError "Out of memory" when the system has no
// more. Not for several threads, but for BringIn.
#pragma once

#include <cstddef>
#include <cstdint>
#include <list>
#include <span>

#include "base/NotCopied.h"

namespace scenara {

class TextureMemory : NotCopied {
public:
    static constexpr std::size_t kBlockBytes = std::size_t{64} << 20U;
    static constexpr std::size_t kKeptBytes = std::size_t{256} << 20U;
    static constexpr std::size_t kLargePagesFrom = std::size_t{64} << 20U;

    struct Block {
        std::byte* start;
        std::size_t size;       // bytes reserved
        std::size_t committed;  // bytes from the start that have their pages
        std::size_t used;       // bytes from the start that were given out
        std::size_t pieces;     // given out and not yet back
    };

    struct Piece {
        std::span<std::uint32_t> words;
        Block* block = nullptr;
        std::span<std::byte> missing{};  // pages that BringIn is still to be called for
    };

    // When a piece has its pages: at once, or once BringIn is called.
    enum class Pages { Now, Later };

    ~TextureMemory();

    [[nodiscard]] Piece Allocate(std::size_t words, Pages pages = Pages::Now);
    // About so many bytes will be asked for from now on.
    void Expect(std::uint64_t bytes) { expected_ = bytes; }

    // On any thread, while others go on with this memory. Raises as above.
    static void BringIn(Piece& piece);
    void Release(const Piece& piece);

    // Gives back what is behind the piece's first `words` words; the last piece made gets its room
    // used by the next one.
    void Shrink(Piece& piece, std::size_t words);

    // Bytes with pages behind them, used or not.
    [[nodiscard]] std::size_t CommittedBytes() const;
    // Bytes in pieces that are given out, up to the alignment.
    [[nodiscard]] std::size_t UsedBytes() const { return usedBytes_; }

private:
    [[nodiscard]] Block& BlockWithRoom(std::size_t bytes);
    [[nodiscard]] std::span<std::byte> Extend(Block& block, std::size_t end) const;
    void Drop(Block& block);
    void DropSurplus();

    std::list<Block> blocks_;
    std::size_t usedBytes_ = 0;
    std::uint64_t expected_ = 0;  // bytes
};

}  // namespace scenara
