// SPDX-License-Identifier: MIT
#include "platform/soft/Strips.h"

#include "platform/soft/ScaledQuads.h"
#include "platform/soft/Triangles.h"
#include "platform/soft/TurnedQuads.h"
#include "platform/soft/WholeQuads.h"

namespace scenara::soft {

void DrawFastest(const Target& target, const PixelStates& states, const SoftTexture* texture,
                 std::span<const Vertex> corners) {
    if (texture == nullptr) {
        DrawStrip(target, states, nullptr, corners);
        return;
    }
    const Texels texels = texture->Pixels();
    const Coverage& coverage = texture->PixelCoverage();
    if (!DrawWholeQuad(target, states, texels, coverage, corners) &&
        !DrawScaledQuad(target, states, texels, coverage, corners) &&
        !DrawTurnedQuad(target, states, texels, coverage, corners)) {
        DrawStrip(target, states, &texels, corners);
    }
}

}  // namespace scenara::soft
