// Splits arbitrary process command lines as the shell hands them over
// (Arguments_Of) and as start-up reads them (Parse_CommandLine), in both
// sessions, and checks the grammar's promises: names come back trimmed and
// free of quotes, an output the line does not supply stays as it was, a bad
// line is reported, and a line without quotes is one script name.
#include <cstddef>
#include <cstdint>
#include <string>

#include "command_line.h"
#include "engine.h"
#include "process_arguments.h"
#include "sim_host.h"
#include "sim_registry.h"
#include "text.h"

namespace {

using namespace velmora;

// No name can hold a quote, so this never comes back as one.
constexpr char kUnset[] = "\"unset\"";

void Require(bool condition) {
  if (!condition) __builtin_trap();
}

bool Trimmed_Without_Quotes(const std::string& name) {
  return name.find('"') == std::string::npos && name == Trim(name);
}

void Check_Split(const std::string& line, bool interactive) {
  SimHost host;
  SimRegistry registry;
  Engine engine(host, registry);
  host.commandLine = line;
  engine.state.InteractiveSession = interactive;
  std::string script = kUnset, debug = kUnset;
  bool accepted = false;
  try {
    accepted = Parse_CommandLine(engine, line, script, debug);
  } catch (const ProcessEnded& ended) {
    // Only a reported bad line ends an automatic session, and with status 1.
    Require(!interactive && ended.exitCode == 1);
    return;
  }
  if (!accepted) {
    Require(interactive && engine.state.StopRunning);  // reported as fatal
    Require(debug == kUnset);
    return;
  }
  Require(!engine.state.StopRunning);
  Require(script != kUnset && Trimmed_Without_Quotes(script));
  Require(debug == kUnset || Trimmed_Without_Quotes(debug));
  if (line.find('"') == std::string::npos) {
    // A bare line is one quoted script name.
    Require(script == Trim(line));
    Require(debug == kUnset);
  }
}

// The arguments are what follows the program name and the white space after it.
void Check_Arguments(const std::string& full) {
  const std::string arguments = Arguments_Of(full);
  Require(arguments.size() <= full.size());
  Require(full.compare(full.size() - arguments.size(), arguments.size(), arguments) == 0);
  Require(arguments.empty() || (arguments.front() != ' ' && arguments.front() != '\t'));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string full(reinterpret_cast<const char*>(data), size);
  Check_Arguments(full);
  const std::string line = Arguments_Of(full);
  Check_Split(line, true);
  Check_Split(line, false);
  Check_Split(full, true);
  return 0;
}
