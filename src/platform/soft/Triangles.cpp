// SPDX-License-Identifier: MIT
#include "platform/soft/Triangles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "platform/soft/PixelRows.h"
#include "platform/soft/Sampling.h"
#include "platform/soft/TriangleShape.h"

namespace scenara::soft {
namespace {

constexpr unsigned kAlphaShift = 24;

std::int64_t RoundedDown(double value) {
    const auto whole = static_cast<std::int64_t>(value);
    return whole - (static_cast<double>(whole) > value ? 1 : 0);
}

// Looks a line's texels up.
class TexelRow {
public:
    // The courses are counted as the axes are.
    TexelRow(const Texels& texture, const Course& u, const Course& v, const TexelAxis& columns,
             const TexelAxis& lines)
        : texture_(texture), u_(u), v_(v), columns_(columns), lines_(lines) {}

    void FetchNearest(std::span<std::uint32_t> row) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::int64_t line = RoundedDown(NearestTexel(v_.At(i)));
            const std::int64_t column = RoundedDown(NearestTexel(u_.At(i)));
            row[i] = texture_.Line(lines_.TexelAt(line))[columns_.TexelAt(column)];
        }
    }

    void FetchMeans(std::span<std::uint32_t> row, bool byAlpha) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const TwoTexels across = TwoAt(columns_, u_.At(i));
            const TwoTexels down = TwoAt(lines_, v_.At(i));
            const std::uint32_t* const above = texture_.Line(down.first);
            const std::uint32_t* const below = texture_.Line(down.second);
            row[i] = MeanOf({above[across.first], above[across.second], below[across.first],
                             below[across.second]},
                            across.parts, down.parts, byAlpha);
        }
    }

private:
    struct TwoTexels {
        std::int32_t first;
        std::int32_t second;
        std::uint32_t parts;  // of the second
    };
    static TwoTexels TwoAt(TexelAxis& axis, double place) {
        const std::int64_t parts = RoundedDown(MeanParts(place));
        const std::int64_t first = parts >> 8;
        return {axis.TexelAt(first), axis.TexelAt(first + 1),
                static_cast<std::uint32_t>(parts - first * kTexelParts)};
    }

    const Texels& texture_;
    Course u_;
    Course v_;
    TexelAxis columns_;
    TexelAxis lines_;
};

std::uint32_t ChannelAt(const Course& course, std::size_t pixel) {
    // What is not a number is 0.
    const double value = course.At(pixel) + 0.5;
    return value >= 0 ? static_cast<std::uint32_t>(std::min(value, 255.0)) : 0;
}

class TriangleDrawing {
public:
    TriangleDrawing(const PixelStates& states, const Texels* texture, const Plane& plane,
                    const std::array<const Vertex*, 3>& corners)
        : states_(states), texture_(texture), plane_(plane) {
        const auto& [a, b, c] = corners;
        if (texture != nullptr) {
            u_ = SlopeOf(corners, &Vertex::tu, texture->width);
            v_ = SlopeOf(corners, &Vertex::tv, texture->height);
        }
        color_ = a->color;
        constantColor_ = a->color == b->color && a->color == c->color;
        if (!constantColor_) {
            for (std::size_t i = 0; i < 4; ++i) {
                const auto shift = static_cast<unsigned>(i * 8);
                channels_[i] = plane.Through(Channel(a->color, shift), Channel(b->color, shift),
                                             Channel(c->color, shift));
            }
        }
    }

    // Draws pixels of the line y, kMostRun at most, the first of which is pixel x.
    void DrawRow(std::span<std::uint32_t> pixels, std::int32_t x, double y) const {
        const Point first{x + 0.5, y};
        std::array<std::uint32_t, kMostRun> buffer;  // NOLINT(*-member-init): filled as needed
        const std::span<std::uint32_t> row = std::span(buffer).first(pixels.size());
        if (texture_ == nullptr) {
            std::ranges::fill(row, kWhite);
        } else {
            const Course u = CourseOf(u_, first);
            const Course v = CourseOf(v_, first);
            if (!u.HasTexels(row.size()) || !v.HasTexels(row.size())) {
                return;
            }
            FetchTexels(u, v, row);
        }
        TintTexels(row, first);
        BlendRow(pixels, row, states_);
    }

private:
    [[nodiscard]] Slope SlopeOf(const std::array<const Vertex*, 3>& corners,
                                float Vertex::*coordinate, std::int32_t texels) const {
        const auto at = [&](std::size_t corner) {
            return PlaceOf(corners[corner]->*coordinate, texels);
        };
        return plane_.Through(at(0), at(1), at(2));
    }

