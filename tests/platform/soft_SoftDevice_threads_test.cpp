// SPDX-License-Identifier: MIT
//
// Scenes that are drawn by several threads: nobody sees a difference.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iterator>
#include <limits>
#include <memory>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "GoodParameters.h"
#include "RandomQuads.h"
#include "SoftQuads.h"
#include "platform/soft/SoftDevice.h"
#include "support/AllocationCount.h"
#include "support/Rounds.h"

namespace scenara {
namespace {

using test::Corners;
using test::CornersOf;
using test::GoodParameters;
using test::ScaledCornersOf;
using TexturePtr = std::shared_ptr<Direct3DTexture8>;

constexpr CanvasSize kLarge{700, 500};

D3DPRESENT_PARAMETERS Sized(const CanvasSize& size) {
    D3DPRESENT_PARAMETERS parameters = GoodParameters();
    parameters.BackBufferWidth = static_cast<std::uint32_t>(size.width);
    parameters.BackBufferHeight = static_cast<std::uint32_t>(size.height);
    return parameters;
}

std::ptrdiff_t ThreadsOfThisProcess() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"),
                         std::filesystem::directory_iterator());
}

// A device and what it draws with; two of them get the same calls.
class Drawn {
public:
    explicit Drawn(std::int32_t threads)
        : device(std::make_shared<TextureMemory>(), nullptr, Sized(kLarge), threads) {
        Check(device.SetVertexShader(kVertexFormat));
    }

    void AddTexture(const test::PlainTexture& picture, bool prepared) {
        const soft::Texels texels = picture.Pixels();
        TextureParameters parameters;
        parameters.width = texels.width;
        parameters.height = texels.height;
        textures.push_back(device.CreateTexture(parameters));
        const LockedPixels locked = textures.back()->LockRect();
        for (std::int32_t y = 0; y < texels.height; ++y) {
            std::copy_n(texels.Line(y), texels.width,
                        locked.words.begin() + std::ptrdiff_t{y} * locked.pitch);
        }
        textures.back()->UnlockRect();
        if (prepared) {
            textures.back()->PreLoad();
        }
    }

    void Set(const soft::PixelStates& states) {
        Check(device.SetRenderState(D3DRS_ALPHABLENDENABLE, states.blending ? 1 : 0));
        Check(device.SetRenderState(D3DRS_SRCBLEND, states.sourceFactor));
        Check(device.SetRenderState(D3DRS_DESTBLEND, states.destinationFactor));
        Check(device.SetRenderState(D3DRS_BLENDOP, states.operation));
        Check(device.SetTextureStageState(0, D3DTSS_ALPHAOP, states.alphaOperation));
        const std::uint32_t filter = states.sampling.linear ? D3DTEXF_LINEAR : D3DTEXF_POINT;
        Check(device.SetTextureStageState(0, D3DTSS_MAGFILTER, filter));
        Check(device.SetTextureStageState(0, D3DTSS_MINFILTER, filter));
    }

    void Draw(std::span<const Vertex> corners) {
        Check(device.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP,
                                     static_cast<std::uint32_t>(corners.size() - 2), corners,
                                     sizeof(Vertex)));
    }

    void Check(HRESULT result) { worst = std::min(worst, result); }

    SoftDevice device;
    std::vector<TexturePtr> textures;
    HRESULT worst = D3D_OK;
};

void ExpectSame(Drawn& one, Drawn& several, const char* when) {
    ASSERT_EQ(one.worst, D3D_OK) << when;
    ASSERT_EQ(several.worst, D3D_OK) << when;
    ASSERT_TRUE(std::ranges::equal(
        one.device.BackBuffer(), several.device.BackBuffer(), {},
        [](std::uint32_t pixel) { return pixel & soft::kColorMask; },
        [](std::uint32_t pixel) { return pixel & soft::kColorMask; }))
        << when;
}

