// SPDX-License-Identifier: MIT
//
// Both ends of what a later start hands over: the one that listens, and whatever connects.
#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <poll.h>
#include <sys/stat.h>

#include "platform/Request.h"
#include "platform/posix/HandOver.h"
#include "platform/posix/Instance.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/posix/RequestListener.h"
#include "platform/posix/UnixSocket.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

// Longer than anything here takes, for a test that would otherwise hang.
constexpr std::chrono::milliseconds kLong = 30s;

const Request kRequest{"12", {"/a.def", "/b\xFF.def"}};

std::vector<std::byte> Bytes(const Request& request = kRequest) {
    return *RequestBytes(request);
}

class Handed : public testing::Test {
protected:
    Handed() {
        EXPECT_FALSE(first_.AnotherRuns());
        listener_.emplace(first_.Socket());
        EXPECT_GE(listener_->Descriptor(), 0);
    }

    // Serves until there is nothing more to serve at the moment.
    void Serve() {
        pollfd ready{listener_->Descriptor(), POLLIN, 0};
        while (::poll(&ready, 1, 0) > 0) {
            listener_->Serve({[this] { return takesAny_; },
                              [this](Request request) { taken_.push_back(std::move(request)); }});
        }
    }
    // Hands the request over from another thread, while this one serves.
    HandedOver HandOverServed(const Request& request) {
        std::atomic<bool> ended = false;
        HandedOver result = HandedOver::NotAnswered;
        std::thread client([&] {
            Instance second("", folder_.Path());
            result = HandOver(second, Bytes(request), kLong);
            ended = true;
        });
        while (!ended) {
            Serve();
            std::this_thread::yield();
        }
        client.join();
        return result;
    }
    [[nodiscard]] UnixSocket Connected() const {
        UnixSocket socket = UnixSocket::ConnectedTo(first_.Socket());
        EXPECT_TRUE(socket.IsOpen());
        return socket;
    }
    // Sends all of it, serving meanwhile, as far as it is taken.
    void Send(const UnixSocket& socket, std::span<const std::byte> bytes) {
        while (!bytes.empty()) {
            const UnixSocket::Moved moved = socket.Send(bytes);
            if (moved.state == UnixSocket::State::Ended) {
                return;
            }
            bytes = bytes.subspan(moved.count);
            Serve();
        }
    }
    [[nodiscard]] static bool IsAnswered(const UnixSocket& socket) {
        std::byte answer{};
        return socket.Receive({&answer, 1}).count == 1;
    }
    [[nodiscard]] static bool IsClosed(const UnixSocket& socket) {
        std::byte answer{};
        return socket.Receive({&answer, 1}).state == UnixSocket::State::Ended;
    }

    TemporaryFolder folder_;
    Instance first_{"", folder_.Path()};
    std::optional<RequestListener> listener_;
    std::vector<Request> taken_;
    bool takesAny_ = true;
};

TEST_F(Handed, IsTakenWhole) {
    EXPECT_EQ(HandOverServed(kRequest), HandedOver::Taken);
    EXPECT_EQ(taken_, std::vector{kRequest});
}

TEST_F(Handed, IsTakenAtAnySize) {
    const Request large{"", std::vector<std::string>(60, std::string(4000, 'a'))};
    EXPECT_EQ(HandOverServed(large), HandedOver::Taken);
    EXPECT_EQ(taken_, std::vector{large});
}

TEST_F(Handed, IsTakenInPieces) {
    const UnixSocket socket = Connected();
    for (const std::byte byte : Bytes()) {
        Send(socket, {&byte, 1});
    }
    EXPECT_TRUE(taken_.empty());
    socket.EndSending();
    Serve();
    EXPECT_EQ(taken_, std::vector{kRequest});
    EXPECT_TRUE(IsAnswered(socket));
}

TEST_F(Handed, IsNotAnsweredByAProgramThatStandsStill) {
    Instance second("", folder_.Path());
    EXPECT_EQ(HandOver(second, Bytes(), 100ms), HandedOver::NotAnswered);
    Serve();
    EXPECT_TRUE(taken_.empty()) << "its user has been told";
}

TEST_F(Handed, IsForNobodyOnceTheFirstHasEnded) {
    std::optional<Instance> ending(std::in_place, "ending", folder_.Path());
    EXPECT_FALSE(ending->AnotherRuns());
    std::thread end([&] {
        std::this_thread::sleep_for(50ms);
        ending.reset();
    });
    Instance second("ending", folder_.Path());
    EXPECT_EQ(HandOver(second, Bytes(), kLong), HandedOver::NobodyRuns);
    end.join();
    EXPECT_FALSE(second.AnotherRuns()) << "it is the one that runs now";
}

TEST_F(Handed, WaitsForOneThatIsJustStarting) {
    listener_.reset();
    EXPECT_FALSE(fs::exists(first_.Socket()));
    std::atomic<bool> ended = false;
    HandedOver result = HandedOver::NotAnswered;
    std::thread client([&] {
        Instance second("", folder_.Path());
        result = HandOver(second, Bytes(), kLong);
        ended = true;
    });
    std::this_thread::sleep_for(50ms);
    listener_.emplace(first_.Socket());
    while (!ended) {
        Serve();
    }
    client.join();
    EXPECT_EQ(result, HandedOver::Taken);
}

