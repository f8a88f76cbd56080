// Why findwindow found nothing: the windows that come nearest the described
// levels, and where each first departs from them. Asked for only after a
// search has failed, so a search that succeeds never pays for it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "target_state.h"

namespace velmora {

class Desktop;

struct NearWindow {
  WindowHandle window = 0;
  std::size_t matchingLevels = 0;  // levels that fit, from the outermost in
  const char* field = "";          // the first field of the next level that differs
  std::string wanted, found;
};

// Up to `most` windows, nearest first: most levels fitting, then fewest
// fields differing at the first level that does not fit, then the longest
// common start of the first differing texts. Only the children of windows
// that fit their level are read.
std::vector<NearWindow> Nearest_Windows(Desktop& desktop, const std::vector<WindowLevel>& levels, std::size_t most = 3);

// The Info lines that say so, for the log.
std::vector<std::string> Near_Window_Lines(const std::vector<NearWindow>& nearest, std::size_t levelCount);

}  // namespace velmora
