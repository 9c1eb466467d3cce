// SPDX-License-Identifier: MIT
//
// RecordingMachine: a Direct3D machine that draws nothing and writes down every call as a line of
// text, with its numbers, in the order in which they come.
//
// Quads are also kept as values, and described in short ("sky 10,20 32x16 from 4,0 mirrored"), as
// what they are of the texture that is set. Any call can be made to fail, to give nothing, or to
// run out of memory. Objects write down when they go.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/NumberText.h"
#include "platform/Direct3D8.h"
#include "support/NullDevice.h"

namespace scenara::test {

using Lines = std::vector<std::string>;

// A texture that goes by a name in the record, and counts how often it was prepared.
class NamedTexture : public NullTexture {
public:
    NamedTexture(std::string name, std::int32_t width, std::int32_t height)
        : NullTexture(width, height), name_(std::move(name)) {}

    void PreLoad() override { ++preLoads_; }

    [[nodiscard]] const std::string& Name() const { return name_; }
    [[nodiscard]] int PreLoads() const { return preLoads_; }

private:
    std::string name_;
    int preLoads_ = 0;
};

// A quad as the device got it, and what was in force then.
struct DrawnQuad {
    std::array<Vertex, 4> corners{};
    std::shared_ptr<Direct3DTexture8> texture;
    bool blending = false;
    std::uint32_t source = 0;
    std::uint32_t destination = 0;
    std::uint32_t operation = D3DBLENDOP_ADD;
};

// How it is blended: "masked", "added" and "taken" by its alpha, or "oddly blended".
inline std::string BlendingOf(const DrawnQuad& quad) {
    const bool byAlpha = quad.source == D3DBLEND_SRCALPHA;
    const bool adding = quad.operation == D3DBLENDOP_ADD;
    if (byAlpha && adding && quad.destination == D3DBLEND_INVSRCALPHA) {
        return "masked";
    }
    if (byAlpha && adding && quad.destination == D3DBLEND_ONE) {
        return "added";
    }
    if (byAlpha && quad.operation == D3DBLENDOP_REVSUBTRACT && quad.destination == D3DBLEND_ONE) {
        return "taken";
    }
    return "oddly blended";
}

// The colour at all corners, when it is not white.
inline std::string TintOf(const DrawnQuad& quad) {
    const std::uint32_t color = quad.corners[0].color;
    for (const Vertex& corner : quad.corners) {
        if (corner.color != color) {
            return " in several colours";
        }
    }
    if (color == 0xFFFFFFFF) {
        return "";
    }
    std::array<char, 9> digits{};
    static_cast<void>(std::snprintf(digits.data(), digits.size(), "%08X", color));
    return std::string(" in ") + digits.data();
}

// The quad in words: the pixels that it covers, "of" so many of the texture where these are not as
// many; "odd ..." when it is no upright rectangle.
inline std::string Described(const DrawnQuad& quad) {
    const auto* const texture = dynamic_cast<const NamedTexture*>(quad.texture.get());
    if (texture == nullptr) {
        return "odd: no texture";
    }
    const auto& [lowerLeft, upperLeft, lowerRight, upperRight] = quad.corners;
    const auto width = static_cast<double>(texture->Width());
    const auto height = static_cast<double>(texture->Height());
    const double w = static_cast<double>(upperRight.x) - static_cast<double>(upperLeft.x);
    const double h = static_cast<double>(lowerLeft.y) - static_cast<double>(upperLeft.y);
    const double u0 = static_cast<double>(upperLeft.tu) * width;
    const double u1 = static_cast<double>(upperRight.tu) * width;
    const double v0 = static_cast<double>(upperLeft.tv) * height;
    const double v1 = static_cast<double>(lowerLeft.tv) * height;
    const bool upright = lowerLeft.x == upperLeft.x && lowerRight.x == upperRight.x &&
                         lowerLeft.y == lowerRight.y && upperLeft.y == upperRight.y &&
                         lowerLeft.tu == upperLeft.tu && lowerRight.tu == upperRight.tu &&
                         lowerLeft.tv == lowerRight.tv && upperLeft.tv == upperRight.tv;
    const bool mirrored = u1 < u0;
    constexpr double kNear = 0.01;
    const bool flipped = v1 < v0;
    const bool oneToOne =
        std::abs(std::abs(u1 - u0) - w) < kNear && std::abs(std::abs(v1 - v0) - h) < kNear;
    const auto number = [](double value) { return NumberText(std::round(value)); };
    std::string text = upright ? "" : "odd: ";
    text.append(texture->Name()).append(" ");
    text.append(number(static_cast<double>(upperLeft.x))).append(",");
    text.append(number(static_cast<double>(upperLeft.y))).append(" ");
    text.append(number(w)).append("x").append(number(h));
    const double sourceX = mirrored ? -u0 : u0;
    const double sourceY = flipped ? -v0 : v0;
    if (std::abs(sourceX) > kNear || std::abs(sourceY) > kNear) {
        text.append(" from ").append(number(sourceX)).append(",").append(number(sourceY));
    }
    if (!oneToOne) {
        text.append(" of ").append(number(std::abs(u1 - u0))).append("x");
        text.append(number(std::abs(v1 - v0)));
    }
    text.append(mirrored ? " mirrored" : "").append(flipped ? " flipped" : "");
    text.append(quad.blending ? " " + BlendingOf(quad) : "");
    return text.append(TintOf(quad));
}

// What was called, and what shall go wrong.
class Record {
public:
    enum class Trouble {
        Fails,         // answers an error's number, or no object where there is no number
        GivesNothing,  // answers that all is well, and gives no object
        NoMemory,      // raises std::bad_alloc
    };

