// SPDX-License-Identifier: MIT
#include "platform/soft/DrawList.h"

#include <algorithm>
#include <cmath>

#include "platform/soft/Strips.h"

namespace scenara::soft {
namespace {

// Below this the threads take longer to wake up than to draw.
constexpr std::int64_t kLeastPixels = 200'000;

// With more the lines of a frame are shared more evenly; each costs a look at every note.
constexpr std::int32_t kBandsPerThread = 4;

// From the first pixel that values from `least` to `most` can reach, to behind the last, of those
// from `begin` to `end`.
struct Reach {
    std::int32_t begin;
    std::int32_t end;
};
Reach ReachOf(float least, float most, std::int32_t begin, std::int32_t end) {
    const auto within = [&](double value) {
        return static_cast<std::int32_t>(std::clamp(value, double{1} * begin, double{1} * end));
    };
    return {within(std::floor(static_cast<double>(least))),
            within(std::ceil(static_cast<double>(most)))};
}

// The part of a target that a strip can reach. What has no finite corner draws nothing.
Target Reached(const Target& target, std::span<const Vertex> corners) {
    float left = corners[0].x;
    float right = left;
    float top = corners[0].y;
    float bottom = top;
    for (const Vertex& corner : corners) {
        if (!std::isfinite(corner.x) || !std::isfinite(corner.y)) {
            return target;
        }
        left = std::min(left, corner.x);
        right = std::max(right, corner.x);
        top = std::min(top, corner.y);
        bottom = std::max(bottom, corner.y);
    }
    const Reach columns = ReachOf(left, right, target.left, target.right);
    const Reach lines = ReachOf(top, bottom, target.top, target.bottom);
    Target reached = target;
    reached.left = columns.begin;
    reached.right = columns.end;
    reached.top = lines.begin;
    reached.bottom = lines.end;
    return reached;
}

std::int64_t PixelsOf(const Target& target) {
    return std::int64_t{target.right - target.left} * (target.bottom - target.top);
}

}  // namespace

// All notes, a band of lines at a time.
class DrawList::Bands final : public BandWork {
public:
    Bands(std::span<const Note> notes, std::int32_t lines, std::int32_t bands)
        : notes_(notes), lines_(lines), bands_(bands) {}

    void DoBand(std::int32_t band) override {
        const std::int32_t top = FirstLine(band);
        const std::int32_t bottom = FirstLine(band + 1);
        for (const Note& note : notes_) {
            Target target = note.target;
            target.top = std::max(target.top, top);
            target.bottom = std::min(target.bottom, bottom);
            if (target.top < target.bottom) {
                Draw(note, target);
            }
        }
    }

private:
    [[nodiscard]] std::int32_t FirstLine(std::int32_t band) const {
        return static_cast<std::int32_t>(std::int64_t{lines_} * band / bands_);
    }

    std::span<const Note> notes_;
    std::int32_t lines_;
    std::int32_t bands_;
};

DrawList::DrawList(std::int32_t threads) : workers_(threads), notes_(kMostNotes) {}

DrawList::Note& DrawList::Next() {
    if (count_ == kMostNotes) {
        DrawAll();
    }
    return notes_[count_++];
}

void DrawList::NoteClear(const Target& target, std::uint32_t color) {
    Note& note = Next();
    note.target = target;
    note.cornerCount = 0;
    note.color = color;
    pixels_ += PixelsOf(target);
}

void DrawList::NoteStrip(const Target& target, const PixelStates& states,
                         const std::shared_ptr<SoftTexture>& texture,
                         std::span<const Vertex> corners) {
    if (corners.size() <= kMostCorners) {
        NoteQuad(target, states, texture, corners);
        return;
    }
    // Triangle by triangle, every second one taken the other way round.
    for (std::size_t i = 0; i + 2 < corners.size(); ++i) {
        const std::size_t turned = i % 2;
        const std::array<Vertex, 3> triangle{corners[i + turned], corners[i + 1 - turned],
                                             corners[i + 2]};
        NoteQuad(target, states, texture, triangle);
    }
}

void DrawList::NoteQuad(const Target& target, const PixelStates& states,
                        const std::shared_ptr<SoftTexture>& texture,
                        std::span<const Vertex> corners) {
    const Target reached = Reached(target, corners);
    if (PixelsOf(reached) <= 0) {
        return;
    }
    Note& note = Next();
    note.target = reached;
    note.states = states;
    note.texture = texture;
    note.cornerCount = corners.size();
    std::ranges::copy(corners, note.corners.begin());
    pixels_ += PixelsOf(reached);
    if (texture != nullptr) {
        texture->AwaitDrawing(this);
    }
}

void DrawList::Draw(const Note& note, const Target& target) {
    if (note.cornerCount == 0) {
        Fill(target, note.color);
        return;
    }
    DrawFastest(target, note.states, note.texture.get(),
                std::span(note.corners).first(note.cornerCount));
}

void DrawList::DrawAll() {
    const std::span notes = std::span<const Note>(notes_).first(count_);
    if (!notes.empty()) {
        const bool worthAll = pixels_ >= kLeastPixels && workers_.Threads() > 1;
        const std::int32_t count = worthAll ? workers_.Threads() * kBandsPerThread : 1;
        Bands bands(notes, notes.front().target.height, count);
        if (worthAll) {
            workers_.Do(bands, count);
        } else {
            bands.DoBand(0);
        }
    }
    Forget();
}

void DrawList::Forget() {
    for (Note& note : std::span(notes_).first(count_)) {
        if (note.texture != nullptr) {
            note.texture->AwaitDrawing(nullptr);
            note.texture.reset();
        }
    }
    count_ = 0;
    pixels_ = 0;
}

}  // namespace scenara::soft
