// SPDX-License-Identifier: MIT
//
// Frames of costly stages: small pictures tiled over the view, copies stacked on each other,
// thousands of elements out of view, thousands of controllers, actions with many frames that are
// never shown. A picture of the view's size stands beside them: it is the cost of covering the
// view.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/View.h"
#include "render/StageInView.h"

namespace scenara::bench {
namespace {

// A stage being made.
struct Making {
    StageModel& model;
    TextureMaker& maker;

    // The index of a new sprite; of `holes` pixels one each is transparent, of 0 none.
    [[nodiscard]] Integer Sprite(int width, int height, int holes = 0) const {
        TextureParameters parameters;
        parameters.width = width;
        parameters.height = height;
        SpriteEntry sprite;
        sprite.width = static_cast<Integer>(width);
        sprite.height = static_cast<Integer>(height);
        sprite.texture = maker.CreateTexture(parameters);
        const LockedPixels locked = sprite.texture->LockRect();
        std::uint32_t noise = 1;
        for (std::uint32_t& word : locked.words) {
            noise = noise * 1664525U + 1013904223U;
            const bool hole = holes > 0 && noise / 65536 % static_cast<unsigned>(holes) == 0;
            word = (hole ? 0 : 0xFF000000U) | noise >> 8U;
        }
        sprite.texture->UnlockRect();
        model.Sprites.push_back(std::move(sprite));
        return model.SpriteCount++;
    }

