// SPDX-License-Identifier: MIT
//
// LineReader: the one reader of text files, line by line.
//
// A line ends at CR LF, LF or CR; the last one needs no end. A UTF-8 byte order mark at the start
// of the file is skipped. Lines are bytes as they stand in the file (Windows ANSI code page; zero
// bytes and all); nothing is rejected for its encoding. Memory is one block plus the longest line.
// The file outlives the reader. A failing device raises RunTimeError.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace scenara {

class LineReader {
public:
    explicit LineReader(InputFile& file);

    // Moves to the next line; false when there is none.
    [[nodiscard]] bool Next();

    // The line that Next() found, without its end; valid until the next call of Next().
    [[nodiscard]] std::string_view Line() const { return line_; }

    // Its number, 1 for the first.
    [[nodiscard]] std::int64_t Number() const { return number_; }

private:
    [[nodiscard]] bool Refill();
    [[nodiscard]] std::size_t FindLineEnd();

    InputFile& file_;
    std::uint64_t position_ = 0;      // in the file, behind the block
    std::vector<std::byte> block_;    // what was read last
    std::string_view rest_;           // of the block, not yet given out
    const char* lineFeed_ = nullptr;  // the next one at or behind rest_'s start, or rest_'s end
    std::vector<char> joined_;        // a line that reaches over blocks
    std::string_view line_;
    std::int64_t number_ = 0;
    bool skipLineFeed_ = false;  // the last line ended in CR; a LF next belongs to it
};

}  // namespace scenara
