// The editor on the simulated platform: its lifecycle and files, its runs, and
// its picks of a window or a point on the screen.
#include <algorithm>
#include <functional>
#include <optional>

#include "about.h"
#include "automation.h"
#include "catalogue_table.h"
#include "command_codes.h"
#include "editor_fixture.h"
#include "sim_desktop.h"

namespace velmora::test {
namespace {

using C = ControlId;

class EditorFilesTest : public EditorTest {
 protected:
  // Starts the editor and loads a script and a debug file through the dialogs.
  void Start_With(const std::string& script, const std::string& debug) {
    form.Form_Load_Interactive();
    dialogs.replies = {script, debug};
    Click(C::OpenScriptButton);
  }
};

// A changed script goes (for another script, a new debug file, a close) only on
// No or Yes with a completed save; the file it came from is never written over.
TEST_F(EditorFilesTest, AChangedScriptIsOnlyReplacedWhenTheUserLetsItGo) {
  // The action (the form: closing), the answer, the save dialog's reply after Yes; whether the script went.
  const std::tuple<C, SaveAnswer, std::optional<std::string>, bool> rows[] = {
      {C::OpenScriptButton, SaveAnswer::Cancel, std::nullopt, false},
      {C::OpenScriptButton, SaveAnswer::No, std::nullopt, true},
      {C::CreateDebugButton, SaveAnswer::Yes, std::nullopt, false},
      {C::Form, SaveAnswer::Yes, "C:\\s\\kept.vls", true},
      {C::Form, SaveAnswer::Cancel, std::nullopt, false}};
  for (const auto& [action, answer, saveAs, gone] : rows) {
    host.files["C:\\s\\a.vls"] = host.files["C:\\s\\b.vls"] = "Quit\r\n";
    host.files.erase("C:\\s\\kept.vls");
    engine.editor = {};
    Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
    engine.TraceWindow.Set(1, "Wait:  0.01");
    form.Activity().Set_Script_Changed(true);
    dialogs.replies = {action == C::OpenScriptButton ? "C:\\s\\b.vls" : "C:\\s\\b.vld"};
    if (action == C::Form) dialogs.replies.clear();
    if (answer == SaveAnswer::Yes) dialogs.replies.push_back(saveAs);
    dialogs.answers = {answer};
    dialogs.asked.clear();
    const bool closed = action == C::Form && form.Form_QueryUnload();
    if (action != C::Form) Click(action);
    EXPECT_EQ(dialogs.asked, Lines{"C:\\s\\a.vls"});
    EXPECT_EQ(action == C::Form ? closed : engine.TraceWindow.Item(1) != "Wait:  0.01", gone);
    EXPECT_EQ(host.Lines("C:\\s\\kept.vls"), (saveAs ? Lines{Trace_Header_Line(), "Wait:  0.01"} : Lines{}));
    EXPECT_EQ(host.Lines("C:\\s\\a.vls"), Lines{"Quit"});
  }
}

// Another script keeps the debug file; a save drops the marks, and a failed one
// leaves the script unsaved; a new debug file is announced in the old one.
TEST_F(EditorFilesTest, ScriptsAndDebugFilesComeAndGoAndSavingDropsTheMarks) {
  form.Form_Load_Interactive();
  EXPECT_TRUE(dialogs.requests.empty() && !controls[C::CommandList].Enabled);
  Click(C::OpenScriptButton);
  EXPECT_EQ(dialogs.requests.size(), 1u);  // no debug prompt after a cancel
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{Trace_Header_Line(), ""}));  // a new script: a line to insert before
  host.files["C:\\s\\b.vls"] = "Wait:  0.01\r\nQuit\r\n";
  dialogs.replies = {"C:\\s\\b.vls"};
  Click(C::OpenScriptButton);
  EXPECT_EQ(dialogs.requests.size(), 4u);                 // a debug file is named: no prompt
  EXPECT_TRUE(dialogs.asked.empty());                     // nothing changed: no question
  EXPECT_EQ(dialogs.requests[3].InitialFolder, "C:\\s");  // the script's folder
  EXPECT_EQ(controls[C::ScriptFileLabel].Caption, "Script: C:\\s\\b.vls");
  EXPECT_EQ(engine.TraceWindow.Selected(), 1);  // the first line to run
  engine.TraceWindow.Set(1, "  >>> Wait:  0.01");
  engine.TraceWindow.Add("  # kept as it stands");
  host.unopenable.insert("C:\\ro\\c.vls");
  for (const auto& chosen : {std::optional<std::string>(), std::optional<std::string>("C:\\ro\\c.vls")}) {
    form.Activity().Set_Script_Changed(true);
    dialogs.replies = {chosen};
    Click(C::SaveScriptButton);
    EXPECT_TRUE(form.Activity().Script_Changed());
  }
  const Lines saved = {Trace_Header_Line(), "Wait:  0.01", "Quit", "  # kept as it stands"};
  dialogs.replies = {"C:\\t\\c.vls"};
  Click(C::SaveScriptButton);
  EXPECT_EQ(dialogs.requests.back().InitialName, "C:\\s\\b.vls");
  EXPECT_EQ(host.Lines("C:\\t\\c.vls"), saved);
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Script File \"C:\\t\\c.vls\" saved.");
  EXPECT_FALSE(form.Activity().Script_Changed() || controls[C::SaveScriptButton].Enabled);
  dialogs.replies = {"  C:\\s\\b.vld "};
  Click(C::CreateDebugButton);
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Closing Debug File.  NEW Debug File C:\\s\\b.vld opened.");
  EXPECT_EQ(Log("C:\\s\\b.vld").at(0).rfind("Interactive Session Started.", 0), 0u);
  EXPECT_EQ(controls[C::DebugFileLabel].Caption, "Debug: C:\\s\\b.vld");
  host.unopenable.insert("C:\\ro\\a.vld");
  dialogs.replies = {"C:\\ro\\a.vld"};
  Click(C::CreateDebugButton);
  EXPECT_EQ(controls[C::DebugFileLabel].Caption, "Debug: (none; C:\\ro\\a.vld could not be opened)");
  dialogs.replies = {"C:\\s\\d.vls"};
  Click(C::SaveScriptButton);
  EXPECT_EQ(host.Lines("C:\\s\\d.vls").size(), saved.size());
}

