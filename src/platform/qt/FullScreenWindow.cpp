// SPDX-License-Identifier: MIT
#include "platform/qt/FullScreenWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QScreen>
#include <QWindow>

#include "platform/qt/Display.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PictureWidget.h"

namespace scenara {
namespace {

// How often a window manager is asked to bring the form up, and after how many milliseconds anew.
// Time in which the program itself stands still does not count.
constexpr int kMostAsked = 15;
constexpr int kAskAgain = 100;

// Milliseconds for which the pointer is seen after it was moved.
constexpr int kPointerIsSeen = 1000;

}  // namespace

FullScreenWindow::FullScreenWindow(MainWindow& window)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), window_(window) {
    picture_ = new PictureWidget(this);  // NOLINT(cppcoreguidelines-owning-memory): Qt's own
    picture_->setMouseTracking(true);
    picture_->installEventFilter(this);
    pointerRests_.setSingleShot(true);
    pointerRests_.setInterval(kPointerIsSeen);
    connect(&pointerRests_, &QTimer::timeout, this, [this] { setCursor(Qt::BlankCursor); });
    window_.ObserveHand(*picture_);
}

WindowHandle FullScreenWindow::Show(Beneath mainWindow) {
    if (!isVisible()) {
        setWindowTitle(window_.windowTitle());
        setScreen(window_.screen());
        addActions(window_.ItemsWithKeys());  // those that it has already stay
        FollowScreen();
        picture_->TakeOver(window_.Picture());
        Cover();
        create();
        // It belongs to the main window, if that stays: task bars show one of them.
        const bool hides = mainWindow == Beneath::Hides;
        windowHandle()->setTransientParent(hides ? nullptr : window_.windowHandle());
        showFullScreen();
        ShowPointer();
        window_.CoverBy(picture_);
        if (hides) {
            windowPlace_ = window_.pos();
            window_.hide();
        }
        window_.AwaitFocus(Handle());
        WaitForFocus();
    }
    return Handle();
}

void FullScreenWindow::ShowPointer() {
    unsetCursor();
    pointerRests_.start();
}

bool FullScreenWindow::eventFilter(QObject* receiver, QEvent* event) {
    if (event->type() == QEvent::MouseMove) {
        ShowPointer();
    }
    return QWidget::eventFilter(receiver, event);
}

// Asks now and then only: a window manager that is busy answers each time, all at once when it
// comes to it, and such a flood can cost the focus or the very connection.
void FullScreenWindow::WaitForFocus() {
    int asked = 0;
    const auto ask = [&] {
        raise();
        activateWindow();
        ++asked;
    };
    ask();
    QTimer again;
    connect(&again, &QTimer::timeout, this, ask);
    again.start(kAskAgain);
    while (isVisible() && !isActiveWindow() && asked < kMostAsked) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

void FullScreenWindow::Cover() {
    setGeometry(screen()->geometry());
}

// Not every window manager does so. A Wayland compositor does, and ends the program for a size that
// is not the one that it gives.
void FullScreenWindow::FollowScreen() {
    if (!IsWayland()) {
        screenChanges_ = connect(screen(), &QScreen::geometryChanged, this, [this] { Cover(); });
    }
}

void FullScreenWindow::Hide() {
    if (isVisible()) {
        hide();
        disconnect(screenChanges_);
        pointerRests_.stop();
        window_.AwaitFocus(0);
        window_.CoverBy(nullptr);
        window_.Picture().TakeOver(*picture_);
        if (!window_.isVisible()) {
            window_.show();
            window_.PutBack(windowPlace_);
        }
        window_.activateWindow();
    }
}

void FullScreenWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    BlackenBeneath(*windowHandle());
}

void FullScreenWindow::resizeEvent(QResizeEvent* /*event*/) {
    picture_->setGeometry(rect());
}

// Without the focus it counts as left, from the first time on that it has had it.
void FullScreenWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        window_.AwaitFocus(0);
    }
}

void FullScreenWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    window_.close();
}

}  // namespace scenara
