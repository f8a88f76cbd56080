// Small text helpers with the script language's own rules: blanks are the
// only white space that trimming removes, and case folding is ASCII only.
#pragma once

#include <string>
#include <string_view>

namespace velmora {

std::string Trim(std::string_view text);
std::string Lower(std::string_view text);
bool Starts_With(std::string_view text, std::string_view prefix);

}  // namespace velmora
