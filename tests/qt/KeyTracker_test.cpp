// SPDX-License-Identifier: MIT
//
// Which keys count as down, which are told of, and which go no further.
#include "platform/qt/KeyTracker.h"

#include <QDialog>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QScrollBar>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/Keys.h"
#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Integer kUp = 0;
constexpr Integer kPressedSince = 1;
constexpr Integer kDown = -32768;
constexpr Integer kDownAndPressedSince = -32767;

TEST(VirtualKeyOf, IsTheKeyOfThatNameOrOnThatPlace) {
    static constexpr Qt::KeyboardModifiers kNone = Qt::NoModifier;
    constexpr Qt::KeyboardModifiers kKeypad = Qt::KeypadModifier;
    struct Row {
        const char* name;
        int key;
        std::optional<VirtualKey> expected;
        Qt::KeyboardModifiers modifiers = kNone;
        quint32 place = 0;
    };
    const Row rows[] = {
        {"Left", Qt::Key_Left, VirtualKey::Left},
        {"Up", Qt::Key_Up, VirtualKey::Up},
        {"Right", Qt::Key_Right, VirtualKey::Right},
        {"Down", Qt::Key_Down, VirtualKey::Down},
        {"Pause", Qt::Key_Pause, VirtualKey::Pause},
        {"Escape", Qt::Key_Escape, VirtualKey::Escape},
        {"Insert", Qt::Key_Insert, VirtualKey::Insert},
        {"Delete", Qt::Key_Delete, VirtualKey::Delete},
        {"A", Qt::Key_A, VirtualKey::A},
        {"D", Qt::Key_D, VirtualKey::D},
        {"Q", Qt::Key_Q, VirtualKey::Q},
        {"Z", Qt::Key_Z, VirtualKey::Z},
        {"the keypad's plus", Qt::Key_Plus, VirtualKey::NumpadPlus, kKeypad},
        {"the keypad's minus", Qt::Key_Minus, VirtualKey::NumpadMinus, kKeypad},
        {"another plus", Qt::Key_Plus, {}},
        {"another plus, with Shift", Qt::Key_Plus, {}, Qt::ShiftModifier},
        {"another minus", Qt::Key_Minus, {}},
        {"the keypad's Left", Qt::Key_Left, VirtualKey::Left, kKeypad},
        {"the keypad's Insert", Qt::Key_Insert, VirtualKey::Insert, kKeypad},
        {"the keypad's Delete", Qt::Key_Delete, VirtualKey::Delete, kKeypad},
        {"a Cyrillic letter on A", 0x0424, VirtualKey::A, kNone, 38},
        {"a Cyrillic letter on D", 0x0412, VirtualKey::D, kNone, 40},
        {"a Cyrillic letter on Q", 0x0419, VirtualKey::Q, kNone, 24},
        {"a Cyrillic letter on Z", 0x042F, VirtualKey::Z, kNone, 52},
        {"a Cyrillic letter on F", 0x0410, {}, kNone, 41},
        {"a Latin letter is itself, wherever it is", Qt::Key_B, {}, kNone, 38},
        {"A with two dots", Qt::Key_Adiaeresis, {}, kNone, 40},
        {"A with an ogonek", 0x0104, {}, kNone, 38},
        {"A with a dot below", 0x1EA0, {}, kNone, 38},
        {"F1 on A", Qt::Key_F1, {}, kNone, 38},
        {"F7", Qt::Key_F7, {}},
        {"B", Qt::Key_B, {}},
        {"Space", Qt::Key_Space, VirtualKey::Space},
        {"a key without a name", Qt::Key_unknown, {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(
            VirtualKeyOf(QKeyEvent(QEvent::KeyPress, row.key, row.modifiers, row.place, 0, 0)),
            row.expected)
            << row.name;
    }
}

// A widget with the focus, which writes down the keys that get to it.
class Listener : public QWidget {
public:
    Listener() { setFocusPolicy(Qt::StrongFocus); }
    std::vector<int> heard;

protected:
    void keyPressEvent(QKeyEvent* event) override { heard.push_back(event->key()); }
};

class Keys : public Toolkit {
protected:
    Keys() {
        tracker.SetObserver([this](VirtualKey key) { told.push_back(key); });
        BringUp(listener);
        listener.setFocus();
    }

    Integer State(VirtualKey key) { return tracker.GetAsyncKeyState(key); }
    // A stage is shown with the editor on.
    void Edit() {
        form.lstStages.takesKeys = false;
        form[Menu::mnuDebugBG].checked = true;
    }

    // Presses and lets go of each; what the focused widget has heard of.
    std::vector<int> HeardOf(const std::vector<KeyPlace>& keys) {
        listener.heard.clear();
        for (const KeyPlace& key : keys) {
            Press(listener, key);
            Release(listener, key);
        }
        return listener.heard;
    }

    static constexpr quint32 kScanD = 40;
    static constexpr quint32 kScanLeft = 113;
    const KeyPlace d{Qt::Key_D, kScanD};
    const KeyPlace left{Qt::Key_Left, kScanLeft};
    const std::vector<KeyPlace> arrowsAZ = {left,
                                            {Qt::Key_Up, 111},
                                            {Qt::Key_Right, 114},
                                            {Qt::Key_Down, 116},
                                            {Qt::Key_A, 38},
                                            {Qt::Key_Z, 52}};
    const std::vector<KeyPlace> editing = {d,
                                           {Qt::Key_Plus, 86, Qt::KeypadModifier},
                                           {Qt::Key_Minus, 82, Qt::KeypadModifier},
                                           {Qt::Key_Delete, 119},
                                           {Qt::Key_Insert, 118}};

    Form form;
    KeyTracker tracker{form};
    std::vector<VirtualKey> told;
    Listener listener;
};

// --- which are down ---

TEST_F(Keys, AreDownFromThePressToTheRelease) {
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    Press(listener, left);
    EXPECT_EQ(State(VirtualKey::Left), kDownAndPressedSince);
    EXPECT_EQ(State(VirtualKey::Left), kDown);
    EXPECT_EQ(State(VirtualKey::Right), kUp);
    Release(listener, left);
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    EXPECT_THAT(told, ElementsAre(VirtualKey::Left)) << "once, though two widgets saw it";
}

TEST_F(Keys, APressThatCameAndWentIsReportedOnce) {
    Press(listener, d);
    Release(listener, d);
    EXPECT_EQ(State(VirtualKey::D), kPressedSince);
    EXPECT_EQ(State(VirtualKey::D), kUp);
}

TEST_F(Keys, AreKnownByTheirPlaceWhileTheyAreDown) {
    constexpr quint32 kScanKeypad4 = 83;
    Press(listener, {Qt::Key_Left, kScanKeypad4, Qt::KeypadModifier});
    // With Num Lock on in between it is another key that is let go.
    Release(listener, {Qt::Key_4, kScanKeypad4, Qt::KeypadModifier});
    EXPECT_EQ(State(VirtualKey::Left), kPressedSince);
}

TEST_F(Keys, TwoPlacesOfOneKeyAreBothLetGoBeforeItIsUp) {
    Press(listener, left);
    Press(listener, {Qt::Key_Left, 83, Qt::KeypadModifier});
    Release(listener, left);
    EXPECT_EQ(State(VirtualKey::Left), kDownAndPressedSince);
    Release(listener, {Qt::Key_Left, 83, Qt::KeypadModifier});
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    EXPECT_THAT(told, ElementsAre(VirtualKey::Left, VirtualKey::Left));
}

TEST_F(Keys, RepeatedOnesArePressedOnce) {
    Press(listener, left);
    static_cast<void>(State(VirtualKey::Left));
    Release(listener, left, true);
    Press(listener, left, true);
    EXPECT_EQ(State(VirtualKey::Left), kDown);
    Press(listener, left);  // a repetition that is not told to be one
    EXPECT_EQ(State(VirtualKey::Left), kDown);
    EXPECT_THAT(told, ElementsAre(VirtualKey::Left));
    Release(listener, left);
    EXPECT_EQ(State(VirtualKey::Left), kUp);
}

TEST_F(Keys, ARepetitionWithoutAPressIsNone) {
    Press(listener, left, true);  // held since before the window was there
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Keys, AReleaseWithoutAPressIsNothing) {
    Release(listener, left);
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    Press(listener, d);
    Release(listener, left);
    EXPECT_EQ(State(VirtualKey::D), kDownAndPressedSince);
}

TEST_F(Keys, AreAllUpWhenTheFocusMoves) {
    Press(listener, left);
    Press(listener, d);
    Release(listener, d);
    Listener other;
    BringUp(other);
    ASSERT_TRUE(other.isActiveWindow());
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    EXPECT_EQ(State(VirtualKey::D), kUp);
    Release(other, left);  // heard of here by chance
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    Press(other, left);
    EXPECT_EQ(State(VirtualKey::Left), kDownAndPressedSince);
}

TEST_F(Keys, WithAltAndTheLikeBelongToTheMenus) {
    for (const Qt::KeyboardModifier with :
         {Qt::AltModifier, Qt::ControlModifier, Qt::MetaModifier}) {
        Edit();
        EXPECT_THAT(HeardOf({{Qt::Key_D, kScanD, with}}), ElementsAre(Qt::Key_D));
        EXPECT_EQ(State(VirtualKey::D), kUp);
    }
    EXPECT_THAT(told, IsEmpty());
    Press(listener, {Qt::Key_D, kScanD, Qt::ShiftModifier});
    EXPECT_THAT(told, ElementsAre(VirtualKey::D)) << "Shift is no such key";
}

// The window system may not tell that a key is repeated.
class KeysWithAdditions : public Keys {
protected:
    KeysWithAdditions() { form[Menu::mnuAdditions].checked = true; }

    // What the window system asks first. Whether a shortcut may have the key.
    static bool MayChoose(QWidget& to, Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier,
                          quint32 scanCode = 0) {
        QKeyEvent event(QEvent::ShortcutOverride, key, with, scanCode, 0, 0);
        event.ignore();
        QApplication::sendEvent(&to, &event);
        return !event.isAccepted();
    }
    void PressAt(quint64 time, const KeyPlace& place) {
        QKeyEvent event(QEvent::KeyPress, place.key, place.modifiers, place.scanCode, 0, 0);
        event.setTimestamp(time);
        QApplication::sendEvent(listener.windowHandle(), &event);
    }
};

TEST_F(KeysWithAdditions, HeldSinceAltOrCtrlDoNotCountUntilTheyAreLetGo) {
    for (const Qt::KeyboardModifier with : {Qt::AltModifier, Qt::ControlModifier}) {
        EXPECT_TRUE(MayChoose(listener, Qt::Key_D, with, kScanD));  // and no press comes of it
        Press(listener, d);
        Press(listener, d);
        EXPECT_EQ(State(VirtualKey::D), kUp);
        Release(listener, d);
        EXPECT_THAT(told, IsEmpty());
        Press(listener, d);
        EXPECT_EQ(State(VirtualKey::D), kDownAndPressedSince) << "pressed alone it counts";
        Release(listener, d);
        told.clear();

        Press(listener, {Qt::Key_Left, kScanLeft, with});
        Press(listener, left);
        EXPECT_EQ(State(VirtualKey::Left), kUp);
        Release(listener, left);
    }
}

TEST_F(KeysWithAdditions, WhoseReleaseWasLostCountAgainAfterAMoment) {
    PressAt(1000, {Qt::Key_D, kScanD, Qt::AltModifier});
    PressAt(1600, d);
    PressAt(2500, d);
    EXPECT_EQ(State(VirtualKey::D), kUp) << "it repeats";
    PressAt(3600, d);
    EXPECT_EQ(State(VirtualKey::D), kDownAndPressedSince);
}

TEST_F(KeysWithAdditions, HeldStayDownWhileAShortcutIsPressed) {
    Press(listener, left);
    static_cast<void>(State(VirtualKey::Left));
    const KeyPlace r{Qt::Key_R, 27, Qt::ControlModifier};
    static_cast<void>(MayChoose(listener, Qt::Key_R, Qt::ControlModifier, 27));
    Release(listener, r);
    EXPECT_EQ(State(VirtualKey::Left), kDown);
    Press(listener, {Qt::Key_Left, kScanLeft, Qt::ControlModifier}, true);
    EXPECT_EQ(State(VirtualKey::Left), kDown);
    Release(listener, {Qt::Key_Left, kScanLeft, Qt::ControlModifier});
    EXPECT_EQ(State(VirtualKey::Left), kUp);
}

TEST_F(KeysWithAdditions, OfATextFieldChooseNothingThatIsTyped) {
    QLineEdit field;
    BringUp(field);
    field.setFocus();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Home}) {
        EXPECT_FALSE(MayChoose(field, key)) << key;
    }
    for (const Qt::Key key : {Qt::Key_F5, Qt::Key_F11}) {
        EXPECT_TRUE(MayChoose(field, key)) << key;
    }
    EXPECT_TRUE(MayChoose(field, Qt::Key_R, Qt::ControlModifier));
    EXPECT_TRUE(MayChoose(field, Qt::Key_S, Qt::AltModifier)) << "menus open";
}

