#include <sstream>

#include "about.h"
#include "command_codes.h"
#include "editor_fixture.h"

namespace velmora::testing {
namespace {

using C = ControlId;

const std::vector<std::pair<std::string, C>> kOptions = {
    {"on", DebugState(0)}, {"off", DebugState(1)}, {"L", MouseButton(0)},  {"M", MouseButton(1)},
    {"R", MouseButton(2)}, {"N", MouseButton(3)},  {"dbl", C::DoubleClick}};

class EditorPanelTest : public EditorTest {
 protected:
  void SetUp() override {
    panel.Load_Commands(1);
    Script({""}, 0);
  }
  // Through the entries that swap the catalogues, as a user gets there.
  void Choose(int catalogue, long position) {
    if (panel.Catalogue() != catalogue) form.CommandList_Click(catalogue == 2 ? 7 : 0);
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

// Every entry: the fields its panel opens; the line the filled panel makes;
// and reading the line back into the panel (from the other catalogue) and
// overwriting gives the same line again.
TEST_F(EditorPanelTest, EachEntryOpensItsFieldsComposesItsLineAndReadsItBack) {
  struct Row {
    int catalogue;
    long position;
    const char *live, *command, *minutes, *seconds, *options, *line;
  };
  const Row rows[] = {
      {1, 0, "cmd ", " C:\\SETUP.EXE /Q ", "", "", "", "Run:  \"C:\\SETUP.EXE /Q\""},
      {1, 1, "cmd min sec ", "1, \"Setup\", \"#32770\", 0, 0.5, 0.5", "1", " 05", "",
       "FindWindow:  1, \"Setup\", \"#32770\", 0, 0.5, 0.5, 1.05"},
      {1, 2, "cmd ", "{TAB}~", "", "", "", "SendKeys:  \"{TAB}~\""},
      {1, 3, "L M R dbl ins", "", "", "", "R dbl", "SendButtons: dr"},
      {1, 3, "L M R dbl ins", "", "", "", "", "SendButtons: sl"},
      {1, 4, "min sec ins", "", "", "5", "", "Wait:  .5"},
      {1, 4, "min sec ins", "", "1", "30", "", "Wait:  1.30"},
      {1, 5, "ins", "", "", "", "", ""},
      {1, 6, "cmd ", " note ", "", "", "", "# note"},
      {1, 6, "cmd ", "#x", "", "", "", "#x"},
      {1, 8, "min L M R N dbl ins", "", "400", "300", "M", "UseMouse: sm, 400, 300"},
      {1, 8, "min L M R N dbl ins", "", "10", "20", "N dbl", "UseMouse: nc, 10, 20"},
      {1, 9, "on off ins", "", "", "", "off", "Debug: off"},
      {1, 9, "on off ins", "", "", "", "", "Debug: on"},
      {2, 1, "min sec ", "", "WINDIR", "C:\\WINDOWS", "", "Test:  \"`WINDIR`\" = \"C:\\WINDOWS\""},
      {2, 2, "on off ins", "", "", "", "", "If:  succeeded"},
      {2, 5, "on off ins", "", "", "", "off", "While:  failed"},
      {2, 8, "on off ins", "", "", "", "", "Until:  succeeded"},
      {2, 3, "ins", "", "", "", "", "Else"},
      {2, 4, "ins", "", "", "", "", "EndIf"},
      {2, 6, "ins", "", "", "", "", "EndWhile"},
      {2, 7, "ins", "", "", "", "", "Repeat"},
      {2, 9, "ins", "", "", "", "", "Quit"}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.line);
    Script({""}, 0);
    Choose(row.catalogue, row.position);
    EXPECT_EQ(Live(), row.live);
    controls.SetCaption(C::CommandLine, row.command);
    controls.SetCaption(C::Minutes, row.minutes);
    controls.SetCaption(C::Seconds, row.seconds);
    for (const auto& [name, id] : kOptions)
      if ((" " + std::string(row.options) + " ").find(" " + name + " ") != std::string::npos)
        controls.SetChecked(id, true);
    Click(C::InsertCommandButton);
    EXPECT_EQ(engine.TraceWindow.Items(), (Lines{row.line, ""}));
    EXPECT_EQ(engine.TraceWindow.Selected(), 1);

    panel.Load_Commands(3 - row.catalogue);
    engine.TraceWindow.Select(0);
    form.TraceWindow_DblClick();
    EXPECT_TRUE(panel.Overwriting() && controls[C::InsertCommandButton].Enabled);
    Click(C::InsertCommandButton);
    EXPECT_EQ(engine.TraceWindow.Items(), (Lines{row.line, ""}));
  }
}

// Choosing the entry again keeps what was typed; in overwrite mode the
// defaults stay out of the fields read back.
TEST_F(EditorPanelTest, ChoosingAgainKeepsTypedTextAndOverwriteModeKeepsDefaultsOut) {
  Choose(1, 4);
  EXPECT_EQ(controls[C::Minutes].Caption, "1");
  Choose(1, 2);
  controls.TextTyped(C::CommandLine, "abc", 3);
  Choose(1, 2);
  EXPECT_EQ(controls[C::CommandLine].Caption, "abc");
  panel.Set_Overwrite_Mode(true);
  Choose(1, 4);
  EXPECT_EQ(controls[C::Minutes].Caption, "");
  form.CommandList_Click(16);  // beyond the map
  EXPECT_TRUE(Shown({"Error Location:  Editor.CommandList.Click.TrappableErrors.1"}));
  EXPECT_EQ(panel.Current_Code(), kWaitCommand);
}

TEST_F(EditorPanelTest, LinesGoBeforeTheHighlightOverwriteInPlaceAndRemovalKeepsTheHeading) {
  const std::string heading = Trace_Header_Line();
  Script({heading, "Quit", ">>> Repeat", "EndIf"}, 2);
  Choose(2, 7);
  Click(C::InsertCommandButton);
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{heading, "Quit", "Repeat", ">>> Repeat", "EndIf"}));
  EXPECT_EQ(engine.TraceWindow.Selected(), 3);
  EXPECT_TRUE(form.Activity().Script_Changed() && controls[C::SaveScriptButton].Enabled);
  EXPECT_EQ(panel.Current_Code(), kUntilCommand);  // moved on to the next entry
  EXPECT_EQ(panel.CommandList().Selected(), 8);

