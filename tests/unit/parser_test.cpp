#include "parser.h"
#include "engine_fixture.h"

namespace velmora::testing {
namespace {

const std::string kWhere = "Velmora.(General).Parse_Command.";
const std::string kTrapWhere = kWhere + "TrappableErrors.1";
const std::string kSyntax =
    "<##>, \"<WindowTitle>\", \"<WindowClass>\", <ChildID>, ..., <RelativeX>, <RelativeY>, <MM.SS>";
const std::string kQuoteUsage = "Quote Expected.  " + kSyntax;
const std::string kCommaUsage = "Comma Expected.  " + kSyntax;
const std::string kChildId = "ChildID must be a positive integer.";
const std::string kCount = "Number of Windows to traverse should be a positive integer.";
const std::string kMinutes = "Wait Time minutes specifed must be less then '99999'.";
const std::string kOneWindow = "findwindow: 1, \"a\", \"b\", ";

// Parses lines as the editor does, each with a fresh debug window.
class ParserTest : public EngineTest {
 protected:
  void SetUp() override { engine.state.InteractiveSession = true; }

  ParsedCommand Parse(std::string_view line, double speed = 1, std::int16_t index = kNoEditorLine,
                      bool interactive = true) {
    engine.DebugWindow.Clear();
    engine.state.StopRunning = false;
    ParsedCommand command;
    accepted = Parse_Command(engine, interactive, line, speed, command, index);
    return command;
  }

  bool accepted = false;
};

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
      {"findwindow: 1, a\", \"b\", 0, 0, 0, 1.00", "FindWindowErrors.4", kQuoteUsage},
      {"findwindow: 1, \"a, b, 0, 0, 0, 1.00", "FindWindowErrors.5", kQuoteUsage},
      {"findwindow: 1, \"a\" \"b\", 0, 0, 0, 1.00", "FindWindowErrors.5", kCommaUsage},
      {"findwindow: 2, \"a\", \"b\", 0, 0", "FindWindowErrors.6", kCommaUsage},
      {kOneWindow + "x, 0, 0, 1.00", "FindWindowErrors.7", kChildId},
      {kOneWindow + "-1, 0, 0, 1.00", "FindWindowErrors.8", kChildId},
      {"wait: 123456", "FindWindow_Or_WaitErrors.1", kMinutes},
      {"wait: 123456.30", "FindWindow_Or_WaitErrors.2", kMinutes},
      {"wait: 1.123456", "FindWindow_Or_WaitErrors.3", "Wait Time seconds specifed must be less then '99999'."},
      {"wait: 1:30", "FindWindow_Or_WaitErrors.4", "Wait Time specifed is NOT numeric."}};
  for (const auto& [line, location, detail] : rows) {
    const ParsedCommand command = Parse(line);
    EXPECT_TRUE(accepted) << line;
    EXPECT_TRUE(command.ParseError) << line;
    EXPECT_EQ(engine.DebugWindow.Items(), Fatal_Block("Invalid Parameters:  " + detail, -1, kWhere + location)) << line;
    EXPECT_TRUE(engine.state.StopRunning) << line;
  }
}