    static constexpr HRESULT kFailure = D3DERR_INVALIDCALL;

    // The nth call of this name from now on goes wrong, once.
    void Spoil(std::string call, Trouble trouble, int nth = 1, HRESULT result = kFailure) {
        spoiled_ = Spoiled{std::move(call), trouble, nth, result};
    }

    // Every call of this name answers so from now on.
    void AnswerAlways(std::string call, HRESULT result) { always_ = {std::move(call), result}; }

    // Writes the call down, and answers it. `words` gives its numbers as text.
    template <typename Words>
    HRESULT Call(std::string_view name, Words words) {
        if (writing_) {
            const std::string numbers = words();
            lines_.emplace_back(name).append(numbers.empty() ? "" : " ").append(numbers);
        }
        givesNothing_ = false;
        if (spoiled_ && spoiled_->call == name && --spoiled_->nth == 0) {
            const Spoiled spoiled = *std::exchange(spoiled_, std::nullopt);
            if (spoiled.trouble == Trouble::NoMemory) {
                throw std::bad_alloc();
            }
            givesNothing_ = true;
            return spoiled.trouble == Trouble::Fails ? spoiled.result : D3D_OK;
        }
        return always_.first == name ? always_.second : D3D_OK;
    }
    HRESULT Call(std::string_view name) {
        return Call(name, [] { return std::string(); });
    }

    // Whether the last call shall not give the object it makes.
    [[nodiscard]] bool GivesNothing() const { return givesNothing_; }

    void Note(std::string line) {
        if (writing_) {
            lines_.push_back(std::move(line));
        }
    }
    void Keep(const DrawnQuad& quad) {
        ++drawn_;
        if (writing_) {
            quads_.push_back(quad);
            lines_.emplace_back("quad ").append(Described(quad));
        }
    }

    // All lines, oldest first, and then forgets them and the quads.
    Lines TakeLines() {
        quads_.clear();
        return std::exchange(lines_, {});
    }
    // The quads in words, and then forgets everything.
    Lines TakeQuads() {
        Lines texts;
        for (const DrawnQuad& quad : quads_) {
            texts.push_back(Described(quad));
        }
        static_cast<void>(TakeLines());
        return texts;
    }
    [[nodiscard]] const std::vector<DrawnQuad>& Quads() const { return quads_; }

    // Without writing, quads are only counted, and nothing is allocated.
    void SetWriting(bool writing) { writing_ = writing; }
    [[nodiscard]] std::size_t DrawnCount() const { return drawn_; }

private:
    struct Spoiled {
        std::string call;
        Trouble trouble;
        int nth;
        HRESULT result;
    };

