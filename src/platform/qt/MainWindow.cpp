// SPDX-License-Identifier: MIT
#include "platform/qt/MainWindow.h"

#include <QAbstractEventDispatcher>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <utility>

// Qt's "emit" and "signals" are words in this library's headers.
#undef signals
#include <glib.h>

#include "base/Text.h"
#include "platform/qt/PictureWidget.h"

namespace scenara {
namespace {

QString Shown(const std::string& text) {
    return QString::fromStdString(ToUtf8(text));
}

// The dispatcher runs on GLib's loop, so GLib knows whether something waits.
bool RunsOnGlib() {
    const QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    return dispatcher != nullptr &&
           QString::fromLatin1(dispatcher->metaObject()->className()).contains("Glib");
}

Long Units(int pixels) {
    return pixels * kUnitsPerPixel;
}

}  // namespace

MainWindow::MainWindow(const Form& form) : form_(form), looksTruly_(RunsOnGlib()) {
    picture_ = new PictureWidget(this);  // NOLINT(cppcoreguidelines-owning-memory): Qt's own
    setCentralWidget(picture_);
}

void MainWindow::SetEvents(FormEvents* events) {
    events_ = events;
    BuildMenus();
    ShowForm();
}

MainWindow::~MainWindow() = default;

void MainWindow::BuildMenus() {
    QMenu* const stage = menuBar()->addMenu(QString());
    QMenu* const options = menuBar()->addMenu(QString());
    actions_[static_cast<std::size_t>(Menu::mnuStage)] = stage->menuAction();
    actions_[static_cast<std::size_t>(Menu::mnuOptions)] = options->menuAction();
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        if (actions_[i] != nullptr) {
            continue;
        }
        const MenuItem& item = form_.menus[i];
        // NOLINTNEXTLINE(cppcoreguidelines-owning-memory): the window's, as Qt has it
        auto* const action = new QAction(this);
        action->setSeparator(item.caption == "-");
        actions_[i] = action;
        switch (item.place) {
            case MenuPlace::Bar: menuBar()->addAction(action); break;
            case MenuPlace::Stage: stage->addAction(action); break;
            case MenuPlace::Options: options->addAction(action); break;
        }
        connect(action, &QAction::triggered, this, [this, i] {
            Note([i](FormEvents& events) { events.Menu_Click(static_cast<Menu>(i)); });
        });
    }
}

void MainWindow::ShowForm() {
    if (events_ == nullptr) {
        return;  // nothing is designed yet
    }
    for (std::size_t i = 0; i < kMenuCount; ++i) {
        const MenuItem& item = form_.menus[i];
        QAction& action = *actions_[i];
        if (const QString caption = Shown(item.caption);
            !action.isSeparator() && action.text() != caption) {
            action.setText(caption);
        }
        if (action.isEnabled() != item.enabled) {
            action.setEnabled(item.enabled);
        }
        if (action.isVisible() != item.visible) {
            action.setVisible(item.visible);
        }
        // An item has a mark from the first time on that it is checked.
        if (action.isChecked() != item.checked) {
            action.setCheckable(true);
            action.setChecked(item.checked);
        }
    }
}

void MainWindow::Show() {
    ShowForm();
    if (!isVisible()) {
        show();
    }
}

void MainWindow::Size(Long width, Long height) {
    // Beyond its inner area the window has just the menu bar. (What the widgets measure now says
    // nothing before the window has been laid out.)
    resize(width, height + menuBar()->sizeHint().height());
}

void MainWindow::MoveTo(Long left, Long top) {
    move(left / kUnitsPerPixel, top / kUnitsPerPixel);
}

void MainWindow::SetCaption(const std::string& caption) {
    setWindowTitle(Shown(caption));
}

bool MainWindow::MessageWaiting() {
    return !waiting_.empty() || !looksTruly_ || g_main_context_pending(nullptr) != 0;
}

void MainWindow::DoEvents() {
    ShowForm();
    QApplication::processEvents();
    HandOver();
    ShowForm();
}

void MainWindow::WaitForEvents() {
    ShowForm();
    if (waiting_.empty() && !endRequested_) {
        QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    HandOver();
}

// What the program does with an event may let messages through again; then the rest is handed over
// there.
void MainWindow::HandOver() {
    if (std::exchange(resized_, false)) {
        NoteResize();
    }
    while (!waiting_.empty() && events_ != nullptr) {
        const Event event = std::move(waiting_.front());
        waiting_.pop_front();
        event(*events_);
    }
}

void MainWindow::NoteResize() {
    const QSize inner = centralWidget()->size();
    Note([inner](FormEvents& events) { events.Form_Resize(inner.width(), inner.height()); });
}

WindowPlace MainWindow::Place() const {
    const QRect frame = frameGeometry();
    return {Units(frame.left()), Units(frame.top()), Units(frame.width()), Units(frame.height())};
}

ScreenSize MainWindow::Screen() const {
    const QSize size = screen()->geometry().size();
    return {Units(size.width()), Units(size.height())};
}

WindowHandle MainWindow::PictureHandle() const {
    return reinterpret_cast<WindowHandle>(picture_);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    event->ignore();  // it goes with the program
    endRequested_ = true;
    Note([](FormEvents& events) { events.Form_Unload(); });
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    Note([](FormEvents& events) { events.Form_Activate(); });
}

void MainWindow::resizeEvent(QResizeEvent* event) {
    QMainWindow::resizeEvent(event);
    resized_ = true;
}

}  // namespace scenara
