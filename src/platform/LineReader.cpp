// SPDX-License-Identifier: MIT
#include "platform/LineReader.h"

#include <algorithm>

namespace scenara {
namespace {

constexpr std::size_t kBlockSize = std::size_t{64} * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view AsText(std::span<const std::byte> bytes) {
    // char may alias any bytes.
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

LineReader::LineReader(InputFile& file) : file_(file), block_(kBlockSize) {
    if (Refill() && rest_.starts_with(kByteOrderMark)) {
        rest_.remove_prefix(kByteOrderMark.size());
    }
}

bool LineReader::Refill() {
    const std::size_t count = file_.ReadAt(position_, block_);
    position_ += count;
    rest_ = AsText(std::span(block_).first(count));
    lineFeed_ = nullptr;
    return count > 0;
}

std::size_t LineReader::FindLineEnd() {
    // Both searches go many bytes at a time. In a file without line feeds the one for them would go
    // through the rest of the block for each line, so what it found is kept.
    if (lineFeed_ < rest_.data()) {
        const std::size_t at = rest_.find('\n');
        lineFeed_ = rest_.data() + std::min(at, rest_.size());
    }
    const auto untilLineFeed = static_cast<std::size_t>(lineFeed_ - rest_.data());
    const std::size_t carriageReturn = rest_.substr(0, untilLineFeed).find('\r');
    if (carriageReturn != std::string_view::npos) {
        return carriageReturn;
    }
    return untilLineFeed < rest_.size() ? untilLineFeed : std::string_view::npos;
}

bool LineReader::Next() {
    joined_.clear();
    bool begun = false;
    while (!rest_.empty() || Refill()) {
        if (skipLineFeed_) {
            skipLineFeed_ = false;
            if (rest_.front() == '\n') {
                rest_.remove_prefix(1);
                continue;
            }
        }
        begun = true;
        const std::size_t end = FindLineEnd();
        const std::string_view piece = rest_.substr(0, end);
        if (end == std::string_view::npos || !joined_.empty()) {
            joined_.insert(joined_.end(), piece.begin(), piece.end());
        }
        if (end == std::string_view::npos) {
            rest_ = {};
            continue;
        }
        line_ = joined_.empty() ? piece : std::string_view(joined_.data(), joined_.size());
        skipLineFeed_ = rest_[end] == '\r';
        rest_.remove_prefix(end + 1);
        ++number_;
        return true;
    }
    if (!begun) {
        return false;
    }
    line_ = std::string_view(joined_.data(), joined_.size());
    ++number_;
    return true;
}

}  // namespace scenara
