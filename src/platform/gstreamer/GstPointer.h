// SPDX-License-Identifier: MIT
//
// GstPointer: owns one reference to an object of the media library.
#pragma once

#include <memory>

#include <gst/gst.h>

namespace scenara {

struct GstUnref {
    void operator()(GstElement* element) const { gst_object_unref(element); }
    void operator()(GstBus* bus) const { gst_object_unref(bus); }
    void operator()(GstPad* pad) const { gst_object_unref(pad); }
    void operator()(GstCaps* caps) const { gst_caps_unref(caps); }
};

template <typename Object>
using GstPointer = std::unique_ptr<Object, GstUnref>;

}  // namespace scenara
