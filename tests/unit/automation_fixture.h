// An interactive engine on the simulated host and desktop, with the window
// automation attached.
#pragma once

#include "automation_commands.h"
#include "engine_fixture.h"
#include "sim_desktop.h"

namespace velmora::testing {

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
