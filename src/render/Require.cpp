// SPDX-License-Identifier: MIT
#include "render/Require.h"

#include <cstdint>
#include <string>

#include "base/NumberText.h"
#include "base/RunTimeError.h"

namespace scenara {

void Require(HRESULT result, std::string_view call) {
    if (Failed(result)) {
        throw RunTimeError(
            RunTimeErrorKind::Direct3D,
            std::string(call) + ", 0x" + Hexadecimal(static_cast<std::uint32_t>(result)));
    }
}

}  // namespace scenara
