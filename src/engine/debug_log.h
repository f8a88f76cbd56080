// The debug log: one line per call to the debug file and, in the editor, to
// the debug list.
#pragma once

#include <string>

#include "run_state.h"

namespace velmora {

struct Engine;

void Print_Debug(Engine& engine, bool interactive, FileNumber debugFileNumber, bool debugOn, const std::string& text);

// "  --> " followed by the current date and time.
std::string Date_Time_Stamp(Engine& engine);

}  // namespace velmora