    void FetchTexels(const Course& u, const Course& v, std::span<std::uint32_t> row) const {
        const auto counted = [](const Course& course, bool mirrored) {
            return mirrored ? Course{-course.first, -course.step} : course;
        };
        const bool mirrored = IsMirrored(u_);
        const bool flipped = IsMirrored(v_);
        const Sampling& sampling = states_.sampling;
        TexelRow texels(*texture_, counted(u, mirrored), counted(v, flipped),
                        {texture_->width, mirrored, sampling.clampColumns},
                        {texture_->height, flipped, sampling.clampLines});
        if (sampling.linear) {
            texels.FetchMeans(row, states_.blending);
        } else {
            texels.FetchNearest(row);
        }
    }

    [[nodiscard]] Course CourseOf(const Slope& slope, Point first) const {
        return {plane_.At(slope, first), slope.perX};
    }

    void TintTexels(std::span<std::uint32_t> row, Point first) const {
        if (constantColor_) {
            TintRow(row, TintOf(color_, states_.alphaOperation));
            return;
        }
        std::array<Course, 4> courses;
        for (std::size_t i = 0; i < 4; ++i) {
            courses[i] = CourseOf(channels_[i], first);
        }
        for (std::size_t x = 0; x < row.size(); ++x) {
            const std::uint32_t color = ChannelAt(courses[0], x) | ChannelAt(courses[1], x) << 8U |
                                        ChannelAt(courses[2], x) << 16U |
                                        ChannelAt(courses[3], x) << kAlphaShift;
            row[x] = Tinted(row[x], TintOf(color, states_.alphaOperation));
        }
    }

    PixelStates states_;
    const Texels* texture_;
    const Plane& plane_;
    Slope u_;
    Slope v_;
    std::array<Slope, 4> channels_;  // blue, green, red, alpha
    std::uint32_t color_ = 0;
    bool constantColor_ = true;
};

}  // namespace

void DrawTriangle(const Target& target, const PixelStates& states, const Texels* texture,
                  const Vertex& a, const Vertex& b, const Vertex& c) {
    const bool textured = texture != nullptr;
    if (!IsFinite(a, textured) || !IsFinite(b, textured) || !IsFinite(c, textured)) {
        return;
    }
    const std::array<Point, 3> places{PointOf(a), PointOf(b), PointOf(c)};
    const Plane plane(places);
    if (!(plane.Area() > 0)) {
        return;
    }
    const Outline outline(places, target);
    const TriangleDrawing drawing(states, texture, plane, {&a, &b, &c});
    const PixelRun rows = outline.Rows();
    for (std::int32_t y = rows.begin; y < rows.end; ++y) {
        const double center = y + 0.5;
        const PixelRun run = outline.Pixels(center);
        for (std::int32_t x = run.begin; x < run.end; x += kMostRun) {
            const auto width = static_cast<std::size_t>(std::min(kMostRun, run.end - x));
            drawing.DrawRow({target.PixelAt(x, y), width}, x, center);
        }
    }
}

void DrawStrip(const Target& target, const PixelStates& states, const Texels* texture,
               std::span<const Vertex> corners) {
    for (std::size_t i = 0; i + 2 < corners.size(); ++i) {
        const bool turned = i % 2 != 0;
        DrawTriangle(target, states, texture, corners[turned ? i + 1 : i],
                     corners[turned ? i : i + 1], corners[i + 2]);
    }
}

}  // namespace scenara::soft
