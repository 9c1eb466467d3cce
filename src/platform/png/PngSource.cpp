// SPDX-License-Identifier: MIT
#include "platform/png/PngSource.h"

#include <algorithm>
#include <string>

#include <zlib.h>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

// The signature, and the first chunk's length and name.
constexpr std::array<unsigned char, 16> kBeginning = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n',
                                                      0,    0,   0,   13,  'I',  'H',  'D',  'R'};
constexpr std::size_t kSizesAt = 16;
constexpr std::size_t kColorTypeAt = 25;
constexpr std::size_t kInterlacedAt = 28;
constexpr std::size_t kCheckedAt = 12;
constexpr std::size_t kChecksumAt = 29;

constexpr std::uint8_t kGrey = 0;
constexpr std::uint8_t kPalette = 3;

std::uint32_t NumberAt(std::span<const std::byte> bytes, std::size_t at) {
    std::uint32_t number = 0;
    for (const std::byte byte : bytes.subspan(at, 4)) {
        number = number << 8U | std::to_integer<std::uint32_t>(byte);
    }
    return number;
}

std::uint32_t ChecksumOf(std::span<const std::byte> bytes) {
    const auto checked = bytes.subspan(kCheckedAt, kChecksumAt - kCheckedAt);
    return static_cast<std::uint32_t>(::crc32(0, reinterpret_cast<const Bytef*>(checked.data()),
                                              static_cast<uInt>(checked.size())));
}

std::int32_t SizeAt(std::span<const std::byte> bytes, std::size_t at) {
    const std::uint32_t size = NumberAt(bytes, at);
    if (size < 1 || size > static_cast<std::uint32_t>(kMostPngPixels)) {
        throw RunTimeError(RunTimeErrorKind::Overflow,
                           "PNG of " + std::to_string(NumberAt(bytes, kSizesAt)) + " x " +
                               std::to_string(NumberAt(bytes, kSizesAt + 4)) + " pixels");
    }
    return static_cast<std::int32_t>(size);
}

}  // namespace

PngSource::PngSource(std::span<const std::byte> bytes, PngWanted wanted) : bytes_(bytes) {
    const auto beginning = std::as_bytes(std::span(kBeginning));
    const std::size_t there = std::min(bytes.size(), beginning.size());
    if (!std::ranges::equal(bytes.first(there), beginning.first(there))) {
        throw RunTimeError(RunTimeErrorKind::BadFormat, "no PNG picture");
    }
    if (bytes.size() < kStartSize) {
        throw RunTimeError(RunTimeErrorKind::InputPastEnd, "the PNG ends in its header");
    }
    std::ranges::copy(bytes.first(kStartSize), start_.begin());
    head_.width = SizeAt(start_, kSizesAt);
    head_.height = SizeAt(start_, kSizesAt + 4);
    head_.colorType = std::to_integer<std::uint8_t>(start_[kColorTypeAt]);
    head_.interlaced = start_[kInterlacedAt] != std::byte{0};
    if (wanted == PngWanted::Indices && head_.colorType == kPalette) {
        CallItGrey();
    }
}

// The checksum becomes right if it was, and stays wrong if it was wrong.
void PngSource::CallItGrey() {
    const std::uint32_t before = ChecksumOf(start_);
    start_[kColorTypeAt] = std::byte{kGrey};
    const std::uint32_t checksum = NumberAt(start_, kChecksumAt) ^ before ^ ChecksumOf(start_);
    for (std::size_t i = 0; i < 4; ++i) {
        start_[kChecksumAt + i] = static_cast<std::byte>(checksum >> (24 - 8 * i));
    }
}

bool PngSource::Read(std::span<std::byte> out) {
    if (out.size() > Left()) {
        return false;
    }
    const std::size_t fromStart =
        position_ < kStartSize ? std::min(kStartSize - position_, out.size()) : 0;
    std::copy_n(
        start_.begin() + static_cast<std::ptrdiff_t>(position_ < kStartSize ? position_ : 0),
        fromStart, out.begin());
    std::ranges::copy(bytes_.subspan(position_ + fromStart, out.size() - fromStart),
                      out.begin() + static_cast<std::ptrdiff_t>(fromStart));
    position_ += out.size();
    return true;
}

}  // namespace scenara
