#include "key_notation.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "key_names.h"
#include "virtual_keys.h"
#include "windows_1252.h"

namespace velmora {

namespace {

using namespace virtual_key;

// Raised inside the parser and turned into the result's error; position is 0-based.
struct KeySyntaxError {
  std::string message;
  std::size_t position;
};

[[noreturn]] void Fail(std::size_t position, std::string message) {
  throw KeySyntaxError{std::move(message), position};
}

std::string At(std::size_t position) { return " at position " + std::to_string(position + 1); }

std::string Hex_Byte(unsigned char byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  return std::string("0x") + kDigits[byte >> 4] + kDigits[byte & 0xF];
}

// One key of the string and how many times to press it.
struct Key {
  KeyInput down;
  int count = 1;
};

Key Virtual_Key(std::uint16_t virtualKey, int count = 1) { return {{false, virtualKey, 0, false}, count}; }

std::uint16_t Modifier_Key(char modifier) {
  if (modifier == '+') return kShift;
  if (modifier == '^') return kControl;
  return kMenu;
}

// A single character, bare or in braces. Tab and line ends are the Tab and
// Enter keys, because typing them as characters gives Ctrl+J and the like on
// most layouts; other control bytes and the undefined Windows-1252 bytes have
// nothing sensible to type and are rejected.
Key Character_Key(unsigned char byte, std::size_t position, int count = 1) {
  if (byte == '\t') return Virtual_Key(kTab, count);
  if (byte == '\r' || byte == '\n') return Virtual_Key(kReturn, count);
  constexpr unsigned char kFirstPrintable = 0x20, kDeleteCharacter = 0x7F;
  if (byte < kFirstPrintable || byte == kDeleteCharacter)
    Fail(position, "Control character " + Hex_Byte(byte) + At(position) + " cannot be typed");
  const auto character = Windows_1252_Character(byte);
  if (!character) Fail(position, "Byte " + Hex_Byte(byte) + At(position) + " is not a Windows-1252 character");
  return {{true, 0, *character, false}, count};
}

// count := digit+      from 0 to kMostKeyRepeats; no sign, no blanks
std::optional<int> Repeat_Count(std::string_view text) {
  if (text.empty()) return std::nullopt;
  int count = 0;
  for (char digit : text) {
    if (digit < '0' || digit > '9') return std::nullopt;
    count = count * 10 + (digit - '0');
    if (count > kMostKeyRepeats) return std::nullopt;
  }
  return count;
}

// An open parenthesised group and the modifiers that it holds down.
struct Group {
  std::size_t openAt = 0;
  std::vector<std::uint16_t> modifiers;
  std::size_t firstInput = 0;  // where the group's modifier presses begin
  bool hasKey = false;
};

class KeyStringParser {
 public:
  explicit KeyStringParser(std::string_view keys) : keys_(keys) {}

  std::vector<KeyInput> Parse();

 private:
  void Read_Next();
  void Hold_Modifier();
  void Open_Group();
  void Close_Group();
  void Read_Braced();
  void Read_Character();
  void Send(const Key& key);
  void Press_Modifiers(const std::vector<std::uint16_t>& modifiers);
  void Release_Modifiers(const std::vector<std::uint16_t>& modifiers);
  bool Held(std::uint16_t modifier) const;
  [[noreturn]] void Fail_Lone_Modifier() const;

