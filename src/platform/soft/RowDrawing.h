// SPDX-License-Identifier: MIT
//
// RowDrawing: how the rows of a quad are drawn: its states, its tint and what is known of its
// texture choose one of the fast ways of CopyRows.h and BlendRows.h, or the way that is right for
// all.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/soft/Blend.h"
#include "platform/soft/BlendRows.h"
#include "platform/soft/CopyRows.h"
#include "platform/soft/Coverage.h"

namespace scenara::soft {

class RowDrawing {
public:
    // The states outlive it.
    RowDrawing(const PixelStates& states, std::uint32_t tint, Coverage::Kind kind);

    void Draw(const TexelRows& rows) const;

    // Whether texels of alpha 0 leave their pixels alone, so that their colours do not matter.
    [[nodiscard]] bool LeavesHiddenOut() const {
        return operation_ == Operation::Mask || even_.has_value() || byAlpha_.has_value();
    }

private:
    enum class Operation { Copy, Mask, Blend };

    [[nodiscard]] static Operation OperationFor(const PixelStates& states, std::uint32_t tint,
                                                Coverage::Kind kind);

    void Blend(const TexelRows& rows) const;

    const PixelStates& states_;
    std::uint32_t tint_;
    Operation operation_;
    std::optional<EvenBlend> even_;
    std::optional<AlphaBlend> byAlpha_;
};

}  // namespace scenara::soft
