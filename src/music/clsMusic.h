// SPDX-License-Identifier: MIT
//
// clsMusic: plays the music of a stage.
//
// A thin cover over a MediaGraph that ignores its failures: with a file that is missing or that
// nothing here can play, every member does nothing and every getter gives 0, so that such a stage
// runs silently. The program has one for its whole life; each file has a graph of its own.
//
// Units: seconds; hundredths of a decibel (0 is full volume, or balance in the middle).
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Integers.h"
#include "platform/MediaGraph.h"

namespace scenara {

class clsMusic {
public:
    // `machine` outlives the player.
    explicit clsMusic(MediaMachine& machine) : machine_(machine) {}

    // The picture of a file that has one, in pixels; nothing here shows it.
    [[nodiscard]] Long Width();
    [[nodiscard]] Long Height();

    // The handle of the main window: kept, and not used.
    void SetWindow(Long window) { window_ = window; }
    [[nodiscard]] Long Window() const { return window_; }

    // Stops what plays and opens `file`. It is opened while the program goes on.
    void SetFileName(const std::string& file);
    [[nodiscard]] const std::string& FileName() const { return fileName_; }

    // Plays on, and from the beginning when the end is reached.
    void Play();
    void Pause();
    // The position stays: Play goes on from it.
    void StopPlaying();

    // 0 to Duration; what is outside is moved to the nearer end.
    void SetPosition(double position);
    [[nodiscard]] double Position();

    // 0 stopped, 1 running, 2 paused.
    [[nodiscard]] Long State();

    // 1 is as recorded; nothing is slower than 0.1.
    void SetSpeed(double speed);
    [[nodiscard]] double Speed();

    // 0 until it is known.
    [[nodiscard]] double Duration();

    // -10000 to 0.
    void SetVolume(Long volume);
    [[nodiscard]] Long Volume();

    // -10000 to 10000.
    void SetBalance(Long balance);
    [[nodiscard]] Long Balance();

    // Additions, to be told anew of each file. What is played over and over, without a gap where
    // that can be done: such a file has no end.
    void SetLoop(const MediaLoop& loop);
    // How loud the file is before Volume; what is out of range is moved into it.
    void SetGain(double gain);

    // The file has sound. While it is being opened: not that one knows of.
    [[nodiscard]] bool HasAudio();
    // Nothing in the program ever looks for a picture.
    [[nodiscard]] bool HasVideo() const { return hasVideo_; }

    // Whether the file has played to its end: position and duration are exactly equal. A graph that
    // cannot tell them is at no end.
    [[nodiscard]] bool AtEnd();

private:
    void SetHasAudio(bool hasAudio) { hasAudio_ = hasAudio; }
    void SetHasVideo(bool hasVideo) { hasVideo_ = hasVideo; }

    void ProbeForSound();
    void ShowPictureAt(double position);

    MediaMachine& machine_;
    std::unique_ptr<MediaGraph> graph_;
    std::string fileName_;
    Long window_ = 0;
    bool hasAudio_ = false;
    bool hasVideo_ = false;
};

// What the loop does every now and then while a stage with music is shown: a file that runs and has
// come to its end begins again, without a fade.
void RestartAtEnd(clsMusic& music);

}  // namespace scenara
