#include <algorithm>

#include "automation_fixture.h"
#include "near_windows.h"

namespace velmora::testing {
namespace {

class FindWindowTest : public AutomationTest {
 protected:
  WindowHandle dialog = 0, next = 0;
  void Add_Dialog() {
    dialog = desktop.Add(1, "Setup", "#32770", 0, {100, 100, 500, 400});
    next = desktop.Add(dialog, "Next >", "Button", 1, {300, 350, 400, 380});
  }
  static constexpr const char* kNextLine =
      "findwindow: 2, \"Setup\", \"#32770\", 0, 0.5, 0.9, \"Next >\", \"Button\", 1, 0.5, 0.5, 0.10";
};

TEST_F(FindWindowTest, ExactlyOneMatchIsUsedWithoutWarning) {
  Add_Dialog();
  EXPECT_TRUE(Find(kNextLine));
  const std::string h = std::to_string(next);
  EXPECT_EQ(DebugLines(), (Lines{"Maximum Wait Time:  10 seconds.", "Total Elapsed Time:  1 second.",
                                 "Found Window:  " + h, "==>  Using Window:  " + h}));
  EXPECT_EQ(host.tenthSleeps, 10);  // found only after the first one-second pause
  EXPECT_EQ(automation.Target().TargetList, (std::vector<WindowHandle>{0, next}));
  EXPECT_EQ(engine.state.FoundWindow, next);
  EXPECT_EQ(automation.Target().WindowText, "Next >");
}

TEST_F(FindWindowTest, NotFoundWaitsTheWholeTimeOutButSearchesAtLeastOnce) {
  const struct {
    const char* timeOut;
    bool halt;  // a halt request ends the wait after the search under way
    const char *maximum, *total;
  } rows[] = {{"0.00", false, "0 seconds", "1 second"},
              {"0.03", false, "3 seconds", "3 seconds"},
              {"1.00", true, "60 seconds", "1 second"}};
  for (const auto& row : rows) {
    engine.DebugWindow.Clear();
    host.tenthSleeps = 0;
    engine.state.HaltRequested = row.halt;
    EXPECT_FALSE(Find(std::string("findwindow: 1, \"Gone\", \"#32770\", 0, 0, 0, ") + row.timeOut));
    EXPECT_EQ(DebugLines(),
              (Lines{"Maximum Wait Time:  " + std::string(row.maximum) + ".",
                     "Total Elapsed Time:  " + std::string(row.total) + ".", "The window was NOT found."}))
        << row.timeOut;
    EXPECT_EQ(host.tenthSleeps, row.halt ? 10 : std::max(10, 10 * std::stoi(row.timeOut + 2))) << row.timeOut;
  }
}

TEST_F(FindWindowTest, TitlesMayComeFromTheEnvironment) {
  host.environment["APP"] = "Setup";
  Add_Dialog();
  EXPECT_TRUE(Find("findwindow: 1, \"`APP`\", \"#32770\", 0, 0, 0, 0.01"));
  EXPECT_EQ(DebugLines()[0], "One (1) Environment Variable Used.  Conversion follows:");
  EXPECT_EQ(automation.Target().TargetList.at(1), dialog);
}

// A back quote in a title opens a reference that swallows what follows, so the
// expanded text lacks the pieces the search needs.
TEST_F(FindWindowTest, BadNumbersOrTextsAfterExpansionAreTrappedAtTheHandler) {
  const std::pair<const char*, const char*> rows[] = {{"\"Setup\", \"#32770\", 2147483648", "Overflow"},
                                                      {"\"Setup\", \"#32770\", 4294967295", "Overflow"},
                                                      {"\"Setup\", \"#32770\", 12345678901234567890", "Overflow"},
                                                      {"\"a`\", \"b`\", 0", "Subscript out of range"}};
  engine.state.DebugOn = false;  // the expansion is not logged, the report is
  for (const auto& [text, error] : rows) {
    engine.DebugWindow.Clear();
    Find(std::string("findwindow: 1, ") + text + ", 0, 0, 0.01");
    EXPECT_EQ(DebugLines(), Fatal_Block(error, std::string(error) == "Overflow" ? 6 : 9,
                                        "Velmora.(General).FindWindow_Command.TrappableErrors.1"))
        << text;
  }
}

// With VELMORA_EXPLAIN=1 a failed search names the nearest windows: most
// levels fitting, then fewest fields differing, then the longest common start.
TEST_F(FindWindowTest, NearestWindowsExplainAFailedSearchOnlyOnRequest) {
  const WindowHandle other = desktop.Add(1, "Other", "#32770");
  const WindowHandle blank = desktop.Add(1, "Velmora Setup ", "#32770");
  const WindowHandle button = desktop.Add(blank, "&Next >", "Button", 1);
  const WindowHandle notepad = desktop.Add(1, "Velmora Setup", "Notepad");
  const auto line = [](WindowHandle w, const char* rest) { return "Info: Nearest window " + std::to_string(w) + rest; };
  const struct {
    const char* explain;  // nullptr: unset
    const char* levels;
    Lines info;
  } rows[] = {
      {"1", "\"Velmora Setup\", \"#32770\", 0, 0.5, 0.5, \"&Next >\", \"Button\", 1",
       {line(blank, " fits 0 of 2 levels; level 1 title differs: \"Velmora Setup\" in the script, \"Velmora Setup \" on the screen."),
        line(other, " fits 0 of 2 levels; level 1 title differs: \"Velmora Setup\" in the script, \"Other\" on the screen."),
        line(notepad, " fits 0 of 2 levels; level 1 class differs: \"#32770\" in the script, \"Notepad\" on the screen.")}},
      {" 1 ", "\"Velmora Setup \", \"#32770\", 0, 0.5, 0.5, \"&Next >\", \"Button\", 2",
       {line(button, " fits 1 of 2 levels; level 2 child ID differs: \"2\" in the script, \"1\" on the screen."),
        line(other, " fits 0 of 2 levels; level 1 title differs: \"Velmora Setup \" in the script, \"Other\" on the screen."),
        line(notepad, " fits 0 of 2 levels; level 1 title differs: \"Velmora Setup \" in the script, \"Velmora Setup\" on the screen.")}},
      {"0", "\"Velmora Setup\", \"#32770\", 0, 0.5, 0.5, \"&Next >\", \"Button\", 1", {}},
      {nullptr, "\"Velmora Setup\", \"#32770\", 0, 0.5, 0.5, \"&Next >\", \"Button\", 1", {}},
  };
  long steps = 0;
  desktop.onGetWindow = [&](WindowHandle) { ++steps; };
  const long searchSteps = (Forecast_Find(engine, desktop, {{"x", "y"}, {"z", "w"}}), steps);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.levels);
    host.environment.erase("VELMORA_EXPLAIN");
    if (row.explain) host.environment["VELMORA_EXPLAIN"] = row.explain;
    engine.DebugWindow.Clear();
    steps = 0;
    EXPECT_FALSE(Find(std::string("findwindow: 2, ") + row.levels + ", 0.5, 0.5, 0.00"));
    const Lines& lines = DebugLines();
    ASSERT_EQ(lines.at(2), "The window was NOT found.");
    EXPECT_EQ(Lines(lines.begin() + 3, lines.end()), row.info);
    if (row.info.empty()) {
      EXPECT_EQ(steps, searchSteps);  // no second walk when not asked
    }
  }
  EXPECT_EQ(Near_Window_Lines({}, 1), Lines{"Info: No window comes near the description."});
}

