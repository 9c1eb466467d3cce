// SPDX-License-Identifier: MIT
#include "desktop/SettingsFiles.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <utility>

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

enum class Value { Flag, Number, Text };

struct Key {
    std::string_view name;
    Value value = Value::Text;
    bool always = true;  // else the line may be missing
};

// In the order in which they are written; recent files follow, as many as there are.
constexpr Key kProgramKeys[] = {
    {"Version", Value::Text},    {"MugeDir", Value::Text},    {"TestChar", Value::Text, false},
    {"HCamStep", Value::Number}, {"VCamStep", Value::Number}, {"BGMusic", Value::Flag},
    {"Info", Value::Flag},       {"Char", Value::Flag},       {"Deform", Value::Flag},
    {"DebugBG", Value::Flag},    {"CharName", Value::Text},   {"StageList", Value::Number},
};
constexpr std::string_view kRecentFile = "RecentFile";

// In any order.
constexpr Key kExtraKeys[] = {
    {"Additions", Value::Flag},          {"Smooth", Value::Flag},
    {"WholeMultiplesOnly", Value::Flag}, {"SwitchDisplayMode", Value::Flag},
    {"WindowLeft", Value::Number},       {"WindowTop", Value::Number},
    {"WindowWidth", Value::Number},      {"WindowHeight", Value::Number},
    {"Maximised", Value::Flag},          {"ListWidth", Value::Number},
};

[[noreturn]] void Complain(const fs::path& file, const std::string& what, const std::string& text) {
    throw std::runtime_error(file.filename().string() + ": " + what + "\n" + text);
}

bool IsOf(Value kind, const std::string& value) {
    if (kind == Value::Flag) {
        return value == "True" || value == "False";
    }
    if (kind == Value::Number) {
        double number = 0;
        const char* const begin = value.data() + (value.starts_with(' ') ? 1 : 0);
        const char* const end = value.data() + value.size();
        const auto read = std::from_chars(begin, end, number);
        return read.ec == std::errc() && read.ptr == end;
    }
    return true;
}

SettingsFiles::Lines LinesOf(const fs::path& file, std::string& text) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        Complain(file, "it is not there", "");
    }
    text.assign(std::istreambuf_iterator<char>(stream), {});
    SettingsFiles::Lines lines;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = text.find("\r\n", at);
        const std::size_t middle = text.find(" = ", at);
        if (end == std::string::npos || middle == std::string::npos || middle > end) {
            Complain(file, "it is not whole", text);
        }
        lines.emplace_back(text.substr(at, middle - at), text.substr(middle + 3, end - middle - 3));
        at = end + 2;
    }
    return lines;
}

}  // namespace

SettingsFiles SettingsFiles::In(const fs::path& folder) {
    SettingsFiles files;
    std::string text;
    const fs::path program = folder / "QX.CFG";
    files.program = LinesOf(program, text);
    auto line = files.program.begin();
    for (const Key& key : kProgramKeys) {
        if (line != files.program.end() && line->first == key.name) {
            if (!IsOf(key.value, line->second)) {
                Complain(program, "a value that is none: " + line->first, text);
            }
            ++line;
        } else if (key.always) {
            Complain(program, "a line is missing: " + std::string(key.name), text);
        }
    }
    if (!std::all_of(line, files.program.end(),
                     [](const auto& rest) { return rest.first == kRecentFile; })) {
        Complain(program, "a line too many", text);
    }
    const fs::path extras = folder / "Scenara.ini";
    files.extras = LinesOf(extras, text);
    for (const auto& [name, value] : files.extras) {
        const auto* const key = std::ranges::find(kExtraKeys, name, &Key::name);
        if (key == std::end(kExtraKeys) || !IsOf(key->value, value) ||
            std::ranges::count(files.extras, name, &Lines::value_type::first) != 1) {
            Complain(extras, "a line that should not be there: " + name, text);
        }
    }
    return files;
}

std::string ValueOf(const SettingsFiles::Lines& lines, const std::string& key) {
    const auto line = std::ranges::find(lines, key, &SettingsFiles::Lines::value_type::first);
    return line == lines.end() ? std::string() : line->second;
}

void SetValue(SettingsFiles::Lines& lines, const std::string& key, const std::string& value) {
    const auto line = std::ranges::find(lines, key, &SettingsFiles::Lines::value_type::first);
    if (line == lines.end()) {
        lines.emplace_back(key, value);
    } else {
        line->second = value;
    }
}

}  // namespace scenara::test
