#include "numeric.h"

#include <charconv>
#include <cmath>

#include "text.h"

namespace velmora {

bool Is_Numeric(std::string_view text) {
  const std::string trimmed = Trim(text);
  std::string_view rest(trimmed);
  if (!rest.empty() && (rest.front() == '+' || rest.front() == '-')) rest.remove_prefix(1);
  bool digit = false, stop = false;
  for (char c : rest) {
    if (c >= '0' && c <= '9') {
      digit = true;
    } else if (c == '.' && !stop) {
      stop = true;
    } else {
      return false;
    }
  }
  return digit;
}

std::optional<double> Numeric_Value(std::string_view text) {
  if (!Is_Numeric(text)) return std::nullopt;
  std::string trimmed = Trim(text);
  std::string_view digits(trimmed);
  const bool negative = digits.front() == '-';
  if (digits.front() == '+' || digits.front() == '-') digits.remove_prefix(1);
  double value = 0;
  // from_chars wants a digit before the full stop; ".5" is read as "0.5".
  const std::string body = digits.front() == '.' ? "0" + std::string(digits) : std::string(digits);
  const auto [end, error] = std::from_chars(body.data(), body.data() + body.size(), value);
  if (error != std::errc() || end != body.data() + body.size()) return std::nullopt;
  return negative ? -value : value;
}

double Round_Half_Even(double value) { return std::nearbyint(value); }

std::string Shortest_Decimal(double value, const std::string& decimalSeparator) {
  char buffer[512];  // room for every double in fixed form
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
  std::string text(buffer, error == std::errc() ? end : buffer);
  if (const auto stop = text.find('.'); stop != std::string::npos) text.replace(stop, 1, decimalSeparator);
  return text;
}

}  // namespace velmora
