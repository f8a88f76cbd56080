#include "about.h"
#include "command_codes.h"
#include "editor_fixture.h"

namespace velmora::test {
namespace {

using C = ControlId;

// The panel's fields and options by short names.
const std::vector<std::pair<std::string, C>> kOptions = {
    {"cmd", C::CommandLine}, {"min", C::Minutes},    {"sec", C::Seconds},    {"on", DebugState(0)},
    {"off", DebugState(1)},  {"L", MouseButton(0)},  {"M", MouseButton(1)},  {"R", MouseButton(2)},
    {"N", MouseButton(3)},   {"dbl", C::DoubleClick}};

class EditorPanelTest : public EditorTest {
 protected:
  void SetUp() override {
    panel.Load_Commands(1);
    Script({""}, 0);
  }
  // Entry 10 + n: the flow control catalogue's n-th, reached by swapping catalogues.
  void Choose(long entry) {
    if (panel.Catalogue() != 1 + entry / 10) form.CommandList_Click(entry > 9 ? 7 : 0);
    form.CommandList_Click(entry % 10);
  }
  // The usable controls of the panel, in a fixed order.
  std::string Live() const {
    std::string live;
    for (const auto& [name, id] : kOptions)
      if (controls[id].Visible && controls[id].Enabled) live += name + ' ';
    return live + (controls[C::InsertCommandButton].Enabled ? "ins" : "");
  }
};

// Each entry's fields and line; the line read back (from the other catalogue) and overwritten stays.
TEST_F(EditorPanelTest, EachEntryOpensItsFieldsComposesItsLineAndReadsItBack) {
  const struct {
    long entry;
    const char *live, *command, *minutes, *seconds, *options, *line;
  } rows[] = {
      {0, "cmd ", " C:\\SETUP.EXE /Q ", "", "", "", "Run:  \"C:\\SETUP.EXE /Q\""},
      {1, "cmd min sec ", "1, \"Setup\", \"#32770\", 0, 0.5, 0.5", "1", " 05", "",
       "FindWindow:  1, \"Setup\", \"#32770\", 0, 0.5, 0.5, 1.05"},
      {2, "cmd ", "{TAB}~", "", "", "", "SendKeys:  \"{TAB}~\""},
      {3, "L M R dbl ins", "", "", "", "R dbl", "SendButtons: dr"},
      {3, "L M R dbl ins", "", "", "", "", "SendButtons: sl"},
      {4, "min sec ins", "", "", "5", "", "Wait:  .5"},
      {5, "ins", "", "", "", "", ""},
      {6, "cmd ", " note ", "", "", "", "# note"},
      {8, "min L M R N dbl ins", "", "400", "300", "M", "UseMouse: sm, 400, 300"},
      {8, "min L M R N dbl ins", "", "10", "20", "N dbl", "UseMouse: nc, 10, 20"},
      {9, "on off ins", "", "", "", "off", "Debug: off"},
      {11, "min sec ", "", "WINDIR", "C:\\WINDOWS", "", "Test:  \"`WINDIR`\" = \"C:\\WINDOWS\""},
      {12, "on off ins", "", "", "", "", "If:  succeeded"},
      {15, "on off ins", "", "", "", "off", "While:  failed"},
      {19, "ins", "", "", "", "", "Quit"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.line);
    Script({""}, 0);
    Choose(row.entry);
    EXPECT_EQ(Live(), row.live);
    controls.SetCaption(C::CommandLine, row.command);
    controls.SetCaption(C::Minutes, row.minutes);
    controls.SetCaption(C::Seconds, row.seconds);
    for (const auto& [name, id] : kOptions)
      if ((" " + std::string(row.options) + " ").find(" " + name + " ") != std::string::npos)
        controls.SetChecked(id, true);
    Click(C::InsertCommandButton);
    EXPECT_EQ(engine.TraceWindow.Items(), (Lines{row.line, ""}));

    panel.Load_Commands(row.entry > 9 ? 1 : 2);
    engine.TraceWindow.Select(0);
    form.TraceWindow_DblClick();
    EXPECT_TRUE(panel.Overwriting() && controls[C::InsertCommandButton].Enabled);
    Click(C::InsertCommandButton);
    EXPECT_EQ(engine.TraceWindow.Items(), (Lines{row.line, ""}));
  }
}

TEST_F(EditorPanelTest, LinesGoBeforeTheHighlightOverwriteInPlaceAndRemovalKeepsTheHeading) {
  const std::string heading = Trace_Header_Line();
  Script({heading, "Quit", ">>> Repeat", "EndIf"}, 2);
  Choose(17);
  Click(C::InsertCommandButton);
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{heading, "Quit", "Repeat", ">>> Repeat", "EndIf"}));
  EXPECT_EQ(engine.TraceWindow.Selected(), 3);
  EXPECT_TRUE(form.Activity().Script_Changed() && controls[C::SaveScriptButton].Enabled);
  EXPECT_EQ(panel.CommandList().Selected(), 8);  // moved on to the next entry

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
  engine.TraceWindow.Select(0);
  Click(C::RemoveCommandButton);
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{heading, ""}));
}

