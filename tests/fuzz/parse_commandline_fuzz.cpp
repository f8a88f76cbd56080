// Splits arbitrary process command lines as the shell hands them over
// (Arguments_Of) and as start-up reads them (Parse_CommandLine), in both
// sessions, and checks the grammar's promises: names come back trimmed and
// free of quotes, an output the line does not supply stays as it was, a bad
// line is reported, and a line without quotes is one script name.
#include "command_line.h"
#include "fuzz_support.h"
#include "process_arguments.h"
#include "text.h"

namespace velmora::fuzz {

constexpr char kUnset[] = "\"unset\"";  // no name can hold a quote

bool Trimmed_Without_Quotes(const std::string& name) {
  return name.find('"') == std::string::npos && name == Trim(name);
}

void Check_Split(const std::string& line, bool interactive) {
  Session session(interactive);
  session.host.commandLine = line;
  std::string script = kUnset, debug = kUnset;
  bool accepted = false;
  try {
    accepted = Parse_CommandLine(session.engine, line, script, debug);
  } catch (const ProcessEnded& ended) {
    Require(!interactive && ended.exitCode == 1);  // only a reported bad line ends the session
    return;
  }
  Require(accepted != session.engine.state.StopRunning);
  if (!accepted) return Require(debug == kUnset);
  Require(script != kUnset && Trimmed_Without_Quotes(script) && (debug == kUnset || Trimmed_Without_Quotes(debug)));
  if (line.find('"') == std::string::npos) Require(script == Trim(line) && debug == kUnset);
}

void One_Input(std::string_view bytes) {
  const std::string full(bytes);
  // The arguments are what follows the program name and the white space after it.
  const std::string line = Arguments_Of(full);
  Require(line.size() <= full.size() && full.ends_with(line));
  Require(line.empty() || (line.front() != ' ' && line.front() != '\t'));
  Check_Split(line, true);
  Check_Split(line, false);
  Check_Split(full, true);
}

}  // namespace velmora::fuzz
