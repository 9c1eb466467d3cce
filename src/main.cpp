// SPDX-License-Identifier: MIT
//
// Scenara on a desktop: picks the machine, makes the main window, and hands over.
#include <QApplication>
#include <iostream>

#include "app/frmStage.h"
#include "desktop/DesktopMachine.h"
#include "platform/posix/EndSignals.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/qt/Display.h"
#include "platform/qt/EndOfSession.h"

namespace {

using namespace scenara;

constexpr int kNoDisplay = 1;

int Run() {
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
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    MakeAutoRepeatDetectable();
    return Run();
}
