#include "environment.h"
#include "engine_fixture.h"

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

}  // namespace
}  // namespace velmora::test
