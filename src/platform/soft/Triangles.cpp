// SPDX-License-Identifier: MIT
#include "platform/soft/Triangles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "platform/soft/PixelRows.h"
#include "platform/soft/Sampling.h"

namespace scenara::soft {
namespace {

constexpr unsigned kAlphaShift = 24;

struct Point {
    double x = 0;
    double y = 0;
};

Point PointOf(const Vertex& corner) {
    return {static_cast<double>(corner.x), static_cast<double>(corner.y)};
}

// The first pixel whose centre is at `edge` or behind it, `least` to `most`.
std::int32_t FirstPixel(double edge, std::int32_t least, std::int32_t most) {
    return static_cast<std::int32_t>(
        std::clamp(std::ceil(edge - 0.5), double{1} * least, double{1} * most));
}

// An edge that is no horizontal one, from its upper end to its lower, whichever way the triangle
// runs: so its two triangles get the same cuts.
struct Edge {
    Point top;
    Point bottom;

    [[nodiscard]] bool Meets(double y) const { return top.y <= y && y < bottom.y; }
    [[nodiscard]] double Cut(double y) const {
        return top.x + (y - top.y) * (bottom.x - top.x) / (bottom.y - top.y);
    }
};

struct PixelRun {
    std::int32_t begin = 0;
    std::int32_t end = 0;
};

// The triangle's outline on the screen. It runs clockwise, so an edge that goes up is a left one.
class Outline {
public:
    Outline(const std::array<Point, 3>& corners, const Target& target) : target_(target) {
        for (std::size_t i = 0; i < 3; ++i) {
            const Point from = corners[i];
            const Point to = corners[(i + 1) % 3];
            if (to.y < from.y) {
                left_[leftCount_++] = {to, from};
            } else if (to.y > from.y) {
                right_[rightCount_++] = {from, to};
            }
        }
        const auto [top, bottom] = std::minmax({corners[0].y, corners[1].y, corners[2].y});
        rows_ = {FirstPixel(top, target.top, target.bottom),
                 FirstPixel(bottom, target.top, target.bottom)};
    }

    [[nodiscard]] PixelRun Rows() const { return rows_; }

    // The pixels of the line whose centres have this y, one of Rows().
    [[nodiscard]] PixelRun Pixels(double y) const {
        return {FirstPixel(CutOf(left_, leftCount_, y), target_.left, target_.right),
                FirstPixel(CutOf(right_, rightCount_, y), target_.left, target_.right)};
    }

private:
    // Of the one or two edges of a side exactly one meets the line.
    static double CutOf(const std::array<Edge, 2>& edges, std::size_t count, double y) {
        return count == 2 && edges[1].Meets(y) ? edges[1].Cut(y) : edges[0].Cut(y);
    }

    std::array<Edge, 2> left_;
    std::array<Edge, 2> right_;
    std::size_t leftCount_ = 0;
    std::size_t rightCount_ = 0;
    const Target& target_;
    PixelRun rows_;
};

// A value that goes linearly over the triangle's plane.
struct Slope {
    double start = 0;  // at the plane's first corner
    double perX = 0;
    double perY = 0;
};

// The plane through the corners: makes slopes of what the corners have, and knows where its first
// corner is.
class Plane {
public:
    explicit Plane(const std::array<Point, 3>& corners)
        : origin_(corners[0]),
          second_{corners[1].x - corners[0].x, corners[1].y - corners[0].y},
          third_{corners[2].x - corners[0].x, corners[2].y - corners[0].y},
          area_(second_.x * third_.y - third_.x * second_.y) {}

    // Twice the triangle's; above 0 where it runs clockwise on the screen, whose y goes down.
    [[nodiscard]] double Area() const { return area_; }

    [[nodiscard]] Slope Through(double a, double b, double c) const {
        return {a, ((b - a) * third_.y - (c - a) * second_.y) / area_,
                ((c - a) * second_.x - (b - a) * third_.x) / area_};
    }

    [[nodiscard]] double At(const Slope& slope, Point point) const {
        return slope.start + slope.perX * (point.x - origin_.x) +
               slope.perY * (point.y - origin_.y);
    }

private:
    Point origin_;
    Point second_;
    Point third_;
    double area_;
};

// A value's course along one line of pixels.
struct Course {
    double first = 0;
    double step = 0;

    [[nodiscard]] double At(std::size_t pixel) const {
        return first + static_cast<double>(pixel) * step;
    }
    // Whether it stays among the texels that mean something; false for what is not a number.
    [[nodiscard]] bool HasTexels(std::size_t pixels) const {
        return std::abs(At(0)) <= kMostTexels && std::abs(At(pixels - 1)) <= kMostTexels;
    }
};

std::int64_t RoundedDown(double value) {
    const auto whole = static_cast<std::int64_t>(value);
    return whole - (static_cast<double>(whole) > value ? 1 : 0);
}

// Whether texels are counted mirrored along an axis: they go down to the right, or down the screen
// where that is how they mostly run.
bool IsMirrored(const Slope& slope) {
    return std::abs(slope.perX) >= std::abs(slope.perY) ? slope.perX < 0 : slope.perY < 0;
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

bool IsFinite(const Vertex& corner, bool textured) {
    const bool placed = std::isfinite(corner.x) && std::isfinite(corner.y);
    return placed && (!textured || (std::isfinite(corner.tu) && std::isfinite(corner.tv)));
}

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
