// The Velmora menu: the pop-up menu that the editor's VelmoraMenu button
// opens, with help, the about box and the batch editor.
#pragma once

#include <windows.h>

#include <optional>

#include "form_controls.h"

namespace velmora {

// Opens the menu below the button and returns the entry chosen, or nothing
// when the menu was dismissed. The fast pace's and the recording's entries
// are checked when they are on.
std::optional<MenuId> Track_Velmora_Menu(HWND owner, HWND button, bool fastPace, bool recording);

}  // namespace velmora
