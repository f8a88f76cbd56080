#include "scripts.h"

#include "careful_io.h"
#include "trap.h"

namespace velmora::bench {

namespace {

constexpr std::size_t kLogLimit = std::size_t{16} << 20;  // bytes of in-memory debug log kept
constexpr std::size_t kStartedLimit = 4096;              // programs remembered as started

// One top-level block of an installation step. An if with an else stays at
// the top level: its else takes the indentation back, so nested inside
// another block it would stand on the wrong level.
Lines Installation_Step(std::size_t k) {
  const std::string n = std::to_string(k);
  return {
      "# Component " + n + ": install and confirm",
      "run: \"C:\\SETUP\\DISK" + n + "\\SETUP.EXE /Q /COMPONENT=" + n + "\"",
      "wait: 0.05",
      "if: succeeded",
      "  findwindow: 2, \"Setup " + n + "\", \"#32770\", 0, 0, 0, \"Next >\", \"Button\", 1, 0.5, 0.5, 1.00",
      "  repeat",
      "    sendkeys: \"{TAB}{TAB}~\"",
      "    while: failed",
      "      test: \"`WINDIR`\" = \"C:\\WINDOWS\"",
      "      if: failed",
      "        wait: 0.01",
      "        run: \"`WINDIR`\\NOTEPAD.EXE\"",
      "      endif",
      "      findwindow: 1, \"Finish\", \"Button\", 0, 0, 0, 0.30",
      "    endwhile",
      "",
      "    # confirm the licence",
      "    sendkeys: \"%a~\"",
      "  until: succeeded",
      "else",
      "  # setup " + n + " did not start: try the fallback",
      "  test: \"`OS`\" = \"Windows_NT\"",
      "  while: failed",
      "    run: \"C:\\SETUP\\FALLBACK.EXE " + n + "\"",
      "    repeat",
      "      wait: 1",
      "      findwindow: 1, \"Fallback\", \"\", 0, 0, 0, 0.10",
      "    until: succeeded",
      "    if: succeeded",
      "      sendkeys: \"{ENTER}\"",
      "    endif",
      "  endwhile",
      "endif",
      "",
  };
}

// A step without loops; one of its two ifs takes its else part.
Lines Straight_Step(std::size_t k) {
  const std::string n = std::to_string(k);
  return {
      "# Step " + n,
      "run: \"C:\\SETUP\\STEP" + n + ".EXE /Q\"",
      "test: \"`OS`\" = \"Windows_NT\"",
      "if: succeeded",
      "  wait: 0.01",
      "  debug: on",
      "endif",
      "if: failed",
      "  run: \"C:\\SETUP\\REPAIR.EXE\"",
      "else",
      "  test: \"`WINDIR`\\SYSTEM\" = \"C:\\WINDOWS\\SYSTEM\"",
      "endif",
      "",
  };
}

// Whole steps while they fit, then comment and blank lines up to the count.
template <class Step>
Lines Repeat_Steps(std::size_t count, Step step) {
  Lines lines;
  lines.reserve(count);
  for (std::size_t k = 1;; ++k) {
    Lines next = step(k);
    if (lines.size() + next.size() > count) break;
    for (auto& line : next) lines.push_back(std::move(line));
  }
  while (lines.size() < count) lines.push_back(lines.size() % 2 ? "" : "# end of the generated steps");
  return lines;
}

}  // namespace

Lines Nested_Script(std::size_t count) { return Repeat_Steps(count, Installation_Step); }

Lines Straight_Script(std::size_t count) { return Repeat_Steps(count, Straight_Step); }

Lines Endless_Loop_Script() {
  return {
      "# runs until stopped from outside",
      "run: \"C:\\SETUP\\SETUP.EXE /Q\"",
      "repeat",
      "  test: \"`OS`\" = \"Windows_NT\"",
      "  if: succeeded",
      "    wait: 0.01",
      "    debug: on",
      "  endif",
      "  run: \"C:\\SETUP\\STEP.EXE\"",
      "  # a comment is passed over, never run",
      "  while: failed",
      "    wait: 1",
      "  endwhile",
      "  test: \"A\" = \"A\"",
      "until: failed",
  };
}

SimEngine::SimEngine() {
  host.environment = {{"OS", "Windows_NT"}, {"WINDIR", "C:\\WINDOWS"}, {"TEMP", "C:\\TEMP"}};
  engine.state.InteractiveSession = false;
  engine.state.DebugOn = true;
}

void SimEngine::Open_Debug_File() {
  std::string name = "a.vld";
  Careful_IO(engine, false, kOpenOutput, engine.state.DebugFileNumber, name, "", "", kFatal);
  engine.state.DebugFileOpen = true;
}

void SimEngine::Fill_Trace(const Lines& lines) {
  engine.TraceWindow.Clear();
  engine.TraceWindow.Reserve(lines.size());
  for (const auto& line : lines) engine.TraceWindow.Add(line);
}

void SimEngine::Trim_Records() {
  if (auto log = host.files.find("a.vld"); log != host.files.end() && log->second.size() > kLogLimit)
    log->second.clear();
  if (host.startedPrograms.size() > kStartedLimit) host.startedPrograms.clear();
}

}  // namespace velmora::bench
