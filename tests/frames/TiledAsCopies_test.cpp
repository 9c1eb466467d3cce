// SPDX-License-Identifier: MIT
//
// Tiled pictures are drawn with as few quads as they can be. The proof that nobody sees it: random
// tilings of all kinds, beside the same drawn copy by copy.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "frames/SoftEngine.h"
#include "render/BlendStates.h"
#include "render/BlendedBlit.h"
#include "render/CopyStrip.h"
#include "render/ElementDrawing.h"
#include "render/ElementWindow.h"
#include "render/ParallaxRows.h"
#include "render/PrepareStage.h"
#include "render/Require.h"
#include "render/TilePatterns.h"
#include "render/Tiling.h"
#include "stage/ModelText.h"
#include "stage/StageSpace.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

constexpr std::size_t kPixels = static_cast<std::size_t>(View().width) * View().height;

// One element with its sprite, and a device to draw it on.
class TiledElement : public SoftEngine {
public:
    TiledElement() {
        for (std::size_t i = 0; i < kPixels; ++i) {
            ground_[i] = static_cast<std::uint32_t>(i * 0x9E3779B1U >> 8U);
        }
    }

    BackgroundElement& Element(const char* type) {
        BackgroundElement element;
        element.type = type;
        model.Elements.assign(1, element);
        model.ElementCount = 1;
        StageFrame frame;
        frame.spriteIndex = 0;
        frame.time = -1;
        StageAction action;
        action.frames.assign(1, frame);
        model.Actions.assign(1, action);
        return model.Elements.front();
    }

    void Prepare() {
        options.view = ViewOf(model, {options.additions});
        PrepareElements(model, {options.additions}, options.view);
        MakeTilePatterns(model, {options.additions}, options.view, engine.Device());
        engine.MakeStrip(StripLines(model, {options.additions}, options.view));
    }

    std::vector<std::uint32_t> Drawn() {
        return DrawnBy([&] { DrawElement(engine, model, model.Elements.front(), options); });
    }
    std::vector<std::uint32_t> DrawnCopyByCopy() {
        return DrawnBy([&] { DrawCopies(); });
    }

    DrawOptions options;

private:
    template <typename Draw>
    std::vector<std::uint32_t> DrawnBy(Draw draw) {
        const std::span<std::uint32_t> pixels = Pixels();
        std::ranges::copy(ground_, pixels.begin());
        Require(engine.Device().BeginScene(), "BeginScene");
        draw();
        Require(engine.Device().EndScene(), "EndScene");
        return {pixels.begin(), pixels.end()};
    }

    // Along an axis, in pixels of the picture, and how large they and their distance are drawn.
    struct Run {
        Long count;
        std::int64_t step;
        std::int64_t size;
        double scale;
        double stepScale;
    };

    [[nodiscard]] static std::int64_t Rounded(double place) {
        return static_cast<std::int64_t>(std::floor(place + 0.5));
    }

    // Where copies stand that touch these pixels: the rule, as it is written down.
    [[nodiscard]] static std::vector<PixelRange> Places(const Run& run, bool animated,
                                                        bool additions, double position,
                                                        const PixelRange& visible) {
        const Long count = run.count;
        const bool oneCopy = additions && run.step < 0;
        const bool noDistance = count == 1 && animated && run.step <= 1 && !oneCopy;
        const std::int64_t step = noDistance ? run.size : run.step;
        if (count != 0 && step < 0 && count != 1 && !additions) {
            return {};
        }
        const bool once = count == 0 || step <= 0;
        const auto begin = [&](std::int64_t k) {
            return Rounded(position + static_cast<double>(k * step) * run.stepScale);
        };
        const double size = static_cast<double>(run.size) * run.scale;
        const double apart = static_cast<double>(step) * run.stepScale;
        const auto place = [&](std::int64_t k) {
            const std::int64_t end = Rounded(position + (static_cast<double>(k) * apart + size));
            return PixelRange{begin(k), once || apart < size ? end : std::min(end, begin(k + 1))};
        };
        if (once) {
            return {place(0)};
        }
        std::vector<PixelRange> places;
        const bool endless = count == 1;
        const double back = size + 2;
        const auto near = static_cast<std::int64_t>(
            std::floor((static_cast<double>(visible.from) - back - position) / apart));
        for (std::int64_t k = endless ? near : std::max<std::int64_t>(near, 0);
             (endless || k < count) && begin(k) < visible.to; ++k) {
            if (const PixelRange at = place(k); at.to > visible.from && !at.IsEmpty()) {
                places.push_back(at);
            }
        }
        return places;
    }

    [[nodiscard]] std::int64_t StepOf(Long spacing, Integer size) const {
        return TileStep(spacing, size, model.Elements.front().kind == ElementKind::Animated);
    }

