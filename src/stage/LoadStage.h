// SPDX-License-Identifier: MIT
//
// LoadStage: from a stage definition (.def) to a stage in memory.
//
// Where to find things: which keys there are and what each fills, StageKeys.cpp; what starts a
// section, SectionHeader.h; how a value is cut out of its line, ReadKeyValue.h; what happens to the
// elements behind that, FinishElements.h; where the archive is looked for, ArchiveSearch.h; how it
// is read, sprites/sff2.h.
//
// Problems in the files never stop a load: each is said in a message box and the item is skipped or
// keeps what it had. The load is one pass over the definition and takes time and memory in
// proportion to the files.
#pragma once

#include <functional>
#include <string>

#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "platform/Window.h"
#include "stage/StageModel.h"
#include "stage/ViewOptions.h"

namespace scenara {

class PngPictures;

inline constexpr MessageKind kMessageArchiveMissing{"archive-missing", Severity::Error};
inline constexpr MessageKind kMessageDefinitionUnreadable{"definition-unreadable", Severity::Error};

// What a load works with; all of it outlives the call.
struct LoadStageContext {
    Files& files;
    Messages& messages;
    Window& window;           // its caption tells how far the load is
    Direct3DDevice8& device;  // makes the textures
    const ViewOptions& options;
    std::string mugeDir;  // the engine folder
    // Receives the path of the stage's music, when it names any.
    std::function<void(const std::string& path)> setMusicFileName;
    const PngPictures* png = nullptr;  // none: the machine reads no PNG
    // Addition: asked after each sprite; yes: the stage is not wanted any more, and what there is
    // of it so far stays in the model.
    std::function<bool()> givenUp = {};
};

// Empties `model` and fills it from the definition at `defPath`, which names the repaired copy
// while there is one and is as it was when the call returns. False only when the definition cannot
// be opened or read, which has been said then.
[[nodiscard]] bool LoadStage(StageModel& model, std::string& defPath,
                             const LoadStageContext& context);

}  // namespace scenara
