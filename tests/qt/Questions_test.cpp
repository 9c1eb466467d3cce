// SPDX-License-Identifier: MIT
//
// Boxes and dialogs while the program stands still, and when it ends under them.
#include "platform/qt/Questions.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QShortcut>
#include <QTest>
#include <QTimer>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/ProgramFolder.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/QtDialogs.h"
#include "platform/qt/QtMessages.h"
#include "qt/Toolkit.h"
#include "support/RecordedEvents.h"

namespace scenara::test {
namespace {

constexpr MessageKind kKind = "kind";

class AskedQuestions : public Toolkit {
protected:
    AskedQuestions() {
        window.SetEvents(&program);
        window.Show();
        window.DoEvents();
        static_cast<void>(program.Text());
        form.title = "The title";
    }

    // Does it once a dialog is open.
    void WhenOpen(std::function<void(QWidget&)> act) {
        timer.disconnect();
        QObject::connect(&timer, &QTimer::timeout, &timer, [this, act = std::move(act)] {
            if (QWidget* const open = QApplication::activeModalWidget(); open != nullptr) {
                timer.stop();
                act(*open);
            }
        });
        timer.start(1);
    }

    Form form;
    RecordedEvents program;
    MainWindow window{form};
    Questions questions{window};
    QtMessages messages{questions, form};
    QtDialogs dialogs{questions, form};
    QTimer timer;
};

TEST_F(AskedQuestions, GiveTheDialogsResult) {
    for (const int result : {int{QDialog::Accepted}, int{QDialog::Rejected}, 7}) {
        QDialog dialog(questions.Owner());
        WhenOpen([&](QWidget&) { dialog.done(result); });
        EXPECT_EQ(questions.Ask(dialog), result);
        EXPECT_FALSE(dialog.isVisible());
    }
}

TEST_F(AskedQuestions, AreModalOverTheWindowAndClosedByTheirFrame) {
    QDialog dialog(questions.Owner());
    WhenOpen([&](QWidget& open) {
        EXPECT_EQ(&open, &dialog);
        EXPECT_EQ(open.parentWidget(), &window);
        open.close();
    });
    EXPECT_EQ(questions.Ask(dialog), QDialog::Rejected);
}

TEST_F(AskedQuestions, LetTheProgramGoOnWithWhatCanWait) {
    QDialog dialog(questions.Owner());
    const int before = program.idle;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (program.idle > before + 3) {
            dialog.accept();
        }
    });
    timer.start(400);  // rarer than the program is asked by itself
    EXPECT_EQ(questions.Ask(dialog), QDialog::Accepted);
}

TEST_F(AskedQuestions, KeepWhatTheUserDoesUntilTheyAreAnswered) {
    QDialog dialog(questions.Owner());
    WhenOpen([&](QWidget&) {
        window.NoteKey(VirtualKey::Escape);
        dialog.accept();
    });
    static_cast<void>(questions.Ask(dialog));
    EXPECT_EQ(program.Text(), "");
    window.DoEvents();
    EXPECT_EQ(program.Text(), "key 27");
}

TEST_F(AskedQuestions, ATextIsTaken) {
    WhenOpen([](QWidget& open) {
        EXPECT_EQ(open.windowTitle(), "The title");
        auto& input = dynamic_cast<QInputDialog&>(open);
        EXPECT_EQ(input.labelText(), "Max FPS?");
        input.setTextValue("30");
        input.accept();
    });
    EXPECT_EQ(dialogs.InputBox("Max FPS?"), "30");
    WhenOpen([](QWidget& open) {
        auto& input = dynamic_cast<QInputDialog&>(open);
        EXPECT_EQ(input.textValue(), "");
        input.setTextValue("30");
        input.reject();
    });
    EXPECT_EQ(dialogs.InputBox("Max FPS?"), "");
}

TEST_F(AskedQuestions, OneOfSeveralAnswersIsChosen) {
    const std::vector<std::string> answers = {"This", "That & more", "Neither"};
    for (std::size_t wanted = 0; wanted < answers.size(); ++wanted) {
        WhenOpen([&](QWidget& open) {
            EXPECT_EQ(open.windowTitle(), "The title");
            EXPECT_EQ(dynamic_cast<QMessageBox&>(open).text(), "Which?");
            open.findChildren<QPushButton*>().at(static_cast<int>(wanted))->click();
        });
        EXPECT_EQ(dialogs.ChooseAnswer("Which?", answers), wanted);
    }
    WhenOpen([](QWidget& open) { dynamic_cast<QMessageBox&>(open).reject(); });
    EXPECT_EQ(dialogs.ChooseAnswer("Which?", answers), std::nullopt);
}

