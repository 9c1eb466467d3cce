// SPDX-License-Identifier: MIT
//
// Scenara on a desktop: picks the machine, makes the main window, and hands over.
#include <QApplication>
#include <iostream>
#include <string>

#include "app/frmStage.h"
#include "desktop/DesktopMachine.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/qt/Display.h"

namespace {

using namespace scenara;

constexpr int kNoDisplay = 1;

int Run() {
    DesktopMachine machine(WritableProgramFolder(ExecutableFolder()));
    frmStage program(machine.Pieces(), machine.form);
    MainWindow& window = machine.Desktop();
    window.SetEvents(&program);
    program.Form_Load();
    if (!program.Ended()) {
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
