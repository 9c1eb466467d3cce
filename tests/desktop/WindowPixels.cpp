// SPDX-License-Identifier: MIT
#include "desktop/WindowPixels.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <sstream>
#include <unordered_map>
#include <vector>

#include "desktop/DesktopProgram.h"

namespace scenara::test {
namespace {

constexpr std::uint32_t kBlack = 0;
constexpr int kViewWidth = 320;
constexpr int kViewHeight = 240;
constexpr int kBarBegin = 160;  // in the view
constexpr int kBarEnd = 168;
constexpr int kListWidth = 160;  // in the toolkit's pixels

std::string Hex(std::uint32_t color) {
    std::ostringstream text;
    text << std::hex << color;
    return text.str();
}

int Part(std::uint32_t color, int shift) {
    return static_cast<int>(color >> static_cast<unsigned>(shift) & 0xFFU);
}

// Where parts of the view are mixed the result may be rounded in any way.
bool IsLike(std::uint32_t color, std::uint32_t wanted, int most) {
    const auto differs = [&](int shift) {
        return std::abs(Part(color, shift) - Part(wanted, shift)) > most;
    };
    return !differs(0) && !differs(8) && !differs(16);
}

// Of which the bar has that share.
std::uint32_t Mixed(double share) {
    std::uint32_t color = 0;
    for (const int shift : {0, 8, 16}) {
        const double part = Part(kGround, shift) * (1 - share) + Part(kBar, shift) * share;
        color |= static_cast<std::uint32_t>(std::lround(part)) << static_cast<unsigned>(shift);
    }
    return color;
}

// On the line between the picture's two colours.
bool IsOfThePicture(std::uint32_t color) {
    const double share = (Part(color, 16) - Part(kGround, 16)) /
                         static_cast<double>(Part(kBar, 16) - Part(kGround, 16));
    return share > -0.01 && share < 1.01 && IsLike(color, Mixed(share), 3);
}

// The picture in a box of that size: the width is as good as the height, for its shape is kept.
Place PictureIn(int width, int height) {
    const double largest = std::min(width / double{kViewWidth}, height / double{kViewHeight});
    const int whole = static_cast<int>(largest);
    Place place;
    if (whole >= 1 && whole >= largest * 0.9 - 1e-9) {
        place.width = whole * kViewWidth;
        place.height = whole * kViewHeight;
    } else {
        place.width = std::max(static_cast<int>(largest * kViewWidth + 1e-9), 1);
        place.height = std::max(static_cast<int>(largest * kViewHeight + 1e-9), 1);
    }
    place.left = (width - place.width) / 2;
    place.top = (height - place.height) / 2;
    return place;
}

// What a column of the picture shows: how much of it is the bar's.
std::uint32_t ColumnColor(int column, int width) {
    const double begin = static_cast<double>(column) * kViewWidth / width;
    const double end = static_cast<double>(column + 1) * kViewWidth / width;
    const double seen = std::min<double>(end, kBarEnd) - std::max<double>(begin, kBarBegin);
    return Mixed(std::max(seen, 0.0) / (end - begin));
}

class Check {
public:
    Check(const Screenshot& shot, const WindowParts& window) : shot_(shot), window_(window) {}

    std::string Run() {
        const Place& place = window_.place;
        if (place.left < 0 || place.top < 0 || place.left + place.width > shot_.width ||
            place.top + place.height > shot_.height || place.width < 1 || place.height < 1) {
            return "the window is not on the screen";
        }
        FindBox();
        if (!wrong_.empty()) {
            return wrong_;
        }
        CheckRest();
        if (!wrong_.empty()) {
            return wrong_;
        }
        for (int across = -rest_; across <= rest_; ++across) {
            for (int down = -rest_; down <= rest_; ++down) {
                wrong_.clear();
                CheckBox(across, down);
                if (wrong_.empty()) {
                    return {};
                }
                nearest_ = across == 0 && down == 0 ? wrong_ : nearest_;
            }
        }
        return nearest_;
    }

private:
    [[nodiscard]] std::uint32_t At(int x, int y) const {
        return shot_.At(window_.place.left + x, window_.place.top + y);
    }

