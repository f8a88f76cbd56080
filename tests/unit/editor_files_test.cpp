// The editor's lifecycle and file flows on the simulated platform.
#include <optional>

#include "about.h"
#include "editor_fixture.h"

namespace velmora::testing {
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
  std::string Stored(const std::string& key) { return settings.GetSetting("Editor", key, "<none>"); }
};

// Marks are not saved; a cancelled or failed save leaves the script unsaved,
// and a new script is only written by a save.
TEST_F(EditorFilesTest, SavingDropsBreakpointMarksAndLogsTheSave) {
  form.Form_Load_Interactive();
  EXPECT_TRUE(dialogs.requests.empty() && !controls[C::CommandList].Enabled);  // nothing remembered, nothing asked
  Click(C::OpenScriptButton);
  EXPECT_EQ(dialogs.requests.size(), 1u);  // no debug prompt after a cancel
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{Trace_Header_Line(), ""}));  // a line to insert before
  engine.TraceWindow.Set(1, "  >>> Wait:  0.01");
  engine.TraceWindow.Add(">>> Quit");
  engine.TraceWindow.Add("  # kept as it stands");
  host.unopenable.insert("C:\\ro\\c.vls");
  for (const auto& chosen : {std::optional<std::string>(), std::optional<std::string>("C:\\ro\\c.vls")}) {
    form.Activity().Set_Script_Changed(true);
    dialogs.replies = {chosen};
    Click(C::SaveScriptButton);
    EXPECT_TRUE(form.Activity().Script_Changed());
    EXPECT_EQ(host.files.count("C:\\s\\a.vls") + host.files.count("C:\\ro\\c.vls"), 0u);
  }
  dialogs.replies = {"C:\\t\\b.vls"};
  Click(C::SaveScriptButton);
  EXPECT_EQ(dialogs.requests.back().InitialName, "C:\\s\\a.vls");
  EXPECT_EQ(host.Lines("C:\\t\\b.vls"), (Lines{Trace_Header_Line(), "Wait:  0.01", "Quit", "  # kept as it stands"}));
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Script File \"C:\\t\\b.vls\" saved.");
  EXPECT_FALSE(form.Activity().Script_Changed() || controls[C::SaveScriptButton].Enabled);
}

// Before a changed script is replaced (another script, a new debug file that
// reads it again, closing) the user is asked; only Yes with a completed save,
// or No, lets it go.
TEST_F(EditorFilesTest, AChangedScriptIsOnlyReplacedWhenTheUserLetsItGo) {
  // The answer, the save dialog's reply after Yes, and whether the edited line goes.
  const std::tuple<SaveAnswer, std::optional<std::string>, bool> rows[] = {
      {SaveAnswer::Cancel, std::nullopt, false},
      {SaveAnswer::Yes, std::nullopt, false},
      {SaveAnswer::Yes, "C:\\s\\kept.vls", true},
      {SaveAnswer::No, std::nullopt, true}};
  for (const std::string action : {"open", "new debug file", "close"}) {
    for (const auto& [answer, saveAs, replaced] : rows) {
      SCOPED_TRACE(action + ", answer " + std::to_string(static_cast<int>(answer)));
      host.files["C:\\s\\a.vls"] = host.files["C:\\s\\b.vls"] = "Quit\r\n";
      host.files.erase("C:\\s\\kept.vls");
      engine.editor = {};
      Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
      engine.TraceWindow.Set(1, "Wait:  0.01");
      form.Activity().Set_Script_Changed(true);
      dialogs.replies.clear();
      if (action != "close") dialogs.replies.push_back(action == "open" ? "C:\\s\\b.vls" : "C:\\s\\b.vld");
      if (answer == SaveAnswer::Yes) dialogs.replies.push_back(saveAs);
      dialogs.answers = {answer};
      dialogs.asked.clear();
      const bool closed = action == "close" ? form.Form_QueryUnload() : true;
      if (action != "close") Click(action == "open" ? C::OpenScriptButton : C::CreateDebugButton);
      EXPECT_EQ(dialogs.asked, Lines{"C:\\s\\a.vls"});
      const bool edited = engine.TraceWindow.Count() > 1 && engine.TraceWindow.Item(1) == "Wait:  0.01";
      if (action == "close") {
        EXPECT_EQ(closed, replaced);
        EXPECT_EQ(form.Activity().Script_Changed(), !replaced || answer == SaveAnswer::No);
      } else {
        // A new debug file reads the script again: the one just saved.
        EXPECT_EQ(edited, !replaced || (saveAs && action != "open"));
        EXPECT_EQ(form.Activity().Script_Changed(), !replaced);
      }
      const Lines kept = saveAs ? Lines{Trace_Header_Line(), "Wait:  0.01"} : Lines{};
      EXPECT_EQ(host.Lines("C:\\s\\kept.vls"), kept);
      EXPECT_EQ(host.Lines("C:\\s\\a.vls"), Lines{"Quit"});  // never written over
    }
  }
}

