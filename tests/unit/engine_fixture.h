// An engine on the simulated platform, with helpers to run it as a session,
// and one with the window automation on the simulated desktop.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

#include "automation_commands.h"
#include "careful_io.h"
#include "engine.h"
#include "error_report.h"
#include "sim_desktop.h"
#include "sim_host.h"
#include "sim_registry.h"
#include "trap.h"

namespace velmora::test {

using Lines = std::vector<std::string>;
// An error report's code, message, location and kind, as the reporter
// records it; the log's framing of a report is in golden/reports.cases.
using ReportFields = std::tuple<long, std::string, std::string, int>;

// Records what the engine asked of the editor's window, with only Courier New
// of the fonts asked for installed.
class FakeSurface : public EditorSurface {
 public:
  int debugFrameEnabled = 0;
  std::vector<std::string> fonts;

  void EnableDebugFrame() override { ++debugFrameEnabled; }
  std::string SetTraceFont(const std::string& name) override {
    fonts.push_back(name);
    return name == "Courier New" ? name : "System";
  }
};

class EngineTest : public ::testing::Test {
 protected:
  SimHost host;
  SimRegistry registry;
  Engine engine{host, registry};

  // Runs the body and returns the exit status if it ended the process, -1 otherwise.
  template <class Body>
  int Exit_Status_Of(Body&& body) {
    try {
      body();
    } catch (const ProcessEnded& ended) {
      return ended.exitCode;
    }
    return -1;
  }

  Lines Log(const std::string& path = "a.vld") const { return host.Lines(path); }
  ReportFields Last_Report() const {
    const ReportRecord& r = engine.reports.last;
    return {r.code, r.message, r.location, r.kind};
  }
  // Opens a.vld as the automatic session's debug file, as after its header.
  void Open_Debug_File() {
    std::string name = "a.vld";
    Careful_IO(engine, false, kOpenOutput, engine.state.DebugFileNumber, name, "", "", kFatal);
    engine.state.DebugFileOpen = true;
  }
  // The run of lines appears in the debug window, in order and together.
  bool Shown(const Lines& run) const {
    const Lines& log = engine.DebugWindow.Items();
    return std::search(log.begin(), log.end(), run.begin(), run.end()) != log.end();
  }
};

// The lines that ran, in order, as a log shows them ("==> line").
inline Lines Ran_In(const Lines& log) {
  Lines ran;
  for (const std::string& line : log)
    if (line.rfind("==> ", 0) == 0) ran.push_back(line.substr(4));
  return ran;
}
// An interactive engine with debug output on, as the editor runs it.
class InteractiveTest : public EngineTest {
 protected:
  InteractiveTest() { engine.state.InteractiveSession = engine.state.DebugOn = true; }
};

// An interactive engine on the simulated host and desktop, with the window
// automation attached.
class AutomationTest : public InteractiveTest, protected AutomationCommands {
 protected:
  AutomationTest() : AutomationCommands(engine, automation) {}

  SimDesktop desktop{host};
  Automation automation{engine, desktop};

  void SetUp() override {
    engine.desktop = &desktop;
    engine.automation = &automation;
  }

  const std::vector<std::string>& DebugLines() const { return engine.DebugWindow.Items(); }
};

}  // namespace velmora::test
