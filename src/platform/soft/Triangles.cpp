// SPDX-License-Identifier: MIT
#include "platform/soft/Triangles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "platform/soft/PixelRows.h"

namespace scenara::soft {
namespace {

constexpr unsigned kAlphaShift = 24;

struct Point {
    double x = 0;
    double y = 0;
};

Point PlaceOf(const Vertex& corner) {
    return {static_cast<double>(corner.x), static_cast<double>(corner.y)};
}

// The first pixel whose centre is at `edge` or behind it, 0 to `limit`.
std::int32_t FirstPixel(double edge, std::int32_t limit) {
    return static_cast<std::int32_t>(std::clamp(std::ceil(edge - 0.5), 0.0, double{1} * limit));
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
    Outline(const std::array<Point, 3>& corners, const Target& target) : width_(target.width) {
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
        rows_ = {FirstPixel(top, target.height), FirstPixel(bottom, target.height)};
    }

    [[nodiscard]] PixelRun Rows() const { return rows_; }

    // The pixels of the line whose centres have this y, one of Rows().
    [[nodiscard]] PixelRun Pixels(double y) const {
        return {FirstPixel(CutOf(left_, leftCount_, y), width_),
                FirstPixel(CutOf(right_, rightCount_, y), width_)};
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
    std::int32_t width_;
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

// Brings positions along one axis of a texture into it. Neighbours are mostly in the same repeat,
// for which no division is needed.
class WrappedAxis {
public:
    explicit WrappedAxis(std::int32_t size) : size_(size) {}

    [[nodiscard]] std::int32_t TexelAt(double position) {
        auto texel = static_cast<std::int64_t>(position);
        texel -= static_cast<double>(texel) > position ? 1 : 0;
        std::int64_t place = texel - repeatStart_;
        if (place < 0 || place >= size_) {
            place = texel % size_;
            place += place < 0 ? size_ : 0;
            repeatStart_ = texel - place;
        }
        return static_cast<std::int32_t>(place);
    }

private:
    std::int64_t size_;
    std::int64_t repeatStart_ = 0;
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

void FetchTexels(const Texels& texture, const Course& u, const Course& v,
                 std::span<std::uint32_t> row) {
    WrappedAxis columns(texture.width);
    WrappedAxis lines(texture.height);
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] = texture.Line(lines.TexelAt(v.At(i)))[columns.TexelAt(u.At(i))];
    }
}

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
            FetchTexels(*texture_, u, v, row);
        }
        TintTexels(row, first);
        BlendRow(pixels, row, states_);
    }

private:
    [[nodiscard]] Slope SlopeOf(const std::array<const Vertex*, 3>& corners,
                                float Vertex::*coordinate, std::int32_t texels) const {
        const auto at = [&](std::size_t corner) {
            return static_cast<double>(corners[corner]->*coordinate) * texels;  // exact
        };
        return plane_.Through(at(0), at(1), at(2));
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
    const std::array<Point, 3> places{PlaceOf(a), PlaceOf(b), PlaceOf(c)};
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
