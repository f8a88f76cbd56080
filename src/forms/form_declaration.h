// A form as designed: its own identifier and title, its size, one declaration
// per control in creation (and tab) order, and its controls' help. The view
// creates the window and the controls from it; the model starts from it.
#pragma once

#include <span>
#include <string>
#include <vector>

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

// A control's help: the text its What's-This pop-up shows, and the page of the
// help file that F1 opens. Each form's table is a .inc file the help build reads too.
struct ControlHelp {
  ControlKey Id;
  const char* Page;   // the help page of the control's area, without ".html"
  const char* Title;  // the control's name for people
  const char* Text;
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

// The address the HTML Help viewer takes for a page of the help file.
std::string Help_Topic(const std::string& helpFile, const std::string& page);

}  // namespace velmora
