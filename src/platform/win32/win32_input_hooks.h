// The user's clicks and keys anywhere on the desktop, heard through the
// system's low-level hooks on the thread that pumps this program's messages
// (the editor's): the recorder hears each press before the window under it.
#pragma once

#include <windows.h>

#include <string>

#include "desktop.h"

namespace velmora {

// The mark that this program puts on the input it sends, so that its hooks
// can tell it from the user's (another Velmora process has a mark of its own).
ULONG_PTR Own_Input_Mark();

class InputHooks {
 public:
  ~InputHooks() { Stop(); }
  // Replaces the observer; false when the system refused a hook.
  bool Start(InputObserver* observer);
  void Stop();

 private:
  static LRESULT CALLBACK On_Mouse(int code, WPARAM message, LPARAM data);
  static LRESULT CALLBACK On_Keyboard(int code, WPARAM message, LPARAM data);
  static void CALLBACK Report_Lost(HWND, UINT, UINT_PTR timer, DWORD);
  void Key(const KBDLLHOOKSTRUCT& key, bool down);
  template <class Call>
  void Tell(Call call);

  HHOOK mouse_ = nullptr, keyboard_ = nullptr;
  InputObserver* observer_ = nullptr;
  bool telling_ = false;          // a nested call (the observer pumped) is passed on unheard
  bool shift_[2] = {}, control_[2] = {}, alt_[2] = {};  // left, right
  wchar_t highSurrogate_ = 0;
  std::string lostReason_;
  DWORD mostMilliseconds_ = 0;  // the longest observer call that cannot have cost the hooks
};

}  // namespace velmora
