// SPDX-License-Identifier: MIT
//
// What is given to the window while it is there: dropped files, what a later start hands over,
// another list, and what the title picture tells.
#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QListView>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Request.h"
#include "platform/qt/Launch.h"
#include "platform/qt/PictureWidget.h"
#include "platform/qt/TitlePicture.h"
#include "qt/ShownWindow.h"

namespace scenara::test {
namespace {

class Given : public ShownWindow {
protected:
    // What is told of a drop onto this widget; "refused" when the window does not want it.
    std::string ToldOfADrop(QWidget& onto, const std::vector<std::string>& urls) {
        QMimeData data;
        QList<QUrl> all;
        for (const std::string& url : urls) {
            all.append(QUrl::fromEncoded(QByteArray::fromStdString(url)));
        }
        data.setUrls(all);
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        enter.ignore();
        QApplication::sendEvent(&onto, &enter);
        if (!enter.isAccepted()) {
            return "refused";
        }
        QDropEvent drop({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&onto, &drop);
        EXPECT_TRUE(drop.isAccepted());
        window.DoEvents();
        return program.Text();
    }

    QListView& stageList = *window.findChild<QListView*>();
};

TEST_F(Given, AllLocalFilesOfADropAreTold) {
    const struct {
        std::vector<std::string> urls;
        const char* told;
    } rows[] = {
        {{"file:///mugen/stages/a.def"}, "drop /mugen/stages/a.def"},
        {{"file:///b.def", "file:///a.def", "file:///mugen"},
         "drop /b.def, drop /a.def, drop /mugen"},
        {{"file:///mugen/"}, "drop /mugen/"},
        {{"file:///a%20b%25.def"}, "drop /a b%.def"},
        {{"file:///%FF%0A%E9.def"}, "drop /\xFF\n\xE9.def"},
        {{"file:///%C3%A9.def"}, "drop /\xC3\xA9.def"},
        {{"http://example.org/a.def", "file:///a.def"}, "drop /a.def"},
        {{"http://example.org/a.def"}, "refused"},
        {{}, "refused"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ToldOfADrop(window, row.urls), row.told);
    }
}

// The toolkit hands a drop to the widget under the pointer, and then to those around it until one
// takes drops.
TEST_F(Given, NothingInTheWindowTakesDropsForItself) {
    ShowList({"bar", "cup"});
    for (const QWidget* const child : window.findChildren<QWidget*>()) {
        EXPECT_FALSE(child->acceptDrops()) << child->metaObject()->className();
    }
    EXPECT_TRUE(window.acceptDrops());
}

TEST_F(Given, WhatALaterStartHandsOverIsTold) {
    window.TakeRequest({"", {"/a.def", "/mugen"}});
    EXPECT_TRUE(window.LeavingWaits());
    window.DoEvents();
    EXPECT_EQ(program.Text(), "given /a.def, given /mugen");
}

TEST_F(Given, SeveralLaterStartsAreToldAsOne) {
    window.TakeRequest({"", {"/a", "/b"}});
    window.TakeRequest({"", {"/c", "/a"}});
    window.TakeRequest({"12", {}});
    window.DoEvents();
    EXPECT_EQ(program.Text(), "given /c, given /a, given /b");
    window.TakeRequest({"", {"/b"}});
    window.DoEvents();
    EXPECT_EQ(program.Text(), "given /b") << "those were told";
}

TEST_F(Given, OfVeryManyLaterStartsTheLastCount) {
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string path = "/" + std::to_string(i) + ".def";
        window.TakeRequest({"", {path}});
        if (i >= 1000 - static_cast<int>(kMostRequestPaths)) {
            expected.insert(0, "given " + path + (expected.empty() ? "" : ", "));
        }
    }
    window.DoEvents();
    EXPECT_EQ(program.Text(), expected);
}

TEST_F(Given, AMarkOfAnyKindDoesNoHarm) {
    for (const char* const mark : {"", "0", "12", "4294967295", "4294967296", "-1", "no number"}) {
        BringToFront(window, mark);
        Pump();
    }
    QWidget neverShown;
    BringToFront(neverShown, "12");
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Given, AQuestionBeforeTheWindowLeavesTheSizeThatItComesUpWith) {
    form.innerWidth = 640;
    form.innerHeight = 480;
    MainWindow asked{form};
    asked.SetEvents(&program);
    static_cast<void>(asked.winId());  // as a dialog over it does
    asked.Show();
    Pump(asked);
    EXPECT_EQ(program.width, 640);
    EXPECT_EQ(program.height, 480);
}

// --- the list, filled anew ---

TEST_F(Given, AListThatIsFilledAnewHasItsItemsAlone) {
    ShowList({"bar", "cup", "dot"});
    const auto refill = [&](std::vector<std::string> items, Long index) {
        form.lstStages.items = std::move(items);
        form.lstStages.ListIndex = index;
        ++form.lstStages.filled;
        Pump();
        std::string shown;
        for (int row = 0; row < stageList.model()->rowCount(); ++row) {
            shown += stageList.model()->index(row, 0).data().toString().toStdString() + " ";
        }
        return shown;
    };
    EXPECT_EQ(refill({"x", "y", "z"}, 1), "x y z ");
    EXPECT_EQ(stageList.currentIndex().row(), 1);
    EXPECT_EQ(refill({"x"}, -1), "x ");
    EXPECT_TRUE(stageList.selectionModel()->selectedRows().isEmpty());
    EXPECT_EQ(refill({}, -1), "");
    EXPECT_EQ(refill({"a", "b"}, 0), "a b ");
    EXPECT_EQ(program.Text(), "") << "what the program does is no click";
}

// --- the title ---

TEST_F(Given, TheTitleTellsWhatIsAmiss) {
    EXPECT_NE(TitlePicture("No MUGEN folder is chosen."), TitlePicture({}));
    EXPECT_EQ(TitlePicture(QString(100000, 'x')).size(), TitlePicture({}).size());
    const QImage before = window.Picture().grab().toImage();
    form.titleNote = "No MUGEN folder is chosen.";
    Pump();
    const QImage noted = window.Picture().grab().toImage();
    EXPECT_NE(noted, before);
    form.titleNote.clear();
    Pump();
    EXPECT_EQ(window.Picture().grab().toImage(), before);
}

}  // namespace
}  // namespace scenara::test