  form.TraceWindow_DblClick();  // the marked Repeat
  form.CommandList_Click(6);
  Click(C::InsertCommandButton);
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{heading, "Quit", "Repeat", ">>> EndWhile", "EndIf"}));
  EXPECT_FALSE(panel.Overwriting());
  EXPECT_EQ(controls.Focused(), C::CommandList);  // no next entry to move on to: the catalogue

  for (long expected : {3, 2, 1, 1, 1}) {
    Click(C::RemoveCommandButton);
    EXPECT_EQ(engine.TraceWindow.Selected(), expected);
  }
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{heading, ""}));
  engine.TraceWindow.Select(0);
  Click(C::RemoveCommandButton);
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{heading, ""}));
}

TEST_F(EditorPanelTest, DoubleClickOnABadLineReportsItAndLeavesThePanel) {
  const std::pair<const char*, const char*> rows[] = {
      {"jump: 5", "Unknown Command:  jump: 5."},
      {"run: x", "Fatal Error:  Invalid Parameters:  Leading and/or Trailing quote missing.."}};
  for (const auto& [line, logged] : rows) {
    Script({line}, 0);
    form.TraceWindow_DblClick();
    EXPECT_TRUE(Shown({logged})) << line;
    EXPECT_FALSE(panel.Overwriting());
    EXPECT_FALSE(engine.state.StopRunning);
  }
}

// A time takes digits without a leading zero, five at most: a character
// typed that does not fit goes, a paste keeps its digits. The insert button
// follows whether the line is complete.
TEST_F(EditorPanelTest, TimeFieldsTakeNumbersOnlyAndTheInsertButtonWaitsForAWholeLine) {
  struct Row {
    int catalogue;
    long position;
    C field;
    const char *other, *typed;  // the other time field, and the text typed with the caret after it
    long caret;
    const char* after;
    long caretAfter;
    bool insert;
  };
  const Row rows[] = {{1, 4, C::Minutes, "", "0", 1, "", 0, false},
                      {1, 4, C::Seconds, "", "0", 1, "", 0, false},
                      {1, 4, C::Minutes, "", "1a", 2, "1", 1, true},
                      {1, 4, C::Minutes, "", "a1", 1, "1", 0, true},
                      {1, 4, C::Seconds, "0", "123456", 3, "12456", 2, true},
                      {1, 4, C::Seconds, "", "12345", 5, "12345", 5, true},
                      {1, 4, C::Seconds, "", "x7", 2, "7", 1, true},
                      {1, 4, C::Minutes, "1", "1 234 567", 9, "12345", 5, true},
                      {2, 1, C::Minutes, "", "0x", 2, "0x", 2, true},
                      {2, 1, C::Minutes, "", " ", 1, " ", 1, false},
                      {1, 0, C::CommandLine, "", "  ", 1, "  ", 1, false},
                      {1, 1, C::CommandLine, "30", "1, \"a\"", 1, "1, \"a\"", 1, true},
                      {1, 1, C::CommandLine, "", "1, \"a\"", 1, "1, \"a\"", 1, false}};  // no time-out
  for (const Row& row : rows) {
    SCOPED_TRACE(row.typed);
    Choose(row.catalogue, row.position);
    controls.TextTyped(row.field == C::Seconds ? C::Minutes : C::Seconds, row.other, 0);
    controls.TextTyped(row.field, row.typed, row.caret);
    form.Text_Changed(row.field);
    EXPECT_EQ(controls[row.field].Caption, row.after);
    EXPECT_EQ(controls[row.field].Caret, row.caretAfter);
    EXPECT_EQ(controls[C::InsertCommandButton].Enabled, row.insert);
  }
}

}  // namespace
}  // namespace velmora::testing
