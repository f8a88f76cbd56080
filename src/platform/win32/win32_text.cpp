#include "win32_text.h"

namespace velmora {

std::string System_Text(DWORD code) {
  char* buffer = nullptr;
  const DWORD length = FormatMessageA(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0,
      reinterpret_cast<char*>(&buffer), 0, nullptr);
  std::string text = length ? std::string(buffer, length) : "Error " + std::to_string(code);
  if (buffer) LocalFree(buffer);
  // The report adds its own full stop after the message.
  while (!text.empty() && (text.back() == '\r' || text.back() == '\n' || text.back() == ' ' || text.back() == '.'))
    text.pop_back();
  return text;
}

bool Dispatch_Pending_Messages() {
  // An empty queue is told apart first: under Wine a PeekMessage that finds
  // nothing gives up the processor, which costs a whole time slice (several
  // milliseconds) when other programs keep the processors busy. The status
  // takes in the display's events as PeekMessage would, and it shows a quit
  // request too.
  if (HIWORD(GetQueueStatus(QS_ALLINPUT)) == 0) return true;
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return false;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return true;
}

SystemError Last_Error() {
  const DWORD code = GetLastError();
  return {static_cast<long>(code), System_Text(code)};
}

}  // namespace velmora
