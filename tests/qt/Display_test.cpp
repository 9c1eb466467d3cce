// SPDX-License-Identifier: MIT
//
// Whether there is a display, before the toolkit is asked.
#include "platform/qt/Display.h"

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "platform/posix/ProgramFolder.h"

namespace scenara::test {
namespace {

// Something that waits for connections at that path, or did so.
class Listener {
public:
    explicit Listener(const std::string& path) : socket_(::socket(AF_UNIX, SOCK_STREAM, 0)) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(::bind(socket_, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(::listen(socket_, 9), 0);
    }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener() { End(); }

    // The path stays.
    void End() {
        if (socket_ >= 0) {
            ::close(socket_);
            socket_ = -1;
        }
    }

private:
    int socket_;
};

struct Case {
    const char* name;
    const char* platform;  // QT_QPA_PLATFORM
    // WAYLAND_DISPLAY; what begins with '@' lies in a folder with a listener at "one" and at
    // "wayland-0", a plain file "file", and "gone", where nobody listens any more.
    const char* wayland;
    const char* runtime;  // XDG_RUNTIME_DIR, with '@' as well
    bool hasDisplay;
    std::vector<std::string> words = {};  // of the command line
};

const std::string kLong(500, 'x');

const Case kCases[] = {
    {"nothing", "", "", "", false},
    {"absolute", "", "@one", "", true},
    {"absolute beside another folder", "", "@one", "/nowhere", true},
    {"in the run-time folder", "", "one", "@", true},
    {"by itself", "", "", "@", true},
    {"by itself, in another folder", "", "", "/nowhere", false},
    {"the run-time folder is relative", "", "one", "tmp", false},
    {"not there", "", "two", "@", false},
    {"a file", "", "file", "@", false},
    {"nobody listens", "", "gone", "@", false},
    {"a folder", "", "@", "", false},
    {"too long", "", kLong.c_str(), "@", false},
    {"asked for X", "xcb", "one", "@", false},
    {"asked for Wayland", "wayland", "one", "@", true},
    {"asked for a kind of Wayland", "wayland-egl", "one", "@", true},
    {"asked for Wayland, not there", "wayland", "two", "@", false},
    {"asked for X, else Wayland", "xcb;wayland", "one", "@", true},
    {"asked for Wayland, else X, neither is there", "wayland;xcb", "two", "@", false},
    {"asked for none", "offscreen", "", "", true},
    {"asked for Wayland, else none", "wayland;offscreen", "two", "@", true},
    {"a word asks for none", "", "", "", true, {"a.def", "-platform", "offscreen"}},
    {"a word with two hyphens", "", "", "", true, {"--platform", "minimal"}},
    {"a word has more to say", "", "", "", true, {"-platform", "offscreen:configfile=x"}},
    {"a word comes before the variable", "xcb", "", "", true, {"-platform", "offscreen"}},
    {"a word asks for X", "offscreen", "one", "@", false, {"-platform", "xcb"}},
    {"a word asks for Wayland", "xcb", "one", "@", true, {"-platform", "wayland"}},
    {"the last word counts",
     "",
     "",
     "",
     false,
     {"-platform", "offscreen", "-platform", "xcb", "a.def"}},
    {"a word without a name", "", "", "", false, {"-platform"}},
    {"another word", "", "", "", false, {"-platformtheme", "offscreen"}},
    {"a word names X's display, which is not there", "", "", "", false, {"-display", ":4094"}},
    {"a file of that name", "", "", "", false, {"platform", "offscreen"}},
};

class DisplayTest : public testing::Test {
protected:
    DisplayTest() : gone_(folder_.Path() + "gone") {
        gone_.End();
        std::ofstream(folder_.Path() + "file") << "no socket\n";
    }
    ~DisplayTest() override {
        for (const char* const name :
             {"QT_QPA_PLATFORM", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR", "DISPLAY"}) {
            ::unsetenv(name);
        }
    }

    void Set(const char* name, const std::string& value) const {
        if (value.empty()) {
            ::unsetenv(name);
        } else {
            ::setenv(name, (value[0] == '@' ? folder_.Path() + value.substr(1) : value).c_str(), 1);
        }
    }

private:
    TemporaryFolder folder_;
    Listener one_{folder_.Path() + "one"};
    Listener usual_{folder_.Path() + "wayland-0"};
    Listener gone_;
};

TEST_F(DisplayTest, IsFound) {
    for (const Case& test : kCases) {
        ::setenv("DISPLAY", ":4095", 1);
        Set("QT_QPA_PLATFORM", test.platform);
        Set("WAYLAND_DISPLAY", test.wayland);
        Set("XDG_RUNTIME_DIR", test.runtime);
        EXPECT_EQ(HasDisplay(test.words), test.hasDisplay) << test.name;
    }
}

// By itself it would take X for granted where Wayland's display has its usual name.
TEST_F(DisplayTest, TheToolkitIsToldWhereItIs) {
    ::setenv("DISPLAY", ":4095", 1);
    Set("QT_QPA_PLATFORM", "");
    Set("WAYLAND_DISPLAY", "");
    Set("XDG_RUNTIME_DIR", "@");
    ASSERT_TRUE(HasDisplay({}));
    EXPECT_STREQ(std::getenv("QT_QPA_PLATFORM"), "wayland");
}

}  // namespace
}  // namespace scenara::test
