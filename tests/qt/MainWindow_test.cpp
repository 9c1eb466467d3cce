// SPDX-License-Identifier: MIT
//
// The main window as the program drives it: its bars, its place, and what it tells of.
#include "platform/qt/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QImage>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTimer>
#include <QUrl>
#include <QWindow>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/qt/DesktopPicture.h"
#include "platform/qt/FullScreenWindow.h"
#include "platform/qt/PictureWidget.h"
#include "platform/qt/Questions.h"
#include "qt/ShownWindow.h"

namespace scenara::test {
namespace {

class Main : public ShownWindow {
protected:
    void ExpectInside(Long width, Long height) {
        EXPECT_EQ(program.width, width);
        EXPECT_EQ(program.height, height);
    }
    // The one that is seen.
    QScrollBar& Bar() {
        for (QScrollBar* const bar : window.findChildren<QScrollBar*>()) {
            if (bar->isVisible() && bar->orientation() == Qt::Horizontal) {
                return *bar;
            }
        }
        ADD_FAILURE() << "no bar is shown";
        return *window.findChildren<QScrollBar*>().front();
    }
    std::vector<QString> ItemTexts() {
        std::vector<QString> texts;
        for (const QAction* const action : window.findChildren<QAction*>()) {
            texts.push_back(action->text());
        }
        return texts;
    }
    // Asks for a size, and lets what comes of it come.
    void Size(Long width, Long height) {
        window.Size(width, height);
        Pump();
    }
};

// --- the menus ---

TEST_F(Main, NamesOfOthersHaveNeitherAccessLettersNorShortcuts) {
    MenuItem& item = form[Menu::mnuChar];
    item.caption = "Use Rock & Roll\tor\x01 not";
    item.isLiteral = true;
    form.recentFiles = {"/mugen/stages/a&b.def"};
    Pump();
    EXPECT_THAT(ItemTexts(), testing::IsSupersetOf({QString("Use Rock && Roll or  not"),
                                                    QString("/mugen/stages/a&&b.def")}));
    item.caption = "&Use Test Char";
    item.isLiteral = false;
    Pump();
    EXPECT_THAT(ItemTexts(), testing::Contains(QString("&Use Test Char")));
}

// --- shortcuts ---

// Of a menu, with two items that keys choose and one that they choose also while it is disabled.
void DesignShortcuts(Form& form) {
    for (const Menu item : {Menu::mnuReload, Menu::mnuExit, Menu::mnuCameraStart}) {
        form[item].place = item == Menu::mnuCameraStart ? MenuPlace::Extras : MenuPlace::Stage;
    }
}

class Shortcuts : public ShownWindow {
protected:
    Shortcuts() : ShownWindow(DesignShortcuts) {
        form[Menu::mnuAdditions].checked = true;
        Give(Menu::mnuReload, {"Ctrl+R", "F5"});
        Give(Menu::mnuExit, {"Ctrl+Q"});
        Give(Menu::mnuCameraStart, {"Home"});
        form[Menu::mnuReload].inFullScreen = true;
        form[Menu::mnuExit].whileLoading = true;
        Pump();
        BringUp(window);
        static_cast<void>(program.Text());
    }

