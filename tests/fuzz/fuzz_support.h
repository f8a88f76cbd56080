// What the fuzz targets share: a broken promise stops the run, and an engine
// on the simulated platform (an automatic one with its debug file a.vld open).
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "careful_io.h"
#include "engine.h"
#include "sim_host.h"
#include "sim_registry.h"
#include "trap.h"

namespace velmora::fuzz {

inline void Require(bool condition) {
  if (!condition) __builtin_trap();
}

struct Session {
  SimHost host;
  SimRegistry registry;
  Engine engine{host, registry};

  explicit Session(bool interactive) {
    engine.state.InteractiveSession = interactive;
    engine.state.DebugOn = true;
    engine.state.LastCommandSucceeded = true;
    if (interactive) return;
    std::string name = "a.vld";
    Careful_IO(engine, false, kOpenOutput, engine.state.DebugFileNumber, name, "", "", kFatal);
    engine.state.DebugFileOpen = true;
  }
  // What was logged: the debug window of the editor, the file of an automatic session.
  std::vector<std::string> Log() const {
    return engine.state.InteractiveSession ? engine.DebugWindow.Items() : host.Lines("a.vld");
  }
  bool Logged(std::string_view line) const {
    const auto log = Log();
    return std::find(log.begin(), log.end(), line) != log.end();
  }
};

}  // namespace velmora::fuzz
