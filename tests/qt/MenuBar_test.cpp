// SPDX-License-Identifier: MIT
//
// The menus by the keyboard, as the window system sends it, and who has the keys afterwards.
#include "platform/qt/MenuBar.h"

#include <QAction>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QListView>
#include <QMenu>
#include <QToolButton>
#include <QToolTip>
#include <QWindow>
#include <string>
#include <utility>
#include <vector>

#include <QtTest/QTest>
#include <gtest/gtest.h>

#include "app/MenuTree.h"
#include "qt/ShownWindow.h"

namespace scenara::test {
namespace {

class Menus : public ShownWindow {
protected:
    explicit Menus(bool additions = true) : ShownWindow(DesignMenus) {
        form[Menu::mnuAdditions].checked = additions;
        EnableMenus(form, ShowState::Running, true, true);
        form.lstStages.takesKeys = false;  // a stage is shown
        BringUp(window);
        Pump();
    }

    void ShowList() { ShownWindow::ShowList({"bar", "cup"}); }
    MenuBar& TheBar() { return *window.findChild<MenuBar*>(); }

    static bool ListHasFocus() {
        return qobject_cast<QListView*>(QApplication::focusWidget()) != nullptr;
    }

    void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window.windowHandle(), key, modifiers);
        Pump();
    }
    void Alt(Qt::Key letter) { Type(letter, Qt::AltModifier); }
    // Held down, and let go.
    void PressAlt(Qt::Key letter) {
        QTest::keyPress(window.windowHandle(), letter, Qt::AltModifier);
        Pump();
    }
    void ReleaseAlt(Qt::Key letter) {
        QTest::keyRelease(window.windowHandle(), letter, Qt::AltModifier);
    }
    void LoneAlt() {
        QTest::keyPress(window.windowHandle(), Qt::Key_Alt, Qt::AltModifier);
        QTest::keyRelease(window.windowHandle(), Qt::Key_Alt);
        Pump();
    }

    // The menu that is open.
    static std::string OpenMenu() {
        const auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu == nullptr ? "" : menu->menuAction()->text().toStdString();
    }
    // The item of the bar that is marked.
    std::string Marked() {
        const QAction* const item = TheBar().activeAction();
        return item == nullptr ? "" : item->text().toStdString();
    }
    std::string Told() { return program.Text(); }
    static std::string Of(Menu item) { return "menu " + std::to_string(static_cast<int>(item)); }

    void ExpectTheKeysAreThePictures() {
        EXPECT_EQ(OpenMenu(), "");
        EXPECT_EQ(Marked(), "");
        static_cast<void>(keyboard.GetAsyncKeyState(VirtualKey::Right));
        QTest::keyPress(window.windowHandle(), Qt::Key_Right);
        EXPECT_TRUE(keyboard.IsDown(VirtualKey::Right));
        QTest::keyRelease(window.windowHandle(), Qt::Key_Right);
        Pump();
        EXPECT_EQ(OpenMenu(), "");
        EXPECT_EQ(Marked(), "");
        static_cast<void>(Told());
    }
};

// Two items of the bar have one letter.
class PlainMenus : public Menus {
protected:
    PlainMenus() : Menus(false) {}
};

// --- who has the keys ---

TEST_F(Menus, ALoneAltLeavesTheKeysWithThePicture) {
    for (const bool listed : {false, true}) {
        SCOPED_TRACE(listed);
        if (listed) {
            ShowList();
        }
        LoneAlt();
        ExpectTheKeysAreThePictures();
        LoneAlt();
        LoneAlt();
        ExpectTheKeysAreThePictures();
    }
}

TEST_F(Menus, WhicheverWayAMenuClosesTheKeysAreThePicturesAgain) {
    struct Row {
        const char* name;
        std::vector<Qt::Key> keys;
    };
    const std::vector<Row> rows = {
        {"Escape", {Qt::Key_Escape}},
        {"an item's letter", {Qt::Key_I}},
        {"Return on an item", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}},
        {"another menu, then Escape", {Qt::Key_Right, Qt::Key_Escape}},
        {"around the bar, then Escape", {Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Escape}},
    };
    for (const bool listed : {false, true}) {
        if (listed) {
            ShowList();
        }
        for (const Row& row : rows) {
            SCOPED_TRACE(row.name);
            Alt(Qt::Key_O);
            EXPECT_EQ(OpenMenu(), "&Options");
            for (const Qt::Key key : row.keys) {
                Type(key);
            }
            ExpectTheKeysAreThePictures();
            EXPECT_EQ(ListHasFocus(), listed);
        }
    }
}

