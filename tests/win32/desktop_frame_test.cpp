// The frame that marks a window during a pick: it shows around the window,
// the window under the pointer stays the marked one even on its edge, and a
// second marking or a repaint of the area takes the frame away.
#include <gtest/gtest.h>

#include "desktop_fixture.h"

namespace velmora::test {
namespace {

TEST(DesktopFrameTest, TheFrameShowsPassesHitTestsAndGoes) {
  Win32Desktop desktop;
  Windows windows;
  RecordingClass windowClass{"VelmoraFrameTest" + ProcessTag()};
  HWND top = windows.TopLevel(windowClass.Name(), "Frame test", {100, 100, 400, 300});
  HWND button = windows.Child(top, "Button", "OK", 1, {50, 50, 150, 90});
  RECT r{};
  GetWindowRect(button, &r);
  const auto frameShown = [] {
    HWND frame = ::FindWindowA("VelmoraPickFrame", nullptr);
    return frame && IsWindowVisible(frame);
  };
  desktop.DrawWindowFrame(Handle(button));
  Pump_For(100);
  EXPECT_TRUE(frameShown());
  EXPECT_EQ(desktop.WindowFromPoint({r.left + 1, (r.top + r.bottom) / 2}), Handle(button));
  desktop.RepaintScreenArea({r.left, r.top, r.right, r.bottom});
  EXPECT_FALSE(frameShown());
  desktop.DrawWindowFrame(Handle(top));
  desktop.DrawWindowFrame(Handle(button));  // another window: the frame moves
  EXPECT_TRUE(frameShown());
  desktop.DrawWindowFrame(Handle(button));
  EXPECT_FALSE(frameShown());
}

}  // namespace
}  // namespace velmora::test
