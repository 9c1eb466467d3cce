// SPDX-License-Identifier: MIT
//
// RecordingDevice: a Direct3D device for tests of the sprite room.
//
// It records what every texture is made with, counts locks, gives pitches of its own choice, and
// can refuse a texture. A texture starts full of kUnwritten, a word that no picture holds, so that
// a pixel which nobody wrote is seen. Each has its own block on the heap, for the address
// sanitizer.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/Direct3D8.h"
#include "support/NullDevice.h"

namespace scenara::test {

// Alpha is 0 or 255 in every pixel of a picture.
inline constexpr std::uint32_t kUnwritten = 0x5A5A5A5A;

// What a device makes of the pitch and the slack that the writer would like.
enum class DeviceLines {
    AsWanted,  // both given
    Tight,     // neither: as many words as the lines are wide
    Wide,      // neither: lines of the device's own length
};

struct LockCounts {
    int locks = 0;
    int unlocks = 0;
};

class RecordingTexture : public NullTexture {
public:
    RecordingTexture(const TextureParameters& parameters, DeviceLines lines,
                     std::shared_ptr<LockCounts> counts)
        : NullTexture(parameters.width, parameters.height),
          pitch_(parameters.width),
          counts_(std::move(counts)) {
        std::size_t slack = 0;
        if (lines == DeviceLines::AsWanted) {
            pitch_ = std::max(parameters.width, parameters.wantedPitch);
            slack = parameters.wantedSlack;
        } else if (lines == DeviceLines::Wide) {
            pitch_ = parameters.width + 5;
        }
        words_.assign(
            static_cast<std::size_t>(pitch_) * static_cast<std::size_t>(parameters.height) + slack,
            kUnwritten);
    }

    LockedPixels LockRect() override {
        ++counts_->locks;
        return {words_, pitch_};
    }
    void UnlockRect() override { ++counts_->unlocks; }

private:
    std::int32_t pitch_;
    std::vector<std::uint32_t> words_;
    std::shared_ptr<LockCounts> counts_;
};

class RecordingDevice : public NullDevice {
public:
    explicit RecordingDevice(DeviceLines lines = DeviceLines::AsWanted) : lines_(lines) {}

    std::shared_ptr<Direct3DTexture8> CreateTexture(const TextureParameters& parameters) override {
        created_.push_back(parameters);
        if (refusal_) {
            const RunTimeErrorKind kind = *refusal_;
            refusal_.reset();
            throw RunTimeError(kind, "the device has no room");
        }
        if (std::exchange(heapIsFull_, false)) {
            throw std::bad_alloc();
        }
        return std::make_shared<RecordingTexture>(parameters, lines_, counts_);
    }

    // The next texture is refused with this error.
    void RefuseNext(RunTimeErrorKind kind) { refusal_ = kind; }

    // The next texture is more than the heap has.
    void FailNextAllocation() { heapIsFull_ = true; }

    // What was asked for, refused ones included, oldest first.
    [[nodiscard]] const std::vector<TextureParameters>& Created() const { return created_; }
    [[nodiscard]] const LockCounts& Counts() const { return *counts_; }

private:
    DeviceLines lines_;
    std::optional<RunTimeErrorKind> refusal_;
    bool heapIsFull_ = false;
    std::vector<TextureParameters> created_;
    std::shared_ptr<LockCounts> counts_ = std::make_shared<LockCounts>();
};

// The pixels of a texture, line by line, without what lies behind the lines.
inline std::vector<std::uint32_t> PixelsOf(Direct3DTexture8& texture) {
    const auto width = static_cast<std::size_t>(texture.Width());
    const auto height = static_cast<std::size_t>(texture.Height());
    const LockedPixels locked = texture.LockRect();
    std::vector<std::uint32_t> pixels;
    pixels.reserve(width * height);
    for (std::size_t y = 0; y < height; ++y) {
        const auto line = locked.words.subspan(y * static_cast<std::size_t>(locked.pitch), width);
        pixels.insert(pixels.end(), line.begin(), line.end());
    }
    texture.UnlockRect();
    return pixels;
}

}  // namespace scenara::test
