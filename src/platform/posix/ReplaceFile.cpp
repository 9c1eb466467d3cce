// SPDX-License-Identifier: MIT
//
// A file gets new contents in one step.
//
// The new contents are written to a file beside it (its name and ".new"), brought to the disk, and
// then renamed over the old one. A machine that stops in between leaves at most that file, which
// the next call takes over. So one program at a time may replace a file. A file that may not be
// written to is not replaced either.
#include <cerrno>
#include <cstdlib>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/NotCopied.h"
#include "base/Path.h"
#include "platform/posix/FileErrors.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ResolvePath.h"

namespace scenara {
namespace {

constexpr mode_t kPermissions = 07777;

// The file beside the old one. Gone when this goes, unless it has taken the old one's place.
class NewFile : NotCopied {
public:
    // `shown` is the path for messages.
    NewFile(std::string path, const std::string& shown) : path_(std::move(path)), shown_(shown) {
        ::unlink(path_.c_str());  // what a stopped machine has left; opening tells what remains
        number_ = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
        if (number_ < 0) {
            Fail(errno, shown_);
        }
        made_ = true;
    }
    ~NewFile() {
        if (number_ >= 0) {
            ::close(number_);
        }
        if (made_) {
            ::unlink(path_.c_str());
        }
    }

    // Owner and permissions of the old file. The owner can be kept by the administrator only, for
    // whom nothing else would bring it back.
    void TakeAfter(const struct stat& old) const {
        static_cast<void>(::fchown(number_, old.st_uid, old.st_gid) == 0);
        if (::fchmod(number_, old.st_mode & kPermissions) != 0) {
            Fail(errno, shown_);
        }
    }

    void Write(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t count = ::write(number_, bytes.data(), bytes.size());
            if (count >= 0) {
                bytes.remove_prefix(static_cast<std::size_t>(count));
            } else if (errno != EINTR) {
                Fail(errno, shown_);
            }
        }
    }

    // With the disk, not only with the system: a file may otherwise get its new name before its
    // contents.
    void Close() {
        if (::fsync(number_) != 0 || ::close(std::exchange(number_, -1)) != 0) {
            Fail(errno, shown_);
        }
    }

    void TakePlaceOf(const std::string& path) {
        if (::rename(path_.c_str(), path.c_str()) != 0) {
            Fail(errno, shown_);
        }
        made_ = false;
    }

private:
    std::string path_;
    const std::string& shown_;
    int number_ = -1;
    bool made_ = false;
};

// Brings the new name to the disk. The file is replaced by then, so failing here would be a lie.
void SyncFolder(const std::string& folder) {
    const int number =
        ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number >= 0) {
        static_cast<void>(::fsync(number));
        ::close(number);
    }
}

// The name of the file itself: links are followed, so that they stay.
std::string RealName(const std::string& path) {
    const auto release = [](char* text) { std::free(text); };  // NOLINT: what realpath allocates
    const std::unique_ptr<char, decltype(release)> real(::realpath(path.c_str(), nullptr), release);
    return real ? std::string(real.get()) : path;
}

// What is known of the old file; nothing when there is none.
std::optional<struct stat> OldFile(const std::string& name, const std::string& path) {
    struct stat status {};
    if (::stat(name.c_str(), &status) != 0) {
        if (errno != ENOENT) {
            Fail(errno, path);
        }
        return std::nullopt;
    }
    if (!S_ISREG(status.st_mode)) {
        FailAsNoFile(path);
    }
    // Renaming over a file asks for nothing of the file's own; whoever protected it means it.
    if (::access(name.c_str(), W_OK) != 0) {
        Fail(errno, path);
    }
    return status;
}

}  // namespace

void PosixFiles::ReplaceFile(const std::string& path, std::string_view bytes) {
    const std::string name = RealName(ResolvePath(CheckedName(path)));
    const std::optional<struct stat> old = OldFile(name, path);
    NewFile file(name + ".new", path);
    if (old) {
        file.TakeAfter(*old);
    }
    file.Write(bytes);
    file.Close();
    file.TakePlaceOf(name);
    SyncFolder(GetPath(name));
}

}  // namespace scenara
