#include "desktop_fixture.h"

namespace velmora::test {

namespace {

LRESULT CALLBACK Recording_Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE)
    SetWindowLongPtrA(window, GWLP_USERDATA,
                      reinterpret_cast<LONG_PTR>(reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpCreateParams));
  auto* record = reinterpret_cast<WindowRecord*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (record && message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && lParam != 0)
    ++record->clicksById[LOWORD(wParam)];
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

bool Pump_Until(const std::function<bool()>& done, DWORD milliseconds) {
  for (const DWORD start = GetTickCount();; MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT)) {
    for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
    if (done() || GetTickCount() - start >= milliseconds) return done();
  }
}

const std::string& Recording_Class() {
  static const std::string name = "VelmoraRecording" + ProcessTag();
  static const bool registered = [] {  // if not, no window of the class is made
    WNDCLASSA wc{};
    wc.lpfnWndProc = Recording_Procedure;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    wc.lpszClassName = name.c_str();
    return RegisterClassA(&wc) != 0;
  }();
  static_cast<void>(registered);
  return name;
}

Windows::~Windows() {
  for (auto w = made.rbegin(); w != made.rend(); ++w)
    if (IsWindow(*w)) DestroyWindow(*w);
  Pump_For(0);
}

HWND Windows::TopLevel(const std::string& className, const std::string& title, RECT rect, WindowRecord* record,
                       DWORD style, HWND owner, HMENU menu) {
  HWND window =
      CreateWindowExA(0, className.c_str(), title.c_str(), style & ~WS_VISIBLE, rect.left, rect.top,
                      rect.right - rect.left, rect.bottom - rect.top, owner, menu, GetModuleHandleA(nullptr), record);
  if (!window) return nullptr;
  made.push_back(window);
  // The system gives every overlapped window a caption (see the header).
  if (!(style & WS_CAPTION)) SetWindowLongA(window, GWL_STYLE, GetWindowLongA(window, GWL_STYLE) & ~WS_CAPTION);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  return window;
}

HWND Windows::Child(HWND parent, const std::string& className, const std::string& text, int id, RECT rect, DWORD style,
                    WindowRecord* record) {
  HWND window = CreateWindowExA(0, className.c_str(), text.c_str(), style | WS_CHILD | WS_VISIBLE, rect.left, rect.top,
                                rect.right - rect.left, rect.bottom - rect.top, parent,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), record);
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
