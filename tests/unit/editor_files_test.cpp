// The editor's lifecycle and file flows on the simulated platform.
#include <functional>
#include <optional>

#include "about.h"
#include "editor_fixture.h"
#include "editor_layout.h"

namespace velmora::test {
namespace {

using C = ControlId;

class EditorFilesTest : public EditorTest {
 protected:
  // Starts the editor and loads a script and a debug file through the dialogs.
  void Start_With(const std::string& script, const std::string& debug) {
    form.Form_Load_Interactive();
    dialogs.replies = {script, debug};
    form.OpenScriptButton_Click();
  }
};

TEST_F(EditorFilesTest, AFreshStartAsksForTheScriptThenTheDebugFileAndLoadsThePair) {
  form.Form_Load_Interactive();
  EXPECT_FALSE(controls[C::CommandList].Enabled);
  EXPECT_EQ(window.placement.Left, (19200 - 9600) / 2);  // centred
  EXPECT_EQ(window.placement.Top, (14400 - 9000) / 2);
  EXPECT_TRUE(dialogs.requests.empty());  // nothing remembered, nothing asked

  host.files["C:\\s\\old.vls"] = "run: \"x.exe\"\r\n";
  dialogs.replies = {"  C:\\s\\old.vls ", "C:\\s\\old.vld"};
  form.OpenScriptButton_Click();
  ASSERT_EQ(dialogs.requests.size(), 2u);
  const FileDialogRequest& open = dialogs.requests[0];
  EXPECT_EQ(open.Title, "New Script File");
  EXPECT_EQ(open.DefaultExtension, ".VLS");
  EXPECT_EQ(open.Filter, "Velmora Script (*.vls)|*.vls|All Files (*.*)|*.*");
  EXPECT_EQ(dialogs.requests[1].Title, "Open New Debug File");
  EXPECT_EQ(dialogs.requests[1].Filter, "Velmora Debug (*.vld)|*.vld|All Files (*.*)|*.*");
  EXPECT_EQ(dialogs.requests[1].InitialFolder, "C:\\Work");  // no debug name yet: the folder stays

  EXPECT_EQ(controls[C::ScriptFileLabel].Caption, "Script: C:\\s\\old.vls");
  EXPECT_EQ(controls[C::DebugFileLabel].Caption, "Debug: C:\\s\\old.vld");
  EXPECT_EQ(engine.TraceWindow.Items(), (std::vector<std::string>{Trace_Header_Line(), "run: \"x.exe\""}));
  EXPECT_EQ(engine.TraceWindow.Selected(), 1);  // the first line to run
  EXPECT_TRUE(controls[C::CommandList].Enabled);
  EXPECT_TRUE(controls[C::ExecuteButton].Enabled);
  EXPECT_EQ(Log("C:\\s\\old.vld")[2], "Info: Script File Open:  C:\\s\\old.vls");
}

TEST_F(EditorFilesTest, CancelledDialogsChangeNothingAndANewScriptGetsALineToInsertBefore) {
  form.Form_Load_Interactive();
  dialogs.replies = {std::nullopt};
  form.OpenScriptButton_Click();
  EXPECT_EQ(dialogs.requests.size(), 1u);  // no debug prompt after a cancel
  EXPECT_EQ(engine.editor.ScriptFileName, "");

  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");  // a new script: nothing is created before the save
  EXPECT_EQ(engine.TraceWindow.Items(), (std::vector<std::string>{Trace_Header_Line(), ""}));
  EXPECT_EQ(engine.TraceWindow.Selected(), 1);
  EXPECT_EQ(host.files.count("C:\\s\\a.vls"), 0u);
  form.ScriptChanged = true;
  dialogs.replies = {std::nullopt};
  form.SaveScriptButton_Click();
  EXPECT_TRUE(form.ScriptChanged);
  EXPECT_EQ(host.files.count("C:\\s\\a.vls"), 0u);
}

TEST_F(EditorFilesTest, SavingDropsBreakpointMarksAndLogsTheSave) {
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  engine.TraceWindow.Set(1, "  >>> Wait:  0.01");
  engine.TraceWindow.Add(">>> Quit");
  engine.TraceWindow.Add("  # kept as it stands");
  form.ScriptChanged = true;
  dialogs.replies = {"C:\\t\\b.vls"};
  form.SaveScriptButton_Click();
  EXPECT_EQ(dialogs.requests.back().Title, "Save Script File");
  EXPECT_TRUE(dialogs.requests.back().Save);
  EXPECT_EQ(dialogs.requests.back().InitialName, "C:\\s\\a.vls");
  EXPECT_EQ(host.Lines("C:\\t\\b.vls"),
            (std::vector<std::string>{Trace_Header_Line(), "Wait:  0.01", "Quit", "  # kept as it stands"}));
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Script File \"C:\\t\\b.vls\" saved.");
  EXPECT_FALSE(form.ScriptChanged);
  EXPECT_FALSE(controls[C::SaveScriptButton].Enabled);

