// SPDX-License-Identifier: MIT
#include "desktop/VirtualDisplay.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace scenara::test {
namespace {

using namespace std::chrono_literals;

std::string Contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::uint32_t BigEndian(const std::string& bytes, std::size_t at) {
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        value = value << 8U | static_cast<unsigned char>(bytes.at(at + i));
    }
    return value;
}

// An X window dump of 24 or 32 bits a pixel, blue, green, red, as a virtual server makes it.
Screenshot ReadDump(const std::string& dump) {
    constexpr std::size_t kColourSize = 12;
    Screenshot shot;
    shot.width = static_cast<int>(BigEndian(dump, 16));
    shot.height = static_cast<int>(BigEndian(dump, 20));
    const std::size_t pixelBytes = BigEndian(dump, 44) / 8;
    const std::size_t lineBytes = BigEndian(dump, 48);
    const std::size_t start = BigEndian(dump, 0) + BigEndian(dump, 76) * kColourSize;
    if (dump.size() < start + static_cast<std::size_t>(shot.height) * lineBytes) {
        return {};
    }
    shot.rgb.resize(static_cast<std::size_t>(shot.width) * static_cast<std::size_t>(shot.height));
    std::uint32_t* pixel = shot.rgb.data();
    for (int y = 0; y < shot.height; ++y) {
        const char* from = dump.data() + start + static_cast<std::size_t>(y) * lineBytes;
        for (int x = 0; x < shot.width; ++x, from += pixelBytes) {
            std::memcpy(pixel++, from, 3);
        }
    }
    return shot;
}

}  // namespace

bool Eventually(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + 30s;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(50ms);
    }
    return true;
}

Child::Child(const std::vector<std::string>& command, const std::vector<std::string>& environment,
             const std::string& outputFile) {
    pid_ = ::fork();
    if (pid_ != 0) {
        return;
    }
    ::setpgid(0, 0);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGPIPE}) {
        std::signal(signal, SIG_DFL);  // a test in the background ignores some
    }
    const int output = ::open(outputFile.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::dup2(output, STDOUT_FILENO);
    ::dup2(output, STDERR_FILENO);
    for (const std::string& variable : environment) {
        ::putenv(const_cast<char*>(variable.c_str()));  // NOLINT: what the call wants
    }
    std::vector<char*> words;
    for (const std::string& word : command) {
        words.push_back(const_cast<char*>(word.c_str()));  // NOLINT: what the call wants
    }
    words.push_back(nullptr);
    ::execvp(words[0], words.data());
    ::_exit(127);
}

Child::~Child() {
    if (pid_ > 0) {
        ::kill(-pid_, SIGKILL);
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }
}

void Child::TakePriorityBack() const {
    if (pid_ > 0) {
        static_cast<void>(::setpriority(PRIO_PROCESS, static_cast<id_t>(pid_), 0));
    }
}

void Child::Send(int signal) const {
    if (pid_ > 0) {
        ::kill(-pid_, signal);
    }
}

bool Child::HasOpen(const std::string& pathEnd) const {
    std::error_code error;
    const std::string folder = "/proc/" + std::to_string(pid_) + "/fd";
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        const std::string path = std::filesystem::read_symlink(entry.path(), error).string();
        if (path.ends_with(pathEnd)) {
            return true;
        }
    }
    return false;
}

std::optional<int> Child::StatusNow() {
    int status = 0;
    TakePriorityBack();
    if (pid_ <= 0 || ::waitpid(pid_, &status, WNOHANG) != pid_) {
        return std::nullopt;
    }
    pid_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::optional<int> Child::ExitStatus() {
    std::optional<int> status;
    static_cast<void>(Eventually([&] { return (status = StatusNow()).has_value(); }));
    return status;
}

std::uint32_t Screenshot::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= width || y >= height) {
        throw std::out_of_range("outside of the screen");
    }
    return rgb[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
               static_cast<std::size_t>(x)];
}

