// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "lanternpier/Pictures.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/Noise.h"
#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

using samplemaker::Canvas;
using samplemaker::PaletteBuilder;
using samplemaker::Point;
using samplemaker::Ramp;
using samplemaker::Random;

struct Colours {
    PaletteBuilder palette;
    Ramp bark;
    Ramp leaf;

    Colours()
        : bark(palette.AddRamp(6, {{0, {10, 6, 20}}, {0.6, {42, 20, 38}}, {1, {150, 70, 62}}})),
          leaf(palette.AddRamp(8, {{0, {34, 8, 32}},
                                   {0.35, {88, 14, 40}},
                                   {0.6, {164, 30, 44}},
                                   {0.82, {230, 84, 50}},
                                   {1, {255, 170, 88}}})) {}
};

// How far a maple leaf reaches in a direction, 0 … 1: five lobes and a stem's notch.
double LeafReach(double angle) {
    const double lobes = std::abs(std::cos(angle * 2.5));
    const double back = std::cos(angle / 2);  // the lobes beside the stem are shorter
    return (0.42 + 0.58 * lobes) * (0.6 + 0.4 * std::abs(back));
}

struct LeafPose {
    double x;
    double y;
    double size;
    double turn;
    double squash;  // 1 flat to the viewer, 0 edge on
};

void DrawLeaf(Canvas& canvas, const LeafPose& pose, double tone, const Ramp& leaf) {
    const int reach = static_cast<int>(std::ceil(pose.size));
    const int left = static_cast<int>(std::floor(pose.x)) - reach;
    const int top = static_cast<int>(std::floor(pose.y)) - reach;
    for (int y = top; y <= top + 2 * reach + 1; ++y) {
        for (int x = left; x <= left + 2 * reach + 1; ++x) {
            const double u = x - pose.x;
            const double v = (y - pose.y) / pose.squash;
            const double far = std::hypot(u, v);
            const double angle = std::atan2(v, u) - pose.turn;
            if (far <= pose.size * LeafReach(std::remainder(angle, 6.2831853))) {
                const double lit = tone + 0.1 * (u + v) / pose.size;
                canvas.Set(x, y, leaf.Flat(lit));
            }
        }
    }
}

// A twig's foliage: dark leaves first, lit ones on top.
void DrawCluster(Canvas& canvas, Random& random, Point centre, double radius, const Ramp& leaf) {
    const int leaves = static_cast<int>(radius * 2.2);
    for (int i = 0; i < leaves; ++i) {
        const double part = i / static_cast<double>(leaves);
        const double angle = random.Between(0, 6.2831853);
        const double far = radius * std::sqrt(random.Unit());
        const double y = centre.y + 0.55 * far * std::sin(angle);
        const double light = (y - centre.y) / radius;  // the low sun lights from below
        const double tone = 0.08 + 0.5 * part + 0.42 * light * part + random.Between(-0.06, 0.1);
        LeafPose pose{centre.x + far * std::cos(angle), y, 0, 0, 1};
        pose.size = random.Between(3.4, 5.4);
        pose.turn = random.Between(0, 6.28);
        pose.squash = random.Between(0.6, 1);
        DrawLeaf(canvas, pose, tone, leaf);
    }
}

void DrawBranch(Canvas& canvas, std::span<const Point> path, double thick, double thin,
                const Ramp& bark) {
    for (std::size_t i = 0; i + 1 < path.size(); ++i) {
        const Point a = path[i];
        const Point b = path[i + 1];
        const int steps = static_cast<int>(std::hypot(b.x - a.x, b.y - a.y)) + 1;
        for (int step = 0; step <= steps; ++step) {
            const double along = step / static_cast<double>(steps);
            const double whole =
                (static_cast<double>(i) + along) / static_cast<double>(path.size() - 1);
            const double radius = (thick + (thin - thick) * whole) / 2;
            const double x = a.x + (b.x - a.x) * along;
            const double y = a.y + (b.y - a.y) * along;
            for (int dy = -static_cast<int>(radius); dy <= static_cast<int>(radius); ++dy) {
                const bool under = dy >= static_cast<int>(radius);
                const double level = under ? 0.75 : 0.25 + 0.2 * dy / (radius + 1);
                canvas.Set(static_cast<int>(x), static_cast<int>(y) + dy, bark.Flat(level));
            }
        }
    }
}

