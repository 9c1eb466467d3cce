// SPDX-License-Identifier: MIT
#include "platform/soft/FontFile.h"

#include <memory>

#include <fontconfig/fontconfig.h>

namespace scenara::soft {
namespace {

template <auto kClose>
struct Closer {
    void operator()(auto* object) const { kClose(object); }
};
using Pattern = std::unique_ptr<FcPattern, Closer<&FcPatternDestroy>>;
using Configuration = std::unique_ptr<FcConfig, Closer<&FcConfigDestroy>>;

// The system's list of fonts. It is read once, and it is the program's own: what a toolkit has
// loaded for itself is left alone.
FcConfig* SystemFonts() {
    static const Configuration configuration(FcInitLoadConfigAndFonts());
    return configuration.get();
}

Pattern PatternOf(const FontDescription& description, FcConfig* configuration) {
    Pattern pattern(FcPatternBuild(
        nullptr, FC_FAMILY, FcTypeString,
        reinterpret_cast<const FcChar8*>(description.name.c_str()), FC_WEIGHT, FcTypeInteger,
        description.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR, FC_SLANT, FcTypeInteger,
        description.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN, FC_SCALABLE, FcTypeBool, FcTrue,
        nullptr));
    if (!pattern || FcConfigSubstitute(configuration, pattern.get(), FcMatchPattern) == FcFalse) {
        return nullptr;
    }
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

}  // namespace

std::optional<FontFile> FindFontFile(const FontDescription& description) {
    FcConfig* const configuration = SystemFonts();
    if (configuration == nullptr) {
        return std::nullopt;
    }
    const Pattern wanted = PatternOf(description, configuration);
    if (!wanted) {
        return std::nullopt;
    }
    FcResult result = FcResultNoMatch;
    const Pattern match(FcFontMatch(configuration, wanted.get(), &result));
    FcChar8* path = nullptr;
    int index = 0;
    if (!match || result != FcResultMatch ||
        FcPatternGetString(match.get(), FC_FILE, 0, &path) != FcResultMatch ||
        FcPatternGetInteger(match.get(), FC_INDEX, 0, &index) != FcResultMatch) {
        return std::nullopt;
    }
    return FontFile{reinterpret_cast<const char*>(path), index};
}

}  // namespace scenara::soft
