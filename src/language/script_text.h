// Text operations on a script line as the parser reads it: views instead of
// copies, blanks as the only white space, and the failures of a malformed
// line raised as trappable errors rather than read past the end.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace velmora {

// The text without blanks at either end.
std::string_view Trim_Blanks(std::string_view text);

// The mark that a breakpoint puts before a line in the editor.
constexpr std::string_view kBreakpointMark = ">>>";

// The line, trimmed, without a breakpoint mark in front (itself trimmed).
std::string_view Without_Breakpoint_Mark(std::string_view line);

// The text from the position on; empty when the position is past the end.
std::string_view Text_From(std::string_view text, std::size_t position);

// True when the piece occurs in the set. An empty piece always occurs, so a
// missing letter passes a letter check.
bool Occurs_In(std::string_view set, std::string_view piece);

// The position of the first occurrence of the character. A line whose
// character is missing cannot be cut there: InvalidCallError.
std::size_t Position_Of(std::string_view text, char wanted);

// The text between its first and last characters. Fewer than two characters
// cannot be unwrapped: InvalidCallError.
std::string_view Inner_Text(std::string_view text);

// The value of a text that Is_Numeric accepts; nothing for any other text.
// A number too large or too small for a double: OverflowError.
std::optional<double> Number_In(std::string_view text);

// True when the value is a whole number.
bool Is_Whole(double value);

}  // namespace velmora
