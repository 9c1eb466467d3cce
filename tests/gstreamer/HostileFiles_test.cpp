// SPDX-License-Identifier: MIT
//
// Files that are no music, and what must not come of them: nothing waits, nothing is kept.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <ostream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "gstreamer/Eventually.h"
#include "gstreamer/Listener.h"
#include "gstreamer/SoundFiles.h"
#include "music/clsMusic.h"
#include "platform/gstreamer/Decoding.h"
#include "platform/gstreamer/GStreamerMedia.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kSignatureOfModule = 1084;

#if defined(SCENARA_SANITIZED)
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

std::string RandomBytes(std::size_t count) {
    std::mt19937 random(1);
    std::string bytes;
    std::generate_n(std::back_inserter(bytes), count,
                    [&random] { return static_cast<char>(random()); });
    return bytes;
}

class Player {
public:
    Player() { media_.Start(); }

    clsMusic& Music() { return music_; }
    Listener& Ear() { return listener_; }

    // The file is set and played; whether it comes to nothing.
    bool Refuses(const std::string& file) {
        music_.SetFileName(file);
        music_.Play();
        return Eventually([this] { return music_.State() == 0; }) && !music_.HasAudio() &&
               music_.Duration() == 0 && music_.Position() == 0 && !music_.AtEnd();
    }

    bool Opens(const std::string& file) {
        music_.SetFileName(file);
        return Eventually([this] { return music_.HasAudio(); });
    }

private:
    Listener listener_;
    GStreamerMedia media_{listener_.Maker()};
    clsMusic music_{media_};
};

struct Hostile {
    const char* name;
    std::function<std::string(const SoundFiles&)> make;
};

void PrintTo(const Hostile& file, std::ostream* out) {
    *out << file.name;
}

class HostileFiles : public testing::TestWithParam<Hostile> {};

TEST_P(HostileFiles, IsSilentAndTheNextFileIsNot) {
    const SoundFiles files;
    Player player;
    EXPECT_TRUE(player.Refuses(GetParam().make(files)));
    EXPECT_EQ(player.Ear().Blocks(), 0);
    EXPECT_TRUE(player.Opens(files.Wav("good.wav")));
}

// The program must be able to go on, and to end, with such a file as its last one.
TEST_P(HostileFiles, CanBeLeftAtOnce) {
    const SoundFiles files;
    Player player;
    player.Music().SetFileName(GetParam().make(files));
    player.Music().Play();
}

const std::string kRiffHeader("RIFF\xFF\xFF\xFF\x7FWAVEfmt \x10\0\0\0", 20);

INSTANTIATE_TEST_SUITE_P(
    All, HostileFiles,
    testing::Values(
        Hostile{"missing", [](const SoundFiles& files) { return files.Path("none.mp3"); }},
        Hostile{"empty_name", [](const SoundFiles&) { return std::string(); }},
        Hostile{"drive", [](const SoundFiles&) { return std::string("d:\\music\\a.mp3"); }},
        Hostile{"folder", [](const SoundFiles& files) { return files.Folder("folder.mp3"); }},
        Hostile{"pipe", [](const SoundFiles& files) { return files.Pipe("pipe.mp3"); }},
        Hostile{"device", [](const SoundFiles&) { return std::string("/dev/zero"); }},
        Hostile{"empty", [](const SoundFiles& files) { return files.Holding("empty.ogg", ""); }},
        Hostile{"text",
                [](const SoundFiles& files) { return files.Holding("a.ogg", "no music here\n"); }},
        Hostile{"random_bytes",
                [](const SoundFiles& files) {
                    return files.Holding("random.mp3", RandomBytes(100000));
                }},
        Hostile{"wave_without_samples",
                [](const SoundFiles& files) { return files.Holding("cut.wav", kRiffHeader); }},
        Hostile{"playlist_with_an_address",
                [](const SoundFiles& files) {
                    return files.Holding("list.m3u8",
                                         "#EXTM3U\n#EXT-X-TARGETDURATION:1\n#EXTINF:1,\n"
                                         "http://127.0.0.1:9/a.ts\n#EXT-X-ENDLIST\n");
                }},
        Hostile{"picture",
                [](const SoundFiles& files) {
                    return files.Holding("picture.mp3",
                                         std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR"
                                                     "\0\0\xFF\xFF\0\0\xFF\xFF\x08\x02\0\0\0",
                                                     29));
                }},
        Hostile{"huge_and_empty",
                [](const SoundFiles& files) {
                    return files.Sparse("huge.wav", "", std::uintmax_t{10} << 30);
                }},
        Hostile{"large_and_empty",
                [](const SoundFiles& files) {
                    return files.Sparse("large.wav", "", std::uintmax_t{100} << 20);
                }},
        Hostile{"too_large_to_be_music",
                [](const SoundFiles& files) {
                    const std::string tone = files.Wav("tone.wav");
                    return files.Sparse("huge.wav", ContentOf(tone), kLargestFile + 1);
                }},
        Hostile{"module_too_large_for_memory",
                [](const SoundFiles& files) {
                    const std::string module = files.Module("tone.mod");
                    return files.Sparse("large.mod", ContentOf(module), kLargestWholeFile + 1);
                }},
        Hostile{"midi_too_large_for_memory",
                [](const SoundFiles& files) {
                    const std::string midi = files.Midi("tone.mid");
                    return files.Sparse("large.mid", ContentOf(midi), kLargestWholeFile + 1);
                }},
        Hostile{"module_of_its_header_only",
                [](const SoundFiles& files) {
                    const std::string module = files.Module("tone.mod");
                    return files.Holding("cut.mod",
                                         ContentOf(module).substr(0, kSignatureOfModule - 4));
                }}),
    [](const testing::TestParamInfo<Hostile>& test) { return std::string(test.param.name); });

