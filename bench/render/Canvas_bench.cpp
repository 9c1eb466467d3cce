// SPDX-License-Identifier: MIT
//
// Drawing on large canvases beside what one would draw it with instead. One iteration is one frame
// of a scene (CanvasScenes.h), on one thread; items are its blits.
//
// Before anybody is timed the frames are compared. Of masked pictures at their own size or by the
// nearest texel they are the same, pixel for pixel. Where colours are mixed the peers round
// otherwise, and more than once: each pixel may differ by so much. SDL2 is free to show other
// texels, for where the canvas cuts a scaled picture it scales what is left by another factor.
#include <array>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include <benchmark/benchmark.h>

#include "render/CanvasScenes.h"
#include "render/DeviceQuads.h"
#include "render/peers/PixmanImages.h"
#include "render/peers/QtRaster.h"
#include "render/peers/SdlSurfaces.h"
#include "render/peers/ThreadedCopies.h"

namespace scenara::bench {
namespace {

using MakeScene = const Scene& (*)();

// Made once for all of a row's repetitions.
template <class Kind, MakeScene kScene>
Drawer& DrawerOf() {
    static Kind drawer(kScene());
    return drawer;
}

// The largest of the differences of the channels.
int Distance(std::uint32_t pixel, std::uint32_t other) {
    int largest = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto of = [&](std::uint32_t color) {
            return static_cast<int>((color >> shift) & 0xFFU);
        };
        largest = std::max(largest, std::abs(of(pixel) - of(other)));
    }
    return largest;
}

void CheckPicture(Drawer& drawer, Drawer& program, int width, int allowed) {
    drawer.Draw();
    program.Draw();
    const std::vector<std::uint32_t> picture = drawer.Picture();
    const std::vector<std::uint32_t> expected = program.Picture();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (Distance(picture.at(i), expected[i]) > allowed) {
            std::array<char, 120> text{};
            std::snprintf(text.data(), text.size(), "pixel (%zu, %zu) is %06x, this program's %06x",
                          i % static_cast<std::size_t>(width), i / static_cast<std::size_t>(width),
                          picture[i] & 0xFFFFFFU, expected[i] & 0xFFFFFFU);
            throw std::runtime_error(text.data());
        }
    }
}

template <class Kind, MakeScene kScene, int kAllowed>
void Canvas(benchmark::State& state) {
    try {
        Drawer& drawer = DrawerOf<Kind, kScene>();
        CheckPicture(drawer, DrawerOf<DeviceQuads, kScene>(), kScene().canvas.width, kAllowed);
        for ([[maybe_unused]] const auto iteration : state) {
            drawer.Draw();
            benchmark::ClobberMemory();
        }
        state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()) *
                                static_cast<std::int64_t>(kScene().blits.size()));
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
#define CANVAS_ROW(kind, scene, allowed, name)       \
    BENCHMARK_TEMPLATE(Canvas, kind, scene, allowed) \
        ->Name("Canvas/" name)                       \
        ->Unit(benchmark::kMicrosecond)              \
        ->MeasureProcessCPUTime()

// By the clock.
#define CANVAS_THREADS(kind, allowed, name)           \
    BENCHMARK_TEMPLATE(Canvas, kind, SceneW, allowed) \
        ->Name("Canvas/" name)                        \
        ->Unit(benchmark::kMicrosecond)               \
        ->UseRealTime()

CANVAS_ROW(DeviceQuads, SceneH, 0, "Ours/H");
CANVAS_ROW(SdlRunLengths, SceneH, 0, "Sdl2Rle/H");
CANVAS_ROW(QtRaster, SceneH, 0, "QtRaster/H");
CANVAS_ROW(PixmanImages, SceneH, 0, "Pixman/H");
CANVAS_ROW(DeviceQuads, SceneW, 0, "Ours/W");
CANVAS_ROW(SdlRunLengths, SceneW, 0, "Sdl2Rle/W");
CANVAS_ROW(QtRaster, SceneW, 0, "QtRaster/W");
CANVAS_ROW(PixmanImages, SceneW, 0, "Pixman/W");
CANVAS_ROW(DeviceQuads, SceneZ, 0, "Ours/Z");
CANVAS_ROW(SdlColorKey, SceneZ, 255, "Sdl2Scaled/Z");
CANVAS_ROW(QtRaster, SceneZ, 0, "QtRaster/Z");
CANVAS_ROW(PixmanImages, SceneZ, 0, "Pixman/Z");
CANVAS_ROW(DeviceQuads, SceneS, 0, "Ours/S");
CANVAS_ROW(QtRaster, SceneS, 8, "QtRaster/S");
CANVAS_ROW(PixmanImages, SceneS, 8, "Pixman/S");
CANVAS_ROW(DeviceQuads, SceneT, 0, "Ours/T");
CANVAS_ROW(SdlColorKey, SceneT, 8, "Sdl2Blend/T");
CANVAS_ROW(QtRaster, SceneT, 8, "QtRaster/T");
CANVAS_ROW(PixmanImages, SceneT, 8, "Pixman/T");
CANVAS_THREADS(DeviceQuads, 0, "OursByOne/W");
CANVAS_THREADS(ThreadedQuads, 0, "OursByAll/W");
CANVAS_THREADS(CopiesBy<1>, 255, "MemcpyByOne/W");
CANVAS_THREADS(CopiesBy<2>, 255, "MemcpyByTwo/W");
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
