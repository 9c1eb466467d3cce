// SPDX-License-Identifier: MIT
//
// DrawList: what is drawn in a scene, noted, and then drawn by several threads, each in bands of
// lines of its own.
//
// Within a band all is drawn in the order in which it was noted, so that the picture is that of one
// thread. Whoever looks at the pixels, or changes a texture that is noted, has all drawn first. A
// list that is full is drawn and begun anew: noting allocates nothing.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "base/NotCopied.h"
#include "platform/soft/BandWorkers.h"
#include "platform/soft/Blend.h"
#include "platform/soft/SoftTexture.h"
#include "platform/soft/Texels.h"

namespace scenara::soft {

class DrawList : NotCopied {
public:
    // The caller's thread is one of them.
    explicit DrawList(std::int32_t threads);
    ~DrawList() { Forget(); }

    // Fills what is drawn to with one colour.
    void NoteClear(const Target& target, std::uint32_t color);
    // No texture: white. All targets of a list are parts of one back buffer.
    void NoteStrip(const Target& target, const PixelStates& states,
                   const std::shared_ptr<SoftTexture>& texture, std::span<const Vertex> corners);

    // Draws all and forgets it.
    void DrawAll();
    void Forget();

private:
    static constexpr std::size_t kMostNotes = 1024;
    static constexpr std::size_t kMostCorners = 4;

    struct Note {
        Target target;  // no larger than what is drawn
        PixelStates states;
        std::shared_ptr<SoftTexture> texture;
        std::array<Vertex, kMostCorners> corners;
        std::size_t cornerCount = 0;  // 0: a Clear
        std::uint32_t color = 0;      // of it
    };
    class Bands;

    Note& Next();
    void NoteQuad(const Target& target, const PixelStates& states,
                  const std::shared_ptr<SoftTexture>& texture, std::span<const Vertex> corners);
    static void Draw(const Note& note, const Target& target);

    BandWorkers workers_;
    std::vector<Note> notes_;
    std::size_t count_ = 0;
    std::int64_t pixels_ = 0;  // that they draw, at most
};

}  // namespace scenara::soft
