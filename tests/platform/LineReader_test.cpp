// SPDX-License-Identifier: MIT
#include "platform/LineReader.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;
using Lines = std::vector<std::string>;

// A file in memory whose device fails where it is told to.
class TextFile : public InputFile {
public:
    explicit TextFile(std::string bytes, std::uint64_t failsFrom = ~std::uint64_t{0})
        : bytes_(std::move(bytes)), failsFrom_(failsFrom) {}

    [[nodiscard]] std::uint64_t Size() const override { return bytes_.size(); }

    std::size_t ReadAt(std::uint64_t position, std::span<std::byte> into) override {
        largestRead_ = std::max(largestRead_, into.size());
        if (position + into.size() > failsFrom_) {
            throw RunTimeError(RunTimeErrorKind::DeviceIo, "disk");
        }
        if (position >= bytes_.size()) {
            return 0;
        }
        const std::size_t count =
            std::min(into.size(), bytes_.size() - static_cast<std::size_t>(position));
        std::memcpy(into.data(), bytes_.data() + position, count);
        return count;
    }

    [[nodiscard]] std::size_t LargestRead() const { return largestRead_; }

private:
    std::string bytes_;
    std::uint64_t failsFrom_;
    std::size_t largestRead_ = 0;
};

Lines LinesOf(std::string_view text) {
    TextFile file{std::string(text)};
    LineReader reader(file);
    Lines lines;
    EXPECT_EQ(reader.Number(), 0) << "they count from 1";
    while (reader.Next()) {
        lines.emplace_back(reader.Line());
        EXPECT_EQ(reader.Number(), static_cast<std::int64_t>(lines.size()));
    }
    EXPECT_FALSE(reader.Next()) << "once at the end, always at the end";
    EXPECT_EQ(reader.Number(), static_cast<std::int64_t>(lines.size())) << "of the last line";
    return lines;
}

// The rule, one byte at a time.
Lines SimpleLinesOf(std::string_view text) {
    Lines lines;
    std::string line;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != '\r' && text[at] != '\n') {
            line.push_back(text[at]);
            if (at + 1 < text.size()) {
                continue;
            }
        } else if (text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n') {
            ++at;
        }
        lines.push_back(std::exchange(line, {}));
    }
    return lines;
}

// How many bytes the reader takes at a time.
std::size_t BlockSize() {
    TextFile file("x");
    const LineReader reader(file);
    return file.LargestRead();
}

TEST(LineReader, EndsLinesAtCrLfAtLfAndAtCr) {
    EXPECT_THAT(LinesOf("a\r\nb\r\n"), ElementsAre("a", "b"));
    EXPECT_THAT(LinesOf("a\nb\n"), ElementsAre("a", "b"));
    EXPECT_THAT(LinesOf("a\rb\r"), ElementsAre("a", "b"));
    EXPECT_THAT(LinesOf("a\r\nb\nc\rd\n\re\r\r\nf"),
                ElementsAre("a", "b", "c", "d", "", "e", "", "f"));
    EXPECT_THAT(LinesOf("a"), ElementsAre("a")) << "the last one needs no end";
    EXPECT_THAT(LinesOf("a\r\nb"), ElementsAre("a", "b"));
    EXPECT_THAT(LinesOf(""), IsEmpty());
    // Empty ones are lines, too.
    EXPECT_THAT(LinesOf("\n"), ElementsAre(""));
    EXPECT_THAT(LinesOf("\r"), ElementsAre(""));
    EXPECT_THAT(LinesOf("\r\n"), ElementsAre(""));
    EXPECT_THAT(LinesOf("\r\n\r\n"), ElementsAre("", ""));
    EXPECT_THAT(LinesOf("\r\r\n\n"), ElementsAre("", "", ""));
    EXPECT_THAT(LinesOf("\n\na"), ElementsAre("", "", "a"));
}

TEST(LineReader, SkipsAByteOrderMarkAtTheStartOnly) {
    EXPECT_THAT(LinesOf("\xEF\xBB\xBF[Info]\r\n"), ElementsAre("[Info]"));
    EXPECT_THAT(LinesOf("\xEF\xBB\xBF"), IsEmpty());
    EXPECT_THAT(LinesOf("\xEF\xBB\xBF\n"), ElementsAre(""));
    EXPECT_THAT(LinesOf("\xEF\xBB\xBF\xEF\xBB\xBFx"), ElementsAre("\xEF\xBB\xBFx"));
    EXPECT_THAT(LinesOf("a\n\xEF\xBB\xBFx"), ElementsAre("a", "\xEF\xBB\xBFx"));
    EXPECT_THAT(LinesOf("\xEF\xBB"), ElementsAre("\xEF\xBB"));
    EXPECT_THAT(LinesOf("\xEF\xBB\nx"), ElementsAre("\xEF\xBB", "x"));
}

