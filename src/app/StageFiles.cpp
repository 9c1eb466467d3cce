// SPDX-License-Identifier: MIT
#include "app/StageFiles.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "base/Path.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr std::string_view kDefinition = ".def";
constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

// Whether the file holds `word` (lower case, no line break) in any case. No line break is in the
// word, so it stands on one line wherever it stands, and a file of one endless line needs no more
// memory than any other.
bool HoldsWord(InputFile& file, std::string_view word, const GoesOn& goesOn) {
    std::vector<char> block(kBlockSize);
    std::size_t kept = 0;  // of the last block, where the word may have begun
    std::uint64_t position = 0;
    while (position < kBlockSize || !goesOn || goesOn()) {
        const std::span<char> free = std::span(block).subspan(kept);
        const std::size_t count = file.ReadAt(position, std::as_writable_bytes(free));
        if (count == 0) {
            return false;
        }
        position += count;
        std::transform(free.begin(), free.begin() + static_cast<std::ptrdiff_t>(count),
                       free.begin(), [](char c) { return LowerCase(c); });
        const std::string_view text(block.data(), kept + count);
        if (Contains(text, word)) {
            return true;
        }
        kept = std::min(text.size(), word.size() - 1);
        std::copy(text.end() - static_cast<std::ptrdiff_t>(kept), text.end(), block.begin());
    }
    return false;
}

bool FileHoldsWord(Files& files, const std::string& path, std::string_view word,
                   const GoesOn& goesOn) {
    return files.FileExists(path) && HoldsWord(*files.OpenForReading(path), word, goesOn);
}

}  // namespace

bool IsStage(Files& files, const std::string& path, const GoesOn& goesOn) {
    return FileHoldsWord(files, path, "camera", goesOn);
}

bool IsChar(Files& files, const std::string& path, const GoesOn& goesOn) {
    return FileHoldsWord(files, path, "stcommon", goesOn);
}

void LoadFilestoList(ListBox& List, const std::string& Path, std::string_view Extension,
                     Files& files, Messages& messages) {
    const std::vector<std::string> names = files.List(Path, Extension);
    if (names.empty()) {
        messages.MsgBox(kMessageNoFiles, "Err.. no files.. uh.. ");
        return;
    }
    List.items.reserve(List.items.size() + names.size());
    for (const std::string& name : names) {
        List.items.push_back(name.substr(0, LowerCase(name).find(kDefinition)));
    }
}

std::string StagesFolder(const std::string& MugeDir) {
    return MugeDir + "stages" + PathSeparator;
}

std::string StageFile(const std::string& MugeDir, const std::string& item) {
    return StagesFolder(MugeDir).append(item).append(kDefinition);
}

// Without a text of its own: the list may have ten thousand items.
bool IsStageFile(std::string_view MugeDir, std::string_view item, std::string_view path) {
    constexpr std::string_view kStages = "stages";
    const auto take = [&path](std::string_view part) {
        const bool begins =
            path.size() >= part.size() && EqualsIgnoringCase(path.substr(0, part.size()), part);
        path.remove_prefix(begins ? part.size() : 0);
        return begins;
    };
    return take(MugeDir) && take(kStages) && take({&PathSeparator, 1}) && take(item) &&
           EqualsIgnoringCase(path, kDefinition);
}

std::string ChosenStage(const std::string& path) {
    const std::string folder = GetPath(path);
    const std::string name(FileName(path));
    const std::size_t at = LowerCase(name).find(kDefinition);
    return at == std::string::npos ? path : folder + name.substr(0, at + kDefinition.size());
}

}  // namespace scenara