class Scenes {
public:
    explicit Scenes(std::int32_t threads) : several_(threads) {
        for (int i = 0; i < 6; ++i) {
            const test::PlainTexture picture = any_.Texture();
            const bool prepared = any_.Between(0, 2) > 0;
            Both([&](Drawn& drawn) { drawn.AddTexture(picture, prepared); });
        }
    }

    void DrawOne(int calls) {
        Both([](Drawn& drawn) { drawn.Check(drawn.device.BeginScene()); });
        for (int call = 0; call < calls; ++call) {
            Call();
        }
        Both([](Drawn& drawn) { drawn.Check(drawn.device.EndScene()); });
        ExpectSame(one_, several_, "at the end of a scene");
    }

private:
    template <typename Do>
    void Both(Do act) {
        act(one_);
        act(several_);
    }

    void Call() {
        switch (any_.Between(0, 24)) {
            case 0: Clear(); break;
            case 1: MoveViewport(); break;
            case 2: Rewrite(); break;
            case 3: ExpectSame(one_, several_, "within a scene"); break;
            case 4: DrawStrip(); break;
            default: DrawQuad();
        }
    }

    void Clear() {
        const auto color = static_cast<std::uint32_t>(any_.Between(0, 0xFFFFFF));
        Both([&](Drawn& drawn) { drawn.Check(drawn.device.Clear(D3DCLEAR_TARGET, color)); });
    }

    void MoveViewport() {
        const auto below = [&](std::int32_t end) {
            return static_cast<std::uint32_t>(any_.Between(0, end - 1));
        };
        D3DVIEWPORT8 viewport{below(kLarge.width / 2), below(kLarge.height / 2)};
        viewport.Width = 1 + below(kLarge.width - static_cast<std::int32_t>(viewport.X));
        viewport.Height = 1 + below(kLarge.height - static_cast<std::int32_t>(viewport.Y));
        if (any_.Between(0, 1) == 0) {
            viewport = {0, 0, 700, 500};
        }
        Both([&](Drawn& drawn) { drawn.Check(drawn.device.SetViewport(viewport)); });
    }

    // Another pixel in a texture that may stand on the list.
    void Rewrite() {
        const auto color = static_cast<std::uint32_t>(any_.Between(0, 0xFFFFFF)) | 0xFF000000U;
        const auto texture = static_cast<std::size_t>(any_.Between(0, 5));
        Both([&](Drawn& drawn) {
            drawn.textures[texture]->LockRect().words[0] = color;
            drawn.textures[texture]->UnlockRect();
        });
    }

    void SetSome() {
        const auto texture = static_cast<std::size_t>(any_.Between(0, 6));
        soft::PixelStates states = any_.States();
        states.sampling.linear = any_.Between(0, 3) == 0;
        Both([&](Drawn& drawn) {
            drawn.Check(
                drawn.device.SetTexture(0, texture == 6 ? nullptr : drawn.textures[texture]));
            drawn.Set(states);
        });
        width_ = texture == 6 ? 1 : one_.textures[texture]->Width();
        height_ = texture == 6 ? 1 : one_.textures[texture]->Height();
    }

    void DrawQuad() {
        SetSome();
        const soft::Texels texels{{}, width_, height_, width_};
        Corners corners = any_.Between(0, 1) == 0
                              ? ScaledCornersOf(any_.ScaledBlitOf(texels, kLarge), width_, height_)
                              : CornersOf(any_.BlitOf(texels, kLarge), width_, height_);
        if (any_.Between(0, 5) == 0) {  // slanted, between pixels
            corners[0].x += static_cast<float>(any_.Between(-90, 90)) / 7;
        }
        if (any_.Between(0, 9) == 0) {
            MakeHostile(corners);
        }
        Both([&](Drawn& drawn) { drawn.Draw(corners); });
    }

