#include "engine_fixture.h"

namespace velmora::test {

Lines Ran_In(const Lines& log) {
  Lines ran;
  for (const std::string& line : log)
    if (line.rfind("==> ", 0) == 0) ran.push_back(line.substr(4));
  return ran;
}

Lines Joined(Lines first, const Lines& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace velmora::test
