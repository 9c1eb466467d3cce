// SPDX-License-Identifier: MIT
//
// PuffField: heaps of round puffs as relief, for clouds and the crowns of trees.
//
// Each puff is a ball that is seen from the front. Where several lie upon one another the one
// that reaches farthest towards the viewer is seen. A puff that is part of a larger form shades
// partly as that form does, so that a heap keeps a lit and a shaded side of its own.
#pragma once

#include <vector>

namespace scenara::samples {

struct Puff {
    double x = 0;
    double y = 0;
    double radius = 1;
    double depth = 0;  // how far its middle is towards the viewer, in pixels
};

// What is seen at a place: which way the surface looks, x to the right, y down, z to the viewer.
struct PuffPlace {
    double height = 0;  // towards the viewer
    double x = 0;
    double y = 0;
    double z = 0;
    double edge = 0;  // of the puff itself: 0 at its edge, 1 in its middle
    bool there = false;
};

class PuffField {
public:
    // A wrapped field goes on at the other side, so that it tiles sideways.
    PuffField(int width, int height, bool wrapped);

    // `ofForm`, 0 … 1, is how much of the shading is that of `form`.
    void Add(const Puff& puff, const Puff& form, double ofForm);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    // The nearest pixel; nothing outside.
    [[nodiscard]] const PuffPlace& At(double x, double y) const;

private:
    int width_;
    int height_;
    bool wrapped_;
    std::vector<PuffPlace> places_;
    PuffPlace nothing_;
};

}  // namespace scenara::samples
