// SPDX-License-Identifier: MIT
#include "platform/gstreamer/MediaWorker.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

#include "platform/gstreamer/PlayedFile.h"

namespace scenara {
namespace {

using Entries = std::vector<std::shared_ptr<GraphEntry>>;
using Files = std::vector<std::unique_ptr<PlayedFile>>;
using Time = PlayedFile::Time;

// The entries that are new since the last time; nothing when it is time to quit.
std::optional<Entries> WaitForWork(GraphDesk& desk, const std::optional<Time>& until) {
    std::unique_lock lock(desk.mutex);
    const auto wanted = [&desk] { return desk.woken || desk.quit; };
    if (until) {
        desk.work.wait_until(lock, *until, wanted);
    } else {
        desk.work.wait(lock, wanted);
    }
    desk.woken = false;
    if (desk.quit) {
        return std::nullopt;
    }
    return std::exchange(desk.fresh, {});
}

// A graph that is gone before its file was looked at costs nothing.
bool IsClosing(GraphDesk& desk, const GraphEntry& entry) {
    const std::scoped_lock lock(desk.mutex);
    return entry.orders.closing;
}

std::optional<Time> Earlier(const std::optional<Time>& a, const std::optional<Time>& b) {
    if (!a || !b) {
        return a ? a : b;
    }
    return std::min(*a, *b);
}

// The library takes as long to start as the window to come up, and both would wait for each other.
void WaitForTheWindow(GraphDesk& desk) {
    constexpr std::chrono::milliseconds kLongEnough{200};
    std::unique_lock lock(desk.mutex);
    desk.work.wait_for(lock, kLongEnough, [&desk] { return desk.woken || desk.quit; });
}

void Work(GraphDesk& desk, const SinkMaker& makeSink) {
    WaitForTheWindow(desk);
    const bool available = gst_init_check(nullptr, nullptr, nullptr) != FALSE;
    Files files;
    std::optional<Time> next;
    while (const std::optional<Entries> fresh = WaitForWork(desk, next)) {
        // New files are begun before old ones are let go of, which takes longer.
        const auto firstUnwanted = std::stable_partition(
            files.begin(), files.end(), [](const auto& file) { return file->IsWanted(); });
        Files unwanted(std::make_move_iterator(firstUnwanted),
                       std::make_move_iterator(files.end()));
        files.erase(firstUnwanted, files.end());
        for (const std::shared_ptr<GraphEntry>& entry : *fresh) {
            if (!available) {
                desk.ReportFailed(*entry);
            } else if (!IsClosing(desk, *entry)) {
                files.push_back(std::make_unique<PlayedFile>(desk, entry, makeSink));
            }
        }
        unwanted.clear();

        next.reset();
        for (const std::unique_ptr<PlayedFile>& file : files) {
            if (file->IsWanted()) {
                next = Earlier(next, file->Service(std::chrono::steady_clock::now()));
            }
        }
    }
}

}  // namespace

void RunMediaWorker(const std::shared_ptr<GraphDesk>& desk, const SinkMaker& makeSink) noexcept {
    try {
        Work(*desk, makeSink);
    } catch (...) {
        // Out of memory, or of threads: there is no music any more.
    }
    const std::scoped_lock lock(desk->mutex);
    desk->finished = true;
    desk->left.notify_all();
}

}  // namespace scenara