// Another script keeps the debug file; a new debug file is announced in the
// old one and starts afresh; one that cannot be made leaves the script whole.
TEST_F(EditorFilesTest, AnotherScriptOrDebugFileKeepsThePairUsable) {
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  host.files["C:\\s\\b.vls"] = "Wait:  0.01\r\nQuit\r\n";
  dialogs.replies = {"C:\\s\\b.vls"};
  Click(C::OpenScriptButton);
  EXPECT_EQ(dialogs.requests.size(), 3u);  // a debug file is named: no prompt
  EXPECT_TRUE(dialogs.asked.empty());      // nothing changed: no question
  EXPECT_EQ(dialogs.requests[2].InitialFolder, "C:\\s");  // the script's folder
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Script File Open:  C:\\s\\b.vls");
  EXPECT_EQ(controls[C::ScriptFileLabel].Caption, "Script: C:\\s\\b.vls");
  EXPECT_EQ(engine.TraceWindow.Selected(), 1);  // the first line to run
  dialogs.replies = {"  C:\\s\\b.vld "};
  Click(C::CreateDebugButton);
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Closing Debug File.  NEW Debug File C:\\s\\b.vld opened.");
  EXPECT_EQ(Log("C:\\s\\b.vld").at(0).rfind("Interactive Session Started.", 0), 0u);
  EXPECT_EQ(controls[C::DebugFileLabel].Caption, "Debug: C:\\s\\b.vld");
  host.unopenable.insert("C:\\ro\\a.vld");
  dialogs.replies = {"C:\\ro\\a.vld"};
  Click(C::CreateDebugButton);
  EXPECT_EQ(controls[C::DebugFileLabel].Caption, "Debug: (none; C:\\ro\\a.vld could not be opened)");
  dialogs.replies = {"C:\\s\\b.vls"};
  Click(C::SaveScriptButton);
  EXPECT_EQ(host.Lines("C:\\s\\b.vls"), (Lines{Trace_Header_Line(), "Wait:  0.01", "Quit"}));
}

// Extra height is shared between the two lists; below the minimum the form
// snaps to it, unless a maximised form has a screen too small for it.
TEST_F(EditorFilesTest, ResizeKeepsTheMinimumAndSharesTheHeightBetweenTheLists) {
  // The state, the size asked for, the screen's size; the size given, and the heights of the two lists.
  const std::tuple<WindowState, long, long, long, TwipsRect, long, long> rows[] = {
      {WindowState::Normal, 12000, 10000, 19200, {0, 0, 12000, 10000}, 5100, 2225},
      {WindowState::Normal, 9600, 9001, 19200, {0, 0, 9600, 9001}, 4600, 1726},
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
    EXPECT_GT(controls[C::DebugFrame].Rect.Top, controls[C::TraceControlsFrame].Rect.Top);
  }
}

