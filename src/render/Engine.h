// SPDX-License-Identifier: MIT
//
// Engine: the thin layer between the program and Direct3D.
//
// It makes one windowed device on the window's picture, holds the one font and the one quad of four
// vertices, and offers a handful of operations that fill the quad and draw it. All that is on
// screen goes through here. Positions are whole pixels of the view, (0, 0) its upper left one;
// colours are ARGB in a Long (-1 = opaque white).
//
// The quad is scratch: every operation overwrites positions and colours, those that draw a picture
// the texture coordinates, too. Set_Vertex and Set_Shadow leave those of the last draw.
//
// Errors: a device call that fails raises RunTimeError "Direct3D error", an operation without a
// device "Object variable not set", a sprite slot outside of the table "Subscript out of range",
// sums beyond 32 bits "Overflow".
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "base/Integers.h"
#include "base/NotCopied.h"
#include "platform/Direct3D8.h"
#include "platform/Messages.h"
#include "platform/View.h"
#include "platform/Window.h"
#include "render/ElementWindow.h"
#include "render/SpriteQuad.h"
#include "render/TurnedQuad.h"
#include "stage/StageModel.h"

namespace scenara {

inline constexpr MessageKind kMessageEngineInit{"display", Severity::Error};

inline constexpr Long kOpaqueWhite = -1;
inline constexpr std::uint32_t kShadowColor = 0x64000000;  // black, alpha 100 of 255

// The largest rectangle that can be kept, as InText has it: the information line's. Plainly that is
// less wide; addition: it has room for the zoom and for the places of wide stages.
inline constexpr POINT kMostKept{310, 20};
inline constexpr Long kPlainInfoWidth = 200;

class CopyStrip;

class Engine : NotCopied {
public:
    // All of them outlive the engine; `model` is where sprites are looked up.
    Engine(Direct3DMachine& machine, Window& window, Messages& messages, const StageModel& model,
           const View& view);
    ~Engine();

    // Makes everything afresh and the device ready to draw, blending off. When a step fails there
    // is no device and nothing half made, and one message says which step it was.
    void Engine_Init();

    // The states that drawing relies on; the last step of Engine_Init.
    void Engine_Init_Gfx() const;

    // Releases everything; without effect when there is nothing.
    void Engine_Deinit();

    [[nodiscard]] bool HasDevice() const { return device_ != nullptr; }
    [[nodiscard]] Direct3DDevice8& Device() const;

    // Draws a piece of a picture, of which the texture and its size count.
    void Blit(const SpriteEntry& sprite, const SpriteQuad& quad, const BlitStyle& style);

    // Addition: the whole of a picture, turned. Expects KeepWithin.
    void BlitTurned(const SpriteEntry& sprite, const TurnedQuad& quad, const BlitStyle& style);

    // Kept: these two names, although elements are drawn by Blit
    // (Blits.D3DBltPlacesTheFourVertices). Draws W x H pixels of the sprite's texture, from (srcX,
    // srcY) of it on, at (X, Y). The first argument, the slot's texture, is taken and ignored.
    void D3DBlt(const std::shared_ptr<Direct3DTexture8>& TX, Integer slot, Long X, Long Y, Long W,
                Long H, Long srcX, Long srcY);
    // The same from the texture mirrored left to right; srcX counts in the mirrored one.
    void D3DBltFlip(const std::shared_ptr<Direct3DTexture8>& TX, Integer slot, Long X, Long Y,
                    Long W, Long H, Long srcX, Long srcY);

    // Addition: a whole texture, of no sprite's, stretched over a rectangle.
    void BlitWhole(const std::shared_ptr<Direct3DTexture8>& texture, Single X, Single Y, Single W,
                   Single H, bool mirrored);

    // The quad as a rectangle, with a colour for each corner: upper left, upper right, lower left,
    // lower right. The caller sets a texture and calls DrawQuad.
    void Set_Vertex(Single X, Single Y, Single W, Single H, std::uint32_t c0, std::uint32_t c1,
                    std::uint32_t c2, std::uint32_t c3);

    // Kept: nothing calls it (Quads.SetShadowLeansToTheSideOfItsType).
    // The quad as a slanted shadow whose lower edge is the rectangle's: leaning left (Type 1) or
    // right (2). Any other Type: nothing changes.
    void Set_Shadow(Byte Type, Single X, Single Y, Single W, Single H);

