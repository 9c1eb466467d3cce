// SPDX-License-Identifier: MIT
#include "platform/qt/ProblemsWindow.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QGuiApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QStyledItemDelegate>
#include <QToolTip>
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

constexpr QSize kFirstSize(760, 360);
// The wider texts let it come up wider, up to this share of its screen's width.
constexpr double kShareOfScreen = 0.8;
// Of a column at first, in signs.
constexpr int kKindSigns = 11;
constexpr int kMostFileSigns = 22;
constexpr int kLineSigns = 9;

// A file's words are shown as they are, and not as marks: only with marks around them a toolkit
// breaks a long line.
QVariant ToolTip(const QString& text) {
    return QStringLiteral("<p>%1</p>").arg(text.toHtmlEscaped());
}

// A tool tip says what the window does not: of a text that is cut, the whole.
class CutTexts : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override {
        const bool isWhole = index.column() != ProblemRows::File &&
                             sizeHint(option, index).width() <= option.rect.width();
        if (event->type() == QEvent::ToolTip && isWhole) {
            QToolTip::hideText();
            return true;
        }
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    }
};

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
    const bool isTip = role == Qt::ToolTipRole;
    if (IsRest(index.row())) {
        return index.column() == Text ? Shown("... " + RestOf(problems_)) : QVariant();
    }
    const Problem& problem = problems_.Kept()[static_cast<std::size_t>(index.row())];
    switch (index.column()) {
        case Kind: return Shown(NameOf(problem.severity));
        case Text: return isTip ? ToolTip(Shown(problem.text)) : Shown(problem.text);
        case File: return isTip ? ToolTip(Shown(problem.file)) : Shown(FileName(problem.file));
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
    setWindowTitle(QStringLiteral("Problems"));
    setSizeGripEnabled(true);
    resize(kFirstSize);
    first_ = kFirstSize;
    view_->setModel(rows_);
    view_->setRootIsDecorated(false);
    view_->setUniformRowHeights(true);  // ten thousand rows, and only one is measured
    view_->setAlternatingRowColors(true);
    view_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view_->setAllColumnsShowFocus(true);
    view_->setItemDelegate(new CutTexts(view_));
    QHeaderView& header = *view_->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(ProblemRows::Text, QHeaderView::Stretch);
    const int sign = fontMetrics().averageCharWidth();
    header.resizeSection(ProblemRows::Kind, kKindSigns * sign);
    header.resizeSection(ProblemRows::File, kMostFileSigns * sign);
    header.resizeSection(ProblemRows::Line, kLineSigns * sign);

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
    if (!isVisible() && size() == first_) {
        FitWidth();
    }
    look_.start(kLookForMore);
    show();
    raise();
    activateWindow();
    view_->setFocus();
}

// As wide as the texts want it.
void ProblemsWindow::FitWidth() {
    if (rows_->rowCount() == 0) {
        return;
    }
    QHeaderView& header = *view_->header();
    const int mostForFile = kMostFileSigns * fontMetrics().averageCharWidth();
    header.resizeSection(
        ProblemRows::File,
        std::max(Wanted(ProblemRows::File, mostForFile),
                 std::min(header.sectionSizeHint(ProblemRows::File), mostForFile)));
    const QMargins margins = layout()->contentsMargins();
    const int around =
        margins.left() + margins.right() + 2 * view_->frameWidth() +
        view_->verticalScrollBar()->sizeHint().width() + header.sectionSize(ProblemRows::Kind) +
        header.sectionSize(ProblemRows::File) + header.sectionSize(ProblemRows::Line);
    const QWidget& shownBy = parentWidget() != nullptr ? *parentWidget() : *this;
    const int most =
        static_cast<int>(shownBy.screen()->availableGeometry().width() * kShareOfScreen) - around;
    first_.setWidth(std::max(around + Wanted(ProblemRows::Text, most), kFirstSize.width()));
    resize(first_);
}

// There may be ten thousand long texts: it looks no further where there is no more room.
int ProblemsWindow::Wanted(ProblemRows::Column column, int most) const {
    int wanted = 0;
    for (int row = 0; row < rows_->rowCount() && wanted < most; ++row) {
        wanted = std::max(wanted, view_->sizeHintForIndex(rows_->index(row, column)).width());
    }
    return std::min(wanted, most);
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
