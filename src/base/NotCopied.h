// SPDX-License-Identifier: MIT
//
// NotCopied: the base of what is handed about by reference, or owns what must not be owned twice.
#pragma once

namespace scenara {

class NotCopied {
public:
    NotCopied(const NotCopied&) = delete;
    NotCopied& operator=(const NotCopied&) = delete;

protected:
    NotCopied() = default;
    ~NotCopied() = default;
};

}  // namespace scenara
