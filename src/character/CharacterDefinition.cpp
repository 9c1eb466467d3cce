// SPDX-License-Identifier: MIT
#include "character/CharacterDefinition.h"

#include "base/NumberText.h"
#include "base/Text.h"
#include "character/CharacterText.h"
#include "platform/LineReader.h"

namespace scenara {
namespace {

// Counted from 1; 0 when the character is not there.
std::size_t PlaceOf(std::string_view text, char c) {
    const std::size_t at = text.find(c);
    return at == std::string_view::npos ? 0 : at + 1;
}

// Between the quotes; where there are none, all that stands behind "=".
std::string DisplayNameOf(const CharacterLine& line) {
    const std::string_view text = line.WithoutComment();
    const std::size_t opening = text.find('"');
    if (opening == std::string_view::npos) {
        return std::string(line.Value());
    }
    const std::string_view behind = text.substr(opening + 1);
    const std::size_t closing = behind.find('"');
    return std::string(closing == std::string_view::npos ? TrimBlanks(behind)
                                                         : behind.substr(0, closing));
}

// 0 for one that no view has.
Long WidthIn(std::string_view localcoord) {
    constexpr double kLeast = 80;
    constexpr double kMost = 7680;
    const double width = RoundToEven(LeadingNumber(localcoord));
    return width >= kLeast && width <= kMost ? static_cast<Long>(width) : 0;
}

void Take(const std::optional<std::string>& value, std::string& name) {
    if (value) {
        name = *value;
    }
}

// Takes the lines of a definition, from its first one on.
class CharacterDefinitionReader {
public:
    // False: the [Files] section has ended, the rest of the file does not matter.
    [[nodiscard]] bool ReadLine(std::string_view untrimmed) {
        line_.Assign(untrimmed);
        const bool says = !line_.SaysNothing();
        if (says) {
            ReadNames();
        }
        if (!inFiles_) {
            inFiles_ = says && line_.Has("[files]");
            return true;
        }
        if (EndsFilesSection(untrimmed)) {
            return false;
        }
        if (says) {
            ReadFiles();
        }
        return true;
    }

    [[nodiscard]] const CharacterDefinition& Result() const { return result_; }

private:
    void ReadNames() {
        if (line_.Before("displayname")) {
            result_.displayName = DisplayNameOf(line_);
        }
        if (line_.Before("localcoord")) {
            result_.localcoordWidth = WidthIn(line_.Value());
        }
        if (line_.Has("pal.defaults")) {
            const std::string_view value = line_.Value();
            const std::string_view first = TrimBlanks(value.substr(0, value.find(',')));
            paletteKey_ = first.empty() ? std::string() : LowerCase("pal" + std::string(first));
        }
    }

    void ReadFiles() {
        // Deliberate: either word makes the line one of these two, so `sprite = anim.sff` is looked
        // at for both; without the right extension it gives nothing
        // (CharacterDefinition.EitherWordIsEnoughButTheExtensionGivesTheName).
        if (line_.Has("anim") || line_.Has(".air")) {
            Take(line_.ValueUpTo(".air"), result_.anim);
        }
        if (line_.Has("sprite") || line_.Has(".sff")) {
            Take(line_.ValueUpTo(".sff"), result_.sprite);
        }
        if (EqualsIgnoringCase(line_.Text().substr(0, 3), "cns")) {
            Take(line_.ValueUpTo(".cns"), result_.cns);
        }
        if (result_.palette.empty() && !paletteKey_.empty() && line_.Has(paletteKey_)) {
            Take(line_.ValueUpTo(".act"), result_.palette);
        }
    }

    CharacterDefinition result_;
    CharacterLine line_;
    std::string paletteKey_;  // "pal1" and the like; empty: none was chosen
    bool inFiles_ = false;
};

}  // namespace

bool EndsFilesSection(std::string_view untrimmed) {
    return (PlaceOf(untrimmed, '[') & PlaceOf(untrimmed, ']')) != 0 && !Contains(untrimmed, ";");
}

CharacterDefinition ReadCharacterDefinition(InputFile& file) {
    CharacterDefinitionReader reader;
    LineReader lines(file);
    while (lines.Next() && reader.ReadLine(lines.Line())) {
    }
    return reader.Result();
}

}  // namespace scenara
