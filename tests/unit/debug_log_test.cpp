#include <gtest/gtest.h>

#include "careful_io.h"
#include "debug_log.h"
#include "engine_fixture.h"
#include "trap.h"

namespace velmora::testing {
namespace {

TEST_F(EngineTest, DebugSwitchOffChangesNeitherFileNorWindow) {
  FakeSurface surface;
  engine.surface = &surface;
  std::string name = "a.vld";
  Careful_IO(engine, true, kOpenOutput, engine.state.DebugFileNumber, name, "", "", kFatal);
  engine.state.DebugFileOpen = true;

  Print_Debug(engine, true, engine.state.DebugFileNumber, false, "hidden");
  Print_Debug(engine, true, engine.state.DebugFileNumber, true, "shown");
  Print_Debug(engine, true, engine.state.DebugFileNumber, true, "");

  EXPECT_EQ(host.files["a.vld"], "shown\r\n\r\n");
  EXPECT_EQ(engine.DebugWindow.Items(), (std::vector<std::string>{"shown", ""}));
  EXPECT_EQ(engine.DebugWindow.Selected(), 1);
  EXPECT_TRUE(engine.editor.DebugLogHasOutput);
}

TEST_F(EngineTest, WithoutAnOpenDebugFileAnAutomaticSessionDropsLines) {
  Print_Debug(engine, false, 0, true, "nowhere");
  EXPECT_TRUE(host.files.empty());
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
  EXPECT_FALSE(engine.editor.DebugLogHasOutput);
}

TEST_F(EngineTest, HorizontalExtentFollowsOnlyLinesWiderThanTheList) {
  FakeSurface surface;  // 7 pixels a character, list 300 pixels wide
  engine.surface = &surface;
  struct Step {
    std::size_t length;
    long widest;
  };
  const Step steps[] = {{10, 70}, {50, 350}, {20, 350}, {50, 350}, {60, 420}, {43, 420}};
  for (const Step& step : steps) {
    Print_Debug(engine, true, 0, true, std::string(step.length, 'x'));
    EXPECT_EQ(engine.editor.WidestDebugLine, step.widest) << step.length;
  }
  EXPECT_EQ(surface.extents, (std::vector<long>{355, 425}));
}

}  // namespace
}  // namespace velmora::testing
