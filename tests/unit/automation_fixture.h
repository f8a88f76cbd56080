// An interactive engine on the simulated host and desktop, with the window
// automation attached.
#pragma once

#include "automation_commands.h"
#include "engine_fixture.h"
#include "sim_desktop.h"

namespace velmora::test {

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
