// SPDX-License-Identifier: MIT
#include "app/Extras.h"

#include <array>
#include <charconv>
#include <string>
#include <string_view>
#include <system_error>

#include "app/SettingsText.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/LineReader.h"
#include "platform/TextFile.h"

namespace scenara {
namespace {

struct Extra {
    std::string_view name;
    bool Extras::*flag = nullptr;
    std::optional<Long> Extras::*number = nullptr;
};

constexpr Extra kExtras[] = {
    {"Additions", &Extras::Additions},
    {"Smooth", &Extras::Smooth},
    {"WholeMultiplesOnly", &Extras::WholeMultiplesOnly},
    {"SwitchDisplayMode", &Extras::SwitchDisplayMode},
    {"WindowLeft", nullptr, &Extras::WindowLeft},
    {"WindowTop", nullptr, &Extras::WindowTop},
    {"WindowWidth", nullptr, &Extras::WindowWidth},
    {"WindowHeight", nullptr, &Extras::WindowHeight},
    {"Maximised", &Extras::Maximised},
    {"ListWidth", nullptr, &Extras::ListWidth},
};

std::string ExtrasPath(Files& files) {
    return files.ProgramFolder() + "Scenara.ini";
}

bool IsOf(std::string_view line, const Extra& extra) {
    return Contains(line, "=") &&
           EqualsIgnoringCase(Trim(line.substr(0, line.find('='))), extra.name);
}

// A word that says nothing leaves the value as it was.
void ReadValue(std::string_view line, const Extra& extra, Extras& extras) {
    const std::string_view word = Trim(line.substr(line.find('=') + 1));
    if (extra.flag != nullptr) {
        bool& value = extras.*extra.flag;
        value = EqualsIgnoringCase(word, "true") || (value && !EqualsIgnoringCase(word, "false"));
        return;
    }
    Long value = 0;
    const char* const end = word.data() + word.size();
    if (const auto read = std::from_chars(word.data(), end, value);
        read.ec == std::errc() && read.ptr == end) {
        extras.*extra.number = value;
    }
}

Extras ExtrasIn(const std::string& text) {
    Extras extras;
    TextFile file(text);
    LineReader lines(file);
    while (lines.Next()) {
        for (const Extra& extra : kExtras) {
            if (IsOf(lines.Line(), extra)) {
                ReadValue(lines.Line(), extra, extras);
            }
        }
    }
    return extras;
}

bool IsKnown(const Extra& extra, const Extras& extras) {
    return extra.flag != nullptr || (extras.*extra.number).has_value();
}

bool AreAlike(const Extra& extra, const Extras& a, const Extras& b) {
    return extra.flag != nullptr ? a.*extra.flag == b.*extra.flag
                                 : a.*extra.number == b.*extra.number;
}

// Its value is known.
void AddLine(const Extra& extra, const Extras& extras, std::string& text) {
    text.append(extra.name).append(" = ");
    if (extra.flag != nullptr) {
        text.append(extras.*extra.flag ? "True" : "False");
        return;
    }
    std::array<char, 16> digits{};
    const auto written = std::to_chars(digits.begin(), digits.end(), *(extras.*extra.number));
    text.append(digits.data(), written.ptr);
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
        if (replace) {
            AddLine(extra, extras, changed);
        } else {
            changed.append(line);
        }
        changed.append(end);
        written = written || replace;
    }
    if (!written) {
        changed.append(end.empty() ? kCrLf : "");
        AddLine(extra, extras, changed);
        changed.append(kCrLf);
    }
    return changed;
}

}  // namespace

std::optional<WindowStand> StandIn(const Extras& extras) {
    if (extras.WindowWidth.value_or(0) <= 0 || extras.WindowHeight.value_or(0) <= 0) {
        return std::nullopt;
    }
    WindowStand stand{std::nullopt, {*extras.WindowWidth, *extras.WindowHeight}, extras.Maximised};
    if (extras.WindowLeft && extras.WindowTop) {
        stand.spot = {*extras.WindowLeft, *extras.WindowTop};
    }
    return stand;
}

void PutStand(Extras& extras, const WindowStand& stand) {
    if (stand.spot) {
        extras.WindowLeft = stand.spot->left;
        extras.WindowTop = stand.spot->top;
    }
    extras.WindowWidth = stand.size.width;
    extras.WindowHeight = stand.size.height;
    extras.Maximised = stand.maximised;
}

void MakeExtrasText(const Extras& extras, std::string& text) {
    text.clear();
    for (const Extra& extra : kExtras) {
        if (IsKnown(extra, extras)) {
            AddLine(extra, extras, text);
            text.append(kCrLf);
        }
    }
}

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
        if (IsKnown(extra, extras) && !AreAlike(extra, said, extras)) {
            text = With(text, extra, extras);
        }
    }
    if (text != std::string_view(old.text).substr(mark)) {
        files.ReplaceFile(path, old.text.substr(0, mark) + text);
    }
}

}  // namespace scenara
