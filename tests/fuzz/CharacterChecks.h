// SPDX-License-Identifier: MIT
//
// What must hold of a character after any input, for the fuzz targets of its files.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>

#include "character/CharacterMachine.h"
#include "character/UpdateCharacter.h"
#include "platform/headless/HeadlessKeyboard.h"
#include "support/FuzzChecks.h"

namespace scenara::test {

// Indices point into tables, numbers are numbers, and every pixel can be read.
inline void CheckCharacter(const TestCharacter& character) {
    for (const CharAction& action : character.Actions) {
        Require(action.LoopStart >= 0, "a loop starts at a frame");
        for (const CharFrame& frame : action.frames) {
            Require(frame.texture < static_cast<int>(character.Sprites.size()),
                    "a frame's texture is in the table");
        }
    }
    for (const CharSprite& sprite : character.Sprites) {
        Require(sprite.texture != nullptr, "a sprite has a texture");
        std::uint32_t sum = 0;
        for (const std::uint32_t word : PixelsOf(*sprite.texture)) {
            sum += word;
        }
        const volatile std::uint32_t kept = sum;  // so that they are read; it may be any number
        static_cast<void>(kept);
    }
    for (const Single number : {character.XScale, character.YScale, character.WalkSpeed}) {
        Require(std::isfinite(number), "a constant is a number");
    }
}

// Walks it over a stage, with keys that `keys` chooses.
inline void WalkCharacter(const TestCharacter& character, std::uint32_t keys) {
    StageModel model;
    model.BoundLeft = -100;
    model.BoundRight = 100;
    TestCharState state;
    state.Characters.push_back(character);
    PlaceCharacter(state, model, View());
    HeadlessKeyboard keyboard;
    for (int frame = 0; frame < 200; ++frame) {
        keys = keys * 1664525U + 1013904223U;
        KeySet held;
        if ((keys >> 28U & 1U) != 0) {
            held.Add(VirtualKey::Right);
        }
        if ((keys >> 29U & 1U) != 0) {
            held.Add(VirtualKey::Left);
        }
        keyboard.Hold(held);
        static_cast<void>(UpdateCharacter(state, model, keyboard, {}, View()));
        const TestCharacter& walker = state.Characters.front();
        Require(walker.X >= -100 && walker.X <= 420, "it stays on the stage");
        Require(walker.DrawTexture < static_cast<int>(walker.Sprites.size()),
                "what it shows is in the table");
    }
}

// A character of which one file is any bytes.
inline int FuzzCharacterFile(const std::string& name, const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    for (const bool additions : {true, false}) {
        CharacterMachine machine;
        machine.view.Additions = additions;
        machine.Put(name, bytes);
        if (machine.Load()) {
            CheckCharacter(machine.character);
            WalkCharacter(machine.character, static_cast<std::uint32_t>(size));
        } else {
            Require(!machine.messages.Recorded().empty(), "a failure is said");
        }
        for (const Message& message : machine.messages.Recorded()) {
            Require(message.title == "Cohortia", "every box has the title");
        }
    }
    return 0;
}

}  // namespace scenara::test
