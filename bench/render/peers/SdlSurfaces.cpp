// SPDX-License-Identifier: MIT
#include "render/peers/SdlSurfaces.h"

#include <algorithm>
#include <stdexcept>

#include <SDL2/SDL.h>

namespace scenara::bench {
namespace {

constexpr std::uint32_t kColorMask = 0x00FFFFFF;

void Check(int result) {
    if (result != 0) {
        throw std::runtime_error(SDL_GetError());
    }
}

std::uint32_t* LineOf(SDL_Surface& surface, int y) {
    return reinterpret_cast<std::uint32_t*>(static_cast<std::byte*>(surface.pixels) +
                                            static_cast<std::ptrdiff_t>(y) * surface.pitch);
}

// The library tells transparent pixels by their colour, so it must be one that nothing else has.
std::uint32_t UnusedColor(const Scene& scene) {
    std::vector<bool> used(kColorMask + 1);
    for (const ScenePicture& picture : scene.pictures) {
        for (const std::uint32_t pixel : picture.pixels) {
            if (pixel >> 24U != 0) {
                used[pixel & kColorMask] = true;
            }
        }
    }
    const auto free = std::find(used.begin(), used.end(), false);
    if (free == used.end()) {
        throw std::runtime_error("no colour is left for the key");
    }
    return static_cast<std::uint32_t>(free - used.begin());
}

}  // namespace

void SdlSurfaces::Free::operator()(SDL_Surface* surface) const {
    SDL_FreeSurface(surface);
}

SdlSurfaces::SdlSurfaces(const Scene& scene, SdlEncoding encoding)
    : scene_(scene), screen_(MakeSurface(scene.canvas.width, scene.canvas.height)) {
    const std::uint32_t key = UnusedColor(scene);
    for (const ScenePicture& picture : scene.pictures) {
        if (picture.soft) {
            SDL_Surface& surface = *surfaces_.emplace_back(MakeSoftSurface(picture));
            Check(SDL_SetSurfaceBlendMode(&surface, SDL_BLENDMODE_BLEND));
            continue;
        }
        const bool added = picture.blending.kind == BlendKind::Add;
        SDL_Surface& surface = *surfaces_.emplace_back(MakeSurface(picture, added ? 0 : key));
        if (added) {
            Check(SDL_SetSurfaceBlendMode(&surface, SDL_BLENDMODE_ADD));
        } else if (picture.masked) {
            Mask(surface, key, encoding);
        }
    }
    Check(SDL_FillRect(screen_.get(), nullptr, 0));
}

SdlSurfaces::Surface SdlSurfaces::MakeSurface(int width, int height) {
    Surface surface(SDL_CreateRGBSurfaceWithFormat(0, width, height, 32, SDL_PIXELFORMAT_XRGB8888));
    if (!surface) {
        throw std::runtime_error(SDL_GetError());
    }
    return surface;
}

SdlSurfaces::Surface SdlSurfaces::MakeSurface(const ScenePicture& picture,
                                              std::uint32_t transparent) {
    Surface surface = MakeSurface(picture.width, picture.height);
    for (int y = 0; y < picture.height; ++y) {
        std::ranges::transform(picture.Line(y), LineOf(*surface, y), [&](std::uint32_t pixel) {
            return picture.masked && pixel >> 24U == 0 ? transparent : pixel & kColorMask;
        });
    }
    return surface;
}

SdlSurfaces::Surface SdlSurfaces::MakeSoftSurface(const ScenePicture& picture) {
    Surface surface(SDL_CreateRGBSurfaceWithFormat(0, picture.width, picture.height, 32,
                                                   SDL_PIXELFORMAT_ARGB8888));
    if (!surface) {
        throw std::runtime_error(SDL_GetError());
    }
    for (int y = 0; y < picture.height; ++y) {
        std::ranges::copy(picture.Line(y), LineOf(*surface, y));
    }
    return surface;
}

void SdlSurfaces::Mask(SDL_Surface& surface, std::uint32_t key, SdlEncoding encoding) {
    Check(SDL_SetColorKey(&surface, SDL_TRUE, key));
    if (encoding == SdlEncoding::RunLengths) {
        Check(SDL_SetSurfaceRLE(&surface, 1));
        // It is encoded at the first blit; from then on it has no plain pixels and must be locked.
        Check(SDL_BlitSurface(&surface, nullptr, screen_.get(), nullptr));
        if (!SDL_MUSTLOCK(&surface)) {
            throw std::runtime_error("a surface is not run-length encoded");
        }
    }
}

void SdlSurfaces::Draw() {
    for (const Blit& blit : scene_.blits) {
        SDL_Rect place = {blit.x, blit.y, blit.width, blit.height};
        SDL_Surface* const surface = surfaces_[blit.picture].get();
        Check(blit.width == 0 ? SDL_BlitSurface(surface, nullptr, screen_.get(), &place)
                              : SDL_BlitScaled(surface, nullptr, screen_.get(), &place));
    }
}

std::vector<std::uint32_t> SdlSurfaces::Picture() {
    std::vector<std::uint32_t> pixels;
    for (int y = 0; y < scene_.canvas.height; ++y) {
        const std::uint32_t* const line = LineOf(*screen_, y);
        pixels.insert(pixels.end(), line, line + scene_.canvas.width);
    }
    return pixels;
}

}  // namespace scenara::bench
