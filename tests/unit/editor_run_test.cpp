#include <algorithm>
#include <functional>

#include "automation.h"
#include "catalogue_table.h"
#include "command_codes.h"
#include "editor_fixture.h"
#include "sim_desktop.h"

namespace velmora::testing {
namespace {

using C = ControlId;
const std::string kStars(49, '*'), kPluses(49, '+');

class EditorRunTest : public EditorTest {
 protected:
  SimDesktop desktop{host};
  Automation automation{engine, desktop};
  WindowHandle dialog = desktop.Add(desktop.DesktopWindow(), "Setup", "#32770", 0, {100, 100, 500, 400});
  WindowHandle next = desktop.Add(dialog, "Next >", "Button", 1, {400, 350, 480, 380});

  EditorRunTest() {
    engine.desktop = &desktop;
    engine.automation = &automation;
    engine.state.DebugOn = true;
    panel.Load_Commands(1);
  }
  void Script(const Lines& lines, long highlighted) { EditorTest::Script(Joined({"# heading"}, lines), highlighted); }
  Lines Ran() const { return Ran_In(engine.DebugWindow.Items()); }
  // What the user does once the clock has passed the time.
  void At(long long ms, std::function<void()> action) {
    host.onDoEvents = [this, ms, action, done = false]() mutable {
      if (!done && host.clockMs >= ms) done = true, action();
    };
  }
  void Choose(std::uint8_t code) { form.CommandList_Click(Catalogue_Place_Of(code)->Position); }
  void Pick(C field, bool byKeyboard = false) { form.Field_Entered(field, byKeyboard); }
};

TEST_F(EditorRunTest, RunsStopAtTheNextMarkAQuitTheEndOrABlockError) {
  const std::string w = "wait: 0.00", marked = ">>> wait: 0.00";
  // The script, whether a step runs it, the lines that ran, and the line highlighted at the end.
  const std::tuple<Lines, bool, Lines, long> rows[] = {
      {{marked, w, marked, w}, false, {marked, w}, 3},
      {{w, "quit", w, marked}, false, {w, "quit"}, 3},
      {{w, w}, false, {w, w}, 2},            // the end
      {{"if: succeeded", w}, false, {}, 2},  // a block error; an empty line goes in before the if
      {{"if: succeeded", w}, true, {}, 2},
      {{marked, w}, true, {marked}, 2},
  };
  for (const auto& [script, step, ran, endsOn] : rows) {
    Script(script, 1);
    engine.state.StopRunning = true;  // as a step that ran the last line leaves it
    Click(step ? C::ExecuteNextButton : C::ExecuteButton);
    EXPECT_EQ(Ran(), ran);
    EXPECT_EQ(engine.TraceWindow.Selected(), endsOn);
    EXPECT_TRUE(Shown({kStars, "Info: PreProcessing..."}));
    EXPECT_EQ(Shown({"", kStars, kStars, "Info: Execution BEGINS!!"}), !step);
    EXPECT_EQ(Shown({"", "Info: Execution ends.", kPluses, kPluses}), !step);
    EXPECT_TRUE(controls[C::CommandList].Enabled && controls[C::ExecuteButton].Enabled);
    EXPECT_FALSE(form.Activity().Running());
  }
  EXPECT_EQ(window.foregroundCalls, 6);
}

// The halt waits for the running line: a wait to its end, a findwindow only
// to its next search. A close during a run halts it, then closes.
TEST_F(EditorRunTest, AHaltOrACloseEndsTheRunAfterTheRunningLine) {
  const std::tuple<std::string, bool, long long> rows[] = {
      {"wait: 0.05", false, 6000},
      {"findwindow: 1, \"Nowhere\", \"None\", 0, 0.5, 0.5, 0.30", false, 4000},
      {"wait: 0.05", true, 6000}};  // the line, whether the form is closed, and the time the run ends before
  for (const auto& [line, close, endsBefore] : rows) {
    Script({line, "wait: 0.01"}, 1);
    const long long start = host.clockMs;
    std::string during;
    At(start + 2000, [&] {
      if (close) {
        EXPECT_FALSE(form.May_Close_Now());
      } else {
        Click(C::ExecuteNextButton);
      }
      for (C id : {C::OpenScriptButton, C::CommandList, C::TraceWindow, C::ExecuteButton, C::TraceControlsFrame})
        during += controls[id].Enabled ? '1' : '0';
    });
    Click(C::ExecuteButton);
    EXPECT_EQ(during, "00100");
    EXPECT_EQ(Ran(), Lines{line});
    EXPECT_LT(host.clockMs - start, endsBefore);
    EXPECT_TRUE(Shown({"Info: Execution Halted at your request.", "", "Info: Execution ends."}));
  }
  EXPECT_EQ(window.closeCalls, 1);
}

// The breakpoint button follows the highlighted line, whatever moved it; a
// click on the heading highlights the line below, made when there is none.
TEST_F(EditorRunTest, BreakpointsToggleAndTheHeadingIsNeverHighlighted) {
  Script({"  wait: 0.01"}, 1);
  Click(C::BreakPointButton);
  EXPECT_EQ(engine.TraceWindow.Item(1) + "|" + controls[C::BreakPointButton].Caption, ">>> wait: 0.01|Clear Break");
  Click(C::BreakPointButton);
  EXPECT_EQ(engine.TraceWindow.Item(1) + "|" + controls[C::BreakPointButton].Caption, "wait: 0.01|Set Break");
  // The script, the line clicked, and then the highlight, the count of lines and the caption.
  const std::tuple<Lines, long, const char*> rows[] = {
      {{}, 0, "1 2 Set Break"}, {{">>> quit"}, 0, "1 2 Clear Break"}, {{"quit", ">>>quit"}, 2, "2 3 Clear Break"}};
  for (const auto& [script, clicked, after] : rows) {
    Script(script, clicked);
    form.TraceWindow_Click();
    EXPECT_EQ(std::to_string(engine.TraceWindow.Selected()) + " " + std::to_string(engine.TraceWindow.Count()) + " " +
                  controls[C::BreakPointButton].Caption,
              after);
  }
}

// A run or step starts afresh, whatever the last one left: no overwrite from
// a double click, logging on after a `debug: off`, no catalogue entry chosen.
TEST_F(EditorRunTest, EachRunStartsAfresh) {
  for (const C button : {C::ExecuteButton, C::ExecuteNextButton}) {
    Script({"debug: off", "wait: 0.00"}, 1);
    form.TraceWindow_DblClick();  // overwrite mode, then the run
    Click(button);
    EXPECT_FALSE(panel.Overwriting());
    EXPECT_EQ(panel.CommandList().Selected(), ListModel::kNoSelection);
    engine.DebugWindow.Clear();
    Click(C::ExecuteNextButton);  // the next line is logged although debug went off
    EXPECT_EQ(Ran().size(), 1u);
  }
}

// Every level of the picked window, outermost first, and whether findwindow's
// choice among alike windows lands on it. A pop-up left of its owner gives
// the owner's edge: findwindow takes no negative fraction.
TEST_F(EditorRunTest, AStillPointerPicksTheWindowWithEveryLevelAndForeseesTheChoice) {
  desktop.Add(desktop.Add(desktop.DesktopWindow(), "Setup", "#32770", 0, {600, 100, 1000, 400}), "Next >", "Button", 1,
              {900, 350, 980, 380});
  const WindowHandle tip = desktop.Add(desktop.DesktopWindow(), "Tip", "VelmoraTip", 0, {20, 150, 90, 200});
  desktop.At(tip).popup = true;
  desktop.At(tip).owner = dialog;
  const std::string two = "Info: 2 windows match the picked description now; the choice by the picked point lands on ";
  const std::string button = "2, \"Setup\", \"#32770\", 0, 0.85, 0.8833, \"Next >\", \"Button\", 1, 0.5, 0.5";
  const std::tuple<ScreenPoint, std::string, std::string> rows[] = {{{440, 365}, button, two + "the picked window."},
              {{940, 365}, button, two + "another window."},
              {{100, 100}, "1, \"Setup\", \"#32770\", 0, 0, 0", two + "the picked window."},
              {{50, 175}, "2, \"Setup\", \"#32770\", 0, 0, 0.25, \"Tip\", \"VelmoraTip\", 0, 0.4286, 0.5",
               "Info: 1 window matches the picked description now."}};
  for (const auto& [at, description, matches] : rows) {
    engine.DebugWindow.Clear();
    Choose(kFindWindowCommand);
    desktop.cursor = at;
    bool disabled = false;
    host.onDoEvents = [&] { disabled = disabled || !controls[C::Form].Enabled; };
    Pick(C::CommandLine);
    EXPECT_TRUE(disabled);
    EXPECT_EQ(controls[C::CommandLine].Caption, description);
    EXPECT_EQ(engine.DebugWindow.Items(),
              (Lines{"Info: Editor Disabled Pending Window Location Input!",
                     "  To pick window, leave mouse stationary for 3 seconds!", matches,
                     "Info: Editor Re-Enabled!"}));
    EXPECT_TRUE(controls[C::Form].Enabled && controls[C::InsertCommandButton].Enabled);
    EXPECT_EQ(controls.Focused(), C::Minutes);
  }
}

// 30 unmoved samples after the last move, which may be one pixel along
// either axis; every change of the window under the pointer wipes the old
// frame and draws the new one.
TEST_F(EditorRunTest, OnePixelRestartsTheWaitAndEachWindowIsFramedInTurn) {
  const Lines toButton = {"frame 2", "repaint 100,100,500,400", "frame 3", "repaint 400,350,480,380"};
  const std::pair<std::vector<ScreenPoint>, Lines> rows[] = {
      {{{440, 365}, {441, 365}}, toButton},
      {{{440, 365}, {440, 366}}, toButton},
      {{{440, 365}, {441, 365}, {200, 201}}, Joined(toButton, {"frame 2", "repaint 100,100,500,400"})}};
  for (const auto& [moves, marks] : rows) {
    Choose(kFindWindowCommand);
    std::vector<ScreenPoint> path(20, {200, 200});
    path.insert(path.end(), moves.begin(), moves.end());
    desktop.cursor = path.front();
    desktop.screenMarks.clear();
    const long long samples = host.tenthSleeps;
    host.onDoEvents = [&, start = host.clockMs] {
      desktop.cursor = path[std::min<std::size_t>((host.clockMs - start) / 95, path.size() - 1)];
    };
    Pick(C::CommandLine);
    EXPECT_EQ(host.tenthSleeps - samples, static_cast<long long>(path.size()) + 30);
    EXPECT_EQ(desktop.screenMarks, marks);
  }
}

// The pointer resting on the editor's own window picks nothing: the pick
// waits for another program's window. Escape ends a pick with nothing picked;
// a field entered by Tab that holds a description is left to correct by hand.
TEST_F(EditorRunTest, APickTakesNoOwnWindowEndsWithEscapeAndLeavesATabbedFieldAlone) {
  const WindowHandle own = desktop.Add(desktop.DesktopWindow(), "Velmora - IDE", "VelmoraEditor", 0, {600, 0, 900, 300});
  desktop.At(own).program = desktop.ownProgram;
  const std::string setup = "1, \"Setup\", \"#32770\", 0, 0.25, 0.3333";
  // A mouse pick or not, entered by Tab or not, Escape pressed after some time (or not), the
  // field's text before and after, and the most samples taken.
  const struct {
    bool mouse, tabbed;
    long long escapeAfterMs;
    const char* before;
    std::string after;
    long long mostSamples;
  } rows[] = {{false, false, -1, "", setup, 100},      {false, false, 500, "kept", "kept", 10},
              {true, false, 500, "7", "7", 10},        {false, true, -1, "kept", "kept", 0},
              {false, true, -1, "", setup, 100}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.before);
    Choose(row.mouse ? kUseMouseCommand : kFindWindowCommand);
    const C field = row.mouse ? C::Minutes : C::CommandLine;
    controls.SetCaption(field, row.before);
    desktop.cursor = {700, 100};  // on the editor
    const long long start = host.clockMs, samples = host.tenthSleeps;
    desktop.escapeAtMs = row.escapeAfterMs < 0 ? -1 : start + row.escapeAfterMs;
    At(start + 4000, [&] { desktop.cursor = {200, 200}; });  // longer than a pick's 3 s on the editor
    Pick(field, row.tabbed);
    EXPECT_EQ(controls[field].Caption, row.after);
    EXPECT_LE(host.tenthSleeps - samples, row.mostSamples);
    EXPECT_EQ(std::count(desktop.screenMarks.begin(), desktop.screenMarks.end(), "frame " + std::to_string(own)), 0);
    EXPECT_EQ(Shown({"Info: Pick ended with Escape; nothing was picked."}), row.escapeAfterMs >= 0);
    EXPECT_TRUE(controls[C::Form].Enabled);
    engine.DebugWindow.Clear();
  }
}

// The mouse pick, in usemouse's range; no pick for another command or in
// overwrite mode; a close ends a pick, with nothing picked.
TEST_F(EditorRunTest, TheMousePickGivesUseMousesRangeAndPicksStartOnlyWhereAskedFor) {
  desktop.screenWidth = 1024, desktop.screenHeight = 768;
  const std::pair<ScreenPoint, std::string> rows[] = {
      {{512, 384}, "32768 32768"}, {{1023, 767}, "65472 65451"}, {{2000, -5}, "65535 0"}};
  for (const auto& [at, xy] : rows) {
    Choose(kUseMouseCommand);
    desktop.cursor = at;
    Pick(C::Minutes);
    EXPECT_EQ(controls[C::Minutes].Caption + " " + controls[C::Seconds].Caption, xy);
    EXPECT_EQ(controls.Focused(), C::InsertCommandButton);
  }
  const long long samples = host.tenthSleeps;
  Choose(kWaitCommand);
  Pick(C::Minutes);
  Pick(C::CommandLine);
  for (const char* line : {"findwindow: 1, \"Setup\", \"#32770\", 0, 0.5, 0.5, 0.30", "usemouse: sl, 100, 100"}) {
    Script({line}, 1);
    form.TraceWindow_DblClick();
    Pick(C::CommandLine);
    Pick(C::Minutes);
  }
  EXPECT_EQ(host.tenthSleeps, samples);
  form.TraceWindow_Click();  // out of overwrite mode
  Choose(kFindWindowCommand);
  const std::string before = controls[C::CommandLine].Caption;
  At(host.clockMs + 500, [&] { EXPECT_FALSE(form.May_Close_Now()); });
  Pick(C::CommandLine);
  EXPECT_LT(host.tenthSleeps, samples + 10);
  EXPECT_EQ(controls[C::CommandLine].Caption, before);
  EXPECT_EQ(window.closeCalls, 1);
}

}  // namespace
}  // namespace velmora::testing
