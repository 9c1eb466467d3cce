// SPDX-License-Identifier: MIT
//
// PictureQueue: the pictures of an archive in a given order, decoded ahead on all processors.
//
// The thread that asks reads and finishes; all threads decode. What comes out, messages and their
// order included, is what a load one by one gives. An archive of a few pictures is loaded without
// other threads.
//
// Bounds: so many pictures are under way, and so many bytes of the file held for them, that memory
// is little more than that of the textures. Textures of damaged pictures are given back late where
// others were begun after them: from a sum of these on, pictures are loaded one by one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "base/NotCopied.h"
#include "sprites/PictureLoad.h"
#include "sprites/SpriteArchive.h"

namespace scenara {

class PictureQueue : NotCopied {
public:
    // The archive outlives it, and is walked. `places` are of pictures, none linked; `helpers` as
    // in ArchiveSource.
    PictureQueue(SpriteArchive& archive, std::vector<std::size_t> places, unsigned helpers);
    ~PictureQueue();

    // The picture of the next place, for the sprite that shows it. False: it cannot be had, which
    // was reported.
    [[nodiscard]] bool Next(std::size_t shownBy, SpritePicture& picture);

private:
    class Team;

    void BeginMore();

    SpriteArchive& archive_;
    std::vector<std::size_t> places_;
    std::size_t begun_ = 0;           // places
    std::uint64_t textureBytes_ = 0;  // of all that were begun
    unsigned helpers_;
    std::deque<std::unique_ptr<PictureLoad>> underWay_;
    std::size_t heldBytes_ = 0;
    std::uint64_t lostBytes_ = 0;
    std::unique_ptr<Team> team_;
};

}  // namespace scenara
