#include <gtest/gtest.h>

#include "automation_fixture.h"

namespace velmora::testing {
namespace {

class WindowSearchTest : public AutomationTest {
 protected:
  WindowHandle setup, ok, blank, inner, setup2, ok2;
  void SetUp() override {
    AutomationTest::SetUp();
    setup = desktop.Add(1, "Setup", "#32770", 77);
    ok = desktop.Add(setup, "OK", "Button", 1);
    blank = desktop.Add(setup, "", "Static", 2);
    inner = desktop.Add(blank, "inner", "Button", 3);
    setup2 = desktop.Add(1, "Setup", "#32770");
    ok2 = desktop.Add(setup2, "OK", "Button", 1);
  }
  std::vector<WindowHandle> found;
  std::uint16_t Search(const std::string& text, const std::string& className, std::int32_t id,
                       const std::string& path) {
    automation.Search().TargetChildID = id;
    return automation.Search().Find_Window_Like(found, desktop.DesktopWindow(), 0, text, className, id, path);
  }
};

TEST_F(WindowSearchTest, PathsNameEveryAncestorWithTopLevelIdentifiersZero) {
  EXPECT_EQ(Window_Path_Of(desktop, ok), "1, \"Button\", \"OK\", 0, \"#32770\", \"Setup\", 2");
  EXPECT_EQ(Window_Path_Of(desktop, inner),
            "3, \"Button\", \"inner\", 2, \"Static\", \"\", 0, \"#32770\", \"Setup\", 3");
  EXPECT_EQ(Window_Path_Of(desktop, setup), "0, \"#32770\", \"Setup\", 1");
}

TEST_F(WindowSearchTest, FindsEveryExactMatchInWalkOrder) {
  struct Case {
    const char* text;
    const char* className;
    std::int32_t id;
    std::string path;
    std::vector<WindowHandle> expected;
  };
  const std::string okPath = "1, \"Button\", \"OK\", 0, \"#32770\", \"Setup\", 2";
  const Case cases[] = {
      {"OK", "Button", 1, okPath, {ok, ok2}},  // two identical dialogs: the earlier one first
      {"ok", "Button", 1, "1, \"Button\", \"ok\", 0, \"#32770\", \"Setup\", 2", {}},  // case counts
      {"OK", "Button", 2, okPath, {}},
      {"", "Static", 2, "2, \"Static\", \"\", 0, \"#32770\", \"Setup\", 2", {blank}},
      {"x", "Static", 2, "2, \"Static\", \"x\", 0, \"#32770\", \"Setup\", 2", {}},  // empty titles match only ""
      {"Setup", "#32770", 0, "0, \"#32770\", \"Setup\", 1", {setup, setup2}},
      {"OK", "Button", 1, "1, \"Button\", \"OK\", 0, \"#32770\", \"Other\", 2", {}},  // an ancestor differs
  };
  for (const Case& c : cases) {
    found = {0, 5, 6};  // whatever an earlier search left
    const auto count = Search(c.text, c.className, c.id, c.path);
    std::vector<WindowHandle> expected{0};
    expected.insert(expected.end(), c.expected.begin(), c.expected.end());
    EXPECT_EQ(count, c.expected.size()) << c.path;
    EXPECT_EQ(found, expected) << c.path;
  }
}

TEST_F(WindowSearchTest, MatchesInSeveralSubtreesComeInTreeOrder) {
  const WindowHandle panel1 = desktop.Add(setup2, "", "Panel", 5);
  const WindowHandle panel2 = desktop.Add(setup2, "", "Panel", 5);
  const WindowHandle second = desktop.Add(panel2, "x", "Edit", 9);
  const WindowHandle first = desktop.Add(panel1, "x", "Edit", 9);
  Search("x", "Edit", 9, "9, \"Edit\", \"x\", 5, \"Panel\", \"\", 0, \"#32770\", \"Setup\", 3");
  EXPECT_EQ(found, (std::vector<WindowHandle>{0, first, second}));
}

TEST_F(WindowSearchTest, LongClassNamesAreCutToTheBuffer) {
  const std::string longName(300, 'c');
  const WindowHandle w = desktop.Add(1, "T", longName);
  const std::string cut(254, 'c');
  EXPECT_EQ(Search("T", cut, 0, "0, \"" + cut + "\", \"T\", 1"), 1);
  EXPECT_EQ(found.back(), w);
  EXPECT_EQ(Search("T", longName, 0, "0, \"" + longName + "\", \"T\", 1"), 0);
}

TEST_F(WindowSearchTest, AWindowThatVanishesDuringTheWalkDoesNotMatch) {
  desktop.onGetWindow = [&](WindowHandle w) {
    if (w == ok2) desktop.At(ok2).vanishesAt = host.clockMs;
  };
  EXPECT_EQ(Search("OK", "Button", 1, "1, \"Button\", \"OK\", 0, \"#32770\", \"Setup\", 2"), 1);
  EXPECT_EQ(found, (std::vector<WindowHandle>{0, ok}));
}

}  // namespace
}  // namespace velmora::testing