TEST_F(KeysWithAdditions, OfAListChooseNothingButItsOwnAlone) {
    QListWidget list;
    list.addItems({"bar", "cup", "dot"});
    BringUp(list);
    list.setFocus();
    EXPECT_TRUE(MayChoose(list, Qt::Key_F5));
    EXPECT_TRUE(MayChoose(list, Qt::Key_R, Qt::ControlModifier));
    const KeyPlace space{Qt::Key_Space, 65, Qt::NoModifier, " "};
    Press(list, space);
    Release(list, space);
    EXPECT_THAT(told, IsEmpty());
    listener.activateWindow();
    BringUp(listener);
    listener.setFocus();
    EXPECT_TRUE(MayChoose(listener, Qt::Key_Home));
    Press(listener, space);
    EXPECT_THAT(told, ElementsAre(VirtualKey::Space));
}

TEST_F(KeysWithAdditions, AListWithTheFocusKeepsItsOwn) {
    QListWidget list;
    list.addItems({"apple", "bar", "cup", "dot"});
    BringUp(list);
    list.setFocus();
    list.setCurrentRow(1);
    form.lstStages.takesKeys = false;  // a stage is shown
    form[Menu::mnuDebugBG].checked = true;
    const auto rowAfter = [&](const KeyPlace& key) {
        Press(list, key);
        Release(list, key);
        return list.currentRow();
    };
    EXPECT_EQ(rowAfter({Qt::Key_Down, 116}), 2);
    EXPECT_EQ(rowAfter({Qt::Key_Up, 111}), 1);
    EXPECT_EQ(rowAfter({Qt::Key_End, 115}), 3);
    EXPECT_EQ(rowAfter({Qt::Key_Home, 110}), 0);
    EXPECT_EQ(rowAfter({Qt::Key_D, kScanD, Qt::NoModifier, "d"}), 3);
    EXPECT_NE(rowAfter({Qt::Key_PageUp, 112}), 3);
    EXPECT_EQ(rowAfter({Qt::Key_PageDown, 117}), 3);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(rowAfter(left), 3);
    EXPECT_EQ(rowAfter({Qt::Key_Insert, 118}), 3);
    EXPECT_THAT(told, ElementsAre(VirtualKey::Left, VirtualKey::Insert))
        << "it has no use for them";
}

