#include <tuple>

#include "automation_fixture.h"
#include "screen_point.h"

namespace velmora::test {
namespace {

using Record = SimDesktop::MouseRecord;

// The mouse events as (time since the first event, flags, x, y).
std::vector<std::vector<long long>> Timeline(const std::vector<Record>& events) {
  std::vector<std::vector<long long>> rows;
  for (const Record& e : events)
    rows.push_back({e.atMs - events.front().atMs, static_cast<long long>(e.flags), e.x, e.y});
  return rows;
}

TEST(ClickTest, CodesSelectButtonsAndTheUnitIsTheDoubleClickTimeOverOneAndAHalf) {
  const std::tuple<const char*, int, Click> cases[] = {{"dl", 500, {2, 4, true, 333}},
                                                       {"sm", 600, {32, 64, false, 400}},
                                                       {"dr", 250, {8, 16, true, 167}},
                                                       {"nc", 501, {0, 0, false, 334}}};
  for (const auto& [code, doubleClickTime, want] : cases) {
    const Click k = Click_Of(code, doubleClickTime);
    EXPECT_EQ(std::tie(k.down, k.up, k.isDouble, k.unitMs), std::tie(want.down, want.up, want.isDouble, want.unitMs))
        << code;
  }
  EXPECT_THROW(Click_Of("sx", 500), std::exception);
  EXPECT_THROW(Click_Of("", 500), std::exception);
}

TEST(PixelAtTest, RoundsHalvesToEvenAndKeepsTheWholeCoordinateWithin16Bits) {
  // The rectangle, the fractions across and down, and the pixel.
  const std::tuple<WindowRect, double, double, std::pair<long, long>> cases[] = {
      {{11, 21, 14, 24}, 0.5, 0.5, {13, 23}},
      {{-50, -50, 50, 50}, 0, 1, {-50, 50}},
      {{32700, 0, 32766, 10}, 1, 0, {32766, 0}}};
  for (const auto& [rect, fx, fy, pixel] : cases) {
    const ScreenPoint p = Pixel_At(rect, fx, fy);
    EXPECT_EQ(std::pair(p.x, p.y), pixel) << fx << ", " << fy;
  }
  // The offset alone fits; the coordinate it makes does not.
  EXPECT_THROW(Pixel_At({32760, 0, 32800, 10}, 0.5, 0), std::exception);
  EXPECT_THROW(Pixel_At({0, -40000, 10, 10}, 0, 0), std::exception);
}

TEST_F(AutomationTest, UseMouseMovesThenClicksWithPlainFlags) {
  const long long move = 0xFFFF8001;
  const std::pair<const char*, std::vector<std::vector<long long>>> cases[] = {
      {"usemouse: sl, 400, 300", {{0, move, 400, 300}, {0, 2, 400, 300}, {999, 4, 400, 300}}},
      {"usemouse: dr, 65535, 65535",
       {{0, move, 65535, 65535},
        {0, 8, 65535, 65535},
        {999, 16, 65535, 65535},
        {1332, 8, 65535, 65535},
        {2331, 16, 65535, 65535}}}};
  for (const auto& [line, timeline] : cases) {
    desktop.mouseEvents.clear();
    const long long before = host.clockMs;
    automation.UseMouse_Command(engine, true, Parsed(line));
    EXPECT_EQ(Timeline(desktop.mouseEvents), timeline) << line;
    const bool isDouble = line[10] == 'd';
    EXPECT_EQ(host.clockMs - before, isDouble ? 12 * 333 : 3 * 333) << line;  // t, 3t, 3t and 5t for a double
  }
  EXPECT_TRUE(DebugLines().empty());
}

class SendButtonsTest : public AutomationTest {
 protected:
  WindowHandle dialog = 0, button = 0;
  void SetUp() override {
    AutomationTest::SetUp();
    dialog = desktop.Add(1, "Setup", "#32770", 0, {100, 100, 500, 400});
    button = desktop.Add(dialog, "Next >", "Button", 12, {300, 350, 400, 382});
    ASSERT_TRUE(Find("findwindow: 2, \"Setup\", \"#32770\", 0, 0.5, 0.9, \"Next >\", \"Button\", 12, 0.5, 0.5, 0.05"));
    engine.DebugWindow.Clear();
    host.tenthSleeps = 0;
    desktop.mouseEvents.clear();
  }
};

TEST_F(SendButtonsTest, ClicksThePickedPointOfTheTargetInNormalisedUnits) {
  EXPECT_TRUE(Click("sl"));
  // Centre (350, 366) of a 1024 x 768 screen: 350 * 65536 / 1024 = 22400, 366 * 65536 / 768 = 31232.
  EXPECT_EQ(DebugLines(), (Lines{"Set Focus using:", "  Window Text   :  Next >", "  Window Class  :  Button",
                                 "  Window ChildID:  12", "  Window Handle :  " + std::to_string(button),
                                 "Mouse X, Y:  22400, 31232"}));
  const long long move = 0xFFFF8001;
  EXPECT_EQ(Timeline(desktop.mouseEvents), (std::vector<std::vector<long long>>{{0, move, 22400, 31232},
                                                                                {285, move, 22400, 31232},
                                                                                {285, move | 2, 22400, 31232},
                                                                                {285 + 999, move | 4, 22400, 31232}}));
  EXPECT_EQ(host.tenthSleeps, 3);
}

TEST_F(SendButtonsTest, ADisabledTargetIsReportedAndNotClicked) {
  desktop.At(button).enabledAt = SimDesktop::kNever;
  EXPECT_FALSE(Click("dl"));
  EXPECT_EQ(desktop.mouseEvents.size(), 1u);  // only the first move
  EXPECT_EQ(Last_Report(), ReportFields(-1, "This window is not able to receive input:  Next >",
                                        "Velmora.(General).SendButtons_Command.IsWindowEnabledError.1", kGoOn));
}

}  // namespace
}  // namespace velmora::test
