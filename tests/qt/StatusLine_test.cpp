// SPDX-License-Identifier: MIT
#include "platform/qt/StatusLine.h"

#include <QImage>
#include <QLabel>
#include <QPalette>
#include <QScrollBar>
#include <QToolButton>
#include <algorithm>
#include <string>
#include <vector>

#include <QtTest/QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/MenuTree.h"
#include "qt/ShownWindow.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;

const StatusBar kForest{true,
                        {},
                        "A Forest of Tall Trees by the Sea",
                        "by Somebody With a Name",
                        "1280 x 720",
                        "/mugen/stages/a_forest_of_tall_trees.sff",
                        "a_forest_of_tall_trees.sff",
                        "SFF 2.00",
                        "3 problems"};

class StatusLineShown : public Toolkit {
protected:
    StatusLineShown() { Show(kForest, kWide); }

    void Show(const StatusBar& status, int width) {
        line.resize(width, line.sizeHint().height());
        line.Show(status);
        line.show();
        Settle();
    }

    // What is seen, from left to right.
    struct Piece {
        std::string text;
        QRect place;
    };
    [[nodiscard]] std::vector<Piece> Pieces() const {
        std::vector<Piece> pieces;
        for (const QLabel* const label : line.findChildren<QLabel*>()) {
            if (label->isVisible()) {
                pieces.push_back({label->text().toStdString(), label->geometry()});
            }
        }
        if (problems->isVisible()) {
            pieces.push_back({problems->text().toStdString(), problems->geometry()});
        }
        std::ranges::sort(pieces, {}, [](const Piece& piece) { return piece.place.left(); });
        return pieces;
    }
    [[nodiscard]] std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (const Piece& piece : Pieces()) {
            texts.push_back(piece.text);
        }
        return texts;
    }
    [[nodiscard]] bool Has(const std::string& text) const {
        return std::ranges::count(Texts(), text) == 1;
    }
    // The narrowest in which all is whole.
    [[nodiscard]] int WholeWidth() {
        int width = kWide;
        while (width > 0 && Texts() == Whole()) {
            Show(kForest, --width);
        }
        return width + 1;
    }
    [[nodiscard]] static std::vector<std::string> Whole() {
        return {kForest.name, kForest.author, kForest.canvas,
                kForest.archive + " (" + kForest.version + ")", kForest.problems};
    }

    static constexpr int kWide = 1500;
    StatusLine line;
    QToolButton* problems = line.findChild<QToolButton*>();
};

TEST_F(StatusLineShown, SaysAllOfItFromLeftToRight) {
    EXPECT_EQ(Texts(), Whole());
    const std::vector<Piece> pieces = Pieces();
    EXPECT_LT(pieces.front().place.left(), 20);
    EXPECT_GT(pieces.back().place.right(), kWide - 20);
}

// At every width: what is seen neither overlaps nor leaves the line, and is cut only where that
// has to be.
TEST_F(StatusLineShown, NothingOverlapsAtAnyWidth) {
    for (int width = 900; width > 20; width -= 7) {
        Show(kForest, width);
        int right = 0;
        for (const Piece& piece : Pieces()) {
            EXPECT_GE(piece.place.left(), right) << width << ": " << piece.text;
            EXPECT_GE(piece.place.width() + 2,
                      line.fontMetrics().horizontalAdvance(QString::fromStdString(piece.text)))
                << width << ": " << piece.text;
            right = piece.place.right() + 1;
        }
        EXPECT_LE(right, width);
    }
}

TEST_F(StatusLineShown, IsCutNoSoonerThanItHasTo) {
    const int least = WholeWidth();
    Show(kForest, least);
    const std::vector<Piece> pieces = Pieces();
    int texts = 0;
    for (const Piece& piece : pieces) {
        texts += line.fontMetrics().horizontalAdvance(QString::fromStdString(piece.text));
    }
    // The rest are the gaps between the five, the two ends and the button's edges.
    EXPECT_LT(least - texts, 5 * 4 * line.fontMetrics().averageCharWidth());
}

// Each of them as far as it goes, before the next one.
TEST_F(StatusLineShown, TheAuthorIsCutFirstThenTheNameThenTheArchivesFileName) {
    const std::string archive = Whole().at(3);
    Show(kForest, WholeWidth() - 20);
    EXPECT_FALSE(Has(kForest.author));
    EXPECT_TRUE(Has(kForest.name));
    bool nameWasCut = false;
    bool archiveWasCut = false;
    for (int width = line.width(); width > 150; width -= 3) {
        Show(kForest, width);
        const bool nameIsCut = !Has(kForest.name);
        const bool archiveIsCut = !Has(archive);
        nameWasCut = nameWasCut || nameIsCut;
        if (archiveIsCut && !archiveWasCut) {
            archiveWasCut = true;
            EXPECT_TRUE(nameWasCut) << width;
        }
    }
    EXPECT_TRUE(archiveWasCut);
}

TEST_F(StatusLineShown, TheArchivesVersionIsNeverCut) {
    bool wasCut = false;
    for (int width = 700; width > 150; width -= 3) {
        Show(kForest, width);
        for (const std::string& text : Texts()) {
            if (text.starts_with("a_")) {
                EXPECT_TRUE(text.ends_with(" (SFF 2.00)")) << text;
                EXPECT_NE(text.find("ff"), std::string::npos) << "the end of the name: " << text;
                wasCut = wasCut || text.find("\xE2\x80\xA6") != std::string::npos;
            }
        }
    }
    EXPECT_TRUE(wasCut);
}