TEST_F(Handed, IsNotTakenByOneThatIsToEnd) {
    takesAny_ = false;
    const UnixSocket refused = Connected();
    Send(refused, Bytes());
    refused.EndSending();
    Serve();
    EXPECT_TRUE(taken_.empty());
    EXPECT_FALSE(IsAnswered(refused));
    EXPECT_TRUE(IsClosed(refused));
    std::atomic<bool> ended = false;
    HandedOver result = HandedOver::NotAnswered;
    std::optional<Instance> ending(std::in_place, "ending", folder_.Path());
    EXPECT_FALSE(ending->AnotherRuns());
    listener_.emplace(ending->Socket());
    std::thread client([&] {
        Instance second("ending", folder_.Path());
        result = HandOver(second, Bytes(), kLong);
        ended = true;
    });
    for (int served = 0; served < 3;) {
        pollfd ready{listener_->Descriptor(), POLLIN, 0};
        served += ::poll(&ready, 1, 1) > 0 ? 1 : 0;
        Serve();
    }
    EXPECT_FALSE(ended) << "it waits for the end";
    listener_.reset();
    ending.reset();
    client.join();
    EXPECT_EQ(result, HandedOver::NobodyRuns);
    EXPECT_TRUE(taken_.empty());
}

TEST_F(Handed, ASocketThatACrashLeftIsReplaced) {
    const std::string left = folder_.Path() + "left.sock";
    {
        const UnixSocket crashed = UnixSocket::Listening(left);
        EXPECT_TRUE(crashed.IsOpen());
    }
    EXPECT_TRUE(fs::exists(left));
    EXPECT_FALSE(UnixSocket::ConnectedTo(left).IsOpen());
    const RequestListener listener(left);
    EXPECT_TRUE(UnixSocket::ConnectedTo(left).IsOpen());
}

TEST_F(Handed, TheSocketIsTheUsersAlone) {
    struct stat status {};
    ASSERT_EQ(::stat(first_.Socket().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, mode_t{0600});
}

TEST_F(Handed, NobodyIsHeardWhereThereCanBeNoSocket) {
    for (const std::string& path : {std::string(), folder_.Path() + "missing/a.sock",
                                    folder_.Path() + std::string(200, 'x')}) {
        RequestListener listener(path);
        EXPECT_EQ(listener.Descriptor(), -1);
        listener.Serve({[] { return true; }, [](const Request&) { FAIL(); }});
    }
}

// --- what is no later start ---

TEST_F(Handed, RubbishIsClosedWithoutAnAnswer) {
    std::mt19937 random(3);
    for (int i = 0; i < Rounds(2000); ++i) {
        const UnixSocket socket = Connected();
        std::vector<std::byte> bytes = Bytes();
        bytes.resize(random() % (2 * bytes.size()));
        for (auto flips = random() % 4; flips > 0 && !bytes.empty(); --flips) {
            bytes[random() % bytes.size()] = static_cast<std::byte>(random());
        }
        const bool isRequest = ReadRequest(bytes).has_value();
        Send(socket, bytes);
        socket.EndSending();
        taken_.clear();
        Serve();
        EXPECT_EQ(taken_.size(), isRequest ? 1U : 0U);
        EXPECT_EQ(IsAnswered(socket), isRequest);
        EXPECT_TRUE(IsClosed(socket));
    }
}

TEST_F(Handed, EndlessDataAreCutOff) {
    const UnixSocket socket = Connected();
    const std::vector<std::byte> block(65536, std::byte{'x'});
    std::size_t sent = 0;
    while (!IsClosed(socket)) {
        sent += socket.Send(block).count;
        Serve();
        ASSERT_LT(sent, 4 * kMostRequestBytes);
    }
    EXPECT_EQ(HandOverServed(kRequest), HandedOver::Taken);
}

TEST_F(Handed, ConnectionsThatAreHeldOpenMakeRoom) {
    std::vector<UnixSocket> held;
    for (std::size_t i = 0; i < 5 * RequestListener::kMostConnections; ++i) {
        held.push_back(Connected());
        Serve();
    }
    std::size_t open = 0;
    for (const UnixSocket& socket : held) {
        open += IsClosed(socket) ? 0U : 1U;
    }
    EXPECT_EQ(open, RequestListener::kMostConnections);
    EXPECT_EQ(HandOverServed(kRequest), HandedOver::Taken);
}

TEST_F(Handed, OneThatGoesAwayIsForgotten) {
    const std::vector<std::byte> bytes = Bytes();
    for (int i = 0; i < 100; ++i) {
        const UnixSocket socket = Connected();
        Send(socket, std::span(bytes).first(10));
    }
    Serve();
    EXPECT_TRUE(taken_.empty());
    EXPECT_EQ(HandOverServed(kRequest), HandedOver::Taken);
}

TEST_F(Handed, AnAnswerOfAnotherKindIsNone) {
    const std::string path = folder_.Path() + "scenara-odd.sock";
    Instance odd("odd", folder_.Path());
    EXPECT_FALSE(odd.AnotherRuns());
    const UnixSocket listening = UnixSocket::Listening(path);
    std::atomic<bool> ended = false;
    std::thread client([&] {
        Instance second("odd", folder_.Path());
        EXPECT_EQ(HandOver(second, Bytes(), 200ms), HandedOver::NotAnswered);
        ended = true;
    });
    while (!ended) {
        if (const UnixSocket socket = listening.Accept(); socket.IsOpen()) {
            const std::byte answer{'?'};
            static_cast<void>(socket.Send({&answer, 1}));
        }
    }
    client.join();
}

}  // namespace
}  // namespace scenara::test
