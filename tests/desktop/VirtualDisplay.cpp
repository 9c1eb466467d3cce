// SPDX-License-Identifier: MIT
#include "desktop/VirtualDisplay.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>

#include <rapidjson/document.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

// A section that is there takes the place of all that Openbox has by itself.
constexpr const char* kHarmless =
    R"(<?xml version="1.0"?><openbox_config xmlns="http://openbox.org/3.4/rc">
<focus><focusNew>yes</focusNew></focus><desktops><number>1</number></desktops>
<keyboard><keybind key="A-F4"><action name="Close"/></keybind></keyboard>
<mouse><context name="Client"><mousebind button="Left" action="Press">
<action name="Focus"/><action name="Raise"/></mousebind></context>
<context name="Titlebar"><mousebind button="Left" action="Press">
<action name="Focus"/><action name="Raise"/></mousebind></context></mouse>
</openbox_config>)";
constexpr const char* kCornered =
    R"(<?xml version="1.0"?><openbox_config xmlns="http://openbox.org/3.4/rc">
<placement><policy>Smart</policy><center>no</center></placement></openbox_config>)";

std::string Contents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::string Hex(std::uint32_t color) {
    std::ostringstream text;
    text << std::hex << color;
    return text.str();
}

// The number that follows such words.
std::optional<int> NumberAfter(const std::string& text, const std::string& words) {
    const std::size_t at = text.find(words);
    return at == std::string::npos ? std::nullopt
                                   : std::optional(std::atoi(text.c_str() + at + words.size()));
}

// The windows below a node of Sway's tree.
void CollectWindows(const rapidjson::Value& node, std::vector<ShownWindow>& windows) {
    if (node.HasMember("pid") && node.HasMember("app_id") && node["name"].IsString()) {
        const rapidjson::Value& outer = node["rect"];
        const rapidjson::Value& inner = node["window_rect"];
        windows.push_back(
            {node["name"].GetString(),
             {outer["x"].GetInt() + inner["x"].GetInt(), outer["y"].GetInt() + inner["y"].GetInt(),
              inner["width"].GetInt(), inner["height"].GetInt()}});
    }
    for (const char* const kind : {"nodes", "floating_nodes"}) {
        for (const rapidjson::Value& below : node[kind].GetArray()) {
            CollectWindows(below, windows);
        }
    }
}

using Connection = std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)>;

xcb_atom_t Atom(xcb_connection_t* display, const std::string& name) {
    const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(
            display,
            xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data()),
            nullptr),
        &std::free);
    return reply && !name.empty() ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

std::string NameOf(Manager manager) {
    switch (manager) {
        case Manager::Openbox: return "Openbox";
        case Manager::I3: return "I3";
        case Manager::Weston: return "Weston";
        case Manager::Sway: return "Sway";
    }
    return {};
}

VirtualDisplay::VirtualDisplay(const DisplaySetup& setup) : setup_(setup) {
    if (setup_.manager == Manager::Sway) {
        StartSway();
    } else {
        StartServer();
        StartManager();
    }
    if (!Eventually([&] { return ManagerIsReady(); })) {
        throw std::runtime_error("no window manager: " + Contents(Folder() + "manager.txt"));
    }
    SettleKeys();
    if (setup_.manager == Manager::Weston) {
        PlaceMonitors();
    }
    if (setup_.manager == Manager::Sway) {
        // Without any keyboard a window would lose the focus after each key, and its menus with it.
        keyboard_.emplace(std::vector<std::string>{"wtype", "-s", "1000000000", "-k", "a"},
                          Environment(), Folder() + "keyboard.txt");
    }
}