// The trunk stands at the picture's left edge and leaves it at the bottom.
void DrawTrunk(Canvas& canvas, const Ramp& bark) {
    for (int y = 0; y < canvas.Height(); ++y) {
        const double down = y / static_cast<double>(canvas.Height());
        const double bend = 8 * std::sin(y / 46.0) + 10 * down;
        const double half =
            17 + 10 * std::pow(down, 3) + 3 * std::exp(-std::pow((y - 74) / 16.0, 2));
        const double centre = 30 - bend;
        for (int x = static_cast<int>(centre - half); x <= static_cast<int>(centre + half); ++x) {
            const double round = (x - centre) / half;
            const double ridge =
                samplemaker::LayeredNoise((x + bend) / 3.4, y / 17.0, 3, 163) - 0.5;
            const double rim = round > 0.9 ? 0.5 : 0;
            canvas.Set(x, y, bark.At(x, y, 0.2 + 0.24 * round + 0.62 * ridge + rim));
        }
    }
}

}  // namespace

IndexedPicture DrawMapleTree() {
    const Colours colours;
    Canvas canvas(290, 316);
    Random random(167);
    const std::array<Point, 5> high = {Point{34, 50}, {84, 38}, {140, 44}, {196, 34}, {252, 48}};
    const std::array<Point, 4> low = {Point{32, 92}, {74, 84}, {116, 98}, {160, 94}};
    const std::array<Point, 3> twig = {Point{140, 44}, {172, 62}, {214, 76}};
    for (int i = 0; i < 9; ++i) {
        const double radius = random.Between(18, 26);
        const double x = random.Between(0, 240);
        const double y = random.Between(0, 26);
        DrawCluster(canvas, random, {x, y}, radius, colours.leaf);
    }
    DrawBranch(canvas, high, 11, 2, colours.bark);
    DrawBranch(canvas, low, 8, 2, colours.bark);
    DrawBranch(canvas, twig, 4, 1, colours.bark);
    DrawTrunk(canvas, colours.bark);
    const std::array<Point, 12> clusters = {Point{90, 22}, {126, 50},  {160, 28}, {190, 42},
                                            {228, 36},     {258, 52},  {212, 80}, {186, 66},
                                            {84, 92},      {120, 104}, {158, 98}, {52, 44}};
    for (const Point& centre : clusters) {
        DrawCluster(canvas, random, centre, random.Between(15, 22), colours.leaf);
    }
    return canvas.ToPicture(colours.palette.Colours());
}

IndexedPicture DrawMapleBranch() {
    const Colours colours;
    Canvas canvas(230, 150);
    Random random(173);
    const std::array<Point, 5> path = {Point{0, 30}, {54, 44}, {104, 40}, {150, 58}, {196, 62}};
    const std::array<Point, 3> twig = {Point{104, 40}, {132, 70}, {146, 96}};
    for (int i = 0; i < 7; ++i) {
        const double radius = random.Between(16, 24);
        const double x = random.Between(0, 150);
        const double y = random.Between(4, 30);
        DrawCluster(canvas, random, {x, y}, radius, colours.leaf);
    }
    DrawBranch(canvas, path, 9, 2, colours.bark);
    DrawBranch(canvas, twig, 3, 1, colours.bark);
    const std::array<Point, 8> clusters = {Point{24, 46}, {62, 54},  {96, 60},   {122, 44},
                                           {150, 66},     {186, 62}, {142, 100}, {128, 82}};
    for (const Point& centre : clusters) {
        DrawCluster(canvas, random, centre, random.Between(13, 20), colours.leaf);
    }
    return canvas.Mirrored().ToPicture(colours.palette.Colours());
}

// One leaf tumbling down.
Pictures DrawFallingLeaf() {
    constexpr int kSize = 13;
    constexpr int kFrames = 8;
    const Colours colours;
    Pictures pictures;
    for (int frame = 0; frame < kFrames; ++frame) {
        const double part = frame / static_cast<double>(kFrames);
        const double squash = std::cos(6.2831853 * part);
        Canvas canvas(kSize, kSize);
        DrawLeaf(canvas, {6, 6, 5.2, 6.2831853 * part, std::max(0.25, std::abs(squash))},
                 squash > 0 ? 0.78 : 0.55, colours.leaf);
        pictures.push_back(canvas.ToPicture(colours.palette.Colours()));
    }
    return pictures;
}

}  // namespace scenara::samples
