// The form's controls as real windows: one creation call per declaration of
// the layout table, the frame window class that holds other controls, and the
// one tooltip window shared by all controls.
#pragma once

#include <windows.h>

#include <set>
#include <string>

#include "form_declaration.h"
#include "twips.h"

namespace velmora {

// Frames are containers of our own class: they paint a group box caption,
// pass their children's notifications to their parent (the form), and, being
// parents, disable what they hold when disabled.
void Register_Frame_Class(HINSTANCE instance);

// Creates the control with its fixed identifier (GWLP_ID), its place in
// pixels and its state's caption, visibility and enabled state.
HWND Create_Control(const ControlDeclaration& declaration, const ControlState& state, HWND parent,
                    const TwipsScale& scale);

// A window's text, whole.
std::string Window_Text(HWND window);

class ToolTips {
 public:
  void Create(HWND owner);
  // Adds the control's tip, or changes its text.
  void Set(HWND control, const std::string& text);
  // Off while a menu is open, so that no tip is drawn over it.
  void Activate(bool active);

 private:
  HWND window_ = nullptr;
  std::set<HWND> tools_;
};

}  // namespace velmora
