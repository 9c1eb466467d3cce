// SPDX-License-Identifier: MIT
//
// Configuration: the program's settings in QX.CFG, in the program's own folder.
//
// One line a setting, "Key = value", ended by CR LF. The file is read at start-up and written whole
// when the program ends (and, with additions, after changes: Saving.cpp), in one step: whatever
// stops the machine, the old settings or the new ones are there. What is written reads back as it
// was, whatever a path holds (ConfigurationLine.h). Unknown lines are passed over, and not kept.
#pragma once

#include <functional>
#include <string>

#include "base/Integers.h"
#include "platform/Dialogs.h"
#include "platform/Files.h"
#include "platform/Form.h"
#include "platform/Messages.h"

namespace scenara {

inline constexpr MessageKind kMessageFirstStart = "first-start";

// The settings where the program keeps them; all outlive the call. Of the form: the checked states
// and captions of the menus, and the recent files.
struct Settings {
    std::string& MugeDir;
    Single& HCamStep;
    Single& VCamStep;
    std::string& TestChar;  // the character's definition; empty: none
    std::string& CharName;
    Byte& ShowStageList;
    Form& form;
};

struct LoadConfigContext {
    Files& files;
    Messages& messages;
    Dialogs& dialogs;
    // The Char command, run where the file turns the test character on: the lines before that one
    // are in force then, those behind it not yet. If it lets messages through, nothing may be saved
    // until LoadConfig has returned.
    std::function<void()> mnuChar_Click;
    // The program is to end: a question that nobody will answer is not asked again.
    std::function<bool()> ended;
};

// What a user is told before the first question for the engine folder.
void SayFirstStart(Messages& messages);

// Whether there are settings to be read. A file of no bytes holds none. Raises what opening raises.
[[nodiscard]] bool HasConfiguration(Files& files);

// Reads the settings; those that the file does not give stay as they are. The engine folder gets
// the separator at its end that it lacks, for its subfolders' names are put right after it. Without
// a file it asks for the engine folder until one is chosen. False when the program was asked to end
// before that: there are no settings then, and none to be saved.
//
// A file of the old form (its first line begins with ".3") holds the engine folder in its second
// line and nothing else. Raises what opening and reading raise, "Input past end of file" for a file
// that ends before its first line or, in the old form, before its second.
bool LoadConfig(const Settings& settings, const LoadConfigContext& context);

// Makes `text` what the file would be if the settings were written now. It asks for no memory where
// `text` has held as much before.
//
// Deliberate: the Deform line holds the checked state of the Char item, so that after an exit the
// Deform setting follows the test character (SaveConfig.DeformFollowsTheTestCharacter).
void MakeConfigText(const Settings& settings, const std::string& VersionText, std::string& text);

// Writes such a text. Raises what writing raises; the old file is as it was then.
void WriteConfigText(Files& files, const std::string& text);

}  // namespace scenara
