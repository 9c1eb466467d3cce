// SPDX-License-Identifier: MIT
#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <utility>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "base/NotCopied.h"
#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/posix/FileErrors.h"
#include "platform/posix/ResolvePath.h"

namespace scenara {
namespace {

constexpr std::size_t kWriteBlock = std::size_t{64} * 1024;

// A file descriptor and the path it was asked for by.
class Descriptor : NotCopied {
public:
    Descriptor(const std::string& path, int flags)
        : path_(path), number_(Open(path, flags)), status_(StatusOf()) {}
    ~Descriptor() { Release(); }

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] const std::string& Path() const { return path_; }
    [[nodiscard]] std::uint64_t Size() const { return static_cast<std::uint64_t>(status_.st_size); }

    void Close() {
        const int number = std::exchange(number_, -1);
        if (number >= 0 && ::close(number) != 0) {
            Fail(errno, path_);
        }
    }

private:
    static int Open(const std::string& path, int flags) {
        // Without waiting: a pipe of that name would hold the program until somebody writes.
        const int number = ::open(ResolvePath(CheckedName(path)).c_str(),
                                  flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
        if (number < 0) {
            Fail(errno, path);
        }
        return number;
    }

    [[nodiscard]] struct stat StatusOf() {
        struct stat status {};
        if (::fstat(number_, &status) != 0) {
            const int error = errno;
            Release();
            Fail(error, path_);
        }
        if (!S_ISREG(status.st_mode)) {
            Release();
            FailAsNoFile(path_);
        }
        return status;
    }

    void Release() {
        if (const int number = std::exchange(number_, -1); number >= 0) {
            ::close(number);
        }
    }

    std::string path_;
    int number_;
    struct stat status_;
};

class PosixInputFile : public InputFile {
public:
    explicit PosixInputFile(const std::string& path) : file_(path, O_RDONLY) {}

    [[nodiscard]] std::uint64_t Size() const override { return file_.Size(); }

    std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) override {
        std::size_t done = 0;
        // Positions beyond what the system can count are behind the end of every file.
        while (done < into.size() && position + done <= kLastPosition) {
            const ssize_t count = ::pread(file_.Number(), into.data() + done, into.size() - done,
                                          static_cast<off_t>(position + done));
            if (count > 0) {
                done += static_cast<std::size_t>(count);
            } else if (count == 0) {
                break;
            } else if (errno != EINTR) {
                Fail(errno, file_.Path());
            }
        }
        return done;
    }

private:
    static constexpr std::uint64_t kLastPosition = std::uint64_t{1} << 62U;

    Descriptor file_;
};

class PosixOutputFile : public OutputFile {
public:
    explicit PosixOutputFile(const std::string& path) : file_(path, O_WRONLY | O_CREAT | O_TRUNC) {}

    void Write(std::string_view bytes) override {
        waiting_.append(bytes);
        if (waiting_.size() >= kWriteBlock) {
            Flush();
        }
    }

    void Close() override {
        Flush();
        file_.Close();
    }

private:
    void Flush() {
        std::size_t done = 0;
        while (done < waiting_.size()) {
            const ssize_t count =
                ::write(file_.Number(), waiting_.data() + done, waiting_.size() - done);
            if (count >= 0) {
                done += static_cast<std::size_t>(count);
            } else if (errno != EINTR) {
                const int error = errno;
                waiting_.erase(0, done);  // a second try goes on where this one stopped
                Fail(error, file_.Path());
            }
        }
        waiting_.clear();
    }

    Descriptor file_;
    std::string waiting_;
};

bool EndsWithIgnoringCase(std::string_view name, std::string_view extension) {
    return name.size() >= extension.size() &&
           EqualsIgnoringCase(name.substr(name.size() - extension.size()), extension);
}

bool SortsBefore(const std::string& a, const std::string& b) {
    const std::string lowerA = LowerCase(a);
    const std::string lowerB = LowerCase(b);
    return lowerA != lowerB ? lowerA < lowerB : a < b;
}

}  // namespace

