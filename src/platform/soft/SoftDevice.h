// SPDX-License-Identifier: MIT
//
// SoftDevice: Direct3D 8 on the CPU.
//
// What it does not know it refuses: a render state, a value of one, a texture stage or a kind of
// primitive that platform/Direct3D8.h does not name is D3DERR_INVALIDCALL and changes nothing, so
// that a caller who wants more than every device draws hears of it. The same for a scene begun
// twice, ended or drawn in without a beginning, or presented from inside; for no primitives, fewer
// vertices than they need, another stride; for a texture or a surface of another device's kind; and
// for a copy inside of a scene, within one surface, of nothing, or from or to where no pixels are.
// D3DRS_LIGHTING is taken and has no effect.
//
// It is lost only on demand. States and textures can be set meanwhile; they are a new device's
// after Reset, which also ends the scene.
//
// Drawing, scenes, copies and presenting allocate nothing.
//
// On a large back buffer a scene is drawn by several threads (DrawList.h), when it ends or before
// something looks at its pixels. They wait in the device and end with it. Nobody sees a difference.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "platform/Direct3D8.h"
#include "platform/View.h"
#include "platform/soft/Blend.h"
#include "platform/soft/DrawList.h"
#include "platform/soft/PictureSink.h"
#include "platform/soft/SoftSurface.h"
#include "platform/soft/SoftTexture.h"
#include "platform/soft/Texels.h"
#include "platform/soft/TextureMemory.h"

namespace scenara {

// Of a back buffer, in pixels.
inline constexpr std::uint32_t kLargestBackBufferWidth = 7680;
inline constexpr std::uint32_t kLargestBackBufferHeight = 4320;

// D3D_OK when a device can present so: in a window, by copying, a size up to the largest or none
// (0: that of a CanvasSize as it is designed), in the one format that there is. D3DERR_INVALIDCALL
// otherwise.
[[nodiscard]] HRESULT CheckPresentParameters(const D3DPRESENT_PARAMETERS& parameters);

class SoftDevice : public Direct3DDevice8 {
public:
    // `memory` is kept by whoever wants the next device to find it filled. `sink` must outlive the
    // device; without one Present shows nothing and succeeds.
    // Scenes are drawn by at most so many threads, and no more than there are processors to run at
    // a time.
    static constexpr std::int32_t kMostThreads = 4;
    explicit SoftDevice(std::shared_ptr<TextureMemory> memory = std::make_shared<TextureMemory>(),
                        PictureSink* sink = nullptr, const D3DPRESENT_PARAMETERS& parameters = {},
                        std::int32_t threads = ThreadsForDrawing());
    [[nodiscard]] static std::int32_t ThreadsForDrawing();

    // Sizes outside 1 to 32767 raise RunTimeError "Overflow".
    [[nodiscard]] std::shared_ptr<Direct3DTexture8> CreateTexture(
        const TextureParameters& parameters) override;
    void Expect(std::uint64_t bytes) override { memory_->Expect(bytes); }

    [[nodiscard]] HRESULT SetVertexShader(std::uint32_t format) override;
    [[nodiscard]] HRESULT SetRenderState(std::uint32_t state, std::uint32_t value) override;
    [[nodiscard]] HRESULT SetTextureStageState(std::uint32_t stage, std::uint32_t type,
                                               std::uint32_t value) override;
    [[nodiscard]] HRESULT SetViewport(const D3DVIEWPORT8& viewport) override;
    [[nodiscard]] HRESULT SetTexture(std::uint32_t stage,
                                     const std::shared_ptr<Direct3DTexture8>& texture) override;
    [[nodiscard]] HRESULT BeginScene() override;
    [[nodiscard]] HRESULT EndScene() override;
    [[nodiscard]] HRESULT Clear(std::uint32_t flags, std::uint32_t color) override;
    [[nodiscard]] HRESULT DrawPrimitiveUP(std::uint32_t primitiveType, std::uint32_t primitiveCount,
                                          std::span<const Vertex> vertices,
                                          std::uint32_t stride) override;
    [[nodiscard]] HRESULT GetBackBuffer(std::uint32_t backBuffer, std::uint32_t type,
                                        std::shared_ptr<Direct3DSurface8>& surface) override;
    // Sizes of 1 to 32767, in the one format that there is.
    [[nodiscard]] HRESULT CreateImageSurface(std::uint32_t width, std::uint32_t height,
                                             std::uint32_t format,
                                             std::shared_ptr<Direct3DSurface8>& surface) override;
    [[nodiscard]] HRESULT CopyRects(Direct3DSurface8& source, const RECT& rectangle,
                                    Direct3DSurface8& destination, const POINT& place) override;
    [[nodiscard]] HRESULT Present() override;
    [[nodiscard]] HRESULT TestCooperativeLevel() override;
    [[nodiscard]] HRESULT Reset(const D3DPRESENT_PARAMETERS& parameters) override;

    // Line by line, of which the top byte has no meaning.
    [[nodiscard]] std::span<const std::uint32_t> BackBuffer() const {
        DrawWhatWaits();
        return target_.pixels;
    }
    [[nodiscard]] std::span<std::uint32_t> BackBuffer() {
        DrawWhatWaits();
        return target_.pixels;
    }
    [[nodiscard]] CanvasSize Size() const { return {target_.width, target_.height}; }

    // From now on it is lost.
    void Lose() { condition_ = Condition::Lost; }
    // From now on a lost device can be reset.
    void AllowReset();
    [[nodiscard]] bool IsLost() const { return condition_ != Condition::Usable; }

private:
    enum class Condition { Usable, Lost, Resettable };

    struct States {
        soft::PixelStates pixels;
        std::uint32_t vertexFormat = 0;
        bool magnifiesLinear = false;
        bool minifiesLinear = false;
        std::shared_ptr<SoftTexture> texture;
        bool inScene = false;
    };

    // Begins at a cache line, and so does every line of one that is a whole number of them wide.
    struct alignas(64) Pixels {
        std::array<std::uint32_t, 16> words;
    };

    void MakeBackBuffer(const D3DPRESENT_PARAMETERS& parameters);
    void DrawStrip(std::span<const Vertex> corners);
    void DrawWhatWaits() const {
        if (list_ != nullptr) {
            list_->DrawAll();
        }
    }

    std::shared_ptr<TextureMemory> memory_;
    PictureSink* sink_;
    std::vector<Pixels> picture_;
    soft::Target target_;                      // the same pixels, and the viewport
    std::shared_ptr<SoftSurface> backBuffer_;  // the same pixels
    std::int32_t threads_;
    std::unique_ptr<soft::DrawList> list_;  // none where each draw is done at once
    States states_;
    Condition condition_ = Condition::Usable;
};

}  // namespace scenara
