// SPDX-License-Identifier: MIT
//
// Sprite archives from the file to all textures, beside a loader on SDL2_image: the first load of a
// program, into memory that the system has yet to give, and the next one, into the memory that the
// first stage left. One iteration loads every archive of a set, each as a stage of its own. Reading
// the files alone shows what is left to gain.
#include "sprites/LoadArchive_bench.h"

#include <memory>
#include <stdexcept>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/png/LibPngPictures.h"
#include "platform/posix/PosixFiles.h"
#include "platform/soft/SoftDevice.h"
#include "sprites/sff2.h"
#include "support/ArchiveFiles.h"
#include "support/SdlStageLoader.h"

namespace scenara::bench {
namespace {

using Archives = const std::vector<std::string>& (*)();

// A linked sprite shows another's texture.
template <typename Visit>
void ForEachPicture(const StageModel& model, Visit visit) {
    for (const SpriteEntry& sprite : model.Sprites) {
        if (sprite.linkedTo < 0) {
            visit(sprite);
        }
    }
}

std::size_t PixelsOf(const StageModel& model) {
    std::size_t pixels = 0;
    ForEachPicture(model, [&](const SpriteEntry& sprite) {
        pixels += static_cast<std::size_t>(sprite.width) * static_cast<std::size_t>(sprite.height);
    });
    return pixels;
}

std::uint64_t ChecksumOf(const StageModel& model) {
    std::uint64_t sum = 0;
    ForEachPicture(model, [&](const SpriteEntry& sprite) {
        const LockedPixels locked = sprite.texture->LockRect();
        sum += PictureChecksum(locked.words.data(), static_cast<std::size_t>(sprite.width),
                               static_cast<std::size_t>(sprite.height),
                               static_cast<std::size_t>(locked.pitch));
        sprite.texture->UnlockRect();
    });
    return sum;
}

// Both loaders must have made the same pictures before either is timed.
void CheckAgainstPeer(const std::vector<std::string>& archives) {
    if (archives.empty()) {
        throw std::runtime_error("no archives");
    }
    for (const std::string& path : archives) {
        SoftDevice device;
        StageModel model;
        LoadInto(model, device, path, kAllOfThem);
        SdlStageLoader peer;
        peer.Load(path);
        if (peer.Pixels() != PixelsOf(model) || peer.Checksum() != ChecksumOf(model)) {
            throw std::runtime_error("other pictures: " + path);
        }
    }
}

template <typename Pass>
void Run(benchmark::State& state, const std::vector<std::string>& archives, Pass pass) {
    try {
        CheckAgainstPeer(archives);
        std::size_t pixels = 0;
        for ([[maybe_unused]] const auto iteration : state) {
            pixels += pass();
        }
        state.SetItemsProcessed(static_cast<std::int64_t>(pixels));
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

template <Archives kArchives>
void LoadSdl(benchmark::State& state) {
    Run(state, kArchives(), [] {
        std::size_t pixels = 0;
        for (const std::string& path : kArchives()) {
            SdlStageLoader loader;
            loader.Load(path);
            pixels += loader.Pixels();
        }
        return pixels;
    });
}

template <Archives kArchives>
void LoadFirst(benchmark::State& state) {
    Run(state, kArchives(), [] {
        std::size_t pixels = 0;
        for (const std::string& path : kArchives()) {
            SoftDevice device;
            StageModel model;
            LoadInto(model, device, path, 0);
            pixels += PixelsOf(model);
        }
        return pixels;
    });
}

template <Archives kArchives>
void LoadNext(benchmark::State& state) {
    SoftDevice device;
    Run(state, kArchives(), [&] {
        std::size_t pixels = 0;
        for (const std::string& path : kArchives()) {
            StageModel model;
            LoadInto(model, device, path, 0);
            pixels += PixelsOf(model);
        }
        return pixels;
    });
}

template <Archives kArchives>
void ReadFile(benchmark::State& state) {
    std::vector<std::byte> buffer;
    PosixFiles files("");
    for ([[maybe_unused]] const auto iteration : state) {
        for (const std::string& path : kArchives()) {
            const auto file = files.OpenForReading(path);
            buffer.resize(static_cast<std::size_t>(file->Size()));
            benchmark::DoNotOptimize(file->ReadAt(0, buffer));
        }
    }
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
#define LOAD_ROW(function, name)                     \
    BENCHMARK_TEMPLATE(function, GeneratedArchives)  \
        ->Name("Load/" name "/generated")            \
        ->Unit(benchmark::kMillisecond);             \
    BENCHMARK_TEMPLATE(function, SampleDataArchives) \
        ->Name("Load/" name "/sampleData")           \
        ->Unit(benchmark::kMillisecond)

LOAD_ROW(ReadFile, "ReadFile");
LOAD_ROW(LoadSdl, "Sdl2Image");
LOAD_ROW(LoadFirst, "First");
LOAD_ROW(LoadNext, "Next");
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

// Textures as a device makes them, without the device's own back buffer.
class TexturesAlone : public TextureMaker {
public:
    std::shared_ptr<Direct3DTexture8> CreateTexture(const TextureParameters& parameters) override {
        return std::make_shared<SoftTexture>(memory_, parameters);
    }
    void Expect(std::uint64_t bytes) override { memory_->Expect(bytes); }

private:
    std::shared_ptr<TextureMemory> memory_ = std::make_shared<TextureMemory>();
};

}  // namespace

void LoadInto(StageModel& model, TextureMaker& device, const std::string& path, unsigned helpers) {
    PosixFiles files("");
    HeadlessMessages messages;
    HeadlessWindow window;
    const auto file = files.OpenForReading(path);
    const ViewOptions options;
    const LibPngPictures png;
    LoadSprites(model, {*file, path, device, messages, options, &png, helpers}, window);
    if (!messages.Recorded().empty()) {
        throw std::runtime_error(messages.Recorded().front().text);
    }
}

std::size_t LoadOnce(const std::vector<std::string>& archives) {
    TexturesAlone device;
    StageModel model;
    for (const std::string& path : archives) {
        LoadInto(model, device, path, kAllOfThem);
    }
    return PixelsOf(model) * sizeof(std::uint32_t);
}

}  // namespace scenara::bench
