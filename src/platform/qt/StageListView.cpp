// SPDX-License-Identifier: MIT
#include "platform/qt/StageListView.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <algorithm>
#include <limits>
#include <utility>

#include "platform/qt/ShownText.h"

namespace scenara {

StageListView::StageListView(const ListBox& list, QWidget* parent)
    : QListView(parent), list_(list), model_(list) {
    setModel(&model_);
    setUniformItemSizes(true);  // ten thousand items, and only one is measured
    setFrameShape(QFrame::NoFrame);
    setEditTriggers(NoEditTriggers);
    // Selecting with the keys and with the mouse; and a click on what is selected already. (The
    // current item alone says nothing: the view chooses one when it gets the focus.)
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] {
        selectionNoted_ = SelectedRow();
        if (selectionNoted_ < 0) {
            return;
        }
        if (searches_) {
            events_.mark(selectionNoted_);
        } else {
            events_.open(selectionNoted_);
        }
    });
    connect(this, &QListView::clicked, this, [this](const QModelIndex& index) {
        if (const int row = index.row(); row != std::exchange(selectionNoted_, -1)) {
            events_.open(row);
        }
    });
}

int StageListView::SelectedRow() const {
    const QModelIndexList selected = selectionModel()->selectedRows();
    return selected.isEmpty() ? -1 : selected.front().row();
}

std::string StageListView::FileAt(int row) const {
    const auto place = static_cast<std::size_t>(row);
    return row >= 0 && place < list_.details.size() ? list_.details[place].file : std::string();
}

void StageListView::ShowList(bool selects) {
    const QSignalBlocker quiet(selectionModel());  // what the program does is no click
    if (model_.Refresh()) {
        Refill();
    }
    if (selects && SelectedRow() != list_.ListIndex) {
        if (list_.ListIndex < 0) {
            selectionModel()->clearSelection();  // the arrow keys go on from where they were
        } else {
            const QModelIndex index = model_.index(list_.ListIndex);
            selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
            scrollTo(index);
        }
        viewport()->update();
    }
    top_ = FileAt(indexAt(QPoint(0, 0)).row());
}

// What stood in the uppermost line stands there again, and the selection is the program's.
void StageListView::Refill() {
    const auto row = std::ranges::find(list_.details, top_, &ListBox::Detail::file);
    if (!top_.empty() && row != list_.details.end()) {
        scrollTo(model_.index(static_cast<int>(row - list_.details.begin())), PositionAtTop);
    }
    if (list_.ListIndex >= 0) {
        // Without scrolling there: the user may be looking at another part of the list.
        selectionModel()->setCurrentIndex(model_.index(list_.ListIndex),
                                          QItemSelectionModel::ClearAndSelect);
    }
    viewport()->update();
}

void StageListView::keyboardSearch(const QString& letters) {
    const bool before = std::exchange(searches_, list_.browses);
    QListView::keyboardSearch(letters);
    searches_ = before;
}

int StageListView::RowsOfPage() const {
    const int height = sizeHintForRow(0);
    return height > 0 ? std::max(viewport()->height() / height - 1, 1) : 1;
}

// 0: none.
int StageListView::StepsOf(const QKeyEvent& event) const {
    constexpr int kAll = std::numeric_limits<int>::max();  // as many as there are
    switch (event.key()) {
        case Qt::Key_Up: return -1;
        case Qt::Key_Down: return 1;
        case Qt::Key_PageUp: return -RowsOfPage();
        case Qt::Key_PageDown: return RowsOfPage();
        case Qt::Key_Home: return -kAll;
        case Qt::Key_End: return kAll;
        default: return 0;
    }
}

bool StageListView::TakesStep(const QKeyEvent& event) {
    const int steps = StepsOf(event);
    if (steps != 0) {
        events_.step(steps);
    }
    return steps != 0;
}

// Letters and the keys that step are the list's, though they choose something elsewhere.
bool StageListView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && list_.browses) {
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool isLetter = !key.text().isEmpty() && key.text().front().isPrint();
        const bool isHeld = (key.modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
        if (!isHeld && (isLetter || StepsOf(key) != 0)) {
            event->accept();
            return true;
        }
    }
    return QListView::event(event);
}

void StageListView::keyPressEvent(QKeyEvent* event) {
    if (!list_.browses) {
        QListView::keyPressEvent(event);
        return;
    }
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (const int row = SelectedRow(); row >= 0) {
                events_.open(row);
            }
            return;
        case Qt::Key_Escape: events_.leave(); return;
        case Qt::Key_Space: keyboardSearch(event->text()); return;  // a letter like others
        case Qt::Key_Left:
        case Qt::Key_Right: event->ignore(); return;  // the camera's
        default: break;
    }
    if (!TakesStep(*event)) {
        QListView::keyPressEvent(event);
    }
}

// What the keys have selected before a press of the mouse is not of this press.
void StageListView::mousePressEvent(QMouseEvent* event) {
    selectionNoted_ = -1;
    if (!list_.browses || event->button() == Qt::LeftButton) {
        QListView::mousePressEvent(event);
    }
}

void StageListView::contextMenuEvent(QContextMenuEvent* event) {
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    const QModelIndex index = byKey ? model_.index(SelectedRow()) : indexAt(event->pos());
    const std::string file = FileAt(index.row());
    if (!list_.browses || file.empty()) {
        return;
    }
    // It stands by itself: the stage goes on under it.
    auto* const menu = new QMenu(this);  // NOLINT(cppcoreguidelines-owning-memory): Qt's own
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const char* text, const std::function<void(const std::string&)>& what) {
        connect(menu->addAction(QString::fromLatin1(text)), &QAction::triggered, this,
                [what, file] { what(file); });
    };
    add("&Open", events_.openFile);
    add("Open the &Folder", events_.openFolder);
    add("&Copy the Path", events_.copyPath);
    menu->popup(byKey ? viewport()->mapToGlobal(visualRect(index).bottomLeft())
                      : event->globalPos());
}

void StageListView::paintEvent(QPaintEvent* event) {
    QListView::paintEvent(event);
    if (list_.items.empty() && !list_.note.empty()) {
        constexpr int kMargin = 6;
        QPainter painter(viewport());
        painter.setPen(palette().color(QPalette::Disabled, QPalette::Text));
        painter.drawText(viewport()->rect().adjusted(kMargin, kMargin, -kMargin, -kMargin),
                         Qt::AlignTop | Qt::AlignHCenter | Qt::TextWordWrap, Shown(list_.note));
    }
}

}  // namespace scenara
