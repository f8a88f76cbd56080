// velmora.exe: an automatic session when the command line names a script and
// a debug file, otherwise the script editor.
#include <windows.h>

#include "automation.h"
#include "editor_form.h"
#include "editor_window.h"
#include "engine.h"
#include "help_viewer.h"
#include "interpreter.h"
#include "reg_settings.h"
#include "session.h"
#include "velmora_version.h"
#include "win32_desktop.h"
#include "win32_file_dialogs.h"
#include "win32_host.h"
#include "win32_registry.h"

namespace velmora {
namespace {

int Run_Editor(Engine& engine, HINSTANCE instance, int show) {
  FormControls controls(Editor_Form());
  EditorWindow window(engine, controls);
  CRegSettings settings(engine.registry);
  settings.SetCompany(VELMORA_COMPANY_TEXT);
  Win32FileDialogs dialogs;
  EditorForm form(engine, controls, window, dialogs, settings);
  if (!window.Create(instance, form)) return 1;
  dialogs.SetOwner(window.Handle());
  engine.surface = &window;
  RunState& state = engine.state;
  state.InteractiveSession = true;
  form.Form_Load_Interactive();
  window.Show(show);
  window.Run_Until_Closed();
  Close_Help();
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
  return velmora::Run_Editor(engine, instance, show);
}