    void Give(Menu item, const std::vector<std::string>& shortcuts) {
        form[item].caption = "item " + std::to_string(static_cast<int>(item));
        form[item].shortcuts = shortcuts;
    }
    std::string ToldOf(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        return ToldOf(window, key, with);
    }
    std::string ToldOf(const QWidget& front, Qt::Key key,
                       Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(front.windowHandle(), key, with);
        Pump();
        return program.Text();
    }
    static std::string Of(Menu item) { return "menu " + std::to_string(static_cast<int>(item)); }
};

TEST_F(Shortcuts, ChooseTheirItems) {
    EXPECT_EQ(ToldOf(Qt::Key_R, Qt::ControlModifier), Of(Menu::mnuReload));
    EXPECT_EQ(ToldOf(Qt::Key_F5), Of(Menu::mnuReload));
    EXPECT_EQ(ToldOf(Qt::Key_Home), Of(Menu::mnuCameraStart));
    Give(Menu::mnuReload, {"F6"});
    Pump();
    EXPECT_EQ(ToldOf(Qt::Key_F5), "") << "they follow the form";
    EXPECT_EQ(ToldOf(Qt::Key_F6), Of(Menu::mnuReload));
    form[Menu::mnuReload].enabled = false;
    Pump();
    EXPECT_EQ(ToldOf(Qt::Key_F6), "");
}

TEST_F(Shortcuts, OfADisabledMenuChooseOnlyWhatCanBeChosenWhileAStageLoads) {
    form[Menu::mnuStage].enabled = false;
    Pump();
    EXPECT_EQ(ToldOf(Qt::Key_F5), "");
    EXPECT_EQ(ToldOf(Qt::Key_Q, Qt::ControlModifier), Of(Menu::mnuExit));
}

TEST_F(Shortcuts, AreTypedInATextField) {
    QLineEdit field(&window);
    field.show();
    field.setFocus();
    field.setText("ab");
    EXPECT_EQ(ToldOf(Qt::Key_Home), "");
    EXPECT_EQ(field.cursorPosition(), 0);
    EXPECT_EQ(ToldOf(Qt::Key_Space), "");
    EXPECT_EQ(field.text(), " ab");
    EXPECT_EQ(ToldOf(Qt::Key_R, Qt::ControlModifier), Of(Menu::mnuReload));
    EXPECT_EQ(field.text(), " ab");
    field.clearFocus();
    EXPECT_EQ(ToldOf(Qt::Key_Home), Of(Menu::mnuCameraStart));
}

TEST_F(Shortcuts, AreNoneInADialogOrAnOpenMenu) {
    QDialog dialog(&window);
    BringUp(dialog);
    ASSERT_TRUE(dialog.isActiveWindow());
    EXPECT_EQ(ToldOf(dialog, Qt::Key_F5), "");
    dialog.hide();
    BringUp(window);
    QMenu menu(&window);
    menu.addAction("an item");
    menu.popup(window.mapToGlobal(QPoint(0, 0)));
    Settle();
    EXPECT_EQ(ToldOf(menu, Qt::Key_F5), "");
    menu.close();
    EXPECT_EQ(ToldOf(Qt::Key_F5), Of(Menu::mnuReload));
}

TEST_F(Shortcuts, InTheFullScreenAreThoseThatMakeSenseThere) {
    FullScreenWindow fullScreen(window);
    fullScreen.Show(FullScreenForm::Beneath::Stays);
    EXPECT_EQ(ToldOf(fullScreen, Qt::Key_F5), Of(Menu::mnuReload));
    EXPECT_EQ(ToldOf(fullScreen, Qt::Key_Home), "");
    fullScreen.Hide();
}

TEST_F(Shortcuts, HomeIsTheListsWhileThatHasTheFocus) {
    form.lstStages.browses = true;
    ShowList({"bar", "cup", "dot"});
    EXPECT_EQ(ToldOf(Qt::Key_Home), "step -2147483647");
}

// --- the list ---

class WindowList : public Main {
protected:
    WindowList() { ShowList({"bar", "cup", "dot"}); }

    std::string ToldOfAClick(int row) {
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualRect(list.model()->index(row, 0)).center());
        return Told();
    }
    std::string ToldOfAKey(Qt::Key key) {
        QTest::keyClick(window.windowHandle(), key);
        return Told();
    }
    std::string Told() {
        form.lstStages.ListIndex = list.currentIndex().row();  // as the program takes it
        window.DoEvents();
        return program.Text();
    }

