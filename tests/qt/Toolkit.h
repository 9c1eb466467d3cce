// SPDX-License-Identifier: MIT
//
// Toolkit: a test with the window toolkit running, on a screen that nobody sees.
#pragma once

#include <QApplication>
#include <QByteArray>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>
#include <QWindow>
#include <array>

#include <gtest/gtest.h>

namespace scenara::test {

class Toolkit : public testing::Test {
protected:
    // With so many pixels of the screen to one of the toolkit's, across and down.
    explicit Toolkit(double scale = 1) : application_(Prepared(scale), arguments_.data()) {}

    // Shows it, with the focus.
    static void BringUp(QWidget& widget) {
        widget.show();
        widget.activateWindow();
        Settle();
    }

    static void Settle() {
        for (int i = 0; i < 10; ++i) {
            QApplication::processEvents();
        }
    }

    struct KeyPlace {
        Qt::Key key;
        quint32 scanCode;
        Qt::KeyboardModifiers modifiers = Qt::NoModifier;
        QString text = {};
    };

    // As the window system tells the widget's window of it.
    static void SendKey(QWidget& to, QEvent::Type type, const KeyPlace& place,
                        bool repeated = false) {
        QKeyEvent event(type, place.key, place.modifiers, place.scanCode, 0, 0, place.text,
                        repeated);
        QApplication::sendEvent(to.window()->windowHandle(), &event);
    }
    static void Press(QWidget& to, const KeyPlace& place, bool repeated = false) {
        SendKey(to, QEvent::KeyPress, place, repeated);
    }
    static void Release(QWidget& to, const KeyPlace& place, bool repeated = false) {
        SendKey(to, QEvent::KeyRelease, place, repeated);
    }

    static void SendMouse(QWidget& to, QEvent::Type type, const QPointF& at, Qt::MouseButton button,
                          Qt::MouseButtons down) {
        QMouseEvent event(type, at, to.mapToGlobal(at), button, down, Qt::NoModifier);
        QApplication::sendEvent(&to, &event);
    }

private:
    int& Prepared(double scale) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_SCALE_FACTOR", QByteArray::number(scale));
        return count_;
    }

    char name_[5] = "test";
    std::array<char*, 2> arguments_{name_, nullptr};
    int count_ = 1;
    QApplication application_;
};

}  // namespace scenara::test
