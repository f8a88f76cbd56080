// Script lines parsed, then run: what the logs of golden/*.cases cannot show.
#include "engine_fixture.h"
#include "interpreter.h"
#include "parser.h"
#include "simple_commands.h"

namespace velmora::test {
namespace {

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

// Wait times are in golden/times.cases; findwindow reads its own the same way.
TEST_F(ParserTest, FindWindowTimesAreSecondsScaledOnlyWhenWrittenWithAFullStop) {
  const std::tuple<const char*, double, std::int32_t> rows[] = {
      {"1.30", 2, 180}, {"2", 3, 120}, {"0.05", 2.5, 12}, {"99999.99999", 1, 6099939}};
  for (const auto& [time, speed, seconds] : rows) {
    EXPECT_EQ(Parse(kOneWindow + "0, 0, 0, " + time, speed).TimeOut, seconds) << "findwindow " << time;
    EXPECT_EQ(Reports(), 0) << time;
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
