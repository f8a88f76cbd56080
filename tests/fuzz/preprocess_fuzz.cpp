// Splits arbitrary bytes into script lines, as the script file is read, and
// runs the block preprocessor over them as the editor runs it and as an
// automatic session does. Besides crashes it checks what a finished pass
// promises: no trapped failure, and every block closed, its keyword lines in
// order and indexed.
#include "block_table.h"
#include "fuzz_support.h"
#include "preprocessor.h"
#include "text.h"

namespace velmora::fuzz {

constexpr std::string_view kPassTrapped = "Error Location:  Velmora.(General).Preprocess_Commands.TrappableErrors.1";

// Lines end in CR LF, LF or a lone CR, as the host's text files read them.
std::vector<std::string> Split_Lines(std::string_view bytes) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start < bytes.size();) {
    const auto end = std::min(bytes.find_first_of("\r\n", start), bytes.size());
    lines.emplace_back(bytes.substr(start, end - start));
    start = end + 1;
    if (end < bytes.size() && bytes[end] == '\r' && start < bytes.size() && bytes[start] == '\n') ++start;
  }
  return lines;
}

void Check_Block_Table(const Engine& engine) {
  const auto& items = engine.LogicalControls.Items();
  const auto lines = static_cast<long>(engine.TraceWindow.Count());
  for (std::size_t i = 0; i < items.size(); ++i) {
    const BlockLines block = Read_Block_Item(items[i]);
    const auto item = static_cast<std::int32_t>(i);
    Require(block.state != ' ' && block.first >= 0 && Block_Item_Of_Line(engine, block.first) == item);
    // The end-of-pass check looks only for blocks still open ("i ", "w ",
    // "r "): an if that passed its else but never met its endif gets through.
    const long end = block.last == -1 && block.kind == 'i' && block.state == 'e' ? lines : block.last;
    Require(block.first < end && end <= lines);
    if (block.last != -1) Require(end < lines && Block_Item_Of_Line(engine, end) == item);
    if (block.kind == 'i' && block.state == 'e')
      Require(block.first < block.middle && block.middle < end && Block_Item_Of_Line(engine, block.middle) == item);
  }
}

void Pass(const std::vector<std::string>& lines, bool interactive) {
  Session session(interactive);
  Engine& engine = session.engine;
  for (const auto& line : lines) engine.TraceWindow.Add(line);
  try {
    Preprocess_Commands(engine, interactive, engine.state.DebugOn, true, engine.state.LastCommandSucceeded);
  } catch (const ProcessEnded& ended) {
    Require(!interactive && ended.exitCode == 1 && !session.Logged(kPassTrapped));
    return;
  }
  Require(!session.Logged(kPassTrapped));
  if (engine.state.LastCommandSucceeded) Check_Block_Table(engine);
  // Reformatting only ever adds blank lines; without it every line keeps its
  // place, re-indented or marked unknown.
  Require(engine.TraceWindow.Count() >= lines.size());
  if (interactive) return;
  Require(engine.TraceWindow.Count() == lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string& line = engine.TraceWindow.Items()[i];
    Require(Trim(line) == Trim(lines[i]) || line == "# ERROR! # " + Trim(lines[i]));
  }
}

void One_Input(std::string_view bytes) {
  const auto lines = Split_Lines(bytes);
  Pass(lines, true);
  Pass(lines, false);
}

}  // namespace velmora::fuzz
