// SPDX-License-Identifier: MIT
//
// Scenara on a desktop: picks the machine, makes the main window, and hands over.
//
// scenara [FILE.def]: opens the stage as if it were dropped on the window.
#include <QApplication>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>

#include "app/frmStage.h"
#include "desktop/DesktopMachine.h"
#include "platform/posix/EndSignals.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/qt/Display.h"
#include "platform/qt/EndOfSession.h"

namespace {

using namespace scenara;

constexpr int kNoDisplay = 1;

// Whole, for the program changes to its own folder. Empty: no file is named.
std::string FileOf(int argc, char** argv) {
    if (argc < 2) {
        return {};
    }
    std::error_code error;  // the folder that it was started in is gone
    const std::filesystem::path path = std::filesystem::absolute(argv[1], error);
    return error ? argv[1] : path.string();
}

int Run(const std::string& file) {
    const EndSignals endSignals;
    DesktopMachine machine(WritableProgramFolder(ExecutableFolder()));
    frmStage program(machine.Pieces(), machine.form);
    MainWindow& window = machine.Desktop();
    window.SetEvents(&program);
    const EndOfSession session(
        endSignals.Descriptor(), [&] { program.SaveNow(); }, [&] { machine.Close(); });
    program.Form_Load();
    if (!window.EndRequested()) {
        window.Show();
        if (!file.empty()) {
            program.Form_OLEDragDrop(file);
        }
    }
    while (!program.Ended()) {
        window.WaitForEvents();
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (!HasDisplay()) {
        std::cerr << "scenara: there is no display to show a window on\n";
        return kNoDisplay;
    }
    const QApplication application(argc, argv);  // it takes its own words out of these
    QApplication::setQuitOnLastWindowClosed(false);
    MakeAutoRepeatDetectable();
    return Run(FileOf(argc, argv));
}
