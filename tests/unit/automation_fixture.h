// An interactive engine on the simulated host and desktop, with the window
// automation attached.
#pragma once

#include "automation.h"
#include "engine_fixture.h"
#include "parser.h"
#include "sim_desktop.h"

namespace velmora::testing {

class AutomationTest : public InteractiveTest {
 protected:
  SimDesktop desktop{host};
  Automation automation{engine, desktop};

  void SetUp() override {
    engine.desktop = &desktop;
    engine.automation = &automation;
  }

  // Parses a script line as the interpreter would.
  ParsedCommand Parsed(const std::string& line) {
    ParsedCommand command;
    Parse_Command(engine, true, line, 1.0, command, kNoEditorLine);
    return command;
  }

  bool Find(const std::string& line) {
    bool succeeded = false;
    automation.FindWindow_Command(engine, true, Parsed(line), succeeded);
    return succeeded;
  }
  bool Send(const std::string& keys) {
    bool succeeded = false;
    automation.SendKeys_Command(engine, true, Parsed("sendkeys: \"" + keys + "\""), succeeded);
    return succeeded;
  }
  bool Click(const std::string& code) {
    bool succeeded = false;
    automation.SendButtons_Command(engine, true, Parsed("sendbuttons: " + code), succeeded);
    return succeeded;
  }

  const std::vector<std::string>& DebugLines() const { return engine.DebugWindow.Items(); }

  // Starts a row afresh (no input or log recorded) with the window's program
  // frozen for the given time from now; returns the time now.
  long long Start_Frozen(WindowHandle window, long long forMs) {
    desktop.keys.clear(), desktop.mouseEvents.clear(), desktop.foregroundCalls.clear();
    engine.DebugWindow.Clear();
    desktop.Freeze(window, host.clockMs + forMs);
    return host.clockMs;
  }
};

}  // namespace velmora::testing
