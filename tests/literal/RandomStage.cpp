// SPDX-License-Identifier: MIT
#include "literal/RandomStage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>
#include <utility>

#include "literal/RandomArchive.h"
#include "samplemaker/Noise.h"

namespace scenara::test {
namespace {

constexpr int kActions = 4;
constexpr int kIds = 3;

// Which of the rules of MUGEN 1.1 stages are made for.
constexpr bool kZooms = true;
constexpr bool kMaskWindows = true;
constexpr bool kRowWidths = true;
constexpr bool kFrameScales = true;
constexpr bool kInterpolates = true;
constexpr bool kTurns = true;

// So that its numbers are others than those of a stage's first random ones.
constexpr std::uint32_t kNewerSeed = 0x51A6E11;

// What pictures are like, and what is done with them.
enum class Pictures : std::uint8_t { WithHoles, WithAlphas, WithAlphasSmooth };

class Writer {
public:
    Writer(std::uint32_t seed, RandomFor mode, Pictures pictures)
        : random_(seed), newer_(seed ^ kNewerSeed), mode_(mode), pictures_(pictures) {}

    RandomStage Make();

private:
    [[nodiscard]] bool OneIn(int count) { return random_.Whole(1, count) == 1; }
    [[nodiscard]] int Whole(int low, int high) { return random_.Whole(low, high); }
    template <std::size_t Count>
    [[nodiscard]] std::string OneOf(const std::array<const char*, Count>& words) {
        return words[static_cast<std::size_t>(Whole(0, static_cast<int>(Count) - 1))];
    }

    // A whole number, now and then a far one.
    [[nodiscard]] std::string Number(int low, int high, int farthest) {
        return std::to_string(OneIn(20) ? Whole(-farthest, farthest) : Whole(low, high));
    }
    // Quarters mostly, so that halves are rounded, and other fractions.
    [[nodiscard]] std::string Fraction(int low, int high) {
        const int steps = OneIn(3) ? 100 : 4;
        const int parts = Whole(low * steps, high * steps);
        const std::string sign = parts < 0 ? "-" : "";
        const int size = parts < 0 ? -parts : parts;
        const int hundredths = size % steps * 100 / steps;
        return sign + std::to_string(size / steps) + "." + (hundredths < 10 ? "0" : "") +
               std::to_string(hundredths);
    }
    void Line(const std::string& key, const std::string& value) {
        text_ += key + " = " + value + "\n";
    }
    [[nodiscard]] std::string Sprite() {
        return std::to_string(Whole(0, kRandomGroups - 1)) + ", " +
               std::to_string(Whole(0, kRandomImages - 1));
    }

    // One to twelve ids, of which the first ten count. Some belong to no element, some come twice.
    [[nodiscard]] std::string Ids() {
        std::string ids = std::to_string(Whole(-1, kIds + 1));
        for (int more = OneIn(8) ? Whole(1, 11) : Whole(0, 2); more > 0; --more) {
            ids += ", " + std::to_string(Whole(-1, kIds + 1));
        }
        return ids;
    }

    // What `write` writes has random numbers of its own: what comes after it stays the same.
    template <typename Write>
    void Newer(bool rule, Write write) {
        if (rule && mode_ == RandomFor::Version11) {
            std::swap(random_, newer_);
            write();
            std::swap(random_, newer_);
        }
    }
    [[nodiscard]] bool Adds() const { return mode_ != RandomFor::Plain; }

    void Settings();
    void Zoom();
    void ZoomDelta(bool tiled);
    void RowWidths(bool tiled);
    [[nodiscard]] std::string Corners(int left, int right);
    void Space();
    [[nodiscard]] std::string Scale();
    void Element(int index);
    void ElementMotion();
    // Whether it has any.
    bool Tiles(bool animated, bool scaled);
    bool FewTiles();
    bool TilesOfAlphas(bool animated, bool scaled);
    void OwnScale(bool tiled);
    [[nodiscard]] std::string ScaleOfTiles();
    [[nodiscard]] std::string ScaleOfOne();
    [[nodiscard]] std::string ScalePerUnit();
    void Blend();
    void Action(int number);
    [[nodiscard]] std::string FrameScale();
    [[nodiscard]] std::string Angle();
    void Interpolate();
    void Group(int index);
    void Control();
    void OffAndOn();
    void Keys(std::vector<LiteralKeys>& keys);
    void ZoomInAndOut(std::vector<double>& zooms, std::size_t frames);

