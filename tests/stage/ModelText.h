// SPDX-License-Identifier: MIT
//
// ModelText: a stage model as text, every field of every record on a line of its own.
//
// Two models are the same when their texts are; where they differ the test shows the fields. Of a
// texture it tells a sum over its pixels.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "base/NumberText.h"
#include "stage/ModelFields.h"
#include "stage/StageModel.h"

namespace scenara::test {

// A sum (FNV-1a) over size and pixels, 0 without a texture.
inline std::uint64_t PixelSum(Direct3DTexture8* texture) {
    if (texture == nullptr) {
        return 0;
    }
    std::uint64_t sum = 14695981039346656037U;
    const auto add = [&sum](std::uint32_t word) { sum = (sum ^ word) * 1099511628211U; };
    add(static_cast<std::uint32_t>(texture->Width()));
    add(static_cast<std::uint32_t>(texture->Height()));
    const LockedPixels pixels = texture->LockRect();
    for (std::int32_t y = 0; y < texture->Height(); ++y) {
        for (std::int32_t x = 0; x < texture->Width(); ++x) {
            add(pixels.words[static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.pitch) +
                             static_cast<std::size_t>(x)]);
        }
    }
    texture->UnlockRect();
    return sum;
}

template <typename Record>
std::string ModelText(const Record& record);

inline std::string AsText(const std::string& value) {
    return "'" + value + "'";
}
inline std::string AsText(Single value) {
    return NumberText(value);
}
inline std::string AsText(double value) {
    return NumberText(value);
}
template <std::integral Number>
std::string AsText(Number value) {
    return std::to_string(value);
}
template <typename Kind>
requires std::is_enum_v<Kind> std::string AsText(Kind kind) {
    return std::to_string(static_cast<int>(kind));
}
inline std::string AsText(const Blending& value) {
    return std::to_string(static_cast<int>(value.kind)) + " " + std::to_string(value.source) + " " +
           std::to_string(value.destination);
}

// The records of a table, each under its heading; the numbers of a list, on one line.
template <typename Table>
std::string TableText(std::string_view name, const Table& table) {
    if constexpr (std::is_arithmetic_v<typename Table::value_type>) {
        std::string text(name);
        text.append("=");
        for (const auto& value : table) {
            text.append(AsText(value)).append(" ");
        }
        return text + "\n";
    } else {
        std::string text;
        for (std::size_t i = 0; i < table.size(); ++i) {
            text.append(name).append(" ").append(std::to_string(i)).append("\n");
            text.append(ModelText(table[i]));
        }
        return text;
    }
}

inline std::string FieldText(std::string_view name, const auto& value) {
    if constexpr (requires { AsText(value); }) {
        return std::string(name).append("=").append(AsText(value)).append("\n");
    } else {
        return TableText(name, value);
    }
}

// The settings and counts alone, and a record without the tables in it.
template <typename Record>
std::string FieldsText(const Record& record) {
    std::string text;
    ForEachField(record,
                 [&](const char* name, const auto& value) { text.append(FieldText(name, value)); });
    return text;
}

template <typename Record>
std::string ModelText(const Record& record) {
    std::string text = FieldsText(record);
    if constexpr (std::same_as<Record, SpriteEntry>) {
        text.append(FieldText("texture", PixelSum(record.texture.get())));
    }
    if constexpr (std::same_as<Record, StageModel>) {
        ForEachTable(record, [&](const char* name, const auto& table) {
            text.append(TableText(name, table));
        });
    }
    return text;
}

}  // namespace scenara::test
