// The help of a form's controls: the text a control's What's-This pop-up
// shows, and the page of the help file that F1 opens for it. Each form has
// its table (a control_help_table .inc file, which the help build reads too).
#pragma once

#include <string>

#include "control_key.h"

namespace velmora {

struct ControlHelp {
  ControlKey Id;
  const char* Page;   // the help page of the control's area, without ".html"
  const char* Title;  // the control's name for people
  const char* Text;
};

// The address the HTML Help viewer takes for a page of the help file.
std::string Help_Topic(const std::string& helpFile, const std::string& page);

}  // namespace velmora
