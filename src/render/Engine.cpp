// SPDX-License-Identifier: MIT
#include "render/Engine.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "base/NumberText.h"
#include "base/RunTimeError.h"
#include "render/CopyStrip.h"
#include "render/Require.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

constexpr std::uint32_t kDefaultAdapter = 0;

// A 32-bit sum, checked.
float Sum(std::int64_t a, std::int64_t b) {
    const std::int64_t sum = a + b;
    if (static_cast<Long>(sum) != sum) {
        return static_cast<float>(ToLong(static_cast<double>(sum)));  // says so
    }
    return static_cast<float>(sum);
}

template <typename Pointer>
const Pointer& Made(const Pointer& object, std::string_view call) {
    if (!object) {
        throw RunTimeError(RunTimeErrorKind::Direct3D, call);
    }
    return object;
}

}  // namespace

Engine::Engine(Direct3DMachine& machine, Window& window, Messages& messages,
               const StageModel& model, const View& view)
    : machine_(machine), window_(window), messages_(messages), model_(model), view_(view) {}

Engine::~Engine() = default;

void Engine::Engine_Init() {
    Engine_Deinit();
    try {
        StartUp();
    } catch (...) {
        Engine_Deinit();
        messages_.MsgBox(kMessageEngineInit,
                         "The display could not be started.\r\n" + TextOfCurrentError());
    }
}

void Engine::StartUp() {
    directX_ = machine_.CreateDirectX8();
    direct3D_ = Made(directX_, "DirectX8")->Direct3DCreate();
    static_cast<void>(Made(direct3D_, "Direct3DCreate"));
    d3dx_ = machine_.CreateD3DX8();
    static_cast<void>(Made(d3dx_, "D3DX8"));
    Require(direct3D_->GetAdapterDisplayMode(kDefaultAdapter, displayMode_),
            "GetAdapterDisplayMode");

    presentation_ = D3DPRESENT_PARAMETERS();
    presentation_.Windowed = 1;
    presentation_.SwapEffect = D3DSWAPEFFECT_COPY;
    presentation_.BackBufferFormat = displayMode_.Format;
    SetBackBuffer();

    window_.Show();
    Require(direct3D_->CreateDevice(kDefaultAdapter, D3DDEVTYPE_HAL, window_.PictureHandle(),
                                    D3DCREATE_SOFTWARE_VERTEXPROCESSING, presentation_, device_),
            "CreateDevice");
    static_cast<void>(Made(device_, "CreateDevice"));

    MakeText();

    mixesTexels_ = false;
    keepsWithin_ = false;
    quad_ = {};
    for (std::size_t corner = 0; corner < quad_.size(); ++corner) {
        Vertex& vertex = quad_[corner];
        vertex.z = 0;
        vertex.rhw = 1;
        vertex.specular = 0;
        vertex.tu = (corner & 1U) != 0 ? 1.0F : 0.0F;
        vertex.tv = (corner & 2U) != 0 ? 1.0F : 0.0F;
    }
    Engine_Init_Gfx();
}

void Engine::MakeText() {
    FontDescription font;
    font.name = "Times New Roman";
    font.size = InText(12);
    font.bold = true;
    Require(d3dx_->CreateFont(*device_, font, font_), "CreateFont");
    static_cast<void>(Made(font_, "CreateFont"));

    const auto side = [this](Long length) { return static_cast<std::uint32_t>(InText(length)); };
    Require(device_->CreateImageSurface(side(kMostKept.x), side(kMostKept.y), displayMode_.Format,
                                        kept_),
            "CreateImageSurface");
    static_cast<void>(Made(kept_, "CreateImageSurface"));
}

Long Engine::InText(Long length) const {
    const CanvasSize canvas = view_.Canvas();
    return std::max(ToLong(double{1} * length * canvas.height / CanvasSize().height), Long{1});
}

void Engine::Engine_Init_Gfx() const {
    Direct3DDevice8& device = Device();
    Require(device.SetVertexShader(kVertexFormat), "SetVertexShader");
    Require(device.SetRenderState(D3DRS_LIGHTING, 0), "SetRenderState");
    Require(device.SetRenderState(D3DRS_SRCBLEND, D3DBLEND_ONE), "SetRenderState");
    Require(device.SetRenderState(D3DRS_DESTBLEND, D3DBLEND_ZERO), "SetRenderState");
    Require(device.SetRenderState(D3DRS_ALPHABLENDENABLE, 0), "SetRenderState");
    Require(device.SetTextureStageState(0, D3DTSS_ALPHAOP, D3DTOP_MODULATE),
            "SetTextureStageState");
}

