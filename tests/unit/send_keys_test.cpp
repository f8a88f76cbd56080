#include "automation_fixture.h"
#include "key_notation.h"

namespace velmora::test {
namespace {

class SendKeysTest : public AutomationTest {
 protected:
  WindowHandle dialog = 0, edit = 0;
  void SetUp() override {
    AutomationTest::SetUp();
    dialog = desktop.Add(1, "Setup", "#32770", 0, {100, 100, 501, 400});
    edit = desktop.Add(dialog, "Folder", "Edit", 1001, {110, 120, 310, 141});
    ASSERT_TRUE(Find("findwindow: 2, \"Setup\", \"#32770\", 0, 0, 0, \"Folder\", \"Edit\", 1001, 0.5, 0.5, 0.05"));
    engine.DebugWindow.Clear();
    host.tenthSleeps = 0;
  }
  Lines Identity() const {
    return {"Set Focus using:", "  Window Text   :  Folder", "  Window Class  :  Edit", "  Window ChildID:  4",
            "  Window Handle :  " + std::to_string(edit)};
  }
};

TEST_F(SendKeysTest, FocusesTheTargetAndTypesTheKeys) {
  EXPECT_TRUE(Send("ab~"));
  EXPECT_EQ(DebugLines(), Identity());  // the ChildID line shows the class name's length
  EXPECT_EQ(desktop.keys, Parse_Key_String("ab~").inputs);
  // The pointer goes to the centre (halves to even) twice, each time with the focus.
  const ScreenPoint centre{210, 130};
  ASSERT_EQ(desktop.cursorMoves.size(), 2u);
  EXPECT_EQ(desktop.cursorMoves[1].x, centre.x);
  EXPECT_EQ(desktop.cursorMoves[1].y, centre.y);
  EXPECT_EQ(desktop.foreground, dialog);
  EXPECT_EQ(desktop.focus, edit);
  EXPECT_EQ(host.tenthSleeps, 3);  // enabled at once: only the 0.3 s before typing
  EXPECT_EQ(automation.Search().TargetChildID, 1001);
}

TEST_F(SendKeysTest, WaitsForTheWindowToBecomeEnabledForTenPausesAtMost) {
  desktop.At(edit).enabledAt = host.clockMs + 1200;
  EXPECT_TRUE(Send("x"));
  EXPECT_EQ(host.tenthSleeps, 3 * 5 + 3);  // three half-second pauses, then 0.3 s
  EXPECT_EQ(desktop.keys.size(), 2u);

  desktop.keys.clear(), engine.DebugWindow.Clear(), host.tenthSleeps = 0;
  desktop.At(edit).enabledAt = SimDesktop::kNever;  // ten pauses, then a report that is not fatal
  EXPECT_FALSE(Send("x"));
  EXPECT_EQ(host.tenthSleeps, 50);
  EXPECT_TRUE(desktop.keys.empty());
  EXPECT_EQ(Last_Report(), ReportFields(-1, "This window is not able to receive input:  Folder",
                                        "Velmora.(General).Send_Keys_To.IsWindowEnabledError.1", kGoOn));
  EXPECT_FALSE(engine.state.StopRunning);
}

TEST_F(SendKeysTest, AMalformedKeyStringSendsNothingAndSaysWhy) {
  EXPECT_FALSE(Send("ab{FOO}"));
  EXPECT_TRUE(desktop.keys.empty());
  EXPECT_EQ(Last_Report(), ReportFields(-1, "Invalid key string:  Unknown key name {FOO} at position 3",
                                        "Velmora.(General).Send_Keys_To.Send_Keys_ToError.1", kGoOn));
  EXPECT_FALSE(engine.state.StopRunning);
}

TEST_F(AutomationTest, KeysOrButtonsWithoutATargetAreFatalAndLeaveTheFlag) {
  bool succeeded = true;
  automation.SendKeys_Command(engine, true, Parsed("sendkeys: \"x\""), succeeded);
  EXPECT_EQ(Last_Report(), ReportFields(-1, "No Window found to SendKeys_To",
                                        "Velmora.(General).SendKeys_Command.Send_Keys_ToError.1", kFatal));
  automation.SendButtons_Command(engine, true, Parsed("sendbuttons: sl"), succeeded);
  EXPECT_EQ(Last_Report(), ReportFields(-1, "No Window found to SendButtons_To",
                                        "Velmora.(General).SendButtons_Command.Send_Buttons_ToError.1", kFatal));
  EXPECT_TRUE(succeeded);
}

// Input for an elevated program's window is dropped by the system: each
// command that sends it says so once, whatever the debug state.
TEST_F(SendKeysTest, InputForAnElevatedProgramIsNamedAsLost) {
  const std::string kLost =
      "Info: The target window belongs to a program running at a higher integrity level (elevated) than Velmora: "
      "Windows drops the keys and clicks sent to it. Run Velmora as administrator.";
  engine.state.DebugOn = false;
  const std::pair<const char*, bool> rows[] = {{"sendkeys: \"a\"", true},
                                               {"sendbuttons: sl", true},
                                               {"usemouse: sl, 14000, 11100", true},
                                               {"usemouse: sl, 40000, 11100", false}};
  for (const auto& [line, elevated] : rows) {
    SCOPED_TRACE(line);
    desktop.At(edit).elevated = elevated;
    engine.DebugWindow.Clear();
    const ParsedCommand command = Parsed(line);
    bool succeeded = false;
    if (command.CommandCode == kSendKeysCommand) automation.SendKeys_Command(engine, true, command, succeeded);
    if (command.CommandCode == kSendButtonsCommand) automation.SendButtons_Command(engine, true, command, succeeded);
    if (command.CommandCode == kUseMouseCommand) automation.UseMouse_Command(engine, true, command);
    EXPECT_EQ(DebugLines(), elevated ? Lines{kLost} : Lines{});
  }
}

}  // namespace
}  // namespace velmora::test
