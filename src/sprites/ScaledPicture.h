// SPDX-License-Identifier: MIT
//
// PictureScaler, an addition: pictures of stages that were made for a larger or smaller view,
// brought to view pixels once, while they are decoded. Of the file's pixels it holds only the lines
// that a line of the result is made of.
//
// Each pixel of the result is the mean of the area that it covers, alpha included. In a keyed
// picture colours are weighted by alpha, so that transparent pixels lend no colour to visible ones.
// In one that is drawn opaque, and where nothing is visible, every pixel's colour counts the same.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "platform/Direct3D8.h"
#include "sprites/modFilePCX.h"

namespace scenara {

// Pixels of a side of `size` after scaling: rounded up, 1 to 32767.
[[nodiscard]] std::int32_t ScaledSize(std::int32_t size, double scale);

class PictureScaler : public PictureLines {
public:
    // Makes textures of `maker`, which outlives it, by a scale above 0.
    PictureScaler(TextureMaker& maker, double scale) : maker_(maker), scale_(scale) {}
    ~PictureScaler() override { Unlock(); }

    // Of the pictures that follow.
    void SetKeyed(bool keyed) { keyed_ = keyed; }

    void Begin(std::int32_t width, std::int32_t height) override;
    [[nodiscard]] std::span<std::uint32_t> NextLine() override;
    [[nodiscard]] std::shared_ptr<Direct3DTexture8> End() override;

private:
    // What a pixel of the result takes of one side of the picture: whole and partial pixels.
    struct Stretch {
        std::size_t first = 0;
        std::vector<double> shares;

        [[nodiscard]] std::size_t End() const { return first + shares.size(); }
    };
    static std::vector<Stretch> Stretches(std::int32_t size, double scale);

    [[nodiscard]] std::span<std::uint32_t> LineOf(std::size_t y);
    void TakeLine();
    void MakeLine(const Stretch& row, std::span<std::uint32_t> line);
    [[nodiscard]] bool HalveLine(const Stretch& row, std::span<std::uint32_t> line);
    void Unlock();

    TextureMaker& maker_;
    double scale_;
    bool keyed_ = false;
    std::shared_ptr<Direct3DTexture8> scaled_;
    LockedPixels locked_{};
    std::vector<Stretch> columns_;  // of the result
    std::vector<Stretch> rows_;
    std::vector<std::uint32_t> lines_;  // the last heldLines_ of the picture
    std::size_t width_ = 0;
    std::size_t heldLines_ = 0;
    std::size_t begun_ = 0;  // lines of the picture, the one being written included
    std::size_t made_ = 0;   // lines of the result
};

}  // namespace scenara
