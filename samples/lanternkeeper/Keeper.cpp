// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "lanternkeeper/Colours.h"
#include "lanternkeeper/Pictures.h"
#include "lanternkeeper/Shapes.h"

namespace scenara::samples {
namespace {

constexpr int kWidth = 88;
constexpr int kHeight = 98;
constexpr double kGround = 94;
constexpr double kMiddle = kKeeperAxisX;

constexpr double kThigh = 15.5;
constexpr double kShin = 14.5;
constexpr double kHip = 62;     // heights above are counted from the top
constexpr double kStride = 12;  // how far a foot is set in front of the hip
constexpr double kFootLift = 7;
constexpr int kMoments = 8;

// What a picture of the side view is made of.
struct Pose {
    Point frontFoot;
    Point backFoot;
    double bob = 0;    // how far the body is raised
    double sway = 0;   // of the lantern, in pixels
    double hem = 0;    // how far the coat's hem is blown back
    double flame = 0;  // 0 … 1
};

double Turn(double part) {
    return 2 * std::numbers::pi * part;
}

// A foot at this part of its round: half of it on the ground, going back, half in the air.
Point FootAt(double part) {
    part -= std::floor(part);
    if (part < 0.5) {
        return {kMiddle + kStride - 4 * kStride * part, kGround};
    }
    const double air = (part - 0.5) * 2;
    const double eased = air * air * (3 - 2 * air);
    return {kMiddle - kStride + 2 * kStride * eased,
            kGround - kFootLift * std::sin(std::numbers::pi * air)};
}

// The lantern and what it lights up around it.
void DrawLantern(Canvas& canvas, Point hook, double sway, const KeeperColours& colours) {
    const Point middle{hook.x + sway, hook.y + 12};
    canvas.Line(static_cast<int>(hook.x), static_cast<int>(hook.y), static_cast<int>(middle.x),
                static_cast<int>(middle.y) - 7, colours.wood.Flat(0.5));
    samplemaker::FillEllipse(canvas, middle, 5.6, 6.8, [&](int x, int y) {
        const double u = (x - middle.x) / 6;
        const double v = (y - middle.y - 1) / 7;
        const double rib = (y - static_cast<int>(middle.y)) % 3 == 0 ? 0.14 : 0;
        return colours.paper.Flat(1.05 - 0.7 * (u * u + v * v) - rib);
    });
    const int left = static_cast<int>(std::lround(middle.x)) - 3;
    canvas.FillRect(left, static_cast<int>(middle.y) - 7, 7, 2, colours.wood.Flat(0.2));
    canvas.FillRect(left, static_cast<int>(middle.y) + 6, 7, 2, colours.wood.Flat(0.2));
    canvas.FillRect(left + 3, static_cast<int>(middle.y) + 8, 1, 3, colours.sash.Flat(0.7));
}

// Around the lantern, behind everything; thins out by ordered dithering.
void DrawHalo(Canvas& canvas, Point middle, double flame, const KeeperColours& colours) {
    canvas.Paint([&](int x, int y) -> std::uint8_t {
        const double far = std::hypot(x - middle.x, y - middle.y);
        const double light = 0.55 * (1 - far / (13 + 2 * flame));
        if (light <= samplemaker::DitherThreshold(x, y)) {
            return 0;
        }
        return light > 0.26 ? colours.halo : colours.haloEdge;
    });
}

void DrawFoot(Canvas& canvas, Point foot, const KeeperColours& colours, double level) {
    DrawLimb(canvas, {{foot.x - 1, foot.y - 2}, 2.6}, {{foot.x + 5, foot.y - 1.2}, 1.9},
             colours.skin, level);
    canvas.FillRect(static_cast<int>(foot.x) - 4, static_cast<int>(foot.y), 11, 2,
                    colours.straw.Flat(level * 0.7));
}

void DrawLeg(Canvas& canvas, Point hip, Point foot, const KeeperColours& colours, double level) {
    const Point ankle{foot.x, foot.y - 4};
    const Point knee = BentAt(hip, ankle, kThigh, kShin, 1);
    DrawFoot(canvas, foot, colours, level + 0.1);
    DrawLimb(canvas, {knee, 4.2}, {ankle, 2.8}, colours.cloth, level);
    DrawLimb(canvas, {hip, 6}, {knee, 4.6}, colours.cloth, level);
    // Bands around the shin.
    for (const double t : {0.35, 0.6, 0.85}) {
        const Point at{knee.x + (ankle.x - knee.x) * t, knee.y + (ankle.y - knee.y) * t};
        canvas.Line(static_cast<int>(at.x - 2), static_cast<int>(at.y + 1),
                    static_cast<int>(at.x + 2), static_cast<int>(at.y), colours.cloth.Flat(0.05));
    }
}

// A cone of straw; the brim's underside in shadow.
void DrawHat(Canvas& canvas, Point tip, double reach, double height, double lean,
             const KeeperColours& colours) {
    const std::array<Point, 5> cone = {{{tip.x, tip.y},
                                        {tip.x + 2, tip.y},
                                        {tip.x + reach + lean, tip.y + height + lean * 0.3},
                                        {tip.x - reach + lean, tip.y + height - lean * 0.3},
                                        {tip.x - reach + lean, tip.y + height - 1}}};
    samplemaker::FillPolygon(canvas, cone, [&](int x, int y) {
        const double down = (y - tip.y) / height;
        const double across = (x - tip.x) / (reach * std::max(down, 0.1));
        const bool straw = (x * 3 + y * 5) % 7 == 0 || (y - static_cast<int>(tip.y)) % 5 == 4;
        return colours.straw.Flat(0.55 + 0.35 * across - (straw ? 0.16 : 0) + 0.1 * down);
    });
}

// The coat between shoulders and hem; its front edge lighter, with a pale lapel.
void DrawCoat(Canvas& canvas, double top, double hemY, double hem, const KeeperColours& colours) {
    const std::array<Point, 8> coat = {{{kMiddle - 7, top},
                                        {kMiddle + 6, top},
                                        {kMiddle + 9, top + 9},
                                        {kMiddle + 7, top + 24},
                                        {kMiddle + 12 - hem * 0.3, hemY - 1},
                                        {kMiddle + 2, hemY + 1},
                                        {kMiddle - 13 - hem, hemY - 1},
                                        {kMiddle - 8, top + 22}}};
    samplemaker::FillPolygon(canvas, coat, [&](int x, int y) {
        const double across = (x - kMiddle) / 11;
        const double fold = y > top + 26 ? 0.12 * std::sin(x * 1.1 + hem) : 0;
        return colours.coat.Flat(0.42 + 0.36 * across + fold - (y > hemY - 4 ? 0.1 : 0));
    });
    for (int y = static_cast<int>(top) + 1; y < static_cast<int>(top) + 22; ++y) {
        const int x = static_cast<int>(kMiddle + 1 + (y - top) * 0.28);
        canvas.Set(x, y, colours.cloth.Flat(0.85));
        canvas.Set(x + 1, y, colours.cloth.Flat(0.7));
    }
    for (int dy = 0; dy < 5; ++dy) {
        for (int x = static_cast<int>(kMiddle) - 9; x < static_cast<int>(kMiddle) + 9; ++x) {
            if (canvas.Get(x, static_cast<int>(top) + 22 + dy) != 0) {
                const double across = (x - kMiddle) / 10;
                canvas.Set(x, static_cast<int>(top) + 22 + dy,
                           colours.sash.Flat(0.5 + 0.5 * across - (dy == 4 ? 0.3 : 0)));
            }
        }
    }
    // The knot at the back, with two ends.
    DrawLimb(canvas, {{kMiddle - 9, top + 24}, 2.4}, {{kMiddle - 11, top + 25}, 2}, colours.sash,
             0.35);
    DrawLimb(canvas, {{kMiddle - 11, top + 26}, 1.5}, {{kMiddle - 14 - hem, top + 34}, 1.2},
             colours.sash, 0.3);
}

void DrawHead(Canvas& canvas, double top, const KeeperColours& colours) {
    DrawLimb(canvas, {{kMiddle + 1, top - 1}, 3.4}, {{kMiddle + 2, top - 5}, 3.2}, colours.skin,
             0.3);
    DrawLimb(canvas, {{kMiddle + 2.5, top - 10}, 6}, {{kMiddle + 4, top - 7}, 4.8}, colours.skin,
             0.45);
    canvas.Set(static_cast<int>(kMiddle) + 9, static_cast<int>(top) - 7, colours.skin.Flat(0.9));
    canvas.Set(static_cast<int>(kMiddle) + 6, static_cast<int>(top) - 9, colours.outline);
    canvas.Set(static_cast<int>(kMiddle) + 6, static_cast<int>(top) - 8, colours.outline);
    // The scarf, over the chin.
    DrawLimb(canvas, {{kMiddle - 3, top - 2}, 3.4}, {{kMiddle + 5, top - 1}, 3.2}, colours.sash,
             0.45);
    DrawHat(canvas, {kMiddle + 1, top - 25}, 17, 14, 1.5, colours);
    for (int x = -12; x <= 14; ++x) {  // the shadow under the brim
        if (canvas.Get(static_cast<int>(kMiddle) + 2 + x, static_cast<int>(top) - 10) != 0) {
            canvas.Set(static_cast<int>(kMiddle) + 2 + x, static_cast<int>(top) - 10,
                       colours.straw.Flat(0.02));
        }
    }
}

IndexedPicture DrawSide(const Pose& pose) {
    const KeeperColours colours;
    Canvas canvas(kWidth, kHeight);
    const double hip = kHip - pose.bob;
    const double top = 37 - pose.bob;
    const Point shoulder{kMiddle + 1, top + 5};
    const Point hand{kMiddle + 18, top + 15 + pose.sway * 0.2};
    const Point hook{kMiddle + 37, top + 6 + pose.sway * 0.2};

    // The far arm, holding the near one's sleeve; the far leg; the near leg; then the coat.
    DrawLeg(canvas, {kMiddle + 1, hip}, pose.backFoot, colours, 0.28);
    DrawLeg(canvas, {kMiddle - 1, hip}, pose.frontFoot, colours, 0.46);
    DrawCoat(canvas, top, hip + 12, pose.hem, colours);
    DrawHead(canvas, top, colours);
    canvas.Line(static_cast<int>(hand.x) - 7, static_cast<int>(hand.y) + 4,
                static_cast<int>(hook.x), static_cast<int>(hook.y), colours.wood.Flat(0.7));
    canvas.Line(static_cast<int>(hand.x) - 7, static_cast<int>(hand.y) + 5,
                static_cast<int>(hook.x), static_cast<int>(hook.y) + 1, colours.wood.Flat(0.2));
    const Point elbow = BentAt(shoulder, hand, 11, 10, -1);
    DrawLimb(canvas, {shoulder, 5}, {elbow, 4.6}, colours.coat, 0.5);
    DrawLimb(canvas, {elbow, 4.8}, {{hand.x - 3, hand.y}, 5}, colours.coat, 0.6);
    DrawLimb(canvas, {hand, 2.4}, {{hand.x + 1, hand.y - 1}, 2.2}, colours.skin, 0.75);
    DrawLantern(canvas, hook, pose.sway, colours);
    DrawOutline(canvas, colours.outline);

    Canvas picture(kWidth, kHeight);
    DrawHalo(picture, {hook.x + pose.sway, hook.y + 12}, pose.flame, colours);
    picture.Stamp(canvas, 0, 0);
    return picture.ToPicture(colours.palette.Colours());
}

IndexedPicture DrawFront() {
    const KeeperColours colours;
    Canvas canvas(kWidth, kHeight);
    constexpr double kTop = 37;
    for (const double side : {-1.0, 1.0}) {
        const Point foot{kMiddle + side * 6, kGround};
        DrawLimb(canvas, {{foot.x, foot.y - 2}, 3}, {{foot.x + side, foot.y - 1}, 2.6},
                 colours.skin, 0.5);
        canvas.FillRect(static_cast<int>(foot.x) - 3, static_cast<int>(foot.y), 7, 2,
                        colours.straw.Flat(0.35));
        DrawLimb(canvas, {{kMiddle + side * 4, kHip}, 6}, {{foot.x, foot.y - 18}, 4.4},
                 colours.cloth, 0.4);
        DrawLimb(canvas, {{foot.x, foot.y - 18}, 4.2}, {{foot.x, foot.y - 5}, 2.8}, colours.cloth,
                 0.4);
    }
    DrawCoat(canvas, kTop, kHip + 12, -3, colours);
    DrawHead(canvas, kTop, colours);
    // From here the face is seen.
    DrawLimb(canvas, {{kMiddle + 1, kTop - 9}, 6.2}, {{kMiddle + 1, kTop - 7}, 5}, colours.skin,
             0.5);
    for (const int x : {-2, 3}) {
        canvas.FillRect(static_cast<int>(kMiddle) + x, static_cast<int>(kTop) - 9, 1, 2,
                        colours.outline);
    }
    DrawLimb(canvas, {{kMiddle - 4, kTop - 1}, 3.4}, {{kMiddle + 6, kTop - 1}, 3.4}, colours.sash,
             0.5);
    DrawHat(canvas, {kMiddle, kTop - 25}, 17, 14, 0, colours);
    const Point hand{kMiddle + 12, kTop + 16};
    const Point hook{kMiddle + 20, kTop + 7};
    DrawLimb(canvas, {{kMiddle - 8, kTop + 5}, 4.6}, {{kMiddle - 11, kTop + 18}, 4.6}, colours.coat,
             0.4);
    canvas.Line(static_cast<int>(hand.x) - 2, static_cast<int>(hand.y) + 3,
                static_cast<int>(hook.x), static_cast<int>(hook.y), colours.wood.Flat(0.7));
    DrawLimb(canvas, {{kMiddle + 8, kTop + 5}, 4.8}, {{hand.x - 1, hand.y - 1}, 5}, colours.coat,
             0.6);
    DrawLimb(canvas, {hand, 2.4}, {{hand.x + 1, hand.y}, 2.2}, colours.skin, 0.75);
    DrawLantern(canvas, hook, 0, colours);
    DrawOutline(canvas, colours.outline);

    Canvas picture(kWidth, kHeight);
    DrawHalo(picture, {hook.x, hook.y + 12}, 0.5, colours);
    picture.Stamp(canvas, 0, 0);
    return picture.ToPicture(colours.palette.Colours());
}

}  // namespace

Pictures DrawKeeperStanding() {
    Pictures pictures;
    for (const double breath : {0.0, 0.5, 1.0}) {
        Pose pose;
        pose.frontFoot = {kMiddle + 5, kGround};
        pose.backFoot = {kMiddle - 6, kGround};
        pose.bob = breath;
        pose.sway = 2 * breath - 1;
        pose.flame = breath;
        pictures.push_back(DrawSide(pose));
    }
    return pictures;
}

Pictures DrawKeeperTurning() {
    return {DrawFront()};
}

Pictures DrawKeeperWalking() {
    Pictures pictures;
    for (int moment = 0; moment < kMoments; ++moment) {
        const double part = double{1} * moment / kMoments;
        Pose pose;
        pose.frontFoot = FootAt(part);
        pose.backFoot = FootAt(part + 0.5);
        // Highest while the feet pass each other, twice in a round.
        pose.bob = 0.5 - std::cos(Turn(2 * part));
        pose.sway = 2.2 * std::sin(Turn(2 * part) - 0.8);
        pose.hem = 3 + 1.5 * std::sin(Turn(2 * part));
        pose.flame = 0.5 + 0.5 * std::sin(Turn(part));
        pictures.push_back(DrawSide(pose));
    }
    return pictures;
}

}  // namespace scenara::samples