void Engine::Engine_Deinit() {
    strip_.reset();
    kept_.reset();  // made by the device, so they go first
    font_.reset();
    device_.reset();
    d3dx_.reset();
    direct3D_.reset();
    directX_.reset();
}

Direct3DDevice8& Engine::Device() const {
    if (!device_) {
        throw RunTimeError(RunTimeErrorKind::ObjectNotSet, "the Direct3D device");
    }
    return *device_;
}

const SpriteEntry& Engine::SpriteAt(Integer slot) const {
    return RecordAt(model_.Sprites, slot, "sprite");
}

void Engine::D3DBlt(const std::shared_ptr<Direct3DTexture8>& /*TX*/, Integer slot, Long X, Long Y,
                    Long W, Long H, Long srcX, Long srcY) {
    Blit(SpriteAt(slot), {X, Y, W, H, srcX, srcY}, BlitStyle());
}

void Engine::D3DBltFlip(const std::shared_ptr<Direct3DTexture8>& /*TX*/, Integer slot, Long X,
                        Long Y, Long W, Long H, Long srcX, Long srcY) {
    BlitStyle mirrored;
    mirrored.mirrored = true;
    Blit(SpriteAt(slot), {X, Y, W, H, srcX, srcY}, mirrored);
}

// Wrapped around, coordinates below 0 show the texture from its other end. Where it does not begin
// anew they have to be those of that end.
void Engine::Blit(const SpriteEntry& sprite, const SpriteQuad& quad, const BlitStyle& style) {
    const auto textureWidth = static_cast<float>(sprite.width);
    const auto textureHeight = static_cast<float>(sprite.height);
    const auto coordinate = [this](float texel, float size, bool backwards) {
        const float start = EndsAtEdges() ? size : 0;
        return backwards ? (start - texel) / size : texel / size;
    };
    const Edges place{static_cast<float>(quad.x), static_cast<float>(quad.y),
                      Sum(quad.x, quad.width), Sum(quad.y, quad.height)};
    const Edges shown{
        coordinate(static_cast<float>(quad.sourceX), textureWidth, style.mirrored),
        coordinate(static_cast<float>(quad.sourceY), textureHeight, style.flipped),
        coordinate(Sum(quad.sourceX, quad.ShownWidth()), textureWidth, style.mirrored),
        coordinate(Sum(quad.sourceY, quad.ShownHeight()), textureHeight, style.flipped)};
    DrawRectangle(sprite.texture, place, shown, style.color);
}

void Engine::BlitTurned(const SpriteEntry& sprite, const TurnedQuad& quad, const BlitStyle& style) {
    for (std::size_t corner = 0; corner < quad.corners.size(); ++corner) {
        Place(corner, quad.corners.at(corner).x, quad.corners.at(corner).y, style.color);
    }
    quad_[0].tu = quad_[1].tu = style.mirrored ? 1.0F : 0.0F;
    quad_[2].tu = quad_[3].tu = style.mirrored ? 0.0F : 1.0F;
    quad_[1].tv = quad_[3].tv = style.flipped ? 1.0F : 0.0F;
    quad_[0].tv = quad_[2].tv = style.flipped ? 0.0F : 1.0F;

    Require(Device().SetTexture(0, sprite.texture), "SetTexture");
    DrawQuad();
}

void Engine::BlitWhole(const std::shared_ptr<Direct3DTexture8>& texture, Single X, Single Y,
                       Single W, Single H, bool mirrored) {
    constexpr std::uint32_t kUntinted = 0xFFFFFFFF;
    const float across = mirrored ? -1.0F : 1.0F;  // as D3DBltFlip
    DrawRectangle(texture, {X, Y, X + W, Y + H}, {0, 0, across, 1}, kUntinted);
}

void Engine::DrawRectangle(const std::shared_ptr<Direct3DTexture8>& texture, const Edges& place,
                           const Edges& shown, std::uint32_t color) {
    Place(0, place.left, place.bottom, color);
    Place(1, place.left, place.top, color);
    Place(2, place.right, place.bottom, color);
    Place(3, place.right, place.top, color);
    quad_[0].tu = quad_[1].tu = shown.left;
    quad_[2].tu = quad_[3].tu = shown.right;
    quad_[0].tv = quad_[2].tv = shown.bottom;
    quad_[1].tv = quad_[3].tv = shown.top;

    Require(Device().SetTexture(0, texture), "SetTexture");
    DrawQuad();
}