TEST_F(StatusLineShown, TheToolTipHasAllOfIt) {
    Show(kForest, 100);
    const std::string tip = line.toolTip().toStdString();
    for (const std::string& text :
         {kForest.name, kForest.author, kForest.canvas,
          kForest.archivePath + " (" + kForest.version + ")", kForest.problems}) {
        EXPECT_NE(tip.find(text), std::string::npos) << text << " in " << tip;
    }
}

TEST_F(StatusLineShown, AFilesWordsAreNoMarks) {
    StatusBar status = kForest;
    status.name = "<b>Dock</b> & <i>Sea</i>";
    Show(status, kWide);
    EXPECT_EQ(Texts().front(), status.name);
    EXPECT_EQ(line.findChild<QLabel*>()->textFormat(), Qt::PlainText);
    EXPECT_NE(line.toolTip().toStdString().find("&lt;b&gt;Dock&lt;/b&gt; &amp;"), std::string::npos)
        << line.toolTip().toStdString();
}

TEST_F(StatusLineShown, WithoutAStageTheNumberOfStagesIsAllThereIs) {
    StatusBar status;
    status.visible = true;
    status.stages = "306 stages";
    Show(status, kWide);
    EXPECT_THAT(Texts(), ElementsAre("306 stages"));
    status.stages.clear();
    Show(status, kWide);
    EXPECT_THAT(Texts(), ElementsAre());
    EXPECT_TRUE(line.toolTip().isEmpty());
}

TEST_F(StatusLineShown, ALargerFontHasAHigherLine) {
    const int before = line.sizeHint().height();
    QFont font = line.font();
    font.setPointSize(font.pointSize() * 2);
    line.setFont(font);
    Settle();
    EXPECT_GT(line.sizeHint().height(), before + 8);
    EXPECT_EQ(Texts().front(), kForest.name);
}

// As a desktop with a dark look gives it.
TEST_F(StatusLineShown, HasTheColoursOfTheUsersPalette) {
    const QColor ground(0x20, 0x20, 0x24);
    const QColor letters(0xF0, 0xF0, 0xE0);
    QApplication::setPalette(
        QPalette(letters, ground, ground.lighter(), ground.darker(), ground, letters, ground));
    Settle();
    const QImage image = line.grab().toImage();
    EXPECT_EQ(image.pixelColor(1, 1).name(), ground.name());
    for (const Piece& piece : Pieces()) {
        int lightest = 0;
        for (int y = piece.place.top(); y <= piece.place.bottom(); ++y) {
            for (int x = piece.place.left(); x <= piece.place.right(); ++x) {
                lightest = std::max(lightest, image.pixelColor(x, y).lightness());
            }
        }
        EXPECT_GT(lightest, letters.lightness() - 40) << piece.text;
    }
    QApplication::setPalette(QPalette());
}

class WindowWithStatus : public ShownWindow {
protected:
    WindowWithStatus() : ShownWindow(DesignMenus) {}

    [[nodiscard]] static StatusLine* LineOf(const MainWindow& window) {
        for (QWidget* const child : window.findChildren<QWidget*>()) {
            if (auto* const found = dynamic_cast<StatusLine*>(child); found != nullptr) {
                return found;
            }
        }
        return nullptr;
    }
    StatusLine* line = LineOf(window);
};

// Below the inner area, and outside of it.
TEST_F(WindowWithStatus, TakesItsHeightOfTheWindowAndNotOfThePicture) {
    EXPECT_FALSE(line->isVisible());
    const Long before = window.Around().height;
    form.statusBar = kForest;
    Pump();
    EXPECT_TRUE(line->isVisible());
    EXPECT_EQ(window.Around().height, before + line->height());
    window.Size(640, 480);
    Pump();
    EXPECT_EQ(window.width(), 640);
    EXPECT_EQ(window.height(), 480 + window.Around().height);
    EXPECT_EQ(line->mapTo(&window, QPoint(0, line->height())).y(), window.height());
    EXPECT_EQ(line->width(), 640);
    form.statusBar = {};
    Pump();
    EXPECT_FALSE(line->isVisible());
    EXPECT_EQ(window.Around().height, before);
}

TEST_F(WindowWithStatus, AClickOnTheProblemsListsThem) {
    form.statusBar = kForest;
    window.Size(900, 480);
    Pump();
    static_cast<void>(program.Text());
    QTest::mouseClick(line->findChild<QToolButton*>(), Qt::LeftButton);
    Pump();
    EXPECT_EQ(program.Text(), "menu " + std::to_string(static_cast<int>(Menu::mnuProblems)));
    EXPECT_EQ(QApplication::focusWidget(), nullptr) << "the keys stay with the picture";
}

TEST_F(WindowWithStatus, MakesTheWindowNoWider) {
    form.statusBar = kForest;
    Pump();
    EXPECT_LT(line->minimumSizeHint().width(), 50);
}

}  // namespace
}  // namespace scenara::test
