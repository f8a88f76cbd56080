// Feeds arbitrary bytes to Parse_Command as one script line, as the editor
// parses it and as an automatic session does, and checks that the outputs
// always agree with each other.
#include "fuzz_support.h"
#include "parser.h"

namespace velmora::fuzz {

constexpr std::int16_t kFailingLine = 3;

// The result is the code's, the code a known one; blank and block lines have
// no parameters, and mouse positions stay in range.
void Check_Outputs(bool accepted, const ParsedCommand& command) {
  const auto code = command.CommandCode;
  Require(accepted == (code != kUnknownCommand));
  Require(code <= kSendButtonsCommand || code == kUnknownCommand);
  if (code == kBlankLine) Require(command.Parameters.empty() && command.CommandWord.empty());
  if (code >= kQuitCommand && code <= kRepeatCommand) Require(command.Parameters.empty());
  if (code == kUseMouseCommand && !command.ParseError)
    Require(command.MouseX >= 0 && command.MouseX <= 65535 && command.MouseY >= 0 && command.MouseY <= 65535);
}

void One_Input(std::string_view line) {
  Session editor(true);
  for (int index = 0; index < 8; ++index) editor.engine.TraceWindow.Add("line");
  ParsedCommand command;
  Check_Outputs(Parse_Command(editor.engine, true, line, 1.5, command, kFailingLine), command);
  // Only a failing line is selected in the trace.
  Require(command.ParseError || editor.engine.TraceWindow.Selected() == ListModel::kNoSelection);
  Session automatic(false);
  try {
    ParsedCommand parsed;
    Check_Outputs(Parse_Command(automatic.engine, false, line, 1, parsed, kNoEditorLine), parsed);
  } catch (const ProcessEnded&) {
    // A fatal report ends an automatic session.
  }
}

}  // namespace velmora::fuzz
