// Expands arbitrary text against a small simulated environment, in the
// editor and in an automatic session, and checks what the notation promises:
// text without backquotes is left alone, and the three conversion lines are
// logged exactly when a variable was used. Values holding backquotes are
// never expanded again.
#include "environment.h"
#include "fuzz_support.h"

namespace velmora::fuzz {

constexpr std::string_view kOverflowed = "Error Location:  Velmora.(General).Convert_EnvVars.TrappableErrors.1";
constexpr std::string_view kMany = " Environment Variables Used.  Conversion follows:";

void Expand(const std::string& text, bool interactive) {
  Session session(interactive);
  session.host.environment = {{"OS", "Windows_NT"}, {"EMPTY", ""}, {" PATH", "C:\\BIN"}, {"BACK", "`OS`"}, {"A", "``"}};
  std::string expanded;
  try {
    expanded = Convert_EnvVars(session.engine, interactive, text);
  } catch (const ProcessEnded& ended) {
    Require(!interactive && ended.exitCode == 1 && session.Logged(kOverflowed));
    return;
  }
  // The file of an automatic session splits lines at the text's own line
  // ends, so the lines are checked in the editor's window; more than 255
  // references are reported and leave the text half done.
  if (!interactive || session.Logged(kOverflowed)) return;
  const auto log = session.Log();
  if (text.find_first_of("`\n") == std::string::npos) Require(expanded == text && log.empty());
  if (log.empty()) {
    Require(expanded.size() <= text.size());  // at most doubled backquotes collapsed
    return;
  }
  Require(log.size() == 3 && log[1] == "     " + text && log[2] == " --> " + expanded);
  Require(log[0] == "One (1) Environment Variable Used.  Conversion follows:" ||
          (log[0].size() > kMany.size() && log[0].ends_with(kMany)));
  // The test command compares two expansions; it must not fail on any text.
  TestEnvironmentVariables_Command(session.engine, true, text + '\n' + text, session.engine.state.LastCommandSucceeded);
}

void One_Input(std::string_view bytes) {
  Expand(std::string(bytes), true);
  Expand(std::string(bytes), false);
}

}  // namespace velmora::fuzz
