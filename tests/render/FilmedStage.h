// SPDX-License-Identifier: MIT
//
// FilmedStage: a stage of three sprites, a, b and c, each 10 x 10, and what is seen of it frame by
// frame: "a 100,50, b 120,60".
#pragma once

#include <initializer_list>
#include <string>

#include <gtest/gtest.h>

#include "render/StagePlayer.h"

namespace scenara::test {

struct FilmedStage : StagePlayer {
    using StagePlayer::StagePlayer;

    BackgroundElement& A() { return build.StillAt(a, 100, 50); }
    BackgroundElement& Still(Integer sprite, Long x = 0, Long y = 0) {
        return build.StillAt(sprite, x, y);
    }
    // The first control of a new group.
    BgCtrl& Control(const std::string& type, Long start, Long end) {
        return During(AddControl(build.Group(), type), start, end);
    }
    void Show(Single x, Single y) {
        model.CamX = -x;
        model.CamY = y;
    }
    Single X(std::size_t element) { return Element(element).posX; }
    Single Y(std::size_t element) { return Element(element).posY; }

    // The next frames; of a picture the size is left out.
    Lines Film(int frames) {
        Lines film = StagePlayer::Film(frames);
        const std::string size = " 10x10";
        for (std::string& frame : film) {
            for (auto at = frame.find(size); at != std::string::npos; at = frame.find(size)) {
                frame.erase(at, size.size());
            }
        }
        return film;
    }

    const Integer a = build.Sprite("a", 10, 10);
    const Integer b = build.Sprite("b", 10, 10);
    const Integer c = build.Sprite("c", 10, 10);
};

struct StageFilm {
    const char* name;
    void (*make)(FilmedStage& stage);
    Lines frames;  // from the first one on
};

inline void ExpectFilms(std::initializer_list<StageFilm> films) {
    for (const StageFilm& film : films) {
        FilmedStage stage;
        film.make(stage);
        stage.Start();
        EXPECT_EQ(stage.Film(static_cast<int>(film.frames.size())), film.frames) << film.name;
    }
}

}  // namespace scenara::test
