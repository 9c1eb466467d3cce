// SPDX-License-Identifier: MIT
#include "app/Extras.h"

#include <string>
#include <string_view>

#include "app/SettingsText.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr std::string_view kKey = "additions";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string ExtrasPath(Files& files) {
    return files.ProgramFolder() + "Scenara.ini";
}

bool IsOurs(std::string_view line) {
    return EqualsIgnoringCase(Trim(line.substr(0, line.find('='))), kKey) && Contains(line, "=");
}

// Takes the first line off the text; `end` receives its line end.
std::string_view TakeLine(std::string_view& text, std::string_view& end) {
    const std::size_t at = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, at);
    const std::string_view rest = text.substr(at);
    end = rest.substr(0, rest.starts_with(kCrLf) ? 2 : 1);
    text = rest.substr(end.size());
    return line;
}

bool AdditionsIn(std::string_view text) {
    bool additions = true;
    std::string_view end;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text, end);
        if (IsOurs(line)) {
            const std::string_view value = Trim(line.substr(line.find('=') + 1));
            additions = EqualsIgnoringCase(value, "true") ||
                        (additions && !EqualsIgnoringCase(value, "false"));
        }
    }
    return additions;
}

std::string WithAdditions(std::string_view text, bool additions) {
    const std::string ours = additions ? "Additions = True" : "Additions = False";
    std::string changed;
    std::string_view end = kCrLf;
    bool written = false;
    while (!text.empty()) {
        const std::string_view line = TakeLine(text, end);
        const bool replace = IsOurs(line);
        changed.append(replace ? ours : line).append(end);
        written = written || replace;
    }
    if (!written) {
        changed.append(end.empty() ? kCrLf : "").append(ours).append(kCrLf);
    }
    return changed;
}

}  // namespace

bool LoadAdditions(Files& files) {
    const std::string path = ExtrasPath(files);
    if (!files.FileExists(path)) {
        return true;
    }
    const std::string text = ReadSettingsText(files, path).text;
    return AdditionsIn(std::string_view(text).substr(text.starts_with(kByteOrderMark) ? 3 : 0));
}

void SaveAdditions(Files& files, bool additions) {
    const std::string path = ExtrasPath(files);
    SettingsText old;
    if (files.FileExists(path)) {
        old = ReadSettingsText(files, path);
    }
    if (!old.whole) {
        // Writing back the beginning would lose the rest.
        throw RunTimeError(RunTimeErrorKind::BadFormat, path);
    }
    std::string_view text = old.text;
    const std::size_t mark = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    text.remove_prefix(mark);
    if (AdditionsIn(text) != additions) {
        files.ReplaceFile(path, old.text.substr(0, mark) + WithAdditions(text, additions));
    }
}

}  // namespace scenara
