// SPDX-License-Identifier: MIT
#include "desktop/DesktopProgram.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>

#include "samplemaker/Canvas.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

samplemaker::Sff1Subfile Tile(std::int16_t image, std::uint8_t color,
                              const samplemaker::Palette& palette) {
    samplemaker::Canvas canvas(kTileWidth, kTileHeight);
    canvas.FillRect(0, 0, kTileWidth, kTileHeight, color);
    samplemaker::Sff1Subfile subfile;
    subfile.image = image;
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(palette));
    return subfile;
}

std::string Contents(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// 640 x 240, one colour, with a bar of 8 columns in its middle, where the axis is; and the tiles.
std::string Archive() {
    samplemaker::Palette palette{};
    palette[1] = {0x30, 0x50, 0x70};
    palette[2] = {0xF0, 0xC0, 0x40};
    palette[3] = {0x40, 0xA0, 0x60};
    palette[4] = {0xA0, 0x48, 0x30};
    samplemaker::Canvas canvas(640, 240);
    canvas.FillRect(0, 0, 640, 240, 1);
    canvas.FillRect(320, 0, 8, 240, 2);
    samplemaker::Sff1Subfile subfile;
    subfile.axisX = 320;
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(palette));
    const std::vector<std::byte> bytes =
        samplemaker::WriteSff1({subfile, Tile(1, 3, palette), Tile(2, 4, palette)});
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

// The longest run of the picture's colours in one line of the screen.
template <class Pixel>
int LongestRun(int length, const Pixel& at) {
    int longest = 0;
    int run = 0;
    for (int i = 0; i < length; ++i) {
        run = at(i) == kGround || at(i) == kBar ? run + 1 : 0;
        longest = std::max(longest, run);
    }
    return longest;
}

}  // namespace

void DesktopProgram::SetUp() {
    const fs::path folder = Folder();
    fs::create_directories(folder / "bin");
    fs::create_directories(folder / "mugen/stages");
    fs::copy_file(SCENARA_PROGRAM, folder / "bin/scenara");
    std::ofstream(folder / "mugen/stages/bar.sff", std::ios::binary) << Archive();
    for (const std::string name : {"bar", "cup", "dot"}) {
        std::ofstream(StagePath(name))
            << "[Info]\nname = " << name << "\n[Camera]\nboundleft = -150\nboundright = 150\n"
            << "[BGdef]\nspr = stages/bar.sff\n[BG bar]\ntype = normal\nspriteno = 0,0\n";
    }
}

void DesktopProgram::WriteSettings(const std::string& more) const {
    std::ofstream(Folder() / "bin/QX.CFG", std::ios::binary)
        << "MugeDir = " << display_.Folder() << "mugen/\r\n"
        << more;
    const bool withList = more.find("StageList = 255") != std::string::npos;
    std::ofstream(Folder() / "bin/Scenara.ini", std::ios::binary | std::ios::app)
        << "WindowWidth = " << (withList ? 480 : 320) << "\r\nWindowHeight = " << 283 + kStatusLine
        << "\r\n";
}

void DesktopProgram::AddTile(const std::string& stage, int image) const {
    std::ofstream(StagePath(stage), std::ios::app)
        << "[BG tile]\ntype = normal\nspriteno = 0," << image << "\nstart = -160,0\n";
}

std::string DesktopProgram::Settings() const {
    return Contents(Folder() / "bin/QX.CFG");
}

std::vector<std::string> DesktopProgram::ProgramEnvironment(const std::string& session) const {
    std::vector<std::string> environment = display_.Environment();
    environment.insert(environment.end(), environment_.begin(), environment_.end());
    environment.push_back("HOME=" + display_.Folder());
    environment.push_back("SESSION_MANAGER=" + session);   // empty: none
    environment.push_back("ASAN_OPTIONS=detect_leaks=0");  // the toolkit's own
    if (!scale_.empty()) {
        environment.push_back("QT_SCALE_FACTOR=" + scale_);
    }
    return environment;
}

void DesktopProgram::Start(const std::string& session, const std::string& file) {
    std::vector<std::string> command{display_.Folder() + "bin/scenara"};
    if (!file.empty()) {
        command.push_back(file);
    }
    program_.emplace(command, ProgramEnvironment(session), display_.Folder() + "program.txt");
}

