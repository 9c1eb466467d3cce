// SPDX-License-Identifier: MIT
#include "app/Configuration.h"

#include <utility>

#include "app/ConfigurationLine.h"
#include "app/MenuTree.h"
#include "app/MugenFolder.h"
#include "app/OncePerKind.h"
#include "app/RecentFiles.h"
#include "app/SettingsText.h"
#include "base/NumberText.h"
#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/LineReader.h"
#include "platform/TextFile.h"

namespace scenara {
namespace {

constexpr Byte kListShown = 255;

std::string ConfigurationPath(Files& files) {
    return files.ProgramFolder() + "QX.CFG";
}

// The folder that the user chooses; empty when the user cancels. A zero byte ends it.
std::string modBrowseForFolder(Dialogs& dialogs, const std::string& prompt) {
    const std::string folder = dialogs.BrowseForFolder(prompt, {});
    return folder.substr(0, folder.find('\0'));
}

bool AskForMugeDir(std::string& MugeDir, const LoadConfigContext& context) {
    SayFirstStart(context.messages);
    std::string folder;
    while (folder.empty()) {
        if (context.ended()) {
            return false;
        }
        folder = modBrowseForFolder(context.dialogs, kMugenFolderPrompt);
    }
    MugeDir = folder + PathSeparator;
    return true;
}

void RequireLine(LineReader& lines, const std::string& path) {
    if (!lines.Next()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd, path);
    }
}

class ConfigurationText {
public:
    explicit ConfigurationText(std::string& text) : text_(text) { text_.clear(); }

    void Line(std::string_view key, std::string_view value) {
        text_.append(key).append(" = ").append(value).append(kCrLf);
    }
    void Flag(std::string_view key, const MenuItem& item) {
        Line(key, item.checked ? "True" : "False");
    }
    void Number(std::string_view key, Single number) { Line(key, NumberText(number)); }
    void Path(std::string_view key, const std::string& path) {
        text_.append(key).append(" = ");
        AppendLineValue(path, text_);
        text_.append(kCrLf);
    }

private:
    std::string& text_;
};

using Line = ConfigurationLine;
using Text = ConfigurationText;

struct Setting {
    std::string_view name;  // as it is written
    std::string_view key;   // as it is looked for on a line, in lower case
    void (*read)(Line& line, std::string_view key, const Settings& settings);
    void (*write)(Text& text, std::string_view name, const Settings& settings);
};

template <Menu kItem>
void ReadFlag(Line& line, std::string_view key, const Settings& settings) {
    std::string value;
    if (line.Word(key, value)) {
        settings.form[kItem].checked = value == "true";
    }
}

template <Menu kItem>
void WriteFlag(Text& text, std::string_view name, const Settings& settings) {
    text.Flag(name, settings.form[kItem]);
}

void ReadMugeDir(Line& line, std::string_view key, const Settings& settings) {
    std::string path;
    if (line.Path(key, path)) {
        settings.MugeDir = WithSeparator(path);
    }
}

void ReadCharName(Line& line, std::string_view key, const Settings& settings) {
    if (line.Path(key, settings.CharName) && !settings.CharName.empty() &&
        !settings.TestChar.empty()) {
        NameCharacter(settings.form, settings.CharName);
    }
}

void ReadRecentFile(Line& line, std::string_view key, const Settings& settings) {
    std::string path;
    if (line.Path(key, path)) {
        AppendRecentFile(settings.form, std::move(path));
    }
}

void WriteRecentFiles(Text& text, std::string_view name, const Settings& settings) {
    for (const std::string& recent : settings.form.recentFiles) {
        text.Path(name, recent);
    }
}

void ReadStageList(Line& line, std::string_view key, const Settings& settings) {
    std::string value;
    if (line.Word(key, value) && value == "255") {
        settings.ShowStageList = kListShown;
    }
}

constexpr std::string_view kUseCharacter = "char";

// In the order in which they are written.
constexpr Setting kSettings[] = {
    {"MugeDir", "mugedir", ReadMugeDir,
     [](Text& text, std::string_view name, const Settings& s) { text.Path(name, s.MugeDir); }},
    {"TestChar", "testchar",
     [](Line& line, std::string_view key, const Settings& s) { line.Path(key, s.TestChar); },
     [](Text& text, std::string_view name, const Settings& s) {
         if (!s.TestChar.empty()) {
             text.Path(name, s.TestChar);
         }
     }},
    {"HCamStep", "hcamstep",
     [](Line& line, std::string_view key, const Settings& s) { line.Number(key, s.HCamStep); },
     [](Text& text, std::string_view name, const Settings& s) { text.Number(name, s.HCamStep); }},
    {"VCamStep", "vcamstep",
     [](Line& line, std::string_view key, const Settings& s) { line.Number(key, s.VCamStep); },
     [](Text& text, std::string_view name, const Settings& s) { text.Number(name, s.VCamStep); }},
    {"BGMusic", "bgmusic", ReadFlag<Menu::mnuMusic>, WriteFlag<Menu::mnuMusic>},
    {"Info", "info", ReadFlag<Menu::mnuInfo>, WriteFlag<Menu::mnuInfo>},
    // Read as a command, after all others of its line.
    {"Char", kUseCharacter, nullptr, WriteFlag<Menu::mnuChar>},
    {"Deform", "deform", ReadFlag<Menu::mnuDeform>, WriteFlag<Menu::mnuChar>},
    {"DebugBG", "debugbg", ReadFlag<Menu::mnuDebugBG>, WriteFlag<Menu::mnuDebugBG>},
    {"CharName", "charname", ReadCharName,
     [](Text& text, std::string_view name, const Settings& s) { text.Path(name, s.CharName); }},
    {"StageList", "stagelist", ReadStageList,
     [](Text& text, std::string_view name, const Settings& s) {
         text.Line(name, NumberText(std::int32_t{s.ShowStageList}));
     }},
    {"RecentFile", "recentfile", ReadRecentFile, WriteRecentFiles},
};

// Every setting is tried on every line.
void ReadLine(Line& line, const Settings& settings, const LoadConfigContext& context) {
    for (const Setting& setting : kSettings) {
        if (setting.read != nullptr) {
            setting.read(line, setting.key, settings);
        }
    }
    std::string value;
    if (line.Word(kUseCharacter, value) && value == "true") {
        context.mnuChar_Click();
    }
}

}  // namespace

