// SPDX-License-Identifier: MIT
//
// sff2: the sprite archive of a stage, every sprite of it, into the Sprites table.
//
// One entry per sprite, in the order of the archive (SpriteArchive.h). A linked sprite shares
// texture, size and key colour of the entry that it names, and keeps its own group, image and axis.
// Deliberate: in archives of version 1 the link index is a position in Sprites; after an image that
// was dropped it names another entry than the archive meant (Sff2.LinkIndexIsAPositionInSprites).
//
// The textures are up to a sum (TextureBudget.h); a picture beyond it is one that cannot be had.
// What is damaged is said and skipped, and the load goes on with the next sprite; an archive that
// breaks off keeps what was read until there. Between images the caption tells how far it is and
// the window system runs; when the user has closed the window, the load ends after the image.
#pragma once

#include <functional>
#include <string>

#include "platform/Messages.h"
#include "platform/Window.h"
#include "sprites/SpriteArchive.h"
#include "stage/StageModel.h"

namespace scenara {

inline constexpr MessageKind kMessagePcxError{"sprite-skipped", Severity::Warning};
inline constexpr MessageKind kMessageOnlyImage{"only-sprite", Severity::Error};
inline constexpr MessageKind kMessageLinkError{"bad-link", Severity::Warning};
inline constexpr MessageKind kMessageSffError{"archive-damaged", Severity::Error};
inline constexpr MessageKind kMessageSffVersion{"archive-version", Severity::Error};

// Appends the archive's sprites to `model.Sprites`, and notes its version, until `givenUp` (which
// may be empty) answers yes after one of them. Never raises an error for what stands in the file.
void LoadSprites(StageModel& model, const ArchiveSource& source, Window& window,
                 const std::function<bool()>& givenUp = {});

// "Loading " + title + " " + how much of `count` is done, as "5%"; "%" alone for none. Of a title
// the first 255 bytes, more than any title bar shows.
[[nodiscard]] std::string LoadingCaption(const std::string& title, std::uint32_t done,
                                         std::uint32_t count);

}  // namespace scenara
