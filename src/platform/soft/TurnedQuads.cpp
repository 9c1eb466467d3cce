// SPDX-License-Identifier: MIT
#include "platform/soft/TurnedQuads.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/soft/CopyRows.h"
#include "platform/soft/MeanKinds.h"
#include "platform/soft/RowDrawing.h"
#include "platform/soft/RowPaths.h"
#include "platform/soft/Sampling.h"
#include "platform/soft/TriangleShape.h"
#include "platform/soft/TurnedTexels.h"

namespace scenara::soft {

#if SCENARA_ROWS_X86
namespace {

bool IsTurnedQuad(const PixelStates& states, std::span<const Vertex> corners) {
    return corners.size() == 4 && states.sampling.clampColumns && states.sampling.clampLines &&
           std::ranges::all_of(corners, [&](const Vertex& corner) {
               return corner.color == corners[0].color && IsFinite(corner, true);
           });
}

// How lines of the quad are made and drawn.
struct TurnedDrawing {
    const Target& target;
    const Texels& texture;
    const RowDrawing& drawing;
    bool linear;
    rows::MeanAlphas alphas;

    // Pixels of a line, kMostRun at most, from pixel x on.
    void DrawRow(std::int32_t x, std::int32_t y, std::int32_t width, const TurnedCourse& across,
                 const TurnedCourse& down) const {
        // A bit for each block of the stretch: all of them are looked at.
        static constexpr std::array<std::uint8_t, 8> kAllBlocks{255, 255, 255, 255,
                                                                255, 255, 255, 255};
        std::array<std::uint32_t, kMostRun> texels;  // NOLINT(*-member-init): filled as needed
        if (linear) {
            rows::TurnedMeansAvx2(texture, across, down, alphas, width, texels.data());
        } else {
            rows::TurnedNearestAvx2(texture, across, down, width, texels.data());
        }
        TexelRows row;
        row.lines = texels.data();
        row.linePitch = kMostRun;
        row.bits = drawing.LeavesHiddenOut() ? kAllBlocks.data() : nullptr;
        row.width = width;
        row.height = 1;
        row.destination = target.PixelAt(x, y);
        row.pitch = target.width;
        drawing.Draw(row);
    }
};

void DrawTurnedTriangle(const TurnedDrawing& drawing, const Vertex& a, const Vertex& b,
                        const Vertex& c) {
    const std::array<Point, 3> places{PointOf(a), PointOf(b), PointOf(c)};
    const Plane plane(places);
    if (!(plane.Area() > 0)) {
        return;
    }
    const Texels& texture = drawing.texture;
    const auto slopeOf = [&](float Vertex::*coordinate, std::int32_t texels) {
        return plane.Through(PlaceOf(a.*coordinate, texels), PlaceOf(b.*coordinate, texels),
                             PlaceOf(c.*coordinate, texels));
    };
    const Slope u = slopeOf(&Vertex::tu, texture.width);
    const Slope v = slopeOf(&Vertex::tv, texture.height);
    const bool mirrored = IsMirrored(u);
    const bool flipped = IsMirrored(v);
    const Outline outline(places, drawing.target);
    const PixelRun lines = outline.Rows();
    for (std::int32_t y = lines.begin; y < lines.end; ++y) {
        const double center = y + 0.5;
        const PixelRun run = outline.Pixels(center);
        for (std::int32_t x = run.begin; x < run.end; x += kMostRun) {
            const std::int32_t width = std::min(kMostRun, run.end - x);
            const Point first{x + 0.5, center};
            const Course across{plane.At(u, first), u.perX};
            const Course down{plane.At(v, first), v.perX};
            const auto pixels = static_cast<std::size_t>(width);
            if (!across.HasTexels(pixels) || !down.HasTexels(pixels)) {
                continue;
            }
            const auto counted = [](const Course& course, std::int32_t size, bool backwards) {
                return backwards ? TurnedCourse{-course.first, -course.step, size, true}
                                 : TurnedCourse{course.first, course.step, size, false};
            };
            drawing.DrawRow(x, y, width, counted(across, texture.width, mirrored),
                            counted(down, texture.height, flipped));
        }
    }
}

}  // namespace

bool DrawTurnedQuad(const Target& target, const PixelStates& states, const Texels& texture,
                    const Coverage& coverage, std::span<const Vertex> corners) {
    if (!IsTurnedQuad(states, corners) || BestRowPath() < RowPath::Avx2) {
        return false;
    }
    const bool linear = states.sampling.linear;
    const Coverage::Kind kind = coverage.WhatKind();
    const std::uint32_t tint = TintOf(corners[0].color, states.alphaOperation);
    const RowDrawing rows(states, tint, linear ? KindOfMeans(kind) : kind);
    if (linear && states.blending && !rows.LeavesHiddenOut() && kind != Coverage::Kind::Opaque) {
        return false;  // the colours of what has no alpha show
    }
    const TurnedDrawing drawing{target, texture, rows, linear, AlphasOf(states, kind)};
    DrawTurnedTriangle(drawing, corners[0], corners[1], corners[2]);
    DrawTurnedTriangle(drawing, corners[2], corners[1], corners[3]);
    return true;
}
#else
bool DrawTurnedQuad(const Target& /*target*/, const PixelStates& /*states*/,
                    const Texels& /*texture*/, const Coverage& /*coverage*/,
                    std::span<const Vertex> /*corners*/) {
    return false;
}
#endif

}  // namespace scenara::soft
