// What the fuzz targets share: the entry point, which hands the input to the
// target's One_Input; a broken promise stops the run; and an engine on the
// simulated platform (an automatic one with its debug file a.vld open). Each
// target is one source file that includes this once.
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
  bool Logged(std::string_view line) const { return std::ranges::count(Log(), line) > 0; }
};

void One_Input(std::string_view bytes);

}  // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  velmora::fuzz::One_Input({reinterpret_cast<const char*>(data), size});
  return 0;
}
