#include "win32_focus.h"

#include "win32_handles.h"
#include "win32_waits.h"

namespace velmora {

namespace {

// Shared by the caller and the helper thread: the last one to let go frees it.
struct FocusJob {
  HWND window;
  volatile LONG owners = 2;
  bool focused = false;
};

void Release(FocusJob* job) {
  if (InterlockedDecrement(&job->owners) == 0) delete job;
}

bool Set_Focus_Joined(HWND window) {
  const DWORD self = GetCurrentThreadId();
  const DWORD owner = GetWindowThreadProcessId(window, nullptr);
  if (!owner) return false;
  const bool joined = owner != self && AttachThreadInput(self, owner, TRUE);
  SetFocus(window);
  const bool focused = GetFocus() == window;
  if (joined) AttachThreadInput(self, owner, FALSE);
  return focused;
}

DWORD WINAPI Focus_Thread(void* parameter) {
  auto* job = static_cast<FocusJob*>(parameter);
  MSG message;
  PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE);  // a message queue of its own, to join another's input
  job->focused = Set_Focus_Joined(job->window);
  Release(job);
  return 0;
}

// The window that has the keyboard focus within the window's own thread.
HWND Focus_Of_Owner(HWND window) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  const DWORD owner = GetWindowThreadProcessId(window, nullptr);
  return owner && GetGUIThreadInfo(owner, &info) ? info.hwndFocus : nullptr;
}

}  // namespace

FocusOutcome Give_Focus_Within(HWND window, DWORD milliseconds) {
  // Focused already (as on the second of two tries): no helper thread, which
  // takes milliseconds to start and finish, many more on a busy machine.
  if (Focus_Of_Owner(window) == window) return FocusOutcome::Focused;
  // This thread's own windows: the helper would wait for this thread.
  if (GetWindowThreadProcessId(window, nullptr) == GetCurrentThreadId())
    return Set_Focus_Joined(window) ? FocusOutcome::Focused : FocusOutcome::Refused;
  auto* job = new FocusJob{window};
  const ScopedHandle thread(CreateThread(nullptr, 0, Focus_Thread, job, 0, nullptr));
  if (!thread) {
    delete job;
    return FocusOutcome::Refused;
  }
  const bool finished = Wait_For_Object(thread.get(), milliseconds);
  const bool focused = finished && job->focused;
  Release(job);
  if (!finished) return FocusOutcome::TimedOut;
  return focused ? FocusOutcome::Focused : FocusOutcome::Refused;
}

}  // namespace velmora
