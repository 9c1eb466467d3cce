// SPDX-License-Identifier: MIT
#include "stage/NewerKeys.h"

#include <algorithm>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {

// A section as it is written in messages, and a key of it. One "*" stands for any letters.
struct NewerKeys::Row {
    const char* section;
    const char* key;

    static const Row kAll[];
};

namespace {

// More names than these say nothing new.
constexpr std::size_t kMostNames = 20;

constexpr const char* kElement = "BG";
constexpr const char* kController = "BGCtrl";

}  // namespace

constexpr NewerKeys::Row NewerKeys::Row::kAll[] = {
    {"Info", "attachedchar*"},
    {"Info", "round*def"},
    {"Info", "roundloop"},
    {"Camera", "autozoom"},
    {"Camera", "autocenter"},
    {"Camera", "boundhighzoomdelta"},
    {"Camera", "verticalfollowzoomdelta"},
    {"Camera", "lowestcap"},
    {"Camera", "tensionvel"},
    {"Camera", "yscrollspeed"},
    {"Camera", "zoominspeed"},
    {"Camera", "zoomoutspeed"},
    {"Camera", "zoomindelay"},
    {"Camera", "zoomanchor"},
    {"Camera", "fov"},
    {"Camera", "near"},
    {"Camera", "far"},
    {"Camera", "yshift"},
    {"BGDef", "model*"},
    {"BGDef", "scenenumber"},
    {"BGDef", "fov"},
    {"BGDef", "near"},
    {"BGDef", "far"},
    {"BGDef", "roundpos"},
    {"Music", "bgmstartposition"},
    {"Music", "bgmfreqmul"},
    {"Music", "*.bgmusic"},
    {"Music", "bgmusic.*"},
    {kElement, "angle"},
    {kElement, "xangle"},
    {kElement, "yangle"},
    {kElement, "projection"},
    {kElement, "focallength"},
    {kElement, "xshear"},
    {kElement, "autoresizeparallax"},
    {kElement, "xbottomzoomdelta"},
    {kElement, "zoomscaledelta"},
    {kElement, "roundpos"},
    {kController, "positionlink"},
};

namespace {

// The kinds of controllers that act on colours.
constexpr std::string_view kColourControllers[] = {"palfx", "remappal"};

bool Matches(std::string_view pattern, std::string_view key) {
    const std::size_t star = pattern.find('*');
    if (star == std::string_view::npos) {
        return key == pattern;
    }
    const std::string_view before = pattern.substr(0, star);
    const std::string_view after = pattern.substr(star + 1);
    return key.size() >= before.size() + after.size() && key.starts_with(before) &&
           key.ends_with(after);
}

std::string_view NameOf(SectionKind kind) {
    switch (kind) {
        case SectionKind::Element: return kElement;
        case SectionKind::Ctrl: return kController;
        default: return {};
    }
}

}  // namespace

void NewerKeys::Add(std::string what, std::int64_t line) {
    const bool known =
        std::ranges::any_of(found_, [&](const Found& found) { return found.what == what; });
    if (!known) {
        found_.push_back({std::move(what), line});
    }
}

void NewerKeys::NoteSection(SectionKind kind, std::string_view name, std::int64_t line) {
    kind_ = kind;
    section_ = name;
    here_.clear();
    for (const Row& row : Row::kAll) {
        const std::string_view known = NameOf(kind);
        const bool here = known.empty()
                              ? kind == SectionKind::Settings && LowerCase(row.section) == name
                              : known == row.section;
        if (here) {
            here_.push_back(&row);
        }
    }
    if (kind == SectionKind::Settings && name == "model") {
        Add("[Model]", line);
    }
}

void NewerKeys::NoteLine(std::string_view text, std::int64_t line) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) {
        return;
    }
    const std::string_view key = Trim(text.substr(0, equals));
    const std::string_view value = Trim(text.substr(equals + 1));
    if (value.empty()) {
        return;
    }
    for (const Row* row : here_) {
        if (Matches(row->key, key)) {
            Add(std::string("[") + row->section + "] " + std::string(key), line);
        }
    }
    if (kind_ == SectionKind::Ctrl && key == "type") {
        for (const std::string_view type : kColourControllers) {
            if (value == type) {
                Add(std::string("[BGCtrl] type = ") + std::string(type), line);
            }
        }
    }
    if (kind_ == SectionKind::Settings && section_ == "info" && key == "ikemenversion") {
        newer_ = LeadingNumber(value) > 0;
    }
    if (kind_ == SectionKind::Element && key == "layerno" && layerBelow_ == 0 &&
        LeadingNumber(value) < 0) {
        layerBelow_ = line;
    }
}

void NewerKeys::Report(Messages& messages) const {
    std::vector<Found> found = found_;
    if (newer_ && layerBelow_ != 0) {
        found.push_back({"[BG] layerno below 0", layerBelow_});
    }
    if (found.empty()) {
        return;
    }
    std::ranges::stable_sort(found, {}, &Found::line);
    std::string text = "Newer engines alone show this:";
    for (std::size_t i = 0; i < std::min(found.size(), kMostNames); ++i) {
        text.append(kCrLf).append(found[i].what).append(", line ");
        text.append(std::to_string(found[i].line));
    }
    if (found.size() > kMostNames) {
        text.append(kCrLf).append("and " + std::to_string(found.size() - kMostNames) + " more");
    }
    messages.MsgBox(kMessageNewerKeys, std::move(text), {found.front().line});
}

}  // namespace scenara
