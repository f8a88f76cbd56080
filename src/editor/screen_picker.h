// Picking with the mouse: the window under the pointer for a findwindow
// line, or a screen position for a usemouse line, taken once the pointer has
// stood still. Entered by Tab or Shift+Tab, a field that already holds a
// value is left to correct by hand.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "desktop.h"
#include "target_state.h"

namespace velmora {

struct Engine;
class CommandPanel;
class EditorActivity;
class FormControls;

class ScreenPicker {
 public:
  // A run line's field asks for its program through a dialog instead.
  ScreenPicker(Engine& engine, FormControls& controls, CommandPanel& panel, EditorActivity& activity,
               std::function<void()> browseForProgram)
      : engine_(engine),
        controls_(controls),
        panel_(panel),
        activity_(activity),
        browseForProgram_(std::move(browseForProgram)) {}

  void CommandLine_GotFocus(bool byKeyboard = false);
  void Minutes_GotFocus(bool byKeyboard = false);

 private:
  void Disable_For_Pick(const char* title, const char* logLine, const char* hint);
  void Enable_After_Pick();
  std::optional<ScreenPoint> Wait_For_Still_Pointer(bool frameWindows);
  void Erase_Frame(WindowHandle framed);

  Engine& engine_;
  FormControls& controls_;
  CommandPanel& panel_;
  EditorActivity& activity_;
  std::function<void()> browseForProgram_;
};

}  // namespace velmora
