// SPDX-License-Identifier: MIT
//
// Drawing a frame beside what one would draw it with instead. One iteration is one frame of a scene
// (Scenes.h); items are its blits.
//
// Before anybody is timed the frame must be this program's, pixel for pixel; a difference ends the
// benchmark with an error. The memcpy of the rectangles makes another picture by design.
#include <array>
#include <cstdio>
#include <stdexcept>
#include <type_traits>

#include <benchmark/benchmark.h>

#include "platform/Direct3D8.h"
#include "platform/View.h"
#include "render/Scenes.h"
#include "render/ThisProgram.h"
#include "render/peers/CopiedRectangles.h"
#include "render/peers/LlvmpipeQuads.h"
#include "render/peers/PixmanImages.h"
#include "render/peers/QtRaster.h"
#include "render/peers/SdlSurfaces.h"

namespace scenara::bench {
namespace {

using MakeScene = const Scene& (*)();

// Made once for all of a row's repetitions.
template <class Kind, MakeScene kScene>
Drawer& DrawerOf() {
    static Kind drawer(kScene());
    return drawer;
}

std::string Difference(std::size_t at, std::uint32_t pixel, std::uint32_t expected) {
    constexpr std::size_t kWidth = View().width;
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "pixel (%zu, %zu) is %06x, this program's %06x",
                  at % kWidth, at / kWidth, pixel, expected);
    return text.data();
}

void CheckPicture(Drawer& drawer, Drawer& program) {
    constexpr std::uint32_t kColorMask = 0x00FFFFFF;
    drawer.Draw();
    program.Draw();
    const std::vector<std::uint32_t> picture = drawer.Picture();
    const std::vector<std::uint32_t> expected = program.Picture();
    for (std::size_t i = 0; i < expected.size(); ++i) {
        if (((picture.at(i) ^ expected[i]) & kColorMask) != 0) {
            throw std::runtime_error(
                Difference(i, picture[i] & kColorMask, expected[i] & kColorMask));
        }
    }
}

template <class Kind, MakeScene kScene>
void Draw(benchmark::State& state) {
    try {
        Drawer& drawer = DrawerOf<Kind, kScene>();
        if (!std::is_same_v<Kind, CopiedRectangles>) {
            CheckPicture(drawer, DrawerOf<ThisProgram, kScene>());
        }
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
#define DRAW_ROW(kind, name)               \
    BENCHMARK_TEMPLATE(Draw, kind, SceneA) \
        ->Name("Draw/" name "/A")          \
        ->Unit(benchmark::kMicrosecond);   \
    BENCHMARK_TEMPLATE(Draw, kind, SceneB) \
        ->Name("Draw/" name "/B")          \
        ->Unit(benchmark::kMicrosecond);   \
    BENCHMARK_TEMPLATE(Draw, kind, SceneC)->Name("Draw/" name "/C")->Unit(benchmark::kMicrosecond)

#define BLEND_ROW(kind, scene, name) \
    BENCHMARK_TEMPLATE(Draw, kind, scene)->Name("Draw/" name)->Unit(benchmark::kMicrosecond)

DRAW_ROW(CopiedRectangles, "Memcpy");
DRAW_ROW(SdlColorKey, "Sdl2ColorKey");
DRAW_ROW(SdlRunLengths, "Sdl2Rle");
DRAW_ROW(QtRaster, "QtRaster");
DRAW_ROW(PixmanImages, "Pixman");
DRAW_ROW(LlvmpipeQuads, "Llvmpipe");
DRAW_ROW(ThisProgram, "Ours");

BLEND_ROW(SdlRunLengths, SceneD, "Sdl2Rle/D");
BLEND_ROW(PixmanImages, SceneD, "Pixman/D");
BLEND_ROW(ThisProgram, SceneD, "Ours/D");
BLEND_ROW(ThisProgram, SceneSub, "Ours/Sub");
BLEND_ROW(ThisProgram, SceneAdd1, "Ours/Add1");
BLEND_ROW(ThisProgram, SceneAddAlpha, "Ours/AddAlpha");
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
