// SPDX-License-Identifier: MIT
#include "platform/soft/AreaMeans.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

#include "platform/soft/MeanRows.h"

namespace scenara::soft {
namespace {

constexpr std::size_t kChannels = 4;

std::size_t Length(std::int32_t length) {
    return static_cast<std::size_t>(length);
}

}  // namespace

void AreaMeans::Prepare(const CanvasSize& size, const CanvasSize& shown) {
    size_ = size;
    MakeStretches(shown.height, size.height, rows_);
    MakeStretches(shown.width, size.width, columns_);
    sums_.resize(Length(size.width) * kChannels);
    means_.resize(Length(shown.width) * kChannels);
}

// In parts of which a pixel of the canvas has `size`, and one that is shown `all`.
void AreaMeans::MakeStretches(std::int32_t size, std::int32_t all,
                              std::vector<Stretch>& stretches) {
    stretches.resize(Length(size));
    std::int64_t begin = 0;
    for (Stretch& stretch : stretches) {
        const std::int64_t end = begin + all;
        const std::int64_t first = begin / size;
        const std::int64_t last = (end - 1) / size;
        stretch.first = static_cast<std::int32_t>(first);
        stretch.last = static_cast<std::int32_t>(last);
        const auto part = [size](std::int64_t parts) {
            return static_cast<float>(parts) / static_cast<float>(size);
        };
        stretch.ofFirst = part(std::min((first + 1) * size, end) - begin);
        stretch.ofLast = first < last ? part(end - last * size) : 0;
        begin = end;
    }
}

void AreaMeans::Draw(const std::uint32_t* canvas, const ScaledPixels& into) {
    std::int32_t y = 0;
    const float share = static_cast<float>(into.width) * static_cast<float>(into.height) /
                        (static_cast<float>(size_.width) * static_cast<float>(size_.height));
    for (const Stretch& rows : rows_) {
        AddRows(canvas, rows);
        MixColumns();
        RoundChannels(means_, share, into.Row(y++));
    }
}

void AreaMeans::AddRows(const std::uint32_t* canvas, const Stretch& rows) {
    const auto row = [&](std::int32_t at) {
        return canvas + static_cast<std::ptrdiff_t>(at) * size_.width;
    };
    std::fill(sums_.begin(), sums_.end(), 0.0F);
    AddChannels(row(rows.first), rows.ofFirst, sums_);
    for (std::int32_t at = rows.first + 1; at < rows.last; ++at) {
        AddChannels(row(at), 1, sums_);
    }
    if (rows.first < rows.last && rows.ofLast > 0) {
        AddChannels(row(rows.last), rows.ofLast, sums_);
    }
}

void AreaMeans::MixColumns() {
    // Without attributes for the type's alignment, since it is loaded and stored byte by byte.
    using Channels [[gnu::vector_size(16)]] = float;
    const auto sum = [this](std::int32_t column) {
        Channels channels;
        std::memcpy(&channels, sums_.data() + Length(column) * kChannels, sizeof channels);
        return channels;
    };
    float* mean = means_.data();
    for (const Stretch& columns : columns_) {
        Channels channels = sum(columns.first) * columns.ofFirst;
        for (std::int32_t at = columns.first + 1; at < columns.last; ++at) {
            channels += sum(at);
        }
        channels += sum(columns.last) * columns.ofLast;
        std::memcpy(mean, &channels, sizeof channels);
        mean += kChannels;
    }
}

}  // namespace scenara::soft