    // Whatever the corners are, both draw the same of them, and soon.
    void MakeHostile(Corners& corners) {
        constexpr float kHostile[] = {std::numeric_limits<float>::quiet_NaN(),
                                      std::numeric_limits<float>::infinity(),
                                      std::numeric_limits<float>::lowest(),
                                      std::numeric_limits<float>::denorm_min(),
                                      16777216,
                                      -2147483648.0F,
                                      1e10F,
                                      -0.0F};
        for (float Vertex::*const member : {&Vertex::x, &Vertex::y, &Vertex::tu, &Vertex::tv}) {
            const float value = kHostile[any_.Between(0, 7)];
            const bool column = member == &Vertex::x || member == &Vertex::tu;
            if (any_.Between(0, 2) == 0) {  // an edge, so that it stays a rectangle
                corners[0].*member = value;
                corners[column ? 1 : 2].*member = value;
            }
        }
    }

    void DrawStrip() {
        SetSome();
        std::vector<Vertex> corners(static_cast<std::size_t>(any_.Between(3, 12)));
        for (Vertex& corner : corners) {
            corner = test::Corner(any_.Between(-50, 750), any_.Between(-50, 550),
                                  static_cast<std::uint32_t>(any_.Between(0, 0xFFFFFF)));
        }
        Both([&](Drawn& drawn) { drawn.Draw(corners); });
    }

    std::mt19937 random_{41};
    test::RandomQuad any_{random_};
    Drawn one_{1};
    Drawn several_;
    std::int32_t width_ = 1;
    std::int32_t height_ = 1;
};

TEST(SoftDeviceThreads, DrawWhatOneDraws) {
    for (const std::int32_t threads : {2, 4}) {
        Scenes scenes(threads);
        for (int scene = 0; scene < test::Rounds(30) && !testing::Test::HasFatalFailure();
             ++scene) {
            scenes.DrawOne(1 + scene);
        }
    }
}

// More draws than a list has room for, small ones and large ones.
TEST(SoftDeviceThreads, AFullListIsDrawnAndBegunAnew) {
    Drawn one(1);
    Drawn several(3);
    for (Drawn* const drawn : {&one, &several}) {
        drawn->Set(test::kAdding);
        drawn->Check(drawn->device.BeginScene());
        for (int i = 0; i < 3000; ++i) {
            const std::int32_t size = i % 100 == 0 ? 600 : 3;
            drawn->Draw(CornersOf({i % 97, i % 89, size, size, 0, 0, false, 0xFF010203}, 1, 1));
        }
        drawn->Check(drawn->device.EndScene());
    }
    ExpectSame(one, several, "after 3000 draws");
}

// A texture of one device that is drawn by two, and one that nobody else keeps.
TEST(SoftDeviceThreads, TexturesAreKeptAndSharedWhileTheyWait) {
    Drawn first(2);
    Drawn second(2);
    first.AddTexture({700, 500, [](auto, auto) { return 0xFF112233U; }}, true);
    const Corners whole = CornersOf({0, 0, 700, 500}, 700, 500);
    for (Drawn* const drawn : {&first, &second}) {
        drawn->Check(drawn->device.BeginScene());
        drawn->Check(drawn->device.SetTexture(0, first.textures[0]));
        drawn->Draw(whole);
        drawn->Check(drawn->device.SetTexture(0, nullptr));
    }
    first.textures[0]->LockRect().words[0] = 0xFF445566;
    first.textures.clear();
    for (Drawn* const drawn : {&first, &second}) {
        drawn->Check(drawn->device.EndScene());
        EXPECT_EQ(drawn->device.BackBuffer()[0] & soft::kColorMask, 0x112233U);
        EXPECT_EQ(drawn->device.BackBuffer()[349999] & soft::kColorMask, 0x112233U);
    }
    ExpectSame(first, second, "with one texture");
}

