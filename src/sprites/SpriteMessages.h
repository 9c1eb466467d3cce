// SPDX-License-Identifier: MIT
//
// What is said of an archive and of a sprite that cannot be had, whoever loads it.
#pragma once

#include <string>
#include <string_view>

#include "base/Integers.h"
#include "platform/Messages.h"

namespace scenara {

// A sprite whose picture is damaged, and one that is linked to none before it; the load goes on
// without them.
[[nodiscard]] std::string DamagedSpriteText(Long group, Integer image);
[[nodiscard]] std::string BadLinkText(Long group, Long image, Long link);

// What is wrong with one sprite, whose numbers these are.
void SaySprite(Messages& messages, MessageKind kind, Long group, Long image, std::string_view what);

// What is wrong with the archive as a whole.
void SayArchiveError(Messages& messages, MessageKind kind, const std::string& name,
                     std::string_view reason);

// The same of what comes behind a place in it.
void SayRestIsSkipped(Messages& messages, MessageKind kind, const std::string& name,
                      std::string_view reason);

}  // namespace scenara
