// Where the time of a line of the default pace goes under Wine, phase by
// phase. A dialog of another program (this program started with --target) is
// found, typed into and clicked by script lines run as the interpreter runs
// them (Process_Command, with its pauses, writing its debug log). Every call
// the line makes of the Desktop and Host seams is timed and put down to a
// phase (timed_seams.h); what no seam call took is the rest: the interpreter,
// the parsing and the log's text. After each line the same work is done with
// bare Win32 calls (bare_calls.h), so that the player's own cost beyond the
// pauses it asks for is set against what the system needs, in the same run.
//   command_pace_bench.exe [rounds, default 5]
//   command_pace_bench.exe --target      (the other program: one dialog)
// Built with the windows preset and its tests; run it in a Wine session, e.g.
//   (source tools/wine-env.sh && wine_start && wine_run build/windows/bin/velmora_command_pace_bench.exe; wine_stop)
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "automation.h"
#include "bare_calls.h"
#include "careful_io.h"
#include "engine.h"
#include "interpreter.h"
#include "now_ms.h"
#include "timed_seams.h"
#include "trap.h"
#include "win32_registry.h"

namespace {

using namespace velmora;
using namespace velmora::bench;

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

// One line of the script, the kind it is reported under, and its bare work.
struct LineCase {
  std::string line, kind;
  std::function<void(PhaseTimes&)> bare;
};

// One run of a line and of its bare work.
struct Sample {
  PhaseTimes player, bare;
  double wall, bareWall;
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

double Median_Of(const std::vector<Sample>& rows, const std::function<double(const Sample&)>& value) {
  std::vector<double> values;
  for (const Sample& s : rows) values.push_back(value(s));
  return Median(values);
}

// The seam phases (the log's writes lie within the rest, not beside it).
double Seam_Time(const PhaseTimes& t) {
  double sum = 0;
  for (int p = 0; p < kLogWrites; ++p) sum += t.ms[p];
  return sum;
}

void Print_Kind(const std::string& kind, const std::vector<Sample>& rows) {
  std::printf("\n%s (median of %zu, ms)\n%-24s %10s %10s %8s\n", kind.c_str(), rows.size(), "phase", "velmora", "bare",
              "calls");
  const auto row = [&](const char* name, const std::function<double(const PhaseTimes&, double)>& value,
                       int phase = -1) {
    std::printf("%-24s %10.2f %10.2f", name, Median_Of(rows, [&](const Sample& s) { return value(s.player, s.wall); }),
                Median_Of(rows, [&](const Sample& s) { return value(s.bare, s.bareWall); }));
    if (phase >= 0) std::printf(" %8.0f", Median_Of(rows, [&](const Sample& s) { return s.player.calls[phase]; }));
    std::printf("\n");
  };
  for (int p = 0; p <= kSlept; ++p) row(kPhaseNames[p], [p](const PhaseTimes& t, double) { return t.ms[p]; }, p);
  row("sleeps asked", [](const PhaseTimes& t, double) { return t.asked; });
  row("sleep overshoot", [](const PhaseTimes& t, double) { return t.ms[kSlept] - t.asked; });
  row("rest", [](const PhaseTimes& t, double wall) { return wall - Seam_Time(t); });
  row("  of which log writes", [](const PhaseTimes& t, double) { return t.ms[kLogWrites]; }, kLogWrites);
  row("wall", [](const PhaseTimes&, double wall) { return wall; });
  const double overhead = Median_Of(rows, [](const Sample& s) { return s.wall - s.player.asked; });
  const double own = Median_Of(rows, [](const Sample& s) { return s.wall - s.player.ms[kSlept]; });
  const double bare = Median_Of(rows, [](const Sample& s) { return s.bareWall; });
  std::printf("%s: %.1f ms beyond the specified pauses (wall - asked); non-sleep phases %.2f ms = %.1f x bare %.2f ms\n",
              kind.c_str(), overhead, own, own / bare, bare);
}

// The debug log goes to a file, as in an automatic session.
std::string Open_Log(Engine& engine) {
  char folder[MAX_PATH] = "";
  GetTempPathA(MAX_PATH, folder);
  std::string path = std::string(folder) + "velmora_pace_bench.vld";
  Careful_IO(engine, false, kOpenOutput, engine.state.DebugFileNumber, path, "", "bench.open", kFatal);
  engine.state.DebugFileOpen = engine.files.Find(engine.state.DebugFileNumber) != nullptr;
  engine.state.DebugOn = true;
  return path;
}

void Close_Log(Engine& engine, const std::string& path) {
  engine.state.DebugFileOpen = false;
  std::string unused;
  Careful_IO(engine, false, kClose, engine.state.DebugFileNumber, unused, "", "bench.close", kGoOn);
  DeleteFileA(path.c_str());
}

POINT Centre_Of(HWND window) {
  RECT r{};
  GetWindowRect(window, &r);
  return {(r.left + r.right) / 2, (r.top + r.bottom) / 2};
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
  HWND dialog = nullptr;
  for (int tries = 0; tries < 100 && !(dialog = ::FindWindowA("#32770", kTitle)); ++tries) ::Sleep(100);
  const POINT okCentre = Centre_Of(GetDlgItem(dialog, 1));

  PhaseTimes times;
  TimedHost host(times);
  Win32Registry registry;
  TimedDesktop desktop(times);
  Engine engine(host, registry, &desktop);
  Automation automation(engine, desktop);
  engine.automation = &automation;
  ScriptInterpreter interpreter;
  const std::string logPath = Open_Log(engine);
  const std::string find = std::string("findwindow: 2, \"") + kTitle + "\", \"#32770\", 0, 0.5, 0.5, ";
  const std::vector<LineCase> cases = {
      {find + "\"\", \"Edit\", 101, 0.5, 0.5, 0.10", "findwindow",
       [&](PhaseTimes& t) { Bare_Find({kTitle, "#32770", "", "Edit", 101}, t); }},
      {"sendkeys: \"abc\"", "sendkeys", [&](PhaseTimes& t) { Bare_Send_Keys(dialog, target.hProcess, "abc", t); }},
      {find + "\"OK\", \"Button\", 1, 0.5, 0.5, 0.10", "findwindow",
       [&](PhaseTimes& t) { Bare_Find({kTitle, "#32770", "OK", "Button", 1}, t); }},
      {"sendbuttons: sl", "sendbuttons", [&](PhaseTimes& t) { Bare_Click(dialog, okCentre, t); }}};
  for (const LineCase& c : cases) engine.TraceWindow.Add(c.line);

  std::map<std::string, std::vector<Sample>> samples;
  bool allSucceeded = true;
  for (int round = 0; round < rounds; ++round) {
    for (std::size_t i = 0; i < cases.size(); ++i) {
      Sample sample;
      engine.TraceWindow.Select(static_cast<long>(i));
      times.Clear();
      double start = Now_Ms();
      interpreter.Process_Line(engine);
      sample.wall = Now_Ms() - start;
      sample.player = times;
      allSucceeded = allSucceeded && engine.state.LastCommandSucceeded;
      start = Now_Ms();
      cases[i].bare(sample.bare);
      sample.bareWall = Now_Ms() - start;
      samples[cases[i].kind].push_back(sample);
    }
  }
  Close_Log(engine, logPath);
  TerminateProcess(target.hProcess, 0);
  CloseHandle(target.hThread);
  CloseHandle(target.hProcess);

  for (const auto& [kind, rows] : samples) Print_Kind(kind, rows);
  if (!allSucceeded) std::printf("command_pace_bench: a command failed; the figures are not those of a normal run\n");
  return allSucceeded ? 0 : 1;
}
