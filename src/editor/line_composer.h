// Composing and editing script lines: the filled panel made into a line and
// placed in the script, a line read back into the panel to overwrite it, and
// a line removed.
#pragma once

#include <string>

namespace velmora {

class ListModel;
struct Engine;
struct ParsedCommand;
class CommandPanel;
class EditorActivity;
class FormControls;

// Puts the line before the highlighted one, which stays highlighted; at the
// end when no line is highlighted. Returns where the line went.
long Insert_Before_Highlighted(ListModel& script, const std::string& line);

class LineComposer {
 public:
  LineComposer(Engine& engine, FormControls& controls, CommandPanel& panel, EditorActivity& activity)
      : engine_(engine), controls_(controls), panel_(panel), activity_(activity) {}

  void InsertCommandButton_Click();
  void RemoveCommandButton_Click();
  void TraceWindow_DblClick();
  void TraceWindow_Click();

 private:
  std::string Compose_Line();
  void Place_Line(const std::string& line);
  void Fill_Panel(const ParsedCommand& parsed, const std::string& line);
  void Fill_Time(const std::string& time);

  Engine& engine_;
  FormControls& controls_;
  CommandPanel& panel_;
  EditorActivity& activity_;
};

}  // namespace velmora
