// SPDX-License-Identifier: MIT
//
// The whole program with the hero's files beside the stages, and what is done to it while that
// character loads.
#pragma once

#include <string>
#include <utility>

#include "app/RunningStage.h"
#include "character/CharacterMachine.h"

namespace scenara::test {

// Puts the hero into the program's folder of characters.
inline void PutHero(RunningStage& stage, const CharacterMachine& hero = CharacterMachine()) {
    for (const char* name : {"hero.air", "hero.cns", "hero.sff"}) {
        const std::string path = std::string("/mugen/chars/hero/") + name;
        stage.files.Put(path, hero.files.Get(path));
    }
    stage.files.Put(kHero, hero.files.Get(kHero) + "\nst = stcommon\n");
}

// Settings with the hero chosen, and steps of the user's own.
inline std::string Chosen(const std::string& more = {}) {
    return std::string("TestChar = ") + kHero + "\r\nHCamStep = 3\r\nVCamStep = 5\r\n" + more;
}

// Acts once, when the character (and not the stage) begins to load. Its archive is not read before
// its caption says so.
inline Act OnceWhileTheCharacterLoads(Act act, bool& did) {
    return [act = std::move(act), &did](RunningStage& running) {
        if (!did && running.Caption() == "Loading The Hero") {
            did = true;
            act(running);
        }
    };
}

// A program with the hero.
class HeroProgram : public NewProgram {
protected:
    // Starts it with these lines in its settings.
    void Start(const std::string& settings = {}, bool additions = true) {
        options.Additions = additions;
        files.Put(kConfiguration, "MugeDir = /mugen/\r\n" + settings);
        PutHero(*this);
        Load();
    }
    TestCharState& Character() { return show.TestChar(); }
    Single Step() { return show.CameraState().HCamStep; }
};

}  // namespace scenara::test
