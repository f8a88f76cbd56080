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
  if (WindowRecord* record = Record_Of(window)) {
    switch (message) {
      case WM_COMMAND:
        if (HIWORD(wParam) == BN_CLICKED && lParam != 0) ++record->clicksById[LOWORD(wParam)];
        break;
      case WM_LBUTTONDOWN:
      case WM_LBUTTONUP:
      case WM_RBUTTONDOWN:
      case WM_RBUTTONUP:
      case WM_MBUTTONDOWN:
      case WM_MBUTTONUP:
        record->buttons.push_back({message, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))}});
        break;
      default:
        break;
    }
  }
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

void DesktopEngineTest::SetUp() {
  engine.automation = &automation;
  engine.state.InteractiveSession = true;
  engine.state.DebugOn = true;
}

ParsedCommand DesktopEngineTest::Parsed(const std::string& line) {
  ParsedCommand command;
  Parse_Command(engine, true, line, 1.0, command, kNoEditorLine);
  return command;
}

bool DesktopEngineTest::Find(const std::string& line) {
  bool succeeded = false;
  automation.FindWindow_Command(engine, true, Parsed(line), succeeded);
  return succeeded;
}

bool DesktopEngineTest::Send(const std::string& keys) {
  bool succeeded = false;
  automation.SendKeys_Command(engine, true, Parsed("sendkeys: \"" + keys + "\""), succeeded);
  return succeeded;
}

std::string DesktopEngineTest::Find_Line(const std::string& title, const std::string& className,
                                         const std::string& text, const std::string& controlClass, int id) {
  return "findwindow: 2, \"" + title + "\", \"" + className + "\", 0, 0.5, 0.5, \"" + text + "\", \"" + controlClass +
         "\", " + std::to_string(id) + ", 0.5, 0.5, 0.01";
}

std::vector<std::string> DesktopEngineTest::Problem_Lines() const {
  std::vector<std::string> lines;
  for (const std::string& line : engine.DebugWindow.Items())
    if (line.rfind("Error Location:", 0) == 0 || line.rfind("Info:", 0) == 0) lines.push_back(line);
  return lines;
}

}  // namespace velmora::test
