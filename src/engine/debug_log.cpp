#include "debug_log.h"

#include "careful_io.h"
#include "engine.h"
#include "trap.h"

namespace velmora {

void Print_Debug(Engine& engine, bool interactive, FileNumber debugFileNumber, bool debugOn, const std::string& text) {
  if (!debugOn) return;
  if (engine.state.DebugFileOpen) {
    std::string line = text;
    Careful_IO(engine, interactive, kPrintLine, debugFileNumber, line, "", "Velmora.(General).Print_Debug.Print.1",
               kFatal);
  }
  if (!interactive) return;
  Trap(engine, interactive, "Velmora.(General).Print_Debug.TrappableErrors.1", kGoOn, [&] {
    engine.editor.DebugLogHasOutput = true;
    engine.DebugWindow.Add(text);
    engine.DebugWindow.Select(static_cast<long>(engine.DebugWindow.Count()) - 1);
  });
}

void Log_Trace(Engine& engine, bool interactive, const std::string& text) {
  Print_Debug(engine, interactive, engine.state.DebugFileNumber, engine.state.DebugOn, text);
}

void Log_Always(Engine& engine, bool interactive, const std::string& text) {
  Print_Debug(engine, interactive, engine.state.DebugFileNumber, true, text);
}

std::string Date_Time_Stamp(Engine& engine) { return "  --> " + engine.host.DateTimeText(); }

}  // namespace velmora
