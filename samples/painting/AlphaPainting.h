// SPDX-License-Identifier: MIT
//
// AlphaPainting: a picture in true colour with alpha, for archives that hold such.
//
// It begins as nothing at all. What is laid on covers a part of what is there, 0 … 1, so edges and
// whole surfaces may be as soft as one likes, and many thin films make a thick one. What falls
// outside is not painted.
#pragma once

#include <vector>

#include "painting/Light.h"
#include "samplemaker/Picture.h"

namespace scenara::samples {

using AlphaPictures = std::vector<samplemaker::AlphaPicture>;

// A colour, and how much of what lies behind it covers.
struct Film {
    Light light;
    double part = 0;
};

class AlphaPainting {
public:
    AlphaPainting(int width, int height);

    [[nodiscard]] int Width() const { return width_; }
    [[nodiscard]] int Height() const { return height_; }
    // How much is covered there; 0 outside.
    [[nodiscard]] double Part(int x, int y) const {
        return Inside(x, y) ? static_cast<double>(At(x, y).part) : 0;
    }

    // Lays a film over what is there.
    void Lay(int x, int y, const Film& film);
    // Lays a film only where something is, as much as there is of it: shade and tint.
    void Tint(int x, int y, const Film& film);

    // On each pixel lies the film that `brush(x, y)` gives.
    template <typename Brush>
    void Fill(Brush brush) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                Lay(x, y, brush(x, y));
            }
        }
    }

    template <typename Brush>
    void TintAll(Brush brush) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                Tint(x, y, brush(x, y));
            }
        }
    }

    // Of each pixel only a part is left: `share(x, y)`, 0 … 1.
    template <typename Share>
    void Thin(Share share) {
        for (int y = 0; y < height_; ++y) {
            for (int x = 0; x < width_; ++x) {
                At(x, y) = At(x, y) * static_cast<float>(share(x, y));
            }
        }
    }

    // Half as wide and high, each pixel the mean of four. What is drawn twice as large with hard
    // edges gets smooth ones.
    [[nodiscard]] AlphaPainting Halved() const;

    [[nodiscard]] samplemaker::AlphaPicture ToPicture() const;

private:
    // The colour is multiplied by the part, so that films and means add up.
    struct Dot {
        float red = 0;
        float green = 0;
        float blue = 0;
        float part = 0;

        friend Dot operator+(const Dot& a, const Dot& b) {
            return {a.red + b.red, a.green + b.green, a.blue + b.blue, a.part + b.part};
        }
        friend Dot operator*(const Dot& dot, float factor) {
            return {dot.red * factor, dot.green * factor, dot.blue * factor, dot.part * factor};
        }
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

}  // namespace scenara::samples
