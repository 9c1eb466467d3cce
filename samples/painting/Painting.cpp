// SPDX-License-Identifier: MIT
#include "painting/Painting.h"

#include "painting/Colours.h"

namespace scenara::samples {
Painting::Painting(int width, int height)
    : width_(width),
      height_(height),
      dots_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void Painting::Set(int x, int y, const Light& light) {
    if (Inside(x, y)) {
        At(x, y) = {light, true};
    }
}

void Painting::Lay(int x, int y, const Light& light, double part) {
    if (IsPainted(x, y)) {
        Set(x, y, Mixed(Get(x, y), light, part));
    } else if (part >= 0.5) {
        Set(x, y, light);
    }
}

void Painting::Add(int x, int y, const Light& light) {
    Set(x, y, Get(x, y) + light);
}

void Painting::LeaveOutDarkness(double least) {
    for (Dot& dot : dots_) {
        dot.painted = dot.painted && Strongest(dot.light) > least;
    }
}

IndexedPicture Painting::ToPicture() const {
    return ToPictures(std::span(this, 1)).front();
}

Pictures ToPictures(std::span<const Painting> paintings) {
    ColourChoice choice;
    for (const Painting& painting : paintings) {
        for (const Painting::Dot& dot : painting.dots_) {
            if (dot.painted) {
                choice.Count(dot.light);
            }
        }
    }
    choice.Choose();
    Pictures pictures;
    for (const Painting& painting : paintings) {
        IndexedPicture picture{painting.width_, painting.height_, {}, choice.Colours()};
        picture.pixels.reserve(painting.dots_.size());
        for (int y = 0; y < painting.height_; ++y) {
            for (int x = 0; x < painting.width_; ++x) {
                const Painting::Dot& dot = painting.At(x, y);
                picture.pixels.push_back(dot.painted ? choice.IndexOf(dot.light, x, y)
                                                     : std::uint8_t{0});
            }
        }
        pictures.push_back(std::move(picture));
    }
    return pictures;
}

}  // namespace scenara::samples
