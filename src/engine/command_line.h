// The process command line: one quoted script name, then a debug name.
#pragma once

#include <string>

namespace velmora {

struct Engine;

// Splits the command line into the script and debug names. Each output is
// left unchanged when the line does not supply it. Returns false after
// reporting a malformed line.
bool Parse_CommandLine(Engine& engine, const std::string& commandLine, std::string& scriptName,
                       std::string& debugName);

}  // namespace velmora
