#include "win32_waits.h"

namespace velmora {

namespace {

constexpr DWORD kSliceMilliseconds = 20;  // how often a wait looks at the clock besides its messages

DWORD Left_Of(DWORD start, DWORD milliseconds) {
  const DWORD spent = GetTickCount() - start;
  return spent < milliseconds ? milliseconds - spent : 0;
}

}  // namespace

void Answer_Sent_Messages() {
  MSG message;
  // Peeking for sent messages alone dispatches them and removes nothing else.
  PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

bool Round_Trip(HWND window, int timeoutMilliseconds) {
  DWORD_PTR result = 0;
  const UINT timeout = timeoutMilliseconds > 0 ? static_cast<UINT>(timeoutMilliseconds) : 0;
  // Neither SMTO_BLOCK nor SMTO_ABORTIFHUNG: the first would stop this thread
  // answering its own windows, the second trusts the hung verdict alone.
  return SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_NORMAL, timeout, &result) != 0;
}

bool Wait_For_Object(HANDLE object, DWORD milliseconds) {
  const DWORD start = GetTickCount();
  for (;;) {
    const DWORD outcome = MsgWaitForMultipleObjects(1, &object, FALSE, Left_Of(start, milliseconds), QS_SENDMESSAGE);
    if (outcome == WAIT_OBJECT_0) return true;
    if (outcome != WAIT_OBJECT_0 + 1) return false;
    Answer_Sent_Messages();
  }
}

bool Wait_For_Input_Idle(HANDLE process, DWORD milliseconds) {
  const DWORD start = GetTickCount();
  for (;;) {
    const DWORD left = Left_Of(start, milliseconds);
    if (::WaitForInputIdle(process, left < kSliceMilliseconds ? left : kSliceMilliseconds) != WAIT_TIMEOUT) return true;
    Answer_Sent_Messages();
    if (Left_Of(start, milliseconds) == 0) return false;
  }
}

}  // namespace velmora
