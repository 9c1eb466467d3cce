// SPDX-License-Identifier: MIT
//
// StageFiles: which files are stages or characters, and the list of those in a folder.
//
// Whether a file is one is told by a word in it, in any letter case; files are closed again when
// that is known. A failing device raises RunTimeError.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/Files.h"
#include "platform/Form.h"
#include "platform/Messages.h"

namespace scenara {

inline constexpr MessageKind kMessageNoFiles = "no-stages";

// Asked before each further piece of what takes long to read; false: no more of it is read. May be
// empty.
using GoesOn = std::function<bool()>;

// A line of the file holds "camera". Not found in a file that is not read on.
[[nodiscard]] bool IsStage(Files& files, const std::string& path, const GoesOn& goesOn = {});

// A line of the file holds "stcommon".
[[nodiscard]] bool IsChar(Files& files, const std::string& path, const GoesOn& goesOn = {});

// Adds the files in folder `Path` that end in `Extension` to the list, in the machine's order, each
// under its name before the first ".def" in it. Says so when there are none.
void LoadFilestoList(ListBox& List, const std::string& Path, std::string_view Extension,
                     Files& files, Messages& messages);

// Where stages are, with a separator at the end.
[[nodiscard]] std::string StagesFolder(const std::string& MugeDir);

// The definition behind an item of the list of stages.
[[nodiscard]] std::string StageFile(const std::string& MugeDir, const std::string& item);

// Whether `path` is that file, by its text.
[[nodiscard]] bool IsStageFile(std::string_view MugeDir, std::string_view item,
                               std::string_view path);

// What the user chose, without anything behind the first ".def" of the file's name. Folders on the
// way may have a ".def" in their names, too.
[[nodiscard]] std::string ChosenStage(const std::string& path);

}  // namespace scenara