// Each script read in is measured afresh: the list scrolls sideways as far as
// the widest line it shows now, however wide the lines before it were.
TEST_F(EditorFilesTest, TheScriptListScrollsToTheWidestLineOfTheScriptShown) {
  host.files["C:\\s\\wide.vls"] = "' " + std::string(200, 'w') + "\r\n";
  host.files["C:\\s\\narrow.vls"] = "quit\r\n";
  const auto widest_shown = [&] {
    std::size_t widest = 0;
    for (const std::string& line : engine.TraceWindow.Items()) widest = std::max(widest, line.size());
    return static_cast<long>(widest) * 7 + 5;
  };
  Start_With("C:\\s\\wide.vls", "C:\\s\\a.vld");
  for (const char* name : {"C:\\s\\narrow.vls", "C:\\s\\wide.vls", "C:\\s\\narrow.vls", ""}) {
    EXPECT_EQ(surface.traceExtents.back(), widest_shown()) << "before " << name;
    dialogs.replies = {name};
    Click(C::OpenScriptButton);
  }
}

// A form off the screen is stored at the edge, a minimised one as normal;
// the shut-down is logged, the debug file closed and the names stored.
TEST_F(EditorFilesTest, ClosingLogsTheShutDownAndStoresTheNamesAndTheRestoredPlacement) {
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  const std::tuple<WindowState, TwipsRect, const char*> rows[] = {  // the top, left, state and width stored
      {WindowState::Normal, {19200, -60, 9000, 8800}, "0 0 0 9000"},
      {WindowState::Maximized, {240, 120, 9000, 8800}, "120 240 2 9000"},
      {WindowState::Minimized, {240, 120, 9000, 8800}, "120 240 0 9000"}};
  for (const auto& [state, restored, want] : rows) {
    window.state = state;
    window.placement = {-480000, -480000, 500, 300};  // where a minimised or maximised form is
    window.restored = restored;
    if (state == WindowState::Normal) window.placement = restored, window.restored.reset();
    EXPECT_TRUE(form.Form_QueryUnload());
    EXPECT_EQ(Stored("Top") + " " + Stored("Left") + " " + Stored("WindowState") + " " + Stored("Width"), want);
  }
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Editor shut down!  --> " + host.dateTimeText);
  EXPECT_EQ(Stored("Script File") + " " + Stored("Debug File"), "\"C:\\s\\a.vls\" \"C:\\s\\a.vld\"");
}

// The remembered place and files come back without a question; a script the
// shell names wins over the remembered one; a remembered file that is gone
// is forgotten, so it is asked for.
TEST_F(EditorFilesTest, ASecondStartRestoresPlacementAndTheRememberedFilesWithoutAsking) {
  host.files["C:\\s\\a.vls"] = "Quit\r\n";
  host.files["C:\\s\\shell.vls"] = "Wait:  0.01\r\n";
  host.files["C:\\s\\a.vld"] = "";
  const std::pair<const char*, const char*> stored[] = {
      {"Top", "120"}, {"Left", "240"}, {"Height", "8700"}, {"Width", "damaged"}, {"WindowState", "2"},
      {"Script File", "\"C:\\s\\a.vls\""}, {"Debug File", "\"C:\\s\\a.vld\""}};
  for (auto [key, value] : stored) settings.SaveSetting("Editor", key, value);
  form.Form_Load_Interactive();
  EXPECT_EQ(window.state, WindowState::Maximized);
  EXPECT_EQ(window.placement, (TwipsRect{240, 120, 9600, 8700}));  // a damaged width keeps the designed one
  EXPECT_TRUE(dialogs.requests.empty());
  EXPECT_EQ(engine.TraceWindow.Item(1), "Quit");
  for (const char* shell : {"\"C:\\s\\shell.vls\"", ""}) {
    if (!*shell) host.files.erase("C:\\s\\a.vld");
    EditorForm second{engine, controls, window, dialogs, settings};
    engine.editor = {};
    engine.editor.ScriptFileName = shell;
    second.Form_Load_Interactive();
    EXPECT_EQ(engine.TraceWindow.Item(1), "Wait:  0.01");  // the shell's script; then still it
  }
  EXPECT_EQ(engine.editor.DebugFileName, "");
  EXPECT_EQ(dialogs.requests.size(), 1u);  // so the debug file is asked for
}

}  // namespace
}  // namespace velmora::testing
