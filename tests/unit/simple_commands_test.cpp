#include "simple_commands.h"
#include "engine_fixture.h"

namespace velmora::testing {
namespace {

using SimpleCommandsTest = InteractiveTest;

TEST_F(SimpleCommandsTest, WaitLogsTheTotalFirstAndPausesAtMostAMinuteAtATime) {
  constexpr std::int32_t kMin = INT32_MIN;
  const std::tuple<std::int32_t, const char*, long long> cases[] = {
      {0, "0 seconds", 0},   {1, "1 second", 10},     {90, "90 seconds", 900},         {150, "150 seconds", 1500},
      {-4, "-4 seconds", 0}, {60, "60 seconds", 600}, {kMin, "-2147483648 seconds", 0}};
  for (const auto& [seconds, total, tenths] : cases) {
    engine.DebugWindow.Clear();
    host.tenthSleeps = 0;
    Wait_Command(engine, true, seconds);
    EXPECT_EQ(engine.DebugWindow.Items(), std::vector<std::string>{"Total Elapsed Time:  " + std::string(total) + "."});
    EXPECT_EQ(host.tenthSleeps, tenths) << seconds;
  }
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