void DesktopProgram::StartWithBar() {
    WriteSettings("StageList = 255\r\n");
    Start();
    ExpectMainWindow(480);
    ClickListItem(0);
    ExpectTitle("bar");
    ASSERT_TRUE(Eventually([&] { return BarWidth() == 8; })) << "one to one";
}

void DesktopProgram::ExpectMainWindow(int width) {
    ExpectWindow("^Scenara 1.0");
    const std::string wanted = "WIDTH=" + std::to_string(width) + "\n";
    std::string before;
    ASSERT_TRUE(Eventually([&] {
        const std::string geometry = display_.Answer("getwindowgeometry --shell " + MainWindow());
        const bool rests = geometry == before && geometry.find(wanted) != std::string::npos;
        before = geometry;
        return rests;
    })) << before;
}

std::string DesktopProgram::Windows(const std::string& title) const {
    if (program_) {
        program_->TakePriorityBack();
    }
    return display_.Answer("search --onlyvisible --name '" + title + "'");
}

std::string DesktopProgram::Window(const std::string& title) const {
    const std::string all = Windows(title);
    return all.substr(0, all.find('\n'));
}

void DesktopProgram::ExpectWindow(const std::string& title) {
    ASSERT_TRUE(Eventually([&] { return !Window(title).empty(); }))
        << "no window " << title << "; there are: " << display_.AllWindows();
    display_.Do("windowactivate --sync " + Window(title));
}

std::string DesktopProgram::FirstWindow(const std::string& title, bool isDialog) const {
    std::istringstream all(Windows(title));
    for (std::string window; std::getline(all, window);) {
        if (display_.IsDialog(window) == isDialog) {
            return window;
        }
    }
    return {};
}

std::string DesktopProgram::MainWindow() const {
    return FirstWindow(
        "^(Scenara 1.0|Loading |bar|cup|dot|heavy|/|Dumped|Cloned|Deleted|\"|[(]|0$)", false);
}

std::optional<Place> DesktopProgram::MainPlace() const {
    switch (display_.Setup().manager) {
        case Manager::Openbox:
        case Manager::I3: return display_.PlaceOf(MainWindow());
        case Manager::Weston: return PaintedIn(Look());
        case Manager::Sway: break;
    }
    const std::vector<ShownWindow> windows = display_.ShownWindows();
    if (windows.empty()) {
        return std::nullopt;
    }
    const int scale = display_.Setup().scale;
    const Place& place = windows.front().place;
    return Place{place.left * scale, place.top * scale, place.width * scale, place.height * scale};
}

std::string DesktopProgram::Box() const {
    return FirstWindow("^Scenara 1.0 DirectX 8 Experiment$", true);
}

void DesktopProgram::ExpectBox() {
    ASSERT_TRUE(Eventually([&] { return !Box().empty(); })) << display_.AllWindows();
    display_.Do("windowactivate --sync " + Box());
}

void DesktopProgram::ExpectNoBox() {
    ASSERT_TRUE(Eventually([&] { return Box().empty(); })) << display_.AllWindows();
}

std::string DesktopProgram::Title() const {
    if (display_.Setup().manager == Manager::Sway) {
        const std::vector<ShownWindow> windows = display_.ShownWindows();
        return windows.empty() ? std::string() : windows.front().title;
    }
    return display_.Do("getwindowname " + MainWindow());
}

void DesktopProgram::ExpectTitle(const std::string& title) {
    ASSERT_TRUE(Eventually([&] { return Title() == title; })) << "it is " << Title();
}

void DesktopProgram::ExpectNewest(const std::string& stage) {
    const std::string key = "RecentFile = ";
    EXPECT_TRUE(Eventually([&] {
        const std::string all = Settings();
        const std::size_t first = std::min(all.find(key), all.size());
        return all.substr(first).starts_with(key + StagePath(stage) + "\r\n");
    })) << Settings();
}

// The keys are held until the menu is seen: Weston shuts one that was asked for by keys that are up
// again.
void DesktopProgram::OpenMenu(const std::string& letter) {
    constexpr int kEnough = 300;
    const bool holds = display_.Setup().manager != Manager::Sway;
    const int before = Count(kGround);
    if (holds) {
        display_.Do("keydown alt keydown " + letter);
    } else {
        Key("alt+" + letter);
    }
    EXPECT_TRUE(Eventually([&] { return Count(kGround) < before - kEnough; }))
        << "the menu " << letter;
    if (holds) {
        display_.Do("keyup " + letter + " keyup alt");
    }
}

