// The bare baseline of each line: the Win32 calls that do the same work with
// none of the player's code around them, timed with the same phases, so that
// what a line costs beyond its pauses can be set against what the system
// itself needs for the work.
#pragma once

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "timed_seams.h"

namespace velmora::bench {

// A control of a dialog, as a findwindow line names it.
struct ControlName {
  std::string dialogTitle, dialogClass, text, className;
  long id;
};

inline std::string Bare_Class(HWND window) {
  char buffer[256] = "";
  return std::string(buffer, static_cast<std::size_t>(std::max(0, GetClassNameA(window, buffer, sizeof buffer))));
}

inline std::string Bare_Text(HWND window) {
  char buffer[256] = "";
  return std::string(buffer, static_cast<std::size_t>(std::max(0, GetWindowTextA(window, buffer, sizeof buffer))));
}

// As FindWindowEx would: the top-level windows by class then title, then the
// dialog's children by class, title and control identifier.
inline HWND Bare_Find(const ControlName& name, PhaseTimes& times) {
  return times.Time(kSearch, [&]() -> HWND {
    for (HWND top = GetWindow(GetDesktopWindow(), GW_CHILD); top; top = GetWindow(top, GW_HWNDNEXT)) {
      if (Bare_Class(top) != name.dialogClass || Bare_Text(top) != name.dialogTitle) continue;
      for (HWND child = GetWindow(top, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (Bare_Class(child) == name.className && Bare_Text(child) == name.text &&
            GetWindowLongA(child, GWL_ID) == name.id)
          return child;
      }
    }
    return nullptr;
  });
}

inline std::vector<INPUT> Bare_Keys(const std::string& characters) {
  std::vector<INPUT> keys;
  for (char c : characters) {
    for (bool up : {false, true}) {
      INPUT input{};
      input.type = INPUT_KEYBOARD;
      input.ki.wVk = LOBYTE(VkKeyScanA(c));
      input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
      keys.push_back(input);
    }
  }
  return keys;
}

// The dialog forward, the keys sent, and a wait until its program has read them.
inline void Bare_Send_Keys(HWND dialog, HANDLE process, const std::string& characters, PhaseTimes& times) {
  times.Time(kBringForward, [&] { SetForegroundWindow(dialog); });
  std::vector<INPUT> keys = Bare_Keys(characters);
  times.Time(kInput, [&] { SendInput(static_cast<UINT>(keys.size()), keys.data(), sizeof(INPUT)); });
  times.Time(kIdleWait, [&] { WaitForInputIdle(process, 10000); });
}

inline void Bare_Mouse(DWORD flags, POINT normalised) {
  INPUT input{};
  input.type = INPUT_MOUSE;
  input.mi.dx = normalised.x;
  input.mi.dy = normalised.y;
  input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
  SendInput(1, &input, sizeof input);
}

// The dialog forward, a look at what lies at the point, then the pointer
// moved there and the left button pressed and released.
inline void Bare_Click(HWND dialog, POINT pixel, PhaseTimes& times) {
  times.Time(kBringForward, [&] { SetForegroundWindow(dialog); });
  times.Time(kChecks, [&] { WindowFromPoint(pixel); });
  const POINT normalised{MulDiv(pixel.x, 65536, GetSystemMetrics(SM_CXSCREEN)),
                         MulDiv(pixel.y, 65536, GetSystemMetrics(SM_CYSCREEN))};
  times.Time(kInput, [&] {
    for (DWORD flags : {0ul, static_cast<DWORD>(MOUSEEVENTF_LEFTDOWN), static_cast<DWORD>(MOUSEEVENTF_LEFTUP)})
      Bare_Mouse(flags, normalised);
  });
}

}  // namespace velmora::bench
