// SPDX-License-Identifier: MIT
#include "gstreamer/SoundFiles.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <numbers>
#include <span>
#include <stdexcept>
#include <vector>

#include <gst/gst.h>
#include <sys/stat.h>
#include <unistd.h>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/MidiWriter.h"
#include "samplemaker/ModWriter.h"
#include "samplemaker/WavWriter.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

constexpr double kTonePitch = 1000;

float ToneAt(double seconds) {
    return static_cast<float>(kToneLoudness *
                              std::sin(2 * std::numbers::pi * kTonePitch * seconds));
}

float RisingAt(double seconds) {
    return static_cast<float>(kToneLoudness *
                              std::sin(2 * std::numbers::pi * (200 + 3000 * seconds) * seconds));
}

template <typename LevelAt>
samplemaker::WavSound Sound(int frames, LevelAt levelAt) {
    samplemaker::WavSound sound{.framesPerSecond = kFramesPerSecond, .channels = 2, .samples = {}};
    for (int frame = 0; frame < frames; ++frame) {
        const float level = levelAt(static_cast<double>(frame) / kFramesPerSecond);
        sound.samples.insert(sound.samples.end(), {level, level});
    }
    return sound;
}

samplemaker::WavSound Tone() {
    return Sound(static_cast<int>(std::lround(kToneLength * kFramesPerSecond)), ToneAt);
}

void Write(const std::string& path, std::span<const std::byte> bytes) {
    std::ofstream file(path, std::ios::binary);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

// Runs to its end what gst-launch would run.
void RunPipeline(const std::string& description) {
    GError* error = nullptr;
    GstElement* const pipeline = gst_parse_launch(description.c_str(), &error);
    if (error != nullptr) {
        throw std::runtime_error(description + ": " + error->message);
    }
    gst_element_set_state(pipeline, GST_STATE_PLAYING);
    GstBus* const bus = gst_element_get_bus(pipeline);
    constexpr auto kEnds = static_cast<GstMessageType>(GST_MESSAGE_EOS | GST_MESSAGE_ERROR);
    GstMessage* const message = gst_bus_timed_pop_filtered(bus, 60 * GST_SECOND, kEnds);
    const bool done = message != nullptr && GST_MESSAGE_TYPE(message) == GST_MESSAGE_EOS;
    if (message != nullptr) {
        gst_message_unref(message);
    }
    gst_object_unref(bus);
    gst_element_set_state(pipeline, GST_STATE_NULL);
    gst_object_unref(pipeline);
    if (!done) {
        throw std::runtime_error(description + " failed");
    }
}

}  // namespace

SoundFiles::SoundFiles() {
    gst_init(nullptr, nullptr);
    std::string name = (fs::temp_directory_path() / "scenara-sounds-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("cannot make a folder");
    }
    folder_ = name;
}

SoundFiles::~SoundFiles() {
    std::error_code ignored;
    fs::remove_all(folder_, ignored);
}

std::string SoundFiles::Path(std::string_view name) const {
    return (folder_ / name).string();
}

std::string SoundFiles::Encoded(std::string_view name, std::string_view encoders) const {
    Encode(Wav("tone to encode.wav"), encoders, Path(name));
    return Path(name);
}

std::string SoundFiles::Rising(std::string_view name, int frames, std::string_view encoders) const {
    const std::string wav = Path(encoders.empty() ? name : "rise to encode.wav");
    Write(wav, samplemaker::WriteWav(Sound(frames, RisingAt)));
    if (!encoders.empty()) {
        Encode(wav, encoders, Path(name));
    }
    return Path(name);
}

void SoundFiles::Encode(const std::string& from, std::string_view encoders, const std::string& to) {
    RunPipeline("filesrc location=\"" + from + "\" ! wavparse ! audioconvert ! " +
                std::string(encoders) + " ! filesink location=\"" + to + "\"");
}

std::string SoundFiles::Wav(std::string_view name) const {
    Write(Path(name), samplemaker::WriteWav(Tone()));
    return Path(name);
}

std::string SoundFiles::Wav8(std::string_view name) const {
    Write(Path(name), samplemaker::WriteWav(Tone(), samplemaker::WavDepth::Bits8));
    return Path(name);
}

// Blocks of 1024 bytes: two headers of 4, and 1016 samples to each side, beside the one in its
// header.
std::string SoundFiles::WavAdpcm(std::string_view name) const {
    constexpr std::uint16_t kBlock = 1024;
    constexpr std::uint16_t kFramesPerBlock = 1017;
    const std::string blocks = ContentOf(Encoded("blocks", "adpcmenc layout=dvi blockalign=1024"));
    samplemaker::ByteWriter out;
    out.Text("RIFF");
    out.U32(static_cast<std::uint32_t>(40 + blocks.size()));
    out.Text("WAVEfmt ");
    out.U32(20);
    out.U16(0x11);
    out.U16(2);
    out.U32(kFramesPerSecond);
    out.U32(kFramesPerSecond * kBlock / kFramesPerBlock);
    out.U16(kBlock);
    out.U16(4);
    out.U16(2);
    out.U16(kFramesPerBlock);
    out.Text("data");
    out.U32(static_cast<std::uint32_t>(blocks.size()));
    out.Text(blocks);
    Write(Path(name), std::move(out).Take());
    return Path(name);
}

// Half a second to the quarter note of 100 ticks: 120 ticks.
std::string SoundFiles::Midi(std::string_view name) const {
    Write(Path(name),
          samplemaker::WriteMidi(
              {.ticksPerQuarter = 100, .length = 120, .parts = {{.notes = {{0, 110, 60, 127}}}}}));
    return Path(name);
}

// 5 rows of 6 ticks of 20 ms; effect 13 leaves the pattern behind its row.
std::string SoundFiles::Module(std::string_view name) const {
    samplemaker::ModSound sound{.name = "sine", .samples = {}, .loopLength = 32};
    for (int i = 0; i < 32; ++i) {
        sound.samples.push_back(
            static_cast<std::int8_t>(std::lround(127 * std::sin(std::numbers::pi * i / 16))));
    }
    samplemaker::ModTune tune{.title = "tone", .sounds = {sound}, .patterns = {{}}, .order = {0}};
    tune.patterns[0][0][0] = {.note = 24, .sound = 1};
    tune.patterns[0][4][3] = {.effect = 13};
    Write(Path(name), samplemaker::WriteMod(tune));
    return Path(name);
}

std::string SoundFiles::Holding(std::string_view name, std::string_view content) const {
    Write(Path(name), std::as_bytes(std::span(content)));
    return Path(name);
}

std::string SoundFiles::Sparse(std::string_view name, std::string_view content,
                               std::uintmax_t size) const {
    Holding(name, content);
    fs::resize_file(Path(name), size);
    return Path(name);
}

std::string SoundFiles::Pipe(std::string_view name) const {
    if (::mkfifo(Path(name).c_str(), 0600) != 0) {
        throw std::runtime_error("cannot make a pipe");
    }
    return Path(name);
}

std::string SoundFiles::Folder(std::string_view name) const {
    fs::create_directory(Path(name));
    return Path(name);
}

std::string ContentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace scenara::test