void DesktopProgram::InMenu(const std::string& letter, const std::string& keys) {
    const int before = Count(kGround);
    OpenMenu(letter);
    Key(keys);
    EXPECT_TRUE(Eventually([&] { return Count(kGround) >= before; })) << keys;
}

void DesktopProgram::GoFullScreen(const Spot& beside) {
    const Manager manager = display_.Setup().manager;
    const int tries = manager == Manager::Sway || manager == Manager::Weston ? 3 : 1;
    const std::uint32_t before = ColorAt(beside);
    for (int i = 0; i < tries; ++i) {
        InMenu("o", "f");
        for (int look = 0; i + 1 < tries && look < 20; ++look) {
            if (ColorAt(beside) != before) {
                return;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(250));
        }
    }
}

void DesktopProgram::ClickAt(int x, int y) {
    display_.Do("mousemove --window " + MainWindow() + " " + std::to_string(x) + " " +
                std::to_string(y) + " click 1");
}

// Below a menu bar of about 20 pixels; plainly there is no filter.
Spot DesktopProgram::ListItem(int index) const {
    constexpr int kMenus = 20;
    const std::string extras = Contents(Folder() / "bin/Scenara.ini");
    const bool isPlain = extras.find("Additions = False") != std::string::npos;
    return {320 + 60, kMenus + (isPlain ? 0 : kFilter) + kListItem / 2 + 1 + index * kListItem};
}

void DesktopProgram::ClickListItem(int index) {
    const Spot item = ListItem(index);
    ClickAt(item.x, item.y);
}

std::optional<Spot> ListIn(const Screenshot& shot) {
    constexpr std::uint32_t kPaper = 0xFFFFFF;
    constexpr std::uint32_t kBlack = 0;
    constexpr int kListWidth = 160;
    constexpr int kHighEnough = 500;  // and no menu or box
    for (int x = shot.width - 1; x >= kListWidth; --x) {
        int run = 0;
        for (int y = 0; y < shot.height; ++y) {
            run = shot.At(x, y) == kPaper ? run + 1 : 0;
            if (run == kHighEnough) {
                const int left = x + 1 - kListWidth;
                int top = y;
                while (left > 0 && top > 0 && shot.At(left - 1, top - 1) == kBlack) {
                    --top;
                }
                return Spot{left, top};
            }
        }
    }
    return std::nullopt;
}

Screenshot DesktopProgram::Look() const {
    if (program_) {
        program_->TakePriorityBack();
    }
    return display_.Look();
}

std::optional<Bar> BarIn(const Screenshot& shot) {
    for (int y = shot.height / 2; y < shot.height; y += 40) {
        Bar bar;
        for (int x = 0; x < shot.width; ++x) {
            if (shot.At(x, y) == kBar) {
                bar.left = bar.width == 0 ? x : bar.left;
                ++bar.width;
            }
        }
        if (bar.width > 0) {
            return bar;
        }
    }
    return std::nullopt;
}

Spot DesktopProgram::OfView(int x, int y) const {
    constexpr int kBarInView = 160;
    const int left = BarLeft();
    const Screenshot shot = display_.Look();
    int top = 0;
    while (top < shot.height && shot.At(left, top) != kBar) {
        ++top;
    }
    return {left - kBarInView + x, top + y};
}

int DesktopProgram::Count(std::uint32_t color) const {
    const Screenshot shot = Look();
    return static_cast<int>(std::count(shot.rgb.begin(), shot.rgb.end(), color));
}

SeenSize DesktopProgram::WindowSize() const {
    const std::string geometry = display_.Answer("getwindowgeometry --shell " + MainWindow());
    const auto number = [&](const std::string& name) {
        const std::size_t at = geometry.find(name);
        return at == std::string::npos ? 0 : std::stoi(geometry.substr(at + name.size()));
    };
    return {number("WIDTH="), number("HEIGHT=")};
}

SeenSize PictureSizeIn(const Screenshot& shot) {
    if (shot.rgb.empty()) {
        return {};
    }
    SeenSize size;
    for (int y = 0; y < shot.height; y += 16) {
        size.width =
            std::max(size.width, LongestRun(shot.width, [&](int x) { return shot.At(x, y); }));
    }
    for (int x = 0; x < shot.width; x += 16) {
        size.height =
            std::max(size.height, LongestRun(shot.height, [&](int y) { return shot.At(x, y); }));
    }
    return size;
}

}  // namespace scenara::test
