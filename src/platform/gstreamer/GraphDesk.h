// SPDX-License-Identifier: MIT
//
// GraphDesk: where the program leaves its orders for media graphs, and the worker its reports.
//
// The program's side never calls the media library and never waits for it, but for the short time
// that opening a small file takes. The orders of a graph are what it should be, not what is to be
// done in turn, so that only the last of many counts.
//
// One mutex for everything here; it is held for a few instructions at a time. Times are the
// machine's, seconds are the file's.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "platform/MediaGraph.h"

namespace scenara {

struct GraphOrders {
    FilterState state = FilterState::Stopped;
    double rate = 1;
    Long volume = 0;
    Long balance = 0;
    double gain = 1;
    std::optional<MediaLoop> loop;   // none: it plays to its end
    std::optional<double> position;  // to go to; the worker takes it
    bool moved = false;              // it was run, or put elsewhere: it may not be at 0 any more
    bool standAtEnd = false;         // it was put to its end: silent until it is put elsewhere
    bool closing = false;            // the graph is gone
};

enum class GraphPhase { Opening, Open, Failed };

struct GraphReport {
    GraphPhase phase = GraphPhase::Opening;
    std::optional<double> duration;  // unknown: some formats have to be read for it
    double position = 0;
    bool ended = false;  // position and duration are one
};

// One graph's place on the desk.
struct GraphEntry {
    std::string file;  // as the program spells it; never changed
    GraphOrders orders;
    GraphReport report;
    // Until then a question waits for the file to be open.
    std::chrono::steady_clock::time_point patience;
};

struct GraphDesk {
    std::mutex mutex;
    std::condition_variable work;                    // for the worker: `woken` is set
    std::condition_variable opened;                  // for the program: a phase has changed
    std::condition_variable left;                    // for the end: the worker has finished
    std::vector<std::shared_ptr<GraphEntry>> fresh;  // entries that the worker has not seen
    bool woken = false;
    bool quit = false;
    bool finished = false;

    // Neither is to be called under the mutex.
    void Wake();  // lets the worker look at everything anew
    void ReportFailed(GraphEntry& entry);
};

}  // namespace scenara
