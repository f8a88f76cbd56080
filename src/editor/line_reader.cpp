// Reading a script line back into the panel, so that the user can change it
// and overwrite it.
#include <string_view>

#include "catalogue_table.h"
#include "command_panel.h"
#include "engine.h"
#include "error_report.h"
#include "line_composer.h"
#include "parser.h"
#include "script_text.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

using C = ControlId;

// The variable name as the panel holds it: without the backquotes that the
// composed line puts around it.
std::string Bare_Name(std::string name) {
  if (name.size() >= 2 && name.front() == '`' && name.back() == '`') return name.substr(1, name.size() - 2);
  return name;
}

}  // namespace

// Minutes before the full stop, seconds after it, as written in the line.
void LineComposer::Fill_Time(const std::string& time) {
  const auto stop = time.find('.');
  controls_.SetCaption(C::Minutes, Trim(time.substr(0, stop)));
  controls_.SetCaption(C::Seconds, stop == std::string::npos ? "" : Trim(time.substr(stop + 1)));
}

void LineComposer::Fill_Panel(const ParsedCommand& parsed, const std::string& line) {
  const std::string& parameters = parsed.Parameters;
  const auto colon = line.find(':');
  const std::string written = colon == std::string::npos ? "" : Trim(line.substr(colon + 1));
  switch (parsed.CommandCode) {
    case kRunCommand:
    case kSendKeysCommand:
      return controls_.SetCaption(C::CommandLine, parameters);
    case kCommentLine:
      return controls_.SetCaption(C::CommandLine, line);
    case kWaitCommand:
      return Fill_Time(parameters);
    case kFindWindowCommand: {
      // The description as the user wrote it; the time follows its last comma.
      const auto comma = written.rfind(',');
      controls_.SetCaption(C::CommandLine, Trim(written.substr(0, comma)));
      return Fill_Time(written.substr(comma + 1));
    }
    case kIfCommand:
    case kWhileCommand:
    case kUntilCommand:
      return controls_.SetChecked(DebugState(parameters == "failed" ? 1 : 0), true);
    case kDebugCommand:
      return controls_.SetChecked(DebugState(parameters == "off" ? 1 : 0), true);
    case kUseMouseCommand:
      controls_.SetCaption(C::Minutes, std::to_string(parsed.MouseX));
      controls_.SetCaption(C::Seconds, std::to_string(parsed.MouseY));
      [[fallthrough]];
    case kSendButtonsCommand: {
      const bool none = parameters[0] == 'n' || parameters[1] == 'c';
      controls_.SetChecked(MouseButton(none ? 3 : static_cast<int>(std::string_view("lmr").find(parameters[1]))), true);
      return controls_.SetChecked(C::DoubleClick, parameters[0] == 'd');
    }
    case kTestCommand: {
      const auto separator = parameters.find('\n');
      controls_.SetCaption(C::Minutes, Bare_Name(parameters.substr(0, separator)));
      return controls_.SetCaption(C::Seconds, parameters.substr(separator + 1));
    }
    default:
      return;
  }
}

// A line that fails its checks is reported by the parser and not loaded: the
// panel keeps what it held. Its report is fatal for a run, but no run is under
// way, so the stop it asks for is withdrawn and the next run starts normally.
void LineComposer::TraceWindow_DblClick() {
  Trap(engine_, true, "Editor.TraceWindow.DblClick.TrappableErrors.1", kGoOn, [&] {
    const ListModel& trace = engine_.TraceWindow;
    const long index = trace.Selected();
    if (index < 0) return;
    const std::string line(Without_Breakpoint_Mark(trace.Item(index)));
    ParsedCommand parsed;
    const bool stopRunning = engine_.state.StopRunning;
    const bool known = Parse_Command(engine_, true, line, engine_.state.SpeedFactor, parsed, index);
    engine_.state.StopRunning = stopRunning;
    if (parsed.ParseError) return;
    const auto place = known ? Catalogue_Place_Of(parsed.CommandCode) : std::nullopt;
    if (!place) {
      Report_Error(engine_, true, -1, "Unknown Command:  " + line, "Unknown Command Found Error!",
                   "Editor.TraceWindow.DblClick.UnknownCommandError.1", kGoOn);
      return;
    }
    // Overwrite mode first: a field that takes the focus must not start a pick.
    panel_.Set_Overwrite_Mode(true);
    if (panel_.Catalogue() != place->Catalogue) panel_.Load_Commands(place->Catalogue);
    panel_.Forget_Choice();
    panel_.CommandList_Click(place->Position);
    Fill_Panel(parsed, line);
    // The values read back make a whole line: the button need not wait for typing.
    if (panel_.Insert_Allowed()) controls_.SetEnabled(C::InsertCommandButton, true);
  });
}

}  // namespace velmora