    bool writing_ = true;
    bool givesNothing_ = false;
    std::size_t drawn_ = 0;
    Lines lines_;
    std::vector<DrawnQuad> quads_;
    std::optional<Spoiled> spoiled_;
    std::pair<std::string, HRESULT> always_;
};

inline std::string Numbers(std::initializer_list<std::int64_t> numbers) {
    std::string text;
    for (const std::int64_t number : numbers) {
        text.append(text.empty() ? "" : " ").append(std::to_string(number));
    }
    return text;
}

// All fields in their order.
inline std::string Numbers(const D3DPRESENT_PARAMETERS& p) {
    return Numbers({p.BackBufferWidth, p.BackBufferHeight, p.BackBufferFormat, p.BackBufferCount,
                    p.MultiSampleType, p.SwapEffect, static_cast<std::int64_t>(p.hDeviceWindow),
                    p.Windowed, p.EnableAutoDepthStencil, p.AutoDepthStencilFormat, p.Flags,
                    p.FullScreen_RefreshRateInHz, p.FullScreen_PresentationInterval});
}

// An object that writes down when it goes, by its name.
template <typename Base>
class Recorded : public Base {
public:
    Recorded(Record& record, std::string name) : record_(record), name_(std::move(name)) {}
    Recorded(const Recorded&) = delete;
    Recorded& operator=(const Recorded&) = delete;
    ~Recorded() override { record_.Note("~" + name_); }

    [[nodiscard]] const std::string& Name() const { return name_; }

protected:
    // The call, and what it makes of the arguments, unless it shall give nothing.
    template <typename Made, typename Pointer, typename Words, typename... Arguments>
    HRESULT Make(Pointer& into, std::string_view call, Words words, Arguments&&... arguments) {
        const HRESULT result = record_.Call(call, words);
        into.reset();
        if (!record_.GivesNothing()) {
            into.reset(new Made(record_, std::forward<Arguments>(arguments)...));
        }
        return result;
    }

    Record& record_;

private:
    std::string name_;
};

// (The back buffer is the NullDevice's, and has no name.)
using RecordingSurface = Recorded<Direct3DSurface8>;

inline std::string NameOf(const Direct3DSurface8& surface) {
    const auto* const named = dynamic_cast<const RecordingSurface*>(&surface);
    return named == nullptr ? "BackBuffer" : named->Name();
}

inline std::string NoWords() {
    return {};
}

class RecordingDevice : public Recorded<NullDevice> {
public:
    explicit RecordingDevice(Record& record) : Recorded(record, "Device") {}

    HRESULT SetVertexShader(std::uint32_t format) override {
        return record_.Call("SetVertexShader", [&] { return Numbers({format}); });
    }
    HRESULT SetRenderState(std::uint32_t state, std::uint32_t value) override {
        const HRESULT result = record_.Call("SetRenderState", [&] {
            return Numbers({state, value});
        });
        if (!Failed(result)) {
            Remember(state, value);
        }
        return result;
    }
    HRESULT SetTextureStageState(std::uint32_t stage, std::uint32_t type,
                                 std::uint32_t value) override {
        return record_.Call("SetTextureStageState", [&] { return Numbers({stage, type, value}); });
    }
    HRESULT SetTexture(std::uint32_t stage,
                       const std::shared_ptr<Direct3DTexture8>& texture) override {
        const HRESULT result = record_.Call("SetTexture", [&] {
            const auto* const named = dynamic_cast<const NamedTexture*>(texture.get());
            return Numbers({stage}) + " " + (named == nullptr ? "none" : named->Name());
        });
        if (!Failed(result)) {
            now_.texture = texture;
        }
        return result;
    }
    HRESULT BeginScene() override { return record_.Call("BeginScene"); }
    HRESULT EndScene() override { return record_.Call("EndScene"); }
    HRESULT Clear(std::uint32_t flags, std::uint32_t color) override {
        return record_.Call("Clear", [&] { return Numbers({flags, color}); });
    }
    HRESULT DrawPrimitiveUP(std::uint32_t primitiveType, std::uint32_t primitiveCount,
                            std::span<const Vertex> vertices, std::uint32_t stride) override {
        const HRESULT result = record_.Call("DrawPrimitiveUP", [&] {
            return Numbers({primitiveType, primitiveCount, stride});
        });
        if (!Failed(result) && vertices.size() == now_.corners.size()) {
            std::copy(vertices.begin(), vertices.end(), now_.corners.begin());
            record_.Keep(now_);
        }
        return result;
    }
    HRESULT GetBackBuffer(std::uint32_t backBuffer, std::uint32_t type,
                          std::shared_ptr<Direct3DSurface8>& surface) override {
        const HRESULT result = record_.Call("GetBackBuffer", [&] {
            return Numbers({backBuffer, type});
        });
        surface.reset();
        return record_.GivesNothing() || Failed(result)
                   ? result
                   : NullDevice::GetBackBuffer(backBuffer, type, surface);
    }
    HRESULT CreateImageSurface(std::uint32_t width, std::uint32_t height, std::uint32_t format,
                               std::shared_ptr<Direct3DSurface8>& surface) override {
        const auto words = [&] { return Numbers({width, height, format}); };
        return Make<RecordingSurface>(surface, "CreateImageSurface", words, "Image");
    }
    HRESULT CopyRects(Direct3DSurface8& source, const RECT& rectangle,
                      Direct3DSurface8& destination, const POINT& place) override {
        return record_.Call("CopyRects", [&] {
            return NameOf(source) + " " +
                   Numbers({rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}) +
                   " to " + NameOf(destination) + " " + Numbers({place.x, place.y});
        });
    }
    HRESULT Present() override { return record_.Call("Present"); }
    HRESULT TestCooperativeLevel() override { return record_.Call("TestCooperativeLevel"); }
    HRESULT Reset(const D3DPRESENT_PARAMETERS& parameters) override {
        return record_.Call("Reset", [&] { return Numbers(parameters); });
    }

private:
    void Remember(std::uint32_t state, std::uint32_t value) {
        switch (state) {
            case D3DRS_SRCBLEND: now_.source = value; break;
            case D3DRS_DESTBLEND: now_.destination = value; break;
            case D3DRS_ALPHABLENDENABLE: now_.blending = value != 0; break;
            case D3DRS_BLENDOP: now_.operation = value; break;
            default: break;
        }
    }

