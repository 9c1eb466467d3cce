// SPDX-License-Identifier: MIT
//
// StageListPanel: the list of stages with what belongs to it while it browses: the filter above it,
// and the edge beside it that is dragged.
#pragma once

#include <QWidget>
#include <cstdint>
#include <functional>
#include <string>

#include "platform/qt/StageListView.h"

class QFocusEvent;
class QLineEdit;

namespace scenara {

class StageListPanel : public QWidget {
public:
    // `list` outlives it.
    StageListPanel(const ListBox& list, QWidget* parent);

    struct Events {
        StageListEvents list;
        std::function<void(const std::string& words)> filter;
        std::function<void()> enter;
        std::function<void(int width)> resize;
        std::function<void()> giveKeysToPicture;  // at once
    };
    void SetEvents(Events events);

    // Shows the list as it is now (StageListView::ShowList), with its place and its filter.
    void ShowList(bool selects);

    // The keys are for something else: a menu has been opened.
    void LeaveFilter();

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    void BuildFilter();
    void BuildEdge();
    void MoveKeys();
    [[nodiscard]] bool FilterKey(QKeyEvent& event);
    [[nodiscard]] bool EdgeEvent(QEvent& event);
    void GiveKeysToPicture();
    void NoteLeaving(const QFocusEvent& event);

    const ListBox& list_;
    Events events_;
    QWidget* edge_ = nullptr;  // children, as Qt has it
    QLineEdit* filter_ = nullptr;
    StageListView* view_ = nullptr;
    int grabbed_ = 0;  // how far from the panel's left edge the pointer took it
    std::uint32_t keysMoved_ = 0;
};

}  // namespace scenara
