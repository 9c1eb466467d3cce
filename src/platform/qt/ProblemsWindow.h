// SPDX-License-Identifier: MIT
//
// ProblemsWindow: the list of problems in a window beside the main one, a row each. It blocks
// nothing, and looks a few times a second whether there are more. It comes up as wide as its texts
// want it, if its screen has that; what is cut all the same is in a tool tip. Rows that are
// selected can be copied by Ctrl+C, all of them by a button.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <QSize>
#include <QTimer>
#include <cstdint>

#include "platform/ProblemList.h"

class QLabel;
class QPushButton;
class QTreeView;

namespace scenara {

// A last row says how many more there are, where not all are kept.
class ProblemRows : public QAbstractTableModel {
public:
    enum Column { Kind, Text, File, Line, ColumnCount };

    // `problems` outlives it.
    ProblemRows(const ProblemList& problems, QObject* parent);

    // What has changed in the list since.
    void Look();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& /*parent*/ = {}) const override {
        return ColumnCount;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation,
                                      int role) const override;
    // As it is copied.
    [[nodiscard]] QString RowText(int row) const;

private:
    [[nodiscard]] int Rows() const;
    [[nodiscard]] bool IsRest(int row) const;

    const ProblemList& problems_;
    std::uint64_t generation_ = 0;  // as of the last look, like the rest
    int rows_ = 0;
    std::size_t left_ = 0;
};

class ProblemsWindow : public QDialog {
public:
    // `problems` outlives it.
    ProblemsWindow(const ProblemList& problems, QWidget* parent);

    void ComeToFront();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void Look();
    void FitWidth();
    // How wide a column has to be for all rows, in the toolkit's pixels; at most `most`.
    [[nodiscard]] int Wanted(ProblemRows::Column column, int most) const;
    void CopySelected() const;
    void CopyAll() const;

    const ProblemList& problems_;
    ProblemRows* rows_ = nullptr;  // a child, as Qt has it, like the rest
    QLabel* summary_ = nullptr;
    QTreeView* view_ = nullptr;
    QPushButton* copyAll_ = nullptr;
    QTimer look_;
    QSize first_;  // as it comes up; another one is the user's
};

}  // namespace scenara