  std::string_view keys_;
  std::size_t at_ = 0;
  std::vector<KeyInput> inputs_;
  std::optional<std::size_t> modifierAt_;  // the first modifier still waiting for its key
  std::vector<std::uint16_t> pending_;     // the modifiers that its key will press
  std::vector<Group> groups_;
};

// keys     := item*
// item     := modifier* key
// modifier := "+" | "^" | "%"                       Shift, Ctrl, Alt
// key      := "(" keys ")" | "{" braced "}" | "~" | character
std::vector<KeyInput> KeyStringParser::Parse() {
  while (at_ < keys_.size()) Read_Next();
  if (modifierAt_) Fail_Lone_Modifier();
  if (!groups_.empty()) Fail(groups_.back().openAt, "'('" + At(groups_.back().openAt) + " has no closing ')'");
  return std::move(inputs_);
}

void KeyStringParser::Read_Next() {
  switch (keys_[at_]) {
    case '+':
    case '^':
    case '%':
      return Hold_Modifier();
    case '(':
      return Open_Group();
    case ')':
      return Close_Group();
    case '{':
      return Read_Braced();
    case '}':
      Fail(at_, "'}'" + At(at_) + " has no opening '{' (type {}} for a brace)");
    case '~':
      Send(Virtual_Key(kReturn));
      ++at_;
      return;
    default:
      return Read_Character();
  }
}

// A modifier that is already held, by this key's modifiers or by an
// enclosing group, is not pressed a second time: "+(a+b)" shifts both
// letters and releases Shift once, after the group.
void KeyStringParser::Hold_Modifier() {
  if (!modifierAt_) modifierAt_ = at_;
  const std::uint16_t modifier = Modifier_Key(keys_[at_++]);
  if (!Held(modifier) && std::find(pending_.begin(), pending_.end(), modifier) == pending_.end())
    pending_.push_back(modifier);
}

bool KeyStringParser::Held(std::uint16_t modifier) const {
  return std::any_of(groups_.begin(), groups_.end(), [&](const Group& group) {
    return std::find(group.modifiers.begin(), group.modifiers.end(), modifier) != group.modifiers.end();
  });
}

void KeyStringParser::Fail_Lone_Modifier() const {
  Fail(*modifierAt_, "'" + std::string(1, keys_[*modifierAt_]) + "'" + At(*modifierAt_) + " has no key after it");
}

void KeyStringParser::Open_Group() {
  Group group{at_++, std::move(pending_), inputs_.size()};
  Press_Modifiers(group.modifiers);
  groups_.push_back(std::move(group));
  pending_.clear();
  modifierAt_.reset();
}

// A group that sent nothing ("%({TAB 0})") takes its modifier presses back:
// Alt pressed and released alone would open the target's menu bar.
void KeyStringParser::Close_Group() {
  if (groups_.empty()) Fail(at_, "')'" + At(at_) + " has no opening '('");
  if (modifierAt_) Fail_Lone_Modifier();
  Group group = std::move(groups_.back());
  groups_.pop_back();
  if (!group.hasKey) Fail(group.openAt, "Empty parentheses ()" + At(group.openAt));
  if (inputs_.size() == group.firstInput + group.modifiers.size())
    inputs_.resize(group.firstInput);
  else
    Release_Modifiers(group.modifiers);
  if (!groups_.empty()) groups_.back().hasKey = true;
  ++at_;
}

// braced := "}" ["}" | " " count] | (name | character) [" " count]
// The first character after "{" always belongs to the key, so "{}}" and
// "{{}" are the braces themselves.
void KeyStringParser::Read_Braced() {
  const std::size_t open = at_, first = at_ + 1;
  const bool braceKey =
      first + 1 < keys_.size() && keys_[first] == '}' && (keys_[first + 1] == '}' || keys_[first + 1] == ' ');
  if (first < keys_.size() && keys_[first] == '}' && !braceKey)
    Fail(open, "Empty braces {}" + At(open) + " (type {{} or {}} for a brace)");
  const std::size_t close = first < keys_.size() ? keys_.find('}', first + 1) : std::string_view::npos;
  if (close == std::string_view::npos) Fail(open, "'{'" + At(open) + " has no closing '}'");

  const std::string_view braced = keys_.substr(first, close - first);
  const std::size_t blank = braced.find(' ', 1);
  const std::string_view name = braced.substr(0, blank);
  int count = 1;
  if (blank != std::string_view::npos) {
    const auto repeats = Repeat_Count(braced.substr(blank + 1));
    if (!repeats)
      Fail(open, "Bad repeat count in {" + std::string(braced) + "}" + At(open) +
                     ": a count is a whole number from 0 to " + std::to_string(kMostKeyRepeats));
    count = *repeats;
  }
  if (name.size() == 1) {
    Send(Character_Key(static_cast<unsigned char>(name[0]), first, count));
  } else {
    const auto key = Named_Key(name);
    if (!key) Fail(open, "Unknown key name {" + std::string(name) + "}" + At(open));
    Send(Virtual_Key(*key, count));
  }
  at_ = close + 1;
}

// A line end written CR LF is one Enter, not two.
void KeyStringParser::Read_Character() {
  const auto byte = static_cast<unsigned char>(keys_[at_]);
  Send(Character_Key(byte, at_));
  ++at_;
  if (byte == '\r' && at_ < keys_.size() && keys_[at_] == '\n') ++at_;
}

// Presses the key with the modifiers written before it, and releases them in
// reverse order. A count of 0 sends nothing, the modifiers neither.
void KeyStringParser::Send(const Key& key) {
  if (!groups_.empty()) groups_.back().hasKey = true;
  modifierAt_.reset();
  const std::vector<std::uint16_t> modifiers = std::move(pending_);
  pending_.clear();
  if (key.count == 0) return;
  if (inputs_.size() + 2 * (modifiers.size() + key.count) > kMostKeyInputs)
    Fail(at_, "Too many keys: the key" + At(at_) + " takes the string past " + std::to_string(kMostKeyInputs) +
                  " key events");
  Press_Modifiers(modifiers);
  KeyInput up = key.down;
  up.up = true;
  for (int press = 0; press < key.count; ++press) {
    inputs_.push_back(key.down);
    inputs_.push_back(up);
  }
  Release_Modifiers(modifiers);
}

void KeyStringParser::Press_Modifiers(const std::vector<std::uint16_t>& modifiers) {
  for (std::uint16_t modifier : modifiers) inputs_.push_back({false, modifier, 0, false});
}

void KeyStringParser::Release_Modifiers(const std::vector<std::uint16_t>& modifiers) {
  for (auto modifier = modifiers.rbegin(); modifier != modifiers.rend(); ++modifier)
    inputs_.push_back({false, *modifier, 0, true});
}

}  // namespace

KeyParseResult Parse_Key_String(std::string_view keys) {
  KeyParseResult result;
  try {
    result.inputs = KeyStringParser(keys).Parse();
  } catch (const KeySyntaxError& error) {
    result.ok = false;
    result.error = error.message;
    result.errorPosition = error.position + 1;
  }
  return result;
}

std::string Key_String_Complaint(const KeyParseResult& refused) { return "Invalid key string:  " + refused.error; }

std::vector<std::vector<KeyInput>> Key_Groups(const std::vector<KeyInput>& inputs) {
  std::vector<std::vector<KeyInput>> groups;
  std::size_t held = 0;
  for (const KeyInput& input : inputs) {
    if (held == 0) groups.emplace_back();
    groups.back().push_back(input);
    if (!input.up) {
      ++held;
    } else if (held > 0) {
      --held;
    }
  }
  return groups;
}

}  // namespace velmora
