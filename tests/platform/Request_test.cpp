// SPDX-License-Identifier: MIT
#include "platform/Request.h"

#include <algorithm>
#include <cstddef>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Rounds.h"

namespace scenara::test {
namespace {

using Bytes = std::vector<std::byte>;

Bytes BytesOf(const std::string& text) {
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

// Marks and paths of random bytes, none of them zero.
Request RandomRequest(std::mt19937& random) {
    const auto text = [&](unsigned least, unsigned most, unsigned low, unsigned high) {
        std::string bytes(least + random() % (most - least + 1), ' ');
        for (char& c : bytes) {
            c = static_cast<char>(low + random() % (high - low + 1));
        }
        return bytes;
    };
    Request request{text(0, 40, '!', '~'), {}};
    for (auto count = 1 + random() % 5; count > 0; --count) {
        request.paths.push_back(text(1, 300, 1, 255));
    }
    return request;
}

TEST(Request, IsReadAsItWasMade) {
    std::mt19937 random(1);
    for (int i = 0; i < Rounds(5000); ++i) {
        const Request request = RandomRequest(random);
        const auto bytes = RequestBytes(request);
        ASSERT_TRUE(bytes);
        EXPECT_EQ(ReadRequest(*bytes), request);
    }
}

TEST(Request, IsNoneInPartOrWithMoreBehindIt) {
    Bytes bytes = *RequestBytes({"mark", {"/a.def", "/b"}});
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_FALSE(ReadRequest(std::span(bytes).first(length))) << length;
    }
    EXPECT_TRUE(ReadRequest(bytes));
    bytes.push_back(std::byte{0});
    EXPECT_FALSE(ReadRequest(bytes));
}

// What is read of it is within the bounds and gives the same bytes again.
void ExpectWholeOrNone(const Bytes& bytes) {
    const auto request = ReadRequest(bytes);
    if (!request) {
        return;
    }
    EXPECT_FALSE(request->paths.empty());
    EXPECT_LE(request->paths.size(), kMostRequestPaths);
    for (const std::string& path : request->paths) {
        EXPECT_FALSE(path.empty());
        EXPECT_EQ(path.find('\0'), std::string::npos);
    }
    for (const char c : request->mark) {
        EXPECT_TRUE(c > ' ' && c <= '~');
    }
    EXPECT_EQ(RequestBytes(*request), bytes);
}

TEST(Request, OfAnyBytesIsWholeOrNone) {
    std::mt19937 random(2);
    for (int i = 0; i < Rounds(20000); ++i) {
        Bytes bytes = *RequestBytes(RandomRequest(random));
        for (auto flips = 1 + random() % 3; flips > 0; --flips) {
            bytes[random() % std::min<std::size_t>(bytes.size(), 40)] =
                static_cast<std::byte>(random() % 4 == 0 ? 255 : random());
        }
        ExpectWholeOrNone(bytes);
        for (std::byte& byte : bytes) {
            byte = static_cast<std::byte>(random());
        }
        EXPECT_FALSE(ReadRequest(bytes)) << "no signature";
    }
}

TEST(Request, IsNoneOfOddCountsAndTexts) {
    const std::string head = "Scenara1";
    const auto number = [](unsigned value) {
        return std::string{static_cast<char>(value & 0xFFU), static_cast<char>(value >> 8U & 0xFFU),
                           static_cast<char>(value >> 16U & 0xFFU),
                           static_cast<char>(value >> 24U)};
    };
    const auto text = [&](const std::string& bytes) {
        return number(static_cast<unsigned>(bytes.size())) + bytes;
    };
    const struct {
        const char* what;
        std::string bytes;
        bool isRequest;
    } rows[] = {
        {"a good one", head + number(2) + text("") + text("/a"), true},
        {"nothing", "", false},
        {"another version", "Scenara2" + number(2) + text("") + text("/a"), false},
        {"no texts", head + number(0), false},
        {"no path", head + number(1) + text("mark"), true},
        {"more texts than it says", head + number(2) + text("") + text("/a") + text("/b"), false},
        {"fewer", head + number(3) + text("") + text("/a"), false},
        {"a number of texts beyond all bounds", head + number(0xFFFFFFFF) + text(""), false},
        {"a text beyond the end", head + number(2) + text("") + number(0xFFFFFFFF) + "/a", false},
        {"an empty path", head + number(2) + text("") + text(""), false},
        {"a zero in a path", head + number(2) + text("") + text(std::string("/\0a", 3)), false},
        {"a blank in the mark", head + number(2) + text("a b") + text("/a"), false},
        {"a letter beyond ASCII in it", head + number(2) + text("\xE9") + text("/a"), false},
        {"a mark that is too long", head + number(2) + text(std::string(513, 'm')) + text("/a"),
         false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ReadRequest(BytesOf(row.bytes)).has_value(), row.isRequest) << row.what;
    }
}

TEST(Request, HasTheFirstOfVeryManyPaths) {
    Request request{"", std::vector<std::string>(1000, "/a")};
    const auto bytes = RequestBytes(request);
    ASSERT_TRUE(bytes);
    request.paths.resize(kMostRequestPaths);
    EXPECT_EQ(ReadRequest(*bytes), request);
}

TEST(Request, OfSeveralThatWaitHasThePathsInTurn) {
    using Paths = std::vector<std::string>;
    const struct {
        Paths newer;
        Paths older;
        Paths inTurn;
    } rows[] = {
        {{"/a"}, {}, {"/a"}},
        {{}, {"/a"}, {"/a"}},
        {{"/b", "/a"}, {"/c", "/d"}, {"/b", "/a", "/c", "/d"}},
        {{"/b", "/a"}, {"/c", "/b", "/a"}, {"/b", "/a", "/c"}},
        {{"/a", "/b", "/a"}, {}, {"/a", "/b"}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(PathsInTurn(row.newer, row.older), row.inTurn);
    }
    Paths many;
    for (std::size_t i = 0; i < kMostRequestPaths; ++i) {
        many.push_back("/" + std::to_string(i));
    }
    Paths expected = many;
    expected.pop_back();
    expected.insert(expected.begin(), "/new");
    EXPECT_EQ(PathsInTurn({"/new"}, many), expected);
}

TEST(Request, MayHaveNoPath) {
    EXPECT_EQ(ReadRequest(*RequestBytes({"mark", {}})), (Request{"mark", {}}));
}

TEST(Request, IsSentWithoutAMarkThatCannotBe) {
    EXPECT_EQ(ReadRequest(*RequestBytes({"two words", {"/a"}})), (Request{"", {"/a"}}));
}

TEST(Request, IsNotMadeOfWhatCannotBeSent) {
    EXPECT_FALSE(RequestBytes({"", {""}}));
    EXPECT_FALSE(RequestBytes({"", {std::string(kMostRequestBytes, 'a')}}));
    EXPECT_FALSE(RequestBytes({"", std::vector<std::string>(64, std::string(5000, 'a'))}));
    EXPECT_TRUE(RequestBytes({"", {std::string(100000, 'a')}}));
}

}  // namespace
}  // namespace scenara::test