TEST(PolledKeys, AreThoseOfTheTable) {
    std::set<VirtualKey> ofTable = {VirtualKey::Q};
    for (const Key& key : AllKeys()) {
        if (key.taker != KeyTaker::Polled) {
            continue;
        }
        ofTable.insert(key.key);
        std::string name = key.name;
        Qt::KeyboardModifiers with;
        if (name.starts_with("Numpad ")) {
            name.erase(0, 7);
            with = Qt::KeypadModifier;
        }
        if (name == "Insert" || name == "Delete") {
            name.resize(3);
        } else if (name.starts_with("Page ")) {
            name = name == "Page Up" ? "PgUp" : "PgDown";
        } else if (name == "Escape") {
            name = "Esc";
        }
        const QKeySequence sequence = QKeySequence::fromString(QString::fromStdString(name));
        ASSERT_EQ(sequence.count(), 1) << key.name;
        EXPECT_EQ(VirtualKeyOf(QKeyEvent(QEvent::KeyPress, sequence[0].key(), with)), key.key)
            << key.name;
    }
    std::set<VirtualKey> known;
    for (int i = 0; i < 0x200; ++i) {
        const int key = i < 0x100 ? i : i - 0x100 + Qt::Key_Escape;  // signs, and keys with names
        for (const Qt::KeyboardModifier with : {Qt::NoModifier, Qt::KeypadModifier}) {
            if (const auto found = VirtualKeyOf(QKeyEvent(QEvent::KeyPress, key, with))) {
                known.insert(*found);
            }
        }
    }
    EXPECT_EQ(known, ofTable);
}

