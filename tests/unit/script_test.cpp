// Script lines parsed, then run: the log, the flow through blocks, and the
// simple commands.
#include "about.h"
#include "engine_fixture.h"
#include "interpreter.h"
#include "parser.h"
#include "session.h"
#include "simple_commands.h"

namespace velmora::test {
namespace {

const std::string kWhere = "Velmora.(General).Parse_Command.";
const std::string kSyntax =
    "<##>, \"<WindowTitle>\", \"<WindowClass>\", <ChildID>, ..., <RelativeX>, <RelativeY>, <MM.SS>";
const std::string kChildId = "ChildID must be a positive integer.";
const std::string kCount = "Number of Windows to traverse should be a positive integer.";
const std::string kMinutes = "Wait Time minutes specifed must be less then '99999'.";
const std::string kOneWindow = "findwindow: 1, \"a\", \"b\", ";

// Parses lines as the editor does.
class ParserTest : public EngineTest {
 protected:
  void SetUp() override { engine.state.InteractiveSession = true; }
  ParsedCommand Parse(std::string_view line, double speed = 1, std::int32_t index = kNoEditorLine,
                      bool interactive = true) {
    engine.DebugWindow.Clear();
    engine.state.StopRunning = false;
    reportsBefore = engine.reports.made;
    ParsedCommand command;
    accepted = Parse_Command(engine, interactive, line, speed, command, index);
    return command;
  }
  long Reports() const { return engine.reports.made - reportsBefore; }
  bool accepted = false;
  long reportsBefore = 0;
};

// The messages are what a script's author reads in the log.
TEST_F(ParserTest, EveryParameterErrorIsOneFatalReportWithItsLocationAndDetail) {
  const std::tuple<std::string, std::string, std::string> rows[] = {
      {"run: C:\\SETUP.EXE", "Run_Or_SendKeysErrors.1", "Leading and/or Trailing quote missing."},
      {"test: \"A\"=\"B\"", "TestEnvironmentVariablesErrors.2", "\" = \" separator missing."},
      {"test: \"A\" = \"B\" = \"C\"", "TestEnvironmentVariablesErrors.2", "Extra \" = \" separator(s) found."},
      {"Until:   Maybe Later ", "LogicalConditionErrors.1", "Maybe Later"},
      {"usemouse: sl, -1, 0", "UseMouseErrors.1", "Illegal characters found."},
      {"usemouse: sl, 0, 65536", "UseMouseErrors.2", "Mouse Y Position may not exceed: 65535."},
      {"usemouse: sl, 100000, 0", "UseMouseErrors.3", "Mouse X Position must be an integer (0 <= X <= 65535)."},
      {"usemouse: sl, 65536, 0", "UseMouseErrors.4", "Mouse X Position may not exceed: 65535."},
      {"usemouse: sl 10, 20", "UseMouseErrors.6", "Second Comma not found. Use:  <s|d|nc><l|m|r>, ##, ##."},
      {"usemouse: s", "UseMouseErrors.7", "First Comma not found. Use:  <s|d|nc><l|m|r>, ##, ##."},
      {"usemouse: sx, 1, 2", "UseMouseErrors.8", "Mouse Button must be (l)eft, (m)iddle, (r)ight or no (c)lick."},
      {"usemouse: xl, 1, 2", "UseMouseErrors.9", "Type of Mouse Click must be (n)one, (s)ingle or (d)ouble.."},
      {"sendbuttons: s-l", "SendButtonsErrors.1", "Illegal characters found."},
      {"sendbuttons: sc", "SendButtonsErrors.2", "Mouse Button must be (l)eft, (m)iddle, or (r)ight."},
      {"sendbuttons: n", "SendButtonsErrors.3", "Type of Mouse Click must be (s)ingle or (d)ouble.."},
      {"findwindow: x, \"a\", \"b\", 0, 0, 0, 1.00", "FindWindowErrors.1", kCount},
      {"findwindow: 0, \"a\", \"b\", 0, 0, 0, 1.00", "FindWindowErrors.2", kCount},
      {"findwindow: 1, a\", \"b\", 0, 0, 0, 1.00", "FindWindowErrors.4", "Quote Expected.  " + kSyntax},
      {"findwindow: 1, \"a, b, 0, 0, 0, 1.00", "FindWindowErrors.5", "Quote Expected.  " + kSyntax},
      {"findwindow: 1, \"a\" \"b\", 0, 0, 0, 1.00", "FindWindowErrors.5", "Comma Expected.  " + kSyntax},
      {"findwindow: 2, \"a\", \"b\", 0, 0", "FindWindowErrors.6", "Comma Expected.  " + kSyntax},
      {kOneWindow + "x, 0, 0, 1.00", "FindWindowErrors.7", kChildId},
      {kOneWindow + "-1, 0, 0, 1.00", "FindWindowErrors.8", kChildId},
      {"wait: 123456", "FindWindow_Or_WaitErrors.1", kMinutes},
      {"wait: 123456.30", "FindWindow_Or_WaitErrors.2", kMinutes},
      {"wait: 1.123456", "FindWindow_Or_WaitErrors.3", "Wait Time seconds specifed must be less then '99999'."},
      {"wait: 1:30", "FindWindow_Or_WaitErrors.4", "Wait Time specifed is NOT numeric."}};
  for (const auto& [line, location, detail] : rows) {
    const ParsedCommand command = Parse(line);
    EXPECT_TRUE(accepted && command.ParseError && engine.state.StopRunning) << line;
    EXPECT_EQ(Reports(), 1) << line;
    EXPECT_EQ(Last_Report(), ReportFields(-1, "Invalid Parameters:  " + detail, kWhere + location, kFatal)) << line;
  }
}

TEST_F(ParserTest, AcceptedLinesGiveTheirCodeWordAndParameters) {
  const std::tuple<std::string, CommandCode, std::string, std::string> rows[] = {
      // Findwindow parameters come back normalised level by level.
      {"FindWindow:02 ,\"  Title \",\"\",+007,.25,2,\"x\" , \"y\" , -0 , 3 , 4 , 2", kFindWindowCommand, "|findwindow|",
       "2, \"  Title \", \"\", 7, 0.25, 2, \"x\", \"y\", 0, 3, 4, "},
      {"run: \"C:\\SETUP\\SETUP.EXE /Q\"", kRunCommand, "|run|", "C:\\SETUP\\SETUP.EXE /Q"},
      {"test: \"WINDIR\" = \"C:\\WINDOWS\"", kTestCommand, "|test|", "WINDIR\nC:\\WINDOWS"},
      {"If: Succeeded and more", kIfCommand, "|if|", "succeeded"},
      {"sendbuttons: DLxyz", kSendButtonsCommand, "|sendbuttons|", "dl"},
      {"quit", kQuitCommand, "|quit|", ""},
      {"else: whatever", kElseCommand, "|else|", ""},
      {"", kBlankLine, "", ""},
      {"  >>>run: \"x\"", kRunCommand, "|run|", "x"},  // the editor reads through the breakpoint mark
      {">>> # note", kCommentLine, "", "note"}};
  for (const auto& [line, code, word, parameters] : rows) {
    const ParsedCommand command = Parse(line);
    EXPECT_TRUE(accepted) << line;
    EXPECT_EQ(std::tie(command.CommandCode, command.CommandWord, command.Parameters), std::tie(code, word, parameters));
    EXPECT_FALSE(command.ParseError) << line;
    EXPECT_EQ(Reports(), 0) << line;
  }
}

TEST_F(ParserTest, UnknownWordsAndMissingParametersGiveCode255AndAreLeftToTheCaller) {
  const std::pair<const char*, const char*> rows[] = {
      {"  JUMP  ", "jump"},           {"run:", "|run|"},
      {"findwindow", "|findwindow|"}, {"run sendkeys: \"x\"", "run sendkeys"},
      {"\trun: \"x\"", "\trun"},      {">>> quit", ">>> quit"}};
  for (const auto& [line, word] : rows) {
    // The breakpoint mark means nothing outside the editor.
    const ParsedCommand command = Parse(line, 1, kNoEditorLine, false);
    EXPECT_FALSE(accepted || command.ParseError) << line;
    EXPECT_EQ(command.CommandCode, kUnknownCommand) << line;
    EXPECT_EQ(command.CommandWord, word) << line;
    EXPECT_EQ(Reports(), 0) << line;
  }
}

TEST_F(ParserTest, TimesAreSecondsScaledOnlyWhenWrittenWithAFullStop) {
  const std::tuple<const char*, double, std::int32_t> rows[] = {
      {"1.30", 2, 180}, {"2", 3, 120},    {"5.", 2, 300},        {"0.90", 1, 90},
      {".30", 1, 30},   {"1.5", 1.5, 98}, {"0.05", 2.5, 12},     {"0.01", 0.5, 0},
      {"+1.00", 1, 60}, {"3", 0.1, 180},  {"99999", 1, 5999940}, {"99999.99999", 1, 6099939}};
  for (const auto& [time, speed, seconds] : rows) {
    EXPECT_EQ(Parse(std::string("   WAIT :  ") + time + "  ", speed).TimeOut, seconds) << "wait " << time;
    EXPECT_EQ(Parse(kOneWindow + "0, 0, 0, " + time, speed).TimeOut, seconds) << "findwindow " << time;
    EXPECT_EQ(Reports(), 0) << time;
  }
}

// Lines that cannot even be cut into their pieces fail in the parser's own trap.
TEST_F(ParserTest, MalformedLinesAreTrappedAndNotAccepted) {
  const std::string kCut = "Invalid procedure call or argument";
  const std::tuple<std::string, double, long, std::string> rows[] = {
      {"run: \"", 1, 5, kCut},
      {kOneWindow + "0, 0, 0 1.00", 1, 5, kCut},
      {"findwindow: 256, \"a\", \"b\", 0, 0, 0, 1.00", 1, 6, "Overflow"},
      {"wait: 99999.0", 1e6, 6, "Overflow"}};
  for (const auto& [line, speed, code, error] : rows) {
    const ParsedCommand command = Parse(line, speed);
    EXPECT_FALSE(accepted) << line;
    EXPECT_EQ(command.CommandCode, kUnknownCommand) << line;
    EXPECT_EQ(Last_Report(), ReportFields(code, "Invalid Parameters:  " + error + " in line:  " + line,
                                          kWhere + "TrappableErrors.1", kFatal));
  }
}

TEST_F(ParserTest, AFailedLineIsSelectedInTheTraceWindowUnlessItHasNoEditorLine) {
  for (int line = 0; line < 6; ++line) engine.TraceWindow.Add("line " + std::to_string(line));
  for (const char* line : {"if: ok", "debug: maybe", "run: \""}) {
    // The line's index, and the line selected after: none, or past the end.
    for (const auto& [index, selected] : {std::pair{4, 4}, {kNoEditorLine, 0}, {40, 0}}) {
      engine.TraceWindow.Select(0);
      Parse(line, 1, index);
      EXPECT_EQ(engine.TraceWindow.Selected(), selected) << line << " " << index;
    }
  }
  Parse("quit", 1, 4);
  EXPECT_EQ(engine.TraceWindow.Selected(), 0);
}

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

TEST_F(InteractiveTest, EmptyAndUnknownLinesSaySoAndQuitOnlyLogs) {
  for (const char* line : {"", "jump: 5", "quit", "wait: 0"}) engine.TraceWindow.Add(line);
  engine.TraceWindow.Select(0);
  RunState& s = engine.state;
  const auto Step = [&] {
    Process_Command(engine, true, s.DebugOn, s.ScriptFileNumber, s.DebugFileNumber, s.LastCommandSucceeded);
  };
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