    // Where a picture begins: at its own size, or a whole multiple of it, on a whole pixel, unless
    // its distance has another scale.
    [[nodiscard]] double Start(double place, double scale, double stepScale) const {
        return scale == std::floor(scale) && scale == stepScale
                   ? static_cast<double>(WholePixel(place, options.additions))
                   : place;
    }

    void DrawCopies() {
        const BackgroundElement& element = model.Elements.front();
        const std::optional<PlacedPicture> placed = PlaceElement(model, element, options);
        if (!placed) {
            return;
        }
        const double left = Start(placed->x, placed->scaleX, placed->stepScaleX);
        const double top = Start(placed->y, placed->scaleY, placed->stepScaleY);
        const SpriteEntry& sprite = model.Sprites.front();
        const Blending blending = BlendingInForce(model, element, options.additions);
        const bool blended = blending.kind != BlendKind::None;
        const bool byAlpha = element.mask == 1 || sprite.trueColor == 1;
        if (blended) {
            BeginBlending(engine.Device(), blending);
        } else if (byAlpha) {
            BlendByAlpha(engine.Device(), D3DBLEND_INVSRCALPHA);
        }
        const ElementWindow seen = ElementWindow::Of(element, options);
        const bool animated = element.kind == ElementKind::Animated;
        const bool once = placed->mirrored && !options.additions;
        engine.DrawWithin(seen);
        engine.MixTexels(options.smooth && (placed->scaleX != 1 || placed->scaleY != 1));
        const bool isSeen = !seen.columns.IsEmpty() && !seen.rows.IsEmpty();
        const auto draw = [&](const SpriteQuad& whole) {
            const auto quad = isSeen ? std::optional(whole) : std::nullopt;
            const BlitStyle style{placed->mirrored, placed->flipped};
            if (quad && blended) {
                DrawBlended(engine, blending, sprite, *quad, style);
            } else if (quad) {
                engine.Blit(sprite, *quad, style);
            }
        };
        const auto across = [&](double x, const PixelRange& lines, std::int64_t height,
                                std::int64_t source) {
            const Long count = once ? 0 : element.tileX;
            const Run run{count, StepOf(element.tileSpacingX, sprite.width), sprite.width,
                          placed->scaleX, placed->stepScaleX};
            for (const PixelRange& at : Places(run, animated, options.additions, x, seen.columns)) {
                draw({at.from, lines.from, at.to - at.from, lines.to - lines.from, 0, source,
                      sprite.width, height});
            }
        };
        if (element.kind == ElementKind::Parallax) {
            const double shear =
                static_cast<double>(model.CamX) * static_cast<double>(element.deltaX);
            for (std::int64_t row = 0; row < sprite.height; ++row) {
                const double speed = RowSpeed(element, row, sprite.height);
                const double x = options.additions ? 160 + (placed->axisX - 160) * speed +
                                                         placed->fromAxisX * placed->scaleX
                                                   : placed->x + shear * (speed - 1);
                const auto edge = [&](std::int64_t at) {
                    return Rounded(top + static_cast<double>(at) * placed->scaleY);
                };
                if (edge(row) < edge(row + 1)) {
                    across(Start(x, placed->scaleX, placed->stepScaleX), {edge(row), edge(row + 1)},
                           1, row);
                }
            }
        } else {
            const Long count = once ? 0 : element.tileY;
            const Run run{count, StepOf(element.tileSpacingY, sprite.height), sprite.height,
                          placed->scaleY, placed->stepScaleY};
            for (const PixelRange& at : Places(run, animated, options.additions, top, seen.rows)) {
                across(left, at, sprite.height, 0);
            }
        }
        engine.MixTexels(false);
        engine.DrawEverywhere();
        if (blended) {
            EndBlending(engine.Device(), blending);
        } else if (byAlpha) {
            BlendNoMore(engine.Device());
        }
    }

    std::vector<std::uint32_t> ground_ = std::vector<std::uint32_t>(kPixels);
};

class RandomTiling {
public:
    explicit RandomTiling(unsigned seed) : random_(seed) {}