void VirtualDisplay::StartServer() {
    const std::string answer = Folder() + "display";
    const std::string size = std::to_string(setup_.width * setup_.monitors) + "x" +
                             std::to_string(setup_.height) + "x24";
    // The server chooses a free number and writes it to the file.
    server_.emplace(std::vector<std::string>{"sh", "-c",
                                             "exec Xvfb -displayfd 3 -screen 0 " + size +
                                                 " -noreset -nolisten tcp 3>" + answer},
                    std::vector<std::string>{}, Folder() + "server.txt");
    if (!Eventually([&] { return Contents(answer).find('\n') != std::string::npos; })) {
        throw std::runtime_error("no virtual display: " + Contents(Folder() + "server.txt"));
    }
    const std::string number = Contents(answer);
    name_.assign(1, ':').append(number, 0, number.find('\n'));
    if (setup_.manager == Manager::Weston) {
        return;  // it has monitors of its own
    }
    const std::string place =
        " " + std::to_string(setup_.width) + "/300x" + std::to_string(setup_.height) + "/200+";
    for (int i = 0; setup_.monitors > 1 && i < setup_.monitors; ++i) {
        static_cast<void>(Run("xrandr --setmonitor monitor" + std::to_string(i) + place +
                              std::to_string(i * setup_.width) + "+0 " +
                              (i == 0 ? "screen" : "none")));
    }
}

std::vector<std::string> VirtualDisplay::Environment() const {
    if (setup_.manager == Manager::Sway) {
        return {"DISPLAY", "QT_QPA_PLATFORM", "XDG_SESSION_TYPE", "XDG_RUNTIME_DIR=" + Folder(),
                "WAYLAND_DISPLAY=wayland"};
    }
    std::vector<std::string> variables = {"DISPLAY=" + name_, "XDG_RUNTIME_DIR=" + Folder(),
                                          "QT_QPA_PLATFORM=xcb"};
    if (setup_.manager == Manager::Weston) {
        variables.back() = "QT_QPA_PLATFORM=wayland";
        variables.emplace_back("WAYLAND_DISPLAY=wayland");
    } else {
        variables.emplace_back("WAYLAND_DISPLAY");
    }
    return variables;
}

void VirtualDisplay::StartManager() {
    const std::string configuration = Folder() + "manager.conf";
    std::vector<std::string> command;
    switch (setup_.manager) {
        case Manager::Openbox:
            command = {"openbox", "--sm-disable"};
            if (setup_.harmless || !setup_.centres) {
                std::ofstream(configuration) << (setup_.harmless ? kHarmless : kCornered);
                command.insert(command.end(), {"--config-file", configuration});
            }
            break;
        case Manager::I3:
            std::ofstream(configuration) << "font pango:monospace 8\n";
            command = {"i3", "-c", configuration};
            break;
        case Manager::Weston:
            // Its key for maximising is Super+Shift+M. A key that is held does not repeat: the
            // second Alt+S of a slow machine would shut the menu that the first one opened.
            // Its pointer is a part of what it shows, and may stay where it is lost at first: in
            // the corner.
            Do("mousemove 0 0");
            std::ofstream(configuration)
                << "[shell]\npanel-position=none\nlocking=false\nanimation=none\n"
                   "startup-animation=none\nbackground-color=0xff"
                << Hex(kBackground) << "\n[keyboard]\nrepeat-rate=0\n";
            command = {"weston",
                       "--backend=x11-backend.so",
                       "--use-pixman",
                       "--width=" + std::to_string(setup_.width / setup_.scale),
                       "--height=" + std::to_string(setup_.height / setup_.scale),
                       "--output-count=" + std::to_string(setup_.monitors),
                       "--scale=" + std::to_string(setup_.scale),
                       "--idle-time=0",
                       "--socket=wayland",
                       "--config=" + configuration};
            break;
        case Manager::Sway: return;  // StartSway
    }
    manager_.emplace(command, Environment(), Folder() + "manager.txt");
}

bool VirtualDisplay::KeepManager() {
    if (!manager_->StatusNow()) {
        return false;
    }
    StartManager();
    return true;
}