TEST_F(AskedQuestions, AFolderIsAskedForFromTheUsersOwnOrTheGivenOneOn) {
    const auto beginning = [&](const std::string& initial) {
        QString folder;
        WhenOpen([&](QWidget& open) {
            folder = dynamic_cast<QFileDialog&>(open).directory().absolutePath();
            dynamic_cast<QFileDialog&>(open).reject();
        });
        EXPECT_EQ(dialogs.BrowseForFolder("Point", initial), "");
        return folder;
    };
    EXPECT_EQ(beginning(""), QDir::homePath());
    EXPECT_EQ(beginning("/usr"), "/usr");
}

// The user may have pressed Delete, and Return at the question that follows, for something else.
TEST_F(AskedQuestions, AFileIsOpenedAndNeverDeletedOrRenamed) {
    const TemporaryFolder folder;
    const QString path = QString::fromStdString(folder.Path() + "kept.def");
    ASSERT_TRUE(QFile(path).open(QIODevice::WriteOnly));
    int answered = 0;
    QTimer answer;
    QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            ++answered;
            box->button(QMessageBox::Yes)->click();
        }
    });
    answer.start(1);
    WhenOpen([&](QWidget& open) {
        auto& dialog = dynamic_cast<QFileDialog&>(open);
        auto* const files = dialog.findChild<QAbstractItemView*>("listView");
        ASSERT_NE(files, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return files->model()->rowCount(files->rootIndex()); }));
        const QModelIndex kept = files->model()->index(0, 0, files->rootIndex());
        files->setCurrentIndex(kept);
        auto* const erase = dialog.findChild<QShortcut*>();
        ASSERT_NE(erase, nullptr);
        ASSERT_EQ(erase->key(), QKeySequence(QKeySequence::Delete));
        Q_EMIT erase->activated();
        EXPECT_FALSE(kept.flags().testFlag(Qt::ItemIsEditable));
        EXPECT_FALSE(dialog.findChild<QWidget*>("newFolderButton")->isEnabled());
        dialog.reject();
    });
    EXPECT_EQ(dialogs.OpenFile("Choose", folder.Path()), "");
    EXPECT_EQ(answered, 0) << "no question";
    EXPECT_TRUE(QFile::exists(path));
}

// --- withdrawn ---

TEST_F(AskedQuestions, CloseAsByCancelWhenTheyAreWithdrawn) {
    WhenOpen([&](QWidget& open) {
        dynamic_cast<QInputDialog&>(open).setTextValue("30");
        questions.Withdraw();
    });
    EXPECT_EQ(dialogs.InputBox("Max FPS?"), "");
}

TEST_F(AskedQuestions, AreWithdrawnFromUnderBoxesAndMenusOfTheToolkit) {
    QDialog dialog(questions.Owner());
    WhenOpen([&](QWidget&) {
        WhenOpen([&](QWidget& box) {
            ASSERT_NE(qobject_cast<QMessageBox*>(&box), nullptr);
            QMenu menu(&box);
            menu.addAction("Paste");
            QTimer::singleShot(0, &menu, [&] { questions.Withdraw(); });
            menu.exec();
        });
        QMessageBox box(&dialog);
        box.exec();
    });
    EXPECT_EQ(questions.Ask(dialog), QDialog::Rejected);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(AskedQuestions, AreNotAskedAfterwards) {
    questions.Withdraw();
    QDialog dialog(questions.Owner());
    EXPECT_EQ(questions.Ask(dialog), QDialog::Rejected);
    EXPECT_EQ(dialogs.InputBox("Max FPS?"), "");
    EXPECT_EQ(dialogs.OpenFile("Choose", "/"), "");
    EXPECT_EQ(dialogs.BrowseForFolder("Point", ""), "");
    EXPECT_EQ(dialogs.ChooseAnswer("Which?", {"This"}), std::nullopt);
}

TEST_F(AskedQuestions, WhatIsSaidAfterwardsGoesToStandardError) {
    questions.Withdraw();
    testing::internal::CaptureStderr();
    messages.MsgBox(kKind, "one\r\ntwo");
    EXPECT_FALSE(messages.ShowWithOffer({kKind, "three", {}, MessageIcon::None}, "offer"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "scenara: one  two\nscenara: three\n");
}

// --- sleeping ---

TEST_F(AskedQuestions, TheWindowWakesAProgramThatWantsToBeAskedAgain) {
    program.wantsMore = true;
    window.DoEvents();
    const int before = program.idle;
    while (program.idle < before + 5) {
        window.WaitForEvents();
    }
    EXPECT_GE(program.idle, before + 5);
}

}  // namespace
}  // namespace scenara::test
