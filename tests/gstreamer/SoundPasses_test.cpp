// SPDX-License-Identifier: MIT
#include "platform/gstreamer/SoundPasses.h"

#include <gtest/gtest.h>

#include "platform/gstreamer/GstPointer.h"

namespace scenara::test {
namespace {

// A pad that takes whatever comes, watched.
class Passes : public testing::Test {
protected:
    Passes() {
        gst_init(nullptr, nullptr);
        entry_.reset(GST_PAD(gst_object_ref_sink(gst_pad_new("sink", GST_PAD_SINK))));
        gst_pad_set_chain_function(entry_.get(), [](GstPad*, GstObject*, GstBuffer* block) {
            gst_buffer_unref(block);
            return GST_FLOW_OK;
        });
        gst_pad_set_event_function(entry_.get(), [](GstPad*, GstObject*, GstEvent* event) {
            gst_event_unref(event);
            return gboolean{TRUE};
        });
        passes_.Watch(entry_.get());
        gst_pad_set_active(entry_.get(), TRUE);
        gst_pad_send_event(entry_.get(), gst_event_new_stream_start("sound"));
    }
    ~Passes() override { gst_pad_set_active(entry_.get(), FALSE); }

    // A pass from `start` on which the library has begin at `base`.
    void Begin(GstClockTime start, GstClockTime base) {
        GstSegment segment;
        gst_segment_init(&segment, GST_FORMAT_TIME);
        segment.start = start;
        segment.time = start;
        segment.base = base;
        gst_pad_send_event(entry_.get(), gst_event_new_segment(&segment));
    }
    void Sound(GstClockTime at, GstClockTime length) {
        GstBuffer* const block = gst_buffer_new();
        GST_BUFFER_PTS(block) = at;
        GST_BUFFER_DURATION(block) = length;
        gst_pad_chain(entry_.get(), block);
    }
    void EndPass() {
        gst_pad_send_event(entry_.get(), gst_event_new_segment_done(GST_FORMAT_TIME, 0));
    }
    void Flush() {
        gst_pad_send_event(entry_.get(), gst_event_new_flush_start());
        gst_pad_send_event(entry_.get(), gst_event_new_flush_stop(TRUE));
    }
    // When the pass that has come last begins, as the elements after the pad have it.
    GstClockTime Base() {
        GstEvent* const event = gst_pad_get_sticky_event(entry_.get(), GST_EVENT_SEGMENT, 0);
        const GstSegment* segment = nullptr;
        gst_event_parse_segment(event, &segment);
        const GstClockTime base = segment->base;
        gst_event_unref(event);
        return base;
    }

    int wakes_ = 0;
    GstPointer<GstPad> entry_;
    SoundPasses passes_{[this] { ++wakes_; }};
};

TEST_F(Passes, TheNextOneBeginsWhenTheSoundHasEnded) {
    Begin(0, 0);
    Sound(0, 40);
    Sound(40, 35);
    EndPass();
    Begin(10, 1000);
    EXPECT_EQ(Base(), 75U);
    Sound(10, 65);
    EndPass();
    Begin(10, 0);
    EXPECT_EQ(Base(), 140U);
}

TEST_F(Passes, OnlyWhatFollowsTheEndOfOneIsMoved) {
    Begin(0, 7);
    Sound(0, 40);
    Begin(40, 47);
    EXPECT_EQ(Base(), 47U);
    EndPass();
    Flush();
    Begin(20, 3);
    EXPECT_EQ(Base(), 3U);
}

TEST_F(Passes, AreDoneOnce) {
    Begin(0, 0);
    EXPECT_FALSE(passes_.TakeDone());
    EndPass();
    EXPECT_EQ(wakes_, 1);
    EXPECT_TRUE(passes_.TakeDone());
    EXPECT_FALSE(passes_.TakeDone());
}

TEST_F(Passes, TheEndOfOneBeforeTheFileWasPutElsewhereDoesNotCount) {
    Begin(0, 0);
    EndPass();
    Flush();
    EXPECT_FALSE(passes_.TakeDone());
}

TEST_F(Passes, AreAsLongAsTheirSound) {
    Begin(0, 0);
    Sound(0, 40);
    Sound(40, 35);
    Sound(GST_CLOCK_TIME_NONE, GST_CLOCK_TIME_NONE);
    EndPass();
    EXPECT_EQ(passes_.Heard(), 75U);
    Begin(10, 0);
    EXPECT_EQ(passes_.Heard(), 0U);
}

}  // namespace
}  // namespace scenara::test
