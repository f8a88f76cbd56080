// The error report: a framed block in the debug log that either lets the
// program go on or ends the run.
#pragma once

#include <string>

namespace velmora {

struct Engine;

void Report_Error(Engine& engine, bool interactive, long code, const std::string& message, const std::string& title,
                  const std::string& location, int kind);

}  // namespace velmora
