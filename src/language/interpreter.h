// The interpreter: runs the current script line and moves to the next one.
#pragma once

#include "run_state.h"
#include "session.h"

namespace velmora {

struct Engine;

// Runs the selected line of the trace list and selects the next executable
// line; sets StopRunning when none is left. The window a findwindow line
// found is kept in the automation's target list, not passed here.
void Process_Command(Engine& engine, bool Interactive, bool& DebugOn, FileNumber ScriptFileNumber,
                     FileNumber DebugFileNumber, bool& LastCommandSucceeded);

// Plays scripts with the preprocessor and this interpreter.
class ScriptInterpreter : public ScriptRunner {
 public:
  void Preprocess(Engine& engine) override;
  void Process_Line(Engine& engine) override;
};

}  // namespace velmora
