#include "input_guard.h"

#include <algorithm>

#include "engine.h"
#include "screen_point.h"

namespace velmora {

namespace {

constexpr int kTextBufferSize = 256;
constexpr int kLookAgainMilliseconds = 100;  // between two looks at a desktop that is not ready

bool Same(const WindowRect& a, const WindowRect& b) {
  return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

}  // namespace

std::string Window_Description(Desktop& desktop, WindowHandle window) {
  if (window == 0) return "no window";
  if (window == desktop.DesktopWindow()) return "the desktop";
  const auto quoted = [&](WindowHandle w) { return "\"" + desktop.WindowText(w, kTextBufferSize) + "\""; };
  std::string text = quoted(window) + " (" + desktop.ClassName(window, kTextBufferSize) + ")";
  const WindowHandle root = desktop.RootWindow(window);
  if (root != 0 && root != window) text += " of " + quoted(root);
  return text;
}

InputGuard::InputGuard(Engine& engine, Desktop& desktop, WaitBudget& budget, WindowHandle target)
    : engine_(engine),
      desktop_(desktop),
      budget_(budget),
      target_(target),
      root_(desktop.RootWindow(target)),
      program_(desktop.ProgramOf(target)) {}

// The target, a window inside it, or another window of its own program
// standing over it (its tooltip, say); not a sibling that covers it.
bool InputGuard::Hits_Target(WindowHandle hit) {
  if (hit == 0) return false;
  if (desktop_.IsWithin(hit, target_)) return true;
  return program_ != 0 && desktop_.ProgramOf(hit) == program_ && desktop_.RootWindow(hit) != root_;
}

// The desktop window is nobody's: the system hands it the foreground for a
// moment when the foreground window's program loses the X focus under Wine.
bool InputGuard::Another_Program_Has(WindowHandle foreground) {
  return foreground != 0 && foreground != desktop_.DesktopWindow() && desktop_.ProgramOf(foreground) != program_;
}

// A top-level target without a focused control still gets the keys.
bool InputGuard::Focus_Inside_Target(WindowHandle focus) {
  return focus != 0 ? desktop_.IsWithin(focus, target_) : target_ == root_;
}

bool InputGuard::Bring_Back(WindowHandle window) {
  if (!budget_.Bring_Forward(desktop_, window)) return false;
  desktop_.RaiseToTop(root_);
  // Whatever the raise and the activation left queued for the program is done
  // once it has answered.
  budget_.Responds(desktop_, window);
  return true;
}

bool InputGuard::Retry(const char* consequence) {
  if (Bring_Back(target_)) return true;
  problem_ = Not_Responding_Line(consequence);
  return false;
}

bool InputGuard::Pause() {
  if (budget_.Left() <= 0) return false;
  Host& host = engine_.host;
  budget_.Spend([&](int left) {
    host.Sleep(std::min(left, kLookAgainMilliseconds));
    host.DoEvents();
    return true;
  });
  return true;
}

bool InputGuard::Ready_For_Click(double fx, double fy, WindowRect earlier, ScreenPoint& pixel) {
  desktop_.RaiseToTop(root_);
  for (int look = 0;; ++look) {
    WindowRect now;
    desktop_.GetWindowRect(target_, now);
    pixel = Pixel_At(now, fx, fy);
    const WindowHandle hit = desktop_.WindowFromPoint(pixel);
    const bool still = Same(now, earlier), hits = Hits_Target(hit);
    // A pop-up of the target's own program (a drop-down list, a menu) is
    // clicked while its owner keeps the foreground: taking it would close it.
    const WindowHandle foreground = desktop_.ForegroundWindow();
    const bool forward = foreground == root_ || (foreground != 0 && desktop_.ProgramOf(foreground) == program_);
    if (still && hits && forward) return true;
    earlier = now;
    if (!still) {
      problem_ = "Info: The window did not stand still within " + std::to_string(kWaitBoundMilliseconds / 1000) +
                 " seconds; no click was sent.";
    } else if (!hits) {
      problem_ = "Info: The click point is covered by " + Window_Description(desktop_, hit) + "; no click was sent.";
    } else {
      problem_ = "Info: The foreground stays with " + Window_Description(desktop_, foreground) + "; no click was sent.";
    }
    // A covered point or another foreground window is worth a retry at once;
    // a moving window only time can settle.
    if (still && !Retry("no click was sent")) return false;
    if ((look > 0 || !still) && !Pause()) return false;
  }
}

bool InputGuard::May_Go_On_Clicking(ScreenPoint pixel, bool release) {
  if (foregroundLost_ && !release) return false;
  const WindowHandle hit = desktop_.WindowFromPoint(pixel);
  if (!Hits_Target(hit)) {
    problem_ = "Info: The click point was covered by " + Window_Description(desktop_, hit) +
               " during the click; the click was not completed.";
    return false;
  }
  const WindowHandle foreground = desktop_.ForegroundWindow();
  if (Another_Program_Has(foreground) && !foregroundLost_) {
    foregroundLost_ = true;
    problem_ = "Info: " + Window_Description(desktop_, foreground) +
               " took the foreground during the click; the click was not completed.";
    return release;
  }
  return true;
}

bool InputGuard::Ready_For_Keys() {
  for (int look = 0;; ++look) {
    const WindowHandle foreground = desktop_.ForegroundWindow();
    const WindowHandle focus = desktop_.FocusWindow();
    if (foreground == root_ && Focus_Inside_Target(focus)) {
      lastFocus_ = focus;
      foreground_ = foreground;
      return true;
    }
    const WindowHandle receiver = focus ? focus : foreground;
    problem_ = receiver
                   ? "Info: The keys would go to " + Window_Description(desktop_, receiver) + "; no keys were sent."
                   : "Info: No window has the keyboard focus; no keys were sent.";
    if (!Retry("no keys were sent")) return false;
    if (look > 0 && !Pause()) return false;
  }
}

bool InputGuard::Target_Kept_Keyboard() {
  // A target that closed or hid on its keys (Enter on Finish) took them.
  if (!Another_Program_Has(desktop_.ForegroundWindow()) || !desktop_.IsWindowVisible(target_)) return true;
  Name_Keyboard_Holder();
  return false;
}

void InputGuard::Name_Keyboard_Holder() {
  WindowHandle holder = desktop_.FocusWindow();
  if (holder == 0) holder = desktop_.ForegroundWindow();
  problem_ = holder ? Window_Description(desktop_, holder) : std::string("No window");
}

// A control that had the keys and lost them to the top-level window itself
// lost them to a reactivation (the system puts the focus there), not to the
// script's own keys, which move it between controls.
bool InputGuard::Focus_Reset(WindowHandle focus) const {
  return focus == root_ && lastFocus_ != 0 && lastFocus_ != root_;
}

bool InputGuard::Keys_Still_Reach_Target() {
  for (int look = 0;; ++look) {
    if (Keyboard_Here()) return true;
    if (look == 0) Name_Keyboard_Holder();
    // Given back to the control that had the keys, while the target is there.
    if (desktop_.ProgramOf(root_) != program_ || (look > 0 && !Pause())) return false;
    const WindowHandle back = lastFocus_ && desktop_.ProgramOf(lastFocus_) == program_ ? lastFocus_ : target_;
    if (!Bring_Back(back)) return false;
  }
}

bool InputGuard::Keys_Were_Read_Here() {
  if (Keyboard_Here()) return true;
  Name_Keyboard_Holder();
  return false;
}

// Not even the desktop window's moment in front counts: a key read then is
// lost. What is found is kept: the script's own keys may have moved the
// focus, or opened a window.
bool InputGuard::Keyboard_Here() {
  const WindowHandle foreground = desktop_.ForegroundWindow(), focus = desktop_.FocusWindow();
  if (foreground == 0 || desktop_.ProgramOf(foreground) != program_ || Focus_Reset(focus)) return false;
  if (focus && desktop_.ProgramOf(focus) == program_) lastFocus_ = focus;
  foreground_ = foreground;
  return true;
}

}  // namespace velmora
