// SPDX-License-Identifier: MIT
#include "platform/posix/NotifiedFolders.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <set>
#include <utility>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include "base/Path.h"
#include "platform/posix/ResolvePath.h"

namespace scenara {
namespace {

constexpr std::uint32_t kChanges = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                   IN_CLOSE_WRITE | IN_DELETE_SELF | IN_MOVE_SELF;
constexpr std::chrono::seconds kLookEvery{3};

// Disks on which other machines may write: NFS, SMB, CIFS, 9P, FUSE, AFS, Ceph.
bool IsShared(const std::string& folder) {
    struct statfs status {};
    if (::statfs(folder.c_str(), &status) != 0) {
        return false;
    }
    switch (static_cast<std::uint32_t>(status.f_type)) {
        case 0x6969U:
        case 0x517BU:
        case 0xFF534D42U:
        case 0xFE534D42U:
        case 0x01021997U:
        case 0x65735546U:
        case 0x5346414FU:
        case 0x00C36400U: return true;
        default: return false;
    }
}

bool IsFolder(const std::string& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::string Above(std::string folder) {
    while (folder.size() > 1 && folder.back() == PathSeparator) {
        folder.pop_back();
    }
    return GetPath(folder);
}

}  // namespace

NotifiedFolders::NotifiedFolders() : notices_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {}

NotifiedFolders::~NotifiedFolders() {
    if (notices_ >= 0) {
        ::close(notices_);
    }
}

// What is watched already stays so, and loses no notice in between.
bool NotifiedFolders::Watch(const std::vector<std::string>& folders) {
    auto before = std::exchange(watched_, {});
    std::set<int> used;
    misses_ = notices_ < 0 && !folders.empty();
    lastLook_ = std::chrono::steady_clock::now();
    for (const std::string& folder : folders) {
        const auto known = before.find(folder);
        const bool stays = known != before.end() && known->second.isThere;
        const Watched watched = stays ? known->second : Begin(folder);
        used.insert(watched.number);
        misses_ = misses_ || watched.isMissed;
        watched_.emplace(folder, watched);
    }
    std::set<int> old;
    for (const auto& [folder, watched] : before) {
        old.insert(watched.number);
    }
    for (const int number : old) {
        if (number >= 0 && !used.contains(number)) {
            ::inotify_rm_watch(notices_, number);
        }
    }
    return std::ranges::any_of(used, [&](int number) { return !old.contains(number); });
}

// Of one that is not there: the nearest one above it.
NotifiedFolders::Watched NotifiedFolders::Begin(const std::string& folder) const {
    const std::string whole = ResolvePath(folder);
    std::string path = whole;
    while (!IsFolder(path)) {
        std::string above = Above(path);
        if (above.empty() || above == path) {
            return {-1, false, true};
        }
        path = std::move(above);
    }
    const int number = ::inotify_add_watch(notices_, path.c_str(), kChanges | IN_ONLYDIR);
    return {number, path == whole, number < 0 || IsShared(path)};
}

// That a watch has been taken away is no change, but it must be begun anew then. So must one that
// was for a folder which may have come now.
bool NotifiedFolders::TakeNotices(std::string_view notices) {
    bool changed = false;
    while (notices.size() >= sizeof(inotify_event)) {
        inotify_event notice{};
        std::memcpy(&notice, notices.data(), sizeof notice);
        changed = changed || (notice.mask & (kChanges | IN_Q_OVERFLOW)) != 0;
        if ((notice.mask & (IN_IGNORED | IN_MOVE_SELF)) != 0) {
            std::erase_if(watched_, [gone = notice.wd](const auto& each) {
                return each.second.number == gone;
            });
        }
        notices.remove_prefix(std::min(notices.size(), sizeof notice + notice.len));
    }
    return changed;
}

bool NotifiedFolders::TakeChange() {
    alignas(inotify_event) std::array<char, 16384> bytes;  // NOLINT: read fills it
    bool changed = false;
    while (true) {
        const ssize_t count = notices_ < 0 ? -1 : ::read(notices_, bytes.data(), bytes.size());
        if (count > 0) {
            changed = TakeNotices({bytes.data(), static_cast<std::size_t>(count)}) || changed;
        } else if (count == 0 || errno != EINTR || notices_ < 0) {
            break;
        }
    }
    return changed || IsTimeToLook();
}

bool NotifiedFolders::IsTimeToLook() {
    const auto now = std::chrono::steady_clock::now();
    if (!misses_ || now - lastLook_ < kLookEvery) {
        return false;
    }
    lastLook_ = now;
    return true;
}

}  // namespace scenara
