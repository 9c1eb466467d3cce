// SPDX-License-Identifier: MIT
//
// Raised: a flag that is up while something goes on, and as it was before however that ends.
#pragma once

#include <utility>

#include "base/NotCopied.h"

namespace scenara {

class Raised : NotCopied {
public:
    explicit Raised(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~Raised() { flag_ = before_; }

private:
    bool& flag_;
    bool before_;
};

}  // namespace scenara
