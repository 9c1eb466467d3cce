// SPDX-License-Identifier: MIT
#include "painting/Colours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>
#include <vector>

#include "samplemaker/Ramp.h"

namespace scenara::samples {
namespace {

constexpr std::size_t kSteps = 64;
constexpr std::size_t kCells = kSteps * kSteps * kSteps;
constexpr double kLastStep = kSteps - 1;

using Place = std::array<double, 3>;  // one step per channel

Place Channels(const Light& light) {
    return {light.red, light.green, light.blue};
}

std::size_t CellOf(const Light& light, double lift) {
    std::size_t cell = 0;
    for (const double channel : Channels(light)) {
        const double step = std::clamp(channel * kLastStep + lift, 0.0, kLastStep);
        cell = cell * kSteps + static_cast<std::size_t>(step);
    }
    return cell;
}

Place PlaceOf(std::size_t cell) {
    const std::size_t red = cell / (kSteps * kSteps);
    const std::size_t green = cell / kSteps % kSteps;
    const std::size_t blue = cell % kSteps;
    return {static_cast<double>(red), static_cast<double>(green), static_cast<double>(blue)};
}

// A cell of the grid that holds lights, and how much it counts.
struct Bin {
    Place place{};
    double weight = 0;
};

struct Box {
    std::vector<Bin> bins;
    Place mean{};
    std::size_t widest = 0;  // the channel in which it is most uneven
    double unevenness = 0;   // there: the sum of squares about the mean
};

Box MakeBox(std::vector<Bin> bins) {
    Box box{std::move(bins)};
    double total = 0;
    for (const Bin& bin : box.bins) {
        total += bin.weight;
        for (std::size_t i = 0; i < box.mean.size(); ++i) {
            box.mean.at(i) += bin.weight * bin.place.at(i);
        }
    }
    for (std::size_t i = 0; i < box.mean.size(); ++i) {
        box.mean.at(i) /= total;
        double squares = 0;
        for (const Bin& bin : box.bins) {
            const double away = bin.place.at(i) - box.mean.at(i);
            squares += bin.weight * away * away;
        }
        if (squares > box.unevenness) {
            box.widest = i;
            box.unevenness = squares;
        }
    }
    return box;
}

// Cuts a box at its mean, where it is widest: the lower part stays, the upper one is returned.
Box CutOff(Box& box) {
    const auto upper = std::partition(box.bins.begin(), box.bins.end(), [&](const Bin& bin) {
        return bin.place.at(box.widest) <= box.mean.at(box.widest);
    });
    Box cutOff = MakeBox({upper, box.bins.end()});
    box = MakeBox({box.bins.begin(), upper});
    return cutOff;
}

samplemaker::Rgb ColourAt(const Place& place) {
    const auto channel = [](double step) {
        return static_cast<std::uint8_t>(std::lround(step * 255 / kLastStep));
    };
    return {channel(place[0]), channel(place[1]), channel(place[2])};
}

}  // namespace

ColourChoice::ColourChoice() : counts_(kCells), nearest_(kCells) {}

void ColourChoice::Count(const Light& light) {
    counts_[CellOf(light, 0.5)] += 1;
}

void ColourChoice::Choose() {
    constexpr double kEven = 1e-6;  // more than rounding gives for a single place
    std::vector<Bin> bins;
    for (std::size_t cell = 0; cell < kCells; ++cell) {
        if (counts_[cell] > 0) {
            // The root, since rare colours would be lost beside large dark areas.
            bins.push_back({PlaceOf(cell), std::sqrt(counts_[cell])});
        }
    }
    std::vector<Box> boxes;
    boxes.push_back(MakeBox(std::move(bins)));
    while (boxes.size() < kMostColours) {
        const auto worst = std::max_element(
            boxes.begin(), boxes.end(),
            [](const Box& a, const Box& b) { return a.unevenness < b.unevenness; });
        if (worst->unevenness < kEven) {
            break;
        }
        boxes.push_back(CutOff(*worst));
    }
    palette_[0] = {255, 0, 255};
    for (const Box& box : boxes) {
        palette_.at(++colours_) = ColourAt(box.mean);
    }
}

std::uint8_t ColourChoice::IndexOf(const Light& light, int x, int y) {
    const std::size_t cell = CellOf(light, samplemaker::DitherThreshold(x, y));
    if (nearest_[cell] == 0) {
        nearest_[cell] = Nearest(cell);
    }
    return nearest_[cell];
}

std::uint8_t ColourChoice::Nearest(std::size_t cell) const {
    const samplemaker::Rgb wanted = ColourAt(PlaceOf(cell));
    const auto distance = [&](const samplemaker::Rgb& colour) {
        const int red = colour.red - wanted.red;
        const int green = colour.green - wanted.green;
        const int blue = colour.blue - wanted.blue;
        return 3 * red * red + 4 * green * green + 2 * blue * blue;
    };
    std::size_t best = 1;
    for (std::size_t i = 2; i <= colours_; ++i) {
        if (distance(palette_.at(i)) < distance(palette_.at(best))) {
            best = i;
        }
    }
    return static_cast<std::uint8_t>(best);
}

}  // namespace scenara::samples
