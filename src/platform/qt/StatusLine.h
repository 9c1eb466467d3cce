// SPDX-License-Identifier: MIT
//
// StatusLine: the line below the picture, which says what is shown: name and author to the left,
// picture, archive and problems to the right.
//
// What has room is whole. Else the author is cut at its end, then the name; the author goes; and
// the archive's file name is cut in its middle, never its version. Where even that is too wide,
// whole parts go: the picture's size, the archive, the name, the problems. A tool tip has all of
// it.
#pragma once

#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <array>
#include <functional>

#include "platform/Form.h"

namespace scenara {

class StatusLine : public QWidget {
public:
    explicit StatusLine(QWidget* parent = nullptr);

    // A click on the number of problems.
    void SetProblemsObserver(std::function<void()> observer) { observer_ = std::move(observer); }

    // Cheap where nothing has changed.
    void Show(const StatusBar& status);

    [[nodiscard]] QSize sizeHint() const override;
    // Of a window that is narrow it takes nothing across.
    [[nodiscard]] QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum Part { Name, Author, Canvas, Archive, Problems, PartCount };
    using Widths = std::array<int, PartCount>;

    [[nodiscard]] QWidget& WidgetOf(Part part);
    [[nodiscard]] QString WholeOf(Part part) const;
    // How wide it is whole, and at least; 0: there is none.
    [[nodiscard]] int WidthOf(Part part) const;
    [[nodiscard]] int LeastOf(Part part) const;
    [[nodiscard]] int WidthOfText(const QString& text) const;
    [[nodiscard]] int Gap() const;
    [[nodiscard]] Widths Fitted() const;
    [[nodiscard]] int Needed(const Widths& widths) const;
    [[nodiscard]] QString CutTo(Part part, int width) const;
    void LayOut();
    [[nodiscard]] QString ToolTipText() const;

    StatusBar status_;
    std::function<void()> observer_;
    std::array<QLabel*, Problems> labels_{};  // children, as Qt has it
    QToolButton* problems_ = nullptr;
};

}  // namespace scenara