    QListView& list = *window.findChild<QListView*>();
};

TEST_F(WindowList, EachClickAndEachSelectionByKeysIsToldOnce) {
    EXPECT_EQ(ToldOfAClick(1), "list 1");
    EXPECT_EQ(ToldOfAClick(1), "list 1") << "selected already";
    EXPECT_EQ(ToldOfAKey(Qt::Key_Down), "list 2");
    EXPECT_EQ(ToldOfAClick(2), "list 2") << "selected by the keys";
    EXPECT_EQ(ToldOfAClick(0), "list 0");
    EXPECT_EQ(ToldOfAKey(Qt::Key_Down), "list 1");
    EXPECT_EQ(ToldOfAKey(Qt::Key_Up), "list 0");
    EXPECT_EQ(ToldOfAClick(0), "list 0");
}

// As after an entry that could not be opened.
TEST_F(WindowList, WithoutASelectionGoesOnFromWhereItWas) {
    EXPECT_EQ(ToldOfAClick(1), "list 1");
    const auto deselect = [&] {
        form.lstStages.ListIndex = -1;
        Pump();
        EXPECT_TRUE(list.selectionModel()->selectedRows().isEmpty());
        EXPECT_EQ(program.Text(), "");
    };
    deselect();
    EXPECT_EQ(ToldOfAKey(Qt::Key_Down), "list 2");
    deselect();
    EXPECT_EQ(ToldOfAClick(2), "list 2");
}

TEST_F(WindowList, HasTheKeysOfAShownStageOnlyIfTheUserWantsIt) {
    form.lstStages.browses = true;
    const auto comeBack = [&] {
        QWidget other;
        BringUp(other);
        other.hide();
        BringUp(window);
        Pump();
    };
    comeBack();
    EXPECT_TRUE(list.hasFocus()) << "it had it";
    list.clearFocus();
    Pump();
    comeBack();
    EXPECT_FALSE(list.hasFocus()) << "it is what the toolkit would choose";
    EXPECT_TRUE(window.Picture().hasFocus());
}

TEST_F(WindowList, AClickOnThePictureTakesTheFocusWithAdditions) {
    for (const bool additions : {false, true}) {
        form.lstStages.browses = additions;
        list.setFocus();
        ASSERT_TRUE(list.hasFocus());
        QTest::mouseClick(&window.Picture(), Qt::LeftButton, {}, {5, 5});
        EXPECT_EQ(list.hasFocus(), !additions);
    }
}

TEST_F(Main, TheFormIsShownAfterEventsWereTakenInDuringAFrame) {
    BringUp(window);
    form[Menu::mnuStage].enabled = false;
    Pump();
    EXPECT_FALSE(window.MessageWaiting());
    window.NoteEvents();
    form[Menu::mnuStage].enabled = true;
    EXPECT_TRUE(window.MessageWaiting()) << "though nothing waits";
    window.DoEvents();
    EXPECT_TRUE(window.menuBar()->actions().front()->isEnabled());
    Pump();
    EXPECT_FALSE(window.MessageWaiting());
}

TEST_F(WindowList, LettersOpenNothingWhileItIsHidden) {
    EXPECT_EQ(ToldOfAKey(Qt::Key_D), "list 2");
    form.lstStages.visible = false;
    Pump();
    EXPECT_EQ(ToldOfAKey(Qt::Key_C), "leave");
    EXPECT_EQ(ToldOfAKey(Qt::Key_C), "");
    EXPECT_FALSE(list.hasFocus());
}

// --- the size ---

using WindowSizes = Main;

TEST_F(WindowSizes, AreReportedWhenTheyHaveCome) {
    window.Size(400, 300);
    ExpectInside(320, 240);
    EXPECT_NE(window.width(), 400) << "the window system has not answered yet";
    Pump();
    ExpectInside(400, 300);
    EXPECT_EQ(window.width(), 400);
}

TEST_F(WindowSizes, AreReportedAlsoWhereNothingChanges) {
    program.width = 0;
    program.height = 0;
    window.Size(320, 240);
    EXPECT_TRUE(window.MessageWaiting());
    Pump();
    ExpectInside(320, 240);
}

// When it comes up it is told of before its first size, and asks for another one.
TEST_F(WindowSizes, OfBeforeAWishAreNotReportedAfterIt) {
    class Wishes : public RecordedEvents {
    public:
        explicit Wishes(MainWindow& window) : window_(window) {}
        void Form_Activate() override { window_.Size(400, 300); }
        void Form_Resize(Long innerWidth, Long innerHeight) override {
            EXPECT_EQ(innerWidth, 400);
            EXPECT_EQ(innerHeight, 300);
        }

    private:
        MainWindow& window_;
    };
    MainWindow other(form);
    Wishes wishes(other);
    other.SetEvents(&wishes);
    other.Show();
    Pump(other);
    EXPECT_EQ(other.width(), 400);
}

// A Wayland compositor ends the program that takes another one.
TEST_F(WindowSizes, OfAWindowThatIsMaximisedOrFullScreenAreNotAskedFor) {
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        SCOPED_TRACE(state);
        window.setWindowState(state);
        Pump();
        const QRect whole = window.geometry();
        const QSize inner(program.width, program.height);
        ASSERT_NE(inner, QSize(320, 240));
        program.width = 0;
        window.Size(320, 240);
        window.MoveTo(20 * kUnitsPerPixel, 30 * kUnitsPerPixel);
        Pump();
        EXPECT_EQ(window.geometry(), whole);
        ExpectInside(inner.width(), inner.height());
        form.hscHScroll.Visible = true;
        Size(inner.width(), inner.height());
        EXPECT_EQ(window.geometry(), whole);
        ExpectInside(inner.width(), inner.height() - Bar().height());
        form.hscHScroll.Visible = false;
        window.setWindowState(Qt::WindowNoState);
        Size(320, 240);
        ExpectInside(320, 240);
    }
}

