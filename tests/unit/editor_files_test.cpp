// The editor's lifecycle and file flows on the simulated platform.
#include <optional>

#include "about.h"
#include "editor_fixture.h"

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

// Before a changed script is replaced (another script, a new debug file that
// reads it again, closing) the user is asked; only Yes with a completed save,
// or No, lets it go. The file it came from is never written over.
TEST_F(EditorFilesTest, AChangedScriptIsOnlyReplacedWhenTheUserLetsItGo) {
  // The action (the form: closing), the answer, the save dialog's reply after Yes; whether the script went.
  const std::tuple<C, SaveAnswer, std::optional<std::string>, bool> rows[] = {
      {C::OpenScriptButton, SaveAnswer::Cancel, std::nullopt, false},
      {C::OpenScriptButton, SaveAnswer::No, std::nullopt, true},
      {C::CreateDebugButton, SaveAnswer::Yes, std::nullopt, false},
      {C::CreateDebugButton, SaveAnswer::No, std::nullopt, true},
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

// A first start asks for nothing; another script keeps the debug file;
// marks are not saved; a cancelled or failed save leaves the script unsaved;
// a new debug file is announced in the old one and starts afresh; one that
// cannot be made leaves the script read whole.
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
  EXPECT_EQ(dialogs.requests.size(), 4u);  // a debug file is named: no prompt
  EXPECT_TRUE(dialogs.asked.empty());      // nothing changed: no question
  EXPECT_EQ(dialogs.requests[3].InitialFolder, "C:\\s");  // the script's folder
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Script File Open:  C:\\s\\b.vls");
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

// Extra height is shared between the two lists; below the minimum the form
// snaps to it, unless a maximised form has a screen too small for it.
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
    EXPECT_GT(controls[C::DebugFrame].Rect.Top, controls[C::TraceControlsFrame].Rect.Top);
  }
}

// Closing stores the names; the next start loads them without asking, but
// a script the shell names wins, and a remembered file that is gone is
// forgotten, so it is asked for.
TEST_F(EditorFilesTest, TheNextStartLoadsTheRememberedFilesUnlessTheShellNamesAScriptOrAFileIsGone) {
  host.files["C:\\s\\a.vls"] = "Quit\r\n";
  host.files["C:\\s\\shell.vls"] = "Wait:  0.01\r\n";
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  EXPECT_TRUE(form.Form_QueryUnload());
  const std::tuple<const char*, bool, const char*> rows[] = {  // the shell's script, the debug file there, line 1
      {"", true, "Quit"}, {"\"C:\\s\\shell.vls\"", true, "Wait:  0.01"}, {"", false, "Wait:  0.01"}};
  for (const auto& [shell, debugThere, line] : rows) {
    if (!debugThere) host.files.erase("C:\\s\\a.vld");
    dialogs.requests.clear();
    EditorForm next{engine, controls, window, dialogs, settings};
    engine.editor = {};
    engine.editor.ScriptFileName = shell;
    next.Form_Load_Interactive();
    EXPECT_EQ(engine.TraceWindow.Item(1), line);  // a gone debug file: nothing loaded
    EXPECT_EQ(dialogs.requests.size(), debugThere ? 0u : 1u);  // so the debug file is asked for
  }
}

}  // namespace
}  // namespace velmora::test