PosixFiles::PosixFiles(std::string_view programFolder)
    : programFolder_(WithSeparator(programFolder)) {}

bool PosixFiles::FileExists(const std::string& path) {
    try {
        return OpenForReading(path) != nullptr;
    } catch (const RunTimeError&) {
        return false;
    }
}

std::unique_ptr<InputFile> PosixFiles::OpenForReading(const std::string& path) {
    return std::make_unique<PosixInputFile>(path);
}

std::unique_ptr<OutputFile> PosixFiles::OpenForWriting(const std::string& path) {
    return std::make_unique<PosixOutputFile>(path);
}

void PosixFiles::Delete(const std::string& path) {
    const std::string resolved = ResolvePath(CheckedName(path));
    struct stat status {};
    if (::stat(resolved.c_str(), &status) != 0) {
        Fail(errno, path);
    }
    if (!S_ISREG(status.st_mode)) {
        FailAsNoFile(path);
    }
    if (::unlink(resolved.c_str()) != 0) {
        Fail(errno, path);
    }
}

namespace {

// Most disks tell it with the name; asking for each of ten thousand files takes longer than the
// rest.
mode_t KindOf(int folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN && entry.d_type != DT_LNK) {
        return static_cast<mode_t>(entry.d_type) << 12U;  // as DTTOIF has it
    }
    struct stat status {};
    return ::fstatat(folder, entry.d_name, &status, 0) == 0 ? status.st_mode & S_IFMT : mode_t{0};
}

// Those whose names are wanted and that are of the kind of file `kind`, sorted.
template <class IsWanted>
std::vector<std::string> Listed(const std::string& folder, mode_t kind, const IsWanted& isWanted) {
    const std::string resolved = HasZeroByte(folder) ? std::string() : ResolvePath(folder);
    const auto close = [](DIR* dir) { ::closedir(dir); };
    const std::unique_ptr<DIR, decltype(close)> dir(::opendir(resolved.c_str()), close);
    std::vector<std::string> names;
    if (!dir) {
        return names;
    }
    // Only this thread reads this stream.
    while (const dirent* entry = ::readdir(dir.get())) {  // NOLINT(concurrency-mt-unsafe)
        const std::string_view name = entry->d_name;
        if (isWanted(name) && KindOf(::dirfd(dir.get()), *entry) == kind) {
            names.emplace_back(name);
        }
    }
    std::sort(names.begin(), names.end(), SortsBefore);
    return names;
}

}  // namespace

std::vector<std::string> PosixFiles::List(const std::string& folder, std::string_view extension) {
    return Listed(folder, S_IFREG, [extension](std::string_view name) {
        return EndsWithIgnoringCase(name, extension);
    });
}

std::vector<std::string> PosixFiles::ListFolders(const std::string& folder) {
    return Listed(folder, S_IFDIR,
                  [](std::string_view name) { return name != "." && name != ".."; });
}

bool PosixFiles::FolderExists(const std::string& path) {
    struct stat status {};
    return !HasZeroByte(path) && ::stat(ResolvePath(path).c_str(), &status) == 0 &&
           S_ISDIR(status.st_mode);
}

std::optional<FileStamp> PosixFiles::Stamp(const std::string& path) {
    constexpr std::int64_t kNanoseconds = 1'000'000'000;
    struct stat status {};
    if (HasZeroByte(path) || ::stat(ResolvePath(path).c_str(), &status) != 0 ||
        !S_ISREG(status.st_mode)) {
        return std::nullopt;
    }
    return FileStamp{static_cast<std::uint64_t>(status.st_size),
                     status.st_mtim.tv_sec * kNanoseconds + status.st_mtim.tv_nsec,
                     static_cast<std::uint64_t>(status.st_ino)};
}

std::string PosixFiles::RealPath(const std::string& path) {
    const auto free = [](char* text) { ::free(text); };  // NOLINT: the system's own
    const std::unique_ptr<char, decltype(free)> real(
        HasZeroByte(path) ? nullptr : ::realpath(ResolvePath(path).c_str(), nullptr), free);
    return real ? std::string(real.get()) : path;
}

}  // namespace scenara
