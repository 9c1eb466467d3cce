// SPDX-License-Identifier: MIT
#include "platform/soft/BandWorkers.h"

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

#include "platform/ProcessNumber.h"

namespace scenara::soft {

// The threads and what they wait for.
class BandWorkers::Crew : NotCopied {
public:
    explicit Crew(std::int32_t threads) {
        try {
            for (std::int32_t i = 0; i < threads; ++i) {
                threads_.emplace_back([this] { Wait(); });
            }
        } catch (const std::system_error&) {
            // Those that there are do the work.
        }
    }

    ~Crew() {
        {
            const std::lock_guard lock(mutex_);
            ending_ = true;
        }
        wanted_.notify_all();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }

    [[nodiscard]] std::int32_t Threads() const {
        return static_cast<std::int32_t>(threads_.size());
    }

    void Do(BandWork& work, std::int32_t bands) {
        work_ = &work;
        bands_ = bands;
        next_ = 0;
        {
            const std::lock_guard lock(mutex_);
            ++pieces_;
            busy_ = Threads();
        }
        wanted_.notify_all();
        DoBands();
        std::unique_lock lock(mutex_);
        done_.wait(lock, [this] { return busy_ == 0; });
    }

private:
    void Wait() {
        std::int64_t seen = 0;
        std::unique_lock lock(mutex_);
        while (true) {
            wanted_.wait(lock, [&] { return ending_ || pieces_ != seen; });
            if (ending_) {
                return;
            }
            seen = pieces_;
            lock.unlock();
            DoBands();
            lock.lock();
            if (--busy_ == 0) {
                done_.notify_one();
            }
        }
    }

    void DoBands() {
        for (std::int32_t band = next_++; band < bands_; band = next_++) {
            work_->DoBand(band);
        }
    }

    std::mutex mutex_;
    std::condition_variable wanted_;
    std::condition_variable done_;
    // These under the mutex.
    std::int64_t pieces_ = 0;  // of work, up to now
    std::int32_t busy_ = 0;    // threads that have not finished the last one
    bool ending_ = false;

    // Of the last piece of work; written before it is wanted.
    BandWork* work_ = nullptr;
    std::int32_t bands_ = 0;
    std::atomic<std::int32_t> next_ = 0;  // the next band that is to be done

    std::vector<std::thread> threads_;
};

BandWorkers::BandWorkers(std::int32_t threads)
    : process_(ProcessNumber()), crew_(std::make_unique<Crew>(threads - 1)) {}

BandWorkers::~BandWorkers() {
    if (ProcessNumber() != process_) {
        // Of the parent's threads the system would wait for the end here for ever.
        static_cast<void>(crew_.release());  // NOLINT(bugprone-unused-return-value)
    }
}

std::int32_t BandWorkers::Threads() const {
    return ProcessNumber() == process_ ? 1 + crew_->Threads() : 1;
}

void BandWorkers::Do(BandWork& work, std::int32_t bands) {
    if (Threads() > 1) {
        crew_->Do(work, bands);
        return;
    }
    for (std::int32_t band = 0; band < bands; ++band) {
        work.DoBand(band);
    }
}

}  // namespace scenara::soft
