// SPDX-License-Identifier: MIT
#include "app/Extras.h"

#include <string>
#include <string_view>

#include "app/SettingsText.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/LineReader.h"

namespace scenara {
namespace {

struct Extra {
    std::string_view name;
    bool Extras::*value;
};

constexpr Extra kExtras[] = {
    {"Additions", &Extras::Additions},
    {"Smooth", &Extras::Smooth},
    {"WholeMultiplesOnly", &Extras::WholeMultiplesOnly},
    {"SwitchDisplayMode", &Extras::SwitchDisplayMode},
};

std::string ExtrasPath(Files& files) {
    return files.ProgramFolder() + "Scenara.ini";
}

bool IsOf(std::string_view line, const Extra& extra) {
    return Contains(line, "=") &&
           EqualsIgnoringCase(Trim(line.substr(0, line.find('='))), extra.name);
}

// A word that is neither leaves the value as it was.
void ReadValue(std::string_view line, bool& value) {
    const std::string_view word = Trim(line.substr(line.find('=') + 1));
    value = EqualsIgnoringCase(word, "true") || (value && !EqualsIgnoringCase(word, "false"));
}

Extras ExtrasIn(const std::string& text) {
    Extras extras;
    TextFile file(text);
    LineReader lines(file);
    while (lines.Next()) {
        for (const Extra& extra : kExtras) {
            if (IsOf(lines.Line(), extra)) {
                ReadValue(lines.Line(), extras.*extra.value);
            }
        }
    }
    return extras;
}

std::string LineOf(const Extra& extra, const Extras& extras) {
    return std::string(extra.name) + (extras.*extra.value ? " = True" : " = False");
}

// The text with this setting's lines anew, or with one more at its end; all other bytes stay.
std::string With(std::string_view text, const Extra& extra, const Extras& extras) {
    std::string changed;
    std::string_view end = kCrLf;
    bool written = false;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find_first_of("\r\n"), text.size());
        const std::string_view line = text.substr(0, length);
        text.remove_prefix(length);
        end = text.substr(0, text.starts_with(kCrLf) ? 2 : 1);
        text.remove_prefix(end.size());
        const bool replace = IsOf(line, extra);
        changed.append(replace ? LineOf(extra, extras) : line).append(end);
        written = written || replace;
    }
    if (!written) {
        changed.append(end.empty() ? kCrLf : "").append(LineOf(extra, extras)).append(kCrLf);
    }
    return changed;
}

}  // namespace

Extras LoadExtras(Files& files) {
    const std::string path = ExtrasPath(files);
    return files.FileExists(path) ? ExtrasIn(ReadSettingsText(files, path).text) : Extras();
}

void SaveExtras(Files& files, const Extras& extras) {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const std::string path = ExtrasPath(files);
    SettingsText old;
    if (files.FileExists(path)) {
        old = ReadSettingsText(files, path);
    }
    if (!old.whole) {
        // Writing back the beginning would lose the rest.
        throw RunTimeError(RunTimeErrorKind::BadFormat, path);
    }
    const std::size_t mark = old.text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    std::string text = old.text.substr(mark);
    const Extras said = ExtrasIn(old.text);
    for (const Extra& extra : kExtras) {
        if (said.*extra.value != extras.*extra.value) {
            text = With(text, extra, extras);
        }
    }
    if (text != std::string_view(old.text).substr(mark)) {
        files.ReplaceFile(path, old.text.substr(0, mark) + text);
    }
}

}  // namespace scenara
