// Environment references, block pairing, wintree lines read back, and why a
// program did not start.
#include "engine_fixture.h"
#include "environment.h"
#include "find_window.h"
#include "findwindow_line.h"
#include "parser.h"
#include "preprocessor.h"
#include "simple_commands.h"
#include "start_info.h"

namespace velmora::test {
namespace {

class EnvironmentTest : public InteractiveTest {
 protected:
  void SetUp() override {
    host.environment = {{"A", "1"},   {"B", "two"},        {"C", "3"}, {"WINDIR", "C:\\WINDOWS"},
                        {"Q", "`A`"}, {"OS", "Windows_NT"}};
  }
};

TEST_F(EnvironmentTest, ExpandsReferencesAndLogsTheConversion) {
  // The text, what it expands to, and the count line (nullptr: nothing logged).
  const std::tuple<const char*, const char*, const char*> cases[] = {
      {"plain text", "plain text", nullptr},
      {"a``b", "a`b", nullptr},
      {"`````", "```", nullptr},
      {"5` to go", "5` to go", nullptr},
      {"`UNDEFINED_NAME`x", "x", "One (1) Environment Variable Used.  Conversion follows:"},
      {"`WINDIR`\\SYSTEM", "C:\\WINDOWS\\SYSTEM", "One (1) Environment Variable Used.  Conversion follows:"},
      {"```A`", "`1", "One (1) Environment Variable Used.  Conversion follows:"},
      {"x\nA\ny", "x1y", "One (1) Environment Variable Used.  Conversion follows:"},
      {"`A``B", "`A`B", nullptr},
      {"`A`-`B`", "1-two", "Two (2) Environment Variables Used.  Conversion follows:"},
      {"`A` and `B` and `C`", "1 and two and 3", "Three (3) Environment Variables Used.  Conversion follows:"}};
  for (const auto& [text, expanded, countLine] : cases) {
    engine.DebugWindow.Clear();
    EXPECT_EQ(Convert_EnvVars(engine, true, text), expanded) << text;
    const Lines logged = {countLine ? countLine : "", std::string("     ") + text, std::string(" --> ") + expanded};
    EXPECT_EQ(engine.DebugWindow.Items(), countLine ? logged : Lines{}) << text;
  }
}

TEST_F(EnvironmentTest, CountWordsGoUpToNineteenThenDigitsAndMoreThan255ReferencesOverflow) {
  const std::pair<int, const char*> cases[] = {{19, "Nineteen (19) Environment Variables Used.  Conversion follows:"},
                                               {20, "20 Environment Variables Used.  Conversion follows:"},
                                               {256, ""}};
  for (const auto& [count, line] : cases) {
    std::string text, expanded;
    for (int i = 0; i < count; ++i) text += "`A`,", expanded += "1,";
    engine.DebugWindow.Clear();
    if (count > 255) {
      Convert_EnvVars(engine, true, text);
      EXPECT_EQ(Last_Report(),
                ReportFields(6, "Overflow", "Velmora.(General).Convert_EnvVars.TrappableErrors.1", kFatal));
      continue;
    }
    EXPECT_EQ(Convert_EnvVars(engine, true, text), expanded);
    EXPECT_EQ(engine.DebugWindow.Item(0), line);
  }
}

class PreprocessorTest : public EngineTest {
 protected:
  // Runs the pass over the lines; the engine is interactive unless told
  // otherwise, so that a fatal report stops the run instead of the process.
  void Preprocess(const Lines& lines, bool interactive = true, long selected = -1) {
    engine.state.InteractiveSession = interactive;
    engine.state.DebugOn = true;
    engine.state.LastCommandSucceeded = true;
    engine.TraceWindow.Clear();
    engine.DebugWindow.Clear();
    for (const auto& line : lines) engine.TraceWindow.Add(line);
    if (selected >= 0) engine.TraceWindow.Select(selected);
    Preprocess_Commands(engine, interactive, engine.state.DebugOn, true, engine.state.LastCommandSucceeded);
  }
  const Lines& Table() const { return engine.LogicalControls.Items(); }
  const Lines& Trace() const { return engine.TraceWindow.Items(); }
};

TEST_F(PreprocessorTest, PairsBlocksIntoTableItems) {
  const std::pair<Lines, Lines> cases[] = {
      {{"wait: 1", "while: succeeded", "if: failed", "wait: 1", "endif", "repeat", "until: failed", "endwhile",
        "if: failed", "wait: 1", "else", "while: failed", "endwhile", "endif"},
       {"we1,7", "ix2;0,4", "ru5,6", "ie8;10,13", "we11,12"}},
      {{"repeat", "repeat", "until: failed", "until: failed"}, {"ru0,3", "ru1,2"}},
      // A run does not look for an if that passed its else and has no endif.
      {{"if: failed", "else"}, {"ie0;1"}},
      {{"# just", "", "wait: 1"}, {}}};
  for (const auto& [script, table] : cases) {
    Preprocess(script, false);
    EXPECT_EQ(Table(), table) << script.front();
    EXPECT_FALSE(engine.state.StopRunning);
  }
}

TEST_F(PreprocessorTest, IndentsBlockBodiesButNeverQuit) {
  Preprocess({"  while: failed ", "if: failed", "wait: 1", " # inner", "quit", "endif", "endwhile", "   # note"},
             false);
  EXPECT_EQ(Trace(), (Lines{"while: failed", "  if: failed", "    wait: 1", "    # inner", "quit", "  endif",
                            "endwhile", "# note"}));  // and no lines set in
}

TEST_F(PreprocessorTest, UnknownWordIsReportedMarkedAndLeftOutOfBlocks) {
  Preprocess({"if: failed", "jump: 5", "endif", "run:"});
  EXPECT_EQ(Trace(), (Lines{"if: failed", "# ERROR! # jump: 5", "endif", "", "# ERROR! # run:"}));
  EXPECT_EQ(Table(), Lines{"ix0;0,2"});
  EXPECT_EQ(
      Last_Report(),
      ReportFields(-1, "Unknown Command:  run:", "Velmora.(General).Preprocess_Command.UnknownCommandError.1", kGoOn));
  EXPECT_FALSE(engine.state.StopRunning);
  EXPECT_TRUE(engine.state.LastCommandSucceeded);
}

TEST_F(PreprocessorTest, StopsThePassAtTheFirstBlockError) {
  const std::string kCross = " is on a different level then its matching ", kX = "LogicalBlocksCrossError.";
  const std::tuple<Lines, long, std::string, std::string> rows[] = {
      {{"repeat", "while: failed", "until: failed", "endwhile"}, 2, kX + "1", "UNTIL on line 3" + kCross + "REPEAT!"},
      {{"wait: 1", "until: failed"}, 1, "NoMatchingRepeatError.1", "UNTIL on line 2 has no matching REPEAT!"},
      {{"if: failed", "while: failed", "else"}, 2, kX + "2", "ELSE on line 3" + kCross + "IF!"},
      {{"else"}, 0, "NoMatchingIfError.1", "ELSE on line 1 has no matching IF!"},
      {{"if: failed", "repeat", "endif"}, 2, kX + "3", "ENDIF on line 3" + kCross + "IF!"},
      {{"endif"}, 0, "NoMatchingIfError.2", "ENDIF on line 1 has no matching IF!"},
      // The else part stands at the level of its if, so inside another block
      // the endif of an if with an else is one level too shallow.
      {{"while: failed", "if: failed", "else", "endif", "endwhile"}, 3, kX + "3", "ENDIF on line 4" + kCross + "IF!"},
      {{"while: failed", "if: succeeded", "endwhile", "endif"}, 2, kX + "4", "ENDWHILE on line 3" + kCross + "WHILE!"},
      {{"test: \"a\" = \"a\"", "if: failed"}, 1, "NoMatchingEndIfError.1", "IF on line 2 has no matching ENDIF!"},
      {{"while: failed", "if: failed", "endif"},
       0,
       "NoMatchingEndWhileError.1",
       "WHILE on line 1 has no matching ENDWHILE!"},
      {{"repeat", "while: failed"}, 0, "NoMatchingUntilError.1", "REPEAT on line 1 has no matching UNTIL!"}};
  for (const auto& [script, selected, location, message] : rows) {
    Preprocess(script);
    EXPECT_EQ(Last_Report(), ReportFields(-1, message, "Velmora.(General).Preprocess_Command." + location, kFatal));
    EXPECT_EQ(engine.TraceWindow.Selected(), selected) << message;
    EXPECT_TRUE(engine.state.StopRunning);
    EXPECT_FALSE(engine.state.LastCommandSucceeded);
    engine.state.StopRunning = false;
  }
  // The later lines stay as they were, and an automatic session ends.
  Preprocess({"if: failed", "endwhile", "  wait: 1  "});
  EXPECT_EQ(Trace(), (Lines{"if: failed", "endwhile", "", "  wait: 1  "}));
  EXPECT_EQ(Exit_Status_Of([&] { Preprocess({"endif"}, false); }), 1);
}

TEST_F(PreprocessorTest, InteractiveReformatSetsBlocksApartWithEmptyLines) {
  Preprocess({"wait: 1", "if: failed", "wait: 2", "endif", "wait: 3", "test: \"a\" = \"b\"", "while: failed", "repeat",
              "until: failed", "endwhile", "else: x"});
  EXPECT_EQ(Trace(), (Lines{"wait: 1", "", "if: failed", "  wait: 2", "endif", "", "wait: 3", "test: \"a\" = \"b\"",
                            "while: failed", "  repeat", "  until: failed", "endwhile", "else: x"}));
  // The else after the endwhile has no if: the reformatting is still done before the error.
  EXPECT_EQ(Table(), (Lines{"ix2;0,4", "we8,11", "ru9,10"}));
}

TEST_F(PreprocessorTest, FirstLineWithAParameterProblemIsSelectedAtTheEnd) {
  Preprocess({"wait: 1", "debug: maybe", "debug: neither", "wait: 2"});
  EXPECT_EQ(engine.TraceWindow.Selected(), 1);
  EXPECT_FALSE(engine.state.StopRunning);
}

using FindWindowLineTest = EngineTest;

// Every line wintree prints is read back by the parser and the run's own
// level reader into the chain it was made from; a chain that no line can
// hold gets none.
TEST_F(FindWindowLineTest, PrintedLinesReadBackAsTheirWindows) {
  using Chain = std::vector<WindowLevelText>;
  const Chain kSetup = {{"Setup ", "#32770", 0}, {"&Next >", "Button", 12}};
  const std::pair<const char*, Chain> printed[] = {
      {"a trailing blank and an access key", kSetup},
      {"backquotes, which a run would expand", {{"`TEMP` `` `", "Tk`App", 0}}},
  };
  for (const auto& [name, chain] : printed) {
    SCOPED_TRACE(name);
    const auto line = FindWindow_Line(chain);
    ASSERT_TRUE(line);
    ParsedCommand parsed;
    // As the editor reads it: a refused line is reported, not the end of the program.
    ASSERT_TRUE(Parse_Command(engine, true, *line, 1.0, parsed, kNoEditorLine));
    ASSERT_FALSE(parsed.ParseError) << *line;
    const auto levels = Read_Window_Levels(Convert_EnvVars(engine, true, parsed.Parameters));
    ASSERT_EQ(levels.size(), chain.size());
    for (std::size_t i = 0; i < chain.size(); ++i) {
      EXPECT_EQ(levels[i].title, chain[i].title);
      EXPECT_EQ(levels[i].className, chain[i].className);
      EXPECT_EQ(levels[i].childId, chain[i].id);
    }
  }
  const std::pair<const char*, Chain> left_out[] = {
      {"a text with a line break", {{"Setup", "#32770", 0}, {"Line 1\r\nLine 2", "Static", 1001}}},
      {"a double quote", {{"Say \"yes\"", "#32770", 0}}},
      {"a negative identifier, which the parser refuses", {{"Setup", "#32770", 0}, {"OK", "Button", -1}}},
      {"more levels than a line counts", Chain(256, {"Pane", "Frame", 1})},
  };
  for (const auto& [name, chain] : left_out) EXPECT_FALSE(FindWindow_Line(chain)) << name;
}

using Kind = ProgramFile::Kind;

// After the report, which stays as it is, one line says why in words; a start
// that the system's text explains well enough gets none. Error codes are
// Windows's; 0 means the program started.
TEST_F(InteractiveTest, RunExplainsAFailedStartOrA32BitProgramThatCannotRunInOneInfoLine) {
  const ProgramFile x86NoSupport{Kind::Program, kMachineI386, false}, x86{Kind::Program, kMachineI386, true},
      x64{Kind::Program, kMachineAmd64, true}, arm64{Kind::Program, 0xAA64, false}, document{Kind::NotAProgram};
  const std::string k32Bit =
      " is a 32-bit program, and this system cannot run 32-bit programs (under Wine: install Wine's 32-bit part, "
      "Debian's package wine32:i386).";
  const struct {
    std::string line, file;  // the command line; the file that InspectProgram finds there
    ProgramFile found;
    long code;
    std::string info;  // "" for none
  } rows[] = {
      {"setup.exe /S", "setup.exe", x86NoSupport, 1359, "Info: setup.exe" + k32Bit},
      {"setup.exe", "setup.exe", x86NoSupport, 0, "Info: setup.exe" + k32Bit},  // Wine says it started
      {"setup.exe", "setup.exe", x86, 1392, ""},
      {"nosuch.exe /q",
       "",
       {},
       2,
       "Info: No program nosuch.exe was found in Velmora's folder, the current folder, the Windows folders or a "
       "folder of the PATH."},
      {"C:\\Gone\\setup.exe", "", {}, 3, ""},  // the path says where it looked
      {"C:\\Setups", "C:\\Setups", {Kind::Folder}, 2, "Info: C:\\Setups is a folder, not a program."},
      {"readme.txt", "readme.txt", document, 193,
       "Info: readme.txt is not a Windows program (it may be a document, an old 16-bit program or a damaged file); "
       "run starts programs only."},
      {"App.MSI", "App.MSI", document, 193,
       "Info: App.MSI is a Windows Installer package, not a program: start it with msiexec /i."},
      {"arm.exe", "arm.exe", arm64, 216,
       "Info: arm.exe is a program for another processor (machine 0xAA64), which this system cannot run."},
      {"setup.exe", "setup.exe", x64, 5,
       "Info: setup.exe may not be run by this user: the file's permissions or a security policy forbid it."},
      {"setup.exe", "setup.exe", x64, 740,
       "Info: setup.exe asks for administrator rights: run Velmora as administrator to start it."},
  };
  for (const auto& row : rows) {
    host.programFiles = {{row.file, row.found}};
    host.startFailures.clear();
    if (row.code) host.startFailures[row.line] = {row.code, "System text"};
    engine.DebugWindow.Clear();
    bool succeeded = row.code != 0;
    RunProgram_Command(engine, true, row.line, succeeded);
    // The report, when the start failed, is all that comes before.
    const Lines& shown = engine.DebugWindow.Items();
    EXPECT_EQ(shown.empty() ? "" : shown.back(), row.info) << row.line;
    if (row.code) {
      EXPECT_EQ(Last_Report(), ReportFields(row.code, "Unable to execute program:  " + row.line + " -> System text",
                                            "Velmora.(General).RunProgram_Command.Shell.1", kGoOn));
    }
    EXPECT_EQ(succeeded, row.code == 0) << row.line;
  }
}

// As starting a program reads it: a quoted name ends at its quote, an
// unquoted one may run on over blanks.
TEST(ProgramCandidatesTest, AreTheQuotedNameOrEveryRunOfWordsFromTheStart) {
  const struct {
    const char* line;
    std::vector<std::string> candidates;
  } rows[] = {
      {"\"C:\\My Apps\\setup.exe\" /S", {"C:\\My Apps\\setup.exe"}},
      {"C:\\My Apps\\setup.exe  /S", {"C:\\My", "C:\\My Apps\\setup.exe", "C:\\My Apps\\setup.exe  /S"}},
      {"\tsetup.exe", {"setup.exe"}},
  };
  for (const auto& row : rows) EXPECT_EQ(Program_Candidates(row.line), row.candidates) << row.line;
}

}  // namespace
}  // namespace velmora::test
