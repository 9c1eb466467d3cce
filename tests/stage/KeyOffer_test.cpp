// SPDX-License-Identifier: MIT
#include "stage/KeyOffer.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessMessages.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// One line as line 12 of a file, and what is said about it.
class Offered {
public:
    explicit Offered(std::string line) : text_(std::move(line)) {}

    KeyOffer& Offer() { return offer_; }

    [[nodiscard]] std::vector<std::string> Said() const {
        std::vector<std::string> texts;
        for (const Message& message : messages_.Recorded()) {
            texts.push_back(message.text);
        }
        return texts;
    }

private:
    std::string text_;
    HeadlessMessages messages_;
    KeyLine line_{std::string_view(text_)};
    KeyOffer offer_{line_, line_.Text(), 12, messages_, kPlainView};
};

TEST(KeyOffer, WholeStoresTheWholeValue) {
    Offered line("name = My Stage");
    std::string name;
    EXPECT_TRUE(line.Offer().Whole("name", name));
    EXPECT_EQ(name, "my stage");
}

TEST(KeyOffer, LineOfAnotherKeyChangesNothing) {
    Offered line("mask = 1");
    Integer layer = 7;
    Long x = 8;
    Long y = 9;
    EXPECT_FALSE(line.Offer().Whole("layerno", layer));
    EXPECT_EQ(line.Offer().Values("start", x, y), 0U);
    EXPECT_EQ(layer, 7);
    EXPECT_EQ(x, 8);
    EXPECT_EQ(y, 9);
    EXPECT_THAT(line.Said(), IsEmpty());
}

TEST(KeyOffer, ValuesTellWhichWereGiven) {
    Long a = -1;
    Long b = -1;
    Long c = -1;
    EXPECT_EQ(Offered("k = 5, 6, 7").Offer().Values("k", a, b, c), 0b111U);
    EXPECT_EQ(Offered("k = 5, 6").Offer().Values("k", a, b, c), 0b011U);
    EXPECT_EQ(Offered("k = 5").Offer().Values("k", a, b, c), 0b001U);
    EXPECT_EQ(Offered("k = 5, .").Offer().Values("k", a, b, c), 0b001U);
    EXPECT_EQ(Offered("k = 5, 99999999999, 7").Offer().Values("k", a, b, c), 0b101U);
}

TEST(KeyOffer, ValuesGoIntoTheirFieldsInOrder) {
    Offered line("k = 1.5, 2.5");
    Single first = 0;
    Integer second = 0;
    Long third = 9;
    line.Offer().Values("k", first, second, third);
    EXPECT_EQ(first, 1.5F);
    EXPECT_EQ(second, 2);
    EXPECT_EQ(third, 9);
}

TEST(KeyOffer, OneValueAlone) {
    Long second = 0;
    EXPECT_TRUE(Offered("k = 5, 6").Offer().Value("k", 2, second));
    EXPECT_EQ(second, 6);
    EXPECT_FALSE(Offered("k = 5, 6").Offer().Value("k", 3, second));
}

// What does not fit

TEST(KeyOffer, ValueThatDoesNotFitIsReportedOnceWithKeyAndLine) {
    Offered line("layerno = 40000");
    Integer layer = 7;
    EXPECT_FALSE(line.Offer().Whole("layerno", layer));
    EXPECT_EQ(layer, 7);
    EXPECT_THAT(line.Said(), ElementsAre("Overflow: layerno, line 12"));
}

TEST(KeyOffer, SingleValueOfSeveralThatDoesNotFitIsReportedOnce) {
    Offered line("start = 3000000000");
    Long x = 7;
    Long y = 8;
    EXPECT_EQ(line.Offer().Values("start", x, y), 0U);
    EXPECT_EQ(x, 7);
    EXPECT_EQ(y, 8);
    EXPECT_THAT(line.Said(), ElementsAre("Overflow: start, line 12"));
}

TEST(KeyOffer, TellsAValueThatDoesNotFitFromAnAbsentOne) {
    Offered line("k = 5, 99999999999");
    Long value = 0;
    EXPECT_FALSE(line.Offer().Value("k", 2, value));
    EXPECT_TRUE(line.Offer().WasTooLarge());
    EXPECT_FALSE(line.Offer().Value("k", 3, value));
    EXPECT_FALSE(line.Offer().WasTooLarge());
    EXPECT_TRUE(line.Offer().Value("k", 1, value));
    EXPECT_FALSE(line.Offer().WasTooLarge());
}

