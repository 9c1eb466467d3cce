// SPDX-License-Identifier: MIT
//
// ViewOptions: how stages are read and shown, as the user wants it.
#pragma once

namespace scenara {

struct ViewOptions {
    // With additions stages are read and drawn as their authors meant them. Without, plainly: just
    // the keys and drawing steps that have always been there.
    bool Additions = true;
};

}  // namespace scenara