// The panel keeps typed text, read-back values against the defaults, and all on a bad line.
TEST_F(EditorPanelTest, ThePanelKeepsWhatItHoldsAgainstDefaultsAndBadLines) {
  Choose(2);
  controls.TextTyped(C::CommandLine, "abc", 3);
  Choose(2);
  EXPECT_EQ(controls[C::CommandLine].Caption, "abc");
  panel.Set_Overwrite_Mode(true);
  Choose(4);
  EXPECT_EQ(controls[C::Minutes].Caption, "");  // not the default 1
  form.CommandList_Click(16);  // beyond the map
  EXPECT_TRUE(Shown({"Error Location:  Editor.CommandList.Click.TrappableErrors.1"}));
  panel.Set_Overwrite_Mode(false);
  const std::pair<const char*, const char*> rows[] = {
      {"jump: 5", "Unknown Command:  jump: 5."},
      {"run: x", "Fatal Error:  Invalid Parameters:  Leading and/or Trailing quote missing.."}};
  for (const auto& [line, logged] : rows) {
    Script({line}, 0);
    form.TraceWindow_DblClick();
    EXPECT_TRUE(Shown({logged})) << line;
    EXPECT_FALSE(panel.Overwriting() || engine.state.StopRunning);
    EXPECT_EQ(panel.Current_Code(), kWaitCommand);
  }
}

// A time: up to five digits, no leading zero; a paste keeps its digits. Insert waits
// for a whole line. '|' marks the caret.
TEST_F(EditorPanelTest, TimeFieldsTakeNumbersOnlyAndTheInsertButtonWaitsForAWholeLine) {
  const std::tuple<long, C, const char*, std::string, const char*, bool> rows[] = {  // entry, field, other field
      {4, C::Minutes, "", "0|", "|", false},
      {4, C::Minutes, "", "1a|", "1|", true},
      {4, C::Seconds, "0", "123|456", "12|456", true},
      {4, C::Minutes, "1", "1 234 567|", "12345|", true},
      {11, C::Minutes, "", "0x|", "0x|", true},  // test's variable name: free text
      {11, C::Minutes, "", " |", " |", false},
      {0, C::CommandLine, "", "  |", "  |", false},
      {1, C::CommandLine, "30", "1, \"a\"|", "1, \"a\"|", true},
      {1, C::CommandLine, "", "1, \"a\"|", "1, \"a\"|", false}};  // no time-out
  for (const auto& [entry, field, other, typed, after, insert] : rows) {
    SCOPED_TRACE(typed);
    Choose(entry);
    controls.TextTyped(field == C::Seconds ? C::Minutes : C::Seconds, other, 0);
    const auto caret = typed.find('|');
    controls.TextTyped(field, typed.substr(0, caret) + typed.substr(caret + 1), static_cast<long>(caret));
    form.Text_Changed(field);
    const ControlState& state = controls[field];
    EXPECT_EQ(state.Caption.substr(0, state.Caret) + "|" + state.Caption.substr(state.Caret), after);
    EXPECT_EQ(controls[C::InsertCommandButton].Enabled, insert);
  }
}

}  // namespace
}  // namespace velmora::test
