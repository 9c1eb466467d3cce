// SPDX-License-Identifier: MIT
#include "scenara-shot/KeyScript.h"

#include <algorithm>
#include <optional>
#include <stdexcept>
#include <string>

#include "scenara-shot/Count.h"

namespace scenara {
namespace {

// Takes what stands before the first `mark`, and the mark, off `text`; all of it if there is none.
std::string_view TakeUpTo(char mark, std::string_view& text) {
    const std::size_t at = text.find(mark);
    const std::string_view taken = text.substr(0, at);
    text.remove_prefix(at == std::string_view::npos ? text.size() : at + 1);
    return taken;
}

[[noreturn]] void Reject(std::string_view what, std::string_view why) {
    throw std::invalid_argument("key script: \"" + std::string(what) + "\" " + std::string(why));
}

struct NamedKey {
    std::string_view name;
    VirtualKey key;
};

constexpr NamedKey kNamedKeys[] = {
    {"left", VirtualKey::Left}, {"right", VirtualKey::Right}, {"up", VirtualKey::Up},
    {"down", VirtualKey::Down}, {"a", VirtualKey::A},         {"z", VirtualKey::Z},
};

std::optional<VirtualKey> KeyNamed(std::string_view name) {
    for (const NamedKey& named : kNamedKeys) {
        if (named.name == name) {
            return named.key;
        }
    }
    return std::nullopt;
}

KeySet ParseKeys(std::string_view names) {
    KeySet keys;
    if (names == "none") {
        return keys;
    }
    std::string_view rest = names;
    // A "+" at the end is followed by a key without a name.
    for (bool more = true; more;) {
        more = rest.find('+') != std::string_view::npos;
        const std::string_view name = TakeUpTo('+', rest);
        const auto key = KeyNamed(name);
        if (name == "none") {
            Reject(names, "is not possible: none stands alone");
        }
        if (!key) {
            Reject(name, "is none of left, right, up, down, a, z and none");
        }
        keys.Add(*key);
    }
    return keys;
}

}  // namespace

KeyScript::KeyScript(std::string_view text) {
    std::int64_t lastFrame = 0;
    for (bool more = true; more;) {
        more = text.find(',') != std::string_view::npos;
        const std::string_view step = TakeUpTo(',', text);
        if (step.find(':') == std::string_view::npos) {
            Reject(step, "is not keys and a number of frames, such as right+up:30");
        }
        std::string_view count = step;
        const KeySet keys = ParseKeys(TakeUpTo(':', count));
        const auto frames = ParseCount(count);
        if (!frames) {
            Reject(step, "needs a number of frames from 1 to 2147483647 behind the colon");
        }
        lastFrame += *frames;
        steps_.push_back({lastFrame, keys});
    }
}

KeySet KeyScript::KeysOfFrame(std::int64_t frame) const {
    const auto step = std::lower_bound(
        steps_.begin(), steps_.end(), frame,
        [](const Step& candidate, std::int64_t wanted) { return candidate.lastFrame < wanted; });
    return frame < 1 || step == steps_.end() ? KeySet() : step->keys;
}

}  // namespace scenara
