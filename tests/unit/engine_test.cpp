// The engine's own pieces: numbers, the command line, careful file and
// program operations, the debug log and error report, and the session.
#include <limits>
#include <optional>

#include "about.h"
#include "command_line.h"
#include "debug_log.h"
#include "engine_fixture.h"
#include "error_report.h"
#include "interpreter.h"
#include "numeric.h"
#include "process_arguments.h"
#include "session.h"

namespace velmora::test {
namespace {

TEST(NumericTest, AcceptsSignedDecimalsOnlyAndReadsThem) {
  const std::pair<const char*, double> accepted[] = {{" 2.5 ", 2.5}, {"-2", -2}, {"+7", 7},    {".5", 0.5},
                                                     {"-.5", -0.5},  {"5.", 5},  {"00012", 12}};
  for (const auto& [text, value] : accepted) {
    EXPECT_TRUE(Is_Numeric(text)) << '"' << text << '"';
    EXPECT_EQ(Numeric_Value(text), value) << '"' << text << '"';
  }
  for (const char* text : {"", " ", ".", "-", "1.2.3", "1e3", "1:30", "1,5", "- 1", "0x10", "1 2"}) {
    EXPECT_FALSE(Is_Numeric(text)) << '"' << text << '"';
    EXPECT_EQ(Numeric_Value(text), std::nullopt) << '"' << text << '"';
  }
}

TEST(NumericTest, RoundsHalvesToEvenAndWritesTheShortestDecimal) {
  const std::pair<double, double> cases[] = {{0.5, 0}, {1.5, 2}, {-1.5, -2}, {2.4999, 2}, {2.5001, 3}};
  for (const auto& [value, rounded] : cases) EXPECT_EQ(Round_Half_Even(value), rounded) << value;
  EXPECT_EQ(Shortest_Decimal(2.5, ","), "2,5");
  EXPECT_EQ(Shortest_Decimal(0.0001, "."), "0.0001");  // never an exponent
  EXPECT_EQ(Shortest_Decimal(1e-7, ","), "0,0000001");
}

TEST(RoundedToTest, RoundsHalvesToEvenAndRefusesWhatDoesNotFit) {
  EXPECT_EQ(Rounded_To<std::int32_t>(2147483647.0), 2147483647);
  EXPECT_EQ(Rounded_To<std::int32_t>(-2147483648.4), -2147483648);
  for (double outside : {2147483647.5, -2147483649.0, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_THROW(Rounded_To<std::int32_t>(outside), TrappableError) << outside;
  EXPECT_THROW(Rounded_To<std::int16_t>(32767.5), TrappableError);
}

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

constexpr const char* kSite = "Velmora.(General).Test.Site.1";

// The operation codes are numbers that scripts of the editor keep: the rows
// give them as numbers, not through the code's names.
TEST_F(EngineTest, EveryOperationReportsItsFailureWithTheSystemText) {
  struct Row {
    int operation;
    FileNumber number;
    const char *first, *second, *message;
    long code;
  };
  const Row rows[] = {
      {0, 0, "old.txt", "new.txt", "Unable to Rename old.txt as new.txt -> File not found", 53},
      {1, 0, "gone.*", "", "Unable to Delete gone.* -> File not found", 53},
      {10, 0, "D:\\nope", "", "Unable to Change to Directory:  D:\\nope -> Path not found", 76},
      {20, 3, "gone.vls", "", "Unable to Open gone.vls for Input -> File not found", 53},
      {21, 0, "locked.txt", "", "Unable to Open locked.txt for Output -> Path not found", 76},
      {22, 9, "", "", "Unable to read a line of text -> Bad file name or number", 52},
      {24, 9, "x", "", "Unable to write a line of text -> Bad file name or number", 52},
      {29, 0, "", "", "Unable to Close file -> Device I/O error", 57},  // a file that opens but cannot close
      {30, 1, "missing.exe /q", "", "Unable to execute program:  missing.exe /q -> File not found", 53}};
  host.unopenable = {"D:\\nope", "locked.txt"};
  host.unclosable = {"stuck.txt"};
  host.unstartable = {"missing.exe /q"};
  engine.state.InteractiveSession = true;
  for (const Row& row : rows) {
    FileNumber number = row.number;
    std::string first = row.first, stuck = "stuck.txt";
    if (row.operation == 29) Careful_IO(engine, true, 21, number, stuck, "", kSite, kGoOn);
    const long result = Careful_IO(engine, true, row.operation, number, first, row.second, kSite, kGoOn);
    EXPECT_EQ(Last_Report(), ReportFields(row.code, row.message, kSite, kGoOn));
    EXPECT_EQ(result, row.operation == 30 ? -1 : 0) << row.operation;
    if (row.operation == 20) {
      EXPECT_EQ(number, kNoFile);
    }
  }
}

TEST_F(EngineTest, OperationsReachTheHostAndFilesRoundTripLines) {
  host.files = {{"in.txt", "one\r\ntwo\nthree\rfour"}, {"a.txt", "x"}};
  FileNumber in = 0, out = 0, style = static_cast<FileNumber>(WindowStyle::NormalFocus);
  std::string name = "in.txt", outName = "out.txt", program = "setup.exe /s";
  Careful_IO(engine, false, 20, in, name, "", kSite, kGoOn);
  Careful_IO(engine, false, 21, out, outName, "", kSite, kGoOn);
  EXPECT_EQ(in, 1);  // the lowest free numbers
  EXPECT_EQ(out, 2);
  std::vector<std::string> read;
  for (std::string line; !At_End_Of_File(engine, in); read.push_back(line))
    Careful_IO(engine, false, 22, in, line, "", kSite, kGoOn);
  EXPECT_EQ(read, (std::vector<std::string>{"one", "two", "three", "four"}));
  std::string text = "plain";
  Careful_IO(engine, false, 23, out, text, "", kSite, kGoOn);
  Careful_IO(engine, false, 24, out, text, "", kSite, kGoOn);
  EXPECT_EQ(host.files["out.txt"], "plain\r\n\"plain\"\r\n");
  Careful_IO(engine, false, 29, in, name, "", kSite, kGoOn);
  FileNumber again = 0;
  Careful_IO(engine, false, 20, again, name, "", kSite, kGoOn);
  EXPECT_EQ(again, 1);  // the closed number is free again

  for (auto [operation, first, second] : {std::tuple{2, "a.txt", "b.txt"}, {1, "b.txt", ""}}) {
    std::string text = first;
    Careful_IO(engine, true, operation, style, text, second, kSite, kGoOn);
  }
  EXPECT_GT(Careful_IO(engine, true, 30, style, program, "", kSite, kGoOn), 0);
  EXPECT_EQ(host.operations, (std::vector<std::string>{"copy a.txt b.txt", "delete b.txt"}));
  EXPECT_EQ(host.startedPrograms, std::vector<std::string>{"setup.exe /s"});
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
}

TEST_F(EngineTest, AnUnexpectedErrorInsideIsFatalAtItsOwnLocationAndFileNumbersRunOut) {
  host.throwFromFileOperations = true;
  FileNumber number = 0;  // an operation that reaches the host throws something unforeseen
  std::string first = "a.txt";
  Careful_IO(engine, true, 2, number, first, "b.txt", kSite, kGoOn);
  EXPECT_EQ(Last_Report(),
            ReportFields(5, "Simulated failure", "Velmora.(General).Careful_IO.TrappableErrors.1", kFatal));
  host.throwFromFileOperations = engine.state.StopRunning = false;  // and now run out of file numbers
  for (int i = 0; i < FileTable::kHighest; ++i) {
    std::string name = "f" + std::to_string(i);
    Careful_IO(engine, true, 21, number, name, "", kSite, kGoOn);
  }
  std::string name = "one-too-many";
  Careful_IO(engine, true, 20, number, name, "", kSite, kGoOn);
  EXPECT_EQ(number, kNoFile);
  EXPECT_EQ(Last_Report(), ReportFields(67, "Unable to Open one-too-many for Input -> Too many files", kSite, kGoOn));
}

constexpr const char* kLocation = "Velmora.(General).Parse_Command.UseMouseErrors.1";
constexpr const char* kGoesOn = "Program will continue, but this operation was unsuccessful.";

// An automatic session with its debug file a.vld open, as after the header.
class AutomaticReportTest : public EngineTest {
 protected:
  void SetUp() override { Open_Debug_File(); }
};

// The block's lines are in golden/reports.cases.
TEST_F(AutomaticReportTest, FatalReportClosesTheLogBeepsAndEndsWithStatusOne) {
  const int status = Exit_Status_Of([&] { Report_Error(engine, false, -1, "Illegal characters", "E", kLocation, 0); });
  EXPECT_EQ(status, 1);
  EXPECT_EQ(engine.files.Find(engine.state.DebugFileNumber), nullptr);  // closed before the end
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(AutomaticReportTest, AReportAfterTheRunStoppedLeavesItsBlockOpenAndOneDuringAFatalReportIsDropped) {
  engine.state.StopRunning = true;
  Report_Error(engine, false, 7, "Second", "T", "L.2", kGoOn);
  engine.state.ReportingFatalError = true;
  Report_Error(engine, false, 1, "Dropped", "T", "L.1", kFatal);
  EXPECT_EQ(Log().size(), 7u);  // no closing rule, and nothing of the dropped report
  EXPECT_EQ(Log().back(), kGoesOn);
}

TEST_F(AutomaticReportTest, UnwritableDebugFileEndsTheSessionWithoutEndlessReports) {
  host.unwritable.insert("a.vld");
  EXPECT_EQ(Exit_Status_Of([&] { Report_Error(engine, false, 1, "First", "T", "L.1", kGoOn); }), 1);
}

TEST_F(EngineTest, InteractiveFatalReportStopsTheRunAndShowsTheDebugFrame) {
  FakeSurface surface;
  engine.surface = &surface;
  engine.state.InteractiveSession = true;
  Report_Error(engine, true, -1, "Boom", "T", kLocation, kFatal);
  Trap(engine, true, "Velmora.(General).If_Command.TrappableErrors.1", kGoOn, [] { throw OverflowError(); });
  EXPECT_TRUE(Shown({"Fatal Error:  Boom.", "Error Code:  -1"}));
  EXPECT_TRUE(
      Shown({"Overflow.", "Error Code:  6", "Error Location:  Velmora.(General).If_Command.TrappableErrors.1"}));
  EXPECT_EQ(engine.DebugWindow.Items().back(), kGoesOn);  // a report after the run stopped stays open
  EXPECT_TRUE(engine.state.StopRunning);
  EXPECT_FALSE(engine.state.ReportingFatalError);
  EXPECT_EQ(surface.debugFrameEnabled, 1);
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(EngineTest, DebugLinesGoToFileAndWindowOnlyWhenSwitchedOn) {
  Print_Debug(engine, false, 0, true, "nowhere");  // an automatic session without a file
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
  EXPECT_FALSE(engine.editor.DebugLogHasOutput);
  Open_Debug_File();
  Print_Debug(engine, true, engine.state.DebugFileNumber, false, "hidden");
  Print_Debug(engine, true, engine.state.DebugFileNumber, true, "");
  EXPECT_EQ(host.files["a.vld"], "\r\n");
  EXPECT_EQ(engine.DebugWindow.Items(), Lines{""});
  EXPECT_EQ(engine.DebugWindow.Selected(), 0);
  EXPECT_TRUE(engine.editor.DebugLogHasOutput);
}

// The header's lines are in golden/header.cases, the lines run in golden/flow.cases.
class AutomaticSessionTest : public EngineTest {
 protected:
  ScriptInterpreter interpreter;
  int Start(const std::string& commandLine) {
    host.commandLine = commandLine;
    return Exit_Status_Of([&] { Form_Load(engine, interpreter); });
  }
};

TEST_F(AutomaticSessionTest, RegistersTheFileTypeClosesTheLogAndEndsWithStatusZero) {
  host.programPath = "C:\\My Tools\\velmora.exe";
  host.files["a.vls"] = "# first";
  EXPECT_EQ(Start("\"a.vls\" \"a.vld\""), 0);
  EXPECT_EQ(engine.files.Find(engine.state.DebugFileNumber), nullptr);
  EXPECT_EQ(host.beeps, 1);
  const auto value = [&](const std::string& key) {
    return registry.QueryString(RegistryRoot::ClassesRoot, key, "").value_or("(missing)");
  };
  EXPECT_EQ(value("velmora"), "Velmora Script file");
  EXPECT_EQ(value(".vls"), "velmora");
  EXPECT_EQ(value("velmora\\shell\\open\\command"), "\"C:\\My Tools\\velmora.exe\" \"%1\"");
  EXPECT_EQ(value("velmora\\DefaultIcon"), "C:\\Program Files\\Velmora\\velmora.exe,0");
}

TEST_F(AutomaticSessionTest, AScriptOrLogThatCannotBeOpenedEndsWithStatusOne) {
  EXPECT_EQ(Start("\"gone.vls\" \"a.vld\""), 1);
  EXPECT_EQ(Last_Report(), ReportFields(53, "Unable to Open gone.vls for Input -> File not found",
                                        "Velmora.(General).Initial_Setup.OpenInput.5", kFatal));
  host.files = {{"a.vls", "# x"}};
  host.unopenable.insert("locked.vld");
  engine.state = RunState{};
  EXPECT_EQ(Start("\"a.vls\" \"locked.vld\""), 1);
  EXPECT_EQ(host.files.count("locked.vld"), 0u);
}

TEST_F(AutomaticSessionTest, WithoutBothNamesTheEditorLoadsWithSpeedFactorOne) {
  host.environment["SPEED_FACTOR"] = "4";
  EXPECT_EQ(Start("C:\\s\\setup.vls"), -1);
  EXPECT_EQ(engine.editor.ScriptFileName, "\"C:\\s\\setup.vls\"");
  EXPECT_EQ(engine.state.SpeedFactor, 1.0);
  EXPECT_TRUE(host.files.empty());
}

// Whatever happens to the debug file, the script is read: a script shown
// empty would be saved empty over the real one.
TEST_F(EngineTest, ADebugFileThatCannotBeMadeStillLetsTheScriptLoad) {
  FakeSurface surface;
  engine.surface = &surface;
  engine.state.InteractiveSession = true;
  engine.editor.ScriptFileName = "\"a.vls\"";
  engine.editor.DebugFileName = "a.vld";
  host.files["a.vls"] = "run: \"x\"\r\nQuit\r\n";
  host.unopenable.insert("a.vld");
  RunState& s = engine.state;
  Initial_Setup(engine, true, s.DebugOn, s.StopRunning, s.ScriptFileNumber, s.DebugFileNumber);
  EXPECT_EQ(engine.TraceWindow.Items(), (Lines{Trace_Header_Line(), "run: \"x\"", "Quit"}));
  EXPECT_FALSE(engine.state.StopRunning || engine.state.DebugFileOpen);
  EXPECT_TRUE(Shown({"Info: No debug file: a.vld could not be opened; this log is kept in the window only."}));
}

}  // namespace
}  // namespace velmora::test
