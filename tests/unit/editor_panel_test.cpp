#include <sstream>

#include "command_codes.h"
#include "about.h"
#include "editor_fixture.h"

namespace velmora::test {
namespace {

using C = ControlId;

const std::vector<std::pair<std::string, C>> kOptions = {
    {"on", DebugState(0)}, {"off", DebugState(1)}, {"L", MouseButton(0)},  {"M", MouseButton(1)},
    {"R", MouseButton(2)}, {"N", MouseButton(3)},  {"dbl", C::DoubleClick}};

class EditorPanelTest : public EditorTest {
 protected:
  void SetUp() override {
    form.Load_Commands(1);
    Script({""}, 0);
  }
  // Through the entries that swap the catalogues, as a user gets there.
  void Choose(int catalogue, long position) {
    if (form.Catalogue != catalogue) form.CommandList_Click(catalogue == 2 ? 7 : 0);
    form.CommandList_Click(position);
  }
  // The usable controls of the panel, in a fixed order.
  std::string Live() const {
    std::ostringstream live;
    for (auto [name, id] : {std::pair{"cmd", C::CommandLine}, {"min", C::Minutes}, {"sec", C::Seconds}})
      if (controls[id].Enabled) live << name << ' ';
    for (const auto& [name, id] : kOptions)
      if (controls[id].Visible && controls[id].Enabled) live << name << ' ';
    if (controls[C::InsertCommandButton].Enabled) live << "ins";
    return live.str();
  }
};

constexpr char kNA[] = "Not Applicable";
const char* const kFrames[] = {"Automation Commands", "Script Flow Control Commands"};
const FontSpec kConditionFonts[] = {
    {"MS Sans Serif", 10, true}, {"MS Sans Serif", 8, false}, {"MS Sans Serif", 8, true}};
constexpr char kNone[] = "No Parameters Accepted!";
constexpr char kLogical[] = "Logical Conditions: 'succeeded' or 'failed'";
constexpr char kConditions[] =
    "Succeeded if PRECEEDING RunProgram, FoundWindow, SendKeys or TestEnvironmentVariable succeeded.";

TEST_F(EditorPanelTest, EachEntryPreparesThePanelForItsCommand) {
  struct Row {
    int catalogue;
    long position;
    const char* entry;
    int code;
    const char *label, *labelTip, *timeLabel, *live;
    C extra;
    const char* extraText;
  };
  const Row rows[] = {
      {1, 0, "Run a Program", 1, "Program Command Line", "Holds the name of the Program to be run", kNA, "cmd ",
       C::CommandLine, ""},
      {1, 1, "Find a Window", 2, "Information About Window To Find",
       "<p, \"WindowTitle\", \"<WindowClass|*>\", MM.SS|c, \"ParentTitle\", \"<ParentClass|*>\", \"WindowTitle\", "
       "\"<WindowClass|*>\", <ChildID|*>, MM.SS>",
       "Max. Wait - Minutes   : Seconds", "cmd min sec ", C::Seconds, "30"},
      {1, 2, "Send Keystrokes to a Window", 3, "Enter Keystrokes",
       "Use curly brackets around {Enter}, {down 4}, etc. Need extra curly brackets for a curly bracket", kNA, "cmd ",
       C::CommandLine, ""},
      {1, 3, "Send Mouse Click(s) to a Window", 17, "Mouse Buttons", "Select a mouse button.", kNA, "L M R dbl ins",
       C::MouseLabel, "L      M      R"},
      {1, 4, "Wait...", 8, kNA, kNone, "Wait Time - Minutes   : Seconds", "min sec ins", C::Minutes, "1"},
      {1, 5, "Insert a Blank Line", 0, kNA, kNone, kNA, "ins", C::CommandLine, ""},
      {1, 6, "Add a Comment", 9, "Comment Text", "Comments are ignored by Velmora", kNA, "cmd ", C::CommandLine, ""},
      {1, 8, "Use Mouse", 7, "Mouse Buttons", "Select a mouse button.  'N' means None",
       "Mouse Location:    X                   Y", "min L M R N dbl ins", C::MouseLabel, "L      M      R      N   "},
      {1, 9, "Set Debug Information State", 10, "Debug Options: 'on' or 'off'",
       "Specify that you wish more Debug information", kNA, "on off ins", DebugState(1), "Debug: off"},
      {2, 1, "Test Environment Variable", 16, kNA, kNone, "Environment Variable  = This Text", "min sec ", C::Minutes,
       ""},
      {2, 2, "If <succeeded|failed>", 4, kLogical, kConditions, kNA, "on off ins", DebugState(0), "If:  succeeded"},
      {2, 3, "Else", 12, kNA, kNone, kNA, "ins", C::CommandLine, ""},
      {2, 4, "EndIf", 13, kNA, kNone, kNA, "ins", C::CommandLine, ""},
      {2, 5, "While <succeeded|failed> Loop", 5, kLogical, kConditions, kNA, "on off ins", DebugState(1), ": failed"},
      {2, 6, "EndWhile", 14, kNA, kNone, kNA, "ins", C::CommandLine, ""},
      {2, 7, "Repeat", 15, kNA, kNone, kNA, "ins", C::CommandLine, ""},
      {2, 8, "Until <succeeded|failed>", 6, kLogical, kConditions, kNA, "on off ins", DebugState(0),
       "Until: succeeded"},
      {2, 9, "Quit Script!", 11, kNA, kNone, kNA, "ins", C::CommandLine, ""}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.entry);
    Choose(row.catalogue, row.position);
    EXPECT_EQ(form.CommandList.Item(row.position), row.entry);
    EXPECT_EQ(form.CommandList.Selected(), row.position);
    EXPECT_EQ(form.CurrentCode, row.code);
    EXPECT_EQ(controls[C::CommandLineLabel].Caption, row.label);
    EXPECT_EQ(controls[C::CommandLineLabel].ToolTip, row.labelTip);
    EXPECT_EQ(controls[C::CommandLineLabel].Inactive, row.label == std::string(kNA));
    EXPECT_EQ(controls[C::TimeOutLabel].Caption, row.timeLabel);
    EXPECT_EQ(Live(), row.live);
    EXPECT_EQ(controls[row.extra].Caption, row.extraText);
    EXPECT_EQ(controls[C::AvailableCommandsFrame].Caption, kFrames[row.catalogue - 1]);
    if (row.code >= kIfCommand && row.code <= kUntilCommand) {  // three styles by design
      EXPECT_EQ(controls[DebugState(1)].Font, kConditionFonts[row.code - kIfCommand]);
    }
  }
}

TEST_F(EditorPanelTest, ChoosingAgainKeepsTypedTextAndOverwriteModeKeepsDefaultsOut) {
  Choose(1, 2);
  controls.TextTyped(C::CommandLine, "abc", 3);
  Choose(1, 2);
  EXPECT_EQ(controls[C::CommandLine].Caption, "abc");
  form.OverwriteMode = true;
  Choose(1, 4);
  EXPECT_EQ(controls[C::Minutes].Caption, "");
  form.CommandList_Click(16);  // beyond the map
  EXPECT_TRUE(Shown({"Error Location:  Editor.CommandList.Click.TrappableErrors.1"}));
  EXPECT_EQ(form.CurrentCode, kWaitCommand);
}

// Every kind of line: the panel makes it, and reading it back into the panel
// (from the other catalogue) and overwriting gives the same line again.
TEST_F(EditorPanelTest, ThePanelComposesEachLineAndReadsItBack) {
  struct Row {
    int catalogue;
    long position;
    const char *command, *minutes, *seconds, *options, *line;
  };
  const Row rows[] = {{1, 0, " C:\\SETUP.EXE /Q ", "", "", "", "Run:  \"C:\\SETUP.EXE /Q\""},
                      {1, 1, "1, \"Setup\", \"#32770\", 0, 0.5, 0.5", "1", " 05", "",
                       "FindWindow:  1, \"Setup\", \"#32770\", 0, 0.5, 0.5, 1.05"},
                      {1, 2, "{TAB}~", "", "", "", "SendKeys:  \"{TAB}~\""},
                      {1, 3, "", "", "", "R dbl", "SendButtons: dr"},
                      {1, 3, "", "", "", "", "SendButtons: sl"},
                      {1, 4, "", "", "5", "", "Wait:  .5"},
                      {1, 4, "", "1", "30", "", "Wait:  1.30"},
                      {1, 5, "", "", "", "", ""},
                      {1, 6, " note ", "", "", "", "# note"},
                      {1, 6, "#x", "", "", "", "#x"},
                      {1, 8, "", "400", "300", "M", "UseMouse: sm, 400, 300"},
                      {1, 8, "", "10", "20", "N dbl", "UseMouse: nc, 10, 20"},
                      {1, 9, "", "", "", "off", "Debug: off"},
                      {1, 9, "", "", "", "", "Debug: on"},
                      {2, 1, "", "WINDIR", "C:\\WINDOWS", "", "Test:  \"`WINDIR`\" = \"C:\\WINDOWS\""},
                      {2, 2, "", "", "", "", "If:  succeeded"},
                      {2, 5, "", "", "", "off", "While:  failed"},
                      {2, 8, "", "", "", "", "Until:  succeeded"},
                      {2, 3, "", "", "", "", "Else"},
                      {2, 4, "", "", "", "", "EndIf"},
                      {2, 6, "", "", "", "", "EndWhile"},
                      {2, 7, "", "", "", "", "Repeat"},
                      {2, 9, "", "", "", "", "Quit"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.line);
    Script({""}, 0);
    Choose(row.catalogue, row.position);
    controls.SetCaption(C::CommandLine, row.command);
    controls.SetCaption(C::Minutes, row.minutes);
    controls.SetCaption(C::Seconds, row.seconds);
    for (const auto& [name, id] : kOptions)
      if ((" " + std::string(row.options) + " ").find(" " + name + " ") != std::string::npos)
        controls.SetChecked(id, true);
    form.InsertCommandButton_Click();
    EXPECT_EQ(engine.TraceWindow.Items(), (std::vector<std::string>{row.line, ""}));
    EXPECT_EQ(engine.TraceWindow.Selected(), 1);

    form.Load_Commands(3 - row.catalogue);
    engine.TraceWindow.Select(0);
    form.TraceWindow_DblClick();
    EXPECT_TRUE(form.OverwriteMode);
    EXPECT_EQ(controls[C::InsertCommandButton].Caption, EditorForm::kOverwriteCaption);
    EXPECT_TRUE(controls[C::InsertCommandButton].Enabled);
    form.InsertCommandButton_Click();
    EXPECT_EQ(engine.TraceWindow.Items(), (std::vector<std::string>{row.line, ""}));
  }
  EXPECT_EQ(form.ComposedTimeOut, 90);  // the last time composed: 1.30
}

TEST_F(EditorPanelTest, LinesGoBeforeTheHighlightOverwriteInPlaceAndRemovalKeepsTheHeading) {
  const std::string heading = Trace_Header_Line();
  Script({heading, "Quit", ">>> Repeat", "EndIf"}, 2);
  Choose(2, 7);
  form.InsertCommandButton_Click();
  EXPECT_EQ(engine.TraceWindow.Items(), (std::vector<std::string>{heading, "Quit", "Repeat", ">>> Repeat", "EndIf"}));
  EXPECT_EQ(engine.TraceWindow.Selected(), 3);
  EXPECT_TRUE(form.ScriptChanged);
  EXPECT_TRUE(controls[C::SaveScriptButton].Enabled);
  EXPECT_EQ(form.CurrentCode, kUntilCommand);  // moved on to the next entry
  EXPECT_EQ(form.CommandList.Selected(), 8);

  form.TraceWindow_DblClick();  // the marked Repeat
  form.CommandList_Click(6);
  form.InsertCommandButton_Click();
  EXPECT_EQ(engine.TraceWindow.Items(),
            (std::vector<std::string>{heading, "Quit", "Repeat", ">>> EndWhile", "EndIf"}));
  EXPECT_EQ(controls[C::InsertCommandButton].Caption, EditorForm::kInsertCaption);
  EXPECT_EQ(controls.Focused(), C::CommandList);  // no next entry to move on to: the catalogue

  const std::vector<long> highlights = {3, 2, 1, 1, 1};
  for (long expected : highlights) {
    form.RemoveCommandButton_Click();
    EXPECT_EQ(engine.TraceWindow.Selected(), expected);
  }
  EXPECT_EQ(engine.TraceWindow.Items(), (std::vector<std::string>{heading, ""}));
  engine.TraceWindow.Select(0);
  form.RemoveCommandButton_Click();
  EXPECT_EQ(engine.TraceWindow.Items(), (std::vector<std::string>{heading, ""}));
}

TEST_F(EditorPanelTest, DoubleClickOnABadLineReportsItAndLeavesThePanel) {
  const std::pair<const char*, const char*> rows[] = {
      {"jump: 5", "Unknown Command:  jump: 5."},
      {"run: x", "Fatal Error:  Invalid Parameters:  Leading and/or Trailing quote missing.."}};
  for (const auto& [line, logged] : rows) {
    Script({line}, 0);
    form.TraceWindow_DblClick();
    EXPECT_TRUE(Shown({logged})) << line;
    EXPECT_FALSE(form.OverwriteMode);
    EXPECT_FALSE(engine.state.StopRunning);
  }
}

TEST_F(EditorPanelTest, TimeFieldsTakeNumbersOnly) {
  struct Row {
    int catalogue;
    long position;
    C field;
    const char* other;  // the other time field
    const char* typed;
    long caret;
    const char* after;
    long caretAfter;
    bool insert;
  };
  const Row rows[] = {{1, 4, C::Minutes, "", "0", 1, "", 0, false},
                      {1, 4, C::Seconds, "", "0", 1, "", 0, false},
                      {1, 4, C::Minutes, "", "10", 2, "10", 2, true},
                      {1, 4, C::Minutes, "", "1a", 2, "1", 1, true},
                      {1, 4, C::Minutes, "", "a1", 1, "1", 0, true},
                      {1, 4, C::Seconds, "0", "123456", 3, "12456", 2, true},
                      {1, 4, C::Seconds, "", "12345", 5, "12345", 5, true},
                      {1, 4, C::Seconds, "", "x7", 2, "7", 1, true},  // pasted: its digits alone
                      {1, 4, C::Minutes, "", "0012", 4, "12", 2, true},
                      {1, 4, C::Minutes, "1", "1 234 567", 9, "12345", 5, true},
                      {2, 1, C::Minutes, "", "0x", 2, "0x", 2, true},
                      {2, 1, C::Minutes, "", " ", 1, " ", 1, false},
                      {1, 0, C::CommandLine, "", "x", 1, "x", 1, true},
                      {1, 0, C::CommandLine, "", "  ", 1, "  ", 1, false},
                      {1, 1, C::CommandLine, "30", "1, \"a\"", 1, "1, \"a\"", 1, true},
                      {1, 1, C::CommandLine, "", "1, \"a\"", 1, "1, \"a\"", 1, false}};  // no time-out
  for (const Row& row : rows) {
    SCOPED_TRACE(row.typed);
    Choose(row.catalogue, row.position);
    const C other = row.field == C::Seconds ? C::Minutes : C::Seconds;
    controls.TextTyped(other, row.other, 0);
    controls.TextTyped(row.field, row.typed, row.caret);
    if (row.field == C::Minutes) form.Minutes_Change();
    if (row.field == C::Seconds) form.Seconds_Change();
    if (row.field == C::CommandLine) form.CommandLine_Change();
    EXPECT_EQ(controls[row.field].Caption, row.after);
    EXPECT_EQ(controls[row.field].Caret, row.caretAfter);
    EXPECT_EQ(controls[C::InsertCommandButton].Enabled, row.insert);
  }
}

}  // namespace
}  // namespace velmora::test
