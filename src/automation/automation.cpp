#include "automation.h"

#include "input_privilege.h"
#include "parsed_command.h"

namespace velmora {

Automation::Automation(Engine& engine, Desktop& desktop)
    : desktop_(desktop),
      search_(engine, desktop),
      findWindow_(engine, desktop, search_, target_),
      sendKeys_(engine, desktop, search_, target_),
      mouse_(engine, desktop, target_) {}

void Automation::FindWindow_Command(Engine&, bool Interactive, const ParsedCommand& command,
                                    bool& LastCommandSucceeded) {
  findWindow_.FindWindow_Command(Interactive, command, LastCommandSucceeded);
}

WindowHandle Automation::Found_Target() const {
  return target_.FoundCount > 0 && target_.TargetList.size() > 1 ? target_.TargetList[1] : 0;
}

void Automation::SendKeys_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                                  bool& LastCommandSucceeded) {
  Note_Input_Barrier(engine, desktop_, Interactive, Found_Target());
  sendKeys_.SendKeys_Command(Interactive, target_.FoundCount, command.Parameters, LastCommandSucceeded);
}

void Automation::UseMouse_Command(Engine& engine, bool Interactive, const ParsedCommand& command) {
  Note_Input_Barrier(engine, desktop_, Interactive, Window_At_Mouse_Position(desktop_, command.MouseX, command.MouseY));
  mouse_.UseMouse_Command(Interactive, command.Parameters, command.MouseX, command.MouseY);
}

// The click goes where the target was picked: the innermost level's fractions.
void Automation::SendButtons_Command(Engine& engine, bool Interactive, const ParsedCommand& command,
                                     bool& LastCommandSucceeded) {
  Note_Input_Barrier(engine, desktop_, Interactive, Found_Target());
  const double x = target_.levels.empty() ? 0.5 : target_.levels.back().relativeX;
  const double y = target_.levels.empty() ? 0.5 : target_.levels.back().relativeY;
  mouse_.SendButtons_Command(Interactive, target_.FoundCount, command.Parameters, x, y, LastCommandSucceeded);
}

}  // namespace velmora
