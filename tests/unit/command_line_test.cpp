#include "command_line.h"
#include "engine_fixture.h"
#include "process_arguments.h"

namespace velmora::test {
namespace {

struct CommandLineCase {
  const char* line;
  const char* script;                                 // expected script name ("(kept)" when untouched)
  const char* debug;                                  // expected debug name ("(kept)" when untouched)
  std::string errorLocation = "", errorMessage = "";  // none when the line is well formed
};

constexpr const char* kKept = "(kept)";
const std::string kBadly = "Badly formed command line arguements found:  ";
const std::string kOneQuote = "Only 1 Quote (\") found on the Command Line:  ";

TEST_F(EngineTest, ParseCommandLineSplitsNamesOrReportsTheFault) {
  const CommandLineCase cases[] = {{R"("C:\s\setup.vls" "C:\s\setup.vld")", R"(C:\s\setup.vls)", R"(C:\s\setup.vld)"},
                                   {R"(C:\s\setup.vls)", R"(C:\s\setup.vls)", kKept},
                                   {R"("C:\s\setup.vls" nofile)", R"(C:\s\setup.vls)", "nofile"},
                                   {R"("a.vls" C:\My Logs\a.vld )", "a.vls", R"(C:\My Logs\a.vld)"},
                                   {R"(  "  a b.vls  "   "  c.vld  " )", "a b.vls", "c.vld"},
                                   {R"("a.vls" junk "b.vld)", "a.vls", "b.vld"},
                                   {R"("a.vls"x)", "a.vls", "x"},
                                   {"   ", "", kKept},
                                   {R"(")", kKept, kKept, "BadCommandLineError.3", kBadly},
                                   {R"("C:\s\setup.vls)", kKept, kKept, "BadQuotesError.1", kOneQuote},
                                   {R"("a.vls" log")", "a.vls", kKept, "BadCommandLineError.1", kBadly}};
  engine.state.InteractiveSession = true;  // so a report stops the run instead of ending the process
  for (const CommandLineCase& c : cases) {
    host.commandLine = c.line;  // the report quotes the whole command line
    std::string script = kKept, debug = kKept;
    const bool ok = Parse_CommandLine(engine, c.line, script, debug);
    EXPECT_EQ(script, c.script) << c.line;
    EXPECT_EQ(debug, c.debug) << c.line;
    EXPECT_EQ(ok, c.errorLocation.empty()) << c.line;
    const std::string where = "Velmora.(General).Parse_CommandLine." + c.errorLocation;
    if (!ok) {
      EXPECT_EQ(Last_Report(), ReportFields(-1, c.errorMessage + c.line, where, kFatal));
    }
    EXPECT_EQ(engine.reports.made, ok ? 0 : 1) << c.line;
    engine.reports.made = 0;
  }
}

TEST(ArgumentsOfTest, DropsTheProgramNameOnly) {
  const std::pair<const char*, const char*> cases[] = {
      {R"("C:\Program Files\Velmora\velmora.exe" "a.vls" "a.vld")", R"("a.vls" "a.vld")"},
      {R"(velmora.exe   "a.vls"  nofile )", R"("a.vls"  nofile )"},
      {R"(  "velmora.exe")", ""},
      {"velmora.exe\t\"a b.vls\"", "\"a b.vls\""}};
  for (const auto& [full, expected] : cases) EXPECT_EQ(Arguments_Of(full), expected) << full;
}

}  // namespace
}  // namespace velmora::test
