// SPDX-License-Identifier: MIT
#include "render/CanvasScenes.h"

#include <algorithm>
#include <random>
#include <utility>

#include "samplemaker/Picture.h"
#include "support/StageArt.h"

namespace scenara::bench {
namespace {

ScenePicture PictureOf(const samplemaker::IndexedPicture& drawn, bool masked) {
    ScenePicture picture{drawn.width, drawn.height, {}, masked};
    for (const std::uint8_t index : drawn.pixels) {
        const samplemaker::Rgb color = drawn.palette[index];
        const std::uint32_t alpha = index == 0 ? 0 : 255;
        picture.pixels.push_back(alpha << 24U | std::uint32_t{color.red} << 16U |
                                 std::uint32_t{color.green} << 8U | color.blue);
    }
    return picture;
}

// As a painted picture is: its edges fade out over some pixels, and one stretch in four lets
// through what was drawn before it.
ScenePicture Soft(ScenePicture picture) {
    constexpr int kFade = 6;
    picture.soft = true;
    for (int y = 0; y < picture.height; ++y) {
        const auto line =
            std::span(picture.pixels)
                .subspan(static_cast<std::size_t>(y) * static_cast<std::size_t>(picture.width),
                         static_cast<std::size_t>(picture.width));
        const auto fade = [&](auto begin, auto end, int firstColumn, int step) {
            int inside = 0;
            int column = firstColumn;
            for (auto pixel = begin; pixel != end; ++pixel, column += step) {
                inside = *pixel >> 24U == 0 ? 0 : inside + 1;
                const bool glass = column / 160 % 4 == 3;
                const auto most =
                    static_cast<std::uint32_t>(std::min(glass ? 150 : 255, inside * 255 / kFade));
                *pixel = std::min(*pixel >> 24U, most) << 24U | (*pixel & 0xFFFFFFU);
            }
        };
        fade(line.begin(), line.end(), 0, 1);
        fade(line.rbegin(), line.rend(), picture.width - 1, -1);
    }
    return picture;
}

Scene LayersOn(const char* name, const CanvasSize& canvas, int layers, int softOnes) {
    Scene scene{name, {}, {}, canvas};
    // It covers the canvas at 0.8 of its size, too.
    scene.pictures.push_back(
        PictureOf(DrawBackdrop(canvas.width * 5 / 4, canvas.height * 5 / 4, 1), false));
    scene.blits.push_back({0, 0, 0});
    std::mt19937 dice(7);
    const auto within = [&](int distance) {
        return static_cast<int>(dice() % static_cast<std::uint32_t>(distance + 1));
    };
    for (int layer = 0; layer < layers; ++layer) {
        // Multiples of 5, so that 0.8 of them are whole.
        const int width = (canvas.width + within(canvas.width)) / 5 * 5;
        const int height = (canvas.height * 5 / 6 + within(canvas.height / 6)) / 5 * 5;
        const auto seed = static_cast<std::uint32_t>(layer) + 1;
        ScenePicture picture = PictureOf(
            layer % 3 == 0 ? DrawLayer(width, height, seed) : DrawRow(width, height, seed), true);
        const bool soft = (layer + 1) * softOnes / layers > layer * softOnes / layers;
        scene.blits.push_back({scene.pictures.size(), -within(width - canvas.width),
                               canvas.height - height + within(10)});
        scene.pictures.push_back(soft ? Soft(std::move(picture)) : std::move(picture));
    }
    return scene;
}

Scene Zoomed(Scene scene, const char* name, bool smooth) {
    scene.name = name;
    scene.smooth = smooth;
    for (Blit& blit : scene.blits) {
        const ScenePicture& picture = scene.pictures[blit.picture];
        blit.width = picture.width * 4 / 5;
        blit.height = picture.height * 4 / 5;
        blit.x = (scene.canvas.width - blit.width) / 2;
        blit.y = scene.canvas.height - blit.height;
    }
    return scene;
}

}  // namespace

const Scene& SceneH() {
    static const Scene scene = LayersOn("H", {640, 480}, 20, 0);
    return scene;
}

const Scene& SceneW() {
    static const Scene scene = LayersOn("W", {1280, 720}, 20, 0);
    return scene;
}

const Scene& SceneZ() {
    static const Scene scene = Zoomed(SceneW(), "Z", false);
    return scene;
}

const Scene& SceneS() {
    static const Scene scene = Zoomed(SceneW(), "S", true);
    return scene;
}

const Scene& SceneT() {
    static const Scene scene = LayersOn("T", {1280, 720}, 30, 24);
    return scene;
}

}  // namespace scenara::bench
