// SPDX-License-Identifier: MIT
//
// The page of keys as a window.
#include "platform/qt/KeysWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>

#include <gtest/gtest.h>

#include "app/Keys.h"
#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

class KeysShown : public Toolkit {
protected:
    KeysShown() {
        window.ComeToFront();
        Settle();
    }
    [[nodiscard]] QScrollBar& Bar() const { return *text->verticalScrollBar(); }

    KeysWindow window{PageOfKeys(), nullptr};
    QTextEdit* text = window.findChild<QTextEdit*>();
};

TEST_F(KeysShown, HaveEveryLineOfThePage) {
    EXPECT_EQ(window.windowTitle(), "Keys");
    const QString shown = text->toPlainText();
    for (const KeyPageGroup& group : PageOfKeys()) {
        EXPECT_TRUE(shown.contains(QString::fromStdString(group.title))) << group.title;
        for (const KeyPageLine& line : group.lines) {
            EXPECT_TRUE(shown.contains(QString::fromStdString(line.keys))) << line.keys;
            EXPECT_TRUE(shown.contains(QString::fromStdString(line.does))) << line.does;
        }
    }
}

TEST_F(KeysShown, FitTheirScreenAndCanBeScrolledByKeys) {
    const QSize screen = window.screen()->availableGeometry().size();
    EXPECT_LE(window.width(), screen.width());
    EXPECT_LE(window.height(), screen.height());
    EXPECT_GT(window.width(), 250) << "and are no narrower than they have to be";
    window.resize(window.width(), 200);
    Settle();
    ASSERT_GT(Bar().maximum(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_End, Qt::ControlModifier);
    EXPECT_GT(Bar().value(), Bar().maximum() * 9 / 10);
}

TEST_F(KeysShown, NeedNoBarSidewaysAndNoneWhereThereIsRoom) {
    EXPECT_EQ(text->horizontalScrollBar()->maximum(), 0);
    window.resize(window.width(), 3000);
    Settle();
    EXPECT_EQ(Bar().maximum(), 0);
}

TEST_F(KeysShown, AreSelectedAndCopiedByTheKeyboard) {
    QWidget* const focus = QApplication::focusWidget();
    ASSERT_EQ(focus, text);
    QTest::keyClick(focus, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(focus, Qt::Key_C, Qt::ControlModifier);
    EXPECT_TRUE(QGuiApplication::clipboard()->text().contains("Ctrl+R, F5"));
}

TEST_F(KeysShown, CloseByEscapeAndComeAgain) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
    window.ComeToFront();
    EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace scenara::test
