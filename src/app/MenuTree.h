// SPDX-License-Identifier: MIT
//
// MenuTree: the menus as the window is designed, in one table: captions, places, when an item is
// there, and when it can be chosen. Its shortcuts stand among all the keys (Keys.h).
#pragma once

#include <string>

#include "platform/Form.h"
#include "show/StageShow.h"

namespace scenara {

// Captions, places and states.
void DesignMenus(Form& form);

// Every item as the state of what is shown has it; `hasShown` once there has been a stage, `zooms`
// while there is one whose camera does, or sprites are shown that do. Whether there are additions
// is what their own item says.
void EnableMenus(Form& form, ShowState state, bool hasShown, bool zooms);

// The test character's item: "Use " and the character's name, and as it is designed.
void NameCharacter(Form& form, const std::string& name);
void UnnameCharacter(Form& form);

// Whether a user can choose the item as the form stands.
[[nodiscard]] bool CanBeChosen(const Form& form, Menu item);

}  // namespace scenara
