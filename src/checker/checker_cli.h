// velmora-check's command line: the options and scripts in, the report
// lines and the exit status out. Portable, so that it is tested natively;
// the console program only converts the text for the console.
#pragma once

#include <string>
#include <vector>

namespace velmora {

class Host;
class Registry;

enum CheckStatus { kCheckClean = 0, kCheckErrors = 1, kCheckUsage = 2 };

struct CheckerOutput {
  std::string out;  // report lines, each ending in '\n'
  std::string err;  // usage complaints and unreadable files
};

int Run_Checker(Host& host, Registry& registry, const std::vector<std::string>& arguments, CheckerOutput& output);

}  // namespace velmora
