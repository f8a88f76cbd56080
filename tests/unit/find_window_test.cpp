#include <algorithm>
#include "automation_fixture.h"

namespace velmora::test {
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
  EXPECT_EQ(automation.Target().WindowText, "Next >");
}

TEST_F(FindWindowTest, NotFoundWaitsTheWholeTimeOutButSearchesAtLeastOnce) {
  const struct {
    const char* timeOut;
    bool halt;  // a halt request ends the wait after the search under way
    const char *maximum, *total;
  } rows[] = {{"0.03", false, "3 seconds", "3 seconds"}, {"1.00", true, "60 seconds", "1 second"}};
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
                                                      {"\"a`\", \"b`\", 0", "Subscript out of range"}};
  for (const auto& [text, error] : rows) {
    Find(std::string("findwindow: 1, ") + text + ", 0, 0, 0.01");
    EXPECT_EQ(Last_Report(), ReportFields(std::string(error) == "Overflow" ? 6 : 9, error,
                                          "Velmora.(General).FindWindow_Command.TrappableErrors.1", kFatal));
  }
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
  // The nearer candidate is tried first: its dialog, then itself come forward.
  EXPECT_EQ(desktop.foregroundCalls, (std::vector<WindowHandle>{dialog2, next2}));
}

}  // namespace
}  // namespace velmora::test
