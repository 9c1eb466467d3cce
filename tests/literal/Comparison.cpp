// SPDX-License-Identifier: MIT
#include "literal/Comparison.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <sstream>
#include <stdexcept>

#include "frames/PaintedStage.h"
#include "literal/ProgramStage.h"
#include "literal/RandomAlpha.h"
#include "support/StageFixture.h"

namespace scenara::test {
namespace {

void Put(MemoryFiles& files, const RandomStage& stage) {
    files.Put("/mugen/stages/random.sff", std::span(stage.archive));
    files.Put(kTestStage, stage.definition);
}

void ChangePictures(StageModel& model, const RandomStage& stage) {
    if (stage.alphas) {
        GiveAlpha(model, *stage.alphas);
    }
}

// Raises what a test fails by when the stage does not load.
void Load(StageMachine& loader, const RandomStage& stage, const ViewOptions& view) {
    loader.view = view;
    Put(loader.files, stage);
    if (!loader.LoadFile(kTestStage)) {
        throw std::runtime_error("the stage does not load");
    }
    ChangePictures(loader.model, stage);
}

// 0: it stays.
double ZoomBefore(const RandomStage& stage, std::size_t frame) {
    return frame < stage.zooms.size() ? stage.zooms[frame] : 0;
}

void DrawFrame(LiteralStage& literal, const RandomStage& stage, std::size_t frame) {
    if (const double zoom = ZoomBefore(stage, frame); zoom != 0) {
        literal.SetZoom(zoom);
    }
    literal.DrawFrame(stage.keys[frame]);
}

std::string ZoomScript(const RandomStage& stage) {
    std::ostringstream script;
    for (std::size_t frame = 0; frame < stage.zooms.size(); ++frame) {
        if (stage.zooms[frame] != 0) {
            script << "zoom " << stage.zooms[frame] << " before frame " << frame + 1 << "\n";
        }
    }
    return script.str();
}

// As a key script says it.
std::string Words(const LiteralKeys& keys) {
    std::string words;
    const auto add = [&words](bool held, const char* name) {
        if (held) {
            words += (words.empty() ? "" : "+") + std::string(name);
        }
    };
    add(keys.left, "left");
    add(keys.right, "right");
    add(keys.up, "up");
    add(keys.down, "down");
    return words.empty() ? "none" : words;
}

std::string Script(const std::vector<LiteralKeys>& keys) {
    std::string script;
    std::string last;
    int count = 0;
    const auto end = [&] {
        if (count > 0) {
            script += (script.empty() ? "" : ",") + last + ":" + std::to_string(count);
        }
        count = 0;
    };
    for (const LiteralKeys& held : keys) {
        const std::string words = Words(held);
        if (words != last) {
            end();
            last = words;
        }
        ++count;
    }
    end();
    return script;
}

std::string Difference(const ShownCanvas& shown, const LiteralStage& literal) {
    std::ostringstream text;
    if (shown.size != CanvasSize{literal.Width(), literal.Height()}) {
        text << "the program's picture is " << shown.size.width << " x " << shown.size.height
             << ", the rules say " << literal.Width() << " x " << literal.Height();
        return text.str();
    }
    const int width = literal.Width();
    for (std::size_t at = 0; at < shown.pixels.size(); ++at) {
        if (shown.pixels[at] != literal.Picture()[at] && literal.InDoubt()[at] == 0) {
            text << "pixel " << static_cast<int>(at) % width << "," << static_cast<int>(at) / width
                 << ": the program has " << std::hex << shown.pixels[at] << ", the rules say "
                 << literal.Picture()[at];
            break;
        }
    }
    return text.str();
}

// More than a third of the picture.
bool MuchIsInDoubt(const LiteralStage& literal) {
    const std::vector<std::uint8_t>& inDoubt = literal.InDoubt();
    return 3 * std::ranges::count(inDoubt, 1) > std::ssize(inDoubt);
}

}  // namespace

ShownCanvas LiteralPictureOf(const RandomStage& stage, const ViewOptions& view) {
    StageMachine loader;
    Load(loader, stage, view);
    LiteralStage literal(loader.model, LiteralRules::Of(view));
    for (std::size_t frame = 0; frame < stage.keys.size(); ++frame) {
        DrawFrame(literal, stage, frame);
    }
    return {{literal.Width(), literal.Height()}, literal.Picture()};
}

ShotStage ProgramWith(const RandomStage& stage, const ViewOptions& view) {
    auto files = std::make_unique<MemoryFiles>();
    Put(*files, stage);
    return {std::move(files), kTestStage, "/mugen/", {}, view, Script(stage.keys)};
}

std::string FirstDifference(const RandomStage& stage, const ViewOptions& view) {
    return CompareStage(stage, view).difference;
}

ComparedStage CompareStage(const RandomStage& stage, const ViewOptions& view) {
    StageMachine loader;
    Load(loader, stage, view);
    LiteralStage literal(loader.model, LiteralRules::Of(view));

    auto files = std::make_unique<MemoryFiles>();
    Put(*files, stage);
    ProgramStage program(std::move(files), kTestStage, view,
                         [&](StageModel& model) { ChangePictures(model, stage); });
    for (std::size_t frame = 0; frame < stage.keys.size(); ++frame) {
        DrawFrame(literal, stage, frame);
        if (const double zoom = ZoomBefore(stage, frame); zoom != 0) {
            program.SetZoom(zoom);
        }
        program.RunFrame(stage.keys[frame]);
        if (MuchIsInDoubt(literal)) {
            return {{}, true};
        }
        const std::string difference = Difference(program.Canvas(), literal);
        if (!difference.empty()) {
            std::ostringstream text;
            text << "frame " << frame + 1 << " of " << stage.keys.size() << ", " << difference
                 << "\nkeys " << Script(stage.keys) << "\n"
                 << ZoomScript(stage)
                 << (stage.alphas ? "alphas " + std::to_string(*stage.alphas) + "\n" : "")
                 << stage.definition;
            return {text.str(), false};
        }
    }
    return {};
}

RandomStage Shortest(RandomStage stage, const ViewOptions& view) {
    bool shorter = true;
    while (shorter) {
        shorter = false;
        std::size_t begin = 0;
        while (begin < stage.definition.size()) {
            const std::size_t end = stage.definition.find('\n', begin) + 1;
            RandomStage without = stage;
            without.definition.erase(begin, end - begin);
            if (FirstDifference(without, view).empty()) {
                begin = end;
            } else {
                stage = std::move(without);
                shorter = true;
            }
        }
    }
    return stage;
}

}  // namespace scenara::test