// It does not run as root: a user who owns nothing runs it then, in a folder that anyone may write.
// Its own names for its sockets have numbers in them.
void VirtualDisplay::StartSway() {
    const std::string folder = Folder() + "sway/";
    fs::create_directories(folder);
    std::ofstream configuration(folder + "config");
    configuration << "xwayland disable\nfocus_follows_mouse no\ndefault_border none\n"
                     "default_floating_border none\noutput * bg #"
                  << Hex(kBackground) << " solid_color\n";
    for (int i = 0; i < setup_.monitors; ++i) {
        configuration << "output HEADLESS-" << i + 1 << " resolution " << setup_.width << "x"
                      << setup_.height << " position " << i * setup_.width / setup_.scale
                      << " 0 scale " << setup_.scale << "\n";
    }
    configuration.close();
    std::vector<std::string> command = {"sway", "-c", folder + "config"};
    if (::geteuid() == 0) {
        fs::permissions(Folder(),
                        fs::perms::owner_all | fs::perms::group_exec | fs::perms::others_exec);
        fs::permissions(folder, fs::perms::all);
        const std::vector<std::string> other = {"setpriv", "--reuid=65534", "--regid=65534",
                                                "--clear-groups"};
        command.insert(command.begin(), other.begin(), other.end());
    }
    fs::create_symlink(folder + "wayland-1", Folder() + "wayland");
    manager_.emplace(
        command,
        std::vector<std::string>{
            "DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR=" + folder, "SWAYSOCK=" + folder + "ipc",
            "HOME=" + folder, "WLR_BACKENDS=headless", "WLR_RENDERER=pixman",
            "WLR_LIBINPUT_NO_DEVICES=1", "WLR_HEADLESS_OUTPUTS=" + std::to_string(setup_.monitors)},
        Folder() + "manager.txt");
}

// Without a window manager all of Weston's windows, a monitor each, stand at the same place.
void VirtualDisplay::PlaceMonitors() const {
    for (int i = 0; i < setup_.monitors; ++i) {
        const std::string title = "\"Weston Compositor - screen" + std::to_string(i) + '"';
        std::string found;
        if (!Eventually([&] {
                found = Run("xwininfo -name " + title);
                return found.find("Width:") != std::string::npos;
            })) {
            throw std::runtime_error("no monitor: " + Contents(Folder() + "manager.txt"));
        }
        const std::string id = found.substr(found.find("0x"), found.find(" \"") - found.find("0x"));
        Do("windowmove " + id + " " + std::to_string(i * setup_.width) + " 0");
    }
}

// A window that comes up while the manager does is left out by it, and never seen. Openbox says who
// it is long before it takes windows in; what it is asked for it does when it has.
bool VirtualDisplay::ManagerIsReady() const {
    switch (setup_.manager) {
        case Manager::Openbox:
            Do("set_num_desktops 1");  // it comes up with more
            return Do("get_num_desktops") == "1";
        case Manager::I3:
            return Property("-root", "_NET_SUPPORTING_WM_CHECK").find("window id") !=
                   std::string::npos;
        case Manager::Weston: return fs::exists(Folder() + "wayland");
        case Manager::Sway: {
            const Screenshot shot = Look();
            return shot.width == setup_.width * setup_.monitors && shot.At(0, 0) == kBackground;
        }
    }
    return false;
}

// With the first key that xdotool presses, the server tells of a new keyboard, and a window manager
// gives up its own keys and takes them again; one that is pressed in between goes to the program.
void VirtualDisplay::SettleKeys() const {
    if (setup_.manager == Manager::I3) {
        Do("key shift");
        Tell("nop");  // what comes before it is done when it is answered
    } else if (setup_.manager == Manager::Openbox) {
        Do("key shift");
        for (const std::string number : {"2", "1"}) {
            Do("set_num_desktops " + number);
            static_cast<void>(Eventually([&] { return Do("get_num_desktops") == number; }));
        }
    }
}

std::string VirtualDisplay::Run(const std::string& command) const {
    const std::string answer = Folder() + "answer.txt";
    std::string without = "env";
    std::string with;
    for (const std::string& variable : Environment()) {
        if (variable.find('=') == std::string::npos) {
            without.append(" -u ").append(variable);
        } else {
            with.append(" ").append(variable);
        }
    }
    const std::string line = without + with + " " + command + " >" + answer + " 2>/dev/null";
    static_cast<void>(std::system(line.c_str()));
    return Contents(answer);
}

std::string VirtualDisplay::Property(const std::string& window, const std::string& name) const {
    return Run("xprop " + window + " " + name);
}