TEST_F(Menus, InAnOpenMenuTheArrowKeysAreItsOwn) {
    Alt(Qt::Key_O);
    QTest::keyPress(window.windowHandle(), Qt::Key_Down);
    EXPECT_FALSE(keyboard.IsDown(VirtualKey::Down));
    QTest::keyRelease(window.windowHandle(), Qt::Key_Down);
    const std::pair<Qt::Key, const char*> walk[] = {
        {Qt::Key_Right, "&About"}, {Qt::Key_Right, "E&xtras"}, {Qt::Key_Right, "&Stage"},
        {Qt::Key_Left, "E&xtras"}, {Qt::Key_Left, "&About"},   {Qt::Key_Left, "&Options"}};
    for (const auto& [key, menu] : walk) {
        Type(key);
        EXPECT_EQ(OpenMenu(), menu);
    }
    Type(Qt::Key_Escape);
    form[Menu::mnuExtras].enabled = false;
    Pump();
    Alt(Qt::Key_O);
    Type(Qt::Key_Right);
    Type(Qt::Key_Right);
    EXPECT_EQ(OpenMenu(), "&Stage") << "one that can be opened";
}

// --- letters ---

TEST_F(Menus, ALetterOfOneItemRunsItAtOnce) {
    Alt(Qt::Key_P);
    EXPECT_EQ(Told(), Of(Menu::mnuPause));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Marked().empty(); })) << "it is marked for a moment";
    ExpectTheKeysAreThePictures();
}

TEST_F(Menus, ALetterOfOneItemThatIsHeldRunsItOnce) {
    for (int time = 0; time < 2; ++time) {
        for (int repeat = 0; repeat < 3; ++repeat) {
            PressAlt(Qt::Key_P);
        }
        EXPECT_EQ(Told(), Of(Menu::mnuPause));
        ReleaseAlt(Qt::Key_P);
    }
}

// As on a keyboard whose letters are of another script.
TEST_F(Menus, ALetterThatIsLetGoUnderAnotherNameRunsAgain) {
    for (int time = 0; time < 2; ++time) {
        PressAlt(Qt::Key_P);
        constexpr int kCyrillicZe = 0x0417;
        QKeyEvent release(QEvent::KeyRelease, kCyrillicZe, Qt::AltModifier);
        QCoreApplication::sendEvent(window.windowHandle(), &release);
        EXPECT_EQ(Told(), Of(Menu::mnuPause));
    }
}

// As when a menu that closes swallows that the key was let go.
TEST_F(Menus, ALetterWhoseReleaseWasLostRunsAgainAfterAnotherKey) {
    for (int time = 0; time < 2; ++time) {
        PressAlt(Qt::Key_P);
        EXPECT_EQ(Told(), Of(Menu::mnuPause));
        Type(Qt::Key_Down);
        Told();
    }
}

TEST_F(PlainMenus, ALetterOfTwoGoesFromOneToTheOther) {
    for (int time = 0; time < 2; ++time) {
        Alt(Qt::Key_S);
        EXPECT_EQ(OpenMenu(), "&Stage");
        Alt(Qt::Key_S);
        EXPECT_EQ(OpenMenu(), "");
        EXPECT_EQ(Marked(), "&Stage List");
    }
    EXPECT_EQ(Told(), "");
    Type(Qt::Key_Escape);
    ExpectTheKeysAreThePictures();
}

TEST_F(PlainMenus, ALetterOfTwoBeginsWithTheFirstOneEachTime) {
    for (int time = 0; time < 3; ++time) {
        Alt(Qt::Key_S);
        EXPECT_EQ(OpenMenu(), "&Stage");
        Type(Qt::Key_Escape);
    }
    EXPECT_EQ(Told(), "");
}

