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
    line.Path("mugedir", settings.MugeDir);
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
    void Line(std::string_view key, std::string_view value) {
        text_.append(key).append(" = ").append(value).append(kCrLf);
    }
    void Flag(std::string_view key, const MenuItem& item) {
        Line(key, item.checked ? "True" : "False");
    }
    void Path(std::string_view key, const std::string& path) { Line(key, ToLineValue(path)); }

    [[nodiscard]] const std::string& Text() const { return text_; }

private:
    std::string text_;
};

}  // namespace

bool LoadConfig(const Settings& settings, const LoadConfigContext& context) {
    const std::string path = ConfigurationPath(context.files);
    // Whatever emptied it, there is nothing to lose in a file of no bytes; an error would come back
    // at every start.
    if (!context.files.FileExists(path) || context.files.OpenForReading(path)->Size() == 0) {
        return AskForMugeDir(settings.MugeDir, context);
    }
    TextFile file(ReadSettingsText(context.files, path).text);
    LineReader lines(file);
    RequireLine(lines, path);
    if (lines.Line().starts_with(".3")) {
        RequireLine(lines, path);
        settings.MugeDir = lines.Line();
        return true;
    }
    OncePerKind messages(context.messages);
    do {
        ConfigurationLine line(lines.Line(), lines.Number(), messages);
        ReadLine(line, settings, context);
    } while (lines.Next());
    return true;
}

void SaveConfig(const Settings& settings, const std::string& VersionText, Files& files) {
    const Form& form = settings.form;
    ConfigurationText text;
    text.Line("Version", VersionText + "A");
    text.Path("MugeDir", settings.MugeDir);
    if (!settings.TestChar.empty()) {
        text.Path("TestChar", settings.TestChar);
    }
    text.Line("HCamStep", NumberText(settings.HCamStep));
    text.Line("VCamStep", NumberText(settings.VCamStep));
    text.Flag("BGMusic", form[Menu::mnuMusic]);
    text.Flag("Info", form[Menu::mnuInfo]);
    text.Flag("Char", form[Menu::mnuChar]);
    text.Flag("Deform", form[Menu::mnuChar]);
    text.Flag("DebugBG", form[Menu::mnuDebugBG]);
    text.Path("CharName", settings.CharName);
    text.Line("StageList", NumberText(std::int32_t{settings.ShowStageList}));
    for (const std::string& recent : form.recentFiles) {
        text.Path("RecentFile", recent);
    }
    files.ReplaceFile(ConfigurationPath(files), text.Text());
}

}  // namespace scenara
