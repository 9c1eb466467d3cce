// SPDX-License-Identifier: MIT
#include "platform/BackgroundThread.h"

#include <utility>

namespace scenara {

BackgroundThread::BackgroundThread(std::function<void()> wake) : wake_(std::move(wake)) {}

BackgroundThread::~BackgroundThread() {
    {
        const std::scoped_lock lock(mutex_);
        ends_ = true;
        waiting_.clear();
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void BackgroundThread::Run(std::function<void()> work) {
    {
        const std::scoped_lock lock(mutex_);
        waiting_.push_back(std::move(work));
    }
    changed_.notify_all();
    if (!thread_.joinable()) {
        thread_ = std::thread([this] { Work(); });
    }
}

void BackgroundThread::Work() {
    while (true) {
        std::function<void()> work;
        {
            std::unique_lock lock(mutex_);
            changed_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
            if (ends_) {
                return;
            }
            work = std::move(waiting_.front());
            waiting_.pop_front();
        }
        work();
    }
}

}  // namespace scenara
