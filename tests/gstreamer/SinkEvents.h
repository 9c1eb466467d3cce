// SPDX-License-Identifier: MIT
//
// Sinks that do not let every event through.
#pragma once

#include <gst/gst.h>

namespace scenara::test {

// The sink in a bin of its own. What goes from the sink up the pipeline, seeks among it, goes
// through `handler`.
[[nodiscard]] inline GstElement* WithEvents(GstElement* sink, GstPadEventFunction handler) {
    GstElement* const bin = gst_bin_new(nullptr);
    GstElement* const entry = gst_element_factory_make("identity", nullptr);
    gst_bin_add_many(GST_BIN(bin), entry, sink, nullptr);
    gst_element_link(entry, sink);
    GstPad* const towardsSink = gst_element_get_static_pad(entry, "src");
    gst_pad_set_event_function(towardsSink, handler);
    gst_object_unref(towardsSink);
    GstPad* const outer = gst_element_get_static_pad(entry, "sink");
    gst_element_add_pad(bin, gst_ghost_pad_new("sink", outer));
    gst_object_unref(outer);
    return bin;
}

}  // namespace scenara::test
