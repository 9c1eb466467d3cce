// SPDX-License-Identifier: MIT
//
// The stage list of a large collection, as it is filled at start-up; beside it the names alone, as
// the standard library reads them from the folder.
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/StageFiles.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara::bench {
namespace {

constexpr std::size_t kStages = 10'000;

void PutStages(PosixFiles& files, const std::string& folder) {
    for (std::size_t i = 0; i < kStages; ++i) {
        files.OpenForWriting(folder + "Stage " + std::to_string(i * 7919 % kStages) + ".def")
            ->Close();
    }
}

void FillStageList(benchmark::State& state) {
    const TemporaryFolder folder;
    PosixFiles files(folder.Path());
    PutStages(files, folder.Path());
    HeadlessMessages messages;
    for ([[maybe_unused]] const auto iteration : state) {
        ListBox list;
        LoadFilestoList(list, folder.Path(), ".def", files, messages);
        if (list.items.size() != kStages) {
            throw std::runtime_error("stages are missing");
        }
    }
}

void ReadNames(benchmark::State& state) {
    const TemporaryFolder folder;
    PosixFiles files(folder.Path());
    PutStages(files, folder.Path());
    for ([[maybe_unused]] const auto iteration : state) {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
            if (entry.is_regular_file()) {
                names.push_back(entry.path().filename().string());
            }
        }
        if (names.size() != kStages) {
            throw std::runtime_error("stages are missing");
        }
    }
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
BENCHMARK(FillStageList)->Name("StageList/10000")->Unit(benchmark::kMillisecond);
BENCHMARK(ReadNames)->Name("StageList/10000/names alone")->Unit(benchmark::kMillisecond);
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
