// SPDX-License-Identifier: MIT
#include "render/Scenes.h"

#include <algorithm>
#include <cstdio>
#include <random>

#include "platform/Direct3D8.h"
#include "platform/View.h"
#include "render/ScenePictures.h"
#include "support/StageArt.h"

namespace scenara::bench {
namespace {

// What layers of real stages are like.
constexpr Bounds<double> kLayerClear = {0.45, 0.62};
constexpr Bounds<double> kAnySpans = {0, 1000};

const WantedPicture kBackdrop = {false, {400, 800}, {240, 240}, {0, 0}, kAnySpans, DrawBackdrop};
const WantedPicture kFloor = {false, {80, 280}, {34, 60}, {0, 0}, kAnySpans, DrawBackdrop};
const WantedPicture kWall = {true, {160, 300}, {120, 180}, {0.1, 0.4}, kAnySpans, DrawRow};
const WantedPicture kLowSkyline = {true, {400, 1280}, {60, 140}, {0.45, 0.8}, {2, 8}, DrawLayer};
const WantedPicture kLargeThing = {true, {100, 300}, {100, 240}, {0.6, 0.85}, {1, 5}, DrawObject};
const WantedPicture kFighter = {true, {36, 80}, {80, 120}, {0.4, 0.75}, {1, 5}, DrawObject};
const WantedPicture kSmallThing = {true, {24, 70}, {30, 80}, {0.5, 0.9}, {1, 5}, DrawObject};

const WantedPicture kHighRow = {true, {400, 1280}, {200, 240}, kLayerClear, {2, 16}, DrawRow};
const WantedPicture kHighSkyline = {true, {400, 1280}, {200, 240}, kLayerClear, {2, 16}, DrawLayer};
const WantedPicture kLowRow = {true, {400, 800}, {100, 180}, kLayerClear, {2, 10}, DrawRow};

class SceneMaker {
public:
    SceneMaker(ScenePictures& pictures, const char* name) : pictures_(pictures) {
        scene_.name = name;
    }

    // Somewhere in the view as far as it fits; what is larger covers the view.
    void Place(const WantedPicture& wanted) { PlaceAgain(Add(wanted)); }

    void PlaceAgain(std::size_t picture) {
        const ScenePicture& placed = scene_.pictures[picture];
        scene_.blits.push_back(
            {picture, Within(View().width - placed.width), Within(View().height - placed.height)});
    }

    // The same picture side by side, from the view's left edge or before it to the right one.
    void Tile(const WantedPicture& wanted, int y) {
        const std::size_t picture = Add(wanted);
        const int width = scene_.pictures[picture].width;
        for (int x = -Roll(width); x < View().width; x += width) {
            scene_.blits.push_back({picture, x, y});
        }
    }

    // The last one placed.
    void Blend(const Blending& blending) {
        scene_.pictures[scene_.blits.back().picture].blending = blending;
    }

    // Half of it outside of the view.
    void PlaceAtCorner(const WantedPicture& wanted) {
        const std::size_t picture = Add(wanted);
        const ScenePicture& added = scene_.pictures[picture];
        scene_.blits.push_back({picture, -added.width / 2, View().height - added.height / 2});
    }

    [[nodiscard]] std::size_t Blits() const { return scene_.blits.size(); }
    [[nodiscard]] Scene Finished() { return std::move(scene_); }

private:
    std::size_t Add(const WantedPicture& wanted) {
        scene_.pictures.push_back(pictures_.Take(wanted));
        return scene_.pictures.size() - 1;
    }

    int Roll(int sides) { return static_cast<int>(dice_() % static_cast<std::uint32_t>(sides)); }

    // From 0 to `distance`, which may be negative.
    int Within(int distance) { return distance < 0 ? -Roll(1 - distance) : Roll(1 + distance); }