void Engine::Place(std::size_t corner, float x, float y, std::uint32_t color) {
    Vertex& vertex = quad_.at(corner);
    vertex.x = x;
    vertex.y = y;
    vertex.color = color;
}

void Engine::Set_Vertex(Single X, Single Y, Single W, Single H, std::uint32_t c0, std::uint32_t c1,
                        std::uint32_t c2, std::uint32_t c3) {
    Place(0, X, Y, c0);
    Place(1, X + W, Y, c1);
    Place(2, X, Y + H, c2);
    Place(3, X + W, Y + H, c3);
}

void Engine::Set_Shadow(Byte Type, Single X, Single Y, Single W, Single H) {
    const Single halfWidth = W * 0.5F;
    const Single middle = Y + H * 0.5F;
    if (Type == 1) {
        Place(0, X - halfWidth, middle, kShadowColor);
        Place(1, X + halfWidth, middle, kShadowColor);
    } else if (Type == 2) {
        Place(0, X + halfWidth, middle, kShadowColor);
        Place(1, X + W * 1.5F, middle, kShadowColor);
    } else {
        return;
    }
    Place(2, X, Y + H, kShadowColor);
    Place(3, X + W, Y + H, kShadowColor);
}

void Engine::DrawQuad() {
    constexpr std::uint32_t kTriangles = 2;
    Require(Device().DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, kTriangles, quad_, sizeof(Vertex)),
            "DrawPrimitiveUP");
}

void Engine::Draw_Text(Integer Left, Integer Top, Integer Width, Integer Height,
                       std::string_view Text, Long Color, Long Format) {
    static_cast<void>(Device());
    const RECT rectangle{Left, Top, Left + Width, Top + Height};
    Require(d3dx_->DrawText(*font_, static_cast<std::uint32_t>(Color), Text, rectangle,
                            static_cast<std::uint32_t>(Format)),
            "DrawText");
}

void Engine::Clear(std::uint32_t color) const {
    Require(Device().Clear(D3DCLEAR_TARGET, color), "Clear");
}

void Engine::DrawWithin(const ElementWindow& window) const {
    const auto length = [](const PixelRange& range) {
        return static_cast<std::uint32_t>(range.to - range.from);
    };
    if (window.columns.IsEmpty() || window.rows.IsEmpty()) {
        return;
    }
    D3DVIEWPORT8 viewport;
    viewport.X = static_cast<std::uint32_t>(window.columns.from);
    viewport.Y = static_cast<std::uint32_t>(window.rows.from);
    viewport.Width = length(window.columns);
    viewport.Height = length(window.rows);
    Require(Device().SetViewport(viewport), "SetViewport");
}

void Engine::DrawEverywhere() const {
    D3DVIEWPORT8 viewport;
    viewport.Width = presentation_.BackBufferWidth;
    viewport.Height = presentation_.BackBufferHeight;
    Require(Device().SetViewport(viewport), "SetViewport");
}

void Engine::MixTexels(bool mix) {
    if (mix == mixesTexels_) {
        return;
    }
    mixesTexels_ = mix;
    const std::uint32_t filter = mix ? D3DTEXF_LINEAR : D3DTEXF_POINT;
    for (const std::uint32_t type : {D3DTSS_MAGFILTER, D3DTSS_MINFILTER}) {
        Require(Device().SetTextureStageState(0, type, filter), "SetTextureStageState");
    }
    if (!keepsWithin_) {
        SetAddressing();
    }
}

void Engine::KeepWithin(bool keep) {
    if (keep == keepsWithin_) {
        return;
    }
    keepsWithin_ = keep;
    if (!mixesTexels_) {
        SetAddressing();
    }
}

void Engine::SetAddressing() const {
    const std::uint32_t address = EndsAtEdges() ? D3DTADDRESS_CLAMP : D3DTADDRESS_WRAP;
    for (const std::uint32_t type : {D3DTSS_ADDRESSU, D3DTSS_ADDRESSV}) {
        Require(Device().SetTextureStageState(0, type, address), "SetTextureStageState");
    }
}