// Below the minimum a form snaps to it, unless maximised on a smaller screen.
TEST_F(EditorFilesTest, ResizeKeepsTheMinimumAndSharesTheHeightBetweenTheLists) {
  // The state, the size asked for, the screen's size; the size given, and the heights of the two lists.
  const std::tuple<WindowState, long, long, long, TwipsRect, long, long> rows[] = {
      {WindowState::Normal, 12000, 10000, 19200, {0, 0, 12000, 10000}, 5100, 2225},
      {WindowState::Normal, 5000, 6000, 19200, {0, 0, 8295, 8595}, 4600, 1320},
      {WindowState::Maximized, 8000, 8000, 8000, {0, 0, 8000, 8000}, 4600, 725},
      {WindowState::Maximized, 8000, 8000, 8295, {0, 0, 8295, 8000}, 4600, 725},
      {WindowState::Minimized, 100, 100, 19200, {0, 0, 100, 100}, 4600, 725}};  // left alone
  for (const auto& [state, width, height, screen, want, scriptHeight, debugHeight] : rows) {
    window.state = state;
    window.placement = {0, 0, width, height};
    window.screenWidth = window.screenHeight = screen;
    form.Form_Resize();
    EXPECT_EQ(window.placement, want);
    EXPECT_EQ(controls[C::TraceWindow].Rect.Height, scriptHeight) << width;
    EXPECT_EQ(controls[C::DebugWindow].Rect.Height, debugHeight) << width;
  }
}

// The next start loads the files of the last, but the shell's script wins and a
// file that is gone is asked for.
TEST_F(EditorFilesTest, TheNextStartLoadsTheRememberedFilesUnlessTheShellNamesAScriptOrAFileIsGone) {
  host.files["C:\\s\\a.vls"] = "Quit\r\n";
  host.files["C:\\s\\shell.vls"] = "Wait:  0.01\r\n";
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  EXPECT_TRUE(form.Form_QueryUnload());
  const std::tuple<const char*, bool, const char*> rows[] = {// the shell's script, the debug file there, line 1
                                                             {"", true, "Quit"},
                                                             {"\"C:\\s\\shell.vls\"", true, "Wait:  0.01"},
                                                             {"", false, "Wait:  0.01"}};
  for (const auto& [shell, debugThere, line] : rows) {
    if (!debugThere) host.files.erase("C:\\s\\a.vld");
    dialogs.requests.clear();
    EditorForm next{engine, controls, window, dialogs, settings};
    engine.editor = {};
    engine.editor.ScriptFileName = shell;
    next.Form_Load_Interactive();
    EXPECT_EQ(engine.TraceWindow.Item(1), line);               // a gone debug file: nothing loaded
    EXPECT_EQ(dialogs.requests.size(), debugThere ? 0u : 1u);  // so the debug file is asked for
  }
}

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
  void Script(Lines lines, long highlighted) {
    lines.insert(lines.begin(), "# heading");
    EditorTest::Script(lines, highlighted);
  }
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

