// SPDX-License-Identifier: MIT
//
// LibPngPictures: PNG pictures by libpng.
//
// Every picture has its own libpng, nothing is shared, and nothing is written to standard error.
#pragma once

#include <memory>
#include <span>

#include "platform/PngPictures.h"

namespace scenara {

class LibPngPictures : public PngPictures {
public:
    [[nodiscard]] std::unique_ptr<PngPicture> Open(std::span<const std::byte> bytes,
                                                   PngWanted wanted) const override;
};

}  // namespace scenara
