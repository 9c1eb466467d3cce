// SPDX-License-Identifier: MIT
//
// Gradients that are tiled without a gap and added to black, at every scale: where two copies lay
// upon one another, or apart, it would be seen.
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <string>

#include <gtest/gtest.h>

#include "frames/SoftEngine.h"
#include "render/CopyStrip.h"
#include "render/ElementDrawing.h"
#include "render/PrepareStage.h"
#include "render/Require.h"
#include "stage/StageSpace.h"

namespace scenara::test {
namespace {

struct Gradient {
    const char* name;
    Integer width;
    Integer height;
    double start;  // of the element, both ways
};

// Those of few pixels are laid side by side before they are drawn (render/CopyStrip.h).
const std::array kGradients{Gradient{"OfManyPixels", 110, 100, 0.37},
                            Gradient{"FarFromTheirFirstCopy", 110, 100, -20000.63},
                            Gradient{"OfFewPixels", 13, 11, 0.37},
                            Gradient{"OfFewPixelsFarFromTheirFirstCopy", 13, 11, -20000.63}};

// What a pixel of a gradient shows: so that a sum of two is none, and nothing is none.
constexpr std::uint32_t kFirst = 100;

class TiledGradients : public testing::TestWithParam<Gradient> {
protected:
    // The canvas is so high that it has one pixel to a unit of the stage.
    TiledGradients() {
        const Gradient& gradient = GetParam();
        std::uint32_t count = 0;
        const auto width = static_cast<std::uint32_t>(gradient.width);
        soft_.Sprite(gradient.width, gradient.height, [&] {
            const std::uint32_t texel = count++;
            return 0xFF000000U | (kFirst + texel % width) << 8U | (kFirst + texel / width);
        });
        BackgroundElement element;
        element.type = "normal";
        element.tileX = 1;
        element.tileY = 1;
        element.blending.kind = BlendKind::Add;
        element.startX = static_cast<Long>(std::trunc(gradient.start));
        element.startY = element.startX;
        const auto rest = static_cast<Single>(gradient.start - std::trunc(gradient.start));
        element.startFraction = {rest, rest};
        soft_.model.Elements.assign(1, element);
        soft_.model.ElementCount = 1;
        soft_.model.localcoordWidth = 320;
        soft_.model.localcoordHeight = 601;
    }

    void DrawAt(Single scale) {
        StageModel& model = soft_.model;
        model.StageXScale = scale;
        model.StageYScale = scale;
        soft_.picture = ViewOf(model, ViewOptions());
        PrepareElements(model, ViewOptions(), soft_.picture);
        Engine& engine = soft_.engine;
        engine.FitView();
        engine.MakeStrip(StripLines(model, ViewOptions(), soft_.picture));
        Require(engine.Device().BeginScene(), "BeginScene");
        engine.Clear(0xFF000000);
        DrawElement(engine, model, model.Elements.front(), {true, soft_.picture, {}});
        Require(engine.Device().EndScene(), "EndScene");
    }

    // How far the texel that a pixel shows is from the one that stands there by the exact scale;
    // infinite where it shows none.
    [[nodiscard]] static double Off(std::uint32_t shown, std::int64_t pixel, double from,
                                    double scale, Integer size) {
        if (shown < kFirst || shown >= kFirst + static_cast<std::uint32_t>(size)) {
            return std::numeric_limits<double>::infinity();
        }
        const double exact = (static_cast<double>(pixel) + 0.5 - from) / scale;
        return std::abs(std::remainder(static_cast<double>(shown - kFirst) + 0.5 - exact, size));
    }

    SoftEngine soft_;
};

TEST_P(TiledGradients, HaveNoSeamAndDoNotDrift) {
    const Gradient& gradient = GetParam();
    for (int hundredths = 30; hundredths <= 300; ++hundredths) {
        const auto scale = static_cast<Single>(hundredths / 100.0);
        DrawAt(scale);
        const CanvasSize canvas = soft_.picture.Canvas();
        ASSERT_EQ(canvas, (CanvasSize{320, 601})) << scale;
        const auto exactScale = static_cast<double>(scale);
        // An edge is rounded to a pixel, and so is what is within.
        const double most = 0.5 + 1.01 / exactScale;
        const double left = canvas.width / 2.0 + gradient.start * exactScale;
        const double top = gradient.start * exactScale;
        const std::span<const std::uint32_t> pixels = soft_.Pixels();
        const auto at = [&](std::int64_t x, std::int64_t y) {
            return pixels[static_cast<std::size_t>(y * canvas.width + x)] & 0xFFFFU;
        };
        for (std::int64_t x = 0; x < canvas.width; ++x) {
            ASSERT_LE(Off(at(x, 0) >> 8U, x, left, exactScale, gradient.width), most)
                << "scale " << scale << ", column " << x;
        }
        for (std::int64_t y = 0; y < canvas.height; ++y) {
            const std::uint32_t row = at(0, y) & 0xFFU;
            ASSERT_LE(Off(row, y, top, exactScale, gradient.height), most)
                << "scale " << scale << ", row " << y;
            for (std::int64_t x = 0; x < canvas.width; ++x) {
                ASSERT_EQ(at(x, y), (at(x, 0) & 0xFF00U) | row)
                    << "scale " << scale << ", a seam at " << x << "," << y;
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, TiledGradients, testing::ValuesIn(kGradients),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace scenara::test
