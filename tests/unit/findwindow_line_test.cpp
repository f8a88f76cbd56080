#include "findwindow_line.h"

#include "engine_fixture.h"
#include "environment.h"
#include "find_window.h"
#include "parser.h"

namespace velmora::test {
namespace {

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

}  // namespace
}  // namespace velmora::test
