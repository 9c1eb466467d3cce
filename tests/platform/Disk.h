// SPDX-License-Identifier: MIT
//
// Disk: a temporary folder on the real disk for the tests of the file layer, and what the machine
// can be made to refuse: permissions and room. Names are relative to the folder, with "/" between.
// Everything is gone when the fixture goes.
#pragma once

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "support/Raises.h"

namespace scenara::test {

class Disk : public testing::Test {
protected:
    [[nodiscard]] std::string At(std::string_view name) const {
        return std::string(folder_.Path()).append(name);
    }

    // Makes the folders on the way, too.
    void Put(std::string_view name, std::string_view bytes) const {
        const std::filesystem::path path = At(name);
        std::filesystem::create_directories(path.parent_path());
        std::ofstream file(path, std::ios::binary);
        file << bytes;
        file.close();
        ASSERT_TRUE(file) << path;
    }

    void PutFolder(std::string_view name) const { std::filesystem::create_directories(At(name)); }

    void PutLink(std::string_view name, const std::string& target) const {
        std::filesystem::create_symlink(target, At(name));
    }

    void PutPipe(std::string_view name) const {
        ASSERT_EQ(::mkfifo(At(name).c_str(), 0666), 0) << name;
    }

    // By this very name; no lookup of the file layer's.
    [[nodiscard]] bool Has(std::string_view name) const {
        return std::filesystem::exists(std::filesystem::symlink_status(At(name)));
    }

    [[nodiscard]] std::string Get(std::string_view name) const {
        std::ifstream file(At(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    // Until the test ends. The fixture's own folder becomes open to all.
    void Restrict(std::string_view name, mode_t mode) {
        ASSERT_EQ(::chmod(At("").c_str(), 0755), 0);
        ASSERT_EQ(::chmod(At(name).c_str(), mode), 0) << name;
        restricted_.push_back(At(name));
    }

    // So that everything can be removed.
    void TearDown() override {
        for (const std::string& path : restricted_) {
            ::chmod(path.c_str(), 0700);
        }
    }

    // The whole file through the file layer.
    [[nodiscard]] std::string Read(const std::string& path) {
        const auto file = files_.OpenForReading(path);
        std::string bytes(static_cast<std::size_t>(file->Size()), '\0');
        const std::size_t count = file->ReadAt(0, std::as_writable_bytes(std::span(bytes)));
        EXPECT_EQ(count, bytes.size());
        return bytes;
    }

    void Write(const std::string& path, std::string_view bytes) {
        const auto file = files_.OpenForWriting(path);
        file->Write(bytes);
        file->Close();
    }

    // A name under which nothing can be read or written, for this reason.
    void ExpectDoesNotOpen(const std::string& path, RunTimeErrorKind kind) {
        SCOPED_TRACE(path);
        EXPECT_FALSE(files_.FileExists(path));
        EXPECT_THAT([&] { return files_.OpenForReading(path); }, Raises(kind));
        EXPECT_THAT([&] { return files_.OpenForWriting(path); }, Raises(kind));
    }

    PosixFiles files_{"/program"};

private:
    TemporaryFolder folder_;
    std::vector<std::string> restricted_;
};

// For a test as root, whom nothing is forbidden: another user while it lives.
class AsOrdinaryUser {
public:
    AsOrdinaryUser() : changed_(::geteuid() == 0 && ::setresuid(kNobody, kNobody, 0) == 0) {}
    AsOrdinaryUser(const AsOrdinaryUser&) = delete;
    AsOrdinaryUser& operator=(const AsOrdinaryUser&) = delete;
    ~AsOrdinaryUser() {
        if (changed_) {
            EXPECT_EQ(::setresuid(0, 0, 0), 0);
        }
    }

    [[nodiscard]] static bool Works() { return ::geteuid() != 0; }

private:
    static constexpr uid_t kNobody = 65534;

    bool changed_;
};

// A disk on which no file can grow beyond `bytes`, while it lives.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &oldLimit_);
        const rlimit limit{bytes, oldLimit_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &oldLimit_);
        std::signal(SIGXFSZ, oldHandler_);
    }

private:
    rlimit oldLimit_{};
    void (*oldHandler_)(int);
};

// What is raised while no file can grow beyond `bytes`; empty: nothing. (Nothing is printed before
// the disk has room again: what is printed goes to a file, too.)
template <typename Action>
std::string ErrorOnFullDisk(rlim_t bytes, Action action) {
    const FullDisk full(bytes);
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.what();
    }
    return {};
}

}  // namespace scenara::test
