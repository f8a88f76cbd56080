// Keys the user pressed, written back in the key notation, so that sendkeys
// types them again.
#pragma once

#include <string>

#include "desktop.h"

namespace velmora {

// Caps Lock, Num Lock and Scroll Lock.
bool Is_Lock_Key(std::uint16_t virtualKey);

// One key press in the notation: a character as itself (the notation's own
// characters in braces, a backquote doubled), a key without a character by
// its name in braces, with + ^ % before it for Shift, Ctrl and Alt. Empty
// for a press the notation cannot write: a key without a name, a character
// that a script cannot hold, or a lock key (the characters typed under it
// are written as they came).
std::string Key_Notation_Of(const ObservedKey& key);

// Adds one press to a run of typing. A named key straight after itself is
// counted, not repeated: {DOWN}{DOWN} becomes {DOWN 2}.
void Append_Key(std::string& keys, const std::string& press);

}  // namespace velmora
