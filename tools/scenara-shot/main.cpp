// SPDX-License-Identifier: MIT
//
// scenara-shot: stages without a window, for authors' scripts and for tests.
#include <cstdint>
#include <exception>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/NumberText.h"
#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "base/Version.h"
#include "platform/png/LibPngPictures.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "scenara-shot/CommandLine.h"
#include "scenara-shot/FrameFiles.h"
#include "scenara-shot/ModelJson.h"
#include "scenara-shot/ShotMachine.h"
#include "scenara-shot/SizedFrames.h"
#include "scenara-shot/SpriteFiles.h"

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

// A path as given, or a name under a folder of the MUGEN folder. `isName`: what is nowhere is
// missing there.
std::string ContentPath(Files& files, const ShotOptions& options, const std::string& given,
                        std::string_view folder, bool isName) {
    const std::string listed = JoinPath(JoinPath(options.mugeDir, folder), given);
    if (files.FileExists(given)) {
        return given;
    }
    return isName || files.FileExists(listed) ? listed : given;
}

std::string StagePath(Files& files, const ShotOptions& options) {
    const bool isName = FileName(options.stage).size() == options.stage.size();
    return ContentPath(files, options, options.stage, "stages", isName);
}

// A character has a folder of its own under chars/.
std::string CharacterPath(Files& files, const ShotOptions& options) {
    if (options.character.empty()) {
        return {};
    }
    return ContentPath(files, options, options.character, "chars", false);
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

// The last of the frames is written, and on the way every K-th where that is asked for.
void WriteFrames(ShotMachine& machine, const ShotOptions& options) {
    SizedFrames frames(options.size, options.smooth ? Scaling::Smooth : Scaling::Average);
    const auto write = [&](const std::string& path) {
        const Frame frame = frames.Sized({machine.PictureSize(), machine.Picture()});
        WriteFrameFile(path, frame.size, frame.pixels);
    };
    for (std::int32_t frame = 1; frame <= options.frames; ++frame) {
        const bool numbered = options.every && frame % *options.every == 0;
        const KeySet& keys = options.keys.KeysOfFrame(frame);
        if (numbered || frame == options.frames) {
            machine.RunFrame(keys, options.info);
        } else {
            machine.PassFrame(keys, options.info);
        }
        if (numbered) {
            write(FrameFileName(*options.pictureFile, frame / *options.every));
        }
        if (frame == options.frames) {
            break;  // the largest count has no next one
        }
    }
    if (options.pictureFile) {
        write(*options.pictureFile);
    }
}

ExitStatus Shoot(const ShotOptions& options) {
    // Many of these may run at a time; each has a program folder of its own.
    const TemporaryFolder programFolder;
    PosixFiles files(programFolder.Path());
    const LibPngPictures png;
    ShotMachine machine(files, &png, Print, ViewOptions{!options.plain, options.smooth});
    if (!machine.Start(StagePath(files, options), options.mugeDir, CharacterPath(files, options))) {
        return kNotShown;
    }
    if (options.zoom) {
        machine.Zoom(*options.zoom);
        if (machine.Model().CamZoom != *options.zoom) {
            std::cerr << "The stage cannot be shown at that zoom, but at "
                      << NumberText(static_cast<Single>(machine.Model().CamZoom)) << ".\n";
        }
    }
    if (options.modelFile) {
        WriteModelFile(*options.modelFile, machine.Model(), machine.Recorded());
    }
    if (options.spriteDir) {
        WriteSpriteFiles(machine.Model(), *options.spriteDir);
    }
    WriteFrames(machine, options);
    const bool allIsShown = options.character.empty() || machine.TestChar().CharLoaded;
    return allIsShown ? kShown : kNotShown;
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
    if (options.version) {
        std::cout << VersionLine();
        return kShown;
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