// The item under the pointer is marked. The letter still opens the first menu.
TEST_F(PlainMenus, ALetterOfTwoBeginsWithTheFirstOneWhereverThePointerRests) {
    for (QAction* const item : TheBar().actions()) {
        const QPoint middle = TheBar().actionGeometry(item).center();
        if (!item->isVisible() || !TheBar().rect().contains(middle)) {
            continue;  // the window has no room for it
        }
        SCOPED_TRACE(item->text().toStdString());
        QTest::mouseMove(window.windowHandle(), TheBar().mapTo(&window, middle));
        Pump();
        EXPECT_EQ(Marked(), item->text().toStdString());
        Alt(Qt::Key_S);
        EXPECT_EQ(OpenMenu(), "&Stage");
        Type(Qt::Key_Escape);
    }
}

TEST_F(PlainMenus, ALetterOfTwoThatIsHeldStaysWithTheFirst) {
    for (int time = 0; time < 2; ++time) {
        for (int repeat = 0; repeat < 3; ++repeat) {
            PressAlt(Qt::Key_S);
        }
        EXPECT_EQ(OpenMenu(), "&Stage");
        ReleaseAlt(Qt::Key_S);
        Alt(Qt::Key_S);
        EXPECT_EQ(Marked(), "&Stage List");
    }
}

TEST_F(PlainMenus, ReturnRunsWhatALetterHasGoneTo) {
    ShowList();
    Alt(Qt::Key_S);
    Alt(Qt::Key_S);
    Type(Qt::Key_Return);
    EXPECT_EQ(Told(), Of(Menu::mnuStageList));
    ExpectTheKeysAreThePictures();
    EXPECT_TRUE(ListHasFocus());
}

TEST_F(PlainMenus, ALetterOfTwoRunsNothingWhileTheOtherIsDisabled) {
    form[Menu::mnuStage].enabled = false;
    Pump();
    Alt(Qt::Key_S);
    EXPECT_EQ(Told(), "");
    EXPECT_EQ(Marked(), "&Stage List");
    Alt(Qt::Key_S);
    EXPECT_EQ(Told(), "");
}

TEST_F(PlainMenus, WhatALetterHasGoneToIsLeftWithTheFocus) {
    ShowList();
    QWidget* const list = QApplication::focusWidget();
    Alt(Qt::Key_S);
    Alt(Qt::Key_S);
    list->setFocus();
    EXPECT_EQ(Marked(), "");
    Type(Qt::Key_Return);
    EXPECT_EQ(Told(), "");
}

TEST_F(Menus, AboutIsAMenu) {
    for (int time = 0; time < 3; ++time) {
        Alt(Qt::Key_A);
        EXPECT_EQ(OpenMenu(), "&About");
        Type(Qt::Key_K);
        EXPECT_EQ(Told(), Of(Menu::mnuKeys));
        ExpectTheKeysAreThePictures();
    }
}

TEST_F(PlainMenus, AboutIsAnItem) {
    for (int time = 0; time < 3; ++time) {
        Alt(Qt::Key_A);
        EXPECT_EQ(Told(), Of(Menu::mnuAbout)) << "each time";
        EXPECT_EQ(OpenMenu(), "");
        ExpectTheKeysAreThePictures();
    }
}

TEST_F(Menus, AnItemOfTheBarTellsItsKeyAsAToolTip) {
    const auto tip = [this](const QString& caption) {
        for (QAction* const item : TheBar().actions()) {
            if (item->text() == caption) {
                const QPoint middle = TheBar().actionGeometry(item).center();
                QHelpEvent event(QEvent::ToolTip, middle, TheBar().mapToGlobal(middle));
                QApplication::sendEvent(&TheBar(), &event);
            }
        }
        return [] { return QToolTip::text().toStdString(); };
    };
    EXPECT_EQ(tip("&Pause")(), "Space");
    form[Menu::mnuAdditions].checked = false;
    EnableMenus(form, ShowState::Running, true, true);
    Pump();
    const auto none = tip("&Pause");
    EXPECT_TRUE(QTest::qWaitFor([&] { return none().empty(); })) << "it goes after a moment";
}

