// Velmora's help: the compiled HTML help file beside velmora.exe, shown by
// the system's HTML Help viewer (hhctrl.ocx, loaded when first needed), and
// the What's-This pop-ups of the controls.
#pragma once

#include <windows.h>

#include <string>

#include "form_controls.h"

namespace velmora {

// The contents page of the help file.
void Show_Help_Contents(HWND owner, const std::string& helpFile);
// The page that explains how to use the help.
void Show_Help_On_Help(HWND owner, const std::string& helpFile);
// F1: the page of the area the control belongs to.
void Show_Help_For(HWND owner, const std::string& helpFile, ControlId focused);
// A right-button release over a control: its help text in a small pop-up.
void Show_Whats_This(HWND control, ControlId id);

}  // namespace velmora