TEST_F(ParserTest, AcceptedLinesGiveTheirCodeWordAndParametersWithoutAnyReport) {
  struct Row {
    std::string line;
    CommandCode code;
    std::string word, parameters;
    std::int32_t seconds = 0;
  };
  // Findwindow parameters come back normalised level by level.
  const Row rows[] = {
      {"findwindow: 1, \"Setup\", \"#32770\", 0, 0.50, .25, 1.00", kFindWindowCommand, "|findwindow|",
       "1, \"Setup\", \"#32770\", 0, 0.5, 0.25, ", 60},
      {"findwindow: 2, \"Setup\", \"#32770\", 0, 0, 0, \"Next >\", \"Button\", 1, 0.5, 0.5, 0.30", kFindWindowCommand,
       "|findwindow|", "2, \"Setup\", \"#32770\", 0, 0, 0, \"Next >\", \"Button\", 1, 0.5, 0.5, ", 30},
      {"FindWindow:02 ,\"  Title \",\"\",+007,1,2,\"x\" , \"y\" , -0 , 3 , 4 , 2", kFindWindowCommand, "|findwindow|",
       "2, \"  Title \", \"\", 7, 1, 2, \"x\", \"y\", 0, 3, 4, ", 120},
      {"run: \"C:\\SETUP\\SETUP.EXE /Q\"", kRunCommand, "|run|", "C:\\SETUP\\SETUP.EXE /Q"},
      {"sendkeys: \"{TAB}{TAB}~\"", kSendKeysCommand, "|sendkeys|", "{TAB}{TAB}~"},
      {"test: \"WINDIR\" = \"C:\\WINDOWS\"", kTestCommand, "|test|", "WINDIR\nC:\\WINDOWS"},
      {"if: failed", kIfCommand, "|if|", "failed"},
      {"If: Succeeded and more", kIfCommand, "|if|", "succeeded"},
      {"while: SUCCEEDED", kWhileCommand, "|while|", "succeeded"},
      {"usemouse: nc, 0, 0", kUseMouseCommand, "|usemouse|", "nc"},
      {"UseMouse: SL, 65535, 65535", kUseMouseCommand, "|usemouse|", "sl"},
      {"sendbuttons: DLxyz", kSendButtonsCommand, "|sendbuttons|", "dl"},
      {"wait: 0.30", kWaitCommand, "|wait|", "0.30", 30},
      {"debug: OFF", kDebugCommand, "|debug|", "off"},
      {"quit", kQuitCommand, "|quit|", ""},
      {"else: whatever", kElseCommand, "|else|", ""},
      {"endif", kEndIfCommand, "|endif|", ""},
      {"ENDIF: anything", kEndIfCommand, "|endif|", ""},
      {" Repeat ", kRepeatCommand, "|repeat|", ""},
      {"", kBlankLine, "", ""},
      {"# run: x", kCommentLine, "", "run: x"},
      {"  #x", kCommentLine, "", "x"},
      {">>> quit", kQuitCommand, "|quit|", ""},  // the editor reads through the breakpoint mark
      {"  >>>run: \"x\"", kRunCommand, "|run|", "x"},
      {">>> # note", kCommentLine, "", "note"}};
  for (const Row& row : rows) {
    const ParsedCommand command = Parse(row.line);
    EXPECT_TRUE(accepted) << row.line;
    EXPECT_EQ(command.CommandCode, row.code) << row.line;
    EXPECT_EQ(command.CommandWord, row.word) << row.line;
    EXPECT_EQ(command.Parameters, row.parameters) << row.line;
    EXPECT_EQ(command.TimeOut, row.seconds) << row.line;
    EXPECT_FALSE(command.ParseError) << row.line;
    EXPECT_TRUE(engine.DebugWindow.Items().empty()) << row.line;
  }
}

TEST_F(ParserTest, UnknownWordsAndMissingParametersGiveCode255AndAreLeftToTheCaller) {
  const std::pair<const char*, const char*> rows[] = {
      {"jump: 5", "jump"},     {"  JUMP  ", "jump"},           {"run:", "|run|"},
      {"Wait :   ", "|wait|"}, {"findwindow", "|findwindow|"}, {"run sendkeys: \"x\"", "run sendkeys"},
      {": run", ""},           {"\trun: \"x\"", "\trun"},      {">>> quit", ">>> quit"}};
  for (const auto& [line, word] : rows) {
    // The breakpoint mark means nothing outside the editor.
    const ParsedCommand command = Parse(line, 1, kNoEditorLine, false);
    EXPECT_FALSE(accepted) << line;
    EXPECT_EQ(command.CommandCode, kUnknownCommand) << line;
    EXPECT_EQ(command.CommandWord, word) << line;
    EXPECT_FALSE(command.ParseError) << line;
  }
  EXPECT_TRUE(engine.DebugWindow.Items().empty());
  EXPECT_TRUE(host.files.empty());
}