    void FindBox() {
        boxTop_ = 0;
        boxWidth_ = window_.place.width;
        boxEnd_ = window_.place.height;
        lineEnd_ = boxEnd_;
        if (!window_.hasMenus) {
            return;
        }
        constexpr int kLeast = 15;
        constexpr int kMost = 30;
        FindLine();
        if (lineEnd_ - boxEnd_ < kLeast * window_.scale ||
            lineEnd_ - boxEnd_ > kMost * window_.scale) {
            wrong_ = "a status line " + std::to_string(lineEnd_ - boxEnd_) + " pixels high";
            return;
        }
        // From below: a pointer may stand in the upper left corner.
        boxTop_ = boxEnd_;
        while (boxTop_ > 0 && IsOfTheBox(At(0, boxTop_ - 1))) {
            --boxTop_;
        }
        if (boxTop_ < kLeast * window_.scale || boxTop_ > kMost * window_.scale) {
            wrong_ = "menus " + std::to_string(boxTop_) + " pixels high";
            return;
        }
        const int line = (boxTop_ + boxEnd_ * 3) / 4;
        boxWidth_ = 0;
        while (boxWidth_ < window_.place.width && IsOfTheBox(At(boxWidth_, line))) {
            ++boxWidth_;
        }
        const double wanted =
            window_.place.width - (window_.hasList ? kListWidth * window_.scale : 0);
        if (std::abs(boxWidth_ - wanted) > window_.scale) {
            wrong_ = "the picture's box is " + std::to_string(boxWidth_) + " pixels wide";
        }
    }

    // The status line, which begins with its ground, and above it the box.
    void FindLine() {
        while (lineEnd_ > window_.place.height - rest_ && At(0, lineEnd_ - 1) == kBlack) {
            --lineEnd_;
        }
        boxEnd_ = lineEnd_;
        while (boxEnd_ > 0 && !IsOfTheBox(At(0, boxEnd_ - 1))) {
            --boxEnd_;
        }
    }

    [[nodiscard]] static bool IsOfTheBox(std::uint32_t color) {
        return color == kBlack || IsOfThePicture(color);
    }

    void CheckRest() {
        for (int y = 0; y < window_.place.height; ++y) {
            const bool isBeside = y >= boxTop_ && y < boxEnd_;
            for (int x = isBeside ? boxWidth_ : 0; x < window_.place.width; ++x) {
                const std::uint32_t color = At(x, y);
                if (color == kBackground || color == kGround || color == kBar) {
                    Note(x, y, color, "menus, the list or the status line");
                    return;
                }
            }
        }
        constexpr double kLeastOfMenus = 0.7;
        constexpr double kLeastOfList = 0.9;
        constexpr double kLeastOfLine = 0.6;
        if (boxTop_ > 0) {
            CheckGround(GroundOf(0, 0, boxTop_), kLeastOfMenus, "the menus");
        }
        if (boxEnd_ < lineEnd_) {
            CheckGround(GroundOf(0, boxEnd_, lineEnd_), kLeastOfLine, "the status line");
        }
        if (boxWidth_ < window_.place.width) {
            const int left = boxWidth_ + Scaled(kListEdge);
            const int top = boxTop_ + Scaled(kFilter);
            const Ground ground = GroundOf(left, top, boxEnd_);
            CheckGround(ground, kLeastOfList, "the list");
            CheckEdges(left, top, ground.color);
        }
    }
    // So many of the toolkit's pixels end before that.
    [[nodiscard]] int Scaled(int pixels) const {
        return static_cast<int>(std::ceil((pixels + 1) * window_.scale));
    }

    struct Ground {
        std::uint32_t color = 0;
        double share = 0;
    };
    // The colour that most pixels have from there to the window's right edge and down to a line.
    [[nodiscard]] Ground GroundOf(int left, int top, int below) const {
        std::unordered_map<std::uint32_t, int> counts;
        for (int y = top; y < below; ++y) {
            for (int x = left; x < window_.place.width; ++x) {
                ++counts[At(x, y)];
            }
        }
        const auto most =
            std::ranges::max_element(counts, {}, [](const auto& each) { return each.second; });
        const int all = (window_.place.width - left) * (below - top);
        return {most->first, most->second / static_cast<double>(all)};
    }
    // What was never painted is no ground.
    void CheckGround(const Ground& ground, double least, const char* what) {
        if (wrong_.empty() && (ground.color == kBlack || ground.share < least)) {
            wrong_ = std::to_string(ground.share) + " of " + what + " is " + Hex(ground.color);
        }
    }