    samplemaker::Random random_;
    samplemaker::Random newer_;
    RandomFor mode_;
    Pictures pictures_;
    std::string text_;
    int width_ = 320;  // of the view
    int height_ = 240;
    bool shrinks_ = false;  // a pixel of a picture may be less than one of the canvas
    bool zooms_ = false;    // it says how far
    double zoomOut_ = 1;    // the least zoom
    bool turns_ = false;    // some frames have an angle
};

std::string Writer::Scale() {
    static constexpr std::array kScales = {".5", ".75", "1", "1.5", "2", "0.3333333"};
    if (OneIn(12)) {
        return "0";
    }
    const std::string sign = OneIn(5) ? "-" : "";
    if (OneIn(2)) {
        return sign + OneOf(kScales);
    }
    const int hundredths = Whole(30, 300);
    const int rest = hundredths % 100;
    return sign + std::to_string(hundredths / 100) + (rest < 10 ? ".0" : ".") +
           std::to_string(rest);
}

// Small ones mostly: it takes long to draw large ones. Their canvases have up to four pixels for a
// unit, so that few pictures are shrunk.
void Writer::Space() {
    if (OneIn(3)) {
        return;
    }
    text_ += "[StageInfo]\n";
    if (!OneIn(6)) {
        const bool large = pictures_ != Pictures::WithAlphasSmooth && OneIn(12);
        const int width = large ? Whole(200, 1000) : Whole(76, 200);
        const int height = large ? Whole(150, 700) : Whole(57, 150);
        Line("localcoord",
             std::to_string(width) + (OneIn(20) ? "" : ", " + std::to_string(height)));
        if (Adds()) {
            width_ = width;
            height_ = height;
        }
        shrinks_ = large;
    }
    constexpr double kMostDetail = 4;
    double pixel = kMostDetail;
    if (OneIn(3)) {
        const std::string hires = Number(0, 2, 2);
        Line("hires", hires);
        pixel /= hires == "0" ? 1 : 2;
    }
    for (const char* const key : {"xscale", "yscale"}) {
        if (OneIn(2)) {
            const std::string scale = Scale();
            Line(key, scale);
            shrinks_ = shrinks_ || (scale != "0" && std::abs(std::stod(scale)) * pixel < 1);
        }
    }
}

void Writer::Settings() {
    text_ = "[Info]\n";
    if (OneIn(2)) {
        Line("mugenversion", OneIn(2) ? "1.0" : "1.1");
    }
    Space();
    text_ += "[Camera]\n";
    Line("boundleft", std::to_string(-Whole(0, 150)));
    Line("boundright", std::to_string(Whole(0, 150)));
    Line("boundhigh", std::to_string(-Whole(0, 100)));
    Line("boundlow", "0");
    if (OneIn(3)) {
        Line("startx", OneIn(3) ? Fraction(-60, 60) : Number(-60, 60, 300));
        Line("starty", Number(-60, 10, 300));
    }
    Newer(kZooms, [this] { Zoom(); });
    text_ += "[BGdef]\nspr = random.sff\n";
    if (OneIn(3)) {
        Line("bgclearcolor", Number(0, 255, 300) + ", " + Number(0, 255, 300) + ",77");
        Line("debugbg", OneIn(4) ? "1" : "0");
    }
}

// Out and in to about twice as far, now and then farther, and beyond what is allowed.
void Writer::Zoom() {
    static constexpr std::array kOuts = {".5", ".75", ".8", "0.3333333", "1"};
    static constexpr std::array kIns = {"1", "1.25", "1.5", "2", "2.5"};
    static constexpr std::array kOdd = {"0", "-1", ".001", "1000"};
    if (OneIn(3)) {
        return;
    }
    zooms_ = true;
    const std::string out = OneIn(15) ? OneOf(kOdd) : OneIn(3) ? Fraction(1, 2) : OneOf(kOuts);
    Line("zoomout", out);
    zoomOut_ = std::stod(out) <= 0 ? 1 : std::stod(out);
    if (!OneIn(4)) {
        Line("zoomin", OneIn(15) ? OneOf(kOdd) : OneIn(3) ? Fraction(1, 3) : OneOf(kIns));
    }
    if (!OneIn(4)) {
        Line("startzoom", OneIn(15) ? OneOf(kOdd) : Fraction(0, 3));
    }
    shrinks_ = shrinks_ || zoomOut_ < 1;
}

// Tiles do not come much closer together than without zoom.
void Writer::ZoomDelta(bool tiled) {
    static constexpr std::array kOdd = {"0", "9", "-3", "1"};
    const double least = tiled ? 0.5 : 1.0 / 8;
    if (tiled && zoomOut_ < least) {
        Line("zoomdelta", OneIn(2) ? "0" : ".25");
    } else if (OneIn(2)) {
        const auto delta = [&] {
            return tiled      ? "0." + std::to_string(Whole(0, 99))
                   : OneIn(8) ? OneOf(kOdd)
                              : Fraction(-1, 2);
        };
        Line("zoomdelta", delta() + (OneIn(3) ? "" : ", " + delta()));
    }
}

// Such as may be turned, one by one.
bool Writer::FewTiles() {
    static constexpr std::array kCounts = {"0", "1", "2", "3"};
    const std::string across = OneOf(kCounts);
    Line("tile", across + ", " + OneOf(kCounts));
    const std::string distance = std::to_string(Whole(60, 200));
    Line("tilespacing", distance + ", " + std::to_string(Whole(60, 200)));
    return true;
}

bool Writer::Tiles(bool animated, bool scaled) {
    static constexpr std::array kCounts = {"0", "1", "1",  "2",       "3",
                                           "5", "9", "40", "1000000", "-2"};
    if (!OneIn(3)) {
        return false;
    }
    if (turns_) {
        return FewTiles();
    }
    const std::string across = OneOf(kCounts);
    const std::string down = OneIn(4) ? "" : OneOf(kCounts);
    Line("tile", across + (down.empty() ? "" : ", " + down));
    const bool both = across != "0" && !down.empty() && down != "0";
    // Pictures that lie upon one another do so in one direction only. In both there can be so many
    // at one place that the program leaves some out.
    if (animated && both) {
        Line("tilespacing", std::to_string(Whole(20, 150)) + ", " + std::to_string(Whole(20, 150)));
        return true;
    }
    // Of those that are less than a pixel of the canvas apart the program leaves some out. Such as
    // touch one another are one picture, unless a frame scales them.
    const bool scales = mode_ == RandomFor::Version11 && (scaled || shrinks_);
    const bool apart = scales || shrinks_;
    if (OneIn(2) || scales) {
        const auto spacing = [&] {
            return apart ? std::to_string(Whole(7, 150)) : Number(0, 150, 400);
        };
        std::array<std::string, 2> spacings = {spacing(), spacing()};
        if (OneIn(4)) {
            spacings[static_cast<std::size_t>(Whole(0, 1))] =
                std::to_string(Whole(apart ? 7 : -20, 9));
        }
        Line("tilespacing", spacings[0] + (OneIn(6) && !scales ? "" : ", " + spacings[1]));
    }
    return true;
}

// Upon one another, in one direction, where there is an end of them or they are not mixed. Of those
// that are less than a pixel of the canvas apart the program leaves some out, and of many that are
// large.
bool Writer::TilesOfAlphas(bool animated, bool scaled) {
    static constexpr std::array kCounts = {"0", "1", "1", "2", "3", "5", "9"};
    if (OneIn(3)) {
        return false;
    }
    if (turns_) {
        return FewTiles();
    }
    std::array<std::string, 2> counts = {OneOf(kCounts), OneOf(kCounts)};
    std::array<std::string, 2> spacings;
    const bool tight = OneIn(2);
    for (std::size_t axis = 0; axis < 2; ++axis) {
        const bool apart = (axis == 0) != tight ||
                           (counts[axis] == "1" && pictures_ == Pictures::WithAlphasSmooth);
        const int closest = scaled ? 20 : animated ? 2 : -60;
        const int least = apart ? 20 : shrinks_ && !scaled ? 7 : closest;
        spacings[axis] = std::to_string(Whole(least, apart ? 150 : 30));
    }
    Line("tile", counts[0] + ", " + counts[1]);
    Line("tilespacing", spacings[0] + ", " + spacings[1]);
    return true;
}

// Pictures that are mixed are not brought closer together than they are.
std::string Writer::ScaleOfTiles() {
    static constexpr std::array kScales = {".25", ".5", ".75", "0.3333333", "1.1"};
    const std::string sign = OneIn(4) ? "-" : "";
    return sign + (pictures_ == Pictures::WithHoles && OneIn(2) ? OneOf(kScales) : Fraction(1, 3));
}

std::string Writer::ScaleOfOne() {
    static constexpr std::array kOdd = {"0", ".003", "-.02", "90", "-2000", "1000000"};
    return OneIn(15) ? OneOf(kOdd) : Fraction(-2, 3);
}

// The camera goes on for a hundred of them.
std::string Writer::ScalePerUnit() {
    if (OneIn(8)) {
        return Fraction(-2, 2);
    }
    return (OneIn(2) ? "-" : "") + std::string(".0") + std::to_string(Whole(0, 99));
}

// Tiles have no scale that changes: it comes so close to 0 that there is no end of them.
void Writer::OwnScale(bool tiled) {
    const bool changes = !tiled && OneIn(2);
    if (!changes || OneIn(2)) {
        const auto scale = [&] { return tiled ? ScaleOfTiles() : ScaleOfOne(); };
        Line("scalestart", scale() + (OneIn(6) ? "" : ", " + scale()));
    }
    if (changes) {
        Line("scaledelta", ScalePerUnit() + (OneIn(4) ? "" : ", " + ScalePerUnit()));
    }
}

// Two of them, in any order.
std::string Writer::Corners(int left, int right) {
    const auto corner = [this](int low, int high) {
        return OneIn(4) ? Fraction(low, high) : Number(low, high, 500);
    };
    const int bottom = height_ + 20;
    return corner(left, right) + ", " + corner(-20, bottom) + ", " + corner(left, right) + ", " +
           corner(-20, bottom);
}

void Writer::ElementMotion() {
    if (OneIn(3)) {
        Line("velocity", Fraction(-3, 3) + (OneIn(2) ? ", " + Fraction(-2, 2) : ""));
    }
    if (OneIn(4)) {
        Line("sin.y", Fraction(-20, 20) + ", " + Number(0, 20, 200) + ", " + Number(0, 30, 90));
    }
    if (OneIn(6)) {
        Line("sin.x", Fraction(-20, 20) + ", " + Number(0, 20, 200) + ", " + Number(0, 30, 90));
    }
    if (OneIn(4)) {
        Line("positionlink", OneIn(8) ? "-1" : "1");
    }
}

void Writer::Blend() {
    static constexpr std::array kWords = {"none",    "add", "add1",     "sub",  "addalpha",
                                          "default", "Add", "subtract", "blend"};
    if (OneIn(4)) {
        Line("trans", OneOf(kWords));
        if (OneIn(2)) {
            Line("alpha", Number(0, 256, 300) + ", " + Number(0, 256, 300));
        }
    }
}

// Tiles are not brought close together.
void Writer::RowWidths(bool tiled) {
    const int least = tiled ? 100 : 1;
    const std::string top = OneIn(3) ? Fraction(least, 200) : std::to_string(Whole(least, 400));
    const std::string bottom =
        OneIn(9) && !tiled ? Number(0, 0, 300) : std::to_string(Whole(least, 900));
    Line("width", top + ", " + bottom);
}

void Writer::Element(int index) {
    static constexpr std::array kTypes = {"normal",   "normal", "anim", "anim", "anim",
                                          "parallax", "dummy",  "norm", "ani",  "paral",
                                          "null",     "Anim",   "water"};
    static constexpr std::array kLayers = {"0", "0", "0", "0", "1", "1", "-1", "2", "-7"};
    text_ += "[BG " + std::to_string(index) + "]\n";
    std::string type = OneOf(kTypes);
    Newer(kTurns && turns_, [&] { type = OneIn(3) ? type : "anim"; });
    if (!OneIn(30)) {
        Line("type", type);
    }
    if (!OneIn(4)) {
        Line("spriteno", Sprite());
    }
    if (type.front() == 'a' || OneIn(3)) {
        Line("actionno", std::to_string(Whole(0, OneIn(8) ? kActions : kActions - 1)));
    }
    const bool fractions = Adds() && OneIn(4);
    const int aside = width_ * 5 / 8;
    const int low = height_ - 20;
    Line("start", fractions ? Fraction(-aside, aside) + ", " + Fraction(-60, low)
                            : Number(-aside, aside, 30000) + ", " + Number(-60, low, 30000));
    if (OneIn(2)) {
        Line("delta", OneIn(20) ? Fraction(-40, 40)
                                : Fraction(-1, 2) + (OneIn(2) ? ", " + Fraction(-1, 2) : ""));
    }
    if (OneIn(2)) {
        Line("mask", Number(0, 1, 2));
    }
    Line("id", std::to_string(Whole(0, kIds)));
    Line("layerno", OneOf(kLayers));
    if (type == "parallax" && !OneIn(4)) {
        Line("xscale", Fraction(0, 2) + (OneIn(5) ? "" : ", " + Fraction(0, 3)));
    }
    if (OneIn(4)) {
        Line("window", Corners(-20, width_ + 20));
    }
    Newer(kMaskWindows, [this] {
        if (OneIn(4)) {
            Line("maskwindow", Corners(-width_ / 2 - 20, width_ / 2 + 20));
        }
    });
    if (Adds() && OneIn(6)) {
        Line("windowdelta", Fraction(-1, 2) + ", " + Fraction(-1, 2));
    }
    if (type == "parallax" && OneIn(3)) {
        Line("yscalestart", Fraction(40, 200));
        Line("yscaledelta", Fraction(-2, 2));
    }
    const bool animated = type == "anim" || type == "ani" || type == "Anim";
    const bool scaled = Adds() && OneIn(3);
    const bool tiled = pictures_ == Pictures::WithHoles ? Tiles(animated, scaled)
                                                        : TilesOfAlphas(animated, scaled);
    if (scaled) {
        OwnScale(tiled);
    }
    Newer(kZooms, [&] { ZoomDelta(tiled); });
    Newer(kRowWidths, [&] {
        if (type.starts_with("paral") && OneIn(2)) {
            RowWidths(tiled);
        }
    });
    ElementMotion();
    Blend();
}

// Not very large: tiles are no farther apart for it.
std::string Writer::FrameScale() {
    static constexpr std::array kOdd = {"0", ".003", "-.02", "4"};
    const auto scale = [this] { return OneIn(15) ? OneOf(kOdd) : Fraction(-2, 2); };
    return ", " + scale() + (OneIn(6) ? "" : ", " + scale());
}

// Quarters of a turn, or anything.
std::string Writer::Angle() {
    return ", " + (OneIn(5)   ? std::to_string(90 * Whole(-5, 5))
                   : OneIn(2) ? std::to_string(15 * Whole(-30, 30))
                              : Fraction(-400, 400));
}

// What goes over into the next frame, or from the last one to the first.
void Writer::Interpolate() {
    for (const char* const what : {"Offset", "blend", "Scale", "Angle"}) {
        if (OneIn(4)) {
            text_ += std::string("Interpolate ") + what + "\n";
        }
    }
}

void Writer::Action(int number) {
    static constexpr std::array kTimes = {"-1", "-9", "0", "0", "1", "2", "3", "5", "9", ""};
    static constexpr std::array kFlips = {"", "", "", "H", "V", "HV", "h"};
    static constexpr std::array kBlends = {"", "", "A", "A1", "S", "AS128D64", "as30d256", "add"};
    text_ += "[Begin Action " + std::to_string(number) + "]\n";
    const int frames = Whole(OneIn(10) ? 0 : 1, 5);
    for (int frame = 0; frame < frames; ++frame) {
        if (OneIn(6)) {
            text_ += "Loopstart\n";
        }
        Newer(kInterpolates, [this] { Interpolate(); });
        const bool fractions = Adds() && OneIn(4);
        const auto offset = [&] { return fractions ? Fraction(-30, 30) : Number(-30, 30, 400); };
        text_ += (OneIn(12) ? "-1, 0" : Sprite()) + ", " + offset();
        text_ += ", " + offset() + ", " + OneOf(kTimes);
        const std::string flip = OneOf(kFlips);
        const std::string blend = OneOf(kBlends);
        std::string scale;
        Newer(kFrameScales, [&] { scale = OneIn(3) ? FrameScale() : ""; });
        Newer(kTurns && turns_, [&] {
            if (!OneIn(4)) {
                const auto given = std::ranges::count(scale, ',');
                scale += (given == 0 ? ", , " : given == 1 ? ", " : "") + Angle();
            }
        });
        if (!flip.empty() || !blend.empty() || !scale.empty()) {
            text_ += ", " + flip;
        }
        text_ += (blend.empty() && scale.empty() ? "" : ", " + blend) + scale + "\n";
    }
    if (OneIn(12)) {
        text_ += "Loopstart\n";
    }
}

void Writer::Control() {
    static constexpr std::array kTypes = {"visible", "enable", "velset", "veladd",
                                          "posset",  "posadd", "anim",   "sinx",
                                          "siny",    "null",   "enabled"};
    text_ += "[BGCtrl]\n";
    const std::string type = OneOf(kTypes);
    Line("type", type);
    const int start = Whole(0, 15);
    std::string time = std::to_string(start);
    if (OneIn(2)) {
        time += ", " + std::to_string(start + Whole(-1, 6));
        if (OneIn(2)) {
            time += ", " + Number(0, 20, 100);
        }
    }
    Line("time", time);
    if (OneIn(2)) {
        Line("ctrlid", Ids());
    }
    if (type == "sinx" || type == "siny") {
        const auto number = [&](int from, int to) {
            return OneIn(3) ? Fraction(from, to) : Number(from, to, 90);
        };
        Line("value",
             number(-20, 20) + ", " + number(0, 20) + (OneIn(2) ? ", " + Number(0, 20, 90) : ""));
    } else if (!OneIn(8)) {
        Line("value", std::to_string(Whole(0, type == "anim" ? kActions : 1)));
    }
    if (!OneIn(4)) {
        Line("x", Fraction(-20, 20));
    }
    if (!OneIn(4)) {
        Line("y", Fraction(-20, 20));
    }
}

// What is hidden or disabled for a few frames.
void Writer::OffAndOn() {
    const std::string type = OneIn(2) ? "visible" : "enable";
    const int off = Whole(0, 5);
    for (const int value : {0, 1}) {
        text_ += "[BGCtrl]\n";
        Line("type", type);
        Line("time", std::to_string(value == 0 ? off : off + Whole(1, 5)));
        Line("value", std::to_string(value));
    }
}

void Writer::Group(int index) {
    text_ += "[BGCtrlDef " + std::to_string(index) + "]\n";
    if (OneIn(2)) {
        Line("looptime", std::to_string(Whole(0, 25)));
    }
    if (!OneIn(3)) {
        Line("ctrlid", Ids());
    }
    if (OneIn(3)) {
        OffAndOn();
    }
    for (int controls = Whole(0, 4); controls > 0; --controls) {
        Control();
    }
}

// Some keys for some frames, then others.
void Writer::Keys(std::vector<LiteralKeys>& keys) {
    if (OneIn(3)) {
        return;
    }
    std::size_t frame = 0;
    while (frame < keys.size()) {
        const LiteralKeys held{OneIn(3), OneIn(3), OneIn(3), OneIn(3)};
        for (int more = Whole(1, 9); more > 0 && frame < keys.size(); --more) {
            keys[frame++] = held;
        }
    }
}

// As far as the stage goes, and farther.
void Writer::ZoomInAndOut(std::vector<double>& zooms, std::size_t frames) {
    if (!zooms_ || OneIn(2)) {
        return;
    }
    zooms.resize(frames);
    for (double& zoom : zooms) {
        zoom = OneIn(4) ? random_.Between(0.25, 2.5) : 0;
    }
}

RandomStage Writer::Make() {
    RandomStage stage;
    stage.archive = MakeRandomArchive(random_);
    Settings();
    Newer(kTurns, [this] { turns_ = OneIn(2); });
    for (int number = 0; number < kActions; ++number) {
        Action(number);
    }
    const int elements = Whole(1, 8);
    for (int index = 0; index < elements; ++index) {
        Element(index);
    }
    for (int groups = Whole(0, 3); groups > 0; --groups) {
        Group(groups);
    }
    stage.definition = text_;
    stage.keys.resize(static_cast<std::size_t>(OneIn(4) ? Whole(20, 40) : Whole(1, 12)));
    Keys(stage.keys);
    Newer(kZooms, [&] { ZoomInAndOut(stage.zooms, stage.keys.size()); });
    return stage;
}

}  // namespace

RandomStage MakeRandomStage(std::uint32_t seed, RandomFor mode) {
    return Writer(seed, mode, Pictures::WithHoles).Make();
}

RandomStage MakeRandomAlphaStage(std::uint32_t seed, RandomFor mode, bool smooth) {
    const Pictures pictures = smooth ? Pictures::WithAlphasSmooth : Pictures::WithAlphas;
    RandomStage stage = Writer(seed, mode, pictures).Make();
    stage.alphas = seed;
    return stage;
}

}  // namespace scenara::test
