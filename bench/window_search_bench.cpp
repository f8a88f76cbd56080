// The window search over simulated trees of 100,000 windows, set against a
// bare walk of the same tree that reads every window with the Desktop calls a
// search of the whole tree would make (first child, next sibling, text,
// class, parent, identifier) and matches nothing: what the search cost when
// it read every window. Trees:
//   dialogs: 2,000 setup dialogs of 49 controls each, every dialog with the
//            same controls, as many copies of one installer page would be;
//   flat:    100,000 top-level windows.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "scripts.h"
#include "sim_desktop.h"
#include "window_search.h"

namespace velmora::bench {
namespace {

constexpr int kDialogs = 2000;
constexpr int kControlsPerDialog = 49;
constexpr int kFlatWindows = 100000;
constexpr int kNextId = 12;

const char* const kControlClasses[] = {"Button", "Static", "Edit", "ComboBox", "SysListView32"};

// A dialog's controls: Back, Next and Cancel buttons, then labels, fields and lists.
void Add_Controls(SimDesktop& desktop, WindowHandle dialog) {
  desktop.Add(dialog, "< Back", "Button", 11);
  desktop.Add(dialog, "Next >", "Button", kNextId);
  desktop.Add(dialog, "Cancel", "Button", 2);
  for (int k = 3; k < kControlsPerDialog; ++k)
    desktop.Add(dialog, k % 5 == 2 ? "" : "Option " + std::to_string(k), kControlClasses[k % 5], 1000 + k);
}

struct Tree {
  SimEngine sim;
  SimDesktop desktop{sim.host};
  std::size_t windows = 0;
};

Tree& Dialog_Tree() {
  static Tree* tree = [] {
    auto* t = new Tree;
    for (int i = 0; i < kDialogs; ++i)
      Add_Controls(t->desktop, t->desktop.Add(1, "Setup " + std::to_string(i), "#32770"));
    t->windows = static_cast<std::size_t>(kDialogs) * (1 + kControlsPerDialog);
    return t;
  }();
  return *tree;
}

Tree& Flat_Tree() {
  static Tree* tree = [] {
    auto* t = new Tree;
    for (int i = 0; i < kFlatWindows; ++i) t->desktop.Add(1, "Window " + std::to_string(i), "VelmoraFlat");
    t->windows = kFlatWindows;
    return t;
  }();
  return *tree;
}

// Milliseconds per search come from the time unit; the counter gives the
// time per window of the tree.
void Report_Windows(benchmark::State& state, std::size_t windows) {
  state.counters["windows"] = static_cast<double>(windows);
  state.counters["time_per_window"] = benchmark::Counter(
      static_cast<double>(windows), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

// The same calls as the search makes for every window, recursively, with no comparison.
std::size_t Bare_Walk(Desktop& desktop, WindowHandle start) {
  std::size_t seen = 0;
  for (WindowHandle child = desktop.GetWindow(start, WindowRelation::FirstChild); child != 0;
       child = desktop.GetWindow(child, WindowRelation::Next)) {
    seen += Bare_Walk(desktop, child);
    benchmark::DoNotOptimize(desktop.WindowText(child, kTextBufferSize));
    benchmark::DoNotOptimize(desktop.ClassName(child, kTextBufferSize));
    if (desktop.GetParent(child) != 0) benchmark::DoNotOptimize(desktop.ControlId(child));
    ++seen;
  }
  return seen;
}

void Baseline(benchmark::State& state, Tree& tree) {
  std::size_t seen = 0;
  for (auto _ : state) seen = Bare_Walk(tree.desktop, tree.desktop.DesktopWindow());
  if (seen != tree.windows) state.SkipWithError("the walk did not see the whole tree");
  Report_Windows(state, tree.windows);
}

void Search(benchmark::State& state, Tree& tree, const std::string& text, const std::string& className, std::int32_t id,
            const std::string& path, std::uint16_t expected) {
  WindowSearch search(tree.sim.engine, tree.desktop);
  search.TargetChildID = id;
  std::vector<WindowHandle> found;
  std::uint16_t count = 0;
  for (auto _ : state) {
    count = search.Find_Window_Like(found, tree.desktop.DesktopWindow(), 0, text, className, id, path);
    benchmark::DoNotOptimize(found.data());
  }
  if (count != expected) state.SkipWithError("the search found a different number of windows");
  Report_Windows(state, tree.windows);
}

void BM_Baseline_Walk_Dialogs(benchmark::State& state) { Baseline(state, Dialog_Tree()); }
void BM_Baseline_Walk_Flat(benchmark::State& state) { Baseline(state, Flat_Tree()); }

// Next in one dialog: 2,000 windows have its class, text and identifier, and
// the path tells them apart.
void BM_Search_Dialogs_Repeated(benchmark::State& state) {
  Search(state, Dialog_Tree(), "Next >", "Button", kNextId,
         "12, \"Button\", \"Next >\", 0, \"#32770\", \"Setup 1234\", 2", 1);
}

// A window that is not there, in a dialog that is: the top-level windows and
// that dialog's controls are read.
void BM_Search_Dialogs_Absent(benchmark::State& state) {
  Search(state, Dialog_Tree(), "Finish", "Button", kNextId,
         "12, \"Button\", \"Finish\", 0, \"#32770\", \"Setup 1234\", 2", 0);
}

// A button of a dialog that is not open: only the top-level windows are read.
void BM_Search_Dialogs_NoDialog(benchmark::State& state) {
  Search(state, Dialog_Tree(), "Next >", "Button", kNextId,
         "12, \"Button\", \"Next >\", 0, \"#32770\", \"Other Setup\", 2", 0);
}

// One dialog among 2,000, by its own title.
void BM_Search_Dialogs_TopLevel(benchmark::State& state) {
  Search(state, Dialog_Tree(), "Setup 1234", "#32770", 0, "0, \"#32770\", \"Setup 1234\", 1", 1);
}

void BM_Search_Flat(benchmark::State& state) {
  Search(state, Flat_Tree(), "Window 54321", "VelmoraFlat", 0, "0, \"VelmoraFlat\", \"Window 54321\", 1", 1);
}

BENCHMARK(BM_Baseline_Walk_Dialogs)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search_Dialogs_Repeated)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search_Dialogs_Absent)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search_Dialogs_NoDialog)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search_Dialogs_TopLevel)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Baseline_Walk_Flat)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Search_Flat)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace velmora::bench
