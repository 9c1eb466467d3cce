// SPDX-License-Identifier: MIT
#include "sprites/SpriteMessages.h"

#include <utility>

#include "base/Text.h"

namespace scenara {
namespace {

std::string HeadedText(std::string_view what, Long group, Long image) {
    std::string text(what);
    text.append(":  Group ").append(std::to_string(group));
    text.append(" Image ").append(std::to_string(image));
    return text.append(kCrLf);
}

}  // namespace

std::string DamagedSpriteText(Long group, Integer image) {
    return HeadedText("PCX Error", group, image) + "Skipping sprite..";
}

std::string BadLinkText(Long group, Long image, Long link) {
    return HeadedText("Link Error", group, image) + "There is no sprite " + std::to_string(link) +
           " before it.  Skipping sprite..";
}

void SaySprite(Messages& messages, MessageKind kind, Long group, Long image,
               std::string_view what) {
    messages.MsgBox(kind, HeadedText("SFF Error", group, image).append(what));
}

void SayArchiveError(Messages& messages, MessageKind kind, const std::string& name,
                     std::string_view reason) {
    std::string text = "SFF Error:  " + name;
    text.append(kCrLf).append(reason);
    messages.MsgBox(kind, std::move(text));
}

void SayRestIsSkipped(Messages& messages, MessageKind kind, const std::string& name,
                      std::string_view reason) {
    SayArchiveError(messages, kind, name, std::string(reason) + "  The rest is skipped..");
}

}  // namespace scenara
