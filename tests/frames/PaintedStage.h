// SPDX-License-Identifier: MIT
//
// A stage for whole frames: a definition and a small archive, loaded and drawn by the program
// itself on the headless machine.
//
// The archive's sprites, all in one palette whose index 0 is a loud magenta:
//   0,0  backdrop  320 x 240, axis 160,0: squares of 20 pixels in two greys; covers the view
//   1,0  arrow      40 x 30,  axis 20,30: points right, nothing around it; no two sides are alike
//   2,0  tile       24 x 16,  axis 0,0: a frame with a hole in the middle
//   3,0  floor     480 x 60,  axis 240,0: stripes of 20 pixels, 24 of them
//   4,0 to 4,3      32 x 32,  axis 16,16: one to four bars in different colours
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "scenara-shot/KeyScript.h"
#include "scenara-shot/ShotMachine.h"
#include "stage/ViewOptions.h"
#include "support/MemoryFiles.h"

namespace scenara::test {

class PaintedStage {
public:
    // `definition` gets the archive's name in front. Plain, unless told otherwise.
    explicit PaintedStage(std::string_view definition, const ViewOptions& view = kPlainView);

    // Frames as with scenara-shot; the script counts from the first frame of all.
    void Run(int frames);
    void Hold(std::string_view keyScript) { keys_ = KeyScript(keyScript); }

    [[nodiscard]] const std::vector<std::uint32_t>& Picture() const { return machine_.Picture(); }
    [[nodiscard]] std::uint32_t Rgb(int x, int y) const;
    [[nodiscard]] const StageModel& Model() const { return machine_.Model(); }
    [[nodiscard]] std::vector<std::string> MessageTexts() const;

    void ShowInfo(bool info = true) { info_ = info; }

private:
    MemoryFiles files_;
    ShotMachine machine_;
    KeyScript keys_;
    std::int64_t frame_ = 0;
    bool info_ = false;
};

// The archive above.
[[nodiscard]] const std::vector<std::byte>& PaintedArchive();

// An element that covers the view and stays where it is.
inline constexpr const char* kBackdrop =
    "[BG backdrop]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ndelta = 0,0\n";

}  // namespace scenara::test
