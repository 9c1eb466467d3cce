// SPDX-License-Identifier: MIT
#include "literal/SolidPictures.h"

#include <algorithm>
#include <cstddef>
#include <sstream>

#include "frames/PaintedStage.h"
#include "platform/View.h"
#include "samplemaker/Canvas.h"
#include "samplemaker/PcxWriter.h"

namespace scenara::test {
namespace {

std::vector<ViewFrame> FramesIn(const std::string& text) {
    std::vector<ViewFrame> frames;
    std::istringstream words(text);
    ViewFrame frame;
    char comma = 0;
    while (words >> frame.left >> comma >> frame.top >> comma >> frame.right >> comma >>
           frame.bottom) {
        frames.push_back(frame);
    }
    return frames;
}

bool Covers(const std::vector<ViewFrame>& frames, int x, int y) {
    return std::ranges::any_of(frames, [&](const ViewFrame& frame) {
        return frame.left <= x && x < frame.right && frame.top <= y && y < frame.bottom;
    });
}

}  // namespace

samplemaker::Sff1Subfile SolidSprite(std::int16_t group, std::int16_t image, const Pair& axis,
                                     const Pair& size, const Pair& solid) {
    samplemaker::Canvas canvas(size.x, size.y);
    canvas.FillRect(0, 0, solid.x, solid.y, 1);
    samplemaker::Palette palette{};
    palette[1] = {kSolidColour & 0xFF, kSolidColour & 0xFF, kSolidColour & 0xFF};
    samplemaker::Sff1Subfile subfile;
    subfile.group = group;
    subfile.image = image;
    subfile.axisX = static_cast<std::int16_t>(axis.x);
    subfile.axisY = static_cast<std::int16_t>(axis.y);
    subfile.data = samplemaker::WritePcx(canvas.ToPicture(palette));
    return subfile;
}

samplemaker::Sff1Subfile SolidSprite(std::int16_t group, std::int16_t image, const Pair& axis,
                                     const Pair& size) {
    return SolidSprite(group, image, axis, size, size);
}

const std::vector<std::byte>& SolidArchive() {
    static const std::vector<std::byte> kArchive = samplemaker::WriteSff1({
        SolidSprite(1, 0, {0, 0}, {10, 8}),
        SolidSprite(2, 0, {3, 5}, {10, 8}),
        SolidSprite(3, 0, {2, 1}, {7, 5}),
        SolidSprite(4, 0, {3, 5}, {10, 8}, {4, 8}),
        SolidSprite(4, 1, {3, 5}, {10, 8}, {10, 2}),
        SolidSprite(5, 0, {0, 0}, {100, 80}),
        SolidSprite(6, 0, {8, 0}, {16, 4}),
        SolidSprite(6, 1, {8, 2}, {16, 4}),
    });
    return kArchive;
}

std::string SolidDefinition(const std::string& settings, const std::string& elements) {
    return "[BGdef]\nspr = random.sff\n" + settings + kRoom + elements;
}

std::string Wrong(const ShownCanvas& shown, const std::string& size, const std::string& covered,
                  std::uint32_t colour) {
    const std::vector<ViewFrame> frames = FramesIn(covered);
    std::ostringstream shownSize;
    shownSize << shown.size.width << " x " << shown.size.height;
    ViewFrame lit{shown.size.width, shown.size.height, 0, 0};
    std::ostringstream first;
    for (int y = 0; y < shown.size.height; ++y) {
        for (int x = 0; x < shown.size.width; ++x) {
            const auto at =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(shown.size.width) +
                static_cast<std::size_t>(x);
            const std::uint32_t pixel = shown.pixels.at(at);
            if (pixel != 0) {
                lit = {std::min(lit.left, x), std::min(lit.top, y), std::max(lit.right, x + 1),
                       std::max(lit.bottom, y + 1)};
            }
            if (first.view().empty() && pixel != (Covers(frames, x, y) ? colour : 0)) {
                first << "; " << std::dec << x << "," << y << " is " << std::hex << pixel;
            }
        }
    }
    if (first.view().empty() && shownSize.view() == size) {
        return {};
    }
    std::ostringstream text;
    text << shownSize.view() << first.view() << "; what is seen lies within " << lit.left << ","
         << lit.top << "," << lit.right << "," << lit.bottom;
    return text.str();
}

}  // namespace scenara::test