TEST_F(WindowSizes, OfAWindowUnderTheFullScreenAreNotAskedFor) {
    FullScreenWindow fullScreen(window);
    fullScreen.Show(FullScreenForm::Beneath::Stays);
    Size(400, 300);
    ExpectInside(320, 240);
    fullScreen.Hide();
    Pump();
    ExpectInside(320, 240);
    Size(400, 300);
    ExpectInside(400, 300);
}

TEST_F(WindowSizes, TheLargestInnerOneLeavesRoomForTheBars) {
    const InnerSize without = window.LargestInnerSize();
    const Long borders = window.frameGeometry().width() - window.width();
    EXPECT_EQ((without.width + borders) * kUnitsPerPixel, window.Screen().width);
    form.hscSGFX.Visible = true;
    const InnerSize with = window.LargestInnerSize();
    Pump();
    EXPECT_EQ(with.width, without.width);
    EXPECT_EQ(with.height, without.height - Bar().height());
}

// --- where the user had it ---

struct Stands {
    const char* name;
    WindowStand wanted;
    WindowStand comesUp;
};

using Spot = WindowStand::Spot;

// The screen of these tests is 800 x 800.
const Stands kStands[] = {
    {"AsItWas", {Spot{60, 50}, {500, 300}}, {Spot{60, 50}, {500, 300}}},
    {"Maximised", {Spot{60, 50}, {500, 300}, true}, {Spot{60, 50}, {500, 300}, true}},
    {"LargerThanTheScreen", {Spot{0, 0}, {1500, 900}}, {Spot{0, 0}, {800, 800}}},
};

class ComesUp : public Main, public testing::WithParamInterface<Stands> {};

TEST_P(ComesUp, WhereTheUserHadIt) {
    MainWindow other(form);
    RecordedEvents events;
    other.SetEvents(&events);
    other.ComeUpAt(GetParam().wanted);
    EXPECT_EQ(other.Stand(), (WindowStand{GetParam().comesUp.spot, GetParam().comesUp.size,
                                          GetParam().wanted.maximised}))
        << "before it is shown";
    other.Show();
    Pump(other);
    EXPECT_EQ(other.Stand(), GetParam().comesUp);
    EXPECT_EQ(other.isMaximized(), GetParam().comesUp.maximised);
    EXPECT_EQ(events.width, other.centralWidget()->width());
    other.setWindowState(Qt::WindowNoState);
    Pump(other);
    EXPECT_EQ(other.size(), QSize(GetParam().comesUp.size.width, GetParam().comesUp.size.height));
}

INSTANTIATE_TEST_SUITE_P(Of, ComesUp, testing::ValuesIn(kStands),
                         [](const auto& row) { return row.param.name; });

TEST_F(Main, ComesUpAnywhereButOutOfReach) {
    MainWindow other(form);
    RecordedEvents events;
    other.SetEvents(&events);
    other.ComeUpAt({Spot{5000, -400}, {500, 300}});
    other.Show();
    Pump(other);
    EXPECT_TRUE(other.screen()->geometry().contains(other.geometry().topLeft()));
    EXPECT_EQ(other.size(), QSize(500, 300));
}

// --- the bars ---

