// Recording: the user clicks and types through another program once, and the
// script gets the lines that do it again. Each click becomes a findwindow
// line for the clicked control (as a pick at that point writes it) and a
// sendbuttons line; each run of typing into one control becomes a sendkeys
// line, after a findwindow line when the control is not the current target.
// The lines go in before the highlighted line, as inserting does.
#pragma once

#include <optional>
#include <string>

#include "desktop.h"

namespace velmora {

struct Engine;
class CommandPanel;
class EditorActivity;
class FormControls;

class Recorder : public InputObserver {
 public:
  Recorder(Engine& engine, FormControls& controls, CommandPanel& panel, EditorActivity& activity)
      : engine_(engine), controls_(controls), panel_(panel), activity_(activity) {}

  bool Recording() const { return recording_; }
  // Starts, or ends a recording under way (the menu entry toggles).
  void Toggle();
  void Stop();

  void Button_Down(const ObservedClick& click) override;
  void Key_Down(const ObservedKey& key) override;
  void Observing_Lost(const std::string& reason) override;

 private:
  struct Target {
    WindowHandle window = 0;
    std::string description;  // the findwindow text without its time-out
    std::string identity;     // the same without the points: what sendkeys needs
  };
  struct Click {
    WindowHandle window = 0;
    ObservedClick press;
    long line = -1;
  };
  struct Typing {
    WindowHandle window = 0;
    long line = -1;
    std::string keys;
  };

  void Start();
  void End(const std::string& why);
  bool Own_Window_Clicked(WindowHandle window);
  void Report_Left_Out(const ObservedKey& key);
  bool Completes_Double_Click(const ObservedClick& click, WindowHandle window) const;
  // Writes a findwindow line for the window unless it is the current target
  // (for a click: at the same point too).
  void Aim_At(WindowHandle window, ScreenPoint point, bool forClick);
  long Place(const std::string& line);
  void Replace(long line, const std::string& text);

  Engine& engine_;
  FormControls& controls_;
  CommandPanel& panel_;
  EditorActivity& activity_;
  bool recording_ = false;
  int linesWritten_ = 0;
  Target target_;
  std::optional<Click> lastClick_;
  Typing typing_;
};

}  // namespace velmora
