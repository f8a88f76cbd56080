#include "win32_desktop.h"

#include <vector>

#include "win32_focus.h"
#include "win32_handles.h"
#include "win32_keyboard.h"
#include "win32_text.h"
#include "win32_waits.h"

namespace velmora {

namespace {

std::string Text_Of(int length, const char* buffer) { return std::string(buffer, length > 0 ? length : 0); }

// Lets this thread's own windows handle what was sent to them.
bool Pump_Until_Idle(int timeoutMilliseconds) {
  const DWORD start = GetTickCount();
  for (;;) {
    if (!Dispatch_Pending_Messages()) return true;
    if (GetTickCount() - start >= static_cast<DWORD>(timeoutMilliseconds)) return false;
    // Input injected a moment ago may still be on its way to the queue.
    if (MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT) == WAIT_TIMEOUT) return true;
  }
}

// Long enough for a program that takes its messages to move the focus; it
// only runs out when the program stops responding after it was asked.
constexpr DWORD kFocusBoundMilliseconds = 1000;

}  // namespace

WindowHandle Win32Desktop::DesktopWindow() { return Handle_Of(::GetDesktopWindow()); }

WindowHandle Win32Desktop::GetWindow(WindowHandle window, WindowRelation relation) {
  return Handle_Of(::GetWindow(Window_Of(window), relation == WindowRelation::FirstChild ? GW_CHILD : GW_HWNDNEXT));
}

WindowHandle Win32Desktop::GetParent(WindowHandle window) { return Handle_Of(::GetParent(Window_Of(window))); }

std::string Win32Desktop::WindowText(WindowHandle window, int bufferSize) {
  std::vector<char> buffer(static_cast<std::size_t>(bufferSize > 0 ? bufferSize : 1), '\0');
  return Text_Of(GetWindowTextA(Window_Of(window), buffer.data(), bufferSize), buffer.data());
}

std::string Win32Desktop::ClassName(WindowHandle window, int bufferSize) {
  std::vector<char> buffer(static_cast<std::size_t>(bufferSize > 0 ? bufferSize : 1), '\0');
  return Text_Of(GetClassNameA(Window_Of(window), buffer.data(), bufferSize), buffer.data());
}

long Win32Desktop::ControlId(WindowHandle window) { return GetWindowLongA(Window_Of(window), GWL_ID); }

bool Win32Desktop::GetWindowRect(WindowHandle window, WindowRect& rect) {
  RECT r;
  if (!::GetWindowRect(Window_Of(window), &r)) return false;
  rect = {r.left, r.top, r.right, r.bottom};
  return true;
}

bool Win32Desktop::IsWindowEnabled(WindowHandle window) { return ::IsWindowEnabled(Window_Of(window)) != FALSE; }
bool Win32Desktop::IsWindowVisible(WindowHandle window) { return ::IsWindowVisible(Window_Of(window)) != FALSE; }

WindowHandle Win32Desktop::WindowFromPoint(ScreenPoint point) { return Handle_Of(::WindowFromPoint({point.x, point.y})); }

// The system refuses a control as the foreground window, so a control's
// top-level window comes forward and the control takes the keyboard focus:
// the keys sent next must reach the control, not whichever one had the focus.
bool Win32Desktop::SetForegroundWindow(WindowHandle window) {
  const HWND target = Window_Of(window);
  if ((GetWindowLongA(target, GWL_STYLE) & (WS_CHILD | WS_POPUP)) != WS_CHILD)
    return ::SetForegroundWindow(target) != FALSE;
  if (!::SetForegroundWindow(GetAncestor(target, GA_ROOT))) return false;
  return Give_Focus_Within(target, kFocusBoundMilliseconds) == FocusOutcome::Focused;
}

// Only a message round trip tells: IsHungAppWindow calls a thread hung
// that idled for five seconds and was woken a moment ago (by the pointer
// moving onto its window, say) until it takes its next message.
bool Win32Desktop::WaitUntilResponsive(WindowHandle window, int timeoutMilliseconds) {
  const HWND root = GetAncestor(Window_Of(window), GA_ROOT);
  if (!root || !IsWindow(root)) return true;
  return Round_Trip(root, timeoutMilliseconds) || !IsWindow(root);
}