// While nobody does anything no message waits, and a picture comes all the same.
TEST_F(Main, ABarGoesWithThePictureWithoutAnyMessage) {
    form.hscHScroll = {-100, 100, 0, true};
    Pump();
    form.hscHScroll.Value = 35;
    const std::vector<std::uint32_t> picture(std::size_t{320} * 240, 0);
    EXPECT_EQ(window.Present(CanvasSize(), picture), D3D_OK);
    EXPECT_EQ(Bar().value(), 35);
    Pump();
    EXPECT_EQ(program.Text(), "") << "nobody has moved it";
}

using WindowBars = Main;

TEST_F(WindowBars, StandBelowTheInnerAreaWhenTheWindowIsSized) {
    ExpectInside(320, 240);
    const int without = window.height();
    for (int time = 0; time < 3; ++time) {
        form.hscHScroll.Visible = true;
        Size(320, 240);
        ExpectInside(320, 240);
        EXPECT_EQ(window.height(), without + Bar().height());
        form.hscHScroll.Visible = false;
        form.hscSGFX.Visible = true;
        Size(200, 100);
        ExpectInside(200, 100);
        form.hscSGFX.Visible = false;
        Size(320, 240);
        ExpectInside(320, 240);
        EXPECT_EQ(window.height(), without);
    }
}

TEST_F(WindowBars, TakeTheirHeightFromAWindowThatIsNot) {
    const int without = window.height();
    form.hscHScroll.Visible = true;
    Pump();
    EXPECT_EQ(window.height(), without);
    ExpectInside(320, 240 - Bar().height());
    form.hscHScroll.Visible = false;
    Pump();
    ExpectInside(320, 240);
}

TEST_F(WindowBars, StandWhereTheFormSaysAndTellNothingOfIt) {
    form.hscHScroll = {-100, 80, -30, true};
    Pump();
    EXPECT_EQ(Bar().minimum(), -100);
    EXPECT_EQ(Bar().maximum(), 80);
    EXPECT_EQ(Bar().value(), -30);
    form.hscHScroll.Value = 7;
    Pump();
    EXPECT_EQ(Bar().value(), 7);
    EXPECT_EQ(program.Text(), "");
}

TEST_F(WindowBars, TellOfTheLastOfManyMoves) {
    form.hscHScroll = {-100, 100, 0, true};
    Pump();
    for (int value = 1; value <= 50; ++value) {
        Bar().setValue(value);
    }
    window.DoEvents();
    EXPECT_EQ(program.Text(), "camera 50");
}

TEST_F(WindowBars, TellOfScrollingWhileTheThumbIsDraggedAndOfAChangeBehindIt) {
    form.hscSGFX = {0, 9, 0, true};
    Pump();
    Bar().setSliderDown(true);
    Bar().setValue(3);
    Bar().setValue(4);
    window.DoEvents();
    EXPECT_EQ(program.Text(), "scroll 4");
    form.hscSGFX.Value = 4;
    Bar().setSliderDown(false);
    window.DoEvents();
    EXPECT_EQ(program.Text(), "sprite 4");
}

TEST_F(WindowBars, OfTheSpritesIsWorkedByTheArrowKeysWhileItIsThere) {
    BringUp(window);
    form.lstStages.takesKeys = false;
    form.hscSGFX = {0, 9, 0, true};
    Pump();
    const auto expect = [this](Qt::Key key, Long value, const char* told) {
        Press(window, {key, 1});
        form.hscSGFX.Value = value;  // as the program takes it
        window.DoEvents();
        EXPECT_EQ(program.Text(), told);
        Release(window, {key, 1});
    };
    expect(Qt::Key_Right, 1, "sprite 1");
    expect(Qt::Key_Up, 1, "");
    expect(Qt::Key_End, 9, "sprite 9");
    expect(Qt::Key_Left, 8, "sprite 8");
    expect(Qt::Key_PageUp, 0, "sprite 0");
    expect(Qt::Key_PageDown, 9, "sprite 9");
    expect(Qt::Key_Home, 0, "sprite 0");
    form.hscSGFX.Visible = false;
    form.hscHScroll = {-100, 100, 0, true};
    Pump();
    Press(window, {Qt::Key_Right, 1});
    window.DoEvents();
    EXPECT_EQ(program.Text(), "");
    EXPECT_EQ(Bar().value(), 0) << "the camera's bar goes by the camera";
}

