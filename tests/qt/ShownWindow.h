// SPDX-License-Identifier: MIT
//
// ShownWindow: a test with the main window as the program drives it, and what it has told of.
#pragma once

#include <QListView>
#include <string>
#include <vector>

#include "platform/qt/KeyTracker.h"
#include "platform/qt/MainWindow.h"
#include "qt/Toolkit.h"
#include "support/RecordedEvents.h"

namespace scenara::test {

class ShownWindow : public Toolkit {
protected:
    // With menus as they are designed, where that is wanted.
    explicit ShownWindow(void (*design)(Form&) = [](Form&) {}) {
        design(form);
        form.picDraw = {0, 0, 320, 240};
        form.innerWidth = 320;
        form.innerHeight = 240;
        window.SetEvents(&program);
        window.Show();
        window.Size(320, 240);
        Pump();
        static_cast<void>(program.Text());
    }

    void Pump() { Pump(window); }
    static void Pump(MainWindow& pumped) {
        for (int i = 0; i < 10; ++i) {
            pumped.DoEvents();
        }
    }

    // With these stages in its list, beside the picture.
    void ShowList(const std::vector<std::string>& stages) {
        form.lstStages.items = stages;
        form.lstStages.visible = true;
        form.lstStages.left = 160;
        form.lstStages.width = 160;
        form.lstStages.height = 240;
        Pump();
        BringUp(window);
        window.findChild<QListView*>()->setFocus();
        static_cast<void>(program.Text());
    }

    Form form;
    KeyTracker keyboard{form};
    MainWindow window{form};
    RecordedEvents program;
};

}  // namespace scenara::test
