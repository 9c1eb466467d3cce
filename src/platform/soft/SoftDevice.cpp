// SPDX-License-Identifier: MIT
#include "platform/soft/SoftDevice.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <string>
#include <thread>
#include <typeinfo>
#include <utility>

#include "base/RunTimeError.h"
#include "platform/soft/Strips.h"

namespace scenara {
namespace {

constexpr std::int32_t kLargestSide = std::numeric_limits<std::int16_t>::max();
constexpr std::uint32_t kOpaqueBlack = 0xFF000000;

// The pixels of a back buffer from which on threads pay.
constexpr std::int64_t kLeastForThreads = std::int64_t{640} * 400;

bool IsBlendFactor(std::uint32_t value) {
    return value == D3DBLEND_ZERO || value == D3DBLEND_ONE || value == D3DBLEND_SRCALPHA ||
           value == D3DBLEND_INVSRCALPHA;
}

bool IsBlendOperation(std::uint32_t value) {
    return value >= D3DBLENDOP_ADD && value <= D3DBLENDOP_REVSUBTRACT;
}

bool IsAlphaOperation(std::uint32_t value) {
    return value == D3DTOP_SELECTARG1 || value == D3DTOP_MODULATE;
}

bool IsFilter(std::uint32_t value) {
    return value == D3DTEXF_POINT || value == D3DTEXF_LINEAR;
}

bool IsAddress(std::uint32_t value) {
    return value == D3DTADDRESS_WRAP || value == D3DTADDRESS_CLAMP;
}

template <typename State>
HRESULT SetIf(bool valid, State& state, State value) {
    if (!valid) {
        return D3DERR_INVALIDCALL;
    }
    state = value;
    return D3D_OK;
}

bool IsSide(std::uint32_t size) {
    return size >= 1 && size <= static_cast<std::uint32_t>(kLargestSide);
}

// None when it is of another kind.
const SoftSurface* AsSoft(const Direct3DSurface8& surface) {
    return typeid(surface) == typeid(SoftSurface) ? static_cast<const SoftSurface*>(&surface)
                                                  : nullptr;
}

// Whether a stretch of `length` from `start` on lies within `size`. Wide, so that no sum runs over.
bool LiesWithin(std::int64_t start, std::int64_t length, std::int64_t size) {
    return start >= 0 && length > 0 && start + length <= size;
}

}  // namespace

HRESULT CheckPresentParameters(const D3DPRESENT_PARAMETERS& parameters) {
    const bool valid = parameters.Windowed == 1 && parameters.SwapEffect == D3DSWAPEFFECT_COPY &&
                       parameters.BackBufferFormat == D3DFMT_X8R8G8B8 &&
                       parameters.BackBufferWidth <= kLargestBackBufferWidth &&
                       parameters.BackBufferHeight <= kLargestBackBufferHeight;
    return valid ? D3D_OK : D3DERR_INVALIDCALL;
}

SoftDevice::SoftDevice(std::shared_ptr<TextureMemory> memory, PictureSink* sink,
                       const D3DPRESENT_PARAMETERS& parameters, std::int32_t threads)
    : memory_(std::move(memory)), sink_(sink), threads_(threads) {
    MakeBackBuffer(parameters);
}

std::int32_t SoftDevice::ThreadsForDrawing() {
    const unsigned processors = std::thread::hardware_concurrency();  // 0: not known
    return static_cast<std::int32_t>(std::clamp(processors, 1U, unsigned{kMostThreads}));
}

// Black.
void SoftDevice::MakeBackBuffer(const D3DPRESENT_PARAMETERS& parameters) {
    const auto sizeOf = [](std::uint32_t wanted, Long designed) {
        return wanted == 0 ? designed : static_cast<std::int32_t>(wanted);
    };
    const std::int32_t width = sizeOf(parameters.BackBufferWidth, CanvasSize().width);
    const std::int32_t height = sizeOf(parameters.BackBufferHeight, CanvasSize().height);
    if (width != target_.width || height != target_.height) {
        const std::size_t count =
            static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
        constexpr std::size_t kWords = std::tuple_size_v<decltype(Pixels::words)>;
        picture_ = std::vector<Pixels>((count + kWords - 1) / kWords);
        const std::span pixels(picture_.front().words.data(), count);
        backBuffer_ = std::make_shared<SoftSurface>(pixels, width, height);
        target_.pixels = pixels;
    }
    target_ = {target_.pixels, width, height};
    const bool large = std::int64_t{width} * height >= kLeastForThreads;
    if (!large || threads_ < 2) {
        list_.reset();
    } else if (list_ == nullptr) {
        list_ = std::make_unique<soft::DrawList>(threads_);
    } else {
        list_->Forget();
    }
    std::ranges::fill(target_.pixels, kOpaqueBlack);
}

std::shared_ptr<Direct3DTexture8> SoftDevice::CreateTexture(const TextureParameters& parameters) {
    if (parameters.width < 1 || parameters.width > kLargestSide || parameters.height < 1 ||
        parameters.height > kLargestSide) {
        throw RunTimeError(RunTimeErrorKind::Overflow,
                           "a texture of " + std::to_string(parameters.width) + " x " +
                               std::to_string(parameters.height) + " pixels");
    }
    return std::make_shared<SoftTexture>(memory_, parameters);
}

HRESULT SoftDevice::SetVertexShader(std::uint32_t format) {
    return SetIf(format == kVertexFormat, states_.vertexFormat, format);
}

HRESULT SoftDevice::SetRenderState(std::uint32_t state, std::uint32_t value) {
    soft::PixelStates& pixels = states_.pixels;
    switch (state) {
        case D3DRS_SRCBLEND: return SetIf(IsBlendFactor(value), pixels.sourceFactor, value);
        case D3DRS_DESTBLEND: return SetIf(IsBlendFactor(value), pixels.destinationFactor, value);
        case D3DRS_BLENDOP: return SetIf(IsBlendOperation(value), pixels.operation, value);
        case D3DRS_ALPHABLENDENABLE: pixels.blending = value != 0; return D3D_OK;
        case D3DRS_LIGHTING: return D3D_OK;
        default: return D3DERR_INVALIDCALL;
    }
}

HRESULT SoftDevice::SetTextureStageState(std::uint32_t stage, std::uint32_t type,
                                         std::uint32_t value) {
    if (stage != 0) {
        return D3DERR_INVALIDCALL;
    }
    soft::PixelStates& pixels = states_.pixels;
    switch (type) {
        case D3DTSS_ALPHAOP: return SetIf(IsAlphaOperation(value), pixels.alphaOperation, value);
        case D3DTSS_ADDRESSU:
            return SetIf(IsAddress(value), pixels.sampling.clampColumns,
                         value == D3DTADDRESS_CLAMP);
        case D3DTSS_ADDRESSV:
            return SetIf(IsAddress(value), pixels.sampling.clampLines, value == D3DTADDRESS_CLAMP);
        case D3DTSS_MAGFILTER:
            return SetIf(IsFilter(value), states_.magnifiesLinear, value == D3DTEXF_LINEAR);
        case D3DTSS_MINFILTER:
            return SetIf(IsFilter(value), states_.minifiesLinear, value == D3DTEXF_LINEAR);
        default: return D3DERR_INVALIDCALL;
    }
}

HRESULT SoftDevice::SetViewport(const D3DVIEWPORT8& viewport) {
    if (!LiesWithin(viewport.X, viewport.Width, target_.width) ||
        !LiesWithin(viewport.Y, viewport.Height, target_.height)) {
        return D3DERR_INVALIDCALL;
    }
    target_.left = static_cast<std::int32_t>(viewport.X);
    target_.top = static_cast<std::int32_t>(viewport.Y);
    target_.right = target_.left + static_cast<std::int32_t>(viewport.Width);
    target_.bottom = target_.top + static_cast<std::int32_t>(viewport.Height);
    return D3D_OK;
}

HRESULT SoftDevice::SetTexture(std::uint32_t stage,
                               const std::shared_ptr<Direct3DTexture8>& texture) {
    const Direct3DTexture8* const object = texture.get();
    if (stage != 0 || (object != nullptr && typeid(*object) != typeid(SoftTexture))) {
        return D3DERR_INVALIDCALL;
    }
    if (object != states_.texture.get()) {
        states_.texture = std::static_pointer_cast<SoftTexture>(texture);
    }
    return D3D_OK;
}

HRESULT SoftDevice::BeginScene() {
    if (IsLost()) {
        return D3DERR_DEVICELOST;
    }
    return std::exchange(states_.inScene, true) ? D3DERR_INVALIDCALL : D3D_OK;
}

HRESULT SoftDevice::EndScene() {
    if (IsLost()) {
        return D3DERR_DEVICELOST;
    }
    DrawWhatWaits();
    return std::exchange(states_.inScene, false) ? D3D_OK : D3DERR_INVALIDCALL;
}

HRESULT SoftDevice::Clear(std::uint32_t flags, std::uint32_t color) {
    if (IsLost()) {
        return D3DERR_DEVICELOST;
    }
    if (flags != D3DCLEAR_TARGET) {
        return D3DERR_INVALIDCALL;
    }
    if (states_.inScene && list_ != nullptr) {
        list_->NoteClear(target_, color);
    } else {
        soft::Fill(target_, color);
    }
    return D3D_OK;
}

HRESULT SoftDevice::DrawPrimitiveUP(std::uint32_t primitiveType, std::uint32_t primitiveCount,
                                    std::span<const Vertex> vertices, std::uint32_t stride) {
    if (IsLost()) {
        return D3DERR_DEVICELOST;
    }
    if (!states_.inScene || states_.vertexFormat != kVertexFormat ||
        primitiveType != D3DPT_TRIANGLESTRIP || stride != sizeof(Vertex) || primitiveCount == 0 ||
        vertices.size() < 3 || vertices.size() - 2 < primitiveCount) {
        return D3DERR_INVALIDCALL;
    }
    DrawStrip(vertices.first(std::size_t{primitiveCount} + 2));
    return D3D_OK;
}

void SoftDevice::DrawStrip(std::span<const Vertex> corners) {
    soft::PixelStates pixels = states_.pixels;
    pixels.sampling.linear = states_.magnifiesLinear && states_.minifiesLinear;
    if (list_ != nullptr) {
        list_->NoteStrip(target_, pixels, states_.texture, corners);
    } else {
        soft::DrawFastest(target_, pixels, states_.texture.get(), corners);
    }
}

HRESULT SoftDevice::GetBackBuffer(std::uint32_t backBuffer, std::uint32_t type,
                                  std::shared_ptr<Direct3DSurface8>& surface) {
    surface.reset();
    if (backBuffer != 0 || type != D3DBACKBUFFER_TYPE_MONO) {
        return D3DERR_INVALIDCALL;
    }
    surface = backBuffer_;
    return D3D_OK;
}

HRESULT SoftDevice::CreateImageSurface(std::uint32_t width, std::uint32_t height,
                                       std::uint32_t format,
                                       std::shared_ptr<Direct3DSurface8>& surface) {
    surface.reset();
    if (!IsSide(width) || !IsSide(height) || format != D3DFMT_X8R8G8B8) {
        return D3DERR_INVALIDCALL;
    }
    surface = std::make_shared<SoftSurface>(static_cast<std::int32_t>(width),
                                            static_cast<std::int32_t>(height));
    return D3D_OK;
}

HRESULT SoftDevice::CopyRects(Direct3DSurface8& source, const RECT& rectangle,
                              Direct3DSurface8& destination, const POINT& place) {
    if (IsLost()) {
        return D3DERR_DEVICELOST;
    }
    const SoftSurface* const from = AsSoft(source);
    const SoftSurface* const to = AsSoft(destination);
    const std::int64_t width = std::int64_t{rectangle.right} - rectangle.left;
    const std::int64_t height = std::int64_t{rectangle.bottom} - rectangle.top;
    if (states_.inScene || from == nullptr || to == nullptr || from == to ||
        !LiesWithin(rectangle.left, width, from->Width()) ||
        !LiesWithin(rectangle.top, height, from->Height()) ||
        !LiesWithin(place.x, width, to->Width()) || !LiesWithin(place.y, height, to->Height())) {
        return D3DERR_INVALIDCALL;
    }
    const auto count = static_cast<std::int32_t>(width);
    for (std::int32_t line = 0; line < height; ++line) {
        std::ranges::copy(from->Pixels(rectangle.left, rectangle.top + line, count),
                          to->Pixels(place.x, place.y + line, count).begin());
    }
    return D3D_OK;
}

HRESULT SoftDevice::Present() {
    if (IsLost()) {
        return D3DERR_DEVICELOST;
    }
    if (states_.inScene) {
        return D3DERR_INVALIDCALL;
    }
    return sink_ == nullptr ? D3D_OK : sink_->Show(Size(), target_.pixels);
}

HRESULT SoftDevice::TestCooperativeLevel() {
    switch (condition_) {
        case Condition::Lost: return D3DERR_DEVICELOST;
        case Condition::Resettable: return D3DERR_DEVICENOTRESET;
        default: return D3D_OK;
    }
}

HRESULT SoftDevice::Reset(const D3DPRESENT_PARAMETERS& parameters) {
    if (condition_ == Condition::Lost) {
        return D3DERR_DEVICELOST;
    }
    const HRESULT result = CheckPresentParameters(parameters);
    if (Failed(result)) {
        return result;
    }
    states_ = States{};
    condition_ = Condition::Usable;
    MakeBackBuffer(parameters);
    return D3D_OK;
}

void SoftDevice::AllowReset() {
    if (condition_ == Condition::Lost) {
        condition_ = Condition::Resettable;
    }
}

}  // namespace scenara