    // Elements in the view's upper left corner, all alike.
    void Elements(std::size_t count, const BackgroundElement& element) const {
        model.Elements.assign(count, element);
        model.ElementCount = static_cast<Integer>(count);
    }
};

BackgroundElement Still(Integer sprite) {
    BackgroundElement element;
    element.type = "normal";
    element.spriteIndex = sprite;
    element.startX = -View().width / 2;
    return element;
}

BackgroundElement Masked(BackgroundElement element) {
    element.mask = 1;
    return element;
}

BackgroundElement Added(BackgroundElement element) {
    element.blending.kind = BlendKind::Add;
    return element;
}

BackgroundElement Tiled(BackgroundElement element, Long spacingX, Long spacingY, Long count = 1) {
    element.tileX = count;
    element.tileY = count;
    element.tileSpacingX = spacingX;
    element.tileSpacingY = spacingY;
    return element;
}

// On a canvas of 1280 x 720, drawn half as large again.
BackgroundElement Wide(const Making& make, BackgroundElement element) {
    make.model.localcoordWidth = 1280;
    make.model.localcoordHeight = 720;
    make.model.StageXScale = make.model.StageYScale = 1.5F;
    element.startX = -428;
    return element;
}

using Make = void (*)(const Making&);

void DrawFrames(benchmark::State& state, Make make) {
    try {
        StageInView stage(ViewOptions(),
                          [&](StageModel& model, Direct3DDevice8& device, HeadlessMessages&) {
                              make({model, device});
                          });
        for ([[maybe_unused]] const auto iteration : state) {
            stage.Draw();
        }
        state.counters["elements"] = static_cast<double>(stage.ElementCount());
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

constexpr std::size_t kThousand = 1000;

void Pictures(const Making& make) {
    make.Elements(kThousand, Still(make.Sprite(View().width, View().height)));
}

void Controllers(const Making& make, const char* type, const std::vector<Long>& ids) {
    constexpr std::size_t kMany = 4000;
    make.Elements(kMany, Still(-1));
    for (std::size_t i = 0; i < kMany; ++i) {
        make.model.Elements[i].id = static_cast<Long>(i % 100);
    }
    BgCtrl control;
    control.type = type;
    control.endTime = 1000000000;
    control.ctrlIds = ids;
    control.x = control.y = 0.001F;
    control.value = 1;
    control.given = kGivenX | kGivenY | kGivenValue;
    BgCtrlDef group;
    group.controls.assign(kMany, control);
    make.model.CtrlDefs.push_back(group);
}

// Two frames that are shown, and very many between them that are not.
void ZeroTimeFrames(const Making& make) {
    constexpr std::size_t kMany = 3000;
    StageFrame frame;
    StageAction action;
    action.frames.assign(kMany, frame);
    action.frames.front().time = action.frames.back().time = 1;
    make.model.Actions.push_back(action);
    BackgroundElement element;
    element.type = "anim";
    element.actionIndex = 0;
    make.Elements(kMany, element);
}

struct Row {
    const char* name;
    Make make;
};

constexpr Row kRows[] = {
    {"Tiles/picture of the view's size",
     [](const Making& make) { make.Elements(1, Still(make.Sprite(View().width, View().height))); }},
    {"Tiles/masked picture of the view's size",
     [](const Making& make) {
         make.Elements(1, Masked(Still(make.Sprite(View().width, View().height, 9))));
     }},
    {"Tiles/added picture of the view's size",
     [](const Making& make) {
         make.Elements(1, Added(Still(make.Sprite(View().width, View().height, 9))));
     }},
    {"Tiles/1 x 1",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(1, 1)), 0, 0)); }},
    {"Tiles/a thousand pictures of the view's size", Pictures},
    {"Tiles/a thousand of 1 x 1",
     [](const Making& make) { make.Elements(kThousand, Tiled(Still(make.Sprite(1, 1)), 0, 0)); }},
    {"Tiles/2 x 1",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(2, 1)), 0, 0)); }},
    {"Tiles/8 x 8",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(8, 8)), 0, 0)); }},
    {"Tiles/16 x 16",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(16, 16)), 0, 0)); }},
    {"Tiles/16 x 240",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(16, 240)), 0, 0)); }},
    {"Tiles/5 x 240",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(5, 240)), 0, 0)); }},
    {"Tiles/320 x 1",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(320, 1)), 0, 0)); }},
    {"Tiles/1 x 1 masked",
     [](const Making& make) { make.Elements(1, Masked(Tiled(Still(make.Sprite(1, 1)), 0, 0))); }},
    {"Tiles/8 x 8 masked",
     [](const Making& make) {
         make.Elements(1, Masked(Tiled(Still(make.Sprite(8, 8, 3)), 0, 0)));
     }},
    {"Tiles/16 x 16 masked",
     [](const Making& make) {
         make.Elements(1, Masked(Tiled(Still(make.Sprite(16, 16, 3)), 0, 0)));
     }},
    {"Tiles/5 x 240 masked",
     [](const Making& make) {
         make.Elements(1, Masked(Tiled(Still(make.Sprite(5, 240, 3)), 0, 0)));
     }},
    {"Tiles/8 x 8 added",
     [](const Making& make) { make.Elements(1, Added(Tiled(Still(make.Sprite(8, 8, 3)), 0, 0))); }},
    {"Tiles/1 x 1 and 1 between",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(1, 1)), 1, 1)); }},
    {"Tiles/a thousand of 1 x 1 and 1 between",
     [](const Making& make) { make.Elements(kThousand, Tiled(Still(make.Sprite(1, 1)), 1, 1)); }},
    {"Tiles/8 x 8 added and 1 between",
     [](const Making& make) { make.Elements(1, Added(Tiled(Still(make.Sprite(8, 8, 3)), 1, 1))); }},
    {"Tiles/1 x 240 rows and 1 between",
     [](const Making& make) {
         BackgroundElement element = Tiled(Still(make.Sprite(1, 240)), 1, 0);
         element.type = "parallax";
         make.Elements(1, element);
     }},
    {"Stack/1000 deep",
     [](const Making& make) {
         make.Elements(1, Tiled(Still(make.Sprite(8000, 240)), 8 - 8000, 0));
     }},
    {"Stack/1000 deep masked",
     [](const Making& make) {
         make.Elements(1, Masked(Tiled(Still(make.Sprite(8000, 240, 9)), 8 - 8000, 0)));
     }},
    {"Stack/1000 deep masked, 5000 copies",
     [](const Making& make) {
         BackgroundElement element = Tiled(Still(make.Sprite(8000, 240, 9)), 8 - 8000, 0, 5000);
         element.startX = -20000;
         element.tileY = 0;
         make.Elements(1, Masked(element));
     }},
    {"Stack/1000 deep added",
     [](const Making& make) {
         make.Elements(1, Added(Tiled(Still(make.Sprite(8000, 240, 9)), 8 - 8000, 0)));
     }},
    {"Stack/both ways",
     [](const Making& make) { make.Elements(1, Tiled(Still(make.Sprite(30, 30)), -29, -29)); }},
    {"Stack/both ways masked",
     [](const Making& make) {
         make.Elements(1, Masked(Tiled(Still(make.Sprite(30, 30, 9)), -29, -29)));
     }},
    {"Wide tiles/picture of the view's size",
     [](const Making& make) { make.Elements(1, Wide(make, Still(make.Sprite(854, 480)))); }},
    {"Wide tiles/1 x 1",
     [](const Making& make) {
         make.Elements(1, Wide(make, Tiled(Still(make.Sprite(1, 1)), 0, 0)));
     }},
    {"Wide tiles/1 x 1 and 1 between",
     [](const Making& make) {
         make.Elements(1, Wide(make, Tiled(Still(make.Sprite(1, 1)), 1, 1)));
     }},
    {"Wide tiles/8 x 8",
     [](const Making& make) {
         make.Elements(1, Wide(make, Tiled(Still(make.Sprite(8, 8)), 0, 0)));
     }},
    {"Wide tiles/8 x 8 added",
     [](const Making& make) {
         make.Elements(1, Wide(make, Added(Tiled(Still(make.Sprite(8, 8, 9)), 0, 0))));
     }},
    {"Wide tiles/64 x 64",
     [](const Making& make) {
         make.Elements(1, Wide(make, Tiled(Still(make.Sprite(64, 64)), 0, 0)));
     }},
    {"Wide tiles/1 x 240 rows",
     [](const Making& make) {
         BackgroundElement element = Tiled(Still(make.Sprite(1, 240)), 0, 0);
         element.type = "parallax";
         make.Elements(1, Wide(make, element));
     }},
    {"Off screen/15,000 stills",
     [](const Making& make) {
         BackgroundElement element = Still(make.Sprite(32, 32));
         element.startX = 1000;
         make.Elements(15000, element);
     }},
    {"Off screen/15,000 masked stills",
     [](const Making& make) {
         BackgroundElement element = Still(make.Sprite(32, 32, 3));
         element.startX = 1000;
         make.Elements(15000, Masked(element));
     }},
    {"Controllers/4000 posadd of 4000 elements",
     [](const Making& make) { Controllers(make, "posadd", {}); }},
    {"Controllers/4000 velset of 4000 elements",
     [](const Making& make) { Controllers(make, "velset", {}); }},
    {"Controllers/4000 visible of ten ids",
     [](const Making& make) {
         Controllers(make, "visible", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
     }},
    {"Frames of time 0/3000 in 3000 elements", ZeroTimeFrames},
};

bool ListRows() {
    for (const Row& row : kRows) {
        benchmark::RegisterBenchmark(
            (std::string("Made/") + row.name).c_str(),
            [make = row.make](benchmark::State& state) { DrawFrames(state, make); })
            ->Unit(benchmark::kMicrosecond);
    }
    return true;
}

[[maybe_unused]] const bool kListed = ListRows();

}  // namespace
}  // namespace scenara::bench
