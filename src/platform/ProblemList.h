// SPDX-License-Identifier: MIT
//
// ProblemList: what was reported of a stage, to be read again: every message, whether or not a box
// showed it.
//
// A hostile file can have a million of them. kMostKept are kept, each text and path cut at
// kMostLength bytes; the others are counted. Texts are bytes as in files.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "platform/Messages.h"

namespace scenara {

struct Problem {
    Severity severity = Severity::Note;
    std::string text;  // a single line
    std::string file;  // as it was opened; empty: of none
    std::int64_t line = 0;

    friend bool operator==(const Problem&, const Problem&) = default;
};

class ProblemList {
public:
    static constexpr std::size_t kMostKept = 10000;
    static constexpr std::size_t kMostLength = 500;

    // Another stage: what there is goes. There has been one from then on.
    void Begin();
    [[nodiscard]] bool HasBegun() const { return generation_ != 0; }

    void Add(const Message& message);

    // The first ones, oldest first.
    [[nodiscard]] const std::vector<Problem>& Kept() const { return kept_; }
    // All, and those that are not kept.
    [[nodiscard]] std::size_t Count() const;
    [[nodiscard]] std::size_t Left() const { return Count() - kept_.size(); }
    [[nodiscard]] std::size_t Count(Severity severity) const {
        return counts_.at(static_cast<std::size_t>(severity));
    }

    // Another number each time that something has gone; else there are at most more than before.
    [[nodiscard]] std::uint64_t Generation() const { return generation_; }

    // What has come since Mark goes, and is kept aside until something else goes so. TakeBack has
    // it again, where nothing has come since.
    void Mark();
    void BackToMark();
    void TakeBack();

private:
    using Counts = std::array<std::size_t, 3>;  // by Severity

    std::vector<Problem> kept_;
    Counts counts_{};
    std::size_t keptBefore_ = 0;  // when it was marked
    Counts countsBefore_{};
    std::vector<Problem> aside_;
    Counts countsAside_{};
    std::uint64_t generation_ = 0;
};

// "Error", "Warning", "Note".
[[nodiscard]] const char* NameOf(Severity severity);

// "2 errors, 1 warning, 12 notes"; "No problems".
[[nodiscard]] std::string SummaryOf(const ProblemList& problems);

// "and 12 more"; empty where all are kept.
[[nodiscard]] std::string RestOf(const ProblemList& problems);

// For the clipboard: "FILE:LINE: error: TEXT", as far as file and line are known.
[[nodiscard]] std::string LineOf(const Problem& problem);

}  // namespace scenara
