// SPDX-License-Identifier: MIT
//
// scenara-shot as its users run it: the program itself, its files, its standard error and its exit
// status.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "platform/posix/ProgramFolder.h"

namespace scenara::test {

namespace fs = std::filesystem;

inline std::string Contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void Write(const fs::path& path, const std::string& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

class ScenaraShot : public testing::Test {
protected:
    // Runs the program with `arguments` and keeps what it says.
    int Run(const std::string& arguments) {
        const std::string command = std::string(SCENARA_SHOT) + " " + arguments + " >" +
                                    Path("out") + " 2>" + Path("err") + " </dev/null";
        const int status = std::system(command.c_str());
        out_ = Contents(Path("out"));
        err_ = Contents(Path("err"));
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // In the MUGEN folder of its own.
    int RunHere(const std::string& arguments) {
        return Run("--mugen " + Path("mugen") + " " + arguments);
    }

    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path() + name; }

    void PutStage(const std::string& name, const std::string& definition) {
        Write(Path("mugen/stages/" + name), definition);
    }

    TemporaryFolder folder_;
    std::string out_;
    std::string err_;
};

}  // namespace scenara::test
