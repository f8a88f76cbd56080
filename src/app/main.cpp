// velmora.exe: an automatic session when the command line names a script and
// a debug file, otherwise the interactive session's window.
#include <windows.h>

#include "automation.h"
#include "engine.h"
#include "interpreter.h"
#include "session.h"
#include "session_window.h"
#include "win32_desktop.h"
#include "win32_host.h"
#include "win32_registry.h"

namespace velmora {
namespace {

// The debug file of a script opened from the shell: the script's name with ".vld".
std::string Debug_Name_For(std::string script) {
  if (script.size() >= 2 && script.front() == '"' && script.back() == '"') script = script.substr(1, script.size() - 2);
  const auto dot = script.find_last_of('.');
  const auto slash = script.find_last_of("\\/");
  if (dot != std::string::npos && (slash == std::string::npos || dot > slash)) script.resize(dot);
  return script + ".vld";
}

int Run_Interactive(Engine& engine, HINSTANCE instance, int show) {
  SessionWindow window(engine);
  if (!window.Create(instance, show)) return 1;
  engine.surface = &window;
  RunState& state = engine.state;
  state.InteractiveSession = true;
  if (!engine.editor.ScriptFileName.empty()) {
    engine.editor.DebugFileName = Debug_Name_For(engine.editor.ScriptFileName);
    Initial_Setup(engine, true, state.DebugOn, state.StopRunning, state.ScriptFileNumber, state.DebugFileNumber);
  }
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  Shut_Down(engine, true, state.ScriptFileNumber, state.DebugFileNumber);
  engine.surface = nullptr;
  return 0;
}

}  // namespace
}  // namespace velmora

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int show) {
  velmora::Win32Host host;
  velmora::Win32Registry registry;
  velmora::Win32Desktop desktop;
  velmora::Engine engine(host, registry, &desktop);
  velmora::Automation automation(engine, desktop);
  engine.automation = &automation;
  velmora::ScriptInterpreter runner;
  velmora::Form_Load(engine, runner);
  return velmora::Run_Interactive(engine, instance, show);
}
