// The program-wide run state shared by start-up, the debug log, the error
// report, the interpreter and the editor. There is one for the process.
#pragma once

#include <cstdint>

namespace velmora {

using FileNumber = std::uint16_t;
constexpr FileNumber kNoFile = 65535;

// How the window and input commands wait. Default: the established fixed
// pauses. Fast: no blind pauses; each command waits only until its window is
// there and ready for input.
enum class Pace { Default, Fast };

struct RunState {
  bool InteractiveSession = false;
  bool DebugOn = false;
  bool DebugFileOpen = false;
  bool StopRunning = false;
  FileNumber ScriptFileNumber = 0;
  FileNumber DebugFileNumber = 0;
  double SpeedFactor = 1.0;
  Pace RunPace = Pace::Default;
  bool LastCommandSucceeded = false;
  bool HaltRequested = false;
  bool ReportingFatalError = false;
};

}  // namespace velmora
