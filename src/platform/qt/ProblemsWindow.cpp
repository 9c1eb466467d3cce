// SPDX-License-Identifier: MIT
#include "platform/qt/ProblemsWindow.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>
#include <limits>

#include "base/Path.h"
#include "platform/qt/ShownText.h"

namespace scenara {
namespace {

// Milliseconds between two looks whether there are more.
constexpr int kLookForMore = 250;

}  // namespace

// NOLINTBEGIN(cppcoreguidelines-owning-memory): children, as Qt has it

ProblemRows::ProblemRows(const ProblemList& problems, QObject* parent)
    : QAbstractTableModel(parent),
      problems_(problems),
      generation_(problems.Generation()),
      rows_(Rows()),
      left_(problems.Left()) {}

int ProblemRows::Rows() const {
    return static_cast<int>(problems_.Kept().size()) + (problems_.Left() > 0 ? 1 : 0);
}

bool ProblemRows::IsRest(int row) const {
    return static_cast<std::size_t>(row) >= problems_.Kept().size();
}

// What the views know of is never more than there is: a list that has lost some is taken anew.
void ProblemRows::Look() {
    const int rows = Rows();
    if (generation_ != problems_.Generation()) {
        beginResetModel();
        generation_ = problems_.Generation();
        rows_ = rows;
        endResetModel();
    } else if (rows > rows_) {
        beginInsertRows({}, rows_, rows - 1);
        rows_ = rows;
        endInsertRows();
    } else if (left_ != problems_.Left()) {
        emit dataChanged(index(rows_ - 1, 0), index(rows_ - 1, ColumnCount - 1));
    }
    left_ = problems_.Left();
}

// Between two looks the list may have been emptied.
int ProblemRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

QVariant ProblemRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= Rows() ||
        (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    if (IsRest(index.row())) {
        return index.column() == Text ? Shown("... " + RestOf(problems_)) : QVariant();
    }
    const Problem& problem = problems_.Kept()[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
        case Kind: return Shown(NameOf(problem.severity));
        case Text: return Shown(problem.text);
        case File:
            return Shown(role == Qt::ToolTipRole ? std::string_view(problem.file)
                                                 : FileName(problem.file));
        default:
            return problem.line == 0 ? QVariant() : QVariant(static_cast<qlonglong>(problem.line));
    }
}

QVariant ProblemRows::headerData(int section, Qt::Orientation orientation, int role) const {
    constexpr std::array kNames = {"Kind", "Problem", "File", "Line"};
    static_assert(kNames.size() == ColumnCount);
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section >= ColumnCount) {
        return {};
    }
    return QString::fromLatin1(kNames.at(static_cast<std::size_t>(section)));
}

QString ProblemRows::RowText(int row) const {
    if (row >= Rows()) {
        return {};
    }
    return IsRest(row) ? Shown("... " + RestOf(problems_))
                       : Shown(LineOf(problems_.Kept()[static_cast<std::size_t>(row)]));
}

ProblemsWindow::ProblemsWindow(const ProblemList& problems, QWidget* parent)
    : QDialog(parent),
      problems_(problems),
      rows_(new ProblemRows(problems, this)),
      summary_(new QLabel(this)),
      view_(new QTreeView(this)) {
    constexpr QSize kFirstSize(760, 360);
    setWindowTitle(QStringLiteral("Problems"));
    setSizeGripEnabled(true);
    resize(kFirstSize);
    view_->setModel(rows_);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);  // ten thousand rows, and only one is measured
    view_->setAlternatingRowColors(true);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setAllColumnsShowFocus(true);
    QHeaderView& header = *view_->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(ProblemRows::Text, QHeaderView::Stretch);
    const int sign = fontMetrics().averageCharWidth();
    header.resizeSection(ProblemRows::Kind, 11 * sign);
    header.resizeSection(ProblemRows::File, 22 * sign);
    header.resizeSection(ProblemRows::Line, 9 * sign);

    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    copyAll_ = buttons->addButton(QStringLiteral("Copy &All"), QDialogButtonBox::ActionRole);
    copyAll_->setAutoDefault(false);
    connect(copyAll_, &QPushButton::clicked, this, [this] { CopyAll(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    const auto* const copy =
        new QShortcut(QKeySequence::Copy, view_, nullptr, nullptr, Qt::WidgetShortcut);
    connect(copy, &QShortcut::activated, this, [this] { CopySelected(); });

    auto* const column = new QVBoxLayout(this);
    column->addWidget(summary_);
    column->addWidget(view_, 1);
    column->addWidget(buttons);
    connect(&look_, &QTimer::timeout, this, [this] { Look(); });
}

// NOLINTEND(cppcoreguidelines-owning-memory)

void ProblemsWindow::ComeToFront() {
    Look();
    look_.start(kLookForMore);
    show();
    raise();
    activateWindow();
    view_->setFocus();
}

void ProblemsWindow::hideEvent(QHideEvent* event) {
    look_.stop();
    QDialog::hideEvent(event);
}

void ProblemsWindow::Look() {
    rows_->Look();
    const QString summary = Shown(SummaryOf(problems_));
    if (summary_->text() != summary) {
        summary_->setText(summary);
    }
    copyAll_->setEnabled(rows_->rowCount() > 0);
}

void ProblemsWindow::CopySelected() const {
    QModelIndexList selected = view_->selectionModel()->selectedRows();
    std::ranges::sort(selected, {}, &QModelIndex::row);
    QString text;
    for (const QModelIndex& index : selected) {
        text += rows_->RowText(index.row()) + u'\n';
    }
    if (!text.isEmpty()) {
        QGuiApplication::clipboard()->setText(text);
    }
}

void ProblemsWindow::CopyAll() const {
    QString text;
    for (int row = 0; row < rows_->rowCount(); ++row) {
        text += rows_->RowText(row) + u'\n';
    }
    QGuiApplication::clipboard()->setText(text);
}

}  // namespace scenara
