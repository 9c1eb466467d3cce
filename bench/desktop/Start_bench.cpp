// SPDX-License-Identifier: MIT
//
// From the start of the program to its title picture, and from the start of a window of the same
// toolkit, bare or with a menu, to what that paints: until a line of the screen has changed.
#include <QGuiApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <benchmark/benchmark.h>
#include <xcb/xcb.h>

#include "desktop/QuietRows.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara::bench {
namespace {

using StartTimer = std::chrono::steady_clock;

struct Spot {
    int x = 0;
    int y = 0;
};

// A piece of a line of the screen that begins there. It is short, for looking takes time from what
// is looked at.
std::vector<std::uint8_t> LineOfScreen(xcb_connection_t* display, const Spot& from) {
    constexpr std::uint16_t kWidth = 1280;
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    const std::unique_ptr<xcb_get_image_reply_t, decltype(&std::free)> reply(
        xcb_get_image_reply(display,
                            xcb_get_image(display, XCB_IMAGE_FORMAT_Z_PIXMAP, screen.root,
                                          static_cast<std::int16_t>(from.x),
                                          static_cast<std::int16_t>(from.y), kWidth, 1, 0xFFFFFFFF),
                            nullptr),
        &std::free);
    if (!reply) {
        return {};
    }
    const std::uint8_t* const bytes = xcb_get_image_data(reply.get());
    return {bytes, bytes + xcb_get_image_data_length(reply.get())};
}

// A window stands in the corner of the screen, and ends within the piece there; or in the middle.
std::vector<std::uint8_t> Seen(xcb_connection_t* display) {
    const xcb_screen_t& screen = *xcb_setup_roots_iterator(xcb_get_setup(display)).data;
    std::vector<std::uint8_t> seen;
    for (const Spot& from :
         {Spot{0, 400}, Spot{screen.width_in_pixels / 2 - 600, screen.height_in_pixels / 2}}) {
        const std::vector<std::uint8_t> line = LineOfScreen(display, from);
        seen.insert(seen.end(), line.begin(), line.end());
    }
    return seen;
}

// How many different pixels there are more: what a window system fills with one colour before the
// program paints is no picture.
std::size_t Colours(const std::vector<std::uint8_t>& seen) {
    std::vector<std::uint32_t> colours;
    for (std::size_t i = 0; i + 4 <= seen.size(); i += 4) {
        colours.push_back(seen[i] | seen[i + 1] << 8U | std::uint32_t{seen[i + 2]} << 16U);
    }
    std::ranges::sort(colours);
    const auto repeated = std::ranges::unique(colours);
    return colours.size() - repeated.size();
}

// Milliseconds; below 0: nothing came within ten seconds.
double StartTime(const QString& program, const QStringList& words, const std::string& folder) {
    constexpr double kMost = 10'000;
    xcb_connection_t* const display = xcb_connect(nullptr, nullptr);
    const std::size_t before = Colours(Seen(display));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("XDG_RUNTIME_DIR", QString::fromStdString(folder));  // alone there
    process.setProcessEnvironment(environment);
    const auto begun = StartTimer::now();
    process.start(program, words);
    double took = 0;
    while (Colours(Seen(display)) == before && took < kMost) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
        took = std::chrono::duration<double, std::milli>(StartTimer::now() - begun).count();
    }
    process.terminate();
    process.waitForFinished();
    for (int i = 0; i < 500 && Colours(Seen(display)) != before; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    xcb_disconnect(display);
    return took < kMost ? took : -1;
}

void Start(benchmark::State& state, const char* name, const char* program,
           const QStringList& words) {
    const TemporaryFolder folder;
    // The settings stand beside the program.
    const std::string own = folder.Path() + "program";
    std::filesystem::copy_file(program, own);
    std::ofstream(folder.Path() + "QX.CFG")
        << "MugeDir = " << SCENARA_BUNDLED_STAGES << "/\r\nBGMusic = False\r\n";
    std::vector<double> times;
    for (auto _ : state) {
        times.push_back(StartTime(QString::fromStdString(own), words, folder.Path()));
        state.SetIterationTime(times.back() / 1000);
    }
    std::ranges::sort(times);
    if (times.front() < 0) {
        state.SkipWithError("no window was seen");
        return;
    }
    NotedFigures()[name] = times[times.size() / 2];
}

constexpr int kStarts = 25;

void Add(const char* name, const char* program, const QStringList& words) {
    benchmark::RegisterBenchmark(
        name, [=](benchmark::State& state) { Start(state, name, program, words); })
        ->Iterations(kStarts)
        ->Repetitions(1)
        ->UseManualTime()
        ->Unit(benchmark::kMillisecond);
}

[[maybe_unused]] const bool kAdded = [] {
    Add(kProgramStart, SCENARA_PROGRAM, {});
    Add(kBareStart, SCENARA_BARE_WINDOW, {});
    Add(kMenuStart, SCENARA_BARE_WINDOW, {QStringLiteral("--menu")});
    return true;
}();

}  // namespace
}  // namespace scenara::bench