// ---------------------------------------------------------------------------------------------
// Odd, and played all the same
// ---------------------------------------------------------------------------------------------

TEST(OddFiles, ContentDecidesAndNotTheName) {
    const SoundFiles files;
    Player player;
    EXPECT_TRUE(player.Opens(files.Wav("not really.mp3")));
    EXPECT_TRUE(player.Opens(files.Midi("no name at all")));
}

TEST(OddFiles, NamesAreFoundAsStagesSpellThem) {
    const SoundFiles files;
    files.Folder("Sound");
    files.Wav("Sound/T\xC3\xA4nze #1 100%.WAV");
    Player player;
    EXPECT_TRUE(player.Opens(files.Path("sound\\t\xE4nze #1 100%.wav")));
}

// A name in no encoding at all is a name.
TEST(OddFiles, NamesMayBeAnyBytes) {
    const SoundFiles files;
    Player player;
    EXPECT_TRUE(player.Opens(files.Wav("\xFF\xFE.wav")));
}

TEST(OddFiles, ALargeFileMayBeReadBitByBit) {
    const SoundFiles files;
    std::string tone = ContentOf(files.Wav("tone.wav"));
    tone.replace(40, 4, std::string("\xFF\xFF\xFF\x7F", 4));  // bytes of samples
    Player player;
    EXPECT_TRUE(player.Opens(files.Sparse("large.wav", tone, kLargestWholeFile + 1)));
}

// Millions of empty chunks behind the samples, which the library goes through one by one first.
TEST(OddFiles, AFileThatIsSlowToOpenIsLeftForTheNext) {
    const SoundFiles files;
    const std::string tone = ContentOf(files.Wav("tone.wav"));
    const std::string slow = files.Sparse("slow.wav", tone, kLargestFile);
    const std::string good = files.Wav("good.wav");
    Player player;
    for (int i = 0; i < 10; ++i) {
        player.Music().SetFileName(slow);
        player.Music().Play();
        EXPECT_TRUE(player.Opens(good));
    }
    player.Music().SetFileName(slow);
}

TEST(OddFiles, ACutFilePlaysAsFarAsItGoes) {
    const SoundFiles files;
    const std::string whole = ContentOf(files.Wav("whole.wav"));
    Player player;
    ASSERT_TRUE(player.Opens(files.Holding("cut.wav", whole.substr(0, whole.size() / 2))));
    player.Music().Play();
    EXPECT_TRUE(Eventually([&player] { return player.Music().AtEnd(); }));
    EXPECT_GT(player.Ear().Blocks(), 0);
}

// ---------------------------------------------------------------------------------------------
// Many
// ---------------------------------------------------------------------------------------------

std::ptrdiff_t CountOf(const char* folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

// Resident memory, in kilobytes.
std::int64_t Memory() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) {
            return std::stoll(line.substr(6));
        }
    }
    return 0;
}

TEST(ManyFiles, NothingIsKeptOfThem) {
    const SoundFiles files;
    const std::vector<std::string> good = {files.Wav("a.wav"),
                                           files.Encoded("a.ogg", "vorbisenc ! oggmux"),
                                           files.Encoded("a.mp3", "lamemp3enc"),
                                           files.Encoded("a.flac", "flacenc"),
                                           files.Module("a.mod"),
                                           files.Midi("a.mid")};
    const std::vector<std::string> bad = {files.Path("missing"), files.Pipe("pipe"),
                                          files.Holding("random", RandomBytes(10000)),
                                          files.Folder("folder")};
    Player player;
    const auto openEach = [&] {
        for (const std::string& file : good) {
            ASSERT_TRUE(player.Opens(file));
            player.Music().Play();
        }
        for (const std::string& file : bad) {
            ASSERT_TRUE(player.Refuses(file));
        }
    };
    for (int warm = 0; warm < 3; ++warm) {
        openEach();
    }
    const std::ptrdiff_t threads = CountOf("/proc/self/task");
    const std::ptrdiff_t descriptors = CountOf("/proc/self/fd");
    const std::int64_t memory = Memory();

    for (int round = 0; round < 40; ++round) {
        openEach();
    }
    // As fast as they can be named, which is faster than they can be opened.
    for (std::size_t i = 0; i < 1000; ++i) {
        player.Music().SetFileName(i % 3 == 2 ? bad.at(i % bad.size()) : good.at(i % good.size()));
        player.Music().Play();
    }
    openEach();

    // The library keeps a few idle threads for a while.
    constexpr std::ptrdiff_t kIdle = 16;
    // Each thread that loads the instruments of MIDI may leave some 10 MB in the allocator's hands,
    // once; the sanitizer holds back up to 256 MB of what has been freed. Kept files would be more.
    constexpr std::int64_t kMemory = std::int64_t{kSanitized ? 512 : 192} << 10;
    EXPECT_TRUE(Eventually([&] { return CountOf("/proc/self/task") <= threads + kIdle; }));
    EXPECT_TRUE(Eventually([&] { return CountOf("/proc/self/fd") <= descriptors + kIdle; }));
    EXPECT_LT(Memory(), memory + kMemory);
}

}  // namespace
}  // namespace scenara::test
