// SPDX-License-Identifier: MIT
//
// The list of stages while it browses: which keys it has, what the mouse does there, its filter,
// its edge, and what stays in sight while it is filled anew.
#include <QApplication>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/qt/PictureWidget.h"
#include "qt/ShownWindow.h"

namespace scenara::test {
namespace {

class Browsing : public ShownWindow {
protected:
    Browsing() {
        form.lstStages.browses = true;
        form[Menu::mnuAdditions].checked = true;
        Fill({"bar", "cup", "dot"});
        ShowList(form.lstStages.items);
        view.setFocus();
        Pump();
        static_cast<void>(program.Text());
    }

    void Fill(const std::vector<std::string>& stages) {
        ListBox& list = form.lstStages;
        list.items = stages;
        list.details.clear();
        for (const std::string& stage : stages) {
            list.details.push_back({"/mugen/stages/" + stage + ".def", "tip of " + stage, false});
        }
        ++list.filled;
        ++list.detailed;
    }
    std::string Type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window.windowHandle(), key, modifiers);
        window.DoEvents();
        return program.Text();
    }
    std::string Click(int row, Qt::MouseButton button = Qt::LeftButton) {
        QTest::mouseClick(view.viewport(), button, {}, Middle(row));
        window.DoEvents();
        return program.Text();
    }
    QPoint Middle(int row) { return view.visualRect(view.model()->index(row, 0)).center(); }
    // Of the menu that an item has, chosen by its access letter; 0: Escape.
    std::string MenuOf(int row, char letter) {
        QTimer::singleShot(0, [letter] {
            QWidget* const menu = QApplication::activePopupWidget();
            ASSERT_NE(menu, nullptr);
            QTest::keyClick(menu, letter == 0 ? Qt::Key_Escape : static_cast<Qt::Key>(letter));
        });
        QContextMenuEvent event(QContextMenuEvent::Mouse, Middle(row),
                                view.viewport()->mapToGlobal(Middle(row)));
        QApplication::sendEvent(view.viewport(), &event);
        window.DoEvents();
        return program.Text();
    }
    std::string Told() {
        window.DoEvents();
        return program.Text();
    }
    int Selected() {
        const auto rows = view.selectionModel()->selectedRows();
        return rows.isEmpty() ? -1 : rows.front().row();
    }
    [[nodiscard]] bool PictureHasTheKeys() {
        return QApplication::focusWidget() == &window.Picture();
    }

    QListView& view = *window.findChild<QListView*>();
    QLineEdit& filter = *window.findChild<QLineEdit*>();
};

TEST_F(Browsing, KeysTellHowFarTheUserWantsToGo) {
    const struct {
        Qt::Key key;
        const char* told;
    } rows[] = {
        {Qt::Key_Down, "step 1"},
        {Qt::Key_Up, "step -1"},
        {Qt::Key_Home, "step -2147483647"},
        {Qt::Key_End, "step 2147483647"},
        {Qt::Key_F2, ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Type(row.key), row.told);
    }
    EXPECT_EQ(Type(Qt::Key_PageDown).substr(0, 5), "step ");
    EXPECT_EQ(Type(Qt::Key_PageUp).substr(0, 6), "step -");
    EXPECT_EQ(Selected(), -1) << "the program knows what can be opened";
}

TEST_F(Browsing, LeftAndRightAndPauseAreThePictures) {
    form.lstStages.takesKeys = false;
    Type(Qt::Key_Left);
    EXPECT_TRUE(keyboard.IsDown(VirtualKey::Left));
    Type(Qt::Key_Right);
    EXPECT_TRUE(keyboard.IsDown(VirtualKey::Right));
    Type(Qt::Key_Pause);
    EXPECT_TRUE(keyboard.IsDown(VirtualKey::Pause));
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up, Qt::Key_A, Qt::Key_Z, Qt::Key_PageDown}) {
        Type(key);
    }
    for (const VirtualKey key :
         {VirtualKey::Down, VirtualKey::Up, VirtualKey::A, VirtualKey::Z, VirtualKey::PageDown}) {
        EXPECT_FALSE(keyboard.IsDown(key));
    }
}

TEST_F(Browsing, LettersSelectAndEnterOpens) {
    EXPECT_EQ(Type(Qt::Key_D), "mark 2");
    form.lstStages.ListIndex = 2;
    Pump();
    EXPECT_EQ(Type(Qt::Key_Return), "list 2");
}

TEST_F(Browsing, EscapeGivesTheKeysToThePicture) {
    EXPECT_EQ(Type(Qt::Key_Escape), "leave");
    EXPECT_TRUE(PictureHasTheKeys());
    form.lstStages.takesKeys = false;
    EXPECT_EQ(Type(Qt::Key_Down), "");
    EXPECT_TRUE(keyboard.IsDown(VirtualKey::Down));
}

TEST_F(Browsing, AClickIntoThePictureGivesItTheKeys) {
    QTest::mouseClick(&window.Picture(), Qt::LeftButton, {}, QPoint(20, 20));
    EXPECT_TRUE(PictureHasTheKeys());
    EXPECT_EQ(Click(1), "leave, down 20 20, up, list 1");
    EXPECT_TRUE(view.hasFocus());
}

