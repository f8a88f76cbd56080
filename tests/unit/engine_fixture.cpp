#include "engine_fixture.h"

#include "about.h"

namespace velmora::testing {

namespace {
const std::string kRule(77, '-');
}

std::vector<std::string> Fatal_Block(const std::string& message, long code, const std::string& location) {
  return {"",
          kRule,
          Identification_Line(),
          "Fatal Error:  " + message + ".",
          "Error Code:  " + std::to_string(code),
          "Error Location:  " + location,
          "Program will TERMINATE.  This operation was unsuccessful and caused a fatal error.",
          kRule,
          ""};
}

std::vector<std::string> Go_On_Block(const std::string& message, long code, const std::string& location, bool closed) {
  std::vector<std::string> block{"",
                                 kRule,
                                 Identification_Line(),
                                 message + ".",
                                 "Error Code:  " + std::to_string(code),
                                 "Error Location:  " + location,
                                 "Program will continue, but this operation was unsuccessful."};
  if (closed) {
    block.push_back(kRule);
    block.push_back("");
  }
  return block;
}

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

}  // namespace velmora::testing