TEST_F(ParserTest, TimesAreSecondsScaledOnlyWhenWrittenWithAFullStop) {
  const std::tuple<const char*, double, std::int32_t> rows[] = {
      {"1.30", 1, 90},  {"1.30", 2, 180}, {"0.10", 1.5, 15}, {"2", 3, 120},         {"5.", 2, 300},
      {"0.05", 2, 10},  {"0.90", 1, 90},  {".30", 1, 30},    {"1.5", 1.5, 98},      {"0.05", 2.5, 12},
      {"0.03", 0.5, 2}, {"0.01", 0.5, 0}, {"0", 2, 0},       {"99999", 1, 5999940}, {"99999.99999", 1, 6099939},
      {"+1.00", 1, 60}, {"3", 0.1, 180}};
  for (const auto& [time, speed, seconds] : rows) {
    const ParsedCommand wait = Parse(std::string("   WAIT :  ") + time + "  ", speed);
    EXPECT_EQ(wait.CommandCode, kWaitCommand) << time;
    EXPECT_EQ(wait.TimeOut, seconds) << "wait: " << time << " x" << speed;
    const ParsedCommand find = Parse(kOneWindow + "0, 0, 0, " + time, speed);
    EXPECT_EQ(find.TimeOut, seconds) << "findwindow: " << time << " x" << speed;
    EXPECT_TRUE(engine.DebugWindow.Items().empty()) << time;
  }
}

// Lines that cannot even be cut into their pieces fail in the parser's own trap.
TEST_F(ParserTest, MalformedLinesAreTrappedAndNotAccepted) {
  struct Row {
    std::string line;
    double speed;
    long code;
    std::string error;
  };
  const std::string kCut = "Invalid procedure call or argument";
  const Row rows[] = {{"run: \"", 1, 5, kCut},
                      {kOneWindow + "0, 0, 0 1.00", 1, 5, kCut},
                      {kOneWindow + "0, 0", 1, 5, kCut},
                      {"findwindow: 256, \"a\", \"b\", 0, 0, 0, 1.00", 1, 6, "Overflow"},
                      {"wait: 99999.0", 1e6, 6, "Overflow"}};
  for (const Row& row : rows) {
    const ParsedCommand command = Parse(row.line, row.speed);
    EXPECT_FALSE(accepted) << row.line;
    EXPECT_EQ(command.CommandCode, kUnknownCommand) << row.line;
    EXPECT_TRUE(command.ParseError) << row.line;
    EXPECT_EQ(engine.DebugWindow.Items(),
              Fatal_Block("Invalid Parameters:  " + row.error + " in line:  " + row.line, row.code, kTrapWhere))
        << row.line;
  }
}

TEST_F(ParserTest, AnUnknownDebugStateIsLoggedAndTakenAsOn) {
  engine.state.DebugOn = true;
  ParsedCommand command = Parse("debug: maybe");
  EXPECT_TRUE(accepted);
  EXPECT_TRUE(command.ParseError);
  EXPECT_EQ(command.Parameters, "on");
  EXPECT_EQ(engine.DebugWindow.Items(),
            std::vector<std::string>{"Info: Debug state 'off' was not specified so ON is assumed!"});
  EXPECT_FALSE(engine.state.StopRunning);  // logged, not reported

  engine.state.DebugOn = false;
  command = Parse("debug: maybe");
  EXPECT_TRUE(command.ParseError);
  EXPECT_TRUE(engine.DebugWindow.Items().empty());
}

TEST_F(ParserTest, AFailedLineIsSelectedInTheTraceWindowUnlessItHasNoEditorLine) {
  for (int line = 0; line < 6; ++line) engine.TraceWindow.Add("line " + std::to_string(line));
  const char* failing[] = {"if: ok", "debug: maybe", "run: \""};
  for (const char* line : failing) {
    engine.TraceWindow.Select(0);
    Parse(line, 1, 4);
    EXPECT_EQ(engine.TraceWindow.Selected(), 4) << line;
    engine.TraceWindow.Select(0);
    Parse(line, 1, kNoEditorLine);
    EXPECT_EQ(engine.TraceWindow.Selected(), 0) << line;
    Parse(line, 1, 40);  // past the end: nothing to show, the failure is still reported
    EXPECT_EQ(engine.TraceWindow.Selected(), 0) << line;
  }
  EXPECT_FALSE(engine.DebugWindow.Items().empty());
  Parse("quit", 1, 4);
  EXPECT_EQ(engine.TraceWindow.Selected(), 0);
}

}  // namespace
}  // namespace velmora::testing
