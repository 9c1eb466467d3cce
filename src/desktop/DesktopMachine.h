// SPDX-License-Identifier: MIT
//
// DesktopMachine: all that the program asks of a Linux desktop, in one piece. The toolkit's
// application object stands already.
#pragma once

#include <memory>
#include <string>

#include "app/frmStage.h"
#include "platform/Form.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixProcess.h"
#include "platform/posix/SteadyClock.h"
#include "platform/qt/KeyTracker.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PictureWidget.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtPointer.h"
#include "platform/soft/PictureSink.h"
#include "platform/soft/SoftDirect3D.h"

namespace scenara {

class DesktopMachine {
public:
    // `folder` is the program's own. Pictures go to `sink`, or to the window where there is none.
    explicit DesktopMachine(const std::string& folder, PictureSink* sink = nullptr)
        : files_(folder),
          process_(folder),
          window_(form),
          messages_(&window_, "Scenara"),
          direct3D_(std::make_shared<TextureMemory>(),
                    sink != nullptr ? sink : &window_.Picture()) {}

    [[nodiscard]] Machine Pieces() {
        return {files_, messages_, window_, keyboard_, clock_, pointer_, process_, direct3D_};
    }
    [[nodiscard]] MainWindow& Desktop() { return window_; }
    [[nodiscard]] Files& OwnFiles() { return files_; }

    Form form;

private:
    PosixFiles files_;
    PosixProcess process_;
    SteadyClock clock_;
    QtPointer pointer_;
    KeyTracker keyboard_;
    MainWindow window_;
    QtMessages messages_;
    SoftDirect3D direct3D_;
};

}  // namespace scenara
