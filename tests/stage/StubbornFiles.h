// SPDX-License-Identifier: MIT
//
// StubbornFiles: files in memory on a machine that fails when asked to: reading from some position
// on, finding memory, and making files. It keeps the list of what was opened for reading.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "support/MemoryFiles.h"

namespace scenara::test {

class StubbornFile : public InputFile {
public:
    StubbornFile(std::unique_ptr<InputFile> file, std::uint64_t failFrom, bool outOfMemory)
        : file_(std::move(file)), failFrom_(failFrom), outOfMemory_(outOfMemory) {}

    [[nodiscard]] std::uint64_t Size() const override { return file_->Size(); }

    std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) override {
        if (outOfMemory_) {
            throw std::bad_alloc();
        }
        const std::uint64_t end = std::min(position + into.size(), Size());
        if (end > failFrom_) {
            throw RunTimeError(RunTimeErrorKind::DeviceIo);
        }
        return file_->ReadAt(position, into);
    }

private:
    std::unique_ptr<InputFile> file_;
    std::uint64_t failFrom_;
    bool outOfMemory_;
};

class StubbornFiles : public MemoryFiles {
public:
    bool refuseWriting = false;
    bool outOfMemory = false;
    std::uint64_t failFrom = std::numeric_limits<std::uint64_t>::max();
    std::vector<std::string> opened;

    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override {
        opened.push_back(path);
        return std::make_unique<StubbornFile>(MemoryFiles::OpenForReading(path), failFrom,
                                              outOfMemory);
    }

    std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override {
        if (refuseWriting) {
            throw RunTimeError(RunTimeErrorKind::PermissionDenied, path);
        }
        return MemoryFiles::OpenForWriting(path);
    }
};

}  // namespace scenara::test
