// SPDX-License-Identifier: MIT
//
// Direct3D 8 as the program sees it: abstract objects with exactly the operations that the program
// needs, under their Direct3D names and numeric values.
//
// Every device draws the same picture, pixel for pixel, text excepted:
// - The back buffer has the size that it is asked for with, 32 bits a pixel, of which the top 8
//   have no meaning. It is opaque black at first and after Reset, is never cleared otherwise, and
//   keeps its pixels over Present. Nothing is drawn outside of the viewport.
// - A pixel's sample point is its centre, (x + 0.5, y + 0.5). A triangle covers the pixels whose
//   centres lie inside of it; one exactly on an edge belongs to the triangle of which that is a top
//   or a left edge. So quads of whole pixels map texels one to one, plain and mirrored.
// - Triangles that run counter-clockwise on the screen are culled; in a strip every second one is
//   taken the other way round.
// - A texture's colour, or white where none is set, is modulated with the interpolated diffuse
//   colour. Beyond its edges a texture begins anew, or its last texels go on (D3DTADDRESS_CLAMP).
// - Blending and modulation round to the nearest value.
//
// Which texel a pixel shows (D3DTEXF_POINT): the one in which its centre lies. A centre that lies
// on the border of two texels shows the one that follows on the screen, to the right or below. So a
// mirrored picture is the picture, mirrored. Of a rectangle of whole pixels from column L to column
// R that shows n texels, column c shows the texel floor((2 (c - L) + 1) n / (2 (R - L))), counted
// from that edge of the n texels which is drawn on the left. The rows follow the same rule. This
// holds up to 2^18 pixels a side and 2^20 texels from the texture's origin; beyond that, and
// between whole pixels, a centre is on a border as far as a double can tell.
// - A texture coordinate is a float, so it is seldom exactly at the edge of a texel. It means that
//   edge where it is no further away than its own rounding.
// - Both texture coordinates of an axis may be the same: all pixels then show one texel.
//
// What a pixel shows with D3DTEXF_LINEAR: the mean of the four texels around its centre.
// - Along each axis p is the centre's place in texels, counted the same way, and
//   q = floor(256 p - 128 + 1/2). The two texels are t = floor(q / 256) and t + 1, with f = q mod
//   256 parts for t + 1 and 256 - f for t. A texel's weight w is the product of its parts along
//   both axes.
// - While blending is on: alpha = sum(w a) / 2^16, and each colour is sum(w a c) / sum(w a). So
//   transparent texels lend no colour. Where sum(w a) is 0 each colour is sum(w c) / 2^16.
// - While it is off, alphas count for nothing: alpha and each colour are sum(w v) / 2^16.
// - Each value is rounded once, to the nearest, a half upwards. One to one on whole pixels, all
//   weight is on one texel: the picture itself.
//
// Textures: 32-bit ARGB pixels, alpha in the top byte. A picture is written straight into the
// locked texture; the colour key has been applied by then (a keyed pixel has alpha 0 and keeps its
// colour), so a device only stores what it is given.
//
// Not for several threads; but a locked texture may be written to, and its memory brought in, by
// one other than the device's.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "base/NotCopied.h"