void SayFirstStart(Messages& messages) {
    messages.MsgBox(kMessageFirstStart,
                    "Browse to your MUGEN directory please so I know where to get stuff.  "
                    "I won't ask you for it again unless I forget.");
}

bool HasConfiguration(Files& files) {
    const std::string path = ConfigurationPath(files);
    return files.FileExists(path) && files.OpenForReading(path)->Size() != 0;
}

bool LoadConfig(const Settings& settings, const LoadConfigContext& context) {
    // Whatever emptied it, there is nothing to lose in a file of no bytes; an error would come back
    // at every start.
    if (!HasConfiguration(context.files)) {
        return AskForMugeDir(settings.MugeDir, context);
    }
    const std::string path = ConfigurationPath(context.files);
    TextFile file(ReadSettingsText(context.files, path).text);
    LineReader lines(file);
    RequireLine(lines, path);
    if (lines.Line().starts_with(".3")) {
        RequireLine(lines, path);
        settings.MugeDir = WithSeparator(lines.Line());
        return true;
    }
    OncePerKind once(context.messages);
    MessagesOfFile messages(once, path);
    do {
        messages.AtLine(lines.Number());
        ConfigurationLine line(lines.Line(), lines.Number(), messages);
        ReadLine(line, settings, context);
    } while (lines.Next());
    return true;
}

void MakeConfigText(const Settings& settings, const std::string& VersionText, std::string& text) {
    ConfigurationText lines(text);
    lines.Line("Version", VersionText + "A");
    for (const Setting& setting : kSettings) {
        setting.write(lines, setting.name, settings);
    }
}

void WriteConfigText(Files& files, const std::string& text) {
    files.ReplaceFile(ConfigurationPath(files), text);
}

}  // namespace scenara
