// SPDX-License-Identifier: MIT
#include "stage/StageInfo.h"

#include <string_view>
#include <utility>

#include "base/Text.h"
#include "platform/LineReader.h"
#include "platform/TextFile.h"
#include "stage/KeyOffer.h"
#include "stage/SectionHeader.h"

namespace scenara {
namespace {

class Unsaid : public Messages {
public:
    void Show(const Message& /*message*/) override {}
};

}  // namespace

StageInfo StageInfoIn(std::string firstBytes) {
    StageInfo info;
    constexpr ViewOptions kWithAdditions;
    Unsaid unsaid;
    GivenKeys given;
    TextFile file(std::move(firstBytes));
    LineReader lines(file);
    bool isInfo = false;
    while (lines.Next()) {
        if (BeginsWithBracket(lines.Line())) {
            if (isInfo) {
                break;
            }
            isInfo = IsSectionHeader(lines.Line()) && SectionName(lines.Line()) == "info";
        } else if (isInfo) {
            const std::string_view said = lines.Line().substr(0, lines.Line().find(';'));
            const KeyLine key(said);
            KeyOffer line(key, said, lines.Number(), unsaid, kWithAdditions, &given);
            line.Text("name", info.name);
            line.Text("displayname", info.displayName);
            line.Text("author", info.author);
        }
    }
    for (std::string* const text : {&info.name, &info.displayName, &info.author}) {
        *text = Unquoted(*text);
    }
    return info;
}

}  // namespace scenara
