// SPDX-License-Identifier: MIT
#include "stage/LoadStage.h"

#include <memory>

#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "platform/LineReader.h"
#include "sprites/sff2.h"
#include "stage/ArchiveSearch.h"
#include "stage/DefinitionReader.h"
#include "stage/FinishElements.h"
#include "stage/LineEndingRepair.h"

namespace scenara {
namespace {

// The whole definition into the model; the name of the sprite archive as it gives it.
std::string ReadDefinition(StageModel& model, std::string& defPath,
                           const LoadStageContext& context) {
    MessagesOfFile messages(context.messages, defPath);  // also while a copy of it is read
    LineEndingRepair repair(context.files, defPath);
    DefinitionReader reader(model, messages, context.options);
    {
        const std::unique_ptr<InputFile> file = context.files.OpenForReading(defPath);
        LineReader lines(*file);
        while (!context.window.EndRequested() && lines.Next()) {
            messages.AtLine(lines.Number());
            reader.ReadLine(lines.Line(), lines.Number());
        }
    }
    reader.Finish();
    repair.Undo();
    return reader.Spr();
}

// Addition: a stage of another engine folder than the user's has its music there.
std::string FindMusic(const StageModel& model, const std::string& defPath,
                      const LoadStageContext& context) {
    std::string path = WithSeparator(context.mugeDir) + model.MusicFile;
    if (context.options.Additions && !context.files.FileExists(path)) {
        const std::string engine = EngineFolderOf(defPath);
        if (!engine.empty() && context.files.FileExists(engine + model.MusicFile)) {
            path = engine + model.MusicFile;
        }
    }
    return path;
}

void SetMusic(const StageModel& model, const std::string& defPath,
              const LoadStageContext& context) {
    if (!model.MusicFile.empty() && context.setMusicFileName) {
        const bool whole = Contains(model.MusicFile, ":");
        context.setMusicFileName(whole ? model.MusicFile : FindMusic(model, defPath, context));
    }
}

void LoadArchive(StageModel& model, const std::string& spr, const std::string& defPath,
                 const LoadStageContext& context) {
    const std::string path =
        FindArchive(context.files, spr, context.mugeDir, defPath, context.options);
    std::unique_ptr<InputFile> archive;
    if (!path.empty()) {
        try {
            archive = context.files.OpenForReading(path);
        } catch (const RunTimeError&) {
            archive = nullptr;  // gone since it was found
        }
    }
    if (!archive) {
        std::string text = "SFF FILE:";
        text.append(kCrLf).append(spr).append(kCrLf).append("COULD NOT BE FOUND!");
        context.messages.MsgBox(kMessageArchiveMissing, std::move(text), {0, 0, defPath});
        return;
    }
    model.Archive.path = path;
    MessagesOfFile messages(context.messages, path);
    LoadSprites(model, {*archive, path, context.device, messages, context.options, context.png},
                context.window, context.givenUp);
}

}  // namespace

bool LoadStage(StageModel& model, std::string& defPath, const LoadStageContext& context) {
    model.Clear();
    try {
        const std::string spr = ReadDefinition(model, defPath, context);
        SetMusic(model, defPath, context);
        MessagesOfFile messages(context.messages, defPath);
        FinishElements(model, messages, context.options);
        if (!context.window.EndRequested()) {
            LoadArchive(model, spr, defPath, context);
        }
        ResolveSprites(model);
        return true;
    } catch (...) {
        context.messages.MsgBox(kMessageDefinitionUnreadable,
                                "Unable to load " + defPath + " - " + TextOfCurrentError() + ".",
                                {0, 0, defPath});
        return false;
    }
}

}  // namespace scenara
