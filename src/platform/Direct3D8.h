// SPDX-License-Identifier: MIT
//
// Direct3D 8 as the program sees it: an abstract device with exactly the operations that the
// program needs, under their Direct3D names and numeric values.
//
// Textures: 32-bit ARGB pixels, alpha in the top byte. A picture is written straight into the
// locked texture; the colour key has been applied by then (a keyed pixel has alpha 0 and keeps its
// colour), so a device only stores what it is given.
#pragma once

#include <cstdint>
#include <memory>
#include <span>

namespace scenara {

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
};

// A locked texture: line y starts at word y * pitch; what lies behind `width` in a line, and
// behind the last line, belongs to nobody.
struct LockedPixels {
    std::span<std::uint32_t> words;
    std::int32_t pitch = 0;  // in pixels, at least the width
};

class Direct3DTexture8 {
public:
    Direct3DTexture8() = default;
    Direct3DTexture8(const Direct3DTexture8&) = delete;
    Direct3DTexture8& operator=(const Direct3DTexture8&) = delete;
    virtual ~Direct3DTexture8() = default;

    [[nodiscard]] virtual std::int32_t Width() const = 0;
    [[nodiscard]] virtual std::int32_t Height() const = 0;

    virtual LockedPixels LockRect() = 0;
    virtual void UnlockRect() = 0;
};

class Direct3DDevice8 {
public:
    Direct3DDevice8() = default;
    Direct3DDevice8(const Direct3DDevice8&) = delete;
    Direct3DDevice8& operator=(const Direct3DDevice8&) = delete;
    virtual ~Direct3DDevice8() = default;

    // Pixels are undefined until written. Raises RunTimeError "Out of memory" when the machine has
    // not that much. A texture may outlive the device.
    [[nodiscard]] virtual std::shared_ptr<Direct3DTexture8> CreateTexture(
        const TextureParameters& parameters) = 0;
};

}  // namespace scenara
