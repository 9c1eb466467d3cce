// SPDX-License-Identifier: MIT
//
// A scene with the surfaces of SDL2: all in the screen's format, those that are masked with a
// colour key, plain or run-length encoded.
//
// Those that are added have neither: their transparent pixels are black, which the library adds
// faster than it multiplies with an alpha or looks for a key. Soft ones have an alpha and are
// blended by it.
#pragma once

#include <memory>

#include "render/Drawer.h"
#include "render/Scene.h"

struct SDL_Surface;

namespace scenara::bench {

enum class SdlEncoding { Plain, RunLengths };

class SdlSurfaces : public Drawer {
public:
    // Raises std::runtime_error when the library refuses something, the encoding included.
    SdlSurfaces(const Scene& scene, SdlEncoding encoding);

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override;

private:
    struct Free {
        void operator()(SDL_Surface* surface) const;
    };
    using Surface = std::unique_ptr<SDL_Surface, Free>;

    static Surface MakeSurface(int width, int height);
    static Surface MakeSurface(const ScenePicture& picture, std::uint32_t transparent);
    static Surface MakeSoftSurface(const ScenePicture& picture);
    void Mask(SDL_Surface& surface, std::uint32_t key, SdlEncoding encoding);

    const Scene& scene_;
    Surface screen_;
    std::vector<Surface> surfaces_;
};

class SdlColorKey : public SdlSurfaces {
public:
    explicit SdlColorKey(const Scene& scene) : SdlSurfaces(scene, SdlEncoding::Plain) {}
};

class SdlRunLengths : public SdlSurfaces {
public:
    explicit SdlRunLengths(const Scene& scene) : SdlSurfaces(scene, SdlEncoding::RunLengths) {}
};

}  // namespace scenara::bench
