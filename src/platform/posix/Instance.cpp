// SPDX-License-Identifier: MIT
#include "platform/posix/Instance.h"

#include <cstdlib>
#include <string_view>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include "base/Path.h"

namespace scenara {
namespace {

// Of a name that tells displays apart; so the address of a socket has room for it.
constexpr std::size_t kMostOfDisplay = 40;
constexpr std::size_t kMostOfFolder = sizeof(sockaddr_un::sun_path) - kMostOfDisplay - 16;

// As a part of a file's name. No two short names give the same one.
std::string NamePart(std::string_view display) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string part;
    for (const char c : display) {
        if ((c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) {
            part.push_back(c);
        } else {
            const auto code = static_cast<unsigned char>(c);
            part.append({'%', kDigits[code / 16U], kDigits[code % 16U]});
        }
    }
    return part.size() > kMostOfDisplay ? part.substr(part.size() - kMostOfDisplay) : part;
}

bool IsUsersOwn(const std::string& folder) {
    struct stat status {};
    return ::lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == ::geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

}  // namespace

Instance::Instance(const std::string& display, const std::string& folder) {
    if (!folder.empty()) {
        const std::string name = folder + "scenara-" + NamePart(display);
        lockFile_ = name + ".lock";
        socket_ = name + ".sock";
    }
}

Instance::~Instance() {
    if (descriptor_ >= 0) {
        ::close(descriptor_);
    }
}

// Where no lock can be made at all, the program runs rather than not.
bool Instance::AnotherRuns() {
    if (descriptor_ < 0 && !lockFile_.empty()) {
        descriptor_ = ::open(lockFile_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    }
    holds_ = holds_ || (descriptor_ >= 0 && ::flock(descriptor_, LOCK_EX | LOCK_NB) == 0);
    return descriptor_ >= 0 && !holds_;
}

std::string Instance::UsersFolder() {
    // Read once at start, before there is a second thread.
    const char* const given = std::getenv("XDG_RUNTIME_DIR");  // NOLINT(concurrency-mt-unsafe)
    if (given != nullptr && *given == '/' && std::string_view(given).size() < kMostOfFolder &&
        IsUsersOwn(given)) {
        return WithSeparator(given);
    }
    const std::string own = "/tmp/scenara-" + std::to_string(::geteuid());
    static_cast<void>(::mkdir(own.c_str(), 0700));
    return IsUsersOwn(own) ? WithSeparator(own) : std::string();
}

}  // namespace scenara
