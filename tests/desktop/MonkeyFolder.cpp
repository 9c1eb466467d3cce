// SPDX-License-Identifier: MIT
#include "desktop/MonkeyFolder.h"

#include <algorithm>
#include <cstddef>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "samplemaker/WavWriter.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void Write(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::size_t Below(std::size_t count, std::mt19937& random) {
    return std::uniform_int_distribution<std::size_t>(0,
                                                      std::max<std::size_t>(count, 1) - 1)(random);
}

std::string Stage(const std::string& name, const std::string& camera, const std::string& rest) {
    return "[Info]\nname = " + name + "\n[Camera]\n" + camera +
           "[BGdef]\nspr = stages/bar.sff\n[BG bar]\ntype = normal\nspriteno = 0,0\n" + rest;
}

// It has more kinds of problems than boxes report, and more of one kind than the list keeps.
std::string Problems() {
    std::string text = Stage("problems", "boundleft = many\n", "");
    for (int i = 0; i < 3000; ++i) {
        const std::string number = std::to_string(i);
        text.append("[BG ").append(number).append("]\ntype = what").append(number);
        text.append("\nspriteno = ").append(number).append(",-7\nstart = ,\n[BGCtrl ");
        text.append(number).append("]\ntype = no\n[Begin Action ").append(number);
        text.append("\n1,2,3\n");
    }
    return text;
}

std::string Rubbish() {
    std::mt19937 random(7);
    std::string bytes(5000, '\0');
    std::ranges::generate(bytes, [&] { return static_cast<char>(random() & 0xFFU); });
    return bytes;
}

std::string Silence() {
    samplemaker::WavSound sound;
    sound.samples.resize(sound.framesPerSecond / 4);
    const std::vector<std::byte> bytes = samplemaker::WriteWav(sound);
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

}  // namespace

MonkeyFolder::MonkeyFolder(fs::path mugen, fs::path kept)
    : mugen_(std::move(mugen)), kept_(std::move(kept)) {
    if (fs::exists(SCENARA_BUNDLED_DATA)) {
        fs::copy(SCENARA_BUNDLED_DATA, mugen_,
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    }
    MakeOddStages();
    fs::copy(mugen_, kept_, fs::copy_options::recursive);
}

void MonkeyFolder::MakeOddStages() const {
    const fs::path stages = mugen_ / "stages";
    fs::create_directories(mugen_ / "sound");
    fs::create_directories(mugen_ / "nothing");
    fs::create_directories(stages / "folder.def");
    Write(mugen_ / "sound/silence.wav", Silence());
    Write(stages / "empty.def", "");
    Write(stages / "rubbish.def", Rubbish());
    Write(stages / "-odd \xFF '; name.def", Stage("odd", "", ""));
    Write(stages / "nosprites.def", "[Info]\nname = none\n[BGdef]\nspr = stages/none.sff\n");
    const std::string archive = BytesOf(stages / "bar.sff");
    Write(stages / "damaged.sff", archive.substr(0, archive.size() / 2) + Rubbish());
    Write(stages / "damaged.def",
          "[Info]\nname = damaged\n[BGdef]\nspr = stages/damaged.sff\n[BG a]\ntype = normal\n"
          "spriteno = 0,0\n[BG b]\ntype = normal\nspriteno = 0,2\n");
    Write(stages / "problems.def", Problems());
    Write(stages / "zooming.def", Stage("zooming", "zoomout = 0.5\nzoomin = 3\nstartzoom = 1\n",
                                        "[BG leaf]\ntype = normal\nspriteno = 0,1\ntile = 1,1\n"));
    Write(stages / "tall.def", Stage("tall", "boundhigh = -9000\nboundlow = 200\n", ""));
    Write(stages / "wide.def",
          Stage("wide", "boundleft = -20000\nboundright = 20000\n",
                "[BG leaf]\ntype = normal\nspriteno = 0,1\ntile = 1,0\ntilespacing = 9\n"
                "velocity = 3,-.5\ntrans = add\n[BG brick]\ntype = parallax\nspriteno = 0,2\n"
                "xscale = 1,2\ndelta = .5,.5\nlayerno = 1\n"));
    Write(stages / "music.def",
          Stage("music", "", "[Music]\nbgmusic = sound/silence.wav\nbgvolume = 50\n"));
}

std::vector<fs::path> MonkeyFolder::Files() const {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(kept_)) {
        if (entry.is_regular_file()) {
            files.push_back(fs::relative(entry.path(), kept_));
        }
    }
    std::ranges::sort(files);
    return files;
}

void MonkeyFolder::Restore() const {
    fs::copy(kept_, mugen_, fs::copy_options::recursive | fs::copy_options::overwrite_existing);
}

std::string MonkeyFolder::Disturb(std::mt19937& random) const {
    const std::vector<fs::path> files = Files();
    const fs::path& file = files[Below(files.size(), random)];
    const fs::path path = mugen_ / file;
    std::error_code error;
    switch (Below(6, random)) {
        case 0: fs::remove(path, error); return "delete " + file.string();
        case 1: {
            const std::uintmax_t size = fs::file_size(path, error);
            fs::resize_file(path, error ? 0 : Below(size + 1, random), error);
            return "cut " + file.string();
        }
        case 2: {
            const fs::path& other = files[Below(files.size(), random)];
            Write(path, BytesOf(kept_ / other));
            return "overwrite " + file.string() + " by " + other.string();
        }
        case 3: {
            const fs::path& other = files[Below(files.size(), random)];
            Write(mugen_ / "new", BytesOf(kept_ / other));
            fs::rename(mugen_ / "new", path, error);
            return "replace " + file.string() + " by " + other.string();
        }
        case 4: {
            std::string bytes = BytesOf(kept_ / file);
            for (std::size_t i = 0; i < 5 && !bytes.empty(); ++i) {
                bytes[Below(bytes.size(), random)] = static_cast<char>(random() & 0xFFU);
            }
            Write(path, bytes);
            return "damage " + file.string();
        }
        default: Restore(); return "restore all files";
    }
}

std::string MonkeyFolder::AnyPath(std::mt19937& random) const {
    const std::vector<fs::path> files = Files();
    const std::string others[] = {mugen_,
                                  mugen_ / "stages",
                                  mugen_ / "chars",
                                  mugen_ / "nothing",
                                  mugen_ / "stages/folder.def",
                                  mugen_ / "chars/lanternkeeper",
                                  mugen_ / "stages/none.def",
                                  "no such file",
                                  "",
                                  "(;=&%$\"\\",
                                  std::string(400, 'x'),
                                  "60"};
    if (Below(3, random) == 0) {
        return others[Below(std::size(others), random)];
    }
    return mugen_ / files[Below(files.size(), random)];
}

}  // namespace scenara::test
