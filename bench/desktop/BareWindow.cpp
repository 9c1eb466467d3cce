// SPDX-License-Identifier: MIT
//
// A window with nothing in it, for as long as it is let: what a program with the same toolkit takes
// at least to come up.
#include <QApplication>
#include <QMainWindow>

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QMainWindow window;
    window.resize(960, 720);
    window.show();
    return QApplication::exec();
}
