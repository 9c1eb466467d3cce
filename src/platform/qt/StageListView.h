// SPDX-License-Identifier: MIT
//
// StageListView: the list of stages in the window.
//
// Plain, what the user selects is opened. While the list browses, keys only tell how far the user
// wants to go, for the program knows what can be opened; letters find an item and select it; the
// right button opens a menu and selects nothing.
#pragma once

#include <QListView>
#include <functional>
#include <string>

#include "platform/Form.h"
#include "platform/qt/StageListModel.h"

namespace scenara {

// What the user does there.
struct StageListEvents {
    std::function<void(int row)> open;
    std::function<void(int steps)> step;
    std::function<void(int row)> mark;
    std::function<void()> leave;  // Escape: the keys have gone to the picture
    std::function<void(const std::string& file)> openFile;
    std::function<void(const std::string& file)> openFolder;
    std::function<void(const std::string& file)> copyPath;
};

class StageListView : public QListView {
public:
    // `list` outlives it.
    StageListView(const ListBox& list, QWidget* parent);

    void SetEvents(StageListEvents events) { events_ = std::move(events); }

    // Shows the list as it is now. `selects`: also what is selected there; not while the program
    // has yet to hear of what the user has selected.
    void ShowList(bool selects);

    void keyboardSearch(const QString& letters) override;

    // Keys that are the list's own while it browses, wherever they are typed: those that step.
    bool TakesStep(const QKeyEvent& event);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void Refill();
    [[nodiscard]] int SelectedRow() const;
    [[nodiscard]] int RowsOfPage() const;
    [[nodiscard]] int StepsOf(const QKeyEvent& event) const;
    [[nodiscard]] std::string FileAt(int row) const;

    const ListBox& list_;
    StageListModel model_;
    StageListEvents events_;
    std::string top_;          // the file of the item in the uppermost line
    int selectionNoted_ = -1;  // the row that a press of the mouse has selected just now
    bool searches_ = false;    // letters select
};

}  // namespace scenara
