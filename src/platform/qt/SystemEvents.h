// SPDX-License-Identifier: MIT
//
// SystemEvents: whether the toolkit's loop has something to deliver, and a sleep that ends when it
// has. Nothing is delivered by either.
//
// The toolkit's own sleep counts in milliseconds. This one waits for what the loop waits for,
// beside a timer of the system's that counts in nanoseconds. (A timeout of ppoll would do so too,
// but the system stretches it: for a program of low priority by half a percent, which is 80 us a
// frame.)
#pragma once

#include <QTimer>
#include <cstdint>
#include <vector>

#include <poll.h>

#include "base/NotCopied.h"

namespace scenara {

class SystemEvents : NotCopied {
public:
    // The toolkit's application object stands.
    SystemEvents();
    ~SystemEvents();

    // Also where the loop cannot tell: where it is not GLib's.
    [[nodiscard]] bool MayWait() const;
    // At most so many nanoseconds. Where the loop is not GLib's it keeps to whole milliseconds
    // below that, and lets the toolkit take events in.
    void SleepUntilAny(std::int64_t nanoseconds);

private:
    void SleepInToolkit(std::int64_t nanoseconds);
    [[nodiscard]] std::size_t AskWhatToWaitFor(int priority, int& milliseconds);

    bool onGlib_;
    int timer_ = -1;              // -1: the system has none
    std::vector<pollfd> waited_;  // what is waited for; kept for its room
    QTimer toolkitTimer_;
};

}  // namespace scenara
