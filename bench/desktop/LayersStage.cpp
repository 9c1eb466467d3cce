// SPDX-License-Identifier: MIT
#include "desktop/LayersStage.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "support/StageArt.h"

namespace scenara::bench {
namespace {

constexpr int kLayers = 20;

// The layers are wider than the view.
std::string WriteStage(const std::string& engine) {
    const std::string folder = engine + "stages/";
    std::filesystem::create_directory(folder);
    std::vector<samplemaker::Sff1Subfile> subfiles;
    const auto add = [&](const samplemaker::IndexedPicture& picture) {
        samplemaker::Sff1Subfile subfile;
        subfile.image = static_cast<std::int16_t>(subfiles.size());
        subfile.axisX = static_cast<std::int16_t>(picture.width / 2);
        subfile.data = samplemaker::WritePcx(picture);
        subfiles.push_back(std::move(subfile));
    };
    std::ofstream stage(folder + "layers.def");
    stage << "[Info]\nname = layers\n[Camera]\n[BGdef]\nspr = stages/layers.sff\n"
             "[BG 0]\ntype = normal\nspriteno = 0,0\n";
    add(DrawBackdrop(960, 240, 1));
    for (int layer = 1; layer <= kLayers; ++layer) {
        add(DrawLayer(960, 240, static_cast<std::uint32_t>(layer + 1)));
        stage << "[BG " << layer << "]\ntype = normal\nspriteno = 0," << layer
              << "\nmask = 1\ntile = 1\nvelocity = 0." << layer + 1 << "\n";
    }
    const std::vector<std::byte> bytes = samplemaker::WriteSff1(subfiles);
    std::ofstream(folder + "layers.sff", std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return folder + "layers.def";
}

}  // namespace

// The picture's box is smaller than the window by the bar of menus; that the picture is three times
// its size is all that counts.
std::string WriteLayersAndSettings(const std::string& folder) {
    std::ofstream(folder + "QX.CFG") << "MugeDir = " << folder << "\r\nBGMusic = False\r\n";
    std::ofstream(folder + "Scenara.ini")
        << "WholeMultiplesOnly = True\r\nWindowWidth = 1100\r\nWindowHeight = 860\r\n";
    return WriteStage(folder);
}

bool IsThreeTimes(const Form& form) {
    return form.picDraw.width == 1100 && form.picDraw.height >= 720 && form.picDraw.height < 960;
}

}  // namespace scenara::bench
