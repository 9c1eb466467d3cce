// SPDX-License-Identifier: MIT
//
// The list of problems as a window: its rows, and what is copied of them.
#include "platform/qt/ProblemsWindow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
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

}  // namespace
}  // namespace scenara::test
