// SPDX-License-Identifier: MIT
//
// A collection is leafed through from its first stage to its last: with ./test --long ten thousand
// stages by the program with sanitizers in it. The program is no larger after that than before, and
// has as many files open and as many threads.
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <sstream>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "desktop/Hands.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

// What the program has of the machine.
struct Holdings {
    long kilobytes = 0;  // of memory that is really there
    std::ptrdiff_t files = 0;
    std::ptrdiff_t threads = 0;
};

std::ptrdiff_t EntriesOf(const fs::path& folder) {
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

Holdings HoldingsOf(pid_t program) {
    const fs::path folder = fs::path("/proc") / std::to_string(program);
    std::ifstream status(folder / "status");
    std::string word;
    while (status >> word && word != "VmRSS:") {
    }
    Holdings holdings;
    status >> holdings.kilobytes;
    holdings.files = EntriesOf(folder / "fd");
    holdings.threads = EntriesOf(folder / "task");
    return holdings;
}

std::string NameOf(int number) {
    return "leaf" + std::to_string(number);
}

// Every kind of file that a collection may have: most are whole.
std::string DefinitionOf(int number) {
    const std::string begin = "[Info]\nname = " + NameOf(number) + "\nauthor = Ann\n[Camera]\n";
    const std::string bar = "[BG bar]\ntype = normal\nspriteno = 0,0\n";
    switch (number % 10) {
        case 3: return begin + "[BGdef]\nspr = stages/none.sff\n" + bar;
        case 5: return begin + "[BGdef]\nspr = stages/cut.sff\n" + bar;
        case 6:
            return begin + "[StageInfo]\nlocalcoord = 640,480\n[BGdef]\nspr = stages/bar.sff\n" +
                   bar;
        case 7:
            return begin + "[BGdef]\nspr = stages/bar.sff\n[BG anim]\ntype = anim\nactionno = " +
                   std::to_string(number) + "\n[Begin Action " + std::to_string(number) +
                   "]\n0,0,0,0,5\n0,1,0,0,5\n";
        case 8: return begin + "[BGdef]\nspr = stages/bar.sff\n" + std::string(3000, '\xFF') + "\n";
        default: return begin + "[BGdef]\nspr = stages/bar.sff\n" + bar + "tile = 1,1\n";
    }
}

class LeafThrough : public DesktopProgram {
protected:
    LeafThrough() {
        // Memory that is free is given out again soon, so that what grows is what is kept.
        environment_ = {"ASAN_OPTIONS=detect_leaks=0:quarantine_size_mb=1:malloc_context_size=2",
                        "QT_XCB_NO_MITSHM=1"};
    }

    void SetUp() override {
        DesktopProgram::SetUp();
        for (const char* const name : {"bar", "cup", "dot"}) {
            fs::remove(StagePath(name));
        }
        const fs::path stages = Folder() / "mugen/stages";
        fs::copy_file(stages / "bar.sff", stages / "cut.sff");
        fs::resize_file(stages / "cut.sff", fs::file_size(stages / "bar.sff") / 2);
    }

    void WriteStages(int count) const {
        for (int i = 0; i < count; ++i) {
            const fs::path folder = Folder() / "mugen/stages" / (i < count / 2 ? "leaf" : "");
            fs::create_directories(folder);
            std::ofstream(folder / (NameOf(i) + ".def"), std::ios::binary) << DefinitionOf(i);
        }
    }

    // From the stage `from`, which is shown, to the stage `to`: one by one, and now and then a few
    // at once, before the first of them can be there.
    void Leaf(int from, int to) {
        Hands hands(display_.Name());
        int shown = from;
        while (shown < to && !HasFailure()) {
            const int steps = std::min<int>(random_() % 10 == 0 ? 6 : 1, to - shown);
            for (int i = 0; i < steps; ++i) {
                hands.Press("Down");
            }
            shown += steps;
            ASSERT_TRUE(Comes(hands, shown)) << NameOf(shown) << ", " << TitleOf(hands);
        }
    }

    [[nodiscard]] std::string TitleOf(const Hands& hands) const {
        for (const ProgramWindow& window : hands.WindowsOf(program_->Number())) {
            if (window.kind == ProgramWindow::Kind::Main) {
                return window.title;
            }
        }
        return {};
    }
    // On a machine that is busy a stage may be shown for so long that its messages come. The box
    // takes the keys until it is closed.
    [[nodiscard]] bool Comes(const Hands& hands, int number) const {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        while (TitleOf(hands) != NameOf(number)) {
            if (std::chrono::steady_clock::now() > end) {
                return false;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
            if (CloseBox(hands)) {
                hands.Press(NumberIn(TitleOf(hands)) < number ? "Down" : "Up");
            }
        }
        return true;
    }
    [[nodiscard]] bool CloseBox(const Hands& hands) const {
        const auto isBox = [&] {
            return std::ranges::any_of(hands.WindowsOf(program_->Number()), [](const auto& window) {
                return window.kind == ProgramWindow::Kind::Dialog;
            });
        };
        if (!isBox()) {
            return false;
        }
        hands.Press("Return");
        return Eventually([&] { return !isBox(); });
    }
    [[nodiscard]] static int NumberIn(const std::string& title) {
        return title.starts_with("leaf") ? std::atoi(title.c_str() + 4) : -1;  // NOLINT
    }

    // Through all of them. What the program has of the machine after a tenth of them is as much as
    // it has at their end.
    void LeafThroughAll(int count) {
        constexpr long kMostGrowth = 8192;  // kilobytes
        WriteStages(count);
        WriteSettings("StageList = 255\r\nBGMusic = False\r\n");
        Start();
        ExpectMainWindow(480);
        Key("Down");
        ASSERT_TRUE(Comes(Hands(display_.Name()), 0));
        Leaf(0, count / 10);
        const Holdings early = HoldingsOf(program_->Number());
        Leaf(count / 10, count - 1);
        const Holdings late = HoldingsOf(program_->Number());
        std::cout << count << " stages, " << early.kilobytes << " and " << late.kilobytes
                  << " kB, files " << early.files << " and " << late.files << ", threads "
                  << early.threads << " and " << late.threads << "\n";
        EXPECT_LT(late.kilobytes, early.kilobytes + kMostGrowth);
        EXPECT_LE(late.files, early.files + 1);
        EXPECT_LE(late.threads, early.threads);
        Key("ctrl+q");
        EXPECT_EQ(WaitForEnd(), 0);
    }

    std::mt19937 random_{20261124};  // NOLINT(cert-msc32-c,cert-msc51-cpp): the same each time
};

TEST_F(LeafThrough, LeavesNothingBehind) {
    LeafThroughAll(200);
}

// What ./test --long builds beside the program that users run.
TEST_F(LeafThrough, OfTenThousandLeavesNothingBehindUnderSanitizers) {
    const char* const program = std::getenv("SCENARA_SANITIZED_PROGRAM");  // NOLINT: one thread
    if (program == nullptr) {
        GTEST_SKIP() << "SCENARA_SANITIZED_PROGRAM names no program; ./test --long builds it";
    }
    fs::copy_file(program, Folder() / "bin/scenara", fs::copy_options::overwrite_existing);
    LeafThroughAll(10'000);
}

}  // namespace
}  // namespace scenara::test
