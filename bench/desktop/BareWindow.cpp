// SPDX-License-Identifier: MIT
//
// A window with nothing in it, for as long as it is let: what a program with the same toolkit takes
// at least to come up. With the word --menu it has a menu: letters, and so the toolkit's fonts.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    if (QApplication::arguments().contains(QStringLiteral("--menu"))) {
        window.menuBar()->addMenu(QStringLiteral("Stage"))->addAction(QStringLiteral("Open"));
    }
    window.resize(960, 720);
    window.show();
    return QApplication::exec();
}