    // Of the list, right of the edge that it is dragged by and below its filter, which has a frame:
    // its letters end before them. An item that is chosen has a colour of its own from one side to
    // the other, and edges that are a little darker.
    void CheckEdges(int left, int top, std::uint32_t ground) {
        constexpr int kMostOfEdge = 64;
        if (!wrong_.empty()) {
            return;
        }
        const int width = window_.place.width;
        const int lastColumn = width - 1 - rest_;
        const int lastRow = boxEnd_ - 1 - rest_;
        for (int y = top; y < boxEnd_; ++y) {
            const bool isLast = y >= lastRow;
            const std::uint32_t row = GroundOf(boxWidth_, y, y + 1).color;
            for (int x = isLast ? left : lastColumn; x < width; ++x) {
                const std::uint32_t color = At(x, y);
                const bool isLeft = color == kBlack && (x > lastColumn || y > lastRow);
                const bool isOfItem =
                    !isLast && row != ground && row != kBlack && IsLike(color, row, kMostOfEdge);
                if (color != ground && !isOfItem && !isLeft) {
                    Note(x, y, color, "the list's ground, " + Hex(ground));
                    return;
                }
            }
        }
    }

    // For the toolkit it has so many pixels more. What it does not count it does not paint.
    void CheckBox(int across, int down) {
        const int height = boxEnd_ - boxTop_;
        const Place picture = PictureIn(boxWidth_ + across, height + down);
        std::vector<std::uint32_t> columns;
        for (int x = 0; x < picture.width; ++x) {
            columns.push_back(ColumnColor(x, picture.width));
        }
        const auto wanted = [&](int x, int y) {
            const int column = x - picture.left;
            const int row = y - picture.top;
            const bool inside =
                column >= 0 && row >= 0 && column < picture.width && row < picture.height;
            return inside ? columns[static_cast<std::size_t>(column)] : kBlack;
        };
        for (int y = 0; y < height && wrong_.empty(); ++y) {
            for (int x = 0; x < boxWidth_; ++x) {
                const std::uint32_t color = At(x, boxTop_ + y);
                const std::uint32_t right = wanted(x, y);
                const bool pure = right == kBlack || right == kGround || right == kBar;
                const bool atTheEdge = x >= window_.place.width - rest_ || y >= height - rest_;
                if (!IsLike(color, right, pure ? 0 : 2) && !(atTheEdge && color == kBlack)) {
                    Note(x, boxTop_ + y, color,
                         Hex(right) + "; a picture " + std::to_string(picture.width) + " wide");
                    break;
                }
            }
        }
    }

    void Note(int x, int y, std::uint32_t color, const std::string& what) {
        wrong_ = "of " + std::to_string(window_.place.width) + " x " +
                 std::to_string(window_.place.height) + " pixels, a box " +
                 std::to_string(boxWidth_) + " wide from " + std::to_string(boxTop_) + ": " +
                 std::to_string(x) + ", " + std::to_string(y) + " is " + Hex(color) +
                 ", where it should be " + what;
    }

    const Screenshot& shot_;
    const WindowParts& window_;
    // The toolkit rounds to its own pixels: up to half of one.
    const int rest_ = window_.scale == 1 ? 0 : static_cast<int>(std::ceil(window_.scale / 2));
    int boxTop_ = 0;
    int boxEnd_ = 0;
    int boxWidth_ = 0;
    int lineEnd_ = 0;  // of the status line, which begins where the box ends
    std::string wrong_;
    std::string nearest_;
};

}  // namespace

std::string WrongPixels(const Screenshot& shot, const WindowParts& window) {
    return Check(shot, window).Run();
}

}  // namespace scenara::test
