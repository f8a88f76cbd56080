// The block table: one text item per if, while or repeat block, naming the
// indexes of its keyword lines, for example "ie5;9,12" (if at 5, else at 9,
// endif at 12), "ix5;0,12" (no else), "we3,8" and "ru4,7". An item whose
// second character is a blank is still open.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora {

struct Engine;
class ListModel;

// The line indexes an item names; a part the item does not have yet is -1.
struct BlockLines {
  char kind = 0;    // 'i', 'w' or 'r'
  char state = 0;   // ' ' open, 'e' if past its else or closed while, 'x' if without else, 'u' closed repeat
  long first = -1;  // the if, while or repeat line
  long middle = -1; // the else line (0 for an if closed without else)
  long last = -1;   // the endif, endwhile or until line
};

// Reads an item's text. Throws a trappable error for a malformed item.
BlockLines Read_Block_Item(const std::string& item);

// Rebuilds the index beside the table: which item names each script line.
void Index_Block_Table(Engine& engine);

// The item that names the line as its keyword line, or -1.
std::int32_t Block_Item_Of_Line(const Engine& engine, long line);

}  // namespace velmora
