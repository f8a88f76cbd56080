// A form as designed: its own identifier and title, its size, one declaration
// per control in creation (and tab) order, and its controls' help. The view
// creates the window and the controls from it; the model starts from it.
#pragma once

#include <span>
#include <vector>

#include "control_help.h"
#include "control_state.h"

namespace velmora {

enum class ControlKind { Frame, Label, Cover, TextBox, ListBox, Button, OptionButton, CheckBox };

struct ControlDeclaration {
  ControlKey Id;
  const char* Name;  // the control's name, as the user guide lists it
  ControlKind Kind;
  ControlKey Parent;  // the frame that holds it, or the form
  TwipsRect Rect;     // relative to the parent
  const char* Caption;
  const char* ToolTip;
  FontSpec Font;
  // The first option button of a group: checking one of the group's buttons
  // clears the others, and the arrow keys move within the group.
  bool StartsGroup = false;
};

struct FormDeclaration {
  ControlKey Form;  // the form's own identifier: its window
  const char* Title;
  TwipsRect Designed;  // the outer edges at the designed size
  const std::vector<ControlDeclaration>& Controls;
  std::span<const ControlHelp> Help;
  const char* HelpPage;  // the page F1 opens on the form or on a control without help
};

const ControlDeclaration* Find_Declaration(const FormDeclaration& form, ControlKey id);

// The control's help, or nothing for a control without help.
const ControlHelp* Find_Control_Help(const FormDeclaration& form, ControlKey id);

// The page F1 opens: the area of the focused control, or the form's own page.
std::string Help_Page_For(const FormDeclaration& form, ControlKey focused);

}  // namespace velmora
