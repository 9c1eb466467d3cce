// SPDX-License-Identifier: MIT
#include "platform/headless/HeadlessKeyboard.h"

#include <algorithm>
#include <array>

namespace scenara {
namespace {

struct NamedKey {
    std::string_view name;
    VirtualKey key;
};

constexpr std::array kNamedKeys = {
    NamedKey{"left", VirtualKey::Left}, NamedKey{"right", VirtualKey::Right},
    NamedKey{"up", VirtualKey::Up},     NamedKey{"down", VirtualKey::Down},
    NamedKey{"a", VirtualKey::A},       NamedKey{"z", VirtualKey::Z},
};

}  // namespace

std::optional<VirtualKey> KeyNamed(std::string_view name) {
    const auto* const found =
        std::find_if(kNamedKeys.begin(), kNamedKeys.end(),
                     [name](const NamedKey& named) { return named.name == name; });
    if (found == kNamedKeys.end()) {
        return std::nullopt;
    }
    return found->key;
}

}  // namespace scenara
