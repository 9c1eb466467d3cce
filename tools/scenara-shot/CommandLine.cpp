// SPDX-License-Identifier: MIT
#include "scenara-shot/CommandLine.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>
#include <string_view>

#include "scenara-shot/Count.h"
#include "scenara-shot/SizedFrames.h"

namespace scenara {
namespace {

// The word behind an option.
std::string Argument(const std::vector<std::string>& words, std::size_t& at) {
    if (at + 1 >= words.size()) {
        throw std::invalid_argument(words[at] + " needs an argument");
    }
    return words[++at];
}

// The count behind an option.
std::int32_t CountArgument(const std::vector<std::string>& words, std::size_t& at) {
    const std::string& option = words[at];
    const std::string text = Argument(words, at);
    const auto count = ParseCount(text);
    if (!count) {
        throw std::invalid_argument(option + " needs a whole number from 1 to 2147483647, not \"" +
                                    text + "\"");
    }
    return *count;
}

// The size that follows an option, as 640x480.
CanvasSize SizeArgument(const std::vector<std::string>& words, std::size_t& at) {
    const std::string& option = words[at];
    const std::string text = Argument(words, at);
    const std::size_t cross = std::min(text.find('x'), text.size());
    const auto width = ParseCount(std::string_view(text).substr(0, cross));
    const auto height = ParseCount(std::string_view(text).substr(std::min(cross + 1, text.size())));
    if (!width || !height || *width > kMostSized || *height > kMostSized) {
        throw std::invalid_argument(option + " needs a width and a height from 1 to " +
                                    std::to_string(kMostSized) + ", such as 640x480, not \"" +
                                    text + "\"");
    }
    return {*width, *height};
}

// The zoom that follows an option.
double ZoomArgument(const std::vector<std::string>& words, std::size_t& at) {
    const std::string& option = words[at];
    const std::string text = Argument(words, at);
    double zoom = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), zoom);
    if (error != std::errc() || end != text.data() + text.size() || !(zoom > 0)) {
        throw std::invalid_argument(option + " needs a number above 0, such as 0.8, not \"" + text +
                                    "\"");
    }
    return zoom;
}

void RequireSense(const ShotOptions& options) {
    if (options.mugeDir.empty()) {
        throw std::invalid_argument("--mugen DIR is missing");
    }
    if (options.stage.empty()) {
        throw std::invalid_argument("the stage is missing");
    }
    if (options.every && !options.pictureFile) {
        throw std::invalid_argument("--every needs --out, which names the pictures");
    }
    if (options.size && !options.pictureFile) {
        throw std::invalid_argument("--size needs --out, which names the picture");
    }
    if (options.zoom && options.plain) {
        throw std::invalid_argument("--zoom is an addition, which --plain leaves out");
    }
}

}  // namespace

ShotOptions ParseCommandLine(const std::vector<std::string>& words) {
    ShotOptions options;
    for (std::size_t at = 0; at < words.size(); ++at) {
        const std::string& word = words[at];
        if (word == "--mugen") {
            options.mugeDir = Argument(words, at);
        } else if (word == "--model") {
            options.modelFile = Argument(words, at);
        } else if (word == "--sprites") {
            options.spriteDir = Argument(words, at);
        } else if (word == "--frames") {
            options.frames = CountArgument(words, at);
        } else if (word == "--keys") {
            options.keys = KeyScript(Argument(words, at));
        } else if (word == "--char") {
            options.character = Argument(words, at);
        } else if (word == "--every") {
            options.every = CountArgument(words, at);
        } else if (word == "--size") {
            options.size = SizeArgument(words, at);
        } else if (word == "--zoom") {
            options.zoom = ZoomArgument(words, at);
        } else if (word == "--smooth") {
            options.smooth = true;
        } else if (word == "--info") {
            options.info = true;
        } else if (word == "--out") {
            options.pictureFile = Argument(words, at);
        } else if (word == "--plain") {
            options.plain = true;
        } else if (word == "--help") {
            options.help = true;
        } else if (word == "--version") {
            options.version = true;
        } else if (word.starts_with("--")) {
            throw std::invalid_argument("there is no option " + word);
        } else if (options.stage.empty()) {
            options.stage = word;
        } else {
            throw std::invalid_argument("one stage at a time: " + options.stage + " or " + word);
        }
    }
    if (!options.help && !options.version) {
        RequireSense(options);
    }
    return options;
}

std::string UsageText() {
    return "Usage: scenara-shot --mugen DIR STAGE.def [--frames N] [--keys SCRIPT]\n"
           "           [--char CHAR.def] [--info] [--out FILE.png] [--every K]\n"
           "           [--size WxH] [--zoom Z] [--smooth] [--model FILE.json]\n"
           "           [--sprites DIR] [--plain]\n"
           "       scenara-shot --help\n"
           "       scenara-shot --version\n"
           "\n"
           "Shows a stage without a window.\n"
           "\n"
           "  --mugen DIR        the MUGEN folder\n"
           "  STAGE.def          a path, or a name under stages/ of the folder\n"
           "  --frames N         run N frames (default 1), as fast as they go\n"
           "  --keys SCRIPT      hold keys from the first frame on, each for so many frames:\n"
           "                     right:30,right+up:10,none:5 (left right up down a z none)\n"
           "  --char CHAR.def    put a character on the stage, whom Left and Right walk: a\n"
           "                     path, or a place under chars/ of the folder\n"
           "  --info             show the information line\n"
           "  --out FILE.png     write the last frame\n"
           "  --every K          write every K-th frame, too, as FILE-00001.png and so on\n"
           "  --size WxH         write them as large as fits into W x H pixels, as a window\n"
           "                     shows them: each pixel is the mean of what is under it\n"
           "  --zoom Z           the camera's zoom, as far as the stage goes\n"
           "  --smooth           mix neighbouring pixels of what is made larger\n"
           "  --model FILE.json  write the stage as it is before the first frame as JSON\n"
           "  --sprites DIR      write every sprite as NNNN_group_image.png\n"
           "  --plain            plain reading, without additions\n"
           "  --help             this text\n"
           "  --version          the program's name and version\n"
           "\n"
           "Keys are down in exactly their frames, and none after the script. The camera\n"
           "moves by two steps a frame while a direction is held, seen in the next frame\n"
           "(with --plain in the next two): in a view of 320 x 240 by 2 pixels, in a larger\n"
           "one by as many times more. A step is made whole or not at all. a and z make the\n"
           "steps longer and shorter by 0.5, from 0.5 to 10, every tenth frame.\n"
           "\n"
           "Frames that are not written are not drawn, but with --plain, where pictures show\n"
           "what was drawn before them.\n"
           "\n"
           "Messages go to standard error, one line each. Exit status: 0 shown, 1 the stage\n"
           "or the character could not be shown, 2 wrong use. The stage is written without a\n"
           "character that could not.\n";
}

}  // namespace scenara