class SeveralCandidatesTest : public FindWindowTest {
 protected:
  WindowHandle dialog2 = 0, next2 = 0;
  void SetUp() override {
    FindWindowTest::SetUp();
    Add_Dialog();
    dialog2 = desktop.Add(1, "Setup", "#32770", 0, {600, 100, 1000, 400});
    next2 = desktop.Add(dialog2, "Next >", "Button", 1, {800, 350, 900, 380});
  }
};

TEST_F(SeveralCandidatesTest, TheCandidateUnderItsPickedPointIsChosen) {
  desktop.At(next).rect = {0, 0, 1, 1};  // moved away: its dialog's picked point shows the dialog
  EXPECT_TRUE(Find(kNextLine));
  EXPECT_EQ(automation.Target().TargetList, (std::vector<WindowHandle>{0, next2, next}));
  EXPECT_EQ(DebugLines().back(), "==>  Using Window:  " + std::to_string(next2));
  EXPECT_EQ(engine.state.FoundWindow, next2);
  // The nearer candidate is tried first: its dialog, then itself come forward.
  EXPECT_EQ(desktop.foregroundCalls, (std::vector<WindowHandle>{dialog2, next2}));
}

// Once a candidate's program does not respond, the rest of the choice brings
// nothing forward and goes by what lies at each point: within the bound.
TEST_F(SeveralCandidatesTest, AFrozenProgramEndsTheBringingForwardWithinTheBound) {
  // Whether the first candidate moved away (else none lies at its picked point),
  // the window frozen, the windows brought forward, and the one used.
  const std::tuple<bool, WindowHandle, std::vector<WindowHandle>, WindowHandle> rows[] = {
      {false, dialog, {}, next}, {false, dialog2, {dialog, next}, next}, {true, dialog2, {}, next2}};
  for (const auto& [firstMovedAway, frozen, broughtForward, used] : rows) {
    desktop.pointOwnerOverride = firstMovedAway ? 0 : dialog;
    if (firstMovedAway) desktop.At(next).rect = {0, 0, 1, 1};
    const long long start = Start_Frozen(frozen, 60000);
    EXPECT_TRUE(Find(kNextLine));
    EXPECT_EQ(desktop.foregroundCalls, broughtForward);
    const Lines& lines = DebugLines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Info: The window did not respond within 10 seconds."), 1);
    EXPECT_EQ(lines.back(), "==>  Using Window:  " + std::to_string(used));
    EXPECT_EQ(host.clockMs - start, 950 + 10000);  // the search's pause and the bound
    desktop.Freeze(frozen, 0);
  }
}

}  // namespace
}  // namespace velmora::testing
