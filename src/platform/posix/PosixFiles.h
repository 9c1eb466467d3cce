// SPDX-License-Identifier: MIT
//
// PosixFiles: the file layer on Linux and its relatives.
//
// A path is looked up as it stands first. When it is not there, each component is looked for in
// turn: by its exact name, then without regard to ASCII case, then by its name in UTF-8 (stage
// files spell names in the Windows code page). Where several names differ only in case, the first
// in byte order is taken, so that the answer does not depend on the disk.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace scenara {

class PosixFiles : public Files {
public:
    // `programFolder`: where the program keeps its own files; see ProgramFolder.h.
    explicit PosixFiles(std::string_view programFolder);

    bool FileExists(const std::string& path) override;
    std::unique_ptr<InputFile> OpenForReading(const std::string& path) override;
    std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) override;
    void ReplaceFile(const std::string& path, std::string_view bytes) override;
    void Delete(const std::string& path) override;
    std::vector<std::string> List(const std::string& folder, std::string_view extension) override;
    std::vector<std::string> ListFolders(const std::string& folder) override;
    bool FolderExists(const std::string& path) override;
    std::optional<FileStamp> Stamp(const std::string& path) override;
    std::string RealPath(const std::string& path) override;
    std::vector<std::string> InOtherLetters(const std::string& name) override;
    std::string ProgramFolder() override { return programFolder_; }

private:
    std::string programFolder_;
};

}  // namespace scenara