void Engine::FitView() {
    const D3DPRESENT_PARAMETERS before = presentation_;
    SetBackBuffer();
    if (presentation_.BackBufferWidth != before.BackBufferWidth ||
        presentation_.BackBufferHeight != before.BackBufferHeight) {
        Require(Device().Reset(presentation_), "Reset");
        mixesTexels_ = false;
        keepsWithin_ = false;
        MakeText();
        Engine_Init_Gfx();
    }
}

void Engine::MakeStrip(Long lines) {
    strip_.reset();
    if (lines == 0) {
        return;
    }
    try {
        strip_ = std::make_unique<CopyStrip>(Device(), view_.Canvas().width, lines);
    } catch (const RunTimeError& error) {
        // Without memory copies are drawn one by one.
        if (error.Kind() != RunTimeErrorKind::OutOfMemory) {
            throw;
        }
    }
}

void Engine::SetBackBuffer() {
    const CanvasSize canvas = view_.Canvas();
    presentation_.BackBufferWidth = static_cast<std::uint32_t>(canvas.width);
    presentation_.BackBufferHeight = static_cast<std::uint32_t>(canvas.height);
}

void Engine::Keep(const RECT& wanted) {
    const CanvasSize canvas = view_.Canvas();
    keptRectangle_ = {wanted.left, wanted.top, std::min(wanted.right, canvas.width),
                      std::min(wanted.bottom, canvas.height)};
    const RECT& rectangle = keptRectangle_;
    if (rectangle.left >= rectangle.right || rectangle.top >= rectangle.bottom) {
        keptRectangle_ = {};  // a canvas that has nothing there
        return;
    }
    std::shared_ptr<Direct3DSurface8> backBuffer;
    Require(Device().GetBackBuffer(0, D3DBACKBUFFER_TYPE_MONO, backBuffer), "GetBackBuffer");
    Require(device_->CopyRects(*Made(backBuffer, "GetBackBuffer"), rectangle, *kept_, {}),
            "CopyRects");
}

void Engine::PutBack() {
    std::shared_ptr<Direct3DSurface8> backBuffer;
    const auto& [left, top, right, bottom] = keptRectangle_;
    if (left >= right) {
        return;
    }
    if (!Failed(Device().GetBackBuffer(0, D3DBACKBUFFER_TYPE_MONO, backBuffer)) && backBuffer) {
        static_cast<void>(device_->CopyRects(*kept_, {0, 0, right - left, bottom - top},
                                             *backBuffer, {left, top}));
    }
}

Long Engine::Engine_Device_Status() {
    if (Device().TestCooperativeLevel() == D3DERR_DEVICENOTRESET) {
        static_cast<void>(Engine_Device_Reset());
    }
    return 0;
}

Long Engine::Engine_Device_Reset() {
    Direct3DDevice8& device = Device();
    const HRESULT result = device.Reset(presentation_);
    if (Failed(result)) {
        return result;
    }
    mixesTexels_ = false;
    keepsWithin_ = false;
    Require(device.SetVertexShader(kVertexFormat), "SetVertexShader");
    Require(device.SetRenderState(D3DRS_LIGHTING, 0), "SetRenderState");
    Require(device.SetRenderState(D3DRS_ALPHABLENDENABLE, 1), "SetRenderState");
    Require(device.SetRenderState(D3DRS_SRCBLEND, D3DBLEND_SRCALPHA), "SetRenderState");
    Require(device.SetRenderState(D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA), "SetRenderState");
    return 0;
}

void GetRGB(Long Color, Integer& R, Integer& G, Integer& B) {
    constexpr Long kLimit = 16'777'216;
    if (Color < -kLimit || Color > kLimit) {
        return;
    }
    R = static_cast<Integer>(Color & 0xFF);
    G = static_cast<Integer>((Color & 0xFF00) / 256);
    // Deliberate: at the limit itself, one above the brightest colour, blue is not cut to 8 bits
    // (GetRGB.BlueIs256AtTheLimit).
    B = static_cast<Integer>(Color == kLimit ? 256 : (Color & 0xFF0000) / 65536);
}

Long BytesToColor(std::span<const Byte, 4> Bytes) {
    std::string digits;
    for (const Byte byte : Bytes) {
        digits += byte == 0 ? "00" : Hexadecimal(byte);
    }
    std::uint32_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number, 16);
    return static_cast<Long>(number);
}

}  // namespace scenara
