// SPDX-License-Identifier: MIT
#include "app/StageSearch.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace scenara {
namespace {

// How often it tells what it has read so far: each time the list is made anew.
constexpr std::chrono::milliseconds kTellEvery{1000};

}  // namespace

// What the program and the search both have. A search that was given up may end after the program
// has let go of it.
struct StageSearch::Shared {
    std::atomic<unsigned> number = 0;  // of the search that counts
    std::atomic<unsigned> ended = 0;   // of the one that has come to its end last
    std::mutex mutex;                  // of the following two
    std::condition_variable told;
    std::optional<FoundStages> news;
    KnownStages known;  // one search at a time uses it
    Background* background = nullptr;

    void Tell(FoundStages found, unsigned ofSearch) {
        {
            const std::scoped_lock lock(mutex);
            if (number != ofSearch) {
                return;
            }
            news = std::move(found);
        }
        told.notify_all();
        if (background != nullptr) {
            background->Wake();
        }
    }
};

StageSearch::StageSearch(Files& files, Background* background)
    : files_(files), shared_(std::make_shared<Shared>()) {
    shared_->background = background;
}

StageSearch::~StageSearch() {
    ++shared_->number;
}

void StageSearch::Begin(const std::string& MugeDir) {
    unsigned number = 0;
    {
        const std::scoped_lock lock(shared_->mutex);
        number = ++shared_->number;
        shared_->news.reset();
    }
    auto search = [&files = files_, shared = shared_, MugeDir, number] {
        Search(files, *shared, MugeDir, number);
    };
    if (shared_->background != nullptr) {
        shared_->background->Run(std::move(search));
    } else {
        search();
    }
}

void StageSearch::Search(Files& files, Shared& shared, const std::string& MugeDir,
                         unsigned number) {
    const auto goesOn = [&shared, number] { return shared.number == number; };
    FoundStages found = FindStages(files, MugeDir, goesOn);
    for (StageEntry& stage : found.stages) {
        shared.known.Recall(stage);
    }
    shared.Tell(found, number);
    auto told = std::chrono::steady_clock::now();
    for (StageEntry& stage : found.stages) {
        if (!goesOn()) {
            return;
        }
        shared.known.Tell(files, stage);
        if (const auto now = std::chrono::steady_clock::now(); now - told >= kTellEvery) {
            told = now;
            shared.Tell(found, number);
        }
    }
    shared.Tell(std::move(found), number);
    shared.ended = number;
}

bool StageSearch::Runs() const {
    return shared_->ended != shared_->number;
}

void StageSearch::AwaitNews(std::chrono::milliseconds most) {
    std::unique_lock lock(shared_->mutex);
    shared_->told.wait_for(lock, most, [this] { return shared_->news.has_value(); });
}

std::optional<FoundStages> StageSearch::TakeNews() {
    const std::scoped_lock lock(shared_->mutex);
    return std::exchange(shared_->news, std::nullopt);
}

}  // namespace scenara
