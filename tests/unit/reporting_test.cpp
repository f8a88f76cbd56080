// The debug log and the error report, in both kinds of session.
#include "debug_log.h"
#include "engine_fixture.h"
#include "error_report.h"

namespace velmora::testing {
namespace {

constexpr const char* kLocation = "Velmora.(General).Parse_Command.UseMouseErrors.1";

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
  EXPECT_EQ(Log(), Joined(Go_On_Block("Unable to Open x for Input -> File not found", 53, "L.1"),
                          Fatal_Block("Illegal characters", -1, kLocation)));
  EXPECT_EQ(host.files["a.vld"].substr(host.files["a.vld"].size() - 4), "\r\n\r\n");
  EXPECT_EQ(engine.files.Find(engine.state.DebugFileNumber), nullptr);  // closed before the end
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(AutomaticReportTest, AReportAfterTheRunStoppedLeavesItsBlockOpenAndOneDuringAFatalReportIsDropped) {
  engine.state.StopRunning = true;
  Report_Error(engine, false, 7, "Second", "T", "L.2", kGoOn);
  engine.state.ReportingFatalError = true;
  Report_Error(engine, false, 1, "Dropped", "T", "L.1", kFatal);
  EXPECT_EQ(Log(), Go_On_Block("Second", 7, "L.2", false));
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
            Joined(Fatal_Block("Boom", -1, kLocation),
                   Go_On_Block("Overflow", 6, "Velmora.(General).If_Command.TrappableErrors.1", false)));
  EXPECT_TRUE(engine.state.StopRunning);
  EXPECT_FALSE(engine.state.ReportingFatalError);
  EXPECT_EQ(surface.debugFrameEnabled, 1);
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(EngineTest, DebugLinesGoToFileAndWindowOnlyWhenSwitchedOn) {
  FakeSurface surface;  // 7 pixels a character, list 300 pixels wide
  engine.surface = &surface;
  Print_Debug(engine, false, 0, true, "nowhere");  // an automatic session without a file
  EXPECT_EQ(engine.DebugWindow.Count(), 0u);
  EXPECT_FALSE(engine.editor.DebugLogHasOutput);
  // The horizontal extent follows only lines wider than the list.
  const std::pair<std::size_t, long> steps[] = {{10, 70}, {50, 350}, {20, 350}, {50, 350}, {60, 420}, {43, 420}};
  for (const auto& [length, widest] : steps) {
    Print_Debug(engine, true, 0, true, std::string(length, 'x'));
    EXPECT_EQ(engine.editor.WidestDebugLine, widest) << length;
  }
  EXPECT_EQ(surface.extents, (std::vector<long>{355, 425}));
  Open_Debug_File();
  Print_Debug(engine, true, engine.state.DebugFileNumber, false, "hidden");
  Print_Debug(engine, true, engine.state.DebugFileNumber, true, "");
  EXPECT_EQ(host.files["a.vld"], "\r\n");
  EXPECT_EQ(engine.DebugWindow.Count(), 7u);
  EXPECT_EQ(engine.DebugWindow.Selected(), 6);
  EXPECT_TRUE(engine.editor.DebugLogHasOutput);
}

}  // namespace
}  // namespace velmora::testing
