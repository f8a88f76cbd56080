#include <gtest/gtest.h>

#include "engine_fixture.h"
#include "simple_commands.h"

namespace velmora::testing {
namespace {

class SimpleCommandsTest : public EngineTest {
 protected:
  void SetUp() override {
    engine.state.InteractiveSession = true;
    engine.state.DebugOn = true;
  }
};

TEST_F(SimpleCommandsTest, WaitLogsTheTotalFirstAndPausesAtMostAMinuteAtATime) {
  struct Case {
    std::int32_t seconds;
    const char* line;
    long long tenths;
  };
  const Case cases[] = {{0, "Total Elapsed Time:  0 seconds.", 0},
                        {1, "Total Elapsed Time:  1 second.", 10},
                        {90, "Total Elapsed Time:  90 seconds.", 900},
                        {150, "Total Elapsed Time:  150 seconds.", 1500},
                        {-4, "Total Elapsed Time:  -4 seconds.", 0},
                        {60, "Total Elapsed Time:  60 seconds.", 600},
                        {INT32_MIN, "Total Elapsed Time:  -2147483648 seconds.", 0}};
  for (const Case& c : cases) {
    engine.DebugWindow.Clear();
    host.tenthSleeps = 0;
    Wait_Command(engine, true, c.seconds);
    EXPECT_EQ(engine.DebugWindow.Items(), std::vector<std::string>{c.line});
    EXPECT_EQ(host.tenthSleeps, c.tenths) << c.seconds;
  }
}

TEST_F(SimpleCommandsTest, WaitPausesAtMostAMinuteAtATimeAndLeavesTheSuccessFlagAlone) {
  engine.state.LastCommandSucceeded = true;
  Wait_Command(engine, true, 150);
  // Three pauses of 600, 600 and 300 tenths: each tenth sleeps once and yields once.
  EXPECT_EQ(host.doEvents, 1500);
  EXPECT_EQ(host.sleptMs, 1500 * 95);
  EXPECT_TRUE(engine.state.LastCommandSucceeded);
}

TEST_F(SimpleCommandsTest, RunStartsTheExpandedCommandLineOrReportsAndGoesOnWithTheFlagFalse) {
  host.environment["SRC"] = "D:\\disk1";
  host.unstartable.insert("missing.exe");
  bool succeeded = false;
  RunProgram_Command(engine, true, "`SRC`\\setup.exe /q", succeeded);
  EXPECT_TRUE(succeeded);
  EXPECT_EQ(host.startedPrograms, std::vector<std::string>{"D:\\disk1\\setup.exe /q"});
  engine.DebugWindow.Clear();
  RunProgram_Command(engine, true, "missing.exe", succeeded);
  EXPECT_FALSE(succeeded);
  EXPECT_EQ(engine.DebugWindow.Items(), Go_On_Block("Unable to execute program:  missing.exe -> File not found", 53,
                                                    "Velmora.(General).RunProgram_Command.Shell.1"));
  EXPECT_FALSE(engine.state.StopRunning);
}

TEST_F(SimpleCommandsTest, DebugIsOffOnlyForTheWordOff) {
  const std::pair<const char*, bool> cases[] = {
      {"off", false}, {" off ", false}, {"on", true}, {"OFF", true}, {"", true}};
  for (const auto& [text, on] : cases) {
    bool debugOn = !on;
    engine.state.LastCommandSucceeded = true;
    Debug_Command(engine, true, debugOn, text);
    EXPECT_EQ(debugOn, on) << '"' << text << '"';
    EXPECT_TRUE(engine.state.LastCommandSucceeded);
  }
}

}  // namespace
}  // namespace velmora::testing