    void DrawQuad();

    // Text in the rectangle, laid out by the DT_ flags of Format.
    void Draw_Text(Integer Left, Integer Top, Integer Width, Integer Height, std::string_view Text,
                   Long Color, Long Format);

    // A length of text and of what is around it, in pixels of a view as it is designed: the pixels
    // that are the same share of the picture's height.
    [[nodiscard]] Long InText(Long length) const;

    // Addition: the whole picture in one colour.
    void Clear(std::uint32_t color) const;

    // Addition: what is drawn next is cut to a window, until all of the picture is drawn to again.
    // In an empty window nothing may be drawn.
    void DrawWithin(const ElementWindow& window) const;
    void DrawEverywhere() const;

    // Addition: whether pictures that are scaled are mixed from their own pixels from now on.
    void MixTexels(bool mix);

    // Addition: whether pictures end at their edges from now on, as those that are mixed do in any
    // case, and do not begin anew there.
    void KeepWithin(bool keep);

    // Addition: the picture gets the view's size, where it has another one. What was in it is gone.
    void FitView();

    // Addition: what copies are laid along, as wide as the view and of so many lines; 0 for none,
    // and none where there is no memory for it.
    void MakeStrip(Long lines);
    [[nodiscard]] CopyStrip* Strip() { return strip_.get(); }

    // For what is to be seen in one picture only: keeps what the back buffer has in a rectangle of
    // the picture, of kMostKept at most, as far as it lies in there, until PutBack brings it back.
    // A device that cannot bring it back has been lost, and its picture with it: then nothing
    // happens.
    void Keep(const RECT& wanted);
    void PutBack();

    // Resets a lost device that can be reset; one that cannot yet is left alone. Always 0.
    Long Engine_Device_Status();

    // The number of the error that the reset ended with, or 0. Deliberate: unlike a new device, one
    // that was reset has alpha blending on (EngineReset.LeavesBlendingOn).
    Long Engine_Device_Reset();

    // The quad as the last operation left it.
    [[nodiscard]] const std::array<Vertex, 4>& Quad() const { return quad_; }

private:
    void StartUp();
    void SetBackBuffer();
    void MakeText();
    [[nodiscard]] const SpriteEntry& SpriteAt(Integer slot) const;
    struct Edges {
        float left;
        float top;
        float right;
        float bottom;
    };
    // That part of the texture, in its own coordinates, at that place of the view.
    void DrawRectangle(const std::shared_ptr<Direct3DTexture8>& texture, const Edges& place,
                       const Edges& shown, std::uint32_t color);
    void Place(std::size_t corner, float x, float y, std::uint32_t color);
    [[nodiscard]] bool EndsAtEdges() const { return mixesTexels_ || keepsWithin_; }
    void SetAddressing() const;

    Direct3DMachine& machine_;
    Window& window_;
    Messages& messages_;
    const StageModel& model_;
    const View& view_;

    std::unique_ptr<DirectX8> directX_;
    std::unique_ptr<Direct3D8> direct3D_;
    std::unique_ptr<Direct3DDevice8> device_;
    std::unique_ptr<D3DX8> d3dx_;
    std::unique_ptr<D3DXFont> font_;
    std::unique_ptr<CopyStrip> strip_;
    std::shared_ptr<Direct3DSurface8> kept_;
    RECT keptRectangle_;
    bool mixesTexels_ = false;
    bool keepsWithin_ = false;
    D3DPRESENT_PARAMETERS presentation_;
    D3DDISPLAYMODE displayMode_;
    std::array<Vertex, 4> quad_;
};

// Kept: nothing calls it any more (GetRGB.SplitsFromTheLowestByteUp).
// The components of a colour whose lowest byte is red. Outside of -16777216 to 16777216 the outputs
// stay as they were.
void GetRGB(Long Color, Integer& R, Integer& G, Integer& B);

// The number whose hexadecimal digits are those of the four bytes in turn, read as a signed 32-bit
// value. Deliberate: a byte from 1 to 15 gives one digit only, while 0 gives two
// (BytesToColor.ASmallByteGivesOneDigit).
[[nodiscard]] Long BytesToColor(std::span<const Byte, 4> Bytes);

}  // namespace scenara
