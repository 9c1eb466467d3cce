// SPDX-License-Identifier: MIT
#include "platform/qt/SystemEvents.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <algorithm>
#include <cstddef>
#include <ctime>

#include <sys/prctl.h>
#include <sys/timerfd.h>
#include <unistd.h>

// Qt's "emit" and "signals" are words in this library's headers.
#undef signals
#include <glib.h>

namespace scenara {
namespace {

constexpr std::int64_t kNanosecondsPerSecond = 1'000'000'000;
constexpr std::int64_t kNanosecondsPerMillisecond = 1'000'000;

// By how much a sleep of this thread may be longer than asked, where the system's timer is not
// there. The system takes 50 us otherwise.
constexpr unsigned long kTimerSlack = 1000;

// More than a toolkit's loop has ever waited for; where it is not enough, room is made.
constexpr std::size_t kUsualRoom = 32;

// GLib's record is the system's by another name.
static_assert(sizeof(GPollFD) == sizeof(pollfd) && offsetof(GPollFD, fd) == offsetof(pollfd, fd) &&
              offsetof(GPollFD, events) == offsetof(pollfd, events) &&
              offsetof(GPollFD, revents) == offsetof(pollfd, revents));

GPollFD* AsGlibs(std::vector<pollfd>& waited) {
    return reinterpret_cast<GPollFD*>(waited.data());
}

timespec TimeOf(std::int64_t nanoseconds) {
    return {nanoseconds / kNanosecondsPerSecond, nanoseconds % kNanosecondsPerSecond};
}

// The dispatcher runs on GLib's loop, so GLib knows whether something waits.
bool RunsOnGlib() {
    const QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    return dispatcher != nullptr &&
           QString::fromLatin1(dispatcher->metaObject()->className()).contains("Glib");
}

}  // namespace

SystemEvents::SystemEvents()
    : onGlib_(RunsOnGlib()),
      timer_(::timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      waited_(kUsualRoom) {
    toolkitTimer_.setSingleShot(true);
    toolkitTimer_.setTimerType(Qt::PreciseTimer);
    ::prctl(PR_SET_TIMERSLACK, kTimerSlack, 0, 0, 0);
}

SystemEvents::~SystemEvents() {
    if (timer_ >= 0) {
        ::close(timer_);
    }
}

bool SystemEvents::MayWait() const {
    return !onGlib_ || g_main_context_pending(nullptr) != 0;
}

void SystemEvents::SleepUntilAny(std::int64_t nanoseconds) {
    if (nanoseconds <= 0) {
        return;
    }
    if (!onGlib_) {
        SleepInToolkit(nanoseconds);
        return;
    }
    GMainContext* const context = g_main_context_default();
    if (g_main_context_acquire(context) == FALSE) {
        return;
    }
    int priority = 0;
    g_main_context_prepare(context, &priority);
    int milliseconds = 0;
    const std::size_t count = AskWhatToWaitFor(priority, milliseconds);
    if (milliseconds != 0) {
        std::int64_t most = milliseconds < 0
                                ? nanoseconds
                                : std::min(nanoseconds, milliseconds * kNanosecondsPerMillisecond);
        const itimerspec once{{}, TimeOf(most)};
        const bool timed = timer_ >= 0 && ::timerfd_settime(timer_, 0, &once, nullptr) == 0;
        waited_[count] = {timer_, POLLIN, 0};
        const timespec stretched = TimeOf(most);
        static_cast<void>(::ppoll(waited_.data(), count + (timed ? 1 : 0),
                                  timed ? nullptr : &stretched, nullptr));
    }
    g_main_context_check(context, priority, AsGlibs(waited_), static_cast<int>(count));
    g_main_context_release(context);
}

// How many there are; after them there is room for one more. `milliseconds` is how long the loop
// itself would sleep, below 0 without end.
std::size_t SystemEvents::AskWhatToWaitFor(int priority, int& milliseconds) {
    for (;;) {
        const int count = g_main_context_query(g_main_context_default(), priority, &milliseconds,
                                               AsGlibs(waited_), static_cast<int>(waited_.size()));
        const auto room = static_cast<std::size_t>(count) + 1;
        if (room <= waited_.size()) {
            return room - 1;
        }
        waited_.resize(room);
    }
}

void SystemEvents::SleepInToolkit(std::int64_t nanoseconds) {
    const std::int64_t milliseconds = nanoseconds / kNanosecondsPerMillisecond;
    if (milliseconds > 0) {
        toolkitTimer_.start(static_cast<int>(milliseconds));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        toolkitTimer_.stop();
    }
}

}  // namespace scenara
