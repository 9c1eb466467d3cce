// SPDX-License-Identifier: MIT
//
// Raised: a flag that is up while something goes on, and down again however that ends.
#pragma once

namespace scenara {

class Raised {
public:
    explicit Raised(bool& flag) : flag_(flag) { flag_ = true; }
    Raised(const Raised&) = delete;
    Raised& operator=(const Raised&) = delete;
    ~Raised() { flag_ = false; }

private:
    bool& flag_;
};

}  // namespace scenara
