#include "block_table.h"

#include <charconv>

#include "engine.h"
#include "trap.h"

namespace velmora {

namespace {

// Reads the decimal number at the position and moves past it.
long Read_Number(const std::string& text, std::size_t& position) {
  long value = 0;
  const char* begin = text.data() + position;
  const auto [end, error] = std::from_chars(begin, text.data() + text.size(), value);
  if (error != std::errc()) throw TypeMismatchError();
  position += static_cast<std::size_t>(end - begin);
  return value;
}

void Expect(const std::string& text, std::size_t& position, char separator) {
  if (position >= text.size() || text[position] != separator) throw TypeMismatchError();
  ++position;
}

void Note(std::vector<std::int32_t>& index, long line, std::int32_t item) {
  if (line >= 0 && static_cast<std::size_t>(line) < index.size()) index[static_cast<std::size_t>(line)] = item;
}

}  // namespace

BlockLines Read_Block_Item(const std::string& item) {
  if (item.size() < 3) throw SubscriptError();
  BlockLines lines{item[0], item[1]};
  std::size_t position = 2;
  lines.first = Read_Number(item, position);
  if (lines.kind == 'i') {
    Expect(item, position, ';');
    if (position == item.size()) return lines;
    lines.middle = Read_Number(item, position);
  }
  if (position == item.size()) return lines;
  Expect(item, position, ',');
  lines.last = Read_Number(item, position);
  if (position != item.size()) throw TypeMismatchError();
  return lines;
}

void Index_Block_Table(Engine& engine) {
  std::vector<std::int32_t>& index = engine.BlockItemOfLine;
  index.assign(engine.TraceWindow.Count(), -1);
  const auto& items = engine.LogicalControls.Items();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const BlockLines lines = Read_Block_Item(items[i]);
    const auto item = static_cast<std::int32_t>(i);
    Note(index, lines.first, item);
    if (lines.kind == 'i' && lines.middle > 0) Note(index, lines.middle, item);
    Note(index, lines.last, item);
  }
}

std::int32_t Block_Item_Of_Line(const Engine& engine, long line) {
  const auto& index = engine.BlockItemOfLine;
  if (line < 0 || static_cast<std::size_t>(line) >= index.size()) return -1;
  return index[static_cast<std::size_t>(line)];
}

}  // namespace velmora