bool Win32Desktop::SetCursorPos(ScreenPoint point) { return ::SetCursorPos(point.x, point.y) != FALSE; }

std::uint32_t Win32Desktop::OwnProgram() { return GetCurrentProcessId(); }

// Down now, or (the low bit) pressed since the last look; a look at the start
// of a pick clears a press from before it.
bool Win32Desktop::EscapePressed() { return (GetAsyncKeyState(VK_ESCAPE) & 0x8001) != 0; }

ScreenPoint Win32Desktop::GetCursorPos() {
  POINT p{};
  ::GetCursorPos(&p);
  return {p.x, p.y};
}

// The flag words are those of the classic mouse event call; the system's
// input call knows only their low 16 bits.
void Win32Desktop::MouseEvent(std::uint32_t flags, long x, long y) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = x;
  input.mi.dy = y;
  input.mi.dwFlags = flags & 0xFFFFu;
  input.mi.dwExtraInfo = Own_Input_Mark();  // the editor's recorder leaves it out
  SendInput(1, &input, sizeof input);
}

KeysOutcome Win32Desktop::SendKeyInputs(const std::vector<KeyInput>& inputs, WindowHandle foreground) {
  if (inputs.empty()) return KeysOutcome::Sent;
  std::vector<INPUT> records = Keyboard_Inputs(inputs, GetKeyboardLayout(0));
  // Read last before sending: the time for another program to take the
  // foreground unseen is as short as it can be.
  if (foreground && GetForegroundWindow() != Window_Of(foreground)) return KeysOutcome::ForegroundChanged;
  const UINT sent = SendInput(static_cast<UINT>(records.size()), records.data(), sizeof(INPUT));
  if (sent != records.size()) return KeysOutcome::NotAllSent;
  // Keys that close or hide the target's window (which moves the foreground
  // on), or move the foreground within its program, are no loss.
  const HWND target = Window_Of(foreground), now = GetForegroundWindow();
  if (foreground && now != target && ::IsWindowVisible(target) && ProgramOf(Handle_Of(now)) != ProgramOf(foreground))
    return KeysOutcome::LostForeground;
  return KeysOutcome::Sent;
}

// Waits until the foreground window's program has taken all its input and
// waits for more, but never longer than the bound.
bool Win32Desktop::WaitForInputIdle(int timeoutMilliseconds) {
  const HWND foreground = GetForegroundWindow();
  DWORD processId = 0;
  const DWORD thread = foreground ? GetWindowThreadProcessId(foreground, &processId) : 0;
  if (!thread) return true;
  if (processId == GetCurrentProcessId()) return Pump_Until_Idle(timeoutMilliseconds);
  const DWORD start = GetTickCount();
  if (const ScopedHandle process(OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, processId)); process) {
    if (!Wait_For_Input_Idle(process.get(), static_cast<DWORD>(timeoutMilliseconds))) return false;
  }
  // A message sent to the window returns only after what was queued before it.
  const DWORD spent = GetTickCount() - start;
  const DWORD left = spent < static_cast<DWORD>(timeoutMilliseconds) ? timeoutMilliseconds - spent : 1;
  // A window that closed on its keys (Enter on a Finish button) took them all.
  return Round_Trip(foreground, static_cast<int>(left)) || !IsWindow(foreground);
}

int Win32Desktop::DoubleClickTime() { return static_cast<int>(GetDoubleClickTime()); }
int Win32Desktop::ScreenWidth() { return GetSystemMetrics(SM_CXSCREEN); }
int Win32Desktop::ScreenHeight() { return GetSystemMetrics(SM_CYSCREEN); }

void Win32Desktop::DrawWindowFrame(WindowHandle window) { frame_.Toggle(Window_Of(window)); }

void Win32Desktop::RepaintScreenArea(const WindowRect& rect) {
  const RECT area{rect.left, rect.top, rect.right, rect.bottom};
  frame_.Remove_Within(area);
  InvalidateRect(nullptr, &area, TRUE);
}

}  // namespace velmora
