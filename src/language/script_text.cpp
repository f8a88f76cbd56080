#include "script_text.h"

#include <cmath>

#include "numeric.h"
#include "trap.h"

namespace velmora {

std::string_view Trim_Blanks(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string_view Without_Breakpoint_Mark(std::string_view line) {
  line = Trim_Blanks(line);
  return line.substr(0, kBreakpointMark.size()) == kBreakpointMark ? Trim_Blanks(line.substr(kBreakpointMark.size()))
                                                                    : line;
}

std::string_view Text_From(std::string_view text, std::size_t position) {
  return position < text.size() ? text.substr(position) : std::string_view();
}

bool Occurs_In(std::string_view set, std::string_view piece) { return set.find(piece) != std::string_view::npos; }

std::size_t Position_Of(std::string_view text, char wanted) {
  const auto position = text.find(wanted);
  if (position == std::string_view::npos) throw InvalidCallError();
  return position;
}

std::string_view Inner_Text(std::string_view text) {
  if (text.size() < 2) throw InvalidCallError();
  return text.substr(1, text.size() - 2);
}

namespace {

constexpr std::size_t kExactDigits = 15;  // every whole number of 15 digits is exact in a double

// Plain digits, the usual case in a script, read without the general reader.
std::optional<double> Plain_Digits_Value(std::string_view text) {
  if (text.empty() || text.size() > kExactDigits) return std::nullopt;
  long long value = 0;
  for (char c : text) {
    if (c < '0' || c > '9') return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return static_cast<double>(value);
}

}  // namespace

// Reads first and asks why only when reading failed: a line is read once.
std::optional<double> Number_In(std::string_view text) {
  if (auto plain = Plain_Digits_Value(text)) return plain;
  auto value = Numeric_Value(text);
  if (!value && Is_Numeric(text)) throw OverflowError();
  return value;
}

bool Is_Whole(double value) { return std::isfinite(value) && value == std::floor(value); }

}  // namespace velmora
