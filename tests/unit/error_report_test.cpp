#include <gtest/gtest.h>

#include "careful_io.h"
#include "engine_fixture.h"
#include "error_report.h"
#include "trap.h"

namespace velmora::testing {
namespace {

constexpr const char* kLocation = "Velmora.(General).Parse_Command.UseMouseErrors.1";

// An automatic session with its debug file a.vld open, as after the header.
class AutomaticReportTest : public EngineTest {
 protected:
  void SetUp() override {
    std::string name = "a.vld";
    Careful_IO(engine, false, kOpenOutput, engine.state.DebugFileNumber, name, "", "", kFatal);
    engine.state.DebugFileOpen = true;
  }
};

TEST_F(AutomaticReportTest, FatalReportWritesTheWholeBlockThenEndsWithStatusOne) {
  const int status = Exit_Status_Of(
      [&] { Report_Error(engine, false, -1, "Invalid Parameters:  Illegal characters found", "Error!", kLocation, 0); });
  EXPECT_EQ(status, 1);
  EXPECT_EQ(Log(), Fatal_Block("Invalid Parameters:  Illegal characters found", -1, kLocation));
  EXPECT_EQ(host.files["a.vld"].substr(host.files["a.vld"].size() - 4), "\r\n\r\n");
  EXPECT_EQ(engine.files.Find(engine.state.DebugFileNumber), nullptr);  // closed before the end
  EXPECT_EQ(host.beeps, 1);
}

TEST_F(AutomaticReportTest, GoingOnReportClosesItsBlockOnlyWhileTheRunGoesOn) {
  Report_Error(engine, false, 53, "Unable to Open x for Input -> File not found", "T", "L.1", kGoOn);
  engine.state.StopRunning = true;
  Report_Error(engine, false, 7, "Second", "T", "L.2", kGoOn);

  std::vector<std::string> expected = Go_On_Block("Unable to Open x for Input -> File not found", 53, "L.1");
  const auto second = Go_On_Block("Second", 7, "L.2", false);
  expected.insert(expected.end(), second.begin(), second.end());
  EXPECT_EQ(Log(), expected);
}

TEST_F(AutomaticReportTest, ReportsAreLoggedEvenWithDebugOutputOff) {
  engine.state.DebugOn = false;
  Report_Error(engine, false, 1, "Message", "T", "L.1", kGoOn);
  EXPECT_EQ(Log(), Go_On_Block("Message", 1, "L.1"));
}

TEST_F(AutomaticReportTest, ReportWhileAFatalReportClosesTheFilesIsDropped) {
  engine.state.ReportingFatalError = true;
  Report_Error(engine, false, 1, "Dropped", "T", "L.1", kFatal);
  EXPECT_TRUE(Log().empty());
}

TEST_F(AutomaticReportTest, UnwritableDebugFileEndsTheSessionWithoutEndlessReports) {
  host.unwritable.insert("a.vld");
  const int status = Exit_Status_Of([&] { Report_Error(engine, false, 1, "First", "T", "L.1", kGoOn); });
  EXPECT_EQ(status, 1);  // the failed write of the report's first line is itself fatal
}

TEST_F(EngineTest, InteractiveFatalReportStopsTheRunAndShowsTheDebugFrame) {
  testing::FakeSurface surface;
  engine.surface = &surface;
  engine.state.InteractiveSession = true;

  Report_Error(engine, true, -1, "Boom", "T", kLocation, kFatal);

  EXPECT_EQ(engine.DebugWindow.Items(), Fatal_Block("Boom", -1, kLocation));
  EXPECT_TRUE(engine.state.StopRunning);
  EXPECT_FALSE(engine.state.ReportingFatalError);
  EXPECT_EQ(surface.debugFrameEnabled, 1);
  EXPECT_EQ(host.beeps, 0);
}

TEST_F(EngineTest, TrapReportsAnExceptionAsUnexpected) {
  engine.state.InteractiveSession = true;
  Trap(engine, true, "Velmora.(General).If_Command.TrappableErrors.1", kGoOn, [] { throw OverflowError(); });
  EXPECT_EQ(engine.DebugWindow.Items(), Go_On_Block("Overflow", 6, "Velmora.(General).If_Command.TrappableErrors.1"));
}

}  // namespace
}  // namespace velmora::testing
