// SPDX-License-Identifier: MIT
#include "platform/ProblemList.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <numeric>
#include <string_view>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {
namespace {

constexpr std::array kSeverities = {Severity::Error, Severity::Warning, Severity::Note};

// At the most kMostLength bytes of it, and no part of a character that has several.
std::string Cut(std::string_view text) {
    constexpr std::string_view kCut = "...";
    if (text.size() <= ProblemList::kMostLength) {
        return std::string(text);
    }
    return std::string(Beginning(text, ProblemList::kMostLength - kCut.size())).append(kCut);
}

// Each line break, and whatever else no line of text has, as one blank.
std::string OneLine(std::string_view text) {
    std::string line;
    for (const char c : text) {
        const bool isBlank = static_cast<unsigned char>(c) <= ' ';
        if (!isBlank) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    return std::string(Trim(line));
}

std::string CountText(std::size_t count) {
    return NumberText(static_cast<std::int64_t>(count));
}

}  // namespace

void ProblemList::Begin() {
    kept_.clear();
    counts_ = {};
    aside_.clear();
    countsAside_ = {};
    Mark();
    ++generation_;
}

void ProblemList::Add(const Message& message) {
    ++counts_.at(static_cast<std::size_t>(message.kind.severity));
    if (kept_.size() < kMostKept) {
        // The beginning is enough to make a line of, whatever it holds.
        const std::string_view text = message.text;
        kept_.push_back({message.kind.severity, Cut(OneLine(text.substr(0, 2 * kMostLength))),
                         Cut(message.place.file), message.place.line});
    }
}

std::size_t ProblemList::Count() const {
    return std::accumulate(counts_.begin(), counts_.end(), std::size_t{0});
}

void ProblemList::Mark() {
    keptBefore_ = kept_.size();
    countsBefore_ = counts_;
}

void ProblemList::BackToMark() {
    const auto since = kept_.begin() + static_cast<std::ptrdiff_t>(keptBefore_);
    aside_.assign(since, kept_.end());
    kept_.erase(since, kept_.end());
    std::ranges::transform(counts_, countsBefore_, countsAside_.begin(), std::minus());
    if (counts_ != countsBefore_) {
        counts_ = countsBefore_;
        ++generation_;
    }
}

void ProblemList::TakeBack() {
    if (counts_ == countsBefore_) {
        kept_.insert(kept_.end(), aside_.begin(), aside_.end());
        std::ranges::transform(counts_, countsAside_, counts_.begin(), std::plus());
    }
}

const char* NameOf(Severity severity) {
    switch (severity) {
        case Severity::Error: return "Error";
        case Severity::Warning: return "Warning";
        case Severity::Note: break;
    }
    return "Note";
}

std::string SummaryOf(const ProblemList& problems) {
    std::string text;
    for (const Severity severity : kSeverities) {
        if (const std::size_t count = problems.Count(severity); count > 0) {
            text.append(text.empty() ? "" : ", ")
                .append(CountText(count))
                .append(" ")
                .append(LowerCase(NameOf(severity)))
                .append(count == 1 ? "" : "s");
        }
    }
    return text.empty() ? "No problems" : text;
}

std::string RestOf(const ProblemList& problems) {
    return problems.Left() == 0 ? "" : "and " + CountText(problems.Left()) + " more";
}

std::string LineOf(const Problem& problem) {
    std::string text = problem.file;
    if (!text.empty() && problem.line != 0) {
        text.append(":").append(NumberText(problem.line));
    }
    return text.append(text.empty() ? "" : ": ")
        .append(LowerCase(NameOf(problem.severity)))
        .append(": ")
        .append(problem.text);
}

}  // namespace scenara
