// SPDX-License-Identifier: MIT
//
// Scenara on a desktop: picks the machine, makes the main window, and hands over: to it, or to the
// program that runs already. app/StartWords.h says what the words on the command line are.
#include <QApplication>
#include <QSocketNotifier>
#include <algorithm>
#include <chrono>
#include <iostream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "app/Extras.h"
#include "app/StartWords.h"
#include "app/frmStage.h"
#include "base/RunTimeError.h"
#include "desktop/DesktopMachine.h"
#include "platform/Request.h"
#include "platform/posix/EndSignals.h"
#include "platform/posix/HandOver.h"
#include "platform/posix/Instance.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/posix/RequestListener.h"
#include "platform/qt/Display.h"
#include "platform/qt/EndOfSession.h"
#include "platform/qt/Launch.h"
#include "platform/qt/ProgramIcon.h"
#include "platform/qt/ToolkitWords.h"

namespace {

using namespace scenara;

enum ExitStatus { kFine = 0, kNotShown = 1, kWrongUse = 2 };

// The user is told in time that nobody answers.
constexpr std::chrono::milliseconds kPatience{1500};

std::vector<std::string> WordsOf(int argc, char** argv) {
    const std::span all(argv, static_cast<std::size_t>(argc));
    return {all.begin() + std::min(argc, 1), all.end()};
}

// What later starts hand over, while the window is there to take it. Once the program is to end,
// whatever it took would be lost: a start that is refused waits for the end, and shows its files
// itself.
class LaterStarts {
public:
    LaterStarts(const Instance& instance, MainWindow& window) : listener_(instance.Socket()) {
        if (listener_.Descriptor() < 0) {
            return;
        }
        notifier_.setSocket(listener_.Descriptor());
        notifier_.setEnabled(true);
        QObject::connect(&notifier_, &QSocketNotifier::activated, &window, [this, &window] {
            listener_.Serve(
                {[&window] { return !window.EndRequested(); },
                 [&window](Request request) { window.TakeRequest(std::move(request)); }});
        });
    }

private:
    RequestListener listener_;
    QSocketNotifier notifier_{QSocketNotifier::Read};
};

// Addition: a later start without any file brings the window of the first one to the front. Plain,
// it says that one runs.
bool BringsTheFirstToTheFront(const std::string& programFolder) {
    try {
        PosixFiles files(programFolder);
        return LoadExtras(files).Additions;
    } catch (const RunTimeError&) {
        return Extras().Additions;
    }
}

ExitStatus Run(const std::vector<std::string>& paths, const std::string& programFolder,
               Instance& instance, const EndSignals& endSignals) {
    DesktopMachine machine(programFolder, instance);
    frmStage program(machine.Pieces(), machine.form);
    MainWindow& window = machine.Desktop();
    window.SetEvents(&program);
    const EndOfSession session(
        endSignals.Descriptor(), [&] { program.SaveNow(); }, [&] { machine.Close(); });
    std::optional<LaterStarts> laterStarts;
    if (!instance.AnotherRuns()) {
        laterStarts.emplace(instance, window);
    }
    program.Form_Load(paths);
    if (!window.EndRequested()) {
        window.Show();
        program.Form_Given(paths);
    }
    while (!program.Ended()) {
        window.WaitForEvents();
    }
    return kFine;
}

// Nothing: there is no program to take them, and this one is to show them itself.
std::optional<ExitStatus> HandOverTo(Instance& instance, const std::vector<std::string>& paths,
                                     const Launch& launch) {
    const auto request = RequestBytes({launch.Mark(), paths});
    if (!request) {
        std::cerr << "scenara: these names are too long to be handed over to the program that runs"
                     " already\n";
        return kNotShown;
    }
    switch (HandOver(instance, *request, kPatience)) {
        case HandedOver::Taken: launch.End(); return kFine;
        case HandedOver::NotAnswered:
            launch.End();
            std::cerr << "scenara: the program that runs already does not answer\n";
            return kNotShown;
        case HandedOver::NobodyRuns: break;
    }
    return std::nullopt;
}

// Nothing: that is wrong use, which has been said.
std::optional<std::vector<std::string>> PathsAmong(const std::vector<std::string>& words) {
    try {
        return StartPaths(words);
    } catch (const std::invalid_argument& error) {
        std::cerr << "scenara: " << error.what() << "\n\n" << StartUsage();
        return std::nullopt;
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (const auto answer = AnswerInstead(WordsOf(argc, argv))) {
        std::cout << *answer;
        return kFine;
    }
    if (!HasDisplay(WordsOf(argc, argv))) {
        if (!PathsAmong(WithoutToolkitWords(WordsOf(argc, argv)))) {
            return kWrongUse;
        }
        std::cerr << "scenara: there is no display to show a window on\n";
        return kNotShown;
    }
    const EndSignals endSignals;  // also while the toolkit starts and ends
    const Launch launch;
    const QApplication application(argc, argv);  // it takes its own words out of these
    QApplication::setQuitOnLastWindowClosed(false);
    // By its name a Wayland compositor finds the program's entry (share/scenara.desktop).
    QApplication::setDesktopFileName(QStringLiteral("scenara"));
    QApplication::setWindowIcon(ProgramIcon());
    MakeAutoRepeatDetectable();
    std::optional<std::vector<std::string>> given = PathsAmong(WordsOf(argc, argv));
    if (!given) {
        return kWrongUse;
    }
    std::vector<std::string> paths = std::move(*given);
    std::transform(paths.begin(), paths.end(), paths.begin(), WholePath);
    Instance instance(DisplayName());
    const std::string programFolder = WritableProgramFolder(ExecutableFolder());
    if (instance.AnotherRuns() && (!paths.empty() || BringsTheFirstToTheFront(programFolder))) {
        if (const auto status = HandOverTo(instance, paths, launch)) {
            return *status;
        }
    }
    return Run(paths, programFolder, instance, endSignals);
}