// A run stops before a mark, after a quit, at the end or on a block error; a step runs one
// line. Each starts afresh: no overwrite from a double click, logging on after `debug: off`.
TEST_F(EditorRunTest, RunsStopAtTheNextMarkAQuitTheEndOrABlockErrorAndStartAfresh) {
  const std::string w = "wait: 0.00", marked = ">>> wait: 0.00";
  // The script, whether a step runs it, the lines that ran, and the line highlighted at the end.
  const std::tuple<Lines, bool, Lines, long> rows[] = {
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
  EXPECT_EQ(window.foregroundCalls, 7);
}

// The pace chosen from the menu is kept for the next start, and lines run in it
// make the fixed pauses only at the default pace.
TEST_F(EditorRunTest, TheChosenPaceIsKeptForTheNextStartAndRunsTheLines) {
  for (const bool fast : {true, false}) {
    form.Toggle_Fast_Pace();
    engine.state.RunPace = Pace::Default;
    EditorForm next{engine, controls, window, dialogs, settings};
    next.Form_Load_Interactive();
    EXPECT_EQ(next.Fast_Pace(), fast);
    Script(
        {R"(findwindow: 2, "Setup", "#32770", 0, 0.5, 0.9, "Next >", "Button", 1, 0.5, 0.5, 0.05)", "sendbuttons: sl"},
        1);
    const long long pauses = host.tenthSleeps;
    Click(C::ExecuteButton);
    EXPECT_EQ(desktop.mouseEvents.size(), fast ? 4u : 8u);  // each click: the move, the move to the point, down, up
    EXPECT_EQ(host.tenthSleeps - pauses, fast ? 0 : 2 * 2 + 10 + 10 + 3);
  }
}

// 30 still samples after the last move (one pixel on either axis); each window under the
// pointer is framed in turn, the last frame wiped.
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

// The editor's own window is never picked; Escape picks nothing; a filled field entered by
// Tab is left alone; a pop-up left of its owner gives the owner's edge (no negative fraction).
TEST_F(EditorRunTest, APickTakesNoOwnWindowEndsWithEscapeAndLeavesATabbedFieldAlone) {
  const WindowHandle own =
      desktop.Add(desktop.DesktopWindow(), "Velmora - IDE", "VelmoraEditor", 0, {600, 0, 900, 300});
  desktop.At(own).program = desktop.ownProgram;
  const WindowHandle tip = desktop.Add(desktop.DesktopWindow(), "Tip", "VelmoraTip", 0, {20, 150, 90, 200});
  desktop.At(tip).popup = true;
  desktop.At(tip).owner = dialog;
  const std::string setup = "1, \"Setup\", \"#32770\", 0, 0.25, 0.3333";
  // Entered by Tab or not, Escape pressed after some time (or not), the field's text before, where
  // the pointer goes after 4 s on the editor, the text after, and the most samples taken.
  const std::tuple<bool, long long, const char*, ScreenPoint, std::string, long long> rows[] = {
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
                     "  To pick window, leave mouse stationary for 3 seconds!"}),
              mostSamples > 0);
    EXPECT_TRUE(controls[C::Form].Enabled && (mostSamples == 0 || Shown({"Info: Editor Re-Enabled!"})));
    engine.DebugWindow.Clear();
  }
}

// The mouse pick, in usemouse's range; none for another command or in overwrite mode; a close
// ends a pick with nothing picked.
TEST_F(EditorRunTest, TheMousePickGivesUseMousesRangeAndPicksStartOnlyWhereAskedFor) {
  desktop.screenWidth = 1024, desktop.screenHeight = 768;
  for (const auto& [at, xy] :
       {std::pair{ScreenPoint{512, 384}, "32768 32768"}, {{1023, 767}, "65472 65451"}, {{2000, -5}, "65535 0"}}) {
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