TEST(LineReader, GivesBytesAsTheyStand) {
    std::string all;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') {
            all.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
        }
    }
    EXPECT_THAT(LinesOf(all + "\r\n" + all), ElementsAre(all, all));
    EXPECT_THAT(LinesOf("a\0b\n\0\n"sv), ElementsAre(std::string("a\0b"sv), std::string(1, '\0')));
    EXPECT_THAT(LinesOf("\x1Az\n\x85\x0B\x0C"), ElementsAre("\x1Az", "\x85\x0B\x0C"));
}

TEST(LineReader, EveryEndWorksAtEveryPlaceAroundTheEdgeOfABlock) {
    const std::size_t block = BlockSize();
    for (const std::string_view end :
         {"\r\n"sv, "\n"sv, "\r"sv, "\r\r\n"sv, "\n\r"sv, "\r\n\r\n"sv}) {
        for (std::size_t length = block - 5; length <= block + 2; ++length) {
            const std::string text = std::string(length, 'x').append(end).append("next");
            EXPECT_EQ(LinesOf(text), SimpleLinesOf(text)) << length - block << " from the edge";
            const std::string last = std::string(length, 'x').append(end);
            EXPECT_EQ(LinesOf(last), SimpleLinesOf(last)) << length - block << " from the edge";
        }
    }
}

TEST(LineReader, ALineFeedInTheNextBlockBelongsToItsCr) {
    const std::string line(BlockSize() - 1, 'x');
    EXPECT_THAT(LinesOf(line + "\r\nnext"), ElementsAre(line, "next"));
    EXPECT_THAT(LinesOf(line + "\r\n"), ElementsAre(line));
    EXPECT_THAT(LinesOf(line + "\r"), ElementsAre(line));
    EXPECT_THAT(LinesOf(line + "\r\n\nnext"), ElementsAre(line, "", "next"));
}

TEST(LineReader, GivesLinesThatAreLongerThanItsBlock) {
    const std::size_t block = BlockSize();
    for (const std::size_t length : {block, block + 1, 2 * block - 1, 2 * block, 5 * block + 7}) {
        std::string line(length, ' ');
        for (std::size_t at = 0; at < length; ++at) {
            line[at] = static_cast<char>('a' + at % 23);
        }
        EXPECT_TRUE(LinesOf("first\n" + line + "\r\nlast") == (Lines{"first", line, "last"}));
        EXPECT_TRUE(LinesOf(line) == Lines{line});
    }
}

TEST(LineReader, ReadsNoMoreThanABlockAtATime) {
    TextFile file(std::string(8 * BlockSize(), 'x'));
    LineReader reader(file);
    EXPECT_TRUE(reader.Next());
    EXPECT_EQ(file.LargestRead(), BlockSize());
    EXPECT_LE(BlockSize(), std::size_t{1} << 20U);
}

TEST(LineReader, AgreesWithTheRuleOnRandomTexts) {
    std::mt19937 random(1310);  // NOLINT(cert-msc51-cpp,bugprone-random-generator-seed)
    constexpr std::array<char, 4> kAlphabet = {'a', '\0', '\r', '\n'};
    for (int i = 0; i < 3000; ++i) {
        std::string text(random() % 12, ' ');
        for (char& c : text) {
            c = kAlphabet.at(random() % kAlphabet.size());
        }
        ASSERT_EQ(LinesOf(text), SimpleLinesOf(text));
        if (i % 30 == 0) {
            text.insert(0, std::string(BlockSize() - random() % 8, 'x'));
            ASSERT_EQ(LinesOf(text), SimpleLinesOf(text));
        }
    }
}

TEST(LineReader, AFailingDeviceRaises) {
    TextFile deadFromTheStart("a\nb\n", 0);
    EXPECT_THAT([&] { const LineReader reader(deadFromTheStart); },
                ThrowsMessage<RunTimeError>("Device I/O error: disk"));

    const std::size_t block = BlockSize();
    TextFile deadLater("a\n" + std::string(3 * block, 'x'), block);
    LineReader reader(deadLater);
    ASSERT_TRUE(reader.Next());
    EXPECT_EQ(reader.Line(), "a");
    EXPECT_THAT([&] { return reader.Next(); },
                ThrowsMessage<RunTimeError>("Device I/O error: disk"));
}

}  // namespace
}  // namespace scenara
