// SPDX-License-Identifier: MIT
//
// Where the pictures of scenes come from: the archives of real content and of the bundled stages,
// and what is drawn (support/StageArt.h) where those have nothing of the kind.
#pragma once

#include <cstdint>
#include <vector>

#include "render/Scene.h"
#include "samplemaker/Picture.h"

namespace scenara::bench {

template <typename Number>
struct Bounds {
    Number least{};
    Number most{};  // included

    [[nodiscard]] bool Contain(Number value) const { return value >= least && value <= most; }
};

// What a scene asks for.
struct WantedPicture {
    bool masked = false;
    Bounds<int> width;
    Bounds<int> height;
    Bounds<double> clear;  // share of index 0
    Bounds<double> spansPerLine;
    samplemaker::IndexedPicture (*draw)(int width, int height, std::uint32_t seed) = nullptr;
};

// Gives each picture once, and the same ones in each run that finds the same archives.
class ScenePictures {
public:
    ScenePictures();

    // The first picture of an archive that is as wanted and was not given yet, else a drawn one.
    [[nodiscard]] ScenePicture Take(const WantedPicture& wanted);

private:
    [[nodiscard]] ScenePicture Draw(const WantedPicture& wanted);

    std::vector<ScenePicture> found_;
    std::uint32_t seed_ = 0;
};

}  // namespace scenara::bench