TEST_F(Browsing, EscapeEndsTheSpriteBrowserFirst) {
    form.hscSGFX.Visible = true;
    Pump();
    EXPECT_EQ(Told(), "leave");
    view.setFocus();
    EXPECT_EQ(Type(Qt::Key_Escape), "");
    EXPECT_TRUE(keyboard.IsDown(VirtualKey::Escape));
    EXPECT_TRUE(view.hasFocus());
}

// What had the keys there before has them again.
TEST_F(Browsing, TheSpritesHaveTheKeysAgainAfterTheFilter) {
    form.hscSGFX.Visible = true;
    form.hscSGFX.Max = 5;
    Pump();
    EXPECT_EQ(Told(), "leave");
    filter.setFocus();
    EXPECT_EQ(Type(Qt::Key_Escape), "leave");
    EXPECT_EQ(Type(Qt::Key_Right), "sprite 1");
}

TEST_F(Browsing, TheRightButtonSelectsNothingAndItsMenuKnowsTheFile) {
    EXPECT_EQ(Click(1, Qt::RightButton), "");
    EXPECT_EQ(Selected(), -1);
    EXPECT_EQ(MenuOf(1, 'F'), "folder of /mugen/stages/cup.def");
    EXPECT_EQ(MenuOf(1, 'C'), "path of /mugen/stages/cup.def");
    EXPECT_EQ(MenuOf(1, 'O'), "list 1");
    EXPECT_EQ(MenuOf(1, 0), "");
}

TEST_F(Browsing, TheFilterHasItsKeysAndStepsThroughTheList) {
    form.lstStages.MoveKeys(KeyOwner::Filter);
    Pump();
    EXPECT_TRUE(filter.hasFocus());
    EXPECT_EQ(Type(Qt::Key_A), "filter a");
    form.lstStages.filter = "a";
    filter.setText("a");
    EXPECT_EQ(Type(Qt::Key_Space), "filter a ");
    form.lstStages.filter = "a ";
    EXPECT_EQ(Type(Qt::Key_Left), "");
    EXPECT_FALSE(keyboard.IsDown(VirtualKey::Left));
    EXPECT_EQ(Type(Qt::Key_Down), "step 1");
    EXPECT_EQ(Type(Qt::Key_Return), "enter");
    EXPECT_TRUE(filter.hasFocus()) << "where the keys go then is for the program to say";
    EXPECT_EQ(Type(Qt::Key_Escape), "leave");
    EXPECT_TRUE(PictureHasTheKeys());
}

TEST_F(Browsing, TheFilterShowsTheWordsOfTheForm) {
    form.lstStages.filter = "caf\xC3\xA9";
    Pump();
    EXPECT_EQ(filter.text(), QString::fromUtf8("caf\xC3\xA9"));
    EXPECT_EQ(program.Text(), "") << "what the program does is nothing typed";
    EXPECT_TRUE(filter.isVisible());
    form.lstStages.browses = false;
    Pump();
    EXPECT_FALSE(filter.isVisible());
}

TEST_F(Browsing, AMenuThatOpensTakesTheKeysFromTheFilter) {
    filter.setFocus();
    QTimer::singleShot(0, [] { QApplication::activePopupWidget()->close(); });
    window.findChild<QMenu*>()->exec();
    EXPECT_TRUE(PictureHasTheKeys());
}

TEST_F(Browsing, TheEdgeIsDragged) {
    QWidget& edge = *window.childAt(window.Picture().mapTo(&window, QPoint(161, 100)));
    ASSERT_EQ(edge.cursor().shape(), Qt::SplitHCursor);
    QTest::mousePress(&edge, Qt::LeftButton, {}, QPoint(1, 50));
    QTest::mouseMove(&edge, QPoint(-39, 50));
    window.DoEvents();
    EXPECT_EQ(program.Text(), "resize 200");
    QTest::mouseRelease(&edge, Qt::LeftButton, {}, QPoint(-39, 50));
}

TEST_F(Browsing, WhatStoodAtTheTopStaysThereWhenTheListIsFilledAnew) {
    std::vector<std::string> stages;
    for (int i = 100; i < 300; ++i) {
        stages.push_back("stage" + std::to_string(i));
    }
    Fill(stages);
    form.lstStages.ListIndex = 0;
    Pump();
    view.verticalScrollBar()->setValue(50);
    Pump();
    const auto top = [&] { return view.indexAt(QPoint(2, 2)).data().toString(); };
    EXPECT_EQ(top(), "stage150");
    stages.insert(stages.begin(), {"a", "b", "c"});
    Fill(stages);
    form.lstStages.ListIndex = 3;
    Pump();
    EXPECT_EQ(top(), "stage150");
    EXPECT_EQ(Selected(), 3);
    EXPECT_EQ(program.Text(), "");
    ++form.lstStages.detailed;
    Pump();
    EXPECT_EQ(top(), "stage150");
}

TEST_F(Browsing, WhatIsNoStageIsDimmedAndHasATip) {
    form.lstStages.details[1].isDimmed = true;
    ++form.lstStages.detailed;
    Pump();
    const QModelIndex index = view.model()->index(1, 0);
    EXPECT_TRUE(index.data(Qt::ForegroundRole).isValid());
    EXPECT_FALSE(view.model()->index(0, 0).data(Qt::ForegroundRole).isValid());
    EXPECT_EQ(index.data(Qt::ToolTipRole).toString(), "tip of cup");
}

}  // namespace
}  // namespace scenara::test