// --- the mouse ---

TEST_F(Main, TellsOfThePressesAndTheLastMove) {
    PictureWidget& picture = window.Picture();
    SendMouse(picture, QEvent::MouseButtonPress, {1, 2}, Qt::LeftButton, Qt::LeftButton);
    for (int x = 2; x < 40; ++x) {
        SendMouse(picture, QEvent::MouseMove, QPointF(x, 2), Qt::NoButton, Qt::LeftButton);
    }
    SendMouse(picture, QEvent::MouseButtonRelease, {39, 2}, Qt::LeftButton, Qt::NoButton);
    window.DoEvents();
    EXPECT_EQ(program.Text(), "down 1 2, move 39 2, up");
}

TEST_F(Main, TellsOfAPullAndItsLastMove) {
    PictureWidget& picture = window.Picture();
    SendMouse(picture, QEvent::MouseButtonPress, {1, 2}, Qt::MiddleButton, Qt::MiddleButton);
    for (int x = 2; x < 40; ++x) {
        SendMouse(picture, QEvent::MouseMove, QPointF(x, 2), Qt::NoButton, Qt::MiddleButton);
    }
    SendMouse(picture, QEvent::MouseButtonRelease, {39, 2}, Qt::MiddleButton, Qt::NoButton);
    window.DoEvents();
    EXPECT_EQ(program.Text(), "middle down 1 2, middle move 39 2, middle up");
    SendMouse(picture, QEvent::MouseButtonDblClick, {1, 2}, Qt::LeftButton, Qt::LeftButton);
    window.DoEvents();
    EXPECT_EQ(program.Text(), "down 1 2, twice");
}

TEST_F(WindowSizes, HaveRoomOnTheScreenOrNot) {
    const QSize screen = window.screen()->availableGeometry().size();
    const QSize around = window.frameGeometry().size() - QSize(program.width, program.height);
    const Long width = screen.width() - around.width();
    const Long height = screen.height() - around.height();
    EXPECT_TRUE(window.HasRoomFor(width, height));
    EXPECT_FALSE(window.HasRoomFor(width + 1, height));
    EXPECT_FALSE(window.HasRoomFor(width, height + 1));
    for (const Qt::WindowState state : {Qt::WindowMaximized, Qt::WindowFullScreen}) {
        window.setWindowState(state);
        Pump();
        EXPECT_FALSE(window.HasRoomFor(320, 240)) << state;
        window.setWindowState(Qt::WindowNoState);
        Pump();
    }
    FullScreenWindow fullScreen(window);
    fullScreen.Show(FullScreenForm::Beneath::Stays);
    EXPECT_FALSE(window.HasRoomFor(320, 240));
    fullScreen.Hide();
    EXPECT_TRUE(window.HasRoomFor(320, 240));
}

// --- what waits while a frame takes long ---