namespace scenara {

// What a call answers: 0 or above is success, below is the error's number.
using HRESULT = std::int32_t;
inline constexpr HRESULT D3D_OK = 0;
inline constexpr HRESULT D3DERR_DEVICELOST = static_cast<HRESULT>(0x88760868);      // wait for it
inline constexpr HRESULT D3DERR_DEVICENOTRESET = static_cast<HRESULT>(0x88760869);  // Reset now
inline constexpr HRESULT D3DERR_NOTAVAILABLE = static_cast<HRESULT>(0x8876086A);
inline constexpr HRESULT D3DERR_INVALIDCALL = static_cast<HRESULT>(0x8876086C);

[[nodiscard]] constexpr bool Failed(HRESULT result) {
    return result < 0;
}

inline constexpr std::uint32_t D3DDEVTYPE_HAL = 1;
inline constexpr std::uint32_t D3DCREATE_SOFTWARE_VERTEXPROCESSING = 0x20;
inline constexpr std::uint32_t D3DSWAPEFFECT_COPY = 3;
inline constexpr std::uint32_t D3DFMT_X8R8G8B8 = 22;
inline constexpr std::uint32_t D3DPT_TRIANGLESTRIP = 5;

// Render states, and what the factors and the operation of blending may be.
inline constexpr std::uint32_t D3DRS_SRCBLEND = 19;
inline constexpr std::uint32_t D3DRS_DESTBLEND = 20;
inline constexpr std::uint32_t D3DRS_ALPHABLENDENABLE = 27;
inline constexpr std::uint32_t D3DRS_LIGHTING = 137;  // without effect on transformed vertices
inline constexpr std::uint32_t D3DRS_BLENDOP = 171;
inline constexpr std::uint32_t D3DBLEND_ZERO = 1;
inline constexpr std::uint32_t D3DBLEND_ONE = 2;
inline constexpr std::uint32_t D3DBLEND_SRCALPHA = 5;
inline constexpr std::uint32_t D3DBLEND_INVSRCALPHA = 6;
inline constexpr std::uint32_t D3DBLENDOP_ADD = 1;          // source + destination
inline constexpr std::uint32_t D3DBLENDOP_SUBTRACT = 2;     // source - destination
inline constexpr std::uint32_t D3DBLENDOP_REVSUBTRACT = 3;  // destination - source

// How a stage of texturing makes its alpha. The colour is always modulated.
inline constexpr std::uint32_t D3DTSS_ALPHAOP = 4;
inline constexpr std::uint32_t D3DTOP_SELECTARG1 = 2;  // the texture's; a new device's setting
inline constexpr std::uint32_t D3DTOP_MODULATE = 4;    // the texture's times the vertices'

// How a stage of texturing looks texels up. The mean of texels is taken while both filters are
// D3DTEXF_LINEAR. A new device has the first value of each.
inline constexpr std::uint32_t D3DTSS_ADDRESSU = 13;  // across
inline constexpr std::uint32_t D3DTSS_ADDRESSV = 14;  // down
inline constexpr std::uint32_t D3DTADDRESS_WRAP = 1;
inline constexpr std::uint32_t D3DTADDRESS_CLAMP = 3;
inline constexpr std::uint32_t D3DTSS_MAGFILTER = 16;
inline constexpr std::uint32_t D3DTSS_MINFILTER = 17;
inline constexpr std::uint32_t D3DTEXF_POINT = 1;
inline constexpr std::uint32_t D3DTEXF_LINEAR = 2;

// XYZRHW | DIFFUSE | SPECULAR | TEX1: what a Vertex holds.
inline constexpr std::uint32_t kVertexFormat = 0x1C4;

// A corner on the screen, transformed and lit.
struct Vertex {
    float x = 0;  // screen pixels
    float y = 0;
    float z = 0;                 // always 0
    float rhw = 1;               // always 1
    std::uint32_t color = 0;     // diffuse, ARGB
    std::uint32_t specular = 0;  // always 0
    float tu = 0;                // 0 = the texture's left edge, 1 = its right edge
    float tv = 0;                // 0 = its top, 1 = its bottom
};
static_assert(sizeof(Vertex) == 32);

inline constexpr std::uint32_t D3DX_DEFAULT = 0xFFFFFFFF;
inline constexpr std::uint32_t D3DFMT_UNKNOWN = 0;
inline constexpr std::uint32_t D3DPOOL_MANAGED = 1;
inline constexpr std::uint32_t D3DX_FILTER_POINT = 2;

// What a texture is made with. The defaults are those of every sprite.
struct TextureParameters {
    std::int32_t width = 0;   // pixels, 1 to 32767
    std::int32_t height = 0;  // pixels, 1 to 32767
    std::uint32_t mipLevels = D3DX_DEFAULT;
    std::uint32_t usage = 0;
    std::uint32_t format = D3DFMT_UNKNOWN;  // the picture's own
    std::uint32_t pool = D3DPOOL_MANAGED;
    std::uint32_t filter = D3DX_FILTER_POINT;
    std::uint32_t mipFilter = D3DX_FILTER_POINT;
    std::uint32_t colorKey = 0;  // opaque ARGB; 0 = none

    // What the writer would like, for writing without a look at each line: pixels from one line to
    // the next (0: as many as width) and words behind the last line that may be scribbled on
    // while it is locked for the first time. A device gives both or neither; LockedPixels tells.
    std::int32_t wantedPitch = 0;
    std::size_t wantedSlack = 0;
    // The writer calls BringIn.
    bool bringsIn = false;
};

// A locked texture: line y starts at word y * pitch; what lies behind `width` in a line, and
// behind the last line, belongs to nobody.
struct LockedPixels {
    std::span<std::uint32_t> words;
    std::int32_t pitch = 0;  // in pixels, at least the width
};

class Direct3DTexture8 : NotCopied {
public:
    virtual ~Direct3DTexture8() = default;

    [[nodiscard]] virtual std::int32_t Width() const = 0;
    [[nodiscard]] virtual std::int32_t Height() const = 0;

    virtual LockedPixels LockRect() = 0;
    virtual void UnlockRect() = 0;

    // The same for somebody who only reads: what was prepared for drawing stays as it is.
    virtual LockedPixels LockRectToRead() { return LockRect(); }

    // While it is locked for the first time, on the thread that writes it: its memory is brought
    // in, if that was left to the writer. Raises RunTimeError "Out of memory".
    virtual void BringIn() {}

