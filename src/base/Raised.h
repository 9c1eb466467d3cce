// SPDX-License-Identifier: MIT
//
// Raised: a flag that is up while something goes on, and down again however that ends.
#pragma once

#include "base/NotCopied.h"

namespace scenara {

class Raised : NotCopied {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    ~Raised() { flag_ = false; }

private:
    bool& flag_;
};

}  // namespace scenara
