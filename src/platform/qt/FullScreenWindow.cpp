// SPDX-License-Identifier: MIT
#include "platform/qt/FullScreenWindow.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QScreen>

#include "platform/qt/Display.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PictureWidget.h"

namespace scenara {
namespace {

// Milliseconds for a window manager to bring the form up. The program takes a form without the
// focus for one that the user has left, so it must have it before the program looks.
constexpr int kPatience = 1000;

}  // namespace

FullScreenWindow::FullScreenWindow(MainWindow& window)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint), window_(window) {
    picture_ = new PictureWidget(this);  // NOLINT(cppcoreguidelines-owning-memory): Qt's own
    setCursor(Qt::BlankCursor);
}

WindowHandle FullScreenWindow::Show() {
    if (!isVisible()) {
        setWindowTitle(window_.windowTitle());
        setScreen(window_.screen());
        FollowScreen();
        picture_->TakeOver(window_.Picture());
        Cover();
        showFullScreen();
        window_.CoverBy(picture_);
        window_.hide();
        QElapsedTimer waited;
        waited.start();
        do {
            raise();
            activateWindow();
            QApplication::processEvents(QEventLoop::AllEvents, 20);
        } while (!isActiveWindow() && waited.elapsed() < kPatience);
    }
    return reinterpret_cast<WindowHandle>(static_cast<QWidget*>(this));
}

void FullScreenWindow::Cover() {
    setGeometry(screen()->geometry());
}

// Not every window manager does so. A Wayland compositor does, and ends the program for a size that
// is not the one that it gives.
void FullScreenWindow::FollowScreen() {
    if (!QGuiApplication::platformName().startsWith("wayland")) {
        screenChanges_ = connect(screen(), &QScreen::geometryChanged, this, [this] { Cover(); });
    }
}

void FullScreenWindow::Hide() {
    if (isVisible()) {
        hide();
        disconnect(screenChanges_);
        window_.CoverBy(nullptr);
        window_.Picture().TakeOver(*picture_);
        window_.show();
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

void FullScreenWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    window_.close();
}

}  // namespace scenara