    void Make(TiledElement& tiled) {
        const Integer width = Size();
        const Integer height = Size();
        const int alphas = Below(4);  // 0: opaque, 1 and 2: with holes, 3: translucent, too
        tiled.Sprite(width, height, [&] { return Texel(alphas); });
        tiled.model.Sprites.front().trueColor = Below(3) == 0 ? 1 : 0;
        constexpr std::array<const char*, 4> kTypes{"normal", "normal", "anim", "parallax"};
        BackgroundElement& element = tiled.Element(kTypes.at(Index(4)));
        const bool animated = element.type == std::string("anim");
        element.actionIndex = 0;
        element.tileX = Count();
        element.tileY = Count();
        element.tileSpacingGiven = 3;
        element.tileSpacingX = Spacing(width, animated);
        element.tileSpacingY = Spacing(height, animated);
        element.mask = static_cast<Integer>(Below(2));
        element.startX = Between(-200, 200);
        element.startY = Between(-40, 250);
        element.xscaleTop = static_cast<Single>(Below(3));
        element.xscaleBottom = static_cast<Single>(Below(3));
        if (Below(3) == 0) {
            element.windowActive = 1;
            element.windowX1 = static_cast<Single>(Between(-20, 340));
            element.windowX2 = static_cast<Single>(Between(-20, 340));
            element.windowY1 = static_cast<Single>(Between(-20, 260));
            element.windowY2 = static_cast<Single>(Between(-20, 260));
        }
        tiled.options.additions = Below(2) == 0;
        // Of copies of a pixel or two there are too many to be mixed.
        const bool large = TileStep(element.tileSpacingX, width, animated) > 2;
        tiled.options.smooth = tiled.options.additions && large && Below(4) == 0;
        if (Below(3) == 0) {
            constexpr std::array<BlendKind, 4> kKinds{BlendKind::Add, BlendKind::Add1,
                                                      BlendKind::Sub, BlendKind::AddAlpha};
            element.blending = {kKinds.at(Index(4)), Between(0, 256), Between(0, 256)};
        }
        constexpr std::array<const char*, 5> kFlips{"", "", "v", "h", "hv"};
        StageFrame& frame = tiled.model.Actions.front().frames.front();
        frame.flip = kFlips.at(Index(5));
        if (tiled.options.additions && Below(2) == 0) {
            constexpr std::array<Single, 6> kScales{0.5F, 0.75F, 1.25F, 2, -1, -1.5F};
            frame.scale = {kScales.at(Index(6)), kScales.at(Index(6))};
        }
        tiled.model.StageXScale = Scale();
        tiled.model.StageYScale = Scale();
        tiled.Prepare();
        tiled.model.CamX = static_cast<Single>(Between(-60, 60));
        tiled.options.camera = {tiled.model.CamX, 0};
    }

private:
    Integer Between(int least, int most) {
        return static_cast<Integer>(std::uniform_int_distribution<int>(least, most)(random_));
    }
    int Below(int end) { return Between(0, end - 1); }
    std::size_t Index(int end) { return static_cast<std::size_t>(Below(end)); }

    Integer Size() { return Below(3) == 0 ? Between(1, 40) : Between(1, 6); }
    Long Count() { return Below(3) == 0 ? Between(0, 300) : Below(2); }
    Long Spacing(Integer size, bool animated) {
        const Long gap = Below(3) == 0 ? 0 : Between(-size, 7);
        return Below(8) == 0 ? Between(-50, 300) : gap + (animated ? size : 0);
    }

    Single Scale() {
        switch (Below(6)) {
            case 0: return static_cast<Single>(Between(2, 5));
            case 1: return static_cast<Single>(Between(100, 400)) / 100;
            default: return 1;
        }
    }

    std::uint32_t Texel(int alphas) {
        const auto color = static_cast<std::uint32_t>(random_()) & 0xFFFFFFU;
        if (alphas == 0 || Below(3) != 0) {
            return 0xFF000000U | color;
        }
        const auto alpha = static_cast<std::uint32_t>(alphas == 3 ? Below(256) : 0);
        return alpha << 24U | color;
    }

    std::mt19937 random_;
};

std::string Described(const TiledElement& tiled) {
    return FieldsText(tiled.model.Elements.front()) + FieldsText(tiled.model.Sprites.front()) +
           FieldsText(tiled.model.Actions.front()) + FieldsText(tiled.model) +
           (tiled.options.additions ? "with additions" : "plain");
}

// Without the byte that is nobody's; kPixels when there is none.
std::size_t FirstDifference(const std::vector<std::uint32_t>& a,
                            const std::vector<std::uint32_t>& b) {
    const std::uint32_t* const pixels = a.data();
    const std::uint32_t* const others = b.data();
    std::size_t place = 0;
    while (place < kPixels && ((pixels[place] ^ others[place]) & 0xFFFFFFU) == 0) {
        ++place;
    }
    return place;
}

TEST(TiledPictures, AreTheSameAsCopyByCopy) {
    RandomTiling random(1);
    TiledElement tiled;
    int patterns = 0;
    int strips = 0;
    const int rounds = Rounds(4000);
    for (int round = 0; round < rounds; ++round) {
        random.Make(tiled);
        patterns += tiled.model.TilePatterns.empty() ? 0 : 1;
        strips += tiled.engine.Strip() == nullptr ? 0 : 1;
        const std::vector<std::uint32_t> drawn = tiled.Drawn();
        const std::vector<std::uint32_t> expected = tiled.DrawnCopyByCopy();
        const std::size_t place = FirstDifference(drawn, expected);
        ASSERT_EQ(place, kPixels) << "round " << round << ", " << Described(tiled) << ": "
                                  << place % View().width << "," << place / View().width;
    }
    EXPECT_GT(patterns, rounds / 10);
    EXPECT_GT(strips, rounds / 10);
}

}  // namespace
}  // namespace scenara::test
