// SPDX-License-Identifier: MIT
#include "app/RecentFiles.h"

#include <algorithm>
#include <utility>

#include "base/RunTimeError.h"

namespace scenara {

void RememberRecentFile(Form& form, std::string path) {
    std::vector<std::string>& recent = form.recentFiles;
    form[Menu::MnuRecentFiles].visible = true;
    auto last = std::find(recent.begin(), recent.end(), path);
    if (last == recent.end()) {
        if (recent.size() < kMaxRecentFiles) {
            recent.emplace_back();
        }
        last = recent.end() - 1;
    }
    std::move_backward(recent.begin(), last, last + 1);
    recent.front() = std::move(path);
}

std::string RaiseRecentFile(Form& form, std::size_t k) {
    std::vector<std::string>& recent = form.recentFiles;
    if (k < 1 || k > recent.size()) {
        throw RunTimeError(RunTimeErrorKind::SubscriptOutOfRange, "recent file");
    }
    const auto entry = recent.begin() + static_cast<std::ptrdiff_t>(k) - 1;
    std::rotate(recent.begin(), entry, entry + 1);
    return recent.front();
}

void AppendRecentFile(Form& form, std::string path) {
    form[Menu::MnuRecentFiles].visible = true;
    form.recentFiles.push_back(std::move(path));
}

}  // namespace scenara
