// The window search over a real window tree under Wine (or Windows), timed
// against a bare walk of the same tree that reads every window with the calls
// a search of the whole tree would make (GetWindow, GetWindowTextA,
// GetClassNameA, GetParent, GetWindowLongA) and matches nothing: what the
// search cost when it read every window. Both start at the desktop window, so
// they also meet whatever other windows the desktop holds.
//
// The tree: kDialogs setup dialogs of kControlsPerDialog controls each, all
// dialogs with the same controls, as several copies of one installer page.
// Plain QueryPerformanceCounter timing; baseline and search runs alternate so
// that both see the same machine load. Prints one row per search and exits
// with status 1 when a search finds other than the expected windows.
//   window_search_bench.exe [milliseconds per measurement, default 1500]
//   window_search_bench.exe --hold SECONDS
// The second form only opens the tree, prints "ready" and keeps it open for
// the given time: the crowded desktop for tools/findwindow_cpu.sh.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "engine.h"
#include "now_ms.h"
#include "win32_desktop.h"
#include "win32_host.h"
#include "win32_registry.h"
#include "window_search.h"

namespace {

using namespace velmora;

constexpr int kDialogs = 40;
constexpr int kControlsPerDialog = 49;
constexpr int kNextId = 12;
constexpr int kRounds = 7;  // alternating measurements of each kind; the median is reported

const char* const kControlClasses[] = {"Button", "Static", "Edit", "ComboBox", "ListBox"};

// Dialogs without a caption: Wine would hand captioned windows to a window
// manager, which Xvfb does not have.
std::vector<HWND> Build_Tree() {
  std::vector<HWND> dialogs;
  for (int i = 0; i < kDialogs; ++i) {
    const std::string title = "Velmora Bench Setup " + std::to_string(i);
    HWND dialog = CreateWindowExA(0, "#32770", title.c_str(), WS_POPUP | WS_BORDER, 20 + i * 5, 20 + i * 5, 400, 300,
                                  nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (!dialog) return {};
    auto add = [&](const char* cls, const std::string& text, int id) {
      CreateWindowExA(0, cls, text.c_str(), WS_CHILD | WS_VISIBLE, 10, 10 + id % 200, 80, 20, dialog,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
    };
    add("Button", "< Back", 11);
    add("Button", "Next >", kNextId);
    add("Button", "Cancel", 2);
    for (int k = 3; k < kControlsPerDialog; ++k)
      add(kControlClasses[k % 5], k % 5 == 2 ? "" : "Option " + std::to_string(k), 1000 + k);
    ShowWindow(dialog, SW_SHOWNOACTIVATE);
    dialogs.push_back(dialog);
  }
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  return dialogs;
}

// The search's calls for every window, with nothing compared.
long Bare_Walk(HWND start) {
  long seen = 0;
  char text[kTextBufferSize], className[kTextBufferSize];
  for (HWND child = GetWindow(start, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    seen += Bare_Walk(child);
    GetWindowTextA(child, text, kTextBufferSize);
    GetClassNameA(child, className, kTextBufferSize);
    if (GetParent(child)) GetWindowLongA(child, GWL_ID);
    ++seen;
  }
  return seen;
}

struct Scenario {
  const char* name;
  std::string text, className;
  std::int32_t id;
  std::string path;
  std::uint16_t expected;
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// Milliseconds per call of the body, measured over at least the given time.
template <class Body>
double Time_Per_Call(double budgetMs, Body&& body) {
  int calls = 0;
  const double start = Now_Ms();
  double elapsed = 0;
  do {
    body();
    ++calls;
    elapsed = Now_Ms() - start;
  } while (elapsed < budgetMs);
  return elapsed / calls;
}

// Keeps the windows alive (and answering) for the given time.
int Hold(double seconds) {
  std::printf("ready\n");
  std::fflush(stdout);
  const double end = Now_Ms() + seconds * 1000.0;
  for (double now = Now_Ms(); now < end; now = Now_Ms()) {
    MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 2 && std::string(argv[1]) == "--hold") {
    if (Build_Tree().size() != kDialogs) return 2;
    return Hold(std::atof(argv[2]));
  }
  const double budgetMs = (argc > 1 ? std::atof(argv[1]) : 1500.0) / (2 * kRounds);
  const std::vector<HWND> dialogs = Build_Tree();
  if (dialogs.size() != kDialogs) {
    std::printf("could not create the window tree\n");
    return 2;
  }
  const long ownWindows = static_cast<long>(kDialogs) * (1 + kControlsPerDialog);
  const HWND desktopWindow = GetDesktopWindow();
  const long allWindows = Bare_Walk(desktopWindow);

  Win32Host host;
  Win32Registry registry;
  Win32Desktop desktop;
  Engine engine(host, registry, &desktop);
  WindowSearch search(engine, desktop);

  const std::string some = "Velmora Bench Setup " + std::to_string(kDialogs / 2);
  const Scenario scenarios[] = {
      {"Next in one dialog (40 candidates)", "Next >", "Button", kNextId,
       "12, \"Button\", \"Next >\", 0, \"#32770\", \"" + some + "\", 2", 1},
      {"a button that is not there", "Finish", "Button", kNextId,
       "12, \"Button\", \"Finish\", 0, \"#32770\", \"" + some + "\", 2", 0},
      {"a button of a dialog not open", "Next >", "Button", kNextId,
       "12, \"Button\", \"Next >\", 0, \"#32770\", \"Velmora Bench Other Setup\", 2", 0},
      {"one dialog by its title", some, "#32770", 0, "0, \"#32770\", \"" + some + "\", 1", 1},
  };

  std::printf("Window search under Wine: %ld windows of this program, %ld in the whole tree walked\n", ownWindows,
              allWindows);
  std::printf("%-36s %10s %10s %12s %7s\n", "search", "ms/search", "us/window", "baseline ms", "ratio");
  int status = 0;
  double worst = 0;
  for (const Scenario& s : scenarios) {
    std::vector<WindowHandle> found;
    search.TargetChildID = s.id;
    std::uint16_t count = 0;
    std::vector<double> bare, searched;
    for (int round = 0; round < kRounds; ++round) {
      bare.push_back(Time_Per_Call(budgetMs, [&] { Bare_Walk(desktopWindow); }));
      searched.push_back(Time_Per_Call(budgetMs, [&] {
        count = search.Find_Window_Like(found, desktop.DesktopWindow(), 0, s.text, s.className, s.id, s.path);
      }));
    }
    const double b = Median(bare), m = Median(searched);
    const double ratio = m / b;
    worst = std::max(worst, ratio);
    std::printf("%-36s %10.3f %10.3f %12.3f %7.3f%s\n", s.name, m, m * 1000.0 / static_cast<double>(allWindows), b,
                ratio, count == s.expected ? "" : "  (found a different number of windows)");
    if (count != s.expected) status = 1;
  }
  std::printf("highest ratio of search to bare walk: %.3f\n", worst);
  return status;
}
