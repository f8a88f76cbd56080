// Block pairing, wintree lines read back, and where a program's name ends
// on its command line. Logs of whole runs are in golden/*.cases.
#include "engine_fixture.h"
#include "environment.h"
#include "find_window.h"
#include "findwindow_line.h"
#include "parser.h"
#include "preprocessor.h"
#include "start_info.h"

namespace velmora::test {
namespace {

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
  EXPECT_FALSE(engine.state.StopRunning);
  EXPECT_TRUE(engine.state.LastCommandSucceeded);
}

// The reports are in golden/blocks.cases; here the line left selected.
TEST_F(PreprocessorTest, StopsThePassAtTheFirstBlockError) {
  const std::pair<Lines, long> rows[] = {{{"repeat", "while: failed", "until: failed", "endwhile"}, 2},
                                         {{"wait: 1", "until: failed"}, 1},
                                         {{"else"}, 0},
                                         {{"while: failed", "if: failed", "else", "endif", "endwhile"}, 3},
                                         {{"test: \"a\" = \"a\"", "if: failed"}, 1},
                                         {{"while: failed", "if: failed", "endif"}, 0}};
  for (const auto& [script, selected] : rows) {
    Preprocess(script);
    EXPECT_EQ(engine.TraceWindow.Selected(), selected) << script.back();
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
