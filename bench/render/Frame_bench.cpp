// SPDX-License-Identifier: MIT
//
// A whole frame of each stage at hand: its clocks, placing and drawing all elements, both passes.
// One iteration is one frame, the stage goes on from one to the next. There is nobody to compare
// it with; it shows what a frame has besides blits.
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/headless/HeadlessClock.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessPointer.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/posix/PosixFiles.h"
#include "platform/soft/SoftDirect3D.h"
#include "render/Frame.h"
#include "render/PrepareStage.h"
#include "stage/LoadStage.h"
#include "support/StageFolders.h"

namespace scenara::bench {
namespace {

class StageInView {
public:
    StageInView(const std::string& folder, const std::string& definition)
        : machine_(std::make_shared<TextureMemory>()),
          engine_(machine_, window_, messages_, model_),
          tiles_(engine_, model_, camera_, flags_, kPlainView,
                 {keyboard_, clock_, pointer_, window_}) {
        engine_.Engine_Init();
        PosixFiles files("");
        const ViewOptions view;
        std::string path = folder + "stages/" + definition;
        if (!engine_.HasDevice() ||
            !LoadStage(model_, path,
                       {files, messages_, window_, engine_.Device(), view, folder, {}})) {
            throw std::runtime_error(messages_.Recorded().back().text);
        }
        PlaceCamera(model_, camera_);
        PrepareElements(model_, kPlainView);
    }

    void Draw() {
        DrawScene(engine_, tiles_, flags_);
        clock_.Advance();
    }

    [[nodiscard]] std::size_t ElementCount() const { return model_.Elements.size(); }

private:
    SoftDirect3D machine_;
    HeadlessWindow window_;
    HeadlessMessages messages_;
    HeadlessKeyboard keyboard_;
    HeadlessClock clock_;
    HeadlessPointer pointer_;
    StageModel model_;
    Camera camera_;
    ViewFlags flags_;
    Engine engine_;
    TileEngine tiles_;
};

void DrawFrames(benchmark::State& state, const std::string& folder, const std::string& definition) {
    try {
        StageInView stage(folder, definition);
        for ([[maybe_unused]] const auto iteration : state) {
            stage.Draw();
        }
        state.counters["elements"] = static_cast<double>(stage.ElementCount());
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

bool ListStages() {
    for (const std::string& folder : {BundledFolder(), SampleDataFolder()}) {
        for (const std::string& name : PosixFiles("").List(folder + "stages/", ".def")) {
            benchmark::RegisterBenchmark(
                ("Frame/" + name.substr(0, name.rfind('.'))).c_str(),
                [folder, name](benchmark::State& state) { DrawFrames(state, folder, name); })
                ->Unit(benchmark::kMicrosecond);
        }
    }
    return true;
}

[[maybe_unused]] const bool kListed = ListStages();

}  // namespace
}  // namespace scenara::bench