    ScenePictures& pictures_;
    Scene scene_;
    std::mt19937 dice_{1};
};

Scene MakeA() {
    ScenePictures pictures;
    SceneMaker maker(pictures, "A");
    maker.Place(kBackdrop);
    for (int layer = 0; layer < 2; ++layer) {
        maker.Place(kLowSkyline);
    }
    maker.Tile(kWall, 30);
    maker.Tile(kFloor, 196);
    maker.PlaceAtCorner(kLargeThing);
    while (maker.Blits() < 18) {
        maker.Place(kLargeThing);
    }
    while (maker.Blits() < 20) {
        maker.Place(kFighter);
    }
    while (maker.Blits() < 33) {
        maker.Place(kSmallThing);
    }
    maker.Place(kLowSkyline);
    return maker.Finished();
}

Scene MakeB() {
    ScenePictures pictures;
    SceneMaker maker(pictures, "B");
    for (int layer = 0; layer < 20; ++layer) {
        maker.Place(layer % 5 == 0 ? kHighSkyline : kHighRow);
    }
    return maker.Finished();
}

Scene MakeC() {
    ScenePictures pictures;
    SceneMaker maker(pictures, "C");
    constexpr std::size_t kPictures = 25;
    for (std::size_t layer = 0; layer < kPictures; ++layer) {
        maker.Place(layer % 5 == 0 ? kLowSkyline : kLowRow);
    }
    while (maker.Blits() < 100) {
        maker.PlaceAgain(maker.Blits() % kPictures);
    }
    return maker.Finished();
}

// Every fifth layer is masked, so that sums do not all end in white.
Scene MakeD() {
    ScenePictures pictures;
    SceneMaker maker(pictures, "D");
    maker.Place(kBackdrop);
    for (int layer = 0; layer < 20; ++layer) {
        maker.Place(layer % 5 == 0 ? kHighSkyline : kHighRow);
        if (layer % 5 != 4) {
            maker.Blend({BlendKind::Add});
        }
    }
    return maker.Finished();
}

Scene WithBlending(Scene scene, const Blending& blending) {
    for (ScenePicture& picture : scene.pictures) {
        if (picture.blending.kind != BlendKind::None) {
            picture.blending = blending;
        }
    }
    return scene;
}

}  // namespace

const Scene& SceneA() {
    static const Scene scene = MakeA();
    return scene;
}

const Scene& SceneB() {
    static const Scene scene = MakeB();
    return scene;
}

const Scene& SceneC() {
    static const Scene scene = MakeC();
    return scene;
}

const Scene& SceneD() {
    static const Scene scene = MakeD();
    return scene;
}

const Scene& SceneSub() {
    static const Scene scene = WithBlending(SceneD(), {BlendKind::Sub});
    return scene;
}

const Scene& SceneAdd1() {
    static const Scene scene = WithBlending(SceneD(), {BlendKind::Add1});
    return scene;
}

const Scene& SceneAddAlpha() {
    static const Scene scene = WithBlending(SceneD(), {BlendKind::AddAlpha, 128, 128});
    return scene;
}

void PrintScenes() {
    std::printf("\n%-6s %6s %7s %9s %9s %9s %7s %10s\n", "scene", "blits", "masked", "textures",
                "clipped", "visible", "clear", "spans/line");
    for (const Scene* scene : {&SceneA(), &SceneB(), &SceneC(), &SceneD()}) {
        const SceneNumbers numbers = NumbersOf(*scene);
        std::size_t pixels = 0;
        for (const ScenePicture& picture : scene->pictures) {
            pixels += picture.pixels.size();
        }
        std::printf("%-6s %6zu %7zu %8.1fk %8.1fk %8.1fk %6.1f%% %10.2f\n", scene->name.c_str(),
                    numbers.blits, numbers.masked, static_cast<double>(pixels) / 1e3,
                    static_cast<double>(numbers.clippedPixels) / 1e3,
                    static_cast<double>(numbers.visiblePixels) / 1e3, numbers.clear * 100,
                    numbers.spansPerLine);
    }
}

}  // namespace scenara::bench