    // It is about to be drawn with its transparent pixels left out: a device that can make that
    // cheap by preparing something does so now, out of the frame. Without this call it is drawn all
    // the same. Anew after each LockRect.
    virtual void PreLoad() = 0;
};

// Pixels; right and bottom lie outside.
struct RECT {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;
};
struct POINT {
    std::int32_t x = 0;
    std::int32_t y = 0;
};

// Pixels that can be copied: a device's back buffer, or an image in main memory. A back buffer's
// surface is given up before the device is reset or released; an image outlives both.
class Direct3DSurface8 : NotCopied {
public:
    virtual ~Direct3DSurface8() = default;
};

inline constexpr std::uint32_t D3DBACKBUFFER_TYPE_MONO = 0;

inline constexpr std::uint32_t D3DCLEAR_TARGET = 1;

struct D3DDISPLAYMODE {
    std::uint32_t Width = 0;
    std::uint32_t Height = 0;
    std::uint32_t RefreshRate = 0;
    std::uint32_t Format = D3DFMT_UNKNOWN;
};

// The part of the back buffer that is drawn to, in pixels.
struct D3DVIEWPORT8 {
    std::uint32_t X = 0;
    std::uint32_t Y = 0;
    std::uint32_t Width = 0;
    std::uint32_t Height = 0;
    float MinZ = 0;  // without effect, as there is no depth
    float MaxZ = 1;
};

// The handle of the control that shows the picture; what it stands for is the machine's own affair.
using WindowHandle = std::uintptr_t;

// How a device presents. Where the size is 0 it is the window's, that is the view's.
struct D3DPRESENT_PARAMETERS {
    std::uint32_t BackBufferWidth = 0;
    std::uint32_t BackBufferHeight = 0;
    std::uint32_t BackBufferFormat = D3DFMT_UNKNOWN;
    std::uint32_t BackBufferCount = 0;
    std::uint32_t MultiSampleType = 0;
    std::uint32_t SwapEffect = 0;
    WindowHandle hDeviceWindow = 0;
    std::int32_t Windowed = 0;
    std::int32_t EnableAutoDepthStencil = 0;
    std::uint32_t AutoDepthStencilFormat = D3DFMT_UNKNOWN;
    std::uint32_t Flags = 0;
    std::uint32_t FullScreen_RefreshRateInHz = 0;
    std::uint32_t FullScreen_PresentationInterval = 0;
};

// Makes textures: all of a device that reading pictures needs.
class TextureMaker : NotCopied {
public:
    virtual ~TextureMaker() = default;

    // Pixels are undefined until written. Raises RunTimeError "Out of memory" when the machine has
    // not that much. A texture may outlive its maker.
    [[nodiscard]] virtual std::shared_ptr<Direct3DTexture8> CreateTexture(
        const TextureParameters& parameters) = 0;

    // Textures of about so many bytes are to be made from now on, which a maker may prepare for.
    virtual void Expect([[maybe_unused]] std::uint64_t bytes) {}
};

class Direct3DDevice8 : public TextureMaker {
public:
    [[nodiscard]] virtual HRESULT SetVertexShader(std::uint32_t format) = 0;
    [[nodiscard]] virtual HRESULT SetRenderState(std::uint32_t state, std::uint32_t value) = 0;
    [[nodiscard]] virtual HRESULT SetTextureStageState(std::uint32_t stage, std::uint32_t type,
                                                       std::uint32_t value) = 0;

    // From now on nothing is drawn outside of it, by Clear either; text and copies are. A new
    // device and one after Reset have the whole back buffer. D3DERR_INVALIDCALL, and the last one
    // stays, for one that is empty or does not lie in the back buffer.
    [[nodiscard]] virtual HRESULT SetViewport(const D3DVIEWPORT8& viewport) = 0;

    // The device keeps the texture alive until the next one is set. None: quads in the vertices'
    // own colours.
    [[nodiscard]] virtual HRESULT SetTexture(std::uint32_t stage,
                                             const std::shared_ptr<Direct3DTexture8>& texture) = 0;

    [[nodiscard]] virtual HRESULT BeginScene() = 0;
    [[nodiscard]] virtual HRESULT EndScene() = 0;

    // The whole viewport in one colour, in a scene or not: no rectangles, and of `flags` only
    // D3DCLEAR_TARGET, for there is no depth.
    [[nodiscard]] virtual HRESULT Clear(std::uint32_t flags, std::uint32_t color) = 0;

    // Draws primitives from the caller's memory, only between BeginScene and EndScene. For a
    // triangle strip there are primitiveCount + 2 vertices; `stride` is the bytes from one to the
    // next.
    [[nodiscard]] virtual HRESULT DrawPrimitiveUP(std::uint32_t primitiveType,
                                                  std::uint32_t primitiveCount,
                                                  std::span<const Vertex> vertices,
                                                  std::uint32_t stride) = 0;

