#include "key_names.h"

#include <array>
#include <utility>

#include "text.h"
#include "virtual_keys.h"

namespace velmora {

namespace {

using namespace virtual_key;

constexpr std::array<std::pair<std::string_view, std::uint16_t>, 29> kNames = {{
    {"enter", kReturn},     {"tab", kTab},         {"esc", kEscape},        {"escape", kEscape},
    {"backspace", kBack},   {"bs", kBack},         {"bksp", kBack},         {"delete", kDelete},
    {"del", kDelete},       {"insert", kInsert},   {"ins", kInsert},        {"home", kHome},
    {"end", kEnd},          {"pgup", kPrior},      {"pgdn", kNext},         {"up", kUp},
    {"down", kDown},        {"left", kLeft},       {"right", kRight},       {"break", kCancel},
    {"capslock", kCapital}, {"numlock", kNumLock}, {"scrolllock", kScroll}, {"prtsc", kSnapshot},
    {"help", kHelp},        {"add", kAdd},         {"subtract", kSubtract}, {"multiply", kMultiply},
    {"divide", kDivide},
}};

constexpr int kFunctionKeys = kF16 - kF1 + 1;

// F1 to F16, written without leading zeros ("F01" is no key).
std::optional<std::uint16_t> Function_Key(std::string_view name) {
  if (name.size() < 2 || name.size() > 3 || name[0] != 'f' || name[1] == '0') return std::nullopt;
  int number = 0;
  for (char digit : name.substr(1)) {
    if (digit < '0' || digit > '9') return std::nullopt;
    number = number * 10 + (digit - '0');
  }
  if (number > kFunctionKeys) return std::nullopt;
  return static_cast<std::uint16_t>(kF1 + number - 1);
}

}  // namespace

std::optional<std::uint16_t> Named_Key(std::string_view name) {
  const std::string lower = Lower(name);
  for (const auto& [keyName, key] : kNames)
    if (keyName == lower) return key;
  return Function_Key(lower);
}

std::string Key_Name(std::uint16_t virtualKey) {
  for (const auto& [keyName, key] : kNames)
    if (key == virtualKey) {
      std::string name(keyName);
      for (char& letter : name)
        if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
      return name;
    }
  if (virtualKey >= kF1 && virtualKey <= kF16) return "F" + std::to_string(virtualKey - kF1 + 1);
  return "";
}

}  // namespace velmora
