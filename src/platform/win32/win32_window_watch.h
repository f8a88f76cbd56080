// Window changes anywhere on the desktop, heard through event hooks on the
// thread that pumps this program's messages: a waiting search looks again as
// soon as a window appears, is shown or is renamed.
#pragma once

#include <windows.h>

namespace velmora {

class WindowWatch {
 public:
  ~WindowWatch() { Stop(); }
  void Start();
  void Stop();
  // Waits at most the time until a change, or a message for this thread,
  // arrives; true when a change did.
  bool Wait(int timeoutMilliseconds);

 private:
  HWINEVENTHOOK hooks_[2] = {nullptr, nullptr};
};

}  // namespace velmora
