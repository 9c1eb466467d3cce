// SPDX-License-Identifier: MIT
#include "render/DeviceQuads.h"

#include <algorithm>

#include "render/Require.h"

namespace scenara::bench {
namespace {

D3DPRESENT_PARAMETERS ParametersFor(const CanvasSize& canvas) {
    D3DPRESENT_PARAMETERS parameters;
    parameters.BackBufferWidth = static_cast<std::uint32_t>(canvas.width);
    parameters.BackBufferHeight = static_cast<std::uint32_t>(canvas.height);
    return parameters;
}

std::shared_ptr<Direct3DTexture8> TextureOf(const ScenePicture& picture, SoftDevice& device) {
    TextureParameters parameters;
    parameters.width = picture.width;
    parameters.height = picture.height;
    std::shared_ptr<Direct3DTexture8> texture = device.CreateTexture(parameters);
    const LockedPixels locked = texture->LockRect();
    for (int y = 0; y < picture.height; ++y) {
        const auto line = static_cast<std::size_t>(y) * static_cast<std::size_t>(locked.pitch);
        std::ranges::copy(picture.Line(y), locked.words.subspan(line).begin());
    }
    texture->UnlockRect();
    if (picture.masked) {
        texture->PreLoad();
    }
    return texture;
}

Vertex CornerAt(int x, int y, float tu, float tv) {
    return {static_cast<float>(x), static_cast<float>(y), 0, 1, 0xFFFFFFFF, 0, tu, tv};
}

}  // namespace

DeviceQuads::DeviceQuads(const Scene& scene, std::int32_t threads)
    : device_(std::make_shared<TextureMemory>(), nullptr, ParametersFor(scene.canvas), threads) {
    std::vector<std::shared_ptr<Direct3DTexture8>> textures;
    for (const ScenePicture& picture : scene.pictures) {
        textures.push_back(TextureOf(picture, device_));
    }
    for (const Blit& blit : scene.blits) {
        const ScenePicture& picture = scene.pictures[blit.picture];
        const int right = blit.x + (blit.width == 0 ? picture.width : blit.width);
        const int bottom = blit.y + (blit.height == 0 ? picture.height : blit.height);
        quads_.push_back({textures[blit.picture],
                          picture.masked,
                          {CornerAt(blit.x, bottom, 0, 1), CornerAt(blit.x, blit.y, 0, 0),
                           CornerAt(right, bottom, 1, 1), CornerAt(right, blit.y, 1, 0)}});
    }
    Require(device_.SetVertexShader(kVertexFormat), "SetVertexShader");
    Require(device_.SetRenderState(D3DRS_SRCBLEND, D3DBLEND_SRCALPHA), "SetRenderState");
    Require(device_.SetRenderState(D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA), "SetRenderState");
    const std::uint32_t filter = scene.smooth ? D3DTEXF_LINEAR : D3DTEXF_POINT;
    for (const std::uint32_t type : {D3DTSS_MAGFILTER, D3DTSS_MINFILTER}) {
        Require(device_.SetTextureStageState(0, type, filter), "SetTextureStageState");
    }
    for (const std::uint32_t type : {D3DTSS_ADDRESSU, D3DTSS_ADDRESSV}) {
        Require(device_.SetTextureStageState(0, type, D3DTADDRESS_CLAMP), "SetTextureStageState");
    }
}

void DeviceQuads::Draw() {
    Require(device_.BeginScene(), "BeginScene");
    for (const Quad& quad : quads_) {
        Require(device_.SetTexture(0, quad.texture), "SetTexture");
        Require(device_.SetRenderState(D3DRS_ALPHABLENDENABLE, quad.masked ? 1 : 0),
                "SetRenderState");
        Require(device_.DrawPrimitiveUP(D3DPT_TRIANGLESTRIP, 2, quad.corners, sizeof(Vertex)),
                "DrawPrimitiveUP");
    }
    Require(device_.EndScene(), "EndScene");
}

std::vector<std::uint32_t> DeviceQuads::Picture() {
    const auto pixels = device_.BackBuffer();
    return {pixels.begin(), pixels.end()};
}

}  // namespace scenara::bench
