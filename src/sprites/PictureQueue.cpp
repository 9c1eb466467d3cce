// SPDX-License-Identifier: MIT
#include "sprites/PictureQueue.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace scenara {
namespace {

// Threads cost more than they save where there is less to do.
constexpr std::size_t kFewPictures = 4;

// For each thread one that it decodes, one that is ready, and some that are small.
constexpr std::size_t kUnderWayPerThread = 4;
constexpr std::size_t kMostHeldBytes = std::size_t{256} << 10U;

constexpr std::uint64_t kMostLostBytes = std::uint64_t{64} << 20U;

}  // namespace

// Threads that decode what they are given. The oldest comes first.
class PictureQueue::Team : NotCopied {
public:
    explicit Team(unsigned helpers) {
        try {
            for (unsigned i = 0; i < helpers; ++i) {
                threads_.emplace_back([this] { Help(); });
            }
        } catch (const std::system_error&) {
            // Those that there are do the work, and the one that asks.
        }
    }

    ~Team() {
        {
            const std::lock_guard lock(mutex_);
            ending_ = true;
        }
        given_.notify_all();
        for (std::thread& thread : threads_) {
            thread.join();
        }
    }

    void Give(PictureLoad& load) {
        {
            const std::lock_guard lock(mutex_);
            waiting_.push_back(&load);
        }
        given_.notify_one();
    }

    // Until it is decoded, if need be by this thread, which meanwhile decodes others.
    void Await(const PictureLoad& load) {
        std::unique_lock lock(mutex_);
        while (IsOpen(load)) {
            if (waiting_.empty()) {
                decoded_.wait(lock);
            } else {
                DecodeOldest(lock);
            }
        }
    }

private:
    void Help() {
        std::unique_lock lock(mutex_);
        while (true) {
            given_.wait(lock, [this] { return ending_ || !waiting_.empty(); });
            if (ending_) {
                return;
            }
            DecodeOldest(lock);
        }
    }

    void DecodeOldest(std::unique_lock<std::mutex>& lock) {
        PictureLoad* const load = waiting_.front();
        waiting_.pop_front();
        decoding_.push_back(load);
        lock.unlock();
        load->Decode();
        lock.lock();
        std::erase(decoding_, load);
        decoded_.notify_all();
    }

    [[nodiscard]] bool IsOpen(const PictureLoad& load) const {
        return std::ranges::find(waiting_, &load) != waiting_.end() ||
               std::ranges::find(decoding_, &load) != decoding_.end();
    }

    std::mutex mutex_;
    std::condition_variable given_;
    std::condition_variable decoded_;
    // These under the mutex.
    std::deque<PictureLoad*> waiting_;
    std::vector<PictureLoad*> decoding_;
    bool ending_ = false;

    std::vector<std::thread> threads_;
};

PictureQueue::PictureQueue(SpriteArchive& archive, std::vector<std::size_t> places,
                           unsigned helpers)
    : archive_(archive),
      places_(std::move(places)),
      helpers_(places_.size() > kFewPictures ? helpers : 0),
      team_(helpers_ > 0 ? std::make_unique<Team>(helpers_) : nullptr) {}

PictureQueue::~PictureQueue() {
    team_ = nullptr;  // before the pictures that it may be decoding
}

void PictureQueue::BeginMore() {
    const std::size_t most = lostBytes_ > kMostLostBytes ? 1 : 1 + (kUnderWayPerThread * helpers_);
    while (begun_ < places_.size() &&
           (underWay_.empty() || (underWay_.size() < most && heldBytes_ < kMostHeldBytes))) {
        // As large on the average as those before.
        archive_.Expect(begun_ == 0 ? 0 : textureBytes_ / begun_ * (places_.size() - begun_));
        std::unique_ptr<PictureLoad> load = archive_.Begin(places_[begun_]);
        if (!load) {
            return;
        }
        ++begun_;
        textureBytes_ += load->TextureBytes();
        heldBytes_ += load->HeldBytes();
        underWay_.push_back(std::move(load));
        if (team_) {
            team_->Give(*underWay_.back());
        } else {
            underWay_.back()->Decode();
        }
    }
}

bool PictureQueue::Next(std::size_t shownBy, SpritePicture& picture) {
    BeginMore();
    if (team_) {
        team_->Await(*underWay_.front());
    }
    std::unique_ptr<PictureLoad> load = std::move(underWay_.front());
    underWay_.pop_front();
    heldBytes_ -= load->HeldBytes();
    const std::uint64_t textureBytes = load->TextureBytes();
    const bool loaded = archive_.Finish(std::move(load), shownBy, picture);
    if (!loaded && !underWay_.empty()) {
        lostBytes_ += textureBytes;
    }
    return loaded;
}

}  // namespace scenara