bool VirtualDisplay::IsDialog(const std::string& window) const {
    return Property("-id " + window, "_NET_WM_WINDOW_TYPE").find("TYPE_DIALOG") !=
           std::string::npos;
}

std::optional<Place> VirtualDisplay::PlaceOf(const std::string& window) const {
    const std::string text = Run("xwininfo -id " + window);
    const std::optional<int> left = NumberAfter(text, "Absolute upper-left X:");
    const std::optional<int> top = NumberAfter(text, "Absolute upper-left Y:");
    const std::optional<int> width = NumberAfter(text, "Width:");
    const std::optional<int> height = NumberAfter(text, "Height:");
    if (!left || !top || !width || !height) {
        return std::nullopt;
    }
    return Place{*left, *top, *width, *height};
}

void VirtualDisplay::ChangeState(bool add, const std::string& window, const std::string& state,
                                 const std::string& other) const {
    const Connection display(xcb_connect(name_.c_str(), nullptr), &xcb_disconnect);
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(display.get())).data;
    constexpr std::uint32_t kPager = 2;
    xcb_client_message_event_t message = {};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = static_cast<xcb_window_t>(std::stoul(window));
    message.type = Atom(display.get(), "_NET_WM_STATE");
    message.data.data32[0] = add ? 1 : 0;
    message.data.data32[1] = Atom(display.get(), state);
    message.data.data32[2] = Atom(display.get(), other);
    message.data.data32[3] = kPager;
    xcb_send_event(display.get(), 0, screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&message));
    // It is told before the connection ends: a server need not read what is left of it then.
    std::free(
        xcb_get_input_focus_reply(display.get(), xcb_get_input_focus(display.get()), nullptr));
}

std::string VirtualDisplay::Answer(const std::string& words) const {
    return Run("xdotool " + words);
}

std::string VirtualDisplay::Do(const std::string& words) const {
    const std::string text = Answer(words);
    return text.substr(0, text.find('\n'));
}

void VirtualDisplay::Press(const std::string& keys) const {
    if (setup_.manager != Manager::Sway) {
        Do("key " + keys);
        return;
    }
    std::string before;
    std::string after;
    std::istringstream words(keys);
    std::string key;
    while (std::getline(words, key, '+') && !words.eof()) {
        const std::string name = key == "super" ? "logo" : key;
        before.append(" -M ").append(name);
        after.append(" -m ").append(name);
    }
    static_cast<void>(Run("wtype" + before + " -k " + key + after));
}

std::string VirtualDisplay::Tell(const std::string& words) const {
    return Run((setup_.manager == Manager::Sway ? "swaymsg -s " + Folder() + "sway/ipc "
                                                : std::string("i3-msg ")) +
               words);
}

std::vector<ShownWindow> VirtualDisplay::ShownWindows() const {
    rapidjson::Document tree;
    tree.Parse(Tell("-t get_tree").c_str());
    std::vector<ShownWindow> windows;
    if (tree.IsObject()) {
        CollectWindows(tree, windows);
    }
    return windows;
}

std::string VirtualDisplay::Workspace() const {
    rapidjson::Document all;
    all.Parse(Tell("-t get_workspaces").c_str());
    if (all.IsArray()) {
        for (const rapidjson::Value& each : all.GetArray()) {
            if (each["focused"].GetBool()) {
                return each["name"].GetString();
            }
        }
    }
    return {};
}

std::string VirtualDisplay::AllWindows() const {
    return (setup_.manager == Manager::Sway ? Tell("-t get_tree") : Run("xwininfo -root -tree")) +
           Contents(Folder() + "program.txt") + Contents(Folder() + "manager.txt");
}

Screenshot VirtualDisplay::Look() const {
    return setup_.manager == Manager::Sway ? ReadPixelMap(Run("grim -t ppm -"))
                                           : ReadDump(Run("xwd -root -silent"));
}

void VirtualDisplay::FillBackground() const {
    if (setup_.manager == Manager::Openbox || setup_.manager == Manager::I3) {
        static_cast<void>(Run("xsetroot -solid '#" + Hex(kBackground) + "'"));
    }
}

}  // namespace scenara::test
