// SPDX-License-Identifier: MIT
#include "stage/LineEndingRepair.h"

#include <array>
#include <memory>
#include <vector>

#include "base/Path.h"
#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;

// Line feeds without a carriage return before them get one. `last` is the character before `text`.
std::string WithCarriageReturns(std::string_view text, char& last) {
    std::string repaired;
    repaired.reserve(text.size() + text.size() / 8);
    for (const char c : text) {
        if (c == '\n' && last != '\r') {
            repaired.push_back('\r');
        }
        repaired.push_back(c);
        last = c;
    }
    return repaired;
}

std::string_view AsText(std::span<const std::byte> bytes) {
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

bool NeedsLineEndingRepair(InputFile& file) {
    std::array<std::byte, kLongestFirstLine + 1> start{};
    const std::size_t count = file.ReadAt(0, start);
    return count == start.size() && AsText(start).find('\r') == std::string_view::npos;
}

LineEndingRepair::LineEndingRepair(Files& files, std::string& defPath)
    : files_(files), defPath_(defPath), originalPath_(defPath) {
    const std::unique_ptr<InputFile> original = files_.OpenForReading(defPath);
    if (NeedsLineEndingRepair(*original) && WriteCopy(*original)) {
        defPath_ = copyPath_;
    }
}

bool LineEndingRepair::WriteCopy(InputFile& original) {
    const std::string path = JoinPath(files_.ProgramFolder(), "fix.def");
    if (files_.FileExists(path)) {
        return false;  // somebody's file; it may be the very stage that is being opened
    }
    copyPath_ = path;
    try {
        const std::unique_ptr<OutputFile> copy = files_.OpenForWriting(copyPath_);
        std::vector<std::byte> block(kBlockSize);
        char last = '\0';
        std::uint64_t position = 0;
        while (const std::size_t count = original.ReadAt(position, block)) {
            position += count;
            copy->Write(WithCarriageReturns(AsText(std::span(block).first(count)), last));
        }
        copy->Close();
        return true;
    } catch (const RunTimeError&) {
        DeleteCopy();
        return false;
    }
}

void LineEndingRepair::DeleteCopy() {
    if (copyPath_.empty()) {
        return;
    }
    try {
        files_.Delete(copyPath_);
    } catch (const RunTimeError&) {
        // It was not made, or somebody else has cleared it away: either way it is gone.
    }
    copyPath_.clear();
}

void LineEndingRepair::Undo() {
    DeleteCopy();
    defPath_ = originalPath_;
}

}  // namespace scenara
