// Opening a script in the real editor under Wine (or Windows): reading it,
// filling the trace list, preprocessing with reformatting, the header, and
// the messages that follow; then inserting and removing one line in the
// largest script. Timed with QueryPerformanceCounter, wall clock, as a user
// waits for it. Prints one row per size, the cost per line and the ratio of
// the largest size to the smallest, and exits with status 1 when a target is
// missed: open 100,000 lines under 2 s, at most 1.3x cost per line from
// 10,000 to 100,000, insert and remove under 50 ms each.
#include <windows.h>

#include <cstdio>
#include <fstream>
#include <string>

#include "editor_form.h"
#include "editor_window.h"
#include "engine.h"
#include "reg_settings.h"
#include "scripts.h"
#include "win32_desktop.h"
#include "win32_host.h"
#include "win32_registry.h"

namespace velmora {
namespace {

class NoDialogs : public FileDialogs {
 public:
  std::optional<std::string> Show(const FileDialogRequest&) override { return std::nullopt; }
};

double Now_Ms() {
  LARGE_INTEGER counter, frequency;
  QueryPerformanceCounter(&counter);
  QueryPerformanceFrequency(&frequency);
  return 1000.0 * static_cast<double>(counter.QuadPart) / static_cast<double>(frequency.QuadPart);
}

void Pump_Messages() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

std::string Temp_Path(const std::string& name) {
  char folder[MAX_PATH] = "";
  GetTempPathA(sizeof folder, folder);
  return std::string(folder) + name;
}

struct Timings {
  double open = 0, insert = 0, remove = 0;
};

// One editor, one script of `lines` lines.
Timings Time_Editor(std::size_t lines) {
  const std::string script = Temp_Path("velmora_bench_" + std::to_string(lines) + ".vls");
  const std::string debug = Temp_Path("velmora_bench.vld");
  {
    std::ofstream out(script, std::ios::binary);
    for (const std::string& line : bench::Nested_Script(lines)) out << line << "\r\n";
  }
  Win32Host host;
  Win32Registry registry;
  Win32Desktop desktop;
  Engine engine(host, registry, &desktop);
  FormControls controls;
  EditorWindow window(engine, controls);
  CRegSettings settings(registry);
  NoDialogs dialogs;
  EditorForm form(engine, controls, window, dialogs, settings);
  Timings timings;
  if (!window.Create(GetModuleHandleA(nullptr), form)) return timings;
  engine.surface = &window;
  engine.state.InteractiveSession = true;
  window.Show(SW_SHOWNOACTIVATE);
  form.Load_Commands(1);
  Pump_Messages();

  engine.editor.ScriptFileName = '"' + script + '"';
  engine.editor.DebugFileName = '"' + debug + '"';
  double start = Now_Ms();
  form.Load_Script_And_Debug();
  Pump_Messages();
  timings.open = Now_Ms() - start;

  engine.TraceWindow.Select(static_cast<long>(lines / 2));
  form.CommandList_Click(5);  // "Insert a Blank Line"
  start = Now_Ms();
  form.InsertCommandButton_Click();
  Pump_Messages();
  timings.insert = Now_Ms() - start;

  engine.TraceWindow.Select(static_cast<long>(lines / 2));
  start = Now_Ms();
  form.RemoveCommandButton_Click();
  Pump_Messages();
  timings.remove = Now_Ms() - start;

  engine.state.DebugFileOpen = false;
  engine.surface = nullptr;
  DestroyWindow(window.Handle());
  Pump_Messages();
  DeleteFileA(script.c_str());
  return timings;
}

}  // namespace
}  // namespace velmora

int main() {
  using velmora::Time_Editor;
  const velmora::Timings small = Time_Editor(10000);
  const velmora::Timings large = Time_Editor(100000);
  std::printf("%-40s %10s %12s\n", "editor", "ms", "us/line");
  std::printf("%-40s %10.1f %12.2f\n", "open 10,000 lines", small.open, 1000.0 * small.open / 10000);
  std::printf("%-40s %10.1f %12.2f\n", "open 100,000 lines (target 2000 ms)", large.open,
              1000.0 * large.open / 100000);
  const double ratio = (large.open / 100000) / (small.open / 10000);
  std::printf("%-40s %10.2fx\n", "cost per line, 100,000 / 10,000 (1.3)", ratio);
  std::printf("%-40s %10.1f\n", "insert a line at 100,000 (target 50)", large.insert);
  std::printf("%-40s %10.1f\n", "remove a line at 100,000 (target 50)", large.remove);
  const bool met = large.open < 2000 && ratio <= 1.3 && large.insert < 50 && large.remove < 50;
  std::printf("%s\n", met ? "targets met" : "a target was missed");
  return met ? 0 : 1;
}
