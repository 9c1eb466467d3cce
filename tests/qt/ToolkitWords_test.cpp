// SPDX-License-Identifier: MIT
#include "platform/qt/ToolkitWords.h"

#include <QApplication>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/Rounds.h"

namespace scenara::test {
namespace {

using Words = std::vector<std::string>;

// What the toolkit leaves of them as it starts.
Words LeftByTheToolkit(Words words) {
    words.insert(words.begin(), "program");
    std::vector<char*> arguments;
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);
    int count = static_cast<int>(words.size());
    const QApplication application(count, arguments.data());
    const auto left = std::span(arguments).first(static_cast<std::size_t>(count)).subspan(1);
    return {left.begin(), left.end()};
}

TEST(ToolkitWords, OfAnyKindAreThoseThatItTakes) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const Words parts[] = {{"a.def"},
                           {""},
                           {"-"},
                           {"--"},
                           {"--bogus"},
                           {"-x"},
                           {"reverse"},
                           {"-reverse"},
                           {"--reverse"},
                           {"---reverse"},
                           {"-Reverse"},
                           {"-reversed"},
                           {"-platform", "offscreen"},
                           {"--platform", "offscreen"},
                           {"-platformtheme", "none"},
                           {"-qwindowtitle", "a.def"},
                           {"-qwindowicon", "--bogus"},
                           {"-qwindowgeometry", "30x20"},
                           {"-session", "none"},
                           {"-style", "fusion"},
                           {"-style=fusion"},
                           {"-stylesheet", "/gone.qss"},
                           {"--stylesheet=/gone.qss"},
                           {"-qdebug"},
                           {"-qdevel"}};
    std::mt19937 random(5);
    for (int i = 0; i < Rounds(200); ++i) {
        Words words;
        for (auto count = random() % 6; count > 0; --count) {
            const Words& part = parts[random() % std::size(parts)];
            words.insert(words.end(), part.begin(), part.end());
        }
        std::string text;
        for (const std::string& word : words) {
            text += "[" + word + "]";
        }
        EXPECT_EQ(WithoutToolkitWords(words), LeftByTheToolkit(words)) << text;
    }
    for (const char* const last :
         {"-qwindowtitle", "-platform", "-style", "-stylesheet", "-session"}) {
        EXPECT_EQ(WithoutToolkitWords({"a", last}), LeftByTheToolkit({"a", last})) << last;
    }
}

TEST(ToolkitWords, OfAnXDisplayAreTakenToo) {
    for (const char* const option : {"-display", "-geometry", "-icon", "-title", "-name", "-visual",
                                     "-plugin", "-platformpluginpath", "-platformtheme"}) {
        EXPECT_EQ(WithoutToolkitWords({"a", option, "--bogus", "b"}), (Words{"a", "b"})) << option;
    }
    for (const char* const option : {"-nograb", "-dograb", "-widgetcount", "-testability",
                                     "-qmljsdebugger", "-qmljsdebugger=port:1"}) {
        EXPECT_EQ(WithoutToolkitWords({"a", option, "--bogus"}), (Words{"a", "--bogus"})) << option;
    }
}

}  // namespace
}  // namespace scenara::test
