// SPDX-License-Identifier: MIT
#include "samplemaker/MidiWriter.h"

#include <algorithm>
#include <array>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/Require.h"

namespace scenara::samplemaker {
namespace {

constexpr std::uint32_t kHeaderSize = 6;
constexpr std::uint16_t kFormat = 1;
constexpr std::uint32_t kMostTicks = 0x0FFFFFFF;
constexpr std::uint32_t kLongestQuarter = 0xFFFFFF;
constexpr std::uint16_t kFinestTicks = 0x7FFF;

constexpr std::uint8_t kNoteOff = 0x80;
constexpr std::uint8_t kNoteOn = 0x90;
constexpr std::uint8_t kController = 0xB0;
constexpr std::uint8_t kProgram = 0xC0;
constexpr std::uint8_t kVolumeController = 7;
constexpr std::uint8_t kPanController = 10;
constexpr std::uint8_t kMeta = 0xFF;
constexpr std::uint8_t kMetaName = 0x03;
constexpr std::uint8_t kMetaTempo = 0x51;
constexpr std::uint8_t kMetaEnd = 0x2F;
constexpr std::uint8_t kHighest = 127;

void CheckNote(const MidiNote& note, std::uint32_t end) {
    Require(note.key <= kHighest && note.velocity <= kHighest,
            "MIDI: a key or velocity is above 127");
    Require(note.length > 0 && note.start <= end && note.length <= end - note.start,
            "MIDI: a note reaches beyond the tune");
}

void Check(const MidiTune& tune) {
    Require(tune.length <= kMostTicks, "MIDI: the tune is too long");
    Require(tune.microsecondsPerQuarter <= kLongestQuarter, "MIDI: the tempo is too slow");
    Require(tune.ticksPerQuarter > 0 && tune.ticksPerQuarter <= kFinestTicks,
            "MIDI: ticks per quarter");
    for (const MidiPart& part : tune.parts) {
        Require(part.channel < 16 && part.program <= kHighest && part.volume <= kHighest &&
                    part.pan <= kHighest && part.name.size() <= kHighest,
                "MIDI: a part's settings");
        for (const MidiNote& note : part.notes) {
            CheckNote(note, tune.length);
        }
    }
}

// One track as it grows; knows the time of its last event.
class Track {
public:
    ByteWriter& At(std::uint32_t tick) {
        Ticks(tick - last_);
        last_ = tick;
        return out_;
    }

    std::vector<std::byte> EndAt(std::uint32_t tick) && {
        ByteWriter& out = At(tick);
        out.U8(kMeta);
        out.U8(kMetaEnd);
        out.U8(0);
        return std::move(out_).Take();
    }

private:
    void Ticks(std::uint32_t ticks) {
        for (unsigned shift = 21; shift > 0; shift -= 7) {
            if (ticks >> shift != 0) {
                out_.U8(static_cast<std::uint8_t>(((ticks >> shift) & 0x7FU) | 0x80U));
            }
        }
        out_.U8(static_cast<std::uint8_t>(ticks & 0x7FU));
    }

    ByteWriter out_;
    std::uint32_t last_ = 0;
};

std::vector<std::byte> TempoTrack(const MidiTune& tune) {
    Track track;
    ByteWriter& out = track.At(0);
    out.U8(kMeta);
    out.U8(kMetaTempo);
    out.U8(3);
    out.U8(static_cast<std::uint8_t>(tune.microsecondsPerQuarter >> 16U));
    out.BigU16(static_cast<std::uint16_t>(tune.microsecondsPerQuarter & 0xFFFFU));
    return std::move(track).EndAt(tune.length);
}

struct KeyEvent {
    std::uint32_t tick = 0;
    bool on = false;
    std::uint8_t key = 0;
    std::uint8_t velocity = 0;
};

// In order of time; a key that is struck again at the moment of its end is let go of first.
std::vector<KeyEvent> KeyEvents(const std::vector<MidiNote>& notes) {
    std::vector<KeyEvent> events;
    for (const MidiNote& note : notes) {
        events.push_back({note.start, true, note.key, note.velocity});
        events.push_back({note.start + note.length, false, note.key, 0});
    }
    std::stable_sort(events.begin(), events.end(), [](const KeyEvent& a, const KeyEvent& b) {
        return a.tick != b.tick ? a.tick < b.tick : !a.on && b.on;
    });
    return events;
}

void WriteSettings(Track& track, const MidiPart& part) {
    ByteWriter& out = track.At(0);
    out.U8(kMeta);
    out.U8(kMetaName);
    out.U8(static_cast<std::uint8_t>(part.name.size()));
    out.Text(part.name);
    track.At(0).U8(kProgram | part.channel);
    out.U8(part.program);
    track.At(0).U8(kController | part.channel);
    out.U8(kVolumeController);
    out.U8(part.volume);
    track.At(0).U8(kController | part.channel);
    out.U8(kPanController);
    out.U8(part.pan);
}

std::vector<std::byte> PartTrack(const MidiPart& part, std::uint32_t end) {
    Track track;
    WriteSettings(track, part);
    for (const KeyEvent& event : KeyEvents(part.notes)) {
        ByteWriter& out = track.At(event.tick);
        out.U8((event.on ? kNoteOn : kNoteOff) | part.channel);
        out.U8(event.key);
        out.U8(event.velocity);
    }
    return std::move(track).EndAt(end);
}

}  // namespace

std::vector<std::byte> WriteMidi(const MidiTune& tune) {
    Check(tune);
    ByteWriter out;
    out.Text("MThd");
    out.BigU32(kHeaderSize);
    out.BigU16(kFormat);
    out.BigU16(static_cast<std::uint16_t>(1 + tune.parts.size()));
    out.BigU16(tune.ticksPerQuarter);
    const auto append = [&out](const std::vector<std::byte>& track) {
        out.Text("MTrk");
        out.BigU32(static_cast<std::uint32_t>(track.size()));
        out.Append(track);
    };
    append(TempoTrack(tune));
    for (const MidiPart& part : tune.parts) {
        append(PartTrack(part, tune.length));
    }
    return std::move(out).Take();
}

}  // namespace scenara::samplemaker
