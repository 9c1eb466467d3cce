// SPDX-License-Identifier: MIT
//
// The list of problems as a window: its rows, and what is copied of them.
#include "platform/qt/ProblemsWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>
#include <string>

#include <gtest/gtest.h>

#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

class ProblemsShown : public Toolkit {
protected:
    ProblemsShown() {
        list.Begin();
        Say(Severity::Warning, "Overflow: start, line 7", 7);
        Say(Severity::Error, "nothing there", 0);
        window.ComeToFront();
        Settle();
    }
    void Say(Severity severity, const std::string& text, std::int64_t line) {
        list.Add({MessageKind("kind", severity),
                  text,
                  {},
                  MessageIcon::None,
                  {line, 0, "/stages/a.def"}});
    }
    [[nodiscard]] QString Cell(int row, int column) const {
        return view->model()->index(row, column).data().toString();
    }
    [[nodiscard]] static QString Copied() { return QGuiApplication::clipboard()->text(); }
    [[nodiscard]] QPushButton* Button(const char* text) const {
        const QList<QPushButton*> all = window.findChildren<QPushButton*>();
        const auto found = std::ranges::find(all, QString(text), &QPushButton::text);
        return found == all.end() ? nullptr : *found;
    }
    // The window looks by itself, some time.
    void Rows(int count) {
        EXPECT_TRUE(QTest::qWaitFor([&] { return view->model()->rowCount() == count; }));
    }

    ProblemList list;
    ProblemsWindow window{list, nullptr};
    QTreeView* view = window.findChild<QTreeView*>();
    QLabel* summary = window.findChild<QLabel*>();
    QPushButton* copyAll = Button("Copy &All");
};

TEST_F(ProblemsShown, AreARowEach) {
    EXPECT_EQ(summary->text(), "1 error, 1 warning");
    ASSERT_EQ(view->model()->rowCount(), 2);
    EXPECT_EQ(Cell(0, ProblemRows::Kind), "Warning");
    EXPECT_EQ(Cell(0, ProblemRows::Text), "Overflow: start, line 7");
    EXPECT_EQ(Cell(0, ProblemRows::File), "a.def");
    EXPECT_EQ(Cell(0, ProblemRows::Line), "7");
    EXPECT_EQ(Cell(1, ProblemRows::Kind), "Error");
    EXPECT_EQ(Cell(1, ProblemRows::Line), "");
    EXPECT_FALSE(window.isModal());
}

TEST_F(ProblemsShown, AreCopiedAsFarAsTheyAreSelected) {
    view->setCurrentIndex(view->model()->index(1, 0));
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(), "/stages/a.def: error: nothing there\n");
    view->selectAll();
    QTest::keyClick(view, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(Copied(),
              "/stages/a.def:7: warning: Overflow: start, line 7\n"
              "/stages/a.def: error: nothing there\n");
}

TEST_F(ProblemsShown, AreCopiedAllByTheButton) {
    copyAll->click();
    EXPECT_EQ(Copied(),
              "/stages/a.def:7: warning: Overflow: start, line 7\n"
              "/stages/a.def: error: nothing there\n");
}

TEST_F(ProblemsShown, FollowTheList) {
    Say(Severity::Note, "one more", 0);
    Rows(3);
    EXPECT_EQ(summary->text(), "1 error, 1 warning, 1 note");
    view->setCurrentIndex(view->model()->index(2, 0));
    list.Begin();
    EXPECT_EQ(Cell(2, ProblemRows::Text), "") << "before it has looked";
    Rows(0);
    EXPECT_EQ(summary->text(), "No problems");
    EXPECT_FALSE(copyAll->isEnabled());
    for (std::size_t i = 0; i < ProblemList::kMostKept + 5; ++i) {
        Say(Severity::Warning, "again", 1);
    }
    const int rows = static_cast<int>(ProblemList::kMostKept) + 1;
    Rows(rows);
    EXPECT_TRUE(copyAll->isEnabled());
    EXPECT_EQ(Cell(rows - 1, ProblemRows::Text), "... and 5 more");
    EXPECT_EQ(Cell(rows - 2, ProblemRows::Text), "again");
}

