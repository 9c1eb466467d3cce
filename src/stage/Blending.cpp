// SPDX-License-Identifier: MIT
#include "stage/Blending.h"

#include <algorithm>

#include "base/NumberText.h"

namespace scenara {
namespace {

constexpr Integer kWhole = 256;

Integer Share(double value) {
    return static_cast<Integer>(RoundToEven(std::clamp(value, 0.0, double{kWhole})));
}

}  // namespace

Blending ElementBlending(std::string_view trans, Integer alphaSource, Integer alphaDestination) {
    if (trans.starts_with("addalpha")) {
        return {BlendKind::AddAlpha, Share(alphaSource), Share(alphaDestination)};
    }
    if (trans.starts_with("add1")) {
        return {BlendKind::Add1};
    }
    if (trans.starts_with("add")) {
        return {BlendKind::Add};
    }
    if (trans.starts_with("sub")) {
        return {BlendKind::Sub};
    }
    return {};
}

Blending FrameBlending(std::string_view text) {
    if (text == "a") {
        return {BlendKind::Add};
    }
    if (text == "a1") {
        return {BlendKind::Add1};
    }
    if (text == "s") {
        return {BlendKind::Sub};
    }
    const std::size_t divide = text.find('d');
    if (!text.starts_with("as") || divide == std::string_view::npos) {
        return {};
    }
    const std::string_view source = text.substr(2, divide - 2);
    const std::string_view destination = text.substr(divide + 1);
    if (source.empty() || destination.empty()) {
        return {};
    }
    return {BlendKind::AddAlpha, Share(LeadingNumber(source)), Share(LeadingNumber(destination))};
}

}  // namespace scenara
