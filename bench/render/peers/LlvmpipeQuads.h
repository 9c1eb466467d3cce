// SPDX-License-Identifier: MIT
//
// A scene with OpenGL 3.3 on llvmpipe, the implementation that draws on the CPU: a texture per
// picture, all quads in one vertex buffer, a draw per quad; transparent pixels are discarded. It
// draws off-screen and on the calling thread alone, so that its CPU time can be compared.
#pragma once

#include <memory>

#include "render/Drawer.h"
#include "render/Scene.h"

namespace scenara::bench {

class LlvmpipeQuads : public Drawer {
public:
    // Raises std::runtime_error when there is no such implementation.
    explicit LlvmpipeQuads(const Scene& scene);
    ~LlvmpipeQuads() override;

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override;

private:
    class Context;

    void MakeTextures();
    void MakeQuads();

    const Scene& scene_;
    std::unique_ptr<Context> context_;  // whatever is made in it goes with it
    std::vector<unsigned> textures_;
    unsigned wholeProgram_ = 0;
    unsigned maskedProgram_ = 0;
};

}  // namespace scenara::bench
