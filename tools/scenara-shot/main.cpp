// SPDX-License-Identifier: MIT
//
// scenara-shot: stages without a window, for authors' scripts and for tests.
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/soft/SoftDevice.h"
#include "scenara-shot/CommandLine.h"
#include "scenara-shot/ModelJson.h"
#include "scenara-shot/SpriteFiles.h"
#include "stage/LoadStage.h"

namespace {

using namespace scenara;

enum ExitStatus { kShown = 0, kNotShown = 1, kWrongUse = 2 };

std::string OneLine(std::string_view text) {
    std::string line;
    for (const char c : ToUtf8(text)) {
        const auto code = static_cast<unsigned char>(c);
        if (c == '\n') {
            line.push_back(' ');
        } else if (c != '\r') {
            // What stands in a file must not steer the terminal.
            line.push_back(code < 32 || code == 127 ? '?' : c);
        }
    }
    return line;
}

void Print(const Message& message) {
    std::cerr << OneLine(message.text) << '\n';
}

// A path as given, or a name under stages/ of the MUGEN folder.
std::string StagePath(Files& files, const ShotOptions& options) {
    const bool isName = FileName(options.stage).size() == options.stage.size();
    const std::string listed = JoinPath(JoinPath(options.mugeDir, "stages"), options.stage);
    if (files.FileExists(options.stage)) {
        return options.stage;
    }
    return isName || files.FileExists(listed) ? listed : options.stage;
}

// Files that the user names are taken to the letter, unlike those that content names.
void WriteModelFile(const std::string& path, const StageModel& model,
                    const std::vector<Message>& messages) {
    std::ofstream file(path, std::ios::binary);
    WriteModelJson(file, model, messages);
    file.close();
    if (!file) {
        throw RunTimeError(RunTimeErrorKind::DeviceIo, path + " could not be written");
    }
}

ExitStatus Shoot(const ShotOptions& options) {
    // Many of these may run at a time; each has a program folder of its own.
    const TemporaryFolder programFolder;
    PosixFiles files(programFolder.Path());
    HeadlessMessages messages(Print);
    HeadlessWindow window;
    SoftDevice device;
    const ViewOptions view{!options.plain};
    StageModel model;

    std::string defPath = StagePath(files, options);
    const LoadStageContext context{
        files, messages, window, device, view, WithSeparator(options.mugeDir), {}};
    if (!LoadStage(model, defPath, context)) {
        return kNotShown;
    }
    if (options.modelFile) {
        WriteModelFile(*options.modelFile, model, messages.Recorded());
    }
    if (options.spriteDir) {
        WriteSpriteFiles(model, *options.spriteDir);
    }
    return kShown;
}

ExitStatus Run(const std::vector<std::string>& words) {
    ShotOptions options;
    try {
        options = ParseCommandLine(words);
    } catch (const std::invalid_argument& error) {
        std::cerr << "scenara-shot: " << error.what() << "\n\n" << UsageText();
        return kWrongUse;
    }
    if (options.help) {
        std::cout << UsageText();
        return kShown;
    }
    if (options.pictureFile) {
        std::cerr << "scenara-shot: this version loads stages and does not draw them yet; "
                     "--out is not available\n";
        return kWrongUse;
    }
    return Shoot(options);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return Run(std::vector<std::string>(argv + 1, argv + argc));
    } catch (const std::exception& error) {
        std::cerr << "scenara-shot: " << error.what() << '\n';
        return kNotShown;
    }
}
