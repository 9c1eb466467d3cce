// SPDX-License-Identifier: MIT
#include "stage/Blending.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr Integer kWhole = 256;

Integer Share(double value) {
    return static_cast<Integer>(RoundToEven(std::clamp(value, 0.0, double{kWhole})));
}

}  // namespace

Blending ElementBlending(std::string_view trans, Integer alphaSource,
                         std::optional<Integer> alphaDestination) {
    const Integer source = Share(alphaSource);
    if (trans.starts_with("addalpha")) {
        return {BlendKind::AddAlpha, source, Share(alphaDestination.value_or(0))};
    }
    if (trans.starts_with("add1")) {
        return {BlendKind::Add1};
    }
    if (trans.starts_with("add")) {
        const Integer destination = Share(alphaDestination.value_or(kWhole));
        if (source == kWhole && destination == kWhole) {
            return {BlendKind::Add};
        }
        return {BlendKind::AddAlpha, source, destination};
    }
    if (trans.starts_with("sub")) {
        return {BlendKind::Sub};
    }
    return {};
}

bool FramesBlend(std::string_view trans, bool belowVersion1) {
    return trans.empty() || trans.starts_with("default") ||
           (belowVersion1 && trans.starts_with("none"));
}

Blending FrameBlending(std::string_view text) {
    if (text.starts_with("as") && text.size() > 2 && IsDigit(text[2])) {
        const std::size_t divide = text.find('d');
        const double destination =
            divide == std::string_view::npos ? 0 : LeadingNumber(text.substr(divide + 1));
        return {BlendKind::AddAlpha, Share(LeadingNumber(text.substr(2))), Share(destination)};
    }
    if (text.starts_with("a1") || text.starts_with("add1")) {
        return {BlendKind::Add1};
    }
    if (text.starts_with('a')) {
        return {BlendKind::Add};
    }
    if (text.starts_with('s')) {
        return {BlendKind::Sub};
    }
    return {};
}

}  // namespace scenara
