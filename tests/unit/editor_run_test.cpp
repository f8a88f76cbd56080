#include <algorithm>
#include <functional>

#include "automation.h"
#include "catalogue_table.h"
#include "command_codes.h"
#include "editor_fixture.h"
#include "sim_desktop.h"

namespace velmora::test {
namespace {

using C = ControlId;

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

// A run stops before the next marked line, after a quit, at the end or on a
// block error; a step runs one line. Each starts afresh, whatever the last
// left: no overwrite from a double click, logging on after a `debug: off`.
TEST_F(EditorRunTest, RunsStopAtTheNextMarkAQuitTheEndOrABlockErrorAndStartAfresh) {
  const std::string w = "wait: 0.00", marked = ">>> wait: 0.00";
  // The script, whether a step runs it, the lines that ran, and the line highlighted at the end.
  const std::tuple<Lines, bool, Lines, long> rows[] = {
      {{"debug: off", w}, true, {"debug: off"}, 2},
      {{marked, w, marked, w}, false, {marked, w}, 3},
      {{"debug: off", w}, false, {"debug: off"}, 2},
      {{w, "quit", w, marked}, false, {w, "quit"}, 3},
      {{w, w}, false, {w, w}, 2},            // the end
      {{"if: succeeded", w}, false, {}, 2},  // a block error; an empty line goes in before the if
      {{"if: succeeded", w}, true, {}, 2},
      {{marked, w}, true, {marked}, 2}};
  for (const auto& [script, step, ran, endsOn] : rows) {
    Script(script, 1);
    form.TraceWindow_DblClick();
    engine.state.StopRunning = true;  // as a step that ran the last line leaves it
    Click(step ? C::ExecuteNextButton : C::ExecuteButton);
    EXPECT_EQ(Ran(), ran);
    EXPECT_EQ(engine.TraceWindow.Selected(), endsOn);
    EXPECT_TRUE(controls[C::CommandList].Enabled && controls[C::ExecuteButton].Enabled);
    EXPECT_FALSE(form.Activity().Running() || panel.Overwriting());
    EXPECT_EQ(panel.CommandList().Selected(), ListModel::kNoSelection);
  }
  EXPECT_EQ(window.foregroundCalls, 8);
}

// 30 unmoved samples after the last move, which may be one pixel along
// either axis; every change of the window under the pointer wipes the old
// frame and draws the new one.
TEST_F(EditorRunTest, OnePixelRestartsTheWaitAndEachWindowIsFramedInTurn) {
  for (const ScreenPoint last : {ScreenPoint{441, 365}, ScreenPoint{440, 366}}) {
    const std::vector<ScreenPoint> moves = {{440, 365}, last};
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
    EXPECT_EQ(desktop.screenMarks, (Lines{"frame 2", "repaint 100,100,500,400", "frame 3", "repaint 400,350,480,380"}));
  }
}

// The pointer resting on the editor's own window picks nothing: the pick
// waits for another program's window. Escape ends a pick with nothing picked;
// a field entered by Tab that holds a description is left to correct by hand.
// A pop-up left of its owner gives the owner's edge: findwindow takes no
// negative fraction.
TEST_F(EditorRunTest, APickTakesNoOwnWindowEndsWithEscapeAndLeavesATabbedFieldAlone) {
  const WindowHandle own = desktop.Add(desktop.DesktopWindow(), "Velmora - IDE", "VelmoraEditor", 0, {600, 0, 900, 300});
  desktop.At(own).program = desktop.ownProgram;
  const WindowHandle tip = desktop.Add(desktop.DesktopWindow(), "Tip", "VelmoraTip", 0, {20, 150, 90, 200});
  desktop.At(tip).popup = true;
  desktop.At(tip).owner = dialog;
  const std::string setup = "1, \"Setup\", \"#32770\", 0, 0.25, 0.3333";
  // Entered by Tab or not, Escape pressed after some time (or not), the field's text before, where
  // the pointer goes after 4 s on the editor, the text after, and the most samples taken.
  const std::tuple<bool, long long, const char*, ScreenPoint, std::string, long long> rows[] = {
      {false, -1, "", {200, 200}, setup, 100},
      {false, -1, "", {50, 175}, "2, \"Setup\", \"#32770\", 0, 0, 0.25, \"Tip\", \"VelmoraTip\", 0, 0.4286, 0.5", 100},
      {false, 500, "kept", {200, 200}, "kept", 10},
      {true, -1, "kept", {200, 200}, "kept", 0},
      {true, -1, "", {200, 200}, setup, 100}};
  for (const auto& [tabbed, escapeAfterMs, before, to, after, mostSamples] : rows) {
    SCOPED_TRACE(after);
    Choose(kFindWindowCommand);
    controls.SetCaption(C::CommandLine, before);
    desktop.cursor = {700, 100};  // on the editor
    const long long start = host.clockMs, samples = host.tenthSleeps;
    desktop.escapeAtMs = escapeAfterMs < 0 ? -1 : start + escapeAfterMs;
    At(start + 4000, [&, to = to] { desktop.cursor = to; });  // longer than a pick's 3 s on the editor
    Pick(C::CommandLine, tabbed);
    EXPECT_EQ(controls[C::CommandLine].Caption, after);
    EXPECT_LE(host.tenthSleeps - samples, mostSamples);
    EXPECT_EQ(std::count(desktop.screenMarks.begin(), desktop.screenMarks.end(), "frame " + std::to_string(own)), 0);
    EXPECT_EQ(Shown({"Info: Pick ended with Escape; nothing was picked."}), escapeAfterMs >= 0);
    EXPECT_EQ(Shown({"Info: Editor Disabled Pending Window Location Input!",
                     "  To pick window, leave mouse stationary for 3 seconds!"}), mostSamples > 0);
    EXPECT_TRUE(controls[C::Form].Enabled && (mostSamples == 0 || Shown({"Info: Editor Re-Enabled!"})));
    engine.DebugWindow.Clear();
  }
}

// The mouse pick, in usemouse's range; no pick for another command or in
// overwrite mode; a close ends a pick, with nothing picked.
TEST_F(EditorRunTest, TheMousePickGivesUseMousesRangeAndPicksStartOnlyWhereAskedFor) {
  desktop.screenWidth = 1024, desktop.screenHeight = 768;
  for (const auto& [at, xy] : {std::pair{ScreenPoint{512, 384}, "32768 32768"}, {{1023, 767}, "65472 65451"},
                                {{2000, -5}, "65535 0"}}) {
    Choose(kUseMouseCommand);
    desktop.cursor = at;
    Pick(C::Minutes);
    EXPECT_EQ(controls[C::Minutes].Caption + " " + controls[C::Seconds].Caption, xy);
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
}  // namespace velmora::test