TEST_F(Menus, AltWithoutALetterOfTheirsIsNothing) {
    Alt(Qt::Key_Y);
    EXPECT_EQ(Told(), "");
    ExpectTheKeysAreThePictures();
}

// --- all of it is seen ---

struct FontRow {
    const char* name;
    int points;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

class MenusOfAnySize : public Toolkit, public testing::WithParamInterface<FontRow> {
protected:
    MenusOfAnySize() {
        window.setLayoutDirection(GetParam().direction);
        DesignMenus(form);
        form.statusBar.visible = true;
        form.innerWidth = 320;
        form.innerHeight = 240;
    }
    void Show() {
        window.SetEvents(&program);
        window.Show();
        Look();
    }
    void Look() {
        for (int i = 0; i < 10; ++i) {
            window.DoEvents();
        }
    }
    // Else an arrow stands for those that have no room.
    [[nodiscard]] bool AllAreSeen() const {
        const QMenuBar& bar = *window.menuBar();
        for (QAction* const item : bar.actions()) {
            const QRect place = bar.actionGeometry(item);
            if (item->isVisible() && (place.isEmpty() || !bar.rect().contains(place))) {
                return false;
            }
        }
        const auto* const arrow = bar.findChild<QToolButton*>();
        return arrow == nullptr || !arrow->isVisible();
    }

    // For all that comes up while it is there.
    struct UsersFont {
        explicit UsersFont(int points) {
            QFont font = before;
            font.setPointSize(points);
            QApplication::setFont(font);
            QApplication::setFont(font, "QMenuBar");
        }
        ~UsersFont() { QApplication::setFont(before); }
        const QFont before = QApplication::font();
    };

    UsersFont font{GetParam().points};
    Form form;
    MainWindow window{form};
    RecordedEvents program;
};

TEST_P(MenusOfAnySize, AreWholeAtEverySizeThatTheProgramChooses) {
    Show();
    EXPECT_TRUE(AllAreSeen()) << "at the start: " << window.width();
    const int least = window.width();
    window.Size(100, 300);
    Look();
    EXPECT_TRUE(AllAreSeen()) << window.width();
    EXPECT_EQ(window.width(), least);
    window.Size(2000, 300);
    Look();
    EXPECT_EQ(window.width(), 2000) << "and no size is too large";
    window.Size(least, 300);
    Look();
    EXPECT_EQ(window.width(), least) << "however wide it has been";
}

TEST_P(MenusOfAnySize, AreWholeWhereTheWindowWasNarrowerBefore) {
    WindowStand stand;
    stand.size = {200, 300};
    window.SetEvents(&program);
    window.ComeUpAt(stand);
    window.Show();
    Look();
    EXPECT_TRUE(AllAreSeen()) << window.width();
}

TEST_P(MenusOfAnySize, AreNotMadeNarrowerByTheUser) {
    Show();
    EXPECT_GE(window.minimumWidth(), dynamic_cast<const MenuBar&>(*window.menuBar()).WholeWidth());
    EXPECT_GE(window.windowHandle()->minimumWidth(), window.minimumWidth());
}

// A window manager that tiles asks nobody, and is not asked for another size.
TEST_P(MenusOfAnySize, GiveWayToAWindowManager) {
    Show();
    window.windowHandle()->resize(150, 300);  // no wish: so it is
    Look();
    EXPECT_EQ(window.width(), 150);
    EXPECT_LE(window.minimumWidth(), 150);
}

TEST_P(MenusOfAnySize, WithoutAdditionsTheWidthIsThePictures) {
    form.statusBar.visible = false;
    Show();
    window.Size(320, 240);
    Look();
    EXPECT_EQ(window.width(), 320);
    EXPECT_LE(window.minimumWidth(), 320);
}

INSTANTIATE_TEST_SUITE_P(In, MenusOfAnySize,
                         testing::Values(FontRow{"SmallLetters", 7}, FontRow{"Letters", 10},
                                         FontRow{"LargeLetters", 16}, FontRow{"HugeLetters", 24},
                                         FontRow{"FromTheRight", 10, Qt::RightToLeft},
                                         FontRow{"LargeFromTheRight", 16, Qt::RightToLeft}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace scenara::test
