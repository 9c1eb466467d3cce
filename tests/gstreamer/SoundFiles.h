// SPDX-License-Identifier: MIT
//
// SoundFiles: a folder of short sounds in every format that stages come with, made for the purpose,
// and of files that are none. The folder goes with the object.
//
// The tone is a sine of 1000 Hz at half of full loudness on both sides, of about 0.6 seconds.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace scenara::test {

inline constexpr double kToneLength = 0.6;
inline constexpr double kToneLoudness = 0.5;
inline constexpr int kFramesPerSecond = 44100;

class SoundFiles {
public:
    SoundFiles();
    SoundFiles(const SoundFiles&) = delete;
    SoundFiles& operator=(const SoundFiles&) = delete;
    ~SoundFiles();

    [[nodiscard]] std::string Path(std::string_view name) const;

    // The tone through encoders, as the library names them: "vorbisenc ! oggmux".
    std::string Encoded(std::string_view name, std::string_view encoders) const;
    // The same with a sound of that many samples that rises all the while, so that each of them
    // shows where in it it stands; kFramesPerSecond of them are a second. Without encoders: a WAV.
    std::string Rising(std::string_view name, int frames, std::string_view encoders = {}) const;
    std::string Wav(std::string_view name) const;
    std::string Wav8(std::string_view name) const;
    std::string WavAdpcm(std::string_view name) const;  // four bits a sample
    std::string Midi(std::string_view name) const;
    std::string Module(std::string_view name) const;

    std::string Holding(std::string_view name, std::string_view content) const;
    // `content` and then nothing, up to `size` bytes, which the disk does not hold.
    std::string Sparse(std::string_view name, std::string_view content, std::uintmax_t size) const;
    std::string Pipe(std::string_view name) const;
    std::string Folder(std::string_view name) const;

private:
    static void Encode(const std::string& from, std::string_view encoders, const std::string& to);

    std::filesystem::path folder_;
};

[[nodiscard]] std::string ContentOf(const std::string& path);

}  // namespace scenara::test