TEST_F(Main, KnowsBeforeItTellsWhetherTheStageIsToBeLeft) {
    form[Menu::mnuOpen].leaves = true;
    form[Menu::mnuStagePrev].leaves = true;
    form[Menu::mnuAbout].caption = "&About";
    form.recentFiles = {"/mugen/stages/a.def"};
    form.lstStages.items = {"a", "b"};
    form.lstStages.visible = true;
    Pump();
    const auto choose = [this](const QString& caption) {
        for (QAction* const action : window.findChildren<QAction*>()) {
            if (action->text() == caption) {
                action->trigger();
            }
        }
    };
    form[Menu::mnuOpen].caption = "&Open";
    form[Menu::mnuStagePrev].caption = "<<";
    Pump();
    QMimeData file;
    file.setUrls({QUrl::fromLocalFile("/mugen/stages/a.def")});
    struct Row {
        const char* what;
        std::function<void()> deed;
        const char* told;
        bool leaves;
    };
    const std::vector<Row> rows = {
        {"an item that opens", [&] { choose("&Open"); }, "menu 1", true},
        {"an item of the bar", [&] { choose("<<"); }, "menu 20", true},
        {"an item that stays", [&] { choose("&About"); }, "menu 24", false},
        {"a recent file", [&] { choose("/mugen/stages/a.def"); }, "recent 1", true},
        {"a stage of the list",
         [list = window.findChild<QListView*>()] {
             list->setCurrentIndex(list->model()->index(1, 0));
         },
         "list 1", true},
        {"a dropped file",
         [&] {
             QDragEnterEvent enter({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
             QApplication::sendEvent(&window, &enter);
             QDropEvent drop({5, 5}, Qt::CopyAction, &file, Qt::LeftButton, Qt::NoModifier);
             QApplication::sendEvent(&window, &drop);
         },
         "drop /mugen/stages/a.def", true},
        {"Escape", [&] { window.NoteKey(VirtualKey::Escape); }, "key 27", true},
        {"an arrow key", [&] { window.NoteKey(VirtualKey::Left); }, "key 37", false},
        {"closing it", [&] { window.close(); }, "unload", true},
    };
    for (const Row& row : rows) {
        EXPECT_FALSE(window.LeavingWaits()) << row.what;
        row.deed();
        window.NoteEvents();
        EXPECT_EQ(window.LeavingWaits(), row.leaves) << row.what;
        EXPECT_EQ(program.Text(), "") << row.what << ": nothing is told yet";
        window.DoEvents();
        EXPECT_EQ(program.Text(), row.told) << row.what;
    }
    EXPECT_TRUE(window.LeavingWaits()) << "the program is to end";
}

// --- how the canvas is shown ---

TEST_F(Main, ShowsTheTitleInABoxOfAnySize) {
    form.presentation = {ShownSizes::Any, Scaling::Average};
    for (const QSize& size : {QSize(320, 240), QSize(480, 360), QSize(500, 375), QSize(200, 150)}) {
        form.picDraw = {0, 0, size.width(), size.height()};
        Pump();
        const QImage seen = window.Picture().grab().toImage();
        ASSERT_EQ(seen.size(), size);
        for (const QPoint& corner : {QPoint(0, 0), QPoint(size.width() - 1, size.height() - 1)}) {
            EXPECT_NE(seen.pixel(corner), 0xFF000000U) << size.width();
        }
    }
}

TEST_F(Main, ShowsThePictureThatStandsAsTheFormHasIt) {
    FullScreenWindow fullScreen(window);
    DesktopPicture sink(window, fullScreen);
    form.picDraw = {0, 0, 480, 360};
    Size(480, 360);
    constexpr std::uint32_t kColour = 0xFF336699;
    const auto corner = [](PictureWidget& picture) { return picture.grab().toImage().pixel(0, 0); };
    sink.Show(CanvasSize(), std::vector<std::uint32_t>(320U * 240U, kColour));
    EXPECT_NE(corner(window.Picture()), kColour);
    form.presentation = {ShownSizes::Any, Scaling::Average};
    Pump();
    EXPECT_EQ(corner(window.Picture()), kColour);

    fullScreen.Show(FullScreenForm::Beneath::Stays);
    fullScreen.Picture().resize(480, 360);
    EXPECT_EQ(corner(fullScreen.Picture()), kColour);
    form.presentation = {};
    Pump();
    EXPECT_NE(corner(fullScreen.Picture()), kColour) << "there, too";
    fullScreen.Hide();
    EXPECT_NE(corner(window.Picture()), kColour);
}

// --- the frame around what is selected ---

TEST_F(Main, ShowsTheFrameOfTheSelectionWithThePictureThatItBelongsTo) {
    FullScreenWindow fullScreen(window);
    DesktopPicture sink(window, fullScreen);
    const std::vector<std::uint32_t> view(320U * 240U, 0xFF336699U);
    const auto pixelsOfTheFrame = [&] {
        const QImage seen = window.Picture().grab().toImage();
        int count = 0;
        for (int x = 0; x < seen.width(); ++x) {
            count += seen.pixel(x, 100) == 0xFF336699U ? 0 : 1;
        }
        return count;
    };
    sink.Show(CanvasSize(), view);
    EXPECT_EQ(pixelsOfTheFrame(), 0);
    form.selection = {50, 100, 150, 120};
    sink.Show(CanvasSize(), view);
    EXPECT_EQ(pixelsOfTheFrame(), 100);
    form.selection.reset();
    sink.Show(CanvasSize(), view);
    EXPECT_EQ(pixelsOfTheFrame(), 0);
}

// --- the full screen ---

TEST_F(Main, StandsOverTheWholeScreenWhileTheFullScreenDoes) {
    FullScreenWindow fullScreen(window);
    window.MoveTo(20 * kUnitsPerPixel, 30 * kUnitsPerPixel);
    Pump();
    const WindowPlace screen = window.Screen();
    const WindowPlace before = window.Place();
    EXPECT_NE(before.width, screen.width);
    fullScreen.Show(FullScreenForm::Beneath::Stays);
    EXPECT_EQ(window.Place().left, 0);
    EXPECT_EQ(window.Place().top, 0);
    EXPECT_EQ(window.Place().width, screen.width);
    EXPECT_EQ(window.Place().height, screen.height);
    fullScreen.Hide();
    Pump();
    EXPECT_EQ(window.Place().width, before.width);
    EXPECT_EQ(window.Place().left, before.left);
}

TEST_F(Main, ThePointerIsHiddenOverTheFullScreenWhenItRests) {
    FullScreenWindow fullScreen(window);
    fullScreen.Show(FullScreenForm::Beneath::Stays);
    const auto isHidden = [&] { return fullScreen.cursor().shape() == Qt::BlankCursor; };
    for (int time = 0; time < 2; ++time) {
        EXPECT_FALSE(isHidden());
        EXPECT_TRUE(QTest::qWaitFor(isHidden, 20000));
        QMouseEvent move(QEvent::MouseMove, QPointF(50, 60), QPointF(50, 60), Qt::NoButton,
                         Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&fullScreen.Picture(), &move);
    }
    EXPECT_FALSE(isHidden());
    fullScreen.Hide();
}

// In its place: a task bar has one entry, and boxes belong to what is seen.
TEST_F(Main, TheFullScreenBelongsToTheWindowAndBoxesBelongToIt) {
    FullScreenWindow fullScreen(window);
    Questions questions(window);
    EXPECT_EQ(questions.Owner(), &window);
    const WindowHandle handle = fullScreen.Show(FullScreenForm::Beneath::Stays);
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(fullScreen.windowHandle()->transientParent(), window.windowHandle());
    EXPECT_EQ(questions.Owner(), &fullScreen);
    window.SetCaption("the next one");
    EXPECT_EQ(fullScreen.windowTitle(), QString("the next one"));
    QDialog box(questions.Owner());
    QTimer::singleShot(0, &box, [&] {
        EXPECT_TRUE(QTest::qWaitFor([&] { return box.isActiveWindow(); }, 20000));
        EXPECT_EQ(window.Foreground(), handle) << "a box counts as what it belongs to";
        box.accept();
    });
    EXPECT_EQ(questions.Ask(box), QDialog::Accepted);
    EXPECT_EQ(window.Foreground(), handle);
    fullScreen.Hide();
    EXPECT_EQ(questions.Owner(), &window);
    fullScreen.Show(FullScreenForm::Beneath::Hides);
    EXPECT_FALSE(window.isVisible());
    fullScreen.Hide();
    EXPECT_TRUE(window.isVisible());
}

TEST_F(Main, TheFullScreenFollowsTheScreenWhileItIsThereAndNotAfterwards) {
    FullScreenWindow fullScreen(window);
    const QRect elsewhere(10, 20, 30, 40);
    const auto afterAChange = [&] {
        fullScreen.setGeometry(elsewhere);
        const QRect screen = window.screen()->geometry();
        EXPECT_TRUE(
            QMetaObject::invokeMethod(window.screen(), "geometryChanged", Q_ARG(QRect, screen)));
        return fullScreen.geometry();
    };
    for (int time = 0; time < 3; ++time) {
        fullScreen.Show(FullScreenForm::Beneath::Stays);
        EXPECT_EQ(afterAChange(), window.screen()->geometry());
        fullScreen.Hide();
        EXPECT_EQ(afterAChange(), elsewhere);
    }
}

}  // namespace
}  // namespace scenara::test
