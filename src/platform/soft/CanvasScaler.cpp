// SPDX-License-Identifier: MIT
#include "platform/soft/CanvasScaler.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace scenara::soft {
namespace {

ScaleTap TapOf(Scaling scaling, std::int32_t at, std::int32_t size, std::int32_t all) {
    if (scaling == Scaling::Nearest || size < all) {
        return NearestTap(at, size, all);
    }
    return scaling == Scaling::Smooth ? SmoothTap(at, size, all) : AverageTap(at, size, all);
}

void MakeTaps(Scaling scaling, std::int32_t size, std::int32_t all, std::vector<ScaleTap>& taps) {
    taps.resize(static_cast<std::size_t>(size));
    std::int32_t at = 0;
    for (ScaleTap& tap : taps) {
        tap = TapOf(scaling, at++, size, all);
    }
}

bool AreRepeated(const std::vector<ScaleTap>& taps) {
    return std::ranges::all_of(taps, [](const ScaleTap& tap) { return tap.weight == 0; });
}

// The block that begins with this column. Beyond the last one it has that again.
ScaleBlock BlockAt(const std::vector<ScaleTap>& taps, std::size_t column, std::int32_t all) {
    const std::int32_t lastWindow = std::max(all - static_cast<std::int32_t>(kScaleBlock), 0);
    ScaleBlock block;
    block.firsts = std::min(taps[column].first, lastWindow);
    block.neighbours = std::min(taps[column].first + 1, lastWindow);
    for (std::size_t i = 0; i < kScaleBlock; ++i) {
        const ScaleTap& tap = taps[std::min(column + i, taps.size() - 1)];
        block.first[i] = static_cast<std::uint8_t>(tap.first - block.firsts);
        block.neighbour[i] =
            static_cast<std::uint8_t>(std::min(tap.first + 1, all - 1) - block.neighbours);
        block.weight[i] = tap.weight;
    }
    return block;
}

bool IsSide(std::int32_t length) {
    return length >= 1 && length <= kMostScaled;
}

// Calls `draw` with each row that is shown, its tap and where it is drawn to; a row that is the
// same as the one before is a copy of that.
template <typename Draw>
void ForEachRow(const std::vector<ScaleTap>& rows, const ScaledPixels& into, const Draw& draw) {
    const std::uint32_t* before = nullptr;
    for (std::size_t y = 0; y < rows.size(); ++y) {
        std::uint32_t* const shown = into.Row(static_cast<std::int32_t>(y));
        if (before != nullptr && rows[y] == rows[y - 1]) {
            std::copy_n(before, into.width, shown);
        } else {
            draw(rows[y], shown);
        }
        before = shown;
    }
}

}  // namespace

void CanvasScaler::Draw(const CanvasSize& size, std::span<const std::uint32_t> canvas,
                        Scaling scaling, const ScaledPixels& into) {
    if (!IsSide(size.width) || !IsSide(size.height) || !IsSide(into.width) ||
        !IsSide(into.height) ||
        canvas.size() / static_cast<std::size_t>(size.width) <
            static_cast<std::size_t>(size.height)) {
        return;
    }
    if (const Shape shape{size, {into.width, into.height}, scaling}; shape != shape_) {
        shape_ = shape;
        MakeTables();
    }
    if (way_ == Way::Means) {
        means_.Draw(canvas.data(), into);
    } else if (way_ == Way::Nearest) {
        DrawNearest(canvas.data(), into);
    } else if (way_ == Way::Repeated) {
        DrawRepeated(canvas.data(), into);
    } else {
        DrawMixed(canvas.data(), into);
    }
}

void CanvasScaler::MakeTables() {
    const auto& [canvas, shown, scaling] = *shape_;
    const bool isSmaller = shown.width < canvas.width || shown.height < canvas.height;
    if (isSmaller && scaling != Scaling::Nearest) {
        way_ = Way::Means;
        means_.Prepare(canvas, shown);
        return;
    }
    MakeTaps(scaling, shown.width, canvas.width, columns_);
    MakeTaps(scaling, shown.height, canvas.height, rows_);
    if (isSmaller) {
        way_ = Way::Nearest;
        return;
    }
    way_ = AreRepeated(columns_) && AreRepeated(rows_) ? Way::Repeated : Way::Mixed;
    blocks_.clear();
    for (std::size_t column = 0; column < columns_.size(); column += kScaleBlock) {
        blocks_.push_back(BlockAt(columns_, column, canvas.width));
    }
    for (std::vector<MixedBlock>& row : mixed_) {
        row.resize(way_ == Way::Mixed ? blocks_.size() : 0);
    }
}

void CanvasScaler::DrawNearest(const std::uint32_t* canvas, const ScaledPixels& into) const {
    ForEachRow(rows_, into, [&](const ScaleTap& tap, std::uint32_t* shown) {
        const std::uint32_t* const row = RowOf(canvas, tap.first);
        std::ranges::transform(columns_, shown,
                               [row](const ScaleTap& column) { return row[column.first]; });
    });
}

void CanvasScaler::DrawRepeated(const std::uint32_t* canvas, const ScaledPixels& into) const {
    const ScaleRows loops(shape_->canvas.width, path_);
    const auto width = static_cast<std::size_t>(into.width);
    ForEachRow(rows_, into, [&](const ScaleTap& tap, std::uint32_t* shown) {
        const std::uint32_t* const row = RowOf(canvas, tap.first);
        if (shape_->shown.width == shape_->canvas.width) {
            std::copy_n(row, width, shown);
        } else {
            loops.Repeat(row, blocks_, {shown, width});
        }
    });
}

// A row of the canvas is mixed sideways once, for all the rows that it has a part in: it stays
// where it is while its neighbour takes the other place.
void CanvasScaler::DrawMixed(const std::uint32_t* canvas, const ScaledPixels& into) {
    const ScaleRows loops(shape_->canvas.width, path_);
    std::int32_t mixed[2] = {-1, -1};
    const auto mix = [&](std::int32_t row) {
        const std::size_t place = static_cast<std::size_t>(row) % 2;
        if (std::exchange(mixed[place], row) != row) {
            loops.MixColumns(RowOf(canvas, row), blocks_, mixed_[place].data());
        }
        return mixed_[place].data();
    };
    ForEachRow(rows_, into, [&](const ScaleTap& tap, std::uint32_t* shown) {
        const MixedBlock* const first = mix(tap.first);
        const MixedBlock* const second = tap.weight != 0 ? mix(tap.first + 1) : first;
        loops.MixRows(first, second, tap.weight, {shown, static_cast<std::size_t>(into.width)});
    });
}

}  // namespace scenara::soft
