// SPDX-License-Identifier: MIT
//
// The worker: the one thread of the program that calls the media library.
#pragma once

#include <memory>

#include "platform/gstreamer/GraphDesk.h"
#include "platform/gstreamer/SoundSink.h"

namespace scenara {

// Does what is on the desk until told to quit; the last thing it does is to say that it has
// finished. To be run in a thread of its own.
void RunMediaWorker(const std::shared_ptr<GraphDesk>& desk, const SinkMaker& makeSink) noexcept;

}  // namespace scenara