  host.unopenable.insert("C:\\t\\c.vls");  // a failed save keeps the script unsaved
  form.ScriptChanged = true;
  dialogs.replies = {"C:\\t\\c.vls"};
  form.SaveScriptButton_Click();
  EXPECT_TRUE(form.ScriptChanged);
  EXPECT_EQ(engine.editor.ScriptFileName, "\"C:\\t\\b.vls\"");
}

// Before a changed script is replaced (another script, a new debug file that
// reads it again, closing) the user is asked; only Yes with a completed save,
// or No, lets it go.
struct ChangedScriptRow {
  const char* what;
  std::vector<SaveAnswer> answers;
  std::optional<std::string> saveAs;  // the save dialog's reply after Yes
  bool replaced;                      // the edited line is gone from the list
};

TEST_F(EditorFilesTest, AChangedScriptIsOnlyReplacedWhenTheUserLetsItGo) {
  const ChangedScriptRow rows[] = {{"Cancel", {SaveAnswer::Cancel}, std::nullopt, false},
                                   {"Yes, save cancelled", {SaveAnswer::Yes}, std::nullopt, false},
                                   {"Yes, saved", {SaveAnswer::Yes}, "C:\\s\\kept.vls", true},
                                   {"No", {SaveAnswer::No}, std::nullopt, true}};
  using Action = std::pair<const char*, std::function<bool(EditorForm&)>>;
  const Action actions[] = {
      {"open", [](EditorForm& f) { f.OpenScriptButton_Click(); return true; }},
      {"new debug file", [](EditorForm& f) { f.CreateDebugButton_Click(); return true; }},
      {"close", [](EditorForm& f) { return f.Form_QueryUnload(); }}};
  for (const auto& [action, act] : actions) {
    for (const ChangedScriptRow& row : rows) {
      SCOPED_TRACE(std::string(action) + ", " + row.what);
      host.files["C:\\s\\a.vls"] = "Quit\r\n";
      host.files["C:\\s\\b.vls"] = "Quit\r\n";
      host.files.erase("C:\\s\\kept.vls");
      engine.editor = {};
      dialogs.requests.clear();
      Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
      engine.TraceWindow.Set(1, "Wait:  0.01");
      form.ScriptChanged = true;
      const std::string chosen = std::string(action) == "open" ? "C:\\s\\b.vls" : "C:\\s\\b.vld";
      dialogs.replies = {chosen};
      if (row.saveAs || row.answers[0] == SaveAnswer::Yes) dialogs.replies.push_back(row.saveAs);
      dialogs.answers = {row.answers.begin(), row.answers.end()};
      dialogs.asked.clear();
      if (std::string(action) == "close") dialogs.replies.pop_front();  // closing shows no file dialog
      const bool closed = act(form);
      EXPECT_EQ(dialogs.asked, std::vector<std::string>{"C:\\s\\a.vls"});
      const bool edited = engine.TraceWindow.Count() > 1 && engine.TraceWindow.Item(1) == "Wait:  0.01";
      if (std::string(action) == "close") {
        EXPECT_EQ(closed, row.replaced);
        EXPECT_EQ(form.ScriptChanged, !row.replaced || row.answers[0] == SaveAnswer::No);
      } else {
        // A new debug file reads the script again: the one just saved.
        EXPECT_EQ(edited, !row.replaced || (row.saveAs && std::string(action) != "open"));
        EXPECT_EQ(form.ScriptChanged, !row.replaced);
      }
      EXPECT_EQ(host.files.count("C:\\s\\kept.vls"), row.saveAs ? 1u : 0u);
      if (row.saveAs) {
        EXPECT_EQ(host.Lines("C:\\s\\kept.vls"), (std::vector<std::string>{Trace_Header_Line(), "Wait:  0.01"}));
      }
      EXPECT_EQ(host.Lines("C:\\s\\a.vls"), std::vector<std::string>{"Quit"});  // never written over
    }
  }
}

TEST_F(EditorFilesTest, OpeningKeepsTheDebugFileAndLooksInTheScriptsFolder) {
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  host.files["C:\\s\\b.vls"] = "Quit\r\n";
  dialogs.replies = {"C:\\s\\b.vls"};
  form.OpenScriptButton_Click();
  EXPECT_EQ(dialogs.requests.size(), 3u);  // a debug file is named: no prompt
  EXPECT_TRUE(dialogs.asked.empty());      // nothing changed: no question
  EXPECT_EQ(engine.TraceWindow.Item(1), "Quit");
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Script File Open:  C:\\s\\b.vls");
  EXPECT_EQ(dialogs.requests[2].InitialFolder, "C:\\s");  // the script's folder
}

TEST_F(EditorFilesTest, ADebugFileThatCannotBeMadeLeavesTheScriptToSaveWhole) {
  host.files["C:\\s\\a.vls"] = "Wait:  0.01\r\nQuit\r\n";
  host.unopenable.insert("C:\\ro\\a.vld");
  Start_With("C:\\s\\a.vls", "C:\\ro\\a.vld");
  EXPECT_EQ(controls[C::DebugFileLabel].Caption, "Debug: (none; C:\\ro\\a.vld could not be opened)");
  form.ScriptChanged = true;
  dialogs.replies = {"C:\\s\\a.vls"};
  form.SaveScriptButton_Click();
  EXPECT_EQ(host.Lines("C:\\s\\a.vls"), (std::vector<std::string>{Trace_Header_Line(), "Wait:  0.01", "Quit"}));
}

TEST_F(EditorFilesTest, ANewDebugFileIsAnnouncedInTheOldOneAndStartsFresh) {
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  dialogs.replies = {"C:\\s\\b.vld"};
  form.CreateDebugButton_Click();
  EXPECT_EQ(Log("C:\\s\\a.vld").back(), "Info: Closing Debug File.  NEW Debug File C:\\s\\b.vld opened.");
  const auto fresh = Log("C:\\s\\b.vld");
  ASSERT_FALSE(fresh.empty());
  EXPECT_EQ(fresh[0].rfind("Interactive Session Started.", 0), 0u);
  EXPECT_EQ(engine.DebugWindow.Item(static_cast<long>(engine.DebugWindow.Count()) - 4), std::string(63, '^'));
}

struct ResizeRow {
  WindowState state;
  long width, height, screenWidth, screenHeight;
  long wantWidth, wantHeight, wantScriptLines, wantDebugLines;  // the heights of the two lists
};

// Both lists follow the width; extra height is shared between them, and the
// right-hand side stays stacked: script, its buttons, the debug output to the
// form's designed bottom margin.
TEST_F(EditorFilesTest, ResizeKeepsTheMinimumAndSharesTheHeightBetweenTheLists) {
  const ResizeRow rows[] = {
      {WindowState::Normal, 9600, 9000, 19200, 14400, 9600, 9000, 4600, 1725},
      {WindowState::Normal, 12000, 10000, 19200, 14400, 12000, 10000, 5100, 2225},
      {WindowState::Normal, 9600, 9001, 19200, 14400, 9600, 9001, 4600, 1726},
      {WindowState::Normal, 9600, 14400, 19200, 14400, 9600, 14400, 7300, 4425},
      {WindowState::Normal, 5000, 6000, 19200, 14400, 8295, 8595, 4600, 1320},
      {WindowState::Maximized, 8000, 8000, 8000, 8000, 8000, 8000, 4600, 725},  // a screen too small: left alone
      {WindowState::Maximized, 8000, 8000, 8295, 8595, 8295, 8595, 4600, 1320}};
  const auto bottom = [&](C id) { return controls[id].Rect.Top + controls[id].Rect.Height; };
  for (const ResizeRow& row : rows) {
    SCOPED_TRACE(::testing::Message() << row.width << " x " << row.height);
    window.state = row.state;
    window.placement = {0, 0, row.width, row.height};
    window.screenWidth = row.screenWidth;
    window.screenHeight = row.screenHeight;
    form.Form_Resize();
    EXPECT_EQ(window.placement.Width, row.wantWidth);
    EXPECT_EQ(window.placement.Height, row.wantHeight);
    EXPECT_EQ(controls[C::ScriptFileLabel].Rect.Width, row.wantWidth - 4065);
    EXPECT_EQ(controls[C::ScriptCover].Rect.Width, row.wantWidth - 4065);
    EXPECT_EQ(controls[C::TraceWindow].Rect.Width, row.wantWidth - 4210 - 80);
    EXPECT_EQ(controls[C::DebugWindow].Rect.Width, row.wantWidth - 175 - 80);
    EXPECT_EQ(controls[C::TraceWindow].Rect.Height, row.wantScriptLines);
    EXPECT_EQ(controls[C::DebugWindow].Rect.Height, row.wantDebugLines);
    EXPECT_EQ(controls[C::TraceFrame].Rect.Height - controls[C::TraceWindow].Rect.Height, 280);
    EXPECT_EQ(controls[C::DebugFrame].Rect.Height - controls[C::DebugWindow].Rect.Height, 280);
    EXPECT_EQ(controls[C::TraceControlsFrame].Rect.Top, bottom(C::TraceFrame) + 20);
    EXPECT_EQ(controls[C::DebugFrame].Rect.Top, bottom(C::TraceControlsFrame) + 30);
    EXPECT_EQ(bottom(C::DebugFrame), row.wantHeight - 465);
  }
  window.state = WindowState::Minimized;  // nothing happens while minimised
  window.placement = {0, 0, 100, 100};
  form.Form_Resize();
  EXPECT_EQ(window.placement.Width, 100);
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
  for (const char* name : {"C:\\s\\narrow.vls", "C:\\s\\wide.vls", "C:\\s\\narrow.vls"}) {
    ASSERT_FALSE(surface.traceExtents.empty());
    EXPECT_EQ(surface.traceExtents.back(), widest_shown()) << "before " << name;
    dialogs.replies = {name};
    form.OpenScriptButton_Click();
  }
  EXPECT_EQ(surface.traceExtents.back(), widest_shown());
}

struct ClosingRow {
  WindowState state;
  TwipsRect restored;
  const char *wantTop, *wantLeft, *wantState;
};

TEST_F(EditorFilesTest, ClosingStoresTheRestoredPlacementWithTheOnScreenRules) {
  const ClosingRow rows[] = {
      {WindowState::Normal, {450, 300, 9000, 8800}, "300", "450", "0"},
      {WindowState::Normal, {19200, -60, 9000, 8800}, "0", "0", "0"},  // above, and right of the screen
      {WindowState::Maximized, {240, 120, 9000, 8800}, "120", "240", "2"},
      {WindowState::Minimized, {240, 120, 9000, 8800}, "120", "240", "0"}};
  for (const ClosingRow& row : rows) {
    window.state = row.state;
    window.placement = {-480000, -480000, 500, 300};  // where a minimised or maximised form is
    window.restored = row.restored;
    if (row.state == WindowState::Normal) window.placement = row.restored, window.restored.reset();
    form.Form_QueryUnload();
    EXPECT_EQ(Stored("Top"), row.wantTop) << row.restored.Top;
    EXPECT_EQ(Stored("Left"), row.wantLeft) << row.restored.Left;
    EXPECT_EQ(Stored("WindowState"), row.wantState);
    EXPECT_EQ(Stored("Width"), "9000");
  }
}

TEST_F(EditorFilesTest, ClosingSavesWhenToldThenLogsTheShutDownClosesAndStoresTheNames) {
  Start_With("C:\\s\\a.vls", "C:\\s\\a.vld");
  form.ScriptChanged = true;
  dialogs.answers = {SaveAnswer::Yes};
  dialogs.replies = {"C:\\s\\z.vls"};
  const int beeps = host.beeps;
  EXPECT_TRUE(form.Form_QueryUnload());
  EXPECT_EQ(host.beeps - beeps, 2);  // the save, and closing
  const auto log = Log("C:\\s\\a.vld");
  EXPECT_EQ(log[log.size() - 2], "Info: Script File \"C:\\s\\z.vls\" saved.");
  EXPECT_EQ(log.back(), "Info: Editor shut down!  --> " + host.dateTimeText);
  EXPECT_FALSE(engine.state.DebugFileOpen);
  EXPECT_EQ(Stored("Script File"), "\"C:\\s\\z.vls\"");
  EXPECT_EQ(Stored("Debug File"), "\"C:\\s\\a.vld\"");
}

// A script the shell names (a double click on a .vls file) wins over the remembered one.
TEST_F(EditorFilesTest, TheShellsScriptWinsOverTheRememberedOne) {
  host.files["C:\\s\\old.vls"] = "Quit\r\n";
  host.files["C:\\s\\shell.vls"] = "Wait:  0.01\r\n";
  host.files["C:\\s\\a.vld"] = "";
  settings.SaveSetting("Editor", "Script File", "\"C:\\s\\old.vls\"");
  settings.SaveSetting("Editor", "Debug File", "\"C:\\s\\a.vld\"");
  engine.editor.ScriptFileName = "\"C:\\s\\shell.vls\"";
  form.Form_Load_Interactive();
  EXPECT_EQ(engine.TraceWindow.Item(1), "Wait:  0.01");
  EXPECT_EQ(controls[C::ScriptFileLabel].Caption, "Script: C:\\s\\shell.vls");
}

TEST_F(EditorFilesTest, ASecondStartRestoresPlacementAndLoadsTheRememberedFilesWithoutAsking) {
  host.files["C:\\s\\a.vls"] = "Quit\r\n";
  host.files["C:\\s\\a.vld"] = "";
  const std::pair<const char*, const char*> stored[] = {
      {"Top", "120"}, {"Left", "240"}, {"Height", "8700"}, {"Width", "damaged"}, {"WindowState", "2"}};
  for (auto [key, value] : stored) settings.SaveSetting("Editor", key, value);
  settings.SaveSetting("Editor", "Script File", "\"C:\\s\\a.vls\"");
  settings.SaveSetting("Editor", "Debug File", "\"C:\\s\\a.vld\"");
  form.Form_Load_Interactive();
  EXPECT_EQ(window.state, WindowState::Maximized);
  EXPECT_EQ(window.placement, (TwipsRect{240, 120, 9600, 8700}));  // a damaged width keeps the designed one
  EXPECT_TRUE(dialogs.requests.empty());
  EXPECT_EQ(engine.TraceWindow.Item(1), "Quit");

  host.files.erase("C:\\s\\a.vld");  // a remembered file that is gone is forgotten
  EditorForm second{engine, controls, window, dialogs, settings};
  engine.editor = {};
  second.Form_Load_Interactive();
  EXPECT_EQ(engine.editor.DebugFileName, "");
  EXPECT_EQ(dialogs.requests.size(), 1u);  // so the debug file is asked for
  EXPECT_EQ(dialogs.requests[0].Title, "Open New Debug File");
}

}  // namespace
}  // namespace velmora::test
