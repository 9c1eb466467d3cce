// SPDX-License-Identifier: MIT
//
// BackgroundThread: work beside the program, on one thread that is there from the first work on.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "platform/Background.h"

namespace scenara {

class BackgroundThread : public Background {
public:
    // `wake` wakes the program and may be called on any thread.
    explicit BackgroundThread(std::function<void()> wake);
    // Waits for the work that is being done; what waits is not begun.
    ~BackgroundThread() override;

    void Run(std::function<void()> work) override;
    void Wake() override { wake_(); }

private:
    void Work();

    std::function<void()> wake_;
    std::mutex mutex_;  // of the following
    std::condition_variable changed_;
    std::deque<std::function<void()>> waiting_;
    bool ends_ = false;
    std::thread thread_;
};

}  // namespace scenara
