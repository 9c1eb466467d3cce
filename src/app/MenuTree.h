// SPDX-License-Identifier: MIT
//
// MenuTree: the menus as the window is designed, and which of them wait while a stage loads.
#pragma once

#include <string>

#include "platform/Form.h"

namespace scenara {

// Captions, places and states. Items whose command is not there yet are disabled.
void DesignMenus(Form& form);

// The Options, Stage and Extras menus and the previous, next and random stage: off while a stage
// loads.
void EnableLoadingMenus(Form& form, bool enabled);

// The test character's item: "Use " and the character's name, and as it is designed.
void NameCharacter(Form& form, const std::string& name);
void UnnameCharacter(Form& form);

// Whether a user can choose the item as the form stands.
[[nodiscard]] bool CanBeChosen(const Form& form, Menu item);

}  // namespace scenara