TEST(KeyOffer, ValuesBesideTheOneThatDoesNotFitAreStored) {
    Offered line("spriteno = 40000, 40000");
    Long group = 7;
    Integer image = 8;
    line.Offer().Values("spriteno", group, image);
    EXPECT_EQ(group, 40000);
    EXPECT_EQ(image, 8);
    EXPECT_THAT(line.Said(), ElementsAre("Overflow: spriteno, line 12"));
}

TEST(KeyOffer, BareValueThatDoesNotFitIsOneOfAFrame) {
    Offered line("0, 40000, 1");
    Long group = 7;
    Integer image = 8;
    Integer x = 9;
    line.Offer().Values(kBareValues, group, image, x);
    EXPECT_EQ(image, 8);
    EXPECT_EQ(x, 1);
    EXPECT_THAT(line.Said(), ElementsAre("Overflow: frame, line 12"));
}

TEST(KeyOffer, SayOverflowIsAPlainBox) {
    HeadlessMessages messages;
    messages.SayOverflow(kMessageOverflow, "delta", {3'000'000'000});
    ASSERT_EQ(messages.Recorded().size(), 1U);
    const Message& message = messages.Recorded().front();
    EXPECT_EQ(message.text, "Overflow: delta, line 3000000000");
    EXPECT_EQ(message.kind, kMessageOverflow);
    EXPECT_EQ(message.title, "");
    EXPECT_EQ(message.icon, MessageIcon::None);
}

// Lists

std::vector<Long> ListOf(const std::string& line, std::vector<Long> before = {}) {
    Offered(line).Offer().List("ctrlid", before);
    return before;
}

TEST(KeyOffer, ListHoldsTheNumbersInOrder) {
    EXPECT_THAT(ListOf("ctrlid = 5"), ElementsAre(5));
    EXPECT_THAT(ListOf("ctrlid = 5, -1, 70000"), ElementsAre(5, -1, 70000));
}

TEST(KeyOffer, ListHoldsTenNumbersAtMost) {
    EXPECT_THAT(ListOf("ctrlid = 1,2,3,4,5,6,7,8,9,10"),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
    EXPECT_THAT(ListOf("ctrlid = 1,2,3,4,5,6,7,8,9,10,11,12"),
                ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10));
}

TEST(KeyOffer, ListReplacesTheOneBefore) {
    EXPECT_THAT(ListOf("ctrlid = 5, 6", {1, 2, 3}), ElementsAre(5, 6));
}

TEST(KeyOffer, LineWithoutListKeepsTheOneBefore) {
    EXPECT_THAT(ListOf("looptime = 5", {1, 2, 3}), ElementsAre(1, 2, 3));
    EXPECT_THAT(ListOf("ctrlidx = 5", {1, 2, 3}), ElementsAre(1, 2, 3));
}

TEST(KeyOffer, ListEndsAtAnEmptyLastValue) {
    EXPECT_THAT(ListOf("ctrlid = 5, 6,"), ElementsAre(5, 6));
}

TEST(KeyOffer, EmptyValuesAreLeftOutOfAList) {
    EXPECT_THAT(ListOf("ctrlid = 5, , 7"), ElementsAre(5, 7));
    EXPECT_THAT(ListOf("ctrlid =", {1, 2}), ElementsAre(1, 2));
    // They count among the ten.
    EXPECT_THAT(ListOf("ctrlid = 1,,,,,,,,,10,11"), ElementsAre(1, 10));
}

TEST(KeyOffer, AnEmptyFirstValueOfAListIs0) {
    EXPECT_THAT(ListOf("ctrlid = ,5"), ElementsAre(0, 5));
    EXPECT_THAT(ListOf("ctrlid = ,", {1, 2}), ElementsAre(0));
}

TEST(KeyOffer, ZeroIsAnId) {
    EXPECT_THAT(ListOf("ctrlid = 0"), ElementsAre(0));
    EXPECT_THAT(ListOf("ctrlid = 5, 0, 7"), ElementsAre(5, 0, 7));
}

TEST(KeyOffer, NumberThatDoesNotFitIsLeftOutOfItsList) {
    Offered line("ctrlid = 5, 99999999999, 7");
    std::vector<Long> ids;
    line.Offer().List("ctrlid", ids);
    EXPECT_THAT(ids, ElementsAre(5, 7));
    EXPECT_THAT(line.Said(), ElementsAre("Overflow: ctrlid, line 12"));
}

TEST(KeyOffer, ListOfNothingThatFitsKeepsTheOneBefore) {
    EXPECT_THAT(ListOf("ctrlid = 99999999999", {1, 2}), ElementsAre(1, 2));
}

}  // namespace
}  // namespace scenara::test
