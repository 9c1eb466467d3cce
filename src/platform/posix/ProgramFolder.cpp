// SPDX-License-Identifier: MIT
#include "platform/posix/ProgramFolder.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <unistd.h>

#include "base/Path.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

namespace fs = std::filesystem;

bool CanMakeFilesIn(const std::string& folder) {
    // With its separator, so that a program file of that name is not taken for a folder.
    return ::access(WithSeparator(folder).c_str(), W_OK | X_OK) == 0;
}

// The user's configuration folder as the desktop convention has it; empty when there is none.
std::string ConfigurationFolder() {
    // Read once at start, before there is a second thread.
    const char* given = std::getenv("XDG_CONFIG_HOME");  // NOLINT(concurrency-mt-unsafe)
    if (given != nullptr && *given == '/') {
        return given;
    }
    const char* home = std::getenv("HOME");  // NOLINT(concurrency-mt-unsafe)
    return home != nullptr && *home == '/' ? JoinPath(home, ".config") : std::string();
}

}  // namespace

std::string ExecutableFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return error ? std::string() : GetPath(program.string());
}

std::string WritableProgramFolder(const std::string& executableFolder) {
    if (!executableFolder.empty() && CanMakeFilesIn(executableFolder)) {
        return WithSeparator(executableFolder);
    }
    if (const std::string configuration = ConfigurationFolder(); !configuration.empty()) {
        const std::string folder = JoinPath(configuration, "scenara");
        std::error_code error;
        fs::create_directories(folder, error);
        if (CanMakeFilesIn(folder)) {
            return WithSeparator(folder);
        }
    }
    return "./";
}

// "a/.." is not where "a" is when that is a link, so only the file system tells.
std::string WholePath(const std::string& path) {
    std::error_code error;  // a folder on the way is gone
    const fs::path whole = fs::absolute(path, error).lexically_normal();
    const fs::path given(path);
    if (std::find(given.begin(), given.end(), "..") == given.end()) {
        return error ? path : whole.string();
    }
    const bool endsSo =
        given.filename() == ".." || given.filename() == "." || given.filename().empty();
    const fs::path folder = fs::canonical(endsSo ? given : given.parent_path(), error);
    return error ? path : (endsSo ? folder : folder / given.filename()).string();
}

TemporaryFolder::TemporaryFolder() {
    std::error_code error;
    const fs::path base = fs::temp_directory_path(error);
    std::string pattern = JoinPath(error ? "/tmp" : base.string(), "scenara-XXXXXX");
    if (::mkdtemp(pattern.data()) == nullptr) {
        throw RunTimeError(RunTimeErrorKind::PathFileAccess,
                           pattern + " (" + std::generic_category().message(errno) + ")");
    }
    path_ = WithSeparator(pattern);
}

TemporaryFolder::~TemporaryFolder() {
    std::error_code ignored;  // what cannot be removed stays; there is nobody left to tell
    fs::remove_all(path_, ignored);
}

}  // namespace scenara
