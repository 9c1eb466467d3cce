// SPDX-License-Identifier: MIT
//
// The first load of an archive on one processor and on all, by the clock; beside it threads that
// read the same file and bring in as much memory as the textures take, which is what no load can do
// without.
#include <cstddef>
#include <span>
#include <stdexcept>
#include <thread>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/PageMemory.h"
#include "platform/posix/PosixFiles.h"
#include "platform/soft/SoftDevice.h"
#include "sprites/LoadArchive_bench.h"
#include "support/ArchiveFiles.h"

namespace scenara::bench {
namespace {

constexpr std::size_t kReadAtOnce = std::size_t{64} << 10U;

template <unsigned kHelpers>
void LoadFirst(benchmark::State& state) {
    for ([[maybe_unused]] const auto iteration : state) {
        SoftDevice device;
        StageModel model;
        LoadInto(model, device, LargeArchive().front(), kHelpers);
    }
}

// One thread's share of the file and of the memory, both in equal parts.
void ReadAndTouch(const std::string& path, std::span<std::byte> memory, std::size_t part,
                  std::size_t parts) {
    PosixFiles files("");
    const auto file = files.OpenForReading(path);
    std::vector<std::byte> buffer(kReadAtOnce);
    const std::uint64_t end = file->Size() * (part + 1) / parts;
    for (std::uint64_t at = file->Size() * part / parts; at < end; at += buffer.size()) {
        benchmark::DoNotOptimize(file->ReadAt(at, buffer));
    }
    const std::size_t pages = memory.size() / kLargePage;
    const std::size_t first = pages * part / parts;
    const std::size_t count = pages * (part + 1) / parts - first;
    PreferLargePages(memory.data() + first * kLargePage, count * kLargePage);
    CommitPages(memory.data() + first * kLargePage, count * kLargePage);
}

void Touch(benchmark::State& state, std::size_t threads) {
    const std::string& path = LargeArchive().front();
    const std::size_t wanted = LoadOnce({path});
    const std::size_t bytes = (wanted + kLargePage - 1) / kLargePage * kLargePage;
    for ([[maybe_unused]] const auto iteration : state) {
        std::byte* const start = ReservePages(bytes);
        std::vector<std::thread> others;
        for (std::size_t part = 1; part < threads; ++part) {
            others.emplace_back([&, part] { ReadAndTouch(path, {start, bytes}, part, threads); });
        }
        ReadAndTouch(path, {start, bytes}, 0, threads);
        for (std::thread& other : others) {
            other.join();
        }
        ReleasePages(start, bytes);
    }
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
BENCHMARK_TEMPLATE(LoadFirst, 0)->Name("Load/ByOne")->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(LoadFirst, kAllOfThem)
    ->Name("Load/ByAll")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Touch, one, 1)
    ->Name("Load/TouchByOne")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Touch, two, 2)
    ->Name("Load/TouchByTwo")
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
