// Splits arbitrary bytes into script lines, as the script file is read, and
// runs the block preprocessor over them, first as the editor runs it, then as
// an automatic session does. Besides crashes it checks what a finished pass
// promises: no block left open, its keyword lines in order and indexed.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "block_table.h"
#include "careful_io.h"
#include "engine.h"
#include "preprocessor.h"
#include "sim_host.h"
#include "sim_registry.h"
#include "text.h"
#include "trap.h"

namespace {

using namespace velmora;

constexpr std::string_view kPassTrapped = "Error Location:  Velmora.(General).Preprocess_Commands.TrappableErrors.1";

void Require(bool condition) {
  if (!condition) __builtin_trap();
}

// Lines end in CR LF, LF or a lone CR, as the host's text files read them.
std::vector<std::string> Split_Lines(std::string_view bytes) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  while (start < bytes.size()) {
    const auto end = bytes.find_first_of("\r\n", start);
    if (end == std::string_view::npos) {
      lines.emplace_back(bytes.substr(start));
      break;
    }
    lines.emplace_back(bytes.substr(start, end - start));
    start = end + 1;
    if (bytes[end] == '\r' && start < bytes.size() && bytes[start] == '\n') ++start;
  }
  return lines;
}

struct Session {
  SimHost host;
  SimRegistry registry;
  Engine engine{host, registry};

  explicit Session(const std::vector<std::string>& lines, bool interactive) {
    engine.state.InteractiveSession = interactive;
    engine.state.DebugOn = true;
    engine.state.LastCommandSucceeded = true;
    for (const auto& line : lines) engine.TraceWindow.Add(line);
  }

  void Preprocess() {
    RunState& state = engine.state;
    Preprocess_Commands(engine, state.InteractiveSession, state.DebugOn, true, state.LastCommandSucceeded);
  }
};

bool Logged(const std::vector<std::string>& log, std::string_view line) {
  for (const auto& logged : log)
    if (logged == line) return true;
  return false;
}

// A pass that was not stopped by a block error leaves only closed blocks,
// each naming keyword lines in order, and the index beside the table names
// each keyword line's item.
void Check_Block_Table(const Engine& engine) {
  const auto& items = engine.LogicalControls.Items();
  const auto lines = static_cast<long>(engine.TraceWindow.Count());
  for (std::size_t i = 0; i < items.size(); ++i) {
    const BlockLines block = Read_Block_Item(items[i]);
    const auto item = static_cast<std::int32_t>(i);
    Require(block.state != ' ');
    Require(block.first >= 0 && block.first < lines && Block_Item_Of_Line(engine, block.first) == item);
    // The end-of-pass check looks only for blocks still open ("i ", "w ",
    // "r "): an if that passed its else but never met its endif gets through.
    if (block.kind == 'i' && block.state == 'e' && block.last == -1) {
      Require(block.first < block.middle && block.middle < lines);
      Require(Block_Item_Of_Line(engine, block.middle) == item);
      continue;
    }
    Require(block.first < block.last && block.last < lines && Block_Item_Of_Line(engine, block.last) == item);
    if (block.kind == 'i' && block.state == 'e') {
      Require(block.first < block.middle && block.middle < block.last);
      Require(Block_Item_Of_Line(engine, block.middle) == item);
    } else if (block.kind == 'i') {
      Require(block.state == 'x' && block.middle == 0);
    } else {
      Require((block.kind == 'w' && block.state == 'e') || (block.kind == 'r' && block.state == 'u'));
    }
  }
}

void Interactive_Pass(const std::vector<std::string>& lines) {
  Session session(lines, true);
  session.Preprocess();
  const Engine& engine = session.engine;
  Require(!Logged(engine.DebugWindow.Items(), kPassTrapped));
  // Reformatting only ever adds blank lines.
  Require(engine.TraceWindow.Count() >= lines.size());
  const long selected = engine.TraceWindow.Selected();
  Require(selected >= ListModel::kNoSelection && selected < static_cast<long>(engine.TraceWindow.Count()));
  if (engine.state.LastCommandSucceeded) Check_Block_Table(engine);
}

// The automatic session logs to its debug file; a fatal report ends it.
void Automatic_Pass(const std::vector<std::string>& lines) {
  Session session(lines, false);
  std::string name = "a.vld";
  Careful_IO(session.engine, false, kOpenOutput, session.engine.state.DebugFileNumber, name, "", "", kFatal);
  session.engine.state.DebugFileOpen = true;
  try {
    session.Preprocess();
  } catch (const ProcessEnded& ended) {
    Require(ended.exitCode == 1);
    Require(!Logged(session.host.Lines("a.vld"), kPassTrapped));
    return;
  }
  const Engine& engine = session.engine;
  Require(!Logged(session.host.Lines("a.vld"), kPassTrapped));
  Require(engine.state.LastCommandSucceeded);  // a block error would have ended the session
  Check_Block_Table(engine);
  // Without reformatting every line keeps its place: re-indented, or marked unknown.
  Require(engine.TraceWindow.Count() == lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string& line = engine.TraceWindow.Items()[i];
    const std::string original = Trim(lines[i]);
    Require(Trim(line) == original || line == "# ERROR! # " + original);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto lines = Split_Lines(std::string_view(reinterpret_cast<const char*>(data), size));
  Interactive_Pass(lines);
  Automatic_Pass(lines);
  return 0;
}
