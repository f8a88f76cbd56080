// Keys and clicks reach the window the script found, or no window. Before
// input is sent, the target's top-level window is raised and in the
// foreground, and the input would land in the target; a desktop that does
// not allow it within the command's wait budget gets nothing, and the log
// names the window that would have received the input.
#pragma once

#include <cstdint>
#include <string>

#include "desktop.h"
#include "wait_budget.h"

namespace velmora {

struct Engine;

// `"Cancel" (Button) of "Other Setup"`: a window as the log names it, with
// its top-level window when it is not one itself.
std::string Window_Description(Desktop& desktop, WindowHandle window);

class InputGuard {
 public:
  InputGuard(Engine& engine, Desktop& desktop, WaitBudget& budget, WindowHandle target);

  // Waits until a click at the fractions of the target's rectangle would hit
  // the target (or one of its own program's windows over it) and the
  // rectangle stood still since `earlier`; gives the pixel to click. False,
  // with Problem() set, when the budget ran out first.
  bool Ready_For_Click(double fx, double fy, WindowRect earlier, ScreenPoint& pixel);
  // Before each button event of a click: true when it may be sent. A press
  // needs the target hit and in the foreground; a release only the target
  // hit, so that a press is released where it began. A click whose target
  // lost the foreground meanwhile is not complete (Click_Interrupted()).
  bool May_Go_On_Clicking(ScreenPoint pixel, bool release);

  // Waits until the keyboard focus is inside the target in the foreground.
  bool Ready_For_Keys();
  // After a group of keys was refused: the target's program has the keyboard
  // again, or gets it back within the budget. On false, Problem() names the
  // window that took it.
  bool Keys_Still_Reach_Target();
  // After a group of keys was read, before the next: false when another
  // program (even the desktop window, for a moment) has the foreground, or
  // the focus fell back on the target's
  // top-level window itself (where the system puts it when the window is
  // activated again). Keys read meanwhile may have gone to that window, or
  // to none: they are not trusted to have arrived.
  bool Keys_Were_Read_Here();
  // After the last keys: false when another program has the foreground while
  // the target is still shown, as keys the target had not yet read are handed
  // to whichever window has the focus when they are read.
  bool Target_Kept_Keyboard();
  // Sets Problem() to the window that has the keyboard now.
  void Name_Keyboard_Holder();
  bool Click_Interrupted() const { return foregroundLost_; }
  // The foreground window that the last passed check saw: keys are sent only
  // while it still is.
  WindowHandle Foreground() const { return foreground_; }

  // The Info line that says what stopped the input.
  const std::string& Problem() const { return problem_; }

 private:
  bool Hits_Target(WindowHandle hit);
  bool Focus_Inside_Target(WindowHandle focus);
  bool Another_Program_Has(WindowHandle foreground);
  bool Focus_Reset(WindowHandle focus) const;
  // The target's program has the keyboard, its focus not fallen back on the top-level window.
  bool Keyboard_Here();
  // Brings the window forward and raises the target's top-level window; false
  // when its program did not answer in time.
  bool Bring_Back(WindowHandle window);
  // Bring_Back for the target; on false, the not-responding line with its
  // consequence.
  bool Retry(const char* consequence);
  // Lets a moment pass, within the budget; false when it is spent.
  bool Pause();

  Engine& engine_;
  Desktop& desktop_;
  WaitBudget& budget_;
  WindowHandle target_, root_;
  std::uint32_t program_;
  WindowHandle lastFocus_ = 0;
  WindowHandle foreground_ = 0;
  bool foregroundLost_ = false;
  std::string problem_;
};

}  // namespace velmora