TEST(SoftDeviceThreads, AllocateNothing) {
    Drawn drawn(3);
    drawn.AddTexture({300, 200, [](auto, auto) { return 0x80112233U; }}, true);
    const auto frame = [&] {
        drawn.Check(drawn.device.BeginScene());
        drawn.Check(drawn.device.SetTexture(0, drawn.textures[0]));
        drawn.Check(drawn.device.Clear(D3DCLEAR_TARGET, 0));
        for (int i = 0; i < 30; ++i) {
            drawn.Draw(ScaledCornersOf({i, i, 650, 450, 0, 0, 300, 200}, 300, 200));
        }
        drawn.Check(drawn.device.EndScene());
        drawn.Check(drawn.device.Present());
    };
    frame();
    const std::size_t before = test::AllocationCount();
    frame();
    frame();
    const std::size_t after = test::AllocationCount();
    EXPECT_EQ(after, before);
    EXPECT_EQ(drawn.worst, D3D_OK);
}

TEST(SoftDeviceThreads, EndWithTheDeviceAndWithItsLargeBackBuffer) {
    const std::ptrdiff_t before = ThreadsOfThisProcess();
    {
        Drawn drawn(3);
        EXPECT_EQ(ThreadsOfThisProcess(), before + 2);
        EXPECT_EQ(drawn.device.Reset(GoodParameters()), D3D_OK);
        EXPECT_EQ(ThreadsOfThisProcess(), before) << "a small one is drawn by one thread";
        EXPECT_EQ(drawn.device.Reset(Sized(kLarge)), D3D_OK);
        EXPECT_EQ(ThreadsOfThisProcess(), before + 2);
    }
    EXPECT_EQ(ThreadsOfThisProcess(), before);
    const SoftDevice small;
    EXPECT_EQ(ThreadsOfThisProcess(), before);
}

// Lost in the middle of a scene, and ended in the middle of one.
TEST(SoftDeviceThreads, WhatWaitsIsForgottenWithTheScene) {
    Drawn drawn(2);
    const Corners whole = CornersOf({0, 0, 700, 500}, 1, 1);
    drawn.AddTexture({1, 1, [](auto, auto) { return 0xFF112233U; }}, true);
    const auto begin = [&] {
        ASSERT_EQ(drawn.device.BeginScene(), D3D_OK);
        ASSERT_EQ(drawn.device.SetTexture(0, drawn.textures[0]), D3D_OK);
        drawn.Draw(whole);
    };
    begin();
    drawn.device.Lose();
    drawn.device.AllowReset();
    ASSERT_EQ(drawn.device.Reset(Sized(kLarge)), D3D_OK);
    EXPECT_EQ(drawn.device.BackBuffer()[0] & soft::kColorMask, 0U);
    ASSERT_EQ(drawn.device.SetVertexShader(kVertexFormat), D3D_OK);
    begin();
    const TexturePtr kept = drawn.textures[0];
    auto other = std::make_unique<Drawn>(2);
    ASSERT_EQ(other->device.BeginScene(), D3D_OK);
    ASSERT_EQ(other->device.SetTexture(0, kept), D3D_OK);
    other->Draw(whole);
    other.reset();
    kept->LockRect().words[0] = 0xFF445566;  // on no list any more
    EXPECT_EQ(drawn.worst, D3D_OK);
}

// A child has no threads but its own: it draws all the same, and ends.
TEST(SoftDeviceThreads, AForkedChildDrawsAlone) {
    auto drawn = std::make_unique<Drawn>(3);
    const auto draw = [&] {
        drawn->Check(drawn->device.BeginScene());
        drawn->Draw(CornersOf({0, 0, 700, 500, 0, 0, false, 0xFF112233}, 1, 1));
        drawn->Check(drawn->device.EndScene());
        const auto pixels = drawn->device.BackBuffer();
        return drawn->worst == D3D_OK && std::ranges::all_of(pixels, [](std::uint32_t pixel) {
                   return (pixel & soft::kColorMask) == 0x112233U;
               });
    };
    const pid_t child = ::fork();
    ASSERT_NE(child, -1);
    if (child == 0) {
        const bool right = draw();
        drawn.reset();
        ::_exit(right ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(draw()) << "the parent's threads are still there";
}

}  // namespace
}  // namespace scenara
