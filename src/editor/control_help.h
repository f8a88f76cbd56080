// The help of the forms' controls: the text a control's What's-This pop-up
// shows, and the page of the help file that F1 opens for it.
#pragma once

#include <string>

#include "form_controls.h"

namespace velmora {

struct ControlHelp {
  ControlId Id;
  const char* Page;   // the help page of the control's area, without ".html"
  const char* Title;  // the control's name for people
  const char* Text;
};

// The control's entry, or nothing for a control without help.
const ControlHelp* Find_Control_Help(ControlId id);

// Which form the focus is in, for F1 on the form itself.
enum class HelpForm { Editor, BatchEditor };

// The page F1 opens: the area of the focused control, or the form's own
// page when the focus is on no control that has help.
std::string Help_Page_For(ControlId focused, HelpForm form);

// The address the HTML Help viewer takes for a page of the help file.
std::string Help_Topic(const std::string& helpFile, const std::string& page);

}  // namespace velmora
