// The Velmora menu: the pop-up menu that the editor's VelmoraMenu button
// opens, with help, the about box and the batch editor.
#pragma once

#include <windows.h>

#include <optional>

#include "form_controls.h"

namespace velmora {

// Opens the menu below the button and returns the entry chosen, or nothing
// when the menu was dismissed. The fast pace's entry is checked when it is on.
std::optional<MenuId> Track_Velmora_Menu(HWND owner, HWND button, bool fastPace);

}  // namespace velmora
