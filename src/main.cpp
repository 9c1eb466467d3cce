// SPDX-License-Identifier: MIT
//
// Scenara on a desktop: picks the machine, makes the main window, and hands over.
#include <QApplication>
#include <iostream>
#include <memory>
#include <string>

#include "app/frmStage.h"
#include "base/Path.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixProcess.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/posix/SteadyClock.h"
#include "platform/qt/Display.h"
#include "platform/qt/KeyTracker.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PictureWidget.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtPointer.h"
#include "platform/soft/SoftDirect3D.h"

namespace {

using namespace scenara;

constexpr int kNoDisplay = 1;

// Until stages can be chosen: one of those beside the program.
void OpenBundledStage(frmStage& program, Files& files) {
    program.MugeDir = ExecutableFolder() + "../mugen/";
    const std::string stage = program.MugeDir + "stages/lanternpier.def";
    if (files.FileExists(stage)) {
        program.CurrentStageFile = stage;
        program.RunStage();
    }
}

int Run() {
    const std::string folder = WritableProgramFolder(ExecutableFolder());
    PosixFiles files(folder);
    PosixProcess process(folder);
    SteadyClock clock;
    QtPointer pointer;
    KeyTracker keyboard;
    Form form;
    MainWindow window(form);
    QtMessages messages(&window, "Scenara");
    SoftDirect3D direct3D(std::make_shared<TextureMemory>(), &window.Picture());

    frmStage program({files, messages, window, keyboard, clock, pointer, process, direct3D}, form);
    window.SetEvents(&program);
    program.Form_Load();
    if (!program.Ended()) {
        window.Show();
        OpenBundledStage(program, files);
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
