#include "preprocessor.h"
#include "engine_fixture.h"

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

}  // namespace
}  // namespace velmora::test
