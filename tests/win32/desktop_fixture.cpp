#include "desktop_fixture.h"

namespace velmora::test {

namespace {

constexpr DWORD kQuietMs = 20;  // the pump waits this long for more messages before looking at the clock

void Dispatch_Pending() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

WindowRecord* Record_Of(HWND window) {
  return reinterpret_cast<WindowRecord*>(GetWindowLongPtrA(window, GWLP_USERDATA));
}

LRESULT CALLBACK Recording_Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  WindowRecord* record = Record_Of(window);
  if (record && message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && lParam != 0)
    ++record->clicksById[LOWORD(wParam)];
  // The class has no CS_DBLCLKS: the double-click messages in this range never come.
  if (record && message >= WM_LBUTTONDOWN && message <= WM_MBUTTONDBLCLK)
    record->buttons.push_back({message, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))}});
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

bool Pump_Until(const std::function<bool()>& done, DWORD milliseconds) {
  const DWORD start = GetTickCount();
  for (;;) {
    Dispatch_Pending();
    if (done()) return true;
    if (GetTickCount() - start >= milliseconds) return done();
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kQuietMs, QS_ALLINPUT);
  }
}

void Pump_For(DWORD milliseconds) {
  Pump_Until([] { return false; }, milliseconds);
}

RecordingClass::RecordingClass(const std::string& name) : name_(name) {
  WNDCLASSA wc{};
  wc.lpfnWndProc = Recording_Procedure;
  wc.hInstance = GetModuleHandleA(nullptr);
  wc.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  wc.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  wc.lpszClassName = name_.c_str();
  atom_ = RegisterClassA(&wc);
}

RecordingClass::~RecordingClass() {
  if (atom_) UnregisterClassA(name_.c_str(), GetModuleHandleA(nullptr));
}

Windows::~Windows() {
  for (auto w = windows_.rbegin(); w != windows_.rend(); ++w)
    if (IsWindow(*w)) DestroyWindow(*w);
  Pump_For(0);
}

HWND Windows::Keep(HWND window) {
  if (window) windows_.push_back(window);
  return window;
}

HWND Windows::TopLevel(const std::string& className, const std::string& title, RECT rect, WindowRecord* record,
                       DWORD style, HWND owner, HMENU menu) {
  HWND window = Keep(CreateWindowExA(0, className.c_str(), title.c_str(), style & ~WS_VISIBLE, rect.left, rect.top,
                                     rect.right - rect.left, rect.bottom - rect.top, owner, menu,
                                     GetModuleHandleA(nullptr), record));
  if (!window) return nullptr;
  // The system gives every overlapped window a caption; take it away unless
  // asked for, for the reason in the header.
  if (!(style & WS_CAPTION)) SetWindowLongA(window, GWL_STYLE, GetWindowLongA(window, GWL_STYLE) & ~WS_CAPTION);
  ShowWindow(window, SW_SHOWNOACTIVATE);
  return window;
}

HWND Windows::Child(HWND parent, const std::string& className, const std::string& text, int id, RECT rect, DWORD style,
                    WindowRecord* record) {
  return Keep(CreateWindowExA(0, className.c_str(), text.c_str(), style | WS_CHILD | WS_VISIBLE, rect.left, rect.top,
                              rect.right - rect.left, rect.bottom - rect.top, parent,
                              reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), record));
}

WindowHandle Handle(HWND window) { return static_cast<WindowHandle>(reinterpret_cast<INT_PTR>(window)); }

std::string ProcessTag() { return std::to_string(GetCurrentProcessId()); }

}  // namespace velmora::test
