// SPDX-License-Identifier: MIT
//
// Where sound goes on this machine: the sound server; without one, the sound card; without either,
// nowhere, in real time, so that music runs and ends as it would.
//
// The ready-made element that chooses by itself tries every sound library there is, several of
// which then write on standard error.
#pragma once

#include <functional>

#include <gst/gst.h>

namespace scenara {

// Makes an element with a sink pad; the caller gets its floating reference. Null: no such thing.
using SinkMaker = std::function<GstElement*()>;

[[nodiscard]] GstElement* MakeMachineSink();

// Nowhere, in real time.
[[nodiscard]] GstElement* MakeSilentSink();

}  // namespace scenara
