#include "desktop_fixture.h"

namespace velmora::test {

bool Pump_Until(const std::function<bool()>& done, DWORD milliseconds) {
  for (const DWORD start = GetTickCount();; MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT)) {
    for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
    if (done() || GetTickCount() - start >= milliseconds) return done();
  }
}

Windows::~Windows() {
  for (auto w = made.rbegin(); w != made.rend(); ++w)
    if (IsWindow(*w)) DestroyWindow(*w);
  Pump_For(0);
}

HWND Windows::TopLevel(const std::string& className, const std::string& title, RECT rect, DWORD style, HWND owner) {
  HWND window = CreateWindowExA(0, className.c_str(), title.c_str(), style & ~WS_VISIBLE, rect.left, rect.top,
                                rect.right - rect.left, rect.bottom - rect.top, owner, nullptr,
                                GetModuleHandleA(nullptr), nullptr);
  if (!window) return nullptr;
  made.push_back(window);
  // The system gives every overlapped window a caption (see the header).
  if (!(style & WS_CAPTION)) SetWindowLongA(window, GWL_STYLE, GetWindowLongA(window, GWL_STYLE) & ~WS_CAPTION);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  return window;
}

HWND Windows::Child(HWND parent, const std::string& className, const std::string& text, int id, RECT rect,
                    DWORD style) {
  HWND window = CreateWindowExA(0, className.c_str(), text.c_str(), style | WS_CHILD | WS_VISIBLE, rect.left, rect.top,
                                rect.right - rect.left, rect.bottom - rect.top, parent,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
  if (window) made.push_back(window);
  return window;
}

PROCESS_INFORMATION Start_Beside(const std::string& program, const std::string& arguments, HANDLE output) {
  char self[MAX_PATH] = {};
  GetModuleFileNameA(nullptr, self, MAX_PATH);
  std::string line = self;
  line = "\"" + line.substr(0, line.rfind('\\') + 1) + program + "\" " + arguments;
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = output ? STARTF_USESTDHANDLES : 0;
  startup.hStdOutput = startup.hStdError = output;
  PROCESS_INFORMATION started{};
  if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, output != nullptr, output ? CREATE_NO_WINDOW : 0, nullptr,
                     nullptr, &startup, &started))
    CloseHandle(started.hThread);
  return started;
}

WindowHandle Handle(HWND window) { return static_cast<WindowHandle>(reinterpret_cast<INT_PTR>(window)); }

std::string ProcessTag() { return std::to_string(GetCurrentProcessId()); }

}  // namespace velmora::test
