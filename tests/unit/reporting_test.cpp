// The debug log and the error report, in both kinds of session.
#include "about.h"
#include "debug_log.h"
#include "engine_fixture.h"
#include "error_report.h"

namespace velmora::test {
namespace {

constexpr const char* kLocation = "Velmora.(General).Parse_Command.UseMouseErrors.1";

// The framed block of a report, as deployment tools read it from the log.
Lines Block(const std::string& message, long code, const std::string& location, bool fatal, bool closed = true) {
  const std::string rule(77, '-');
  Lines block{"",
              rule,
              Identification_Line(),
              fatal ? "Fatal Error:  " + message + "." : message + ".",
              "Error Code:  " + std::to_string(code),
              "Error Location:  " + location,
              fatal ? "Program will TERMINATE.  This operation was unsuccessful and caused a fatal error."
                    : "Program will continue, but this operation was unsuccessful."};
  if (closed) block.insert(block.end(), {rule, ""});
  return block;
}

// An automatic session with its debug file a.vld open, as after the header.
class AutomaticReportTest : public EngineTest {
 protected:
  void SetUp() override { Open_Debug_File(); }
};

TEST_F(AutomaticReportTest, FatalReportWritesTheWholeBlockClosesTheLogAndEndsWithStatusOne) {
  engine.state.DebugOn = false;  // reports are logged all the same
  Report_Error(engine, false, 53, "Unable to Open x for Input -> File not found", "T", "L.1", kGoOn);
  const int status = Exit_Status_Of([&] { Report_Error(engine, false, -1, "Illegal characters", "E", kLocation, 0); });
  EXPECT_EQ(status, 1);
  EXPECT_EQ(Log(), Joined(Block("Unable to Open x for Input -> File not found", 53, "L.1", false),
                          Block("Illegal characters", -1, kLocation, true)));
  EXPECT_EQ(host.files["a.vld"].substr(host.files["a.vld"].size() - 4), "\r\n\r\n");
  EXPECT_EQ(engine.files.Find(engine.state.DebugFileNumber), nullptr);  // closed before the end
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(AutomaticReportTest, AReportAfterTheRunStoppedLeavesItsBlockOpenAndOneDuringAFatalReportIsDropped) {
  engine.state.StopRunning = true;
  Report_Error(engine, false, 7, "Second", "T", "L.2", kGoOn);
  engine.state.ReportingFatalError = true;
  Report_Error(engine, false, 1, "Dropped", "T", "L.1", kFatal);
  EXPECT_EQ(Log(), Block("Second", 7, "L.2", false, false));
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
  EXPECT_EQ(engine.DebugWindow.Items(),
            Joined(Block("Boom", -1, kLocation, true),
                   Block("Overflow", 6, "Velmora.(General).If_Command.TrappableErrors.1", false, false)));
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

}  // namespace
}  // namespace velmora::test
