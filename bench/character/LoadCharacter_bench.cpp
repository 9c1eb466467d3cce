// SPDX-License-Identifier: MIT
//
// A character from the disk to its textures, with the bundled one's few pictures in front of an
// archive that holds none, hundreds and thousands of others. Loading is to cost the pictures that
// are shown, and of the others no more than a look at their headers. Beside it, what it costs to
// load all of the archive's pictures, as a stage does.
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "character/LoadCharacter.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/soft/SoftDevice.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "sprites/sff2.h"

namespace scenara::bench {
namespace {

constexpr int kSide = 100;
constexpr int kShown = 13;

std::vector<std::byte> Picture() {
    samplemaker::IndexedPicture picture;
    picture.width = kSide;
    picture.height = kSide;
    for (int y = 0; y < kSide; ++y) {
        for (int x = 0; x < kSide; ++x) {
            const bool inside = x > 20 && x < 80 && y > 5;
            picture.pixels.push_back(static_cast<std::uint8_t>(inside ? 1 + (x / 3 + y) % 31 : 0));
        }
    }
    for (std::size_t i = 0; i < picture.palette.size(); ++i) {
        picture.palette[i] = {static_cast<std::uint8_t>(i), 90, static_cast<std::uint8_t>(255 - i)};
    }
    return samplemaker::WritePcx(picture);
}

// A character on the disk for as long as it lives.
class DiskCharacter {
public:
    explicit DiskCharacter(int others) {
        const std::vector<std::byte> picture = Picture();
        std::vector<samplemaker::Sff1Subfile> subfiles;
        std::string animation = "[Begin Action 20]\r\n";
        for (int i = 0; i < kShown + others; ++i) {
            samplemaker::Sff1Subfile subfile;
            subfile.group = static_cast<std::int16_t>(i < kShown ? 20 : 1000);
            subfile.image = static_cast<std::int16_t>(i);
            subfile.data = picture;
            subfiles.push_back(std::move(subfile));
            if (i < kShown) {
                animation += "20," + std::to_string(i) + ", 0,0, 4\r\n";
            }
        }
        Write("hero.def", "[Files]\r\nanim = hero.air\r\nsprite = hero.sff\r\ncns = hero.cns\r\n");
        Write("hero.air", animation);
        Write("hero.cns", "[Size]\r\nwalk.fwd = 2\r\n");
        const std::vector<std::byte> archive = samplemaker::WriteSff1(subfiles);
        Write("hero.sff",
              std::string_view(reinterpret_cast<const char*>(archive.data()), archive.size()));
    }

    Files& Disk() { return files_; }
    [[nodiscard]] std::string Path(const std::string& name) const { return folder_.Path() + name; }

private:
    void Write(const std::string& name, std::string_view bytes) {
        const auto file = files_.OpenForWriting(Path(name));
        file->Write(bytes);
        file->Close();
    }

    TemporaryFolder folder_;
    PosixFiles files_{""};
};

void LoadShown(benchmark::State& state) {
    DiskCharacter disk(static_cast<int>(state.range(0)));
    SoftDevice device;
    const ViewOptions view;
    for ([[maybe_unused]] const auto iteration : state) {
        HeadlessMessages messages;
        TestCharacter character;
        if (!LoadCharacter(disk.Path("hero.def"), character,
                           {disk.Disk(), messages, device, view, {}}) ||
            character.Sprites.size() != kShown) {
            state.SkipWithError("the character does not load");
            return;
        }
    }
    state.SetItemsProcessed(state.iterations() * kShown);
}

void LoadAll(benchmark::State& state) {
    DiskCharacter disk(static_cast<int>(state.range(0)));
    SoftDevice device;
    for ([[maybe_unused]] const auto iteration : state) {
        HeadlessMessages messages;
        HeadlessWindow window;
        StageModel model;
        const auto file = disk.Disk().OpenForReading(disk.Path("hero.sff"));
        const ViewOptions options;
        LoadSprites(model, {*file, "hero.sff", device, messages, options}, window);
        if (!messages.Recorded().empty()) {
            state.SkipWithError("the archive does not load");
            return;
        }
    }
    state.SetItemsProcessed(state.iterations() * (state.range(0) + kShown));
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
BENCHMARK(LoadShown)
    ->Name("Character/Load/others")
    ->Arg(0)
    ->Arg(300)
    ->Arg(3000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(LoadAll)
    ->Name("Character/AllPictures/others")
    ->Arg(0)
    ->Arg(300)
    ->Arg(3000)
    ->Unit(benchmark::kMillisecond);
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
