// SPDX-License-Identifier: MIT
//
// Extras: settings that QX.CFG has no line for, in Scenara.ini beside it.
//
// One line each, by the names of Extras: "Additions = True" or "Additions = False", in any letter
// case, or "WindowWidth = 1280"; of several lines with one name the last counts. Whatever else is
// in the file stays as it is, byte by byte.
#pragma once

#include <optional>
#include <string>

#include "base/Integers.h"
#include "platform/Files.h"
#include "platform/Window.h"

namespace scenara {

// Each as it is when the file or its line is missing, says neither True nor False, or no number.
struct Extras {
    bool Additions = true;  // stages are shown with them
    // With additions:
    bool Smooth = false;              // what is made larger is mixed from neighbouring pixels
    bool WholeMultiplesOnly = false;  // of the canvas' pixels
    bool SwitchDisplayMode = false;   // the full screen is the smallest mode that holds the canvas
    // How the window stood last (WindowStand).
    std::optional<Long> WindowLeft = {};
    std::optional<Long> WindowTop = {};
    std::optional<Long> WindowWidth = {};
    std::optional<Long> WindowHeight = {};
    bool Maximised = false;
    std::optional<Long> ListWidth = {};  // of the list of stages, in pixels

    friend bool operator==(const Extras&, const Extras&) = default;
};

// None where there is no whole size.
[[nodiscard]] std::optional<WindowStand> StandIn(const Extras& extras);
// A spot that is not known leaves what is said about it.
void PutStand(Extras& extras, const WindowStand& stand);

// Raises what reading raises.
[[nodiscard]] Extras LoadExtras(Files& files);

// Makes `text` the lines of all of them. It asks for no memory where `text` has held as much
// before.
void MakeExtrasText(const Extras& extras, std::string& text);

// Writes those that the file does not say already, in one step. A number that is not known leaves
// its line. Raises what reading and writing raise.
void SaveExtras(Files& files, const Extras& extras);

}  // namespace scenara
