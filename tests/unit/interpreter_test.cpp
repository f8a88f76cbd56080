#include "interpreter.h"
#include "about.h"
#include "engine_fixture.h"
#include "session.h"
#include "simple_commands.h"

namespace velmora::testing {
namespace {

class InterpreterTest : public EngineTest {
 protected:
  ScriptInterpreter interpreter;

  // Plays the script as an automatic session; returns the exit status.
  int Play(const Lines& script) {
    for (const auto& line : script) host.files["a.vls"] += line + "\r\n";
    host.commandLine = "\"a.vls\" \"a.vld\"";
    return Exit_Status_Of([&] { Form_Load(engine, interpreter); });
  }
};

TEST_F(InterpreterTest, LogsEveryLineAndTheOutcomeOfEachCommand) {
  host.environment["OS"] = "Windows_NT";
  EXPECT_EQ(Play({"# setup", "test: \"`OS`\" = \"Windows_NT\"", "if: failed", "wait: 0.05", "else", "debug: off",
                  "wait: 2", "debug: on", "endif", "wait: 0"}),
            0);
  EXPECT_EQ(Log(), (Lines{Identification_Line(),
                          "Automatic Session Started.",
                          "",
                          "==> # setup",
                          "",
                          "==> test: \"`OS`\" = \"Windows_NT\"",
                          "One (1) Environment Variable Used.  Conversion follows:",
                          "     `OS`",
                          " --> Windows_NT",
                          "  Match Found!  Test Succeeded.",
                          "",
                          "==> if: failed",
                          "  -- Wish the Previous Command to Fail!",
                          "  -- Previous Command Succeeded!",
                          "  -- Executing ELSE Prortion of If...",
                          "",
                          "==> debug: off",
                          "",
                          "==> endif",
                          "",
                          "==> wait: 0",
                          "Total Elapsed Time:  0 seconds."}));
  EXPECT_EQ(engine.TraceWindow.Selected(), 9);  // the last line stays selected
  EXPECT_TRUE(engine.state.StopRunning);
}

struct FlowCase {
  const char* name;
  Lines script;
  Lines ran;
  std::vector<bool> starts = {};  // outcomes of the program starts, in order
  long long tenths = -1;          // pauses of a tenth (two per line run, one per loop pass); -1: not counted
};

class FlowTest : public InterpreterTest, public ::testing::WithParamInterface<FlowCase> {};

TEST_P(FlowTest, FollowsTheBlockTable) {
  const FlowCase& c = GetParam();
  host.startOutcomes.assign(c.starts.begin(), c.starts.end());
  EXPECT_EQ(Play(c.script), 0);
  EXPECT_EQ(Ran_In(Log()), c.ran);
  if (c.tenths >= 0) {
    EXPECT_EQ(host.tenthSleeps, c.tenths);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Jumps, FlowTest,
    ::testing::Values(FlowCase{"IfFailedWithoutElseSkipsToAfterEndif",
                               {"run: \"ok\"", "if: failed", "wait: 1", "endif", "wait: 2"},
                               {"run: \"ok\"", "if: failed", "wait: 2"}},
                      FlowCase{"ThenPartSkipsTheElsePart",
                               {"run: \"ok\"", "if: succeeded", "wait: 1", "else", "wait: 2", "endif", "wait: 3"},
                               {"run: \"ok\"", "if: succeeded", "  wait: 1", "else", "wait: 3"}},
                      FlowCase{"WhileRepeatsWhileItsBodySucceeds",
                               {"run: \"x\"", "while: succeeded", "run: \"x\"", "endwhile", "wait: 0"},
                               {"run: \"x\"", "while: succeeded", "  run: \"x\"", "endwhile", "while: succeeded",
                                "  run: \"x\"", "endwhile", "while: succeeded", "wait: 0"},
                               {true, true, false},
                               18 + 2},
                      FlowCase{"WhileAtTheFirstLineLoopsBackToIt",
                               {"while: failed", "run: \"x\"", "endwhile"},
                               {"while: failed", "  run: \"x\"", "endwhile", "while: failed", "  run: \"x\"",
                                "endwhile", "while: failed"},
                               {false, true}},
                      FlowCase{"UntilRepeatsUntilItsConditionHolds",
                               {"repeat", "run: \"x\"", "until: succeeded", "wait: 0"},
                               {"repeat", "  run: \"x\"", "until: succeeded", "  run: \"x\"", "until: succeeded",
                                "  run: \"x\"", "until: succeeded", "wait: 0"},
                               {false, false, true},
                               16 + 2},
                      FlowCase{"UntilFailedExitsOnFailure",
                               {"repeat", "run: \"x\"", "until: failed"},
                               {"repeat", "  run: \"x\"", "until: failed", "  run: \"x\"", "until: failed"},
                               {true, false}},
                      FlowCase{"WaitLeavesTheEarlierOutcomeForTheIf",
                               {"run: \"x\"", "wait: 0", "if: failed", "wait: 1", "endif"},
                               {"run: \"x\"", "wait: 0", "if: failed", "  wait: 1", "endif"},
                               {false}},
                      FlowCase{"CommentsAndBlanksAreNeverRunButAFirstCommentIs",
                               {"# head", "", "  # x", "wait: 0", "#", ""},
                               {"# head", "wait: 0"}}),
    [](const ::testing::TestParamInfo<FlowCase>& info) { return std::string(info.param.name); });

class InteractiveInterpreterTest : public InteractiveTest {
 protected:
  void Load(const Lines& script) {
    for (const auto& line : script) engine.TraceWindow.Add(line);
    engine.TraceWindow.Select(0);
  }
  void Step() {
    RunState& s = engine.state;
    Process_Command(engine, true, s.DebugOn, s.ScriptFileNumber, s.DebugFileNumber, s.FoundWindow,
                    s.LastCommandSucceeded);
  }
};

TEST_F(InteractiveInterpreterTest, EmptyAndUnknownLinesSaySoAndQuitOnlyLogs) {
  Load({"", "jump: 5", "quit", "wait: 0"});
  Step();
  EXPECT_EQ(engine.DebugWindow.Items(), (Lines{"", "Info:  No Command found."}));
  EXPECT_EQ(host.beeps, 1);
  engine.DebugWindow.Clear();
  Step();
  EXPECT_EQ(engine.DebugWindow.Items(),
            Go_On_Block("Unknown Command:  jump: 5", -1, "Velmora.(General).Process_Command.UnknownCommandError.1"));
  Step();
  EXPECT_EQ(engine.DebugWindow.Items().back(), "!! Quit Encountered! I am outa here! Have a nice day :)");
  EXPECT_EQ(engine.TraceWindow.Selected(), 3);
  EXPECT_FALSE(engine.state.StopRunning);
}

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
