// Generated scripts for the benchmarks: realistic command lines nested the
// way the preprocessor accepts them, and an engine on the simulated host.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "engine.h"
#include "sim_host.h"
#include "sim_registry.h"

namespace velmora::bench {

using Lines = std::vector<std::string>;

// A script of exactly `count` lines: top-level if/else/endif blocks whose
// parts hold repeat/until and while/endwhile loops nested in each other,
// ifs without else inside the loops, and run, wait, test, sendkeys,
// findwindow, comment and blank lines. Every line parses without error.
Lines Nested_Script(std::size_t count);

// A script of exactly `count` lines without loops: each line runs once.
// Only commands that need no window: run, test, wait, debug, if/else/endif,
// comments and blank lines.
Lines Straight_Script(std::size_t count);

// A repeat/until loop that never ends: its test always succeeds and the
// until wishes a failure. Window-free commands only.
Lines Endless_Loop_Script();

// An engine on the simulated host, as an automatic session sees it.
struct SimEngine {
  SimHost host;
  SimRegistry registry;
  Engine engine{host, registry};

  SimEngine();
  // Opens the in-memory debug file a.vld as Initial_Setup does.
  void Open_Debug_File();
  void Fill_Trace(const Lines& lines);
  // Keeps the in-memory debug log and the record of started programs from
  // growing without bound in long runs.
  void Trim_Records();
};

}  // namespace velmora::bench