// A screen of 3200 pixels.
class ProblemsAtFirst : public Toolkit {
protected:
    static constexpr int kLeastWidth = 760;

    ProblemsAtFirst() : Toolkit(0.25) {}

    void Say(const std::string& text) {
        list.Add({MessageKind("kind", Severity::Warning),
                  text,
                  {},
                  MessageIcon::None,
                  {7, 0, "/stages/<b>.def"}});
    }
    void Open() {
        window.ComeToFront();
        Settle();
    }
    [[nodiscard]] bool IsCut(int row) const {
        const QModelIndex cell = view->model()->index(row, ProblemRows::Text);
        return view->sizeHintForIndex(cell).width() > view->visualRect(cell).width();
    }
    // What the pointer finds there.
    [[nodiscard]] QString TipAt(int row, int column) const {
        const QPoint at = view->visualRect(view->model()->index(row, column)).center();
        QHelpEvent event(QEvent::ToolTip, at, view->viewport()->mapToGlobal(at));
        QApplication::sendEvent(view->viewport(), &event);
        return QToolTip::text();
    }

    ProblemList list;
    ProblemsWindow window{list, nullptr};
    QTreeView* view = window.findChild<QTreeView*>();
};

std::string Words(std::size_t length) {
    std::string words;
    while (words.size() < length) {
        words += "<i>word ";
    }
    return words.substr(0, length - 1) + ".";
}

TEST_F(ProblemsAtFirst, ShortTextsLeaveItAsItIs) {
    Say("short");
    Open();
    EXPECT_EQ(window.width(), kLeastWidth);
    EXPECT_FALSE(IsCut(0));
}

TEST_F(ProblemsAtFirst, NoRowsLeaveItAsItIs) {
    Open();
    EXPECT_EQ(window.width(), kLeastWidth);
}

TEST_F(ProblemsAtFirst, ItIsAsWideAsTheLongestTextEvenBelow) {
    for (int i = 0; i < 2000; ++i) {
        Say(i == 1500 ? Words(150) : "short");
    }
    Open();
    EXPECT_GT(window.width(), kLeastWidth);
    EXPECT_LT(window.width(), window.screen()->availableGeometry().width() / 2);
    EXPECT_FALSE(IsCut(1500));
    window.resize(window.width() - 10, window.height());
    Settle();
    EXPECT_TRUE(IsCut(1500)) << "it has no more room than it needs";
}

TEST_F(ProblemsAtFirst, ItLeavesSomeOfItsScreenAndATipHasTheWhole) {
    Say(Words(ProblemList::kMostLength - 1));
    Say("short");
    Open();
    EXPECT_EQ(window.width(), window.screen()->availableGeometry().width() * 4 / 5);
    EXPECT_TRUE(IsCut(0));
    EXPECT_EQ(TipAt(1, ProblemRows::Text), "") << "it is whole";
    EXPECT_EQ(TipAt(1, ProblemRows::File), "<p>/stages/&lt;b&gt;.def</p>");
    EXPECT_EQ(TipAt(0, ProblemRows::Text),
              "<p>" + QString::fromStdString(list.Kept().front().text).toHtmlEscaped() + "</p>");
}

TEST_F(ProblemsAtFirst, AWidthOfTheUsersStays) {
    Open();
    window.hide();
    Say(Words(150));
    Open();
    const int wide = window.width();
    EXPECT_GT(wide, kLeastWidth) << "the user has chosen none so far";
    window.resize(500, 300);
    window.hide();
    Open();
    EXPECT_EQ(window.size(), QSize(500, 300));
    EXPECT_TRUE(IsCut(0));
}

}  // namespace
}  // namespace scenara::test
