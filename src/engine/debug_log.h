// The debug log: one line per call to the debug file and, in the editor, to
// the debug list.
#pragma once

#include <string>

#include "run_state.h"

namespace velmora {

struct Engine;

void Print_Debug(Engine& engine, bool interactive, FileNumber debugFileNumber, bool debugOn, const std::string& text);

// A command's trace line: written unless the debug output is switched off.
void Log_Trace(Engine& engine, bool interactive, const std::string& text);

// A line written whatever the debug switch says: session headers, error reports.
void Log_Always(Engine& engine, bool interactive, const std::string& text);

// "  --> " followed by the current date and time.
std::string Date_Time_Stamp(Engine& engine);

}  // namespace velmora
