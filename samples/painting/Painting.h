// SPDX-License-Identifier: MIT
//
// Painting: a picture in true colour, on its way to an indexed one.
//
// Pixels that were never painted become index 0, which is nothing. What falls outside is not
// painted. The colours are chosen for the picture when it is finished: at most 190 of them, so that
// no index looks like a run length and dithered areas stay small in the archive.
#pragma once

#include <span>
#include <vector>

#include "ArchiveMaker.h"
#include "painting/Light.h"

namespace scenara::samples {

class Painting {
public:
    Painting(int width, int height);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    [[nodiscard]] bool IsPainted(int x, int y) const { return Inside(x, y) && At(x, y).painted; }
    [[nodiscard]] Light Get(int x, int y) const { return Inside(x, y) ? At(x, y).light : Light{}; }

    // Paints a pixel over what is there.
    void Set(int x, int y, const Light& light);
    // Lays a light over it that covers a part, 0 … 1; on an unpainted pixel that is all or nothing.
    void Lay(int x, int y, const Light& light, double part);
    // Adds to what is there.
    void Add(int x, int y, const Light& light);

    // Each pixel becomes the light that `brush(x, y)` gives.
    template <typename Brush>
    void Fill(Brush brush) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                Set(x, y, brush(x, y));
            }
        }
    }

    // Leaves out what is darker than `least`; by default, what cannot be seen when it is added to,
    // or taken from, a picture.
    void LeaveOutDarkness(double least = 2.5 / 255);

    [[nodiscard]] IndexedPicture ToPicture() const;

private:
    friend Pictures ToPictures(std::span<const Painting> paintings);

    struct Dot {
        Light light;
        bool painted = false;
    };

    [[nodiscard]] bool Inside(int x, int y) const {
        return x >= 0 && y >= 0 && x < width_ && y < height_;
    }
    [[nodiscard]] const Dot& At(int x, int y) const {
        return dots_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                     static_cast<std::size_t>(x)];
    }
    [[nodiscard]] Dot& At(int x, int y) {
        return dots_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                     static_cast<std::size_t>(x)];
    }

    int width_;
    int height_;
    std::vector<Dot> dots_;
};

// Several pictures with the same colours, the moments of an animation.
Pictures ToPictures(std::span<const Painting> paintings);

}  // namespace scenara::samples
