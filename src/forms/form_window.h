// What the editor's procedures need of the form's own window: its place and
// state, the screen's size, its title and enabled state. Twips throughout.
#pragma once

#include <string>

#include "control_state.h"

namespace velmora {

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

class FormWindow {
 public:
  virtual ~FormWindow() = default;
  // The outer edges of the form as on the screen; a minimised form reports
  // its position off the screen and the size it will have when restored.
  virtual TwipsRect Placement() = 0;
  // The place and size the form has when neither minimised nor maximised.
  virtual TwipsRect RestoredPlacement() = 0;
  // Sets the normal (restored) place and size, whatever the state.
  virtual void SetPlacement(const TwipsRect& rect) = 0;
  virtual WindowState State() = 0;
  virtual void SetState(WindowState state) = 0;
  virtual long ScreenWidth() = 0;
  virtual long ScreenHeight() = 0;
  // Brings the window that has the keyboard focus to the foreground, after a
  // run has activated other programs.
  virtual void BringFocusToForeground() = 0;
  // Asks the form to close again: a close that waited for a run or pick.
  virtual void Close() = 0;
};

}  // namespace velmora
