// SPDX-License-Identifier: MIT
#include "platform/gstreamer/GraphDesk.h"

namespace scenara {

void GraphDesk::Wake() {
    {
        const std::scoped_lock lock(mutex);
        woken = true;
    }
    work.notify_one();
}

void GraphDesk::ReportFailed(GraphEntry& entry) {
    {
        const std::scoped_lock lock(mutex);
        entry.report.phase = GraphPhase::Failed;
    }
    opened.notify_all();
}

}  // namespace scenara
