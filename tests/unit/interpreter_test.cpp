#include "interpreter.h"
#include "about.h"
#include "engine_fixture.h"
#include "session.h"
#include "simple_commands.h"

namespace velmora::test {
namespace {

// An automatic session of its own for each script.
struct Session {
  SimHost host;
  SimRegistry registry;
  Engine engine{host, registry};
  ScriptInterpreter interpreter;

  // Plays the script; returns the exit status.
  int Play(const Lines& script) {
    for (const auto& line : script) host.files["a.vls"] += line + "\r\n";
    host.commandLine = "\"a.vls\" \"a.vld\"";
    try {
      Form_Load(engine, interpreter);
    } catch (const ProcessEnded& ended) {
      return ended.exitCode;
    }
    return -1;
  }
};

TEST(InterpreterTest, LogsEveryLineAndTheOutcomeOfEachCommand) {
  Session session;
  session.host.environment["OS"] = "Windows_NT";
  EXPECT_EQ(session.Play({"# setup", "test: \"`OS`\" = \"Windows_NT\"", "if: failed", "wait: 0.05", "else",
                          "debug: off", "wait: 2", "debug: on", "endif", "wait: 0"}),
            0);
  EXPECT_EQ(session.host.Lines("a.vld"), (Lines{Identification_Line(),
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
  EXPECT_EQ(session.engine.TraceWindow.Selected(), 9);  // the last line stays selected
}

// Each row a fresh automatic session, so that its block table is built anew.
TEST(FlowTest, FollowsTheBlockTable) {
  const struct {
    Lines script, ran;
    std::vector<bool> starts;  // outcomes of the program starts, in order
    long long tenths;          // pauses of a tenth (two per line run, one per loop pass); -1: not counted
  } rows[] = {                 // The then part ends at the else, which finds its if through the block table.
              {{"run: \"ok\"", "if: succeeded", "wait: 1", "else", "wait: 2", "endif", "wait: 3"},
               {"run: \"ok\"", "if: succeeded", "  wait: 1", "else", "wait: 3"},
               {},
               -1},
              {{"run: \"x\"", "while: succeeded", "run: \"x\"", "endwhile", "wait: 0"},
               {"run: \"x\"", "while: succeeded", "  run: \"x\"", "endwhile", "while: succeeded", "  run: \"x\"",
                "endwhile", "while: succeeded", "wait: 0"},
               {true, true, false},
               18 + 2},
              {{"repeat", "run: \"x\"", "until: succeeded", "wait: 0"},
               {"repeat", "  run: \"x\"", "until: succeeded", "  run: \"x\"", "until: succeeded", "  run: \"x\"",
                "until: succeeded", "wait: 0"},
               {false, false, true},
               16 + 2},
              // Comments and blanks are never run, but a first comment is.
              {{"# head", "", "  # x", "wait: 0", "#", ""}, {"# head", "wait: 0"}, {}, -1}};
  for (const auto& row : rows) {
    Session session;
    session.host.startOutcomes.assign(row.starts.begin(), row.starts.end());
    EXPECT_EQ(session.Play(row.script), 0);
    EXPECT_EQ(Ran_In(session.host.Lines("a.vld")), row.ran) << row.script[1];
    if (row.tenths >= 0) {
      EXPECT_EQ(session.host.tenthSleeps, row.tenths) << row.script[1];
    }
  }
}

class InteractiveInterpreterTest : public InteractiveTest {
 protected:
  void Load(const Lines& script) {
    for (const auto& line : script) engine.TraceWindow.Add(line);
    engine.TraceWindow.Select(0);
  }
  void Step() {
    RunState& s = engine.state;
    Process_Command(engine, true, s.DebugOn, s.ScriptFileNumber, s.DebugFileNumber, s.LastCommandSucceeded);
  }
};

TEST_F(InteractiveInterpreterTest, EmptyAndUnknownLinesSaySoAndQuitOnlyLogs) {
  Load({"", "jump: 5", "quit", "wait: 0"});
  Step();
  EXPECT_EQ(engine.DebugWindow.Items(), (Lines{"", "Info:  No Command found."}));
  EXPECT_EQ(host.beeps, 1);
  engine.DebugWindow.Clear();
  Step();
  EXPECT_EQ(Last_Report(), ReportFields(-1, "Unknown Command:  jump: 5",
                                        "Velmora.(General).Process_Command.UnknownCommandError.1", kGoOn));
  Step();
  EXPECT_EQ(engine.DebugWindow.Items().back(), "!! Quit Encountered! I am outa here! Have a nice day :)");
  EXPECT_EQ(engine.TraceWindow.Selected(), 3);
  EXPECT_FALSE(engine.state.StopRunning);
}

using SimpleCommandsTest = InteractiveTest;

TEST_F(SimpleCommandsTest, WaitLogsTheTotalFirstAndPausesAtMostAMinuteAtATime) {
  constexpr std::int32_t kMin = INT32_MIN;
  const std::tuple<std::int32_t, const char*, long long> cases[] = {
      {1, "1 second", 10}, {150, "150 seconds", 1500}, {-4, "-4 seconds", 0}, {kMin, "-2147483648 seconds", 0}};
  for (const auto& [seconds, total, tenths] : cases) {
    engine.DebugWindow.Clear();
    host.tenthSleeps = 0;
    Wait_Command(engine, true, seconds);
    EXPECT_EQ(engine.DebugWindow.Items(), std::vector<std::string>{"Total Elapsed Time:  " + std::string(total) + "."});
    EXPECT_EQ(host.tenthSleeps, tenths) << seconds;
  }
}

}  // namespace
}  // namespace velmora::test