TEST(TableOfKeys, HasShortcutsAsTheToolkitNamesThem) {
    for (const Key& key : AllKeys()) {
        if (key.taker == KeyTaker::Item) {
            const QKeySequence sequence = QKeySequence::fromString(key.name);
            EXPECT_EQ(sequence.count(), 1) << key.name;
            EXPECT_EQ(sequence.toString().toStdString(), key.name);
        }
    }
}

TEST_F(Keys, InAnOpenMenuDoNotCount) {
    QMenu menu(&listener);
    menu.addAction("Dump");
    menu.popup(listener.mapToGlobal(QPoint(0, 0)));
    Settle();
    ASSERT_NE(QApplication::activePopupWidget(), nullptr);
    Press(listener, {Qt::Key_Left, kScanLeft});
    EXPECT_EQ(State(VirtualKey::Left), kUp);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Keys, InADialogDoNotCount) {
    QDialog dialog(&listener);
    dialog.setModal(true);
    BringUp(dialog);
    ASSERT_EQ(QApplication::activeModalWidget(), &dialog);
    Press(dialog, d);
    EXPECT_EQ(State(VirtualKey::D), kUp);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Keys, InATextFieldDoNotCount) {
    QLineEdit field;
    BringUp(field);
    field.setFocus();
    Edit();
    Press(field, {Qt::Key_D, kScanD, Qt::NoModifier, "d"});
    EXPECT_EQ(field.text(), "d");
    EXPECT_EQ(State(VirtualKey::D), kUp);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(Keys, CountWhateverElseHasTheFocus) {
    QMenuBar bar;
    bar.addAction("Stage");
    BringUp(bar);
    bar.setFocus();
    Press(bar, left);
    EXPECT_EQ(State(VirtualKey::Left), kDownAndPressedSince);
}

// --- which go no further ---

TEST_F(Keys, AllGoOnWhileTheListTakesThem) {
    form[Menu::mnuDebugBG].checked = true;
    EXPECT_EQ(HeardOf(arrowsAZ).size(), 6U);
    EXPECT_EQ(HeardOf(editing).size(), 5U);
}

TEST_F(Keys, OfTheCameraStayWhileAStageIsShown) {
    form.lstStages.takesKeys = false;
    EXPECT_THAT(HeardOf(arrowsAZ), IsEmpty());
    EXPECT_EQ(told.size(), 6U) << "the program hears of them all the same";
    EXPECT_EQ(HeardOf(editing).size(), 5U) << "the editor is off";
}

TEST_F(Keys, OfTheEditorStayWhileDebugBGIsChecked) {
    Edit();
    EXPECT_THAT(HeardOf(arrowsAZ), IsEmpty());
    EXPECT_THAT(HeardOf(editing), IsEmpty());
    EXPECT_EQ(told.size(), 11U);
    // Not what only looks like them, and nothing that the program has no use for.
    EXPECT_THAT(HeardOf({{Qt::Key_Plus, 35}, {Qt::Key_Minus, 61}, {Qt::Key_F7, 73}}),
                ElementsAre(Qt::Key_Plus, Qt::Key_Minus, Qt::Key_F7));
    EXPECT_THAT(HeardOf({{Qt::Key_Escape, 9}}), ElementsAre(Qt::Key_Escape));
}

TEST_F(Keys, RepeatedOnesStayAsWell) {
    form.lstStages.takesKeys = false;
    Press(listener, left);
    Press(listener, left, true);
    EXPECT_THAT(listener.heard, IsEmpty());
}

TEST_F(Keys, DSelectsNoStageInTheListWhileItDumps) {
    QListWidget list;
    list.addItems({"bar", "cup", "dot"});
    BringUp(list);
    list.setFocus();
    list.setCurrentRow(0);
    form.lstStages.takesKeys = false;
    const KeyPlace typed{Qt::Key_D, kScanD, Qt::NoModifier, "d"};
    form[Menu::mnuDebugBG].checked = true;
    Press(list, typed);
    EXPECT_EQ(list.currentRow(), 0);
    Release(list, typed);
    form[Menu::mnuDebugBG].checked = false;
    Press(list, typed);
    EXPECT_EQ(list.currentRow(), 2) << "it is an ordinary letter then";
}

TEST_F(Keys, ABarWithTheFocusGetsTheArrowKeys) {
    QScrollBar bar(Qt::Horizontal);
    bar.setFocusPolicy(Qt::StrongFocus);
    bar.setRange(0, 5);
    bar.setValue(3);
    BringUp(bar);
    bar.setFocus();
    form.lstStages.takesKeys = false;
    const KeyPlace right{Qt::Key_Right, 114};
    Press(bar, right);
    const int once = bar.value();
    EXPECT_NE(once, 3);
    Press(bar, right, true);
    EXPECT_EQ(bar.value(), once + (once - 3)) << "repeated, too";
}

}  // namespace
}  // namespace scenara::test
