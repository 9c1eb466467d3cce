// SPDX-License-Identifier: MIT
//
// A file system in memory for tests: whole files by path, names without regard to case and both
// slashes alike, as every machine has them. Writing can be made to fail.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace scenara::test {

class MemoryFile : public InputFile {
public:
    explicit MemoryFile(std::string bytes) : bytes_(std::move(bytes)) {}
    explicit MemoryFile(std::span<const std::byte> bytes);

    [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }
    std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) override;

    // What was asked for, so that tests can see how a reader goes about it.
    struct Read {
        std::uint64_t position;
        std::size_t wanted;
    };
    [[nodiscard]] const std::vector<Read>& Reads() const { return reads_; }

private:
    std::string bytes_;
    std::vector<Read> reads_;
};

class MemoryFiles : public Files {
public:
    void Put(const std::string& path, std::string bytes) { files_[Key(path)] = std::move(bytes); }
    void Put(const std::string& path, std::span<const std::byte> bytes);

    // From now on the path cannot be written to: "Path/File access error", as for a folder.
    void Refuse(const std::string& path) { refused_.insert(Key(path)); }
    // From now on what is written is lost when a file is closed: "Disk full".
    void FailAtClose() { failsAtClose_ = true; }

    // Contents of a file; fails the lookup with std::out_of_range when there is none.
    [[nodiscard]] const std::string& Get(const std::string& path) const {
        return files_.at(Key(path));
    }
    [[nodiscard]] bool Has(const std::string& path) const { return files_.contains(Key(path)); }

    // From now on the file is found and opened, and every read of it fails with "Device I/O error".
    void Break(const std::string& path) { broken_.insert(Key(path)); }

    // From now on every write fails with "Disk full".
    void FillDisk() { full_ = true; }

    // Every path that was opened for writing, in order.
    [[nodiscard]] const std::vector<std::string>& Written() const { return written_; }
    // Every path whose existence was asked for, in order.
    [[nodiscard]] const std::vector<std::string>& Asked() const { return asked_; }

    bool FileExists(const std::string& path) override;
    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override;
    std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override;
    void ReplaceFile(const std::string& path, std::string_view bytes) override;
    void Delete(const std::string& path) override;
    std::vector<std::string> List(const std::string& folder, std::string_view extension) override;
    std::vector<std::string> ListFolders(const std::string& folder) override;
    // A folder is there when a file is in it, however deep.
    bool FolderExists(const std::string& path) override;
    std::string ProgramFolder() override { return "/program/"; }

private:
    static std::string Key(const std::string& path);

    std::map<std::string, std::string> files_;
    std::vector<std::string> written_;
    std::vector<std::string> asked_;
    std::set<std::string> broken_;
    std::set<std::string> refused_;
    bool failsAtClose_ = false;
    bool full_ = false;
};

}  // namespace scenara::test
