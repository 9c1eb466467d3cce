// SPDX-License-Identifier: MIT
#include "editor/DataCheck.h"

#include <string_view>

#include "base/NumberText.h"
#include "base/Path.h"
#include "base/Text.h"
#include "stage/ModelLookup.h"

namespace scenara {
namespace {

struct Dump {
    void Line(std::string_view line) { text.append(line).append(kCrLf); }
    void Line(std::string_view key, const std::string& value) {
        text.append(key).append(" = ").append(value).append(kCrLf);
    }

    std::string text;
};

std::string Pair(const std::string& first, const std::string& second) {
    return first + "," + second;
}

// Addition: a place may have a fraction.
std::string WithFraction(Long whole, Single fraction) {
    return fraction == 0 ? NumberText(whole)
                         : DumpNumber(static_cast<Single>(whole + static_cast<double>(fraction)));
}

void WriteFrame(const StageFrame& frame, Dump& dump) {
    std::string line = NumberText(frame.group);
    const auto& [fractionX, fractionY] = frame.offsetFraction;
    for (const std::string& value :
         {NumberText(frame.image), WithFraction(frame.offsetX, fractionX),
          WithFraction(frame.offsetY, fractionY), NumberText(frame.time)}) {
        line = Pair(line, value);
    }
    dump.Line(frame.flip.empty() ? line : Pair(line, frame.flip));
}

void WriteAction(const StageAction& action, Dump& dump) {
    if (action.frameCount <= 0) {
        return;
    }
    dump.Line("");
    dump.Line("[Begin action " + NumberText(action.actionNo) + "]");
    for (const StageFrame& frame : action.frames) {
        WriteFrame(frame, dump);
    }
}

// Elements that show frames have the index of their action, all others the number as the file has
// it.
Integer ActionNumberOf(const StageModel& model, const BackgroundElement& element) {
    if (!ShowsFrames(element) || element.actionIndex == -1) {
        return element.actionIndex;
    }
    return RecordAt(model.Actions, element.actionIndex, "action").actionNo;
}

void WriteElement(const StageModel& model, const BackgroundElement& element, bool additions,
                  Dump& dump) {
    // Addition: of the keys for pictures only the one that counts, where either may.
    const bool frames = ShowsFrames(element);
    const bool anim = element.kind == ElementKind::Animated;
    dump.Line("[BG " + element.name + "]");
    dump.Line("type", element.type);
    if (frames || !additions) {
        dump.Line("actionno", NumberText(ActionNumberOf(model, element)));
    }
    dump.Line("layerno", NumberText(element.layerno));
    if (anim || !frames || !additions) {
        dump.Line("spriteno",
                  Pair(NumberText(element.spriteGroup), NumberText(element.spriteImage)));
    }
    dump.Line("start", Pair(WithFraction(element.startX, element.startFraction[0]),
                            WithFraction(element.startY, element.startFraction[1])));
    dump.Line("delta", Pair(DumpNumber(element.deltaRead[0]), DumpNumber(element.deltaRead[1])));
    dump.Line("mask", NumberText(element.mask));
    dump.Line("");
}

}  // namespace

std::string DumpNumber(Single value) {
    std::string text = NumberText(value);
    const std::size_t digits = text.starts_with('-') ? 1 : 0;
    if (std::string_view(text).substr(digits).starts_with("0.")) {
        text.erase(digits, 1);
    }
    return text;
}

std::string DataCheckText(const StageModel& model, bool additions) {
    Dump dump;
    for (const StageAction& action : model.Actions) {
        WriteAction(action, dump);
    }
    for (const BackgroundElement& element : model.Elements) {
        WriteElement(model, element, additions, dump);
    }
    return std::move(dump.text);
}

std::string DataCheckPath(Files& files) {
#ifdef _WIN32
    static_cast<void>(files);
    return "c:\\chek.txt";
#else
    return JoinPath(files.ProgramFolder(), "chek.txt");
#endif
}

std::string DataCheck(const StageModel& model, bool additions, Files& files) {
    const std::string text = DataCheckText(model, additions);
    std::string path = DataCheckPath(files);
    const std::unique_ptr<OutputFile> file = files.OpenForWriting(path);
    file->Write(text);
    file->Close();
    return path;
}

std::string DataCheckCaption(const std::string& path) {
    return "Dumped to " + path;
}

}  // namespace scenara
