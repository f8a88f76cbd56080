// Numbers as scripts and the environment write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmora {

// Blanks around, an optional sign, digits with at most one full stop, and at
// least one digit. No exponents, no thousands separators, whatever the locale.
bool Is_Numeric(std::string_view text);

// The value of a text that Is_Numeric accepts; nothing otherwise.
std::optional<double> Numeric_Value(std::string_view text);

// Rounds to the nearest whole number, halves to the even one.
double Round_Half_Even(double value);

// The shortest decimal form that reads back as the same value, with the
// given decimal separator in place of the full stop.
std::string Shortest_Decimal(double value, const std::string& decimalSeparator);

}  // namespace velmora
