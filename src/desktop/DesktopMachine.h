// SPDX-License-Identifier: MIT
//
// DesktopMachine: all that the program asks of a Linux desktop, in one piece. The toolkit's
// application object stands already.
#pragma once

#include <QSocketNotifier>
#include <memory>
#include <string>

#include "app/frmStage.h"
#include "platform/BackgroundThread.h"
#include "platform/Form.h"
#include "platform/gstreamer/GStreamerMedia.h"
#include "platform/png/LibPngPictures.h"
#include "platform/posix/NotifiedFolders.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixProcess.h"
#include "platform/posix/SteadyClock.h"
#include "platform/qt/DesktopPicture.h"
#include "platform/qt/Display.h"
#include "platform/qt/FullScreenWindow.h"
#include "platform/qt/KeyTracker.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PictureWidget.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtMessages.h"
#include "platform/qt/QtPointer.h"
#include "platform/qt/Questions.h"
#include "platform/soft/PictureSink.h"
#include "platform/soft/SoftDirect3D.h"
#include "platform/x11/X11DisplayModes.h"

namespace scenara {

class DesktopMachine {
public:
    // `folder` is the program's own. Pictures go to `sink`, or to the window where there is none.
    // `instance` outlives it.
    DesktopMachine(const std::string& folder, Instance& instance, PictureSink* sink = nullptr)
        : files_(folder),
          process_(folder, instance),
          keyboard_(form),
          window_(form),
          fullScreen_(window_),
          picture_(window_, fullScreen_),
          questions_(window_),
          messages_(questions_, form),
          dialogs_(questions_, form),
          display_([this] { return window_.Rectangle(); }, XDisplayName()),
          direct3D_(std::make_shared<TextureMemory>(), sink != nullptr ? sink : &picture_),
          background_(&MainWindow::Wake) {
        media_.Start();
        keyboard_.SetObserver([this](VirtualKey key) { window_.NoteKey(key); });
    }

    [[nodiscard]] Machine Pieces() {
        return {{files_, messages_, window_, keyboard_, clock_, pointer_, direct3D_, &png_},
                process_,
                dialogs_,
                display_,
                fullScreen_,
                media_,
                &background_,
                &folders_};
    }
    [[nodiscard]] MainWindow& Desktop() { return window_; }

    // The program is to end, whatever the user is asked at the moment.
    void Close() {
        window_.NoteUnload();
        questions_.Withdraw();
    }

    Form form;

private:
    GStreamerMedia media_;  // the first: it ends last, when the window is gone already
    PosixFiles files_;
    PosixProcess process_;
    SteadyClock clock_;
    QtPointer pointer_;
    KeyTracker keyboard_;
    MainWindow window_;
    FullScreenWindow fullScreen_;
    DesktopPicture picture_;
    Questions questions_;
    QtMessages messages_;
    QtDialogs dialogs_;
    X11DisplayModes display_;
    SoftDirect3D direct3D_;
    LibPngPictures png_;
    NotifiedFolders folders_;
    QSocketNotifier foldersTell_{folders_.Descriptor(), QSocketNotifier::Read};
    BackgroundThread background_;  // the last: what it works with is there until its end
};

}  // namespace scenara
