// SPDX-License-Identifier: MIT
//
// ProblemsWindow: the list of problems in a window beside the main one, a row each. It blocks
// nothing, and looks a few times a second whether there are more. Rows that are selected can be
// copied by Ctrl+C, all of them by a button.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>
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
    void CopySelected() const;
    void CopyAll() const;

    const ProblemList& problems_;
    ProblemRows* rows_ = nullptr;  // a child, as Qt has it, like the rest
    QLabel* summary_ = nullptr;
    QTreeView* view_ = nullptr;
    QPushButton* copyAll_ = nullptr;
    QTimer look_;
};

}  // namespace scenara
