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

// For each thread one that it decodes, one that is ready, and some that are small.
constexpr std::size_t kUnderWayPerThread = 12;
constexpr std::size_t kMostHeldBytes = std::size_t{512} << 10U;

// How often a thread looks for more to do before it sleeps.
constexpr int kLooks = 200;

constexpr std::uint64_t kMostLostBytes = std::uint64_t{64} << 20U;

}  // namespace

// Threads that decode what they are given. The oldest comes first.
class PictureQueue::Team : NotCopied {
public:
    explicit Team(unsigned helpers) {
        // What a helper does must not fail, nor what begins one while others run.
        threads_.reserve(helpers);
        decoding_.reserve(helpers + 1);
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
                Pause(lock, decoded_, [&] { return !IsOpen(load); });
            } else {
                DecodeOldest(lock);
            }
        }
    }

private:
    void Help() {
        std::unique_lock lock(mutex_);
        while (true) {
            Pause(lock, given_, [this] { return ending_ || !waiting_.empty(); });
            if (ending_) {
                return;
            }
            DecodeOldest(lock);
        }
    }

    // Until `isOver`. Mostly that is soon, and being woken takes longer than a small picture.
    template <typename IsOver>
    static void Pause(std::unique_lock<std::mutex>& lock, std::condition_variable& woken,
                      IsOver isOver) {
        for (int i = 0; i < kLooks && !isOver(); ++i) {
            lock.unlock();
            std::this_thread::yield();
            lock.lock();
        }
        woken.wait(lock, isOver);
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
                           const ArchiveSource& source)
    : archive_(archive),
      places_(std::move(places)),
      helpers_(source.helpers),
      helpFrom_(source.helpFrom) {}

PictureQueue::~PictureQueue() {
    team_ = nullptr;  // before the pictures that it may be decoding
}

// What is left is as much for each picture as on the average so far.
void PictureQueue::NoteLeft() {
    const std::size_t left = places_.size() - begun_;
    const std::size_t soFar = std::max(begun_, std::size_t{1});
    archive_.Expect(textureBytes_ / soFar * left);
    if (!team_ && helpers_ > 0 && begun_ > 0 && work_ / soFar * left >= helpFrom_) {
        team_ = std::make_unique<Team>(helpers_);
    }
}

void PictureQueue::BeginMore() {
    const bool careful = !team_ || lostBytes_ > kMostLostBytes;
    const std::size_t least = careful ? 0 : helpers_;
    const std::size_t most = careful ? 1 : 1 + (kUnderWayPerThread * helpers_);
    while (begun_ < places_.size() && (underWay_.size() <= least ||
                                       (underWay_.size() < most && heldBytes_ < kMostHeldBytes))) {
        NoteLeft();
        std::unique_ptr<PictureLoad> load = archive_.Begin(places_[begun_]);
        if (!load) {
            return;
        }
        ++begun_;
        textureBytes_ += load->TextureBytes();
        work_ += load->Work();
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
