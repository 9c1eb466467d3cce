// SPDX-License-Identifier: MIT
//
// Files: what the program asks of a machine's file system.
//
// Names. Content was made on a system that ignores letter case and takes "\" and "/" alike, so
// every machine resolves each component of a path exactly if it exists, else without regard to
// ASCII case, in every one of these operations. Only ordinary files are files: a folder, a pipe or
// a device of that name does not exist as one, and opening it fails without waiting for it.
//
// What only asks or reads may be called from any thread, each file from one at a time.
//
// Failures raise RunTimeError with the path in its text. An opened file is closed by its
// destructor; one that was written to must be closed with Close(), which reports what the
// destructor would have to swallow.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/NotCopied.h"

namespace scenara {

// A file being read, at any position.
class InputFile : NotCopied {
public:
    virtual ~InputFile() = default;

    // Size in bytes when the file was opened.
    [[nodiscard]] virtual std::uint64_t Size() const = 0;

    // Fills `into` from `position` on and returns how many bytes there were: fewer than asked for
    // only where the file ends, 0 from its end on. A failing device raises "Device I/O error".
    virtual std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) = 0;
};

// A file being written from its start.
class OutputFile : NotCopied {
public:
    virtual ~OutputFile() = default;

    virtual void Write(std::string_view bytes) = 0;
    // Everything is with the system when this returns.
    virtual void Close() = 0;
};

// A file that has changed has another one.
struct FileStamp {
    std::uint64_t size = 0;
    std::int64_t written = 0;  // when, in nanoseconds of the machine's own
    std::uint64_t file = 0;    // which one, of those that have had the name

    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

class Files : NotCopied {
public:
    virtual ~Files() = default;

    // Whether the file can be opened for reading. Never fails.
    [[nodiscard]] virtual bool FileExists(const std::string& path) = 0;

    [[nodiscard]] virtual std::unique_ptr<InputFile> OpenForReading(const std::string& path) = 0;

    // Creates the file anew; an old one of that name is emptied.
    [[nodiscard]] virtual std::unique_ptr<OutputFile> OpenForWriting(const std::string& path) = 0;

    // The file with new contents in one step: whoever opens it, whenever the machine stops, finds
    // the old contents or the new ones, whole. A missing file is made. On failure the old file is
    // as it was. Permissions stay; where the name is a link, what it leads to is replaced.
    virtual void ReplaceFile(const std::string& path, std::string_view bytes) = 0;

    virtual void Delete(const std::string& path) = 0;

    // Names (without the folder) of the ordinary files in `folder` that end in `extension`, letter
    // case ignored, in the stable order of the machine: sorted without regard to case, but on
    // Windows as the file system has them. A folder that cannot be listed has none.
    [[nodiscard]] virtual std::vector<std::string> List(const std::string& folder,
                                                        std::string_view extension) = 0;

    // Names (without the folder) of the folders in `folder`, in the same order. A folder that
    // cannot be listed has none.
    [[nodiscard]] virtual std::vector<std::string> ListFolders(const std::string& folder) = 0;

    // Whether there is a folder of that name. Never fails.
    [[nodiscard]] virtual bool FolderExists(const std::string& path) = 0;

    // None where there is no such file, or the machine does not know. Never fails.
    [[nodiscard]] virtual std::optional<FileStamp> Stamp([[maybe_unused]] const std::string& path) {
        return std::nullopt;
    }

    // The one path of a file or folder to which several may lead through links; `path` itself where
    // there is none, or the machine has no links. Never fails.
    [[nodiscard]] virtual std::string RealPath(const std::string& path) { return path; }

    // A name of a text file as it would be on this disk had its bytes been written in Japanese
    // (Windows-932) or Chinese (Windows-936); without those in which the bytes say nothing, and
    // without `name` itself.
    [[nodiscard]] virtual std::vector<std::string> InOtherLetters(
        [[maybe_unused]] const std::string& name) {
        return {};
    }

    // Where the program keeps its own files, with a separator at its end.
    [[nodiscard]] virtual std::string ProgramFolder() = 0;
};

}  // namespace scenara
