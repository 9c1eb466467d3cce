// SPDX-License-Identifier: MIT
//
// Stages for whole frames, loaded and drawn by the program itself on the headless machine; the
// painted one is a definition and a small archive.
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
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/png/LibPngPictures.h"
#include "scenara-shot/KeyScript.h"
#include "scenara-shot/ShotMachine.h"
#include "stage/ViewOptions.h"
#include "support/MemoryFiles.h"

namespace scenara::test {

// A stage on the headless machine, drawn frame by frame as by scenara-shot.
class ShotStage {
public:
    // With a character's definition that character stands on it. Raises what a test fails by when
    // the stage does not load.
    ShotStage(std::unique_ptr<Files> files, const std::string& stageFile,
              const std::string& mugenFolder, const std::string& charFile, const ViewOptions& view,
              std::string_view keyScript = {});

    // The script counts from the first frame of all, or from the one that it is given for.
    void Run(int frames);
    void Pass(int frames);  // which nobody looks at
    void Hold(std::string_view keyScript);
    void Run(std::string_view keyScript, int frames);
    void Zoom(double zoom) { machine_.Zoom(zoom); }  // from the next frame on

    [[nodiscard]] const std::vector<std::uint32_t>& Picture() const { return machine_.Picture(); }
    [[nodiscard]] const CanvasSize& PictureSize() const { return machine_.PictureSize(); }
    [[nodiscard]] std::uint32_t Rgb(int x, int y) const;
    [[nodiscard]] const StageModel& Model() const { return machine_.Model(); }
    [[nodiscard]] const TestCharState& TestChar() const { return machine_.TestChar(); }
    [[nodiscard]] const TestCharacter& Hero() const { return TestChar().Characters.at(0); }
    [[nodiscard]] std::vector<std::string> MessageTexts() const;

    void ShowInfo(bool info = true) { info_ = info; }

private:
    std::unique_ptr<Files> files_;
    LibPngPictures png_;
    ShotMachine machine_;
    KeyScript keys_;
    std::int64_t frame_ = 0;
    bool info_ = false;
};

class PaintedStage : public ShotStage {
public:
    // `definition` gets the archive's name in front. Plain, unless told otherwise. A character is
    // one of /mugen/chars/ in `files`.
    explicit PaintedStage(std::string_view definition, const ViewOptions& view = kPlainView,
                          std::unique_ptr<MemoryFiles> files = std::make_unique<MemoryFiles>(),
                          const std::string& character = {});
};

// The archive above.
[[nodiscard]] const std::vector<std::byte>& PaintedArchive();

// Bounds that leave the camera room in every direction.
inline constexpr const char* kRoom =
    "[Camera]\nboundleft = -200\nboundright = 200\nboundhigh = -100\nboundlow = 0\n";

// An element that covers the view and stays where it is.
inline constexpr const char* kBackdrop =
    "[BG backdrop]\ntype = normal\nspriteno = 0,0\nstart = 0,0\ndelta = 0,0\n";

}  // namespace scenara::test
