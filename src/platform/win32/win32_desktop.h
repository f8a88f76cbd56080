// The Desktop seam on Windows: the real window tree and input injection.
#pragma once

#include "desktop.h"
#include "win32_frame_marker.h"
#include "win32_input_hooks.h"
#include "win32_window_watch.h"

namespace velmora {

class Win32Desktop : public Desktop {
 public:
  WindowHandle DesktopWindow() override;
  WindowHandle GetWindow(WindowHandle window, WindowRelation relation) override;
  WindowHandle GetParent(WindowHandle window) override;
  std::string WindowText(WindowHandle window, int bufferSize) override;
  std::string ClassName(WindowHandle window, int bufferSize) override;
  long ControlId(WindowHandle window) override;
  bool GetWindowRect(WindowHandle window, WindowRect& rect) override;
  bool IsWindowEnabled(WindowHandle window) override;
  bool IsWindowVisible(WindowHandle window) override;
  WindowHandle WindowFromPoint(ScreenPoint point) override;
  bool SetForegroundWindow(WindowHandle window) override;
  bool WaitUntilResponsive(WindowHandle window, int timeoutMilliseconds) override;
  WindowHandle RootWindow(WindowHandle window) override;
  bool IsWithin(WindowHandle window, WindowHandle ancestor) override;
  std::uint32_t ProgramOf(WindowHandle window) override;
  WindowHandle ForegroundWindow() override;
  WindowHandle FocusWindow() override;
  void RaiseToTop(WindowHandle window) override;
  bool SetCursorPos(ScreenPoint point) override;
  ScreenPoint GetCursorPos() override;
  void MouseEvent(std::uint32_t flags, long x, long y) override;
  KeysOutcome SendKeyInputs(const std::vector<KeyInput>& inputs, WindowHandle foreground) override;
  bool WaitForInputIdle(int timeoutMilliseconds) override;
  int DoubleClickTime() override;
  int ScreenWidth() override;
  int ScreenHeight() override;
  void WatchWindowChanges(bool on) override { on ? watch_.Start() : watch_.Stop(); }
  bool WaitForWindowChange(int timeoutMilliseconds) override { return watch_.Wait(timeoutMilliseconds); }
  bool ObserveInput(InputObserver* observer) override {
    if (observer) return hooks_.Start(observer);
    hooks_.Stop();
    return true;
  }
  void DrawWindowFrame(WindowHandle window) override;
  void RepaintScreenArea(const WindowRect& rect) override;
  std::uint32_t OwnProgram() override;
  bool EscapePressed() override;
  bool InServiceSession() override;
  bool RunsAtHigherIntegrity(WindowHandle window) override;

 private:
  FrameMarker frame_;  // the mark of a pick
  WindowWatch watch_;  // for a search that waits in the fast pace
  InputHooks hooks_;   // for the editor's recorder
};

}  // namespace velmora
