// Feeds arbitrary bytes to Parse_Command as one script line, first as the
// editor parses it, then as an automatic session does, and checks that the
// outputs always agree with each other.
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "engine.h"
#include "parser.h"
#include "sim_host.h"
#include "sim_registry.h"

namespace {

using namespace velmora;

constexpr int kTraceLines = 8;
constexpr std::int16_t kFailingLine = 3;

void Require(bool condition) {
  if (!condition) __builtin_trap();
}

// What holds for every line: the result is the code's, the code is a known
// one, and a blank line has nothing to say.
void Check_Outputs(bool accepted, const ParsedCommand& command) {
  Require(accepted == (command.CommandCode != kUnknownCommand));
  Require(command.CommandCode <= kSendButtonsCommand || command.CommandCode == kUnknownCommand);
  if (command.CommandCode == kBlankLine) Require(command.Parameters.empty() && command.CommandWord.empty());
  if (command.CommandCode >= kQuitCommand && command.CommandCode <= kRepeatCommand)
    Require(command.Parameters.empty());
  if (command.CommandCode == kUseMouseCommand && !command.ParseError)
    Require(command.MouseX >= 0 && command.MouseX <= 65535 && command.MouseY >= 0 && command.MouseY <= 65535);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view line(reinterpret_cast<const char*>(data), size);
  SimHost host;
  SimRegistry registry;
  Engine engine(host, registry);
  for (int index = 0; index < kTraceLines; ++index) engine.TraceWindow.Add("line");

  engine.state.InteractiveSession = true;
  engine.state.DebugOn = true;
  ParsedCommand command;
  Check_Outputs(Parse_Command(engine, true, line, 1.5, command, kFailingLine), command);
  Require(command.ParseError || engine.TraceWindow.Selected() == ListModel::kNoSelection);

  engine.state.InteractiveSession = false;
  engine.state.StopRunning = false;
  try {
    ParsedCommand automatic;
    Check_Outputs(Parse_Command(engine, false, line, 1, automatic, kNoEditorLine), automatic);
  } catch (const ProcessEnded&) {
    // A fatal report ends an automatic session.
  }
  return 0;
}
