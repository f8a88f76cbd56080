// The key notation of sendkeys: turns a key string such as "%f{DOWN 2}~"
// into the key events that the Desktop sends to the foreground window.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "desktop.h"

namespace velmora {

// The highest repeat count of a braced key ({TAB 9999}).
constexpr int kMostKeyRepeats = 9999;

// The most key events one key string may send (each press is a down and an
// up event). No installation needs more, and the bound keeps a runaway
// string from taking all memory.
constexpr std::size_t kMostKeyInputs = 1000000;

struct KeyParseResult {
  bool ok = true;
  std::vector<KeyInput> inputs;   // empty whenever ok is false
  std::string error;              // what is wrong and where; empty when ok
  std::size_t errorPosition = 0;  // 1-based byte position of the fault; 0 when ok
};

// Reads a key string, given as the bytes of the script line (Windows-1252).
// A malformed string yields no inputs at all, so that nothing half-typed
// reaches the target window.
KeyParseResult Parse_Key_String(std::string_view keys);

// What a run reports for a key string that Parse_Key_String refused; the
// script checker reports the same words.
std::string Key_String_Complaint(const KeyParseResult& refused);

// The events cut where no key is held down: each group can be sent whole
// and, between groups, the sending can stop without leaving Shift, Ctrl or
// Alt pressed. "+(ab)c" gives two groups, Shift with a and b, then c.
std::vector<std::vector<KeyInput>> Key_Groups(const std::vector<KeyInput>& inputs);

}  // namespace velmora
