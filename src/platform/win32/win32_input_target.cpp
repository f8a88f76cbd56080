// Where input would go: the desktop's answers for the checks made before
// keys and clicks are sent.
#include "win32_desktop.h"
#include "win32_text.h"

namespace velmora {

WindowHandle Win32Desktop::RootWindow(WindowHandle window) {
  return Handle_Of(GetAncestor(Window_Of(window), GA_ROOT));
}

bool Win32Desktop::IsWithin(WindowHandle window, WindowHandle ancestor) {
  const HWND inner = Window_Of(window), outer = Window_Of(ancestor);
  return inner && (inner == outer || IsChild(outer, inner));
}

std::uint32_t Win32Desktop::ProgramOf(WindowHandle window) {
  DWORD process = 0;
  if (window == 0 || !GetWindowThreadProcessId(Window_Of(window), &process)) return 0;
  return process;
}

WindowHandle Win32Desktop::ForegroundWindow() { return Handle_Of(GetForegroundWindow()); }

WindowHandle Win32Desktop::FocusWindow() {
  const HWND foreground = GetForegroundWindow();
  if (!foreground) return 0;
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  if (!GetGUIThreadInfo(GetWindowThreadProcessId(foreground, nullptr), &info)) return 0;
  return Handle_Of(info.hwndFocus);
}

// Asynchronous, so that a program that has stopped taking messages cannot
// hold this thread; the caller waits for the program's answer if it must.
void Win32Desktop::RaiseToTop(WindowHandle window) {
  SetWindowPos(GetAncestor(Window_Of(window), GA_ROOT), HWND_TOP, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_ASYNCWINDOWPOS);
}

}  // namespace velmora
