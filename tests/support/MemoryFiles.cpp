// SPDX-License-Identifier: MIT
#include "support/MemoryFiles.h"

#include <algorithm>

#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"

namespace scenara::test {
namespace {

std::string AsText(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// Keeps what is written until Close, as a program that dies in between would leave nothing.
class MemoryOutput : public OutputFile {
public:
    MemoryOutput(std::string& file, const bool& full, const bool& failsAtClose)
        : file_(file), full_(full), failsAtClose_(failsAtClose) {}

    void Write(std::string_view bytes) override {
        if (full_) {
            throw RunTimeError(RunTimeErrorKind::DiskFull);
        }
        file_.append(bytes);
    }
    void Close() override {
        if (failsAtClose_) {
            throw RunTimeError(RunTimeErrorKind::DiskFull);
        }
    }

private:
    std::string& file_;
    const bool& full_;
    const bool& failsAtClose_;
};

// A disk with a bad sector.
class BrokenFile : public InputFile {
public:
    BrokenFile(std::string path, std::uint64_t size) : path_(std::move(path)), size_(size) {}

    [[nodiscard]] std::uint64_t Size() const override { return size_; }
    std::size_t ReadAt(std::uint64_t /*position*/, std::span<std::byte> /*into*/) override {
        throw RunTimeError(RunTimeErrorKind::DeviceIo, path_);
    }

private:
    std::string path_;
    std::uint64_t size_;
};

}  // namespace

MemoryFile::MemoryFile(std::span<const std::byte> bytes) : bytes_(AsText(bytes)) {}

std::size_t MemoryFile::ReadAt(std::uint64_t position, std::span<std::byte> into) {
    reads_.push_back({position, into.size()});
    if (position >= bytes_.size()) {
        return 0;
    }
    const std::size_t start = static_cast<std::size_t>(position);
    const std::size_t count = std::min(into.size(), bytes_.size() - start);
    std::copy_n(std::as_bytes(std::span(bytes_)).begin() + static_cast<std::ptrdiff_t>(start),
                count, into.begin());
    return count;
}

std::string MemoryFiles::Key(const std::string& path) {
    std::string key = LowerCase(path);
    std::replace(key.begin(), key.end(), '\\', '/');
    return key;
}

void MemoryFiles::Put(const std::string& path, std::span<const std::byte> bytes) {
    Put(path, AsText(bytes));
}

bool MemoryFiles::FileExists(const std::string& path) {
    asked_.push_back(path);
    return Has(path);
}

std::unique_ptr<InputFile> MemoryFiles::OpenForReading(const std::string& path) {
    const auto found = files_.find(Key(path));
    if (found == files_.end()) {
        throw RunTimeError(RunTimeErrorKind::FileNotFound, path);
    }
    if (broken_.contains(Key(path))) {
        return std::make_unique<BrokenFile>(path, found->second.size());
    }
    return std::make_unique<MemoryFile>(found->second);
}

std::unique_ptr<OutputFile> MemoryFiles::OpenForWriting(const std::string& path) {
    if (refused_.contains(Key(path))) {
        throw RunTimeError(RunTimeErrorKind::PathFileAccess, path);
    }
    written_.push_back(path);
    std::string& file = files_[Key(path)];
    file.clear();
    return std::make_unique<MemoryOutput>(file, full_, failsAtClose_);
}

void MemoryFiles::ReplaceFile(const std::string& path, std::string_view bytes) {
    written_.push_back(path);
    if (full_) {
        throw RunTimeError(RunTimeErrorKind::DiskFull, path);
    }
    files_[Key(path)] = bytes;
}

void MemoryFiles::Delete(const std::string& path) {
    if (files_.erase(Key(path)) == 0) {
        throw RunTimeError(RunTimeErrorKind::FileNotFound, path);
    }
}

bool MemoryFiles::FolderExists(const std::string& path) {
    const std::string folder = WithSeparator(Key(path));
    const auto file = files_.lower_bound(folder);
    return file != files_.end() && file->first.starts_with(folder);
}

std::vector<std::string> MemoryFiles::List(const std::string& folder, std::string_view extension) {
    const std::string prefix = Key(folder);
    std::vector<std::string> names;
    for (const auto& [path, bytes] : files_) {
        if (path.starts_with(prefix) && path.ends_with(LowerCase(extension)) &&
            path.find('/', prefix.size()) == std::string::npos) {
            names.push_back(path.substr(prefix.size()));
        }
    }
    return names;
}

std::vector<std::string> MemoryFiles::ListFolders(const std::string& folder) {
    const std::string prefix = WithSeparator(Key(folder));
    std::set<std::string> names;
    for (const auto& [path, bytes] : files_) {
        const std::size_t end = path.find('/', prefix.size());
        if (path.starts_with(prefix) && end != std::string::npos) {
            names.insert(path.substr(prefix.size(), end - prefix.size()));
        }
    }
    return {names.begin(), names.end()};
}

}  // namespace scenara::test
