// SPDX-License-Identifier: MIT
//
// DefinitionReader: the lines of a stage definition, one by one, into a stage model.
//
// A section lasts until the next header. Lines before the first header are taken as settings. What
// cannot be stored (an element of type "null", a control without its group, a record beyond the
// 32,767 that a table holds) is read into a record that nobody keeps, after one message.
#pragma once

#include <cstdint>
#include <set>
#include <string>
#include <string_view>

#include "base/NotCopied.h"
#include "platform/Messages.h"
#include "stage/KeyOffer.h"
#include "stage/NewerKeys.h"
#include "stage/ReadKeyValue.h"
#include "stage/RecordSlot.h"
#include "stage/SectionHeader.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr MessageKind kMessageNullElement{"null-element"};
inline constexpr MessageKind kMessageUnknownType{"unknown-type", Severity::Warning};
inline constexpr MessageKind kMessageLoneControl{"lone-control", Severity::Warning};

class DefinitionReader : NotCopied {
public:
    // All outlive it; the model is empty.
    DefinitionReader(StageModel& model, Messages& messages, const ViewOptions& options)
        : model_(model), messages_(messages), options_(options) {}

    // One line as it stands in the file, and its number for messages.
    void ReadLine(std::string_view line, std::int64_t number);

    // To be called after the last line.
    void Finish();

    // The sprite archive's name, as the definition gives it.
    [[nodiscard]] const std::string& Spr() const { return spr_; }

private:
    void StartSection(std::string_view header);
    void StartElement(std::string_view header);
    void CloseElement();
    void StartAction(std::string_view header);
    void StartCtrl();
    [[nodiscard]] GivenKeys* Given();
    void ReadElementLine(KeyOffer& offer);
    void ReadActionLine(KeyOffer& offer);
    void ReadSettingLine(KeyOffer& offer);

    // Says once per table that it is full.
    enum class Table { Elements, Actions, Frames, CtrlDefs, Controls };
    void SayFull(Table table, std::string_view what);

    StageModel& model_;
    Messages& messages_;
    const ViewOptions& options_;
    std::string spr_;

    std::string cleaned_;  // the line without comment and tabs
    KeyLine keyLine_{std::string_view()};
    std::int64_t lineNumber_ = 0;
    SectionKind section_ = SectionKind::Settings;
    std::string sectionName_;  // in lower case
    GivenKeys givenSettings_;  // in the whole file
    GivenKeys given_;          // in the section, where it is not one of settings
    NewerKeys newer_;

    RecordSlot<BackgroundElement> element_;
    std::int64_t elementLine_ = 0;  // of its header
    RecordSlot<StageAction> action_;
    RecordSlot<StageFrame> frame_;
    RecordSlot<BgCtrlDef> ctrlDef_;
    RecordSlot<BgCtrl> ctrl_;
    Integer lastFrame_ = -1;  // of the action being read
    Byte interpolated_ = 0;   // by lines before the next frame
    bool saidLoneControl_ = false;
    std::set<Table> full_;  // the tables that SayFull has spoken of
};

}  // namespace scenara
