// SPDX-License-Identifier: MIT
#include "app/Configuration.h"

#include <set>
#include <utility>

#include "app/ConfigurationLine.h"
#include "app/MenuTree.h"
#include "app/RecentFiles.h"
#include "app/SettingsText.h"
#include "app/modBrowseForFolder.h"
#include "base/NumberText.h"
#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/LineReader.h"

namespace scenara {
namespace {

constexpr Byte kListShown = 255;

std::string ConfigurationPath(Files& files) {
    return files.ProgramFolder() + "QX.CFG";
}

// Of each kind of message the first alone: a damaged file could say the same on every line.
class OncePerKind : public Messages {
public:
    explicit OncePerKind(Messages& messages) : messages_(messages) {}

    void Show(const Message& message) override {
        if (said_.insert(message.kind).second) {
            messages_.Show(message);
        }
    }

private:
    Messages& messages_;
    std::set<MessageKind> said_;
};

bool AskForMugeDir(std::string& MugeDir, const LoadConfigContext& context) {
    context.messages.MsgBox(kMessageFirstStart,
                            "Browse to your MUGEN directory please so I know where to get stuff.  "
                            "I won't ask you for it again unless I forget.");
    std::string folder;
    while (folder.empty()) {
        if (context.ended()) {
            return false;
        }
        folder = modBrowseForFolder(
            context.dialogs, "Point me to your MUGEN Directory please:\r\nex. C:\\GAMES\\MUGEN");
    }
    MugeDir = folder + PathSeparator;
    return true;
}

void RequireLine(LineReader& lines, const std::string& path) {
    if (!lines.Next()) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd, path);
    }
}

void ReadFlag(ConfigurationLine& line, std::string_view key, MenuItem& item) {
    std::string value;
    if (line.Word(key, value)) {
        item.checked = value == "true";
    }
}

// Every setting is tried on every line, in this order.
void ReadLine(ConfigurationLine& line, const Settings& settings, const LoadConfigContext& context) {
    Form& form = settings.form;
    std::string value;
    if (line.Path("mugedir", value)) {
        settings.MugeDir = WithSeparator(value);
    }
    line.Number("hcamstep", settings.HCamStep);
    line.Number("vcamstep", settings.VCamStep);
    line.Path("testchar", settings.TestChar);
    if (line.Path("charname", settings.CharName) && !settings.CharName.empty() &&
        !settings.TestChar.empty()) {
        NameCharacter(form, settings.CharName);
    }
    ReadFlag(line, "bgmusic", form[Menu::mnuMusic]);
    ReadFlag(line, "info", form[Menu::mnuInfo]);
    if (line.Word("char", value) && value == "true") {
        context.mnuChar_Click();
    }
    ReadFlag(line, "deform", form[Menu::mnuDeform]);
    ReadFlag(line, "debugbg", form[Menu::mnuDebugBG]);
    if (line.Path("recentfile", value)) {
        AppendRecentFile(form, std::move(value));
    }
    if (line.Word("stagelist", value) && value == "255") {
        settings.ShowStageList = kListShown;
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
    void Path(std::string_view key, const std::string& path) {
        text_.append(key).append(" = ");
        AppendLineValue(path, text_);
        text_.append(kCrLf);
    }

private:
    std::string& text_;
};

}  // namespace

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
    OncePerKind messages(context.messages);
    do {
        ConfigurationLine line(lines.Line(), lines.Number(), messages);
        ReadLine(line, settings, context);
    } while (lines.Next());
    return true;
}

void MakeConfigText(const Settings& settings, const std::string& VersionText, std::string& text) {
    const Form& form = settings.form;
    ConfigurationText lines(text);
    lines.Line("Version", VersionText + "A");
    lines.Path("MugeDir", settings.MugeDir);
    if (!settings.TestChar.empty()) {
        lines.Path("TestChar", settings.TestChar);
    }
    lines.Line("HCamStep", NumberText(settings.HCamStep));
    lines.Line("VCamStep", NumberText(settings.VCamStep));
    lines.Flag("BGMusic", form[Menu::mnuMusic]);
    lines.Flag("Info", form[Menu::mnuInfo]);
    lines.Flag("Char", form[Menu::mnuChar]);
    lines.Flag("Deform", form[Menu::mnuChar]);
    lines.Flag("DebugBG", form[Menu::mnuDebugBG]);
    lines.Path("CharName", settings.CharName);
    lines.Line("StageList", NumberText(std::int32_t{settings.ShowStageList}));
    for (const std::string& recent : form.recentFiles) {
        lines.Path("RecentFile", recent);
    }
}

void WriteConfigText(Files& files, const std::string& text) {
    files.ReplaceFile(ConfigurationPath(files), text);
}

void SaveConfig(const Settings& settings, const std::string& VersionText, Files& files) {
    std::string text;
    MakeConfigText(settings, VersionText, text);
    WriteConfigText(files, text);
}

}  // namespace scenara
