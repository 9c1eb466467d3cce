// SPDX-License-Identifier: MIT
#include "stage/DefinitionReader.h"

#include <algorithm>
#include <utility>

#include "base/RunTimeError.h"
#include "base/Text.h"
#include "stage/KeyOffer.h"
#include "stage/StageKeys.h"

namespace scenara {
namespace {

// Addition: the blank of a Japanese text, two bytes, is two blanks where it stands around keys and
// values. Within a name it stays, and so does what only looks like it there.
void BlankFullWidth(std::string& line) {
    constexpr std::string_view kFullWidth = "\x81\x40";
    constexpr std::string_view kAround = "=,";
    for (std::size_t at = line.find(kFullWidth); at != std::string::npos;
         at = line.find(kFullWidth, at + 1)) {
        const std::size_t before = line.find_last_not_of(" \t", at == 0 ? 0 : at - 1);
        const bool first = at == 0 || before == std::string::npos;
        if (first || kAround.find(line[before]) != std::string_view::npos) {
            line.replace(at, kFullWidth.size(), "  ");
        }
    }
    for (std::size_t at = line.rfind(kFullWidth); at != std::string::npos;
         at = at == 0 ? std::string::npos : line.rfind(kFullWidth, at - 1)) {
        const std::size_t after = line.find_first_not_of(" \t", at + kFullWidth.size());
        if (after == std::string::npos || kAround.find(line[after]) != std::string_view::npos) {
            line.replace(at, kFullWidth.size(), "  ");
        }
    }
}

// Without the comment at its end and without tabs; empty when nothing is left to read.
void Clean(std::string_view line, bool additions, std::string& cleaned) {
    cleaned = line.substr(0, line.find(';'));
    if (additions) {
        BlankFullWidth(cleaned);
    }
    if (Trim(cleaned).empty()) {
        cleaned.clear();
    }
    std::erase(cleaned, '\t');
}

// Whether a line of an action is a frame: any with a comma. Addition: and with a number first, so
// that boxes ("Clsn2[0] = -10,-20,10,20") and settings are none.
bool IsFrame(std::string_view line, bool additions) {
    if (!additions) {
        return Contains(line, ",");
    }
    std::string_view text = Trim(line);
    text.remove_prefix(text.starts_with('-') ? 1 : 0);
    return !text.empty() && IsDigit(text.front()) && Contains(text, ",");
}

}  // namespace

void DefinitionReader::ReadLine(std::string_view line, std::int64_t number) {
    lineNumber_ = number;
    Clean(line, options_.Additions, cleaned_);
    if (cleaned_.empty()) {
        return;
    }
    if (IsSectionHeader(cleaned_) && (!options_.Additions || BeginsWithBracket(cleaned_))) {
        StartSection(cleaned_);
        return;
    }
    keyLine_.Assign(cleaned_);
    if (options_.Additions) {
        newer_.NoteLine(keyLine_.Lower(), number);
    }
    KeyOffer offer(keyLine_, line, lineNumber_, messages_, options_, Given());
    switch (section_) {
        case SectionKind::Element: ReadElementLine(offer); break;
        case SectionKind::Action: ReadActionLine(offer); break;
        case SectionKind::CtrlDef: ReadCtrlDefKeys(offer, ctrlDef_.Current()); break;
        case SectionKind::Ctrl: ReadCtrlKeys(offer, ctrl_.Current()); break;
        case SectionKind::Settings: ReadSettingLine(offer); break;
    }
}

void DefinitionReader::Finish() {
    CloseElement();
    if (options_.Additions) {
        newer_.Report(messages_);
    }
}

// Addition: where the first line of a key counts.
GivenKeys* DefinitionReader::Given() {
    if (!options_.Additions) {
        return nullptr;
    }
    return section_ == SectionKind::Settings ? &givenSettings_ : &given_;
}

void DefinitionReader::SayFull(Table table, std::string_view what) {
    if (full_.insert(table).second) {
        messages_.SayOverflow(kMessageOverflow, what, {lineNumber_});
    }
}

void DefinitionReader::StartSection(std::string_view header) {
    CloseElement();
    given_.Clear();
    section_ = options_.Additions ? KindByFirstWord(header) : KindOfSection(header);
    sectionName_ = SectionName(header);
    std::erase(sectionName_, ' ');
    if (options_.Additions) {
        newer_.NoteSection(section_, sectionName_, lineNumber_);
    }
    switch (section_) {
        case SectionKind::Element: StartElement(header); break;
        case SectionKind::Action: StartAction(header); break;
        case SectionKind::CtrlDef:
            if (!ctrlDef_.Append(model_.CtrlDefs, model_.CtrlDefCount)) {
                SayFull(Table::CtrlDefs, "BGCtrlDef");
            }
            break;
        case SectionKind::Ctrl: StartCtrl(); break;
        case SectionKind::Settings: break;
    }
}

void DefinitionReader::StartElement(std::string_view header) {
    if (!element_.Append(model_.Elements, model_.ElementCount)) {
        SayFull(Table::Elements, "BG");
    }
    element_.Current().name = ElementName(header);
    elementLine_ = lineNumber_;
}

// Addition: an element of no known kind is reported, once all of its section has been read.
void DefinitionReader::CloseElement() {
    if (section_ != SectionKind::Element || !options_.Additions || !element_.IsKept()) {
        return;
    }
    const std::string& type = element_.Current().type;
    if (IsKnownKind(type)) {
        return;
    }
    const std::string text = type.empty() ? "BG without a type" : "BG of unknown type " + type;
    messages_.MsgBox(kMessageUnknownType, text + ", line " + std::to_string(elementLine_),
                     {elementLine_});
}

void DefinitionReader::StartAction(std::string_view header) {
    if (!action_.Append(model_.Actions, model_.ActionCount)) {
        SayFull(Table::Actions, "Begin Action");
    }
    lastFrame_ = -1;
    interpolated_ = 0;
    try {
        action_.Current().actionNo = ToInteger(ActionNumber(header));
    } catch (const RunTimeError&) {
        messages_.SayOverflow(kMessageOverflow, "Begin Action", {lineNumber_});
    }
}

void DefinitionReader::StartCtrl() {
    BgCtrlDef& group = ctrlDef_.Current();
    if (!ctrlDef_.IsKept()) {
        if (model_.CtrlDefs.empty() && !saidLoneControl_) {
            saidLoneControl_ = true;
            messages_.MsgBox(kMessageLoneControl,
                             "BGCtrl without a BGCtrlDef, line " + std::to_string(lineNumber_),
                             {lineNumber_});
        }
        ctrl_.Discard();
    } else if (!ctrl_.Append(group.controls, group.controlCount)) {
        SayFull(Table::Controls, "BGCtrl");
    }
}

void DefinitionReader::ReadElementLine(KeyOffer& offer) {
    ReadElementKeys(offer, element_.Current(), messages_);
    if (element_.IsKept() && element_.Current().type == "null") {
        const std::string number = std::to_string(model_.ElementCount - 1);
        element_.Remove(model_.Elements, model_.ElementCount);
        messages_.MsgBox(kMessageNullElement, "NULL BG " + number, {lineNumber_});
    }
}

void DefinitionReader::ReadSettingLine(KeyOffer& offer) {
    ReadSettingKeys(offer, model_, spr_);
    if (options_.Additions) {
        ReadKeysOfSection(offer, model_, sectionName_);
    }
}

void DefinitionReader::ReadActionLine(KeyOffer& offer) {
    StageAction& action = action_.Current();
    if (Contains(keyLine_.Lower(), "loopstart")) {
        action.loopstart = static_cast<Integer>(lastFrame_ + 1);
    } else if (const Byte interpolated = InterpolatedBy(keyLine_.Lower());
               options_.Additions && interpolated != 0) {
        interpolated_ |= interpolated;
    } else if (IsFrame(cleaned_, options_.Additions)) {
        if (frame_.Append(action.frames, action.frameCount)) {
            ++lastFrame_;
        } else {
            SayFull(Table::Frames, "frames of an action");
        }
        ReadFrame(offer, frame_.Current(), messages_);
        frame_.Current().interpolated = std::exchange(interpolated_, Byte{0});
    }
}

}  // namespace scenara
