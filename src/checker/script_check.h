// Checking a script without running it: the parse and the pass over the
// script that a run makes, every complaint rather than the first, and
// warnings for lines the parser accepts but a run will trip over.
#pragma once

#include <string>
#include <vector>

namespace velmora {

class Host;
class Registry;

struct CheckFinding {
  long line = 0;  // from 1; 0 when the complaint concerns no one line
  bool error = true;
  std::string text;
};

// The findings in line order. SPEED_FACTOR is read as a run reads it, since
// it scales the times that are checked.
std::vector<CheckFinding> Check_Script(Host& host, Registry& registry, const std::vector<std::string>& lines);

}  // namespace velmora
