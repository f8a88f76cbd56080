#include "key_writing.h"

#include <string_view>

#include "key_names.h"
#include "key_notation.h"
#include "virtual_keys.h"
#include "windows_1252.h"

namespace velmora {

namespace {

using namespace virtual_key;

constexpr std::string_view kReserved = "+^%~(){}";
constexpr std::string_view kModifierMarks = "+^%";

std::string Character_Text(char32_t character) {
  const auto byte = Windows_1252_Byte(character);
  if (!byte) return "";
  const char letter = static_cast<char>(*byte);
  if (kReserved.find(letter) != std::string_view::npos) return std::string{'{', letter, '}'};
  if (letter == '`') return "``";  // one backquote would start a variable's name
  return std::string(1, letter);
}

// The name and count of a braced named key at the end of keys ("{DOWN 3}"
// gives DOWN, 3), when no modifier stands before it.
bool Ends_With_Named_Key(const std::string& keys, std::string_view name, int& count) {
  if (keys.empty() || keys.back() != '}') return false;
  const std::size_t open = keys.rfind('{');
  if (open == std::string::npos || (open > 0 && kModifierMarks.find(keys[open - 1]) != std::string_view::npos))
    return false;
  std::string_view inner(keys);
  inner = inner.substr(open + 1, keys.size() - open - 2);
  if (inner == name) return count = 1, true;
  if (inner.size() <= name.size() + 1 || inner.substr(0, name.size()) != name || inner[name.size()] != ' ')
    return false;
  count = 0;
  for (char digit : inner.substr(name.size() + 1)) {
    if (digit < '0' || digit > '9') return false;
    count = count * 10 + (digit - '0');
  }
  return true;
}

}  // namespace

bool Is_Lock_Key(std::uint16_t virtualKey) {
  return virtualKey == kCapital || virtualKey == kNumLock || virtualKey == kScroll;
}

std::string Key_Notation_Of(const ObservedKey& key) {
  if (Is_Lock_Key(key.virtualKey)) return "";
  std::string marks = std::string(key.control ? "^" : "") + (key.alt ? "%" : "");
  if (key.character != 0) {
    const std::string text = Character_Text(key.character);
    return text.empty() ? "" : marks + text;
  }
  const std::string name = Key_Name(key.virtualKey);
  if (name.empty()) return "";
  return (key.shift ? "+" : "") + marks + "{" + name + "}";
}

void Append_Key(std::string& keys, const std::string& press) {
  const bool named = press.size() > 3 && press.front() == '{';
  int count = 0;
  if (named) {
    const std::string_view name = std::string_view(press).substr(1, press.size() - 2);
    if (Ends_With_Named_Key(keys, name, count) && count < kMostKeyRepeats) {
      keys.erase(keys.rfind('{'));
      keys += "{" + std::string(name) + " " + std::to_string(count + 1) + "}";
      return;
    }
  }
  keys += press;
}

}  // namespace velmora
