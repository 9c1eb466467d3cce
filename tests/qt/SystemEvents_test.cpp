// SPDX-License-Identifier: MIT
//
// The sleep until something happens. A test of a sleep of an hour ends when that does.
#include "platform/qt/SystemEvents.h"

#include <QCoreApplication>
#include <QEvent>
#include <QObject>
#include <QTimer>
#include <cstdint>
#include <thread>

#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

constexpr std::int64_t kHour = 3600LL * 1'000'000'000;

class Counter : public QObject {
public:
    bool event(QEvent* event) override {
        events += event->type() == QEvent::User ? 1 : 0;
        return QObject::event(event);
    }
    int events = 0;
};

class Sleep : public Toolkit {
protected:
    Sleep() { Settle(); }

    void Post() { QCoreApplication::postEvent(&counter, new QEvent(QEvent::User)); }

    Counter counter;
    SystemEvents system;
};

TEST_F(Sleep, IsNoneWhereAnEventWaits) {
    Post();
    system.SleepUntilAny(kHour);
    EXPECT_TRUE(system.MayWait());
    EXPECT_EQ(counter.events, 0) << "nothing is delivered";
    Settle();
    EXPECT_EQ(counter.events, 1);
    EXPECT_FALSE(system.MayWait());
}

TEST_F(Sleep, EndsWithAnEventOfAnotherThread) {
    std::thread other([this] { Post(); });
    while (!system.MayWait()) {
        system.SleepUntilAny(kHour);
    }
    other.join();
    EXPECT_EQ(counter.events, 0);
    Settle();
    EXPECT_EQ(counter.events, 1);
}

TEST_F(Sleep, EndsWithATimerOfTheToolkits) {
    int fired = 0;
    QTimer::singleShot(1, &counter, [&] { ++fired; });
    while (!system.MayWait()) {
        system.SleepUntilAny(kHour);
    }
    EXPECT_EQ(fired, 0);
    while (fired == 0) {
        QCoreApplication::processEvents();
    }
}

TEST_F(Sleep, EndsByItself) {
    for (const std::int64_t nanoseconds :
         {std::int64_t{1}, std::int64_t{999}, std::int64_t{1'000'000}, std::int64_t{0},
          std::int64_t{-1}, -kHour}) {
        system.SleepUntilAny(nanoseconds);
        EXPECT_FALSE(system.MayWait()) << nanoseconds;
    }
}

}  // namespace
}  // namespace scenara::test
