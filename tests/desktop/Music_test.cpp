// SPDX-License-Identifier: MIT
//
// Music in the real program: the player's file is seen to be open while the stage is shown.
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "desktop/DesktopProgram.h"
#include "samplemaker/WavWriter.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;

class DesktopMusic : public DesktopProgram {
protected:
    void SetUp() override {
        DesktopProgram::SetUp();
        fs::create_directories(Folder() / "mugen/sound");
        samplemaker::WavSound silence;
        silence.samples.resize(silence.framesPerSecond);
        const std::vector<std::byte> bytes = samplemaker::WriteWav(silence);
        std::ofstream(Folder() / "mugen/sound/bar.wav", std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
        std::ofstream(StagePath("bar"), std::ios::app) << "[Music]\nbgmusic = sound/bar.wav\n";
    }
};

TEST_F(DesktopMusic, IsPlayedWithItsStageAndGoesWithIt) {
    StartWithBar();
    EXPECT_TRUE(Eventually([&] { return program_->HasOpen("sound/bar.wav"); }));
    ClickListItem(1);
    ExpectTitle("cup");
    EXPECT_TRUE(Eventually([&] { return !program_->HasOpen("sound/bar.wav"); }))
        << "nothing of the stage before is heard";
}

}  // namespace
}  // namespace scenara::test
