// SPDX-License-Identifier: MIT
#include "platform/posix/ResolvePath.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include <dirent.h>
#include <sys/stat.h>

#include "base/Text.h"

namespace scenara {
namespace {

bool Exists(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0;
}

// How well a name on disk fits the wanted one; lower is better.
enum class Fit { IgnoringCase, InUtf8, None };

Fit FitOf(std::string_view name, std::string_view wanted, std::string_view wantedUtf8) {
    if (EqualsIgnoringCase(name, wanted)) {
        return Fit::IgnoringCase;
    }
    return EqualsIgnoringCase(name, wantedUtf8) ? Fit::InUtf8 : Fit::None;
}

// The name in `folder` that fits `wanted` best; empty when none does.
std::string FindName(const std::string& folder, std::string_view wanted) {
    const auto close = [](DIR* dir) { ::closedir(dir); };
    const std::unique_ptr<DIR, decltype(close)> dir(
        ::opendir(folder.empty() ? "." : folder.c_str()), close);
    std::string best;
    if (!dir) {
        return best;
    }
    const std::string wantedUtf8 = ToUtf8(wanted);
    Fit bestFit = Fit::None;
    // Only this thread reads this stream.
    while (const dirent* entry = ::readdir(dir.get())) {  // NOLINT(concurrency-mt-unsafe)
        const std::string_view name = entry->d_name;
        const Fit fit = FitOf(name, wanted, wantedUtf8);
        if (fit != Fit::None && (fit < bestFit || (fit == bestFit && name < best))) {
            best = name;
            bestFit = fit;
        }
    }
    return best;
}

}  // namespace

std::string ResolvePath(const std::string& path) {
    if (Exists(path)) {
        return path;
    }
    std::string spelled = path;
    std::replace(spelled.begin(), spelled.end(), '\\', '/');
    if (Exists(spelled)) {
        return spelled;
    }
    std::string found;
    std::size_t at = 0;
    while (at < spelled.size()) {
        if (spelled[at] == '/') {
            found.push_back('/');
            at = std::min(spelled.find_first_not_of('/', at), spelled.size());
            continue;
        }
        const std::size_t end = std::min(spelled.find('/', at), spelled.size());
        const std::string component = spelled.substr(at, end - at);
        if (Exists(found + component)) {
            found += component;
        } else if (const std::string name = FindName(found, component); !name.empty()) {
            found += name;
        } else {
            return found + spelled.substr(at);
        }
        at = end;
    }
    return found;
}

}  // namespace scenara
