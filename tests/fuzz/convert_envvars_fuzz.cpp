// Expands arbitrary text against a small simulated environment, in the
// editor and in an automatic session, and checks what the notation promises:
// text without backquotes is left alone, every marker is resolved, and the
// three conversion lines are logged exactly when a variable was used.
#include <cstddef>
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "careful_io.h"
#include "engine.h"
#include "environment.h"
#include "sim_host.h"
#include "sim_registry.h"
#include "trap.h"

namespace {

using namespace velmora;

constexpr std::string_view kOverflowed = "Error Location:  Velmora.(General).Convert_EnvVars.TrappableErrors.1";

void Require(bool condition) {
  if (!condition) __builtin_trap();
}

// A few variables: an empty one, a name with a blank, and values holding
// backquotes, which are never expanded again.
void Set_Environment(SimHost& host) {
  host.environment = {{"OS", "Windows_NT"},      {"WINDIR", "C:\\WINDOWS"}, {"EMPTY", ""},
                      {" PATH", "C:\\BIN"},      {"BACK", "`OS`"},          {"A", "``"},
                      {"TEMP", "C:\\TEMP\\`x"}};
}

std::size_t Longest_Value(const SimHost& host) {
  std::size_t longest = 0;
  for (const auto& [name, value] : host.environment) longest = std::max(longest, value.size());
  return longest;
}

bool Has_Count_Line_Form(const std::string& line) {
  constexpr std::string_view kOne = "One (1) Environment Variable Used.  Conversion follows:";
  constexpr std::string_view kMany = " Environment Variables Used.  Conversion follows:";
  if (line == kOne) return true;
  return line.size() > kMany.size() && line.compare(line.size() - kMany.size(), kMany.size(), kMany) == 0;
}

// The lines one expansion logged and what it returned.
void Check_Expansion(const SimHost& host, const std::string& text, const std::string& expanded,
                     const std::vector<std::string>& logged) {
  const bool inputHasMarkers = text.find('\n') != std::string::npos;
  for (const auto& line : logged)
    if (line == kOverflowed) return;  // more than 255 references: reported, the text left half done
  if (text.find('`') == std::string::npos && !inputHasMarkers) {
    Require(expanded == text);
    Require(logged.empty());
    return;
  }
  if (logged.empty()) {
    // Nothing was replaced: at most doubled backquotes collapsed.
    Require(expanded.size() <= text.size());
  } else {
    Require(logged.size() == 3);
    Require(Has_Count_Line_Form(logged[0]));
    Require(logged[1] == "     " + text);
    Require(logged[2] == " --> " + expanded);
    Require(expanded.size() <= text.size() + text.size() / 2 * Longest_Value(host));
  }
  // Every marker found its partner or went back to being a backquote.
  if (!inputHasMarkers) Require(expanded.find('\n') == std::string::npos);
}

void Interactive_Expansion(const std::string& text) {
  SimHost host;
  SimRegistry registry;
  Engine engine(host, registry);
  Set_Environment(host);
  engine.state.InteractiveSession = true;
  engine.state.DebugOn = true;
  const std::string expanded = Convert_EnvVars(engine, true, text);
  Check_Expansion(host, text, expanded, engine.DebugWindow.Items());

  // The test command compares two expansions; it must not fail on any text.
  const std::string parameters = text + '\n' + text;
  engine.state.LastCommandSucceeded = false;
  TestEnvironmentVariables_Command(engine, true, parameters, engine.state.LastCommandSucceeded);
}

// In an automatic session the log goes to the debug file; an overflowing
// count is fatal and ends the session.
void Automatic_Expansion(const std::string& text) {
  SimHost host;
  SimRegistry registry;
  Engine engine(host, registry);
  Set_Environment(host);
  engine.state.DebugOn = true;
  std::string name = "a.vld";
  Careful_IO(engine, false, kOpenOutput, engine.state.DebugFileNumber, name, "", "", kFatal);
  engine.state.DebugFileOpen = true;
  try {
    Convert_EnvVars(engine, false, text);
  } catch (const ProcessEnded& ended) {
    Require(ended.exitCode == 1);
    const auto log = host.Lines("a.vld");
    bool overflowed = false;
    for (const auto& line : log) overflowed |= line == kOverflowed;
    Require(overflowed);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  Interactive_Expansion(text);
  Automatic_Expansion(text);
  return 0;
}
