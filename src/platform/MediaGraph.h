// SPDX-License-Identifier: MIT
//
// MediaGraph: one media file, and all that can be done with its playing. MediaMachine makes them.
//
// The calls are those of a filter graph and its interfaces, under their own names, with their
// units: seconds, rates (1 as recorded), hundredths of a decibel. Any call may fail, for want of a
// file, of a player for it, or of a sound device; it then answers false, or nothing, and changes
// nothing that can be noticed. No call raises, and none waits long: a machine may still be opening
// the file when RenderFile is back. Until it is open orders are remembered, and what only the file
// can tell is a failed call.
//
// What a stopped or a paused graph plays next begins where it was. At the end of the file
// CurrentPosition and Duration are exactly equal, whatever the format, and before it they are not.
// The state at the end stays what it was.
//
// A graph with a loop does not come to its end. But it may all the same: not every format and not
// every machine can play a file over and over, and what cannot is played once.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Integers.h"
#include "base/NotCopied.h"

namespace scenara {

// The graph's own numbering.
enum class FilterState : Byte { Stopped = 0, Paused = 1, Running = 2 };

// The part of a file that is played over and over, in samples of the file: it plays from 0 to
// `end`, and then from `start` to `end` for ever.
struct MediaLoop {
    Long start = 0;
    Long end = -1;  // below 0: the file's own

    bool operator==(const MediaLoop&) const = default;
};

// The most that a graph makes of what was recorded.
inline constexpr double kLoudestGain = 2;

class MediaGraph : NotCopied {
public:
    // Silences it and lets it go.
    virtual ~MediaGraph() = default;

    // --- IMediaControl -----------------------------------------------------------------------

    // Once in a graph's life. True: nothing speaks against it yet.
    virtual bool RenderFile(const std::string& file) = 0;
    virtual bool Run() = 0;
    virtual bool Pause() = 0;
    // The position stays.
    virtual bool Stop() = 0;
    // With a time-out of 0 ms: the state that it is in or goes to.
    [[nodiscard]] virtual std::optional<FilterState> GetState() = 0;

    // --- IMediaPosition ----------------------------------------------------------------------

    [[nodiscard]] virtual std::optional<double> Duration() = 0;
    [[nodiscard]] virtual std::optional<double> CurrentPosition() = 0;
    virtual bool PutCurrentPosition(double seconds) = 0;
    [[nodiscard]] virtual std::optional<double> Rate() = 0;
    virtual bool PutRate(double rate) = 0;

    // --- IBasicAudio -------------------------------------------------------------------------

    // -10000 (silence) to 0 (as recorded). Fails when there is no sound.
    [[nodiscard]] virtual std::optional<Long> Volume() = 0;
    virtual bool PutVolume(Long volume) = 0;
    // -10000 (left only) to 10000 (right only): by how much the other side is attenuated.
    [[nodiscard]] virtual std::optional<Long> Balance() = 0;
    virtual bool PutBalance(Long balance) = 0;

    // --- Additions ---------------------------------------------------------------------------

    // Without a gap where the format allows it, from the next time on that it gets to the loop's
    // end. Numbers that make no sense for the file count as not given.
    virtual bool PutLoop(const MediaLoop& loop) = 0;
    // How loud the recorded is made before Volume: 0 (silence) to kLoudestGain, 1 as it is.
    virtual bool PutGain(double gain) = 0;

    // --- IBasicVideo -------------------------------------------------------------------------

    // Pixels.
    [[nodiscard]] virtual std::optional<Long> SourceWidth() = 0;
    [[nodiscard]] virtual std::optional<Long> SourceHeight() = 0;
};

class MediaMachine : NotCopied {
public:
    virtual ~MediaMachine() = default;

    // A graph without a file; none when there cannot be one. The machine outlives its graphs.
    [[nodiscard]] virtual std::unique_ptr<MediaGraph> FilgraphManager() = 0;
};

}  // namespace scenara
