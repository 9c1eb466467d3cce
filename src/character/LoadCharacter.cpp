// SPDX-License-Identifier: MIT
#include "character/LoadCharacter.h"

#include <memory>
#include <optional>

#include "base/Path.h"
#include "base/RunTimeError.h"
#include "base/Text.h"
#include "character/CharacterAnimation.h"
#include "character/CharacterColors.h"
#include "character/CharacterConstants.h"
#include "character/CharacterDefinition.h"
#include "character/CharacterMessages.h"

namespace scenara {
namespace {

class CharacterLoader {
public:
    CharacterLoader(const std::string& path, TestCharacter& character,
                    const LoadCharacterContext& context)
        : path_(path),
          folder_(GetPath(path)),
          character_(character),
          context_(context),
          titled_(context.messages),
          messages_(titled_, path) {}

    [[nodiscard]] bool Load() {
        try {
            return ReadDefinition() && ReadConstants() && ReadAnimation() && ReadSprites() &&
                   RequireWalking();
        } catch (...) {
            messages_.MsgBox(kMessageCharacterFailed, Unable(TextOfCurrentError()));
            return false;
        }
    }

private:
    [[nodiscard]] std::string Unable(const std::string& reason) const {
        return "Unable to load " + path_ + " - " + reason + ".";
    }

    [[nodiscard]] bool ReadDefinition() {
        if (!context_.files.FileExists(path_)) {
            // Folder and extension come twice where the path is a whole file name, and stay so.
            std::string text = folder_ + path_ + ".def could not be found.";
            text.append(kCrLf).append("Unable to load ").append(path_).append(".");
            messages_.MsgBox(kMessageCharacterMissing, std::move(text));
            return false;
        }
        definition_ = ReadCharacterDefinition(*context_.files.OpenForReading(path_));
        character_.DisplayName = definition_.displayName;
        if (definition_.localcoordWidth != 0) {
            character_.LocalcoordWidth = definition_.localcoordWidth;
        }
        return true;
    }

    // Not having any, or none that can be read, is no failure.
    [[nodiscard]] bool ReadConstants() {
        CharacterConstants constants;
        try {
            if (const std::unique_ptr<InputFile> file = Open(definition_.cns, ".cns")) {
                MessagesOfFile messages(messages_, PathOf(definition_.cns, ".cns"));
                constants = ReadCharacterConstants(*file, messages);
            }
        } catch (...) {
            messages_.MsgBox(kMessageCharacterPart, Unable(TextOfCurrentError()));
        }
        character_.XScale = constants.xScale;
        character_.YScale = constants.yScale;
        character_.WalkSpeed = constants.walkSpeed;
        return true;
    }

    [[nodiscard]] bool ReadAnimation() {
        const std::unique_ptr<InputFile> file = Open(definition_.anim, ".air");
        if (!file) {
            return false;
        }
        MessagesOfFile messages(messages_, PathOf(definition_.anim, ".air"));
        if (const std::int64_t line =
                ReadCharacterAnimation(*file, character_.Actions, messages, context_.options)) {
            messages.MsgBox(kMessageNegativeGroup,
                            "Unable to load \"" + character_.DisplayName + "\"", {line});
            return false;
        }
        character_.HasTurn = !character_.ActionIn(kTurning).frames.empty();
        return true;
    }

    [[nodiscard]] bool ReadSprites() {
        const std::unique_ptr<InputFile> file = Open(definition_.sprite, ".sff");
        if (!file) {
            return false;
        }
        const ArchiveVersion version = ReadArchiveVersion(*file);
        const std::string name = definition_.sprite + ".sff";
        MessagesOfFile messages(messages_, folder_ + name);
        if (!MayRead(version, context_.options)) {
            messages.MsgBox(kMessageCharacterFailed,
                            Unable(name + " is an archive of version " + version.Text() +
                                   ", only version 1 can be read"));
            return false;
        }
        std::optional<PaletteBytes> act;
        if (context_.options.Additions && !definition_.palette.empty()) {
            act = ReadActPalette(context_.files, folder_ + definition_.palette + ".act");
        }
        context_.progress.setCaption("Loading " + character_.DisplayName);
        LoadCharacterSprites(
            character_,
            {*file, folder_ + name, context_.device, messages, context_.options, context_.png}, act,
            context_.progress);
        return true;
    }

    [[nodiscard]] bool RequireWalking() {
        if (!character_.ActionIn(kWalking).frames.empty()) {
            return true;
        }
        messages_.MsgBox(kMessageNoWalking, Unable("character has no walking frames"));
        return false;
    }

    [[nodiscard]] std::string PathOf(const std::string& base, std::string_view extension) const {
        return folder_ + base + std::string(extension);
    }

    // One of the files that the definition names; none, and that is said, when it is not there.
    [[nodiscard]] std::unique_ptr<InputFile> Open(const std::string& base,
                                                  std::string_view extension) {
        const std::string name = base.empty() ? "its " + std::string(extension) + " file"
                                              : base + std::string(extension);
        if (!base.empty() && context_.files.FileExists(folder_ + name)) {
            return context_.files.OpenForReading(folder_ + name);
        }
        messages_.MsgBox(kMessageCharacterPart, Unable(name + " could not be found"));
        return nullptr;
    }

    const std::string& path_;
    std::string folder_;
    TestCharacter& character_;
    const LoadCharacterContext& context_;
    CharacterMessages titled_;
    MessagesOfFile messages_;  // as of the definition
    CharacterDefinition definition_;
};

}  // namespace

bool LoadCharacter(const std::string& path, TestCharacter& character,
                   const LoadCharacterContext& context) {
    character = TestCharacter();
    return CharacterLoader(path, character, context).Load();
}

}  // namespace scenara
