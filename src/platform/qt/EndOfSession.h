// SPDX-License-Identifier: MIT
//
// EndOfSession: how the rest of the system asks the program to end, and to save before.
//
// A session manager first has every program save, and ends them when all have, unless the user has
// thought better of it. Without one the system sends a signal.
#pragma once

#include <QObject>
#include <functional>

namespace scenara {

class EndOfSession : public QObject {
public:
    // `descriptor` can be read from when the program is to end, -1 where there is none. Both
    // functions are called from inside of the toolkit: `save` because the session goes on when it
    // has returned, so it must not wait for the user; `end` perhaps more than once.
    EndOfSession(int descriptor, std::function<void()> save, std::function<void()> end);

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    std::function<void()> end_;
};

}  // namespace scenara
