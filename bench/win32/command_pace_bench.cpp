// What a line of the default pace costs under Wine beyond the sleeps it asks
// for. A dialog of another program (this program started with --target) is
// found, typed into and clicked by script lines run as the interpreter runs
// them (Process_Command, with its pauses); each line is timed and set against
// the sleeps it asked for. The rest is the player's own cost: the search, the
// checks before input, the waits for the target's program and the message
// pumping. How far the system's sleeps overshoot is shown apart.
//   command_pace_bench.exe [rounds, default 5]
//   command_pace_bench.exe --target      (the other program: one dialog)
// Built with the windows preset and its tests; run it in a Wine session, e.g.
//   (source tools/wine-env.sh && wine_start && wine_run build/windows/bin/velmora_command_pace_bench.exe; wine_stop)
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "automation.h"
#include "engine.h"
#include "interpreter.h"
#include "now_ms.h"
#include "win32_desktop.h"
#include "win32_host.h"
#include "win32_registry.h"

namespace {

using namespace velmora;

constexpr char kTitle[] = "Velmora Pace Target";

// Without a caption: Wine would hand a captioned window to a window manager,
// which Xvfb does not have.
int Run_Target() {
  HINSTANCE instance = GetModuleHandleA(nullptr);
  HWND dialog = CreateWindowExA(0, "#32770", kTitle, WS_POPUP | WS_BORDER | WS_VISIBLE, 100, 100, 400, 300, nullptr,
                                nullptr, instance, nullptr);
  CreateWindowExA(0, "Edit", "", WS_CHILD | WS_VISIBLE | WS_BORDER, 20, 20, 300, 24, dialog,
                  reinterpret_cast<HMENU>(101), instance, nullptr);
  CreateWindowExA(0, "Button", "OK", WS_CHILD | WS_VISIBLE, 20, 200, 100, 30, dialog, reinterpret_cast<HMENU>(1),
                  instance, nullptr);
  SetTimer(nullptr, 0, 300000, nullptr);  // ends by itself should the bench die
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_TIMER) break;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}

// Sums the sleeps asked for and the time they really took.
class CountingHost : public Win32Host {
 public:
  double asked = 0, slept = 0;
  void Sleep(int milliseconds) override {
    const double start = Now_Ms();
    Win32Host::Sleep(milliseconds);
    slept += Now_Ms() - start;
    asked += milliseconds;
  }
};

struct Sample {
  double wall, asked, slept;
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strcmp(argv[1], "--target") == 0) return Run_Target();
  const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;

  char self[MAX_PATH];
  GetModuleFileNameA(nullptr, self, MAX_PATH);
  std::string commandLine = std::string("\"") + self + "\" --target";
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION target{};
  if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &target)) {
    std::printf("command_pace_bench: cannot start the target (error %lu)\n", GetLastError());
    return 1;
  }
  WaitForInputIdle(target.hProcess, 10000);
  for (int tries = 0; tries < 100 && !::FindWindowA("#32770", kTitle); ++tries) ::Sleep(100);

  CountingHost host;
  Win32Registry registry;
  Win32Desktop desktop;
  Engine engine(host, registry, &desktop);
  Automation automation(engine, desktop);
  engine.automation = &automation;
  ScriptInterpreter interpreter;
  const std::string find = std::string("findwindow: 2, \"") + kTitle + "\", \"#32770\", 0, 0.5, 0.5, ";
  const std::vector<std::string> lines = {find + "\"\", \"Edit\", 101, 0.5, 0.5, 0.10", "sendkeys: \"abc\"",
                                          find + "\"OK\", \"Button\", 1, 0.5, 0.5, 0.10", "sendbuttons: sl"};
  for (const std::string& line : lines) engine.TraceWindow.Add(line);

  std::map<std::string, std::vector<Sample>> samples;
  bool allSucceeded = true;
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      engine.TraceWindow.Select(static_cast<long>(i));
      host.asked = host.slept = 0;
      const double start = Now_Ms();
      interpreter.Process_Line(engine);
      samples[lines[i].substr(0, lines[i].find(':'))].push_back({Now_Ms() - start, host.asked, host.slept});
      allSucceeded = allSucceeded && engine.state.LastCommandSucceeded;
    }
  }
  TerminateProcess(target.hProcess, 0);
  CloseHandle(target.hThread);
  CloseHandle(target.hProcess);

  std::printf("%-12s %10s %10s %12s %10s   (median of %d, ms)\n", "line", "wall", "asked", "overshoot", "own",
              rounds);
  for (const auto& [word, rows] : samples) {
    std::vector<double> wall, asked, overshoot, own;
    for (const Sample& s : rows) {
      wall.push_back(s.wall), asked.push_back(s.asked);
      overshoot.push_back(s.slept - s.asked), own.push_back(s.wall - s.slept);
    }
    std::printf("%-12s %10.1f %10.1f %12.1f %10.1f\n", word.c_str(), Median(wall), Median(asked), Median(overshoot),
                Median(own));
  }
  if (!allSucceeded) std::printf("command_pace_bench: a command failed; the figures are not those of a normal run\n");
  return allSucceeded ? 0 : 1;
}
