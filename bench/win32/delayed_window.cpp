// A window that appears late, for timing how soon a script clicks it:
//   velmora_delayed_window.exe DELAY-MS RECORD-FILE TITLE
// After DELAY-MS it shows a dialog titled TITLE (class "VelmoraDelayed")
// with one button, "Click me" (identifier 1), and appends to RECORD-FILE one
// line "<shown ms> <clicked ms>" of the high-resolution clock once the button
// is clicked, or "<shown ms> none" when no click came within 30 s; then it
// ends. tools/pace_bench.sh plays scripts that find and click it.
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "now_ms.h"

namespace {

constexpr char kClass[] = "VelmoraDelayed";
constexpr UINT_PTR kLifetimeTimer = 1;
constexpr UINT kLifetimeMs = 30000;
constexpr int kButtonId = 1;

const char* recordFile = "";
double shownMs = 0;

void Record(const char* clicked) {
  if (FILE* file = std::fopen(recordFile, "a")) {
    std::fprintf(file, "%.3f %s\n", shownMs, clicked);
    std::fclose(file);
  }
}

LRESULT CALLBACK Delayed_Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && LOWORD(wParam) == kButtonId && HIWORD(wParam) == BN_CLICKED) {
    // Stamped first: the record's writing is not part of the latency.
    char clicked[32];
    std::snprintf(clicked, sizeof clicked, "%.3f", Now_Ms());
    DestroyWindow(window);  // gone at once, so the next round finds only its own
    Record(clicked);
    PostQuitMessage(0);
    return 0;
  }
  if (message == WM_TIMER && wParam == kLifetimeTimer) {
    DestroyWindow(window);
    Record("none");
    PostQuitMessage(1);
    return 0;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  if (__argc != 4) return 2;
  const int delayMs = std::atoi(__argv[1]);
  recordFile = __argv[2];

  WNDCLASSA cls{};
  cls.lpfnWndProc = Delayed_Proc;
  cls.hInstance = instance;
  cls.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  cls.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
  cls.lpszClassName = kClass;
  RegisterClassA(&cls);

  // The window does not exist before its time: a search cannot find it early.
  Sleep(delayMs > 0 ? delayMs : 0);
  // Without a caption: Wine would hand a captioned window to a window
  // manager, which Xvfb does not have.
  HWND window = CreateWindowExA(0, kClass, __argv[3], WS_POPUP | WS_BORDER, 200, 200, 320, 160, nullptr, nullptr,
                                instance, nullptr);
  CreateWindowExA(0, "Button", "Click me", WS_CHILD | WS_VISIBLE | BS_PUSHBUTTON, 100, 60, 120, 32, window,
                  reinterpret_cast<HMENU>(static_cast<INT_PTR>(kButtonId)), instance, nullptr);
  ShowWindow(window, SW_SHOW);
  UpdateWindow(window);
  shownMs = Now_Ms();
  SetTimer(window, kLifetimeTimer, kLifetimeMs, nullptr);

  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return static_cast<int>(message.wParam);
}
