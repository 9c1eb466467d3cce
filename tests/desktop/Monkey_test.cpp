// SPDX-License-Identifier: MIT
//
// Anything at all done to the real window, ten thousand times with ./test --long, and as often to
// the program with sanitizers in it. Without --long the rounds are short.
//
// SCENARA_MONKEY_SEED=7 SCENARA_MONKEY_ACTIONS=500 test_desktop --gtest_filter='Monkey*' has the
// first case of each suite play with that seed, and all of them for so long.
#include "desktop/Monkey.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "samplemaker/PngWriter.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

constexpr int kShort = 30;  // of each seed
constexpr int kLong = 2000;
constexpr int kSeeds = 5;

const char* Variable(const char* name) {
    return std::getenv(name);  // NOLINT(concurrency-mt-unsafe): one thread
}

bool IsLong() {
    return Variable("SCENARA_LONG") != nullptr;
}

void SavePicture(const Screenshot& shot, const fs::path& path) {
    samplemaker::TrueColourPicture picture;
    picture.width = shot.width;
    picture.height = shot.height;
    for (const std::uint32_t pixel : shot.rgb) {
        picture.pixels.push_back({static_cast<std::uint8_t>(pixel >> 16U),
                                  static_cast<std::uint8_t>(pixel >> 8U),
                                  static_cast<std::uint8_t>(pixel)});
    }
    const std::vector<std::byte> bytes = samplemaker::WritePng(picture);
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

class MonkeyScene : public DesktopProgram, public testing::WithParamInterface<unsigned> {
protected:
    MonkeyScene() : DesktopProgram(DisplaySetup{.harmless = true}) {
        // The toolkit's own dialogs, whatever desktop the test is started on.
        // And no memory that the toolkit shares with the display: it loses the display now and then
        // where it cannot get any.
        environment_ = {"QT_QPA_PLATFORMTHEME", "XDG_CURRENT_DESKTOP", "DBUS_SESSION_BUS_ADDRESS",
                        "QT_XCB_NO_MITSHM=1", "UBSAN_OPTIONS=print_stacktrace=1"};
    }

    void Play() {
        const char* const seedGiven = Variable("SCENARA_MONKEY_SEED");
        const char* const actionsGiven = Variable("SCENARA_MONKEY_ACTIONS");
        const bool takesGiven = seedGiven != nullptr && GetParam() == 1;  // in place of the first
        const unsigned seed =
            takesGiven ? static_cast<unsigned>(std::strtoul(seedGiven, nullptr, 10)) : GetParam();
        const int actions = actionsGiven != nullptr ? std::atoi(actionsGiven)
                            : IsLong()              ? kLong
                                                    : kShort;
        Monkey monkey(*this, seed);
        try {
            monkey.Play(actions);
        } catch (const std::runtime_error& fault) {
            const fs::path picture =
                fs::path(SCENARA_ACTUAL_FOLDER) / ("monkey" + std::to_string(seed) + ".png");
            SavePicture(Look(), picture);
            ADD_FAILURE() << "seed " << seed << ": " << fault.what() << "\n"
                          << monkey.Report() << "the screen: " << picture;
        }
        std::cout << actions << " actions, " << monkey.Starts() << " starts, " << monkey.Looks()
                  << " looks at all pixels, settings compared " << monkey.SettingsCompared()
                  << " times, " << monkey.Dropped()
                  << " drops taken, slower than a second: " << monkey.Slow().size() << "\n";
        for (const std::string& line : monkey.Slow()) {
            std::cout << "  " << line << "\n";
        }
    }
};

std::string SeedName(const testing::TestParamInfo<unsigned>& seed) {
    return "Seed" + std::to_string(seed.param);
}

class MonkeyAtTheWindow : public MonkeyScene {};

TEST_P(MonkeyAtTheWindow, HarmsNothing) {
    Play();
}

INSTANTIATE_TEST_SUITE_P(Monkey, MonkeyAtTheWindow, testing::Range(1U, kSeeds + 1U), SeedName);

// What ./test --long builds beside the program that users run.
class MonkeyUnderSanitizers : public MonkeyScene {};

TEST_P(MonkeyUnderSanitizers, HarmsNothing) {
    const char* const program = Variable("SCENARA_SANITIZED_PROGRAM");
    if (program == nullptr) {
        GTEST_SKIP() << "SCENARA_SANITIZED_PROGRAM names no program; ./test --long builds it";
    }
    fs::copy_file(program, Folder() / "bin/scenara", fs::copy_options::overwrite_existing);
    Play();
}

INSTANTIATE_TEST_SUITE_P(Monkey, MonkeyUnderSanitizers, testing::Range(1U, kSeeds + 1U), SeedName);

}  // namespace
}  // namespace scenara::test
