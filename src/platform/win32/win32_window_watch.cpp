#include "win32_window_watch.h"

#include "win32_waits.h"

namespace velmora {

namespace {

// One watch at a time: the hooks call back on this thread, with no context.
bool changeSeen = false;

void CALLBACK On_Window_Event(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG child, DWORD, DWORD) {
  // The caret, the cursor and the parts of a window come through the same hooks.
  if (window && object == OBJID_WINDOW && child == CHILDID_SELF) changeSeen = true;
}

}  // namespace

void WindowWatch::Start() {
  Stop();
  changeSeen = false;
  // Out of context: the events come to this thread as messages, so no code of
  // ours runs in the other programs and none of them waits on us.
  constexpr DWORD flags = WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS;
  hooks_[0] = SetWinEventHook(EVENT_OBJECT_CREATE, EVENT_OBJECT_SHOW, nullptr, On_Window_Event, 0, 0, flags);
  hooks_[1] = SetWinEventHook(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_NAMECHANGE, nullptr, On_Window_Event, 0, 0, flags);
}

void WindowWatch::Stop() {
  for (HWINEVENTHOOK& hook : hooks_) {
    if (hook) UnhookWinEvent(hook);
    hook = nullptr;
  }
}

bool WindowWatch::Wait(int timeoutMilliseconds) {
  if (!changeSeen) {
    const DWORD timeout = timeoutMilliseconds > 0 ? static_cast<DWORD>(timeoutMilliseconds) : 0;
    MsgWaitForMultipleObjectsEx(0, nullptr, timeout, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    // The hooks' events are among the sent messages.
    Answer_Sent_Messages();
  }
  const bool seen = changeSeen;
  changeSeen = false;
  return seen;
}

}  // namespace velmora
