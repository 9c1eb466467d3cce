// SPDX-License-Identifier: MIT
//
// sample-maker OUTDIR: makes a small MUGEN folder, so that there is something to look at at once.
//
// Writes stages/<name>.def, stages/<name>.sff and its music in sound/ for every bundled stage, and
// the files of the bundled character under chars/. Exit status: 0 all written, 1 a file could not
// be written, 2 wrong use.
#include <cstddef>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "base/Version.h"
#include "cloudharbour/CloudHarbour.h"
#include "cloudharbour/Definition.h"
#include "glasslagoon/Definition.h"
#include "glasslagoon/GlassLagoon.h"
#include "lanternkeeper/Animations.h"
#include "lanternkeeper/Constants.h"
#include "lanternkeeper/Definition.h"
#include "lanternkeeper/LanternKeeper.h"
#include "lanternpier/Definition.h"
#include "lanternpier/LanternPier.h"
#include "millfair/Definition.h"
#include "millfair/MillFair.h"
#include "nightexpress/Definition.h"
#include "nightexpress/NightExpress.h"
#include "thousandpanes/Definition.h"
#include "thousandpanes/ThousandPanes.h"

namespace {

namespace fs = std::filesystem;

void WriteFile(const fs::path& path, std::span<const std::byte> bytes) {
    std::ofstream file(path, std::ios::binary);
    for (const std::byte byte : bytes) {
        file.put(std::to_integer<char>(byte));
    }
    file.close();
    if (!file) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

// MUGEN's own text files end their lines with CR LF.
std::string WithCrLf(std::string_view text) {
    std::string result;
    for (const char c : text) {
        result += c == '\n' ? "\r\n" : std::string(1, c);
    }
    return result;
}

void WriteText(const fs::path& path, std::string_view text) {
    const std::string withCrLf = WithCrLf(text);
    WriteFile(path, std::as_bytes(std::span(withCrLf)));
}

void WriteStage(const fs::path& folder, const std::string& name, std::string_view definition,
                std::span<const std::byte> archive) {
    WriteText(folder / (name + ".def"), definition);
    WriteFile(folder / (name + ".sff"), archive);
}

void WriteLanternKeeper(const fs::path& folder) {
    using namespace scenara::samples;
    fs::create_directories(folder);
    WriteText(folder / "lanternkeeper.def", kLanternKeeperDefinition);
    WriteText(folder / "lanternkeeper.air", kLanternKeeperAnimations);
    WriteText(folder / "lanternkeeper.cns", kLanternKeeperConstants);
    WriteFile(folder / "lanternkeeper.sff", LanternKeeperArchive());
    WriteFile(folder / "lanternkeeper1.act", LanternKeeperColours(1));
    WriteFile(folder / "lanternkeeper2.act", LanternKeeperColours(2));
}

void MakeFolder(const fs::path& folder) {
    for (const char* name : {"chars", "sound", "stages"}) {
        fs::create_directories(folder / name);
    }
    WriteLanternKeeper(folder / "chars" / "lanternkeeper");
    WriteStage(folder / "stages", "cloudharbour", scenara::samples::kCloudHarbourDefinition,
               scenara::samples::CloudHarbourArchive());
    WriteStage(folder / "stages", "glasslagoon", scenara::samples::kGlassLagoonDefinition,
               scenara::samples::GlassLagoonArchive());
    WriteStage(folder / "stages", "lanternpier", scenara::samples::kLanternPierDefinition,
               scenara::samples::LanternPierArchive());
    WriteStage(folder / "stages", "millfair", scenara::samples::kMillFairDefinition,
               scenara::samples::MillFairArchive());
    WriteStage(folder / "stages", "nightexpress", scenara::samples::kNightExpressDefinition,
               scenara::samples::NightExpressArchive());
    WriteStage(folder / "stages", "thousandpanes", scenara::samples::kThousandPanesDefinition,
               scenara::samples::ThousandPanesArchive());
    WriteFile(folder / "sound/harbour.mid", scenara::samples::CloudHarbourMusic());
    WriteFile(folder / "sound/fair.mid", scenara::samples::MillFairMusic());
    WriteFile(folder / "sound/lagoon.mid", scenara::samples::GlassLagoonMusic());
    WriteFile(folder / "sound/pier.mid", scenara::samples::LanternPierMusic());
    WriteFile(folder / "sound/express.mod", scenara::samples::NightExpressMusic());
    WriteFile(folder / "sound/panes.wav", scenara::samples::ThousandPanesMusic());
}

}  // namespace

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (arguments.size() != 2) {
        std::cerr << "Usage: sample-maker OUTDIR\n"
                     "       sample-maker --version\n";
        return 2;
    }
    if (std::string_view(arguments[1]) == "--version") {
        std::cout << scenara::VersionLine();
        return 0;
    }
    try {
        MakeFolder(arguments[1]);
    } catch (const std::exception& error) {
        std::cerr << "sample-maker: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
