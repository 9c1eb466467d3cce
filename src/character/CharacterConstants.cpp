// SPDX-License-Identifier: MIT
#include "character/CharacterConstants.h"

#include "base/NumberText.h"
#include "base/RunTimeError.h"
#include "character/CharacterMessages.h"
#include "character/CharacterText.h"
#include "platform/LineReader.h"

namespace scenara {
namespace {

struct ConstantKey {
    std::string_view name;
    Single CharacterConstants::*field;
};

constexpr std::string_view kLastKey = "walk.fwd";

constexpr ConstantKey kKeys[] = {
    {"xscale", &CharacterConstants::xScale},
    {"yscale", &CharacterConstants::yScale},
    {kLastKey, &CharacterConstants::walkSpeed},
};

}  // namespace

CharacterConstants ReadCharacterConstants(InputFile& file, Messages& messages) {
    CharacterConstants constants;
    CharacterLine line;
    LineReader lines(file);
    bool inSize = false;
    while (lines.Next()) {
        line.Assign(lines.Line());
        if (line.SaysNothing()) {
            continue;
        }
        if (!inSize) {
            inSize = line.Has("[size]");
            continue;
        }
        for (const ConstantKey& key : kKeys) {
            if (!line.Before(key.name)) {
                continue;
            }
            if (BeginsWithNumber(line.Value())) {
                try {
                    constants.*key.field = ToSingle(LeadingNumber(line.Value()));
                } catch (const RunTimeError&) {
                    messages.SayOverflow(kMessageCharacterOverflow, key.name, {lines.Number()});
                }
            }
            if (key.name == kLastKey) {
                return constants;
            }
        }
    }
    return constants;
}

}  // namespace scenara
