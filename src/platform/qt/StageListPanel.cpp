// SPDX-License-Identifier: MIT
#include "platform/qt/StageListPanel.h"

#include <QApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/ShownText.h"

namespace scenara {
namespace {

constexpr int kEdgeWidth = 5;  // pixels that the pointer can find

}  // namespace

StageListPanel::StageListPanel(const ListBox& list, QWidget* parent)
    : QWidget(parent), list_(list) {
    edge_ = new QWidget(this);                // NOLINT(cppcoreguidelines-owning-memory): Qt's
    filter_ = new QLineEdit(this);            // NOLINT(cppcoreguidelines-owning-memory)
    view_ = new StageListView(list, this);    // NOLINT(cppcoreguidelines-owning-memory)
    auto* const all = new QHBoxLayout(this);  // NOLINT(cppcoreguidelines-owning-memory)
    auto* const column = new QVBoxLayout;     // NOLINT(cppcoreguidelines-owning-memory)
    for (QLayout* const layout : {static_cast<QLayout*>(all), static_cast<QLayout*>(column)}) {
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
    }
    all->addWidget(edge_);
    all->addLayout(column, 1);
    column->addWidget(filter_);
    column->addWidget(view_, 1);
    setAutoFillBackground(true);
    BuildFilter();
    BuildEdge();
    view_->installEventFilter(this);
    setFocusProxy(view_);
}

void StageListPanel::BuildFilter() {
    filter_->setPlaceholderText(QStringLiteral("Filter"));
    filter_->setToolTip(QStringLiteral("Words of a stage's name, folder or author (Ctrl+F)"));
    filter_->setClearButtonEnabled(true);
    filter_->setAcceptDrops(false);  // stages are dropped onto the window
    filter_->setMinimumWidth(1);
    filter_->installEventFilter(this);
    filter_->hide();
    connect(filter_, &QLineEdit::textEdited, this,
            [this](const QString& text) { events_.filter(text.toStdString()); });
}

void StageListPanel::BuildEdge() {
    edge_->setFixedWidth(kEdgeWidth);
    edge_->setCursor(Qt::SplitHCursor);
    edge_->installEventFilter(this);
    edge_->hide();
}

void StageListPanel::SetEvents(Events events) {
    events_ = std::move(events);
    StageListEvents ofList = events_.list;
    ofList.leave = [this] { GiveKeysToPicture(); };
    view_->SetEvents(std::move(ofList));
}

void StageListPanel::ShowList(bool selects) {
    if (edge_->isHidden() == list_.browses) {
        edge_->setVisible(list_.browses);
        filter_->setVisible(list_.browses);
    }
    if (const QString words = Shown(list_.filter); selects && filter_->text() != words) {
        const QSignalBlocker quiet(filter_);
        filter_->setText(words);
    }
    view_->ShowList(selects);
    const QRect place(list_.left, list_.top, list_.width, list_.height);
    if (geometry() != place) {
        setGeometry(place);
    }
    if (isHidden() == list_.visible) {
        setVisible(list_.visible);
        if (!list_.visible) {
            // A hidden one would keep it, and letters would open stages.
            filter_->clearFocus();
            view_->clearFocus();
        }
    }
    MoveKeys();
}

void StageListPanel::MoveKeys() {
    if (std::exchange(keysMoved_, list_.keysMoved) == list_.keysMoved) {
        return;
    }
    if (list_.keysAt == KeyOwner::Picture) {
        GiveKeysToPicture();
    } else if (list_.visible && list_.keysAt == KeyOwner::List) {
        view_->setFocus(Qt::OtherFocusReason);
    } else if (list_.visible) {
        filter_->setFocus(Qt::ShortcutFocusReason);
        filter_->selectAll();
    }
}

void StageListPanel::GiveKeysToPicture() {
    // Also before the window has the user's attention.
    if (const QWidget* const has = window()->focusWidget(); has == filter_ || has == view_) {
        events_.giveKeysToPicture();
    }
}

void StageListPanel::LeaveFilter() {
    if (filter_->hasFocus()) {
        GiveKeysToPicture();
    }
}

bool StageListPanel::eventFilter(QObject* receiver, QEvent* event) {
    if (receiver == filter_ && event->type() == QEvent::KeyPress) {
        return FilterKey(*static_cast<QKeyEvent*>(event)) || QWidget::eventFilter(receiver, event);
    }
    if (event->type() == QEvent::FocusOut && receiver != edge_) {
        NoteLeaving(*static_cast<QFocusEvent*>(event));
    }
    return (receiver == edge_ && EdgeEvent(*event)) || QWidget::eventFilter(receiver, event);
}

// What steps does so from the filter, too: the words stay to be changed. Home and End are the
// field's own.
bool StageListPanel::FilterKey(QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: events_.enter(); return true;
        case Qt::Key_Escape: GiveKeysToPicture(); return true;
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown: return view_->TakesStep(event);
        default: return false;
    }
}

// Another window that comes to the front, or a menu, gives the keys back.
void StageListPanel::NoteLeaving(const QFocusEvent& event) {
    const Qt::FocusReason reason = event.reason();
    const QWidget* const has = QApplication::focusWidget();
    if (has != view_ && has != filter_ && reason != Qt::ActiveWindowFocusReason &&
        reason != Qt::PopupFocusReason && reason != Qt::MenuBarFocusReason) {
        events_.list.leave();
    }
}

bool StageListPanel::EdgeEvent(QEvent& event) {
    const bool isPress = event.type() == QEvent::MouseButtonPress;
    if (!isPress && event.type() != QEvent::MouseMove) {
        return false;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    if (isPress) {
        grabbed_ = mouse.button() == Qt::LeftButton ? mouse.pos().x() : -1;
    } else if ((mouse.buttons() & Qt::LeftButton) != 0 && grabbed_ >= 0) {
        const int left = parentWidget()->mapFromGlobal(mouse.globalPosition().toPoint()).x();
        events_.resize(geometry().right() + 1 - (left - grabbed_));
    }
    return true;
}

}  // namespace scenara
