// An interactive engine on the simulated host and desktop, with the window
// automation attached.
#pragma once

#include "automation.h"
#include "engine_fixture.h"
#include "parser.h"
#include "sim_desktop.h"

namespace velmora::testing {

class AutomationTest : public EngineTest {
 protected:
  SimDesktop desktop{host};
  Automation automation{engine, desktop};

  void SetUp() override {
    engine.desktop = &desktop;
    engine.automation = &automation;
    engine.state.InteractiveSession = true;
    engine.state.DebugOn = true;
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

  const std::vector<std::string>& DebugLines() const { return engine.DebugWindow.Items(); }
};

}  // namespace velmora::testing