VirtualDisplay::VirtualDisplay(Manager manager) : kind_(manager) {
    const std::string answer = Folder() + "display";
    // The server chooses a free number and writes it to the file.
    server_.emplace(std::vector<std::string>{"sh", "-c",
                                             "exec Xvfb -displayfd 3 -screen 0 1024x768x24 "
                                             "-noreset -nolisten tcp 3>" +
                                                 answer},
                    std::vector<std::string>{}, Folder() + "server.txt");
    if (!Eventually([&] { return Contents(answer).find('\n') != std::string::npos; })) {
        throw std::runtime_error("no virtual display: " + Contents(Folder() + "server.txt"));
    }
    const std::string number = Contents(answer);
    name_.assign(1, ':').append(number, 0, number.find('\n'));
    StartManager();
    if (!Eventually([&] { return ManagerIsReady(); })) {
        throw std::runtime_error("no window manager: " + Contents(Folder() + "manager.txt"));
    }
}

std::vector<std::string> VirtualDisplay::Environment() const {
    std::vector<std::string> variables = {"DISPLAY=" + name_, "XDG_RUNTIME_DIR=" + Folder(),
                                          "QT_QPA_PLATFORM=xcb"};
    if (kind_ == Manager::Weston) {
        variables.back() = "QT_QPA_PLATFORM=wayland";
        variables.emplace_back("WAYLAND_DISPLAY=wayland");
    }
    return variables;
}

void VirtualDisplay::StartManager() {
    const std::string configuration = Folder() + "manager.conf";
    std::vector<std::string> command;
    switch (kind_) {
        case Manager::Openbox: command = {"openbox", "--sm-disable"}; break;
        case Manager::I3:
            std::ofstream(configuration) << "font pango:monospace 8\n";
            command = {"i3", "-c", configuration};
            break;
        case Manager::Weston:
            // Its key for maximising is Super+Shift+M. A key that is held does not repeat: the
            // second Alt+S of a slow machine would shut the menu that the first one opened.
            std::ofstream(configuration)
                << "[shell]\npanel-position=none\nlocking=false\nanimation=none\n"
                   "startup-animation=none\n[keyboard]\nrepeat-rate=0\n";
            command = {"weston",           "--backend=x11-backend.so",
                       "--use-pixman",     "--width=1024",
                       "--height=768",     "--idle-time=0",
                       "--socket=wayland", "--config=" + configuration};
            break;
    }
    manager_.emplace(command, Environment(), Folder() + "manager.txt");
}

// A window that comes up while the manager does is left out by it, and never seen. Openbox says who
// it is long before it takes windows in; what it is asked for it does when it has.
bool VirtualDisplay::ManagerIsReady() const {
    switch (kind_) {
        case Manager::Openbox:
            Do("set_num_desktops 1");  // it comes up with more
            return Do("get_num_desktops") == "1";
        case Manager::I3:
            return Property("-root", "_NET_SUPPORTING_WM_CHECK").find("window id") !=
                   std::string::npos;
        case Manager::Weston: return std::filesystem::exists(Folder() + "wayland");
    }
    return false;
}

std::string VirtualDisplay::Property(const std::string& window, const std::string& name) const {
    const std::string answer = Folder() + "property.txt";
    const std::string ask =
        "DISPLAY=" + name_ + " xprop " + window + " " + name + " >" + answer + " 2>/dev/null";
    static_cast<void>(std::system(ask.c_str()));
    return Contents(answer);
}

bool VirtualDisplay::IsDialog(const std::string& window) const {
    return Property("-id " + window, "_NET_WM_WINDOW_TYPE").find("TYPE_DIALOG") !=
           std::string::npos;
}

std::string VirtualDisplay::Answer(const std::string& words) const {
    const std::string answer = Folder() + "answer.txt";
    const std::string command =
        "DISPLAY=" + name_ + " xdotool " + words + " >" + answer + " 2>/dev/null";
    static_cast<void>(std::system(command.c_str()));
    return Contents(answer);
}

std::string VirtualDisplay::Do(const std::string& words) const {
    const std::string text = Answer(words);
    return text.substr(0, text.find('\n'));
}

std::string VirtualDisplay::AllWindows() const {
    const std::string list = Folder() + "windows.txt";
    static_cast<void>(std::system(("DISPLAY=" + name_ + " xwininfo -root -tree >" + list).c_str()));
    return Contents(list) + Contents(Folder() + "program.txt") + Contents(Folder() + "manager.txt");
}

Screenshot VirtualDisplay::Look() const {
    const std::string dump = Folder() + "screen.xwd";
    const std::string command = "DISPLAY=" + name_ + " xwd -root -silent -out " + dump;
    if (std::system(command.c_str()) != 0) {
        return {};
    }
    return ReadDump(Contents(dump));
}

}  // namespace scenara::test
