// SPDX-License-Identifier: MIT
#include "base/ByteReader.h"

#include <string>

#include "base/RunTimeError.h"

namespace scenara {

std::span<const std::byte> ByteReader::Take(std::uint64_t count) {
    const std::uint64_t there = block_.size() - position_;
    if (count > there) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd,
                           std::string(what_) + ": " + std::to_string(count) + " bytes wanted at " +
                               std::to_string(position_) + ", " + std::to_string(there) + " there");
    }
    const auto taken = block_.subspan(position_, static_cast<std::size_t>(count));
    position_ += taken.size();
    return taken;
}

std::uint16_t ByteReader::U16() {
    const auto bytes = Take(2);
    return static_cast<std::uint16_t>(std::to_integer<unsigned>(bytes[0]) |
                                      std::to_integer<unsigned>(bytes[1]) << 8U);
}

std::uint32_t ByteReader::U32() {
    const auto bytes = Take(4);
    const auto part = [&](std::size_t i) { return std::to_integer<std::uint32_t>(bytes[i]); };
    return part(0) | part(1) << 8U | part(2) << 16U | part(3) << 24U;
}

}  // namespace scenara
