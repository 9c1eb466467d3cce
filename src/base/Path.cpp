// SPDX-License-Identifier: MIT
#include "base/Path.h"

namespace scenara {
namespace {

std::size_t BehindLastSeparator(std::string_view path) {
    const std::size_t last = path.find_last_of("/\\");
    return last == std::string_view::npos ? 0 : last + 1;
}

}  // namespace

std::string GetPath(std::string_view FullFilePath) {
    return std::string(FullFilePath.substr(0, BehindLastSeparator(FullFilePath)));
}

std::string_view FileName(std::string_view path) {
    return path.substr(BehindLastSeparator(path));
}

std::string WithSeparator(std::string_view folder) {
    std::string path(folder);
    if (!path.empty() && BehindLastSeparator(path) != path.size()) {
        path.push_back(PathSeparator);
    }
    return path;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    return WithSeparator(folder).append(name);
}

}  // namespace scenara
