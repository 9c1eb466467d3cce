// SPDX-License-Identifier: MIT
#include <array>
#include <cerrno>
#include <csignal>

#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include "platform/posix/EndSignals.h"

namespace scenara {
namespace {

bool HasCome(const EndSignals& signals) {
    pollfd descriptor{signals.Descriptor(), POLLIN, 0};
    return ::poll(&descriptor, 1, 0) == 1;
}

// A signal in the state that it is set to, and as it was before when this goes.
class SignalState {
public:
    SignalState(int signal, void (*handler)(int))
        : signal_(signal), before_(std::signal(signal, handler)) {}
    SignalState(const SignalState&) = delete;
    SignalState& operator=(const SignalState&) = delete;
    ~SignalState() { std::signal(signal_, before_); }

private:
    int signal_;
    void (*before_)(int);
};

void (*HandlerOf(int signal))(int) {
    struct sigaction action {};
    ::sigaction(signal, nullptr, &action);
    return action.sa_handler;
}

int others = 0;
void CountOther(int /*signal*/) {
    ++others;
}

TEST(EndSignals, EachMakesTheDescriptorReadable) {
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        const SignalState before(signal, SIG_DFL);
        const EndSignals signals;
        EXPECT_FALSE(HasCome(signals)) << signal;
        ASSERT_EQ(std::raise(signal), 0);
        EXPECT_TRUE(HasCome(signals)) << signal;
    }
}

TEST(EndSignals, HowOftenTheyComeDoesNotMatter) {
    const SignalState before(SIGTERM, SIG_DFL);
    const EndSignals signals;
    errno = 0;
    for (int i = 0; i < 100'000; ++i) {  // more than a pipe holds
        std::raise(SIGTERM);
    }
    EXPECT_EQ(errno, 0) << "a handler leaves no trace";
    EXPECT_TRUE(HasCome(signals));
}

TEST(EndSignals, WhatWasIgnoredStaysSo) {
    const SignalState before(SIGHUP, SIG_IGN);
    const EndSignals signals;
    std::raise(SIGHUP);
    EXPECT_FALSE(HasCome(signals));
}

TEST(EndSignals, DoAfterwardsWhatTheyDidBefore) {
    const SignalState hup(SIGHUP, CountOther);
    const SignalState interrupt(SIGINT, SIG_DFL);
    { const EndSignals signals; }
    EXPECT_EQ(HandlerOf(SIGHUP), CountOther);
    EXPECT_EQ(HandlerOf(SIGINT), SIG_DFL);
    others = 0;
    std::raise(SIGHUP);
    EXPECT_EQ(others, 1);
}

TEST(EndSignals, AReaderThatHasGoneAwayEndsNothing) {
    const SignalState before(SIGPIPE, SIG_DFL);
    const EndSignals signals;
    std::array<int, 2> ends{-1, -1};
    ASSERT_EQ(::pipe(ends.data()), 0);
    ::close(ends[0]);
    EXPECT_EQ(::write(ends[1], "x", 1), -1);
    EXPECT_EQ(errno, EPIPE);
    ::close(ends[1]);
    EXPECT_FALSE(HasCome(signals));
}

}  // namespace
}  // namespace scenara
