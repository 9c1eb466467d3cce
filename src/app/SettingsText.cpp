// SPDX-License-Identifier: MIT
#include "app/SettingsText.h"

#include <span>

namespace scenara {

SettingsText ReadSettingsText(Files& files, const std::string& path) {
    const auto file = files.OpenForReading(path);
    SettingsText settings;
    settings.text.resize(kMaxSettingsSize + 1);
    settings.text.resize(file->ReadAt(0, std::as_writable_bytes(std::span(settings.text))));
    if (settings.text.size() > kMaxSettingsSize) {
        settings.whole = false;
        settings.text.resize(settings.text.find_last_of("\r\n") + 1);  // none: nothing
    }
    return settings;
}

}  // namespace scenara
