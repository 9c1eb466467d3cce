// SPDX-License-Identifier: MIT
#include "platform/gstreamer/GStreamerMedia.h"

#include <chrono>
#include <mutex>
#include <system_error>
#include <utility>

#include "platform/gstreamer/GStreamerGraph.h"
#include "platform/gstreamer/MediaWorker.h"

namespace scenara {
namespace {

constexpr std::chrono::seconds kLongestEnd{1};

}  // namespace

GStreamerMedia::GStreamerMedia(SinkMaker makeSink)
    : makeSink_(std::move(makeSink)), desk_(std::make_shared<GraphDesk>()) {}

GStreamerMedia::~GStreamerMedia() {
    if (!worker_.joinable()) {
        return;
    }
    bool finished = false;
    {
        std::unique_lock lock(desk_->mutex);
        desk_->quit = true;
        desk_->work.notify_one();
        finished = desk_->left.wait_for(lock, kLongestEnd, [this] { return desk_->finished; });
    }
    if (finished) {
        worker_.join();
    } else {
        worker_.detach();
    }
}

void GStreamerMedia::Start() {
    if (worker_.joinable()) {
        return;
    }
    try {
        worker_ =
            std::thread([desk = desk_, makeSink = makeSink_] { RunMediaWorker(desk, makeSink); });
    } catch (const std::system_error&) {
        // No thread, no music.
    }
}

std::unique_ptr<MediaGraph> GStreamerMedia::FilgraphManager() {
    if (!worker_.joinable()) {
        return nullptr;
    }
    return std::make_unique<GStreamerGraph>(desk_);
}

}  // namespace scenara

// GLib lets go of its table of names, on purpose, when it needs a larger one, as this library's
// many names make it do. Where the leak checker runs it is told so; of GLib it sees no more than
// the name.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
extern "C" const char* __lsan_default_options();   // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_options() {  // NOLINT(bugprone-reserved-identifier)
    return "print_suppressions=0";
}
extern "C" const char* __lsan_default_suppressions();   // NOLINT(bugprone-reserved-identifier)
extern "C" const char* __lsan_default_suppressions() {  // NOLINT(bugprone-reserved-identifier)
    return "leak:libglib-2.0\n";
}
#endif
#endif