    DrawnQuad now_;  // of which the corners are those of the last quad
};

// The display mode that a RecordingMachine is in; its format is not the usual one, so that it is
// seen where it goes.
inline constexpr std::uint32_t kDisplayFormat = 23;

class RecordingDirect3D : public Recorded<Direct3D8> {
public:
    explicit RecordingDirect3D(Record& record) : Recorded(record, "Direct3D") {}

    HRESULT GetAdapterDisplayMode(std::uint32_t adapter, D3DDISPLAYMODE& mode) override {
        mode = {1024, 768, 75, kDisplayFormat};
        return record_.Call("GetAdapterDisplayMode", [&] { return Numbers({adapter}); });
    }
    HRESULT CreateDevice(std::uint32_t adapter, std::uint32_t deviceType, WindowHandle window,
                         std::uint32_t behaviorFlags, const D3DPRESENT_PARAMETERS& parameters,
                         std::unique_ptr<Direct3DDevice8>& device) override {
        return Make<RecordingDevice>(device, "CreateDevice", [&] {
            return Numbers(
                       {adapter, deviceType, static_cast<std::int64_t>(window), behaviorFlags}) +
                   " with " + Numbers(parameters);
        });
    }
};

class RecordingDirectX : public Recorded<DirectX8> {
public:
    explicit RecordingDirectX(Record& record) : Recorded(record, "DirectX") {}

    std::unique_ptr<Direct3D8> Direct3DCreate() override {
        std::unique_ptr<Direct3D8> made;
        static_cast<void>(Make<RecordingDirect3D>(made, "Direct3DCreate", NoWords));
        return made;
    }
};

class RecordingD3DX : public Recorded<D3DX8> {
public:
    explicit RecordingD3DX(Record& record) : Recorded(record, "D3DX") {}

    HRESULT CreateFont(Direct3DDevice8& /*device*/, const FontDescription& description,
                       std::unique_ptr<D3DXFont>& font) override {
        const auto words = [&] {
            return description.name + " " + std::to_string(description.size) +
                   (description.bold ? " bold" : "") + (description.italic ? " italic" : "");
        };
        return Make<Recorded<D3DXFont>>(font, "CreateFont", words, "Font");
    }
    HRESULT DrawText(D3DXFont& /*font*/, std::uint32_t color, std::string_view text,
                     const RECT& rectangle, std::uint32_t format) override {
        return record_.Call("DrawText", [&] {
            return std::string("'").append(text) + "' in " +
                   Numbers({rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}) +
                   ", color and format " + Numbers({color, format});
        });
    }
};

class RecordingMachine : public Direct3DMachine {
public:
    explicit RecordingMachine(Record& record) : record_(record) {}

    std::unique_ptr<DirectX8> CreateDirectX8() override {
        static_cast<void>(record_.Call("CreateDirectX8"));
        return record_.GivesNothing() ? nullptr : std::make_unique<RecordingDirectX>(record_);
    }
    std::unique_ptr<D3DX8> CreateD3DX8() override {
        static_cast<void>(record_.Call("CreateD3DX8"));
        return record_.GivesNothing() ? nullptr : std::make_unique<RecordingD3DX>(record_);
    }

private:
    Record& record_;
};

}  // namespace scenara::test
