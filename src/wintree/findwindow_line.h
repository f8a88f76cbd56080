// The findwindow line that wintree --lines prints for a window: portable, so
// that the lines are tested against the script parser natively.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace velmora {

// One window of a chain as the window search reads it: the bytes of its text
// and class in the ANSI code page, and the identifier it compares.
struct WindowLevelText {
  std::string title;
  std::string className;
  long id = 0;
};

// The line for the window whose chain, from the top-level window down, is
// given: every level picked at its centre, 30 seconds to wait. Backquotes are
// doubled, since a run expands environment variables in the line. Nothing
// when a text holds a line break or a double quote, which no line can hold,
// when an identifier is negative, which the parser refuses, or when the
// chain is deeper than a line counts.
std::optional<std::string> FindWindow_Line(const std::vector<WindowLevelText>& chain);

}  // namespace velmora