    // The one back buffer: number 0 of D3DBACKBUFFER_TYPE_MONO. On failure `surface` is left empty.
    [[nodiscard]] virtual HRESULT GetBackBuffer(std::uint32_t backBuffer, std::uint32_t type,
                                                std::shared_ptr<Direct3DSurface8>& surface) = 0;

    // An image of the back buffer's format; its pixels are undefined until something is copied to
    // it. On failure `surface` is left empty.
    [[nodiscard]] virtual HRESULT CreateImageSurface(
        std::uint32_t width, std::uint32_t height, std::uint32_t format,
        std::shared_ptr<Direct3DSurface8>& surface) = 0;

    // Copies a rectangle of one surface to a place of another one, pixel by pixel. Both lie inside
    // of their surfaces. Not in a scene.
    [[nodiscard]] virtual HRESULT CopyRects(Direct3DSurface8& source, const RECT& rectangle,
                                            Direct3DSurface8& destination, const POINT& place) = 0;

    // Shows the whole back buffer in the whole window, which keeps its pixels: the copy swap
    // effect, with no source or destination rectangle, no other window and no dirty region.
    [[nodiscard]] virtual HRESULT Present() = 0;

    // D3D_OK, D3DERR_DEVICELOST, or D3DERR_DEVICENOTRESET once Reset can succeed. A lost device
    // answers every drawing call with D3DERR_DEVICELOST.
    [[nodiscard]] virtual HRESULT TestCooperativeLevel() = 0;

    // Makes a lost device usable again, with the states of a new one. Textures stay.
    [[nodiscard]] virtual HRESULT Reset(const D3DPRESENT_PARAMETERS& parameters) = 0;
};

class Direct3D8 : NotCopied {
public:
    virtual ~Direct3D8() = default;

    [[nodiscard]] virtual HRESULT GetAdapterDisplayMode(std::uint32_t adapter,
                                                        D3DDISPLAYMODE& mode) = 0;
    // On failure `device` is left empty.
    [[nodiscard]] virtual HRESULT CreateDevice(std::uint32_t adapter, std::uint32_t deviceType,
                                               WindowHandle window, std::uint32_t behaviorFlags,
                                               const D3DPRESENT_PARAMETERS& parameters,
                                               std::unique_ptr<Direct3DDevice8>& device) = 0;
};

class DirectX8 : NotCopied {
public:
    virtual ~DirectX8() = default;

    // None on failure.
    [[nodiscard]] virtual std::unique_ptr<Direct3D8> Direct3DCreate() = 0;
};

// A font of the window system, by name; another one stands in where it is not installed.
struct FontDescription {
    std::string name;
    std::int32_t size = 12;  // points, at 96 to the inch: 12 are 16 pixels
    bool bold = false;
    bool italic = false;
};

class D3DXFont : NotCopied {
public:
    virtual ~D3DXFont() = default;
};

// How DrawText lays text out. Without any: from the upper left corner, a line per line break, cut
// at the rectangle. DT_BOTTOM and DT_VCENTER hold for several lines, too.
inline constexpr std::uint32_t DT_CENTER = 0x1;
inline constexpr std::uint32_t DT_RIGHT = 0x2;
inline constexpr std::uint32_t DT_VCENTER = 0x4;
inline constexpr std::uint32_t DT_BOTTOM = 0x8;
inline constexpr std::uint32_t DT_WORDBREAK = 0x10;   // lines are broken at blanks to fit
inline constexpr std::uint32_t DT_SINGLELINE = 0x20;  // line breaks count as nothing
inline constexpr std::uint32_t DT_NOCLIP = 0x100;     // the rectangle does not cut

class D3DX8 : NotCopied {
public:
    virtual ~D3DX8() = default;

    // `device` must outlive the font. On failure `font` is left empty.
    [[nodiscard]] virtual HRESULT CreateFont(Direct3DDevice8& device,
                                             const FontDescription& description,
                                             std::unique_ptr<D3DXFont>& font) = 0;

    // Draws into the back buffer, in a scene or outside. `text` is in the Windows ANSI code page or
    // UTF-8, whichever it can be (base/Text.h); the colour is ARGB.
    [[nodiscard]] virtual HRESULT DrawText(D3DXFont& font, std::uint32_t color,
                                           std::string_view text, const RECT& rectangle,
                                           std::uint32_t format) = 0;
};

// What a machine offers: the two objects from which all others are made. Each is none on failure.
class Direct3DMachine : NotCopied {
public:
    virtual ~Direct3DMachine() = default;

    [[nodiscard]] virtual std::unique_ptr<DirectX8> CreateDirectX8() = 0;
    [[nodiscard]] virtual std::unique_ptr<D3DX8> CreateD3DX8() = 0;
};

}  // namespace scenara
