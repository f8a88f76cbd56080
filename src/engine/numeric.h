// Numbers as scripts and the environment write them.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "trap.h"

namespace velmora {

// Blanks around, an optional sign, digits with at most one full stop, and at
// least one digit. No exponents, no thousands separators, whatever the locale.
bool Is_Numeric(std::string_view text);

// The value of a text that Is_Numeric accepts; nothing otherwise.
std::optional<double> Numeric_Value(std::string_view text);

// Rounds to the nearest whole number, halves to the even one.
double Round_Half_Even(double value);

// The whole number nearest to the value, halves to even, as an integer of
// type T. A value outside T's range (or not a number) is an overflow: a
// conversion never wraps or goes undefined.
template <class T>
T Rounded_To(double value) {
  static_assert(sizeof(T) <= sizeof(std::int32_t), "every bound must be exact in a double");
  const double rounded = Round_Half_Even(value);
  if (!(rounded >= static_cast<double>(std::numeric_limits<T>::min()) &&
        rounded <= static_cast<double>(std::numeric_limits<T>::max())))
    throw OverflowError();
  return static_cast<T>(rounded);
}

// The shortest decimal form that reads back as the same value, never with
// an exponent (0.0001, 200000), with the given decimal separator in place of
// the full stop.
std::string Shortest_Decimal(double value, const std::string& decimalSeparator);

}  // namespace velmora
