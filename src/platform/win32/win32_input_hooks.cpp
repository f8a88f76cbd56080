#include "win32_input_hooks.h"

namespace velmora {

namespace {

InputHooks* active = nullptr;  // the system's hook procedures take no context

// Windows takes a low-level hook away, without a word, from a program whose
// hook procedure overruns LowLevelHooksTimeout (at most a second). An
// observer call longer than this, or than half the user's setting, may have
// cost the hooks; the recording then ends rather than going on deaf.
constexpr DWORD kMostObserverMilliseconds = 200;

DWORD Most_Observer_Milliseconds() {
  DWORD value = 0, size = sizeof value;
  if (RegGetValueA(HKEY_CURRENT_USER, "Control Panel\\Desktop", "LowLevelHooksTimeout", RRF_RT_REG_DWORD, nullptr,
                   &value, &size) != ERROR_SUCCESS || value == 0)
    return kMostObserverMilliseconds;
  return value / 2 < kMostObserverMilliseconds ? value / 2 : kMostObserverMilliseconds;
}
constexpr ULONG_PTR kMarkBase = 0x564C4D5200000000ull;  // "VLMR"

bool Printable(wchar_t unit) { return unit >= 0x20 && unit != 0x7F && (unit < 0xD800 || unit > 0xDFFF); }

// The character that the key types with the given modifiers, in the layout
// of the program that has the keyboard; 0 for none. The state of the
// keyboard (dead keys) is left as it was. Caps Lock counts only for typing:
// Ctrl+A stays Ctrl+A under it.
char32_t Character_Of(const KBDLLHOOKSTRUCT& key, bool shift, bool controlAndAlt, bool capsLock) {
  BYTE state[256] = {};
  if (shift) state[VK_SHIFT] = 0x80;
  if (controlAndAlt) state[VK_CONTROL] = state[VK_MENU] = 0x80;
  if (capsLock) state[VK_CAPITAL] = static_cast<BYTE>(GetKeyState(VK_CAPITAL) & 1);
  const HKL layout = GetKeyboardLayout(GetWindowThreadProcessId(GetForegroundWindow(), nullptr));
  wchar_t text[4] = {};
  constexpr UINT kKeepKeyboardState = 0x4;
  const int count = ToUnicodeEx(key.vkCode, key.scanCode, state, text, 4, kKeepKeyboardState, layout);
  return count == 1 && Printable(text[0]) ? text[0] : 0;
}

}  // namespace

ULONG_PTR Own_Input_Mark() { return kMarkBase | GetCurrentProcessId(); }

bool InputHooks::Start(InputObserver* observer) {
  Stop();
  const HINSTANCE module = GetModuleHandleA(nullptr);
  mouse_ = SetWindowsHookExA(WH_MOUSE_LL, On_Mouse, module, 0);
  keyboard_ = SetWindowsHookExA(WH_KEYBOARD_LL, On_Keyboard, module, 0);
  if (!mouse_ || !keyboard_) {
    Stop();
    return false;
  }
  active = this;
  observer_ = observer;
  // A modifier held as observing starts is heard only when it comes up.
  const auto held = [](int key) { return GetAsyncKeyState(key) < 0; };
  shift_[0] = held(VK_LSHIFT), shift_[1] = held(VK_RSHIFT);
  control_[0] = held(VK_LCONTROL), control_[1] = held(VK_RCONTROL);
  alt_[0] = held(VK_LMENU), alt_[1] = held(VK_RMENU);
  mostMilliseconds_ = Most_Observer_Milliseconds();
  return true;
}

// Safe inside a hook procedure (the observer may stop on a press), and on
// hooks that the system took away already.
void InputHooks::Stop() {
  for (HHOOK* hook : {&mouse_, &keyboard_}) {
    if (*hook) UnhookWindowsHookEx(*hook);
    *hook = nullptr;
  }
  observer_ = nullptr;
  if (active == this) active = nullptr;
}

template <class Call>
void InputHooks::Tell(Call call) {
  if (!observer_ || telling_) return;
  telling_ = true;
  const DWORD start = GetTickCount();
  call(*observer_);
  const DWORD spent = GetTickCount() - start;
  telling_ = false;
  if (spent <= mostMilliseconds_ || !observer_) return;
  // Told once this procedure has returned, never from inside it.
  lostReason_ = "the system may have removed the input hooks: one event took " + std::to_string(spent) + " ms";
  SetTimer(nullptr, 0, 0, Report_Lost);
}

void CALLBACK InputHooks::Report_Lost(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  if (!active || !active->observer_) return;
  InputObserver* observer = active->observer_;
  const std::string reason = active->lostReason_;
  active->Stop();
  observer->Observing_Lost(reason);
}

LRESULT CALLBACK InputHooks::On_Mouse(int code, WPARAM message, LPARAM data) {
  const auto* mouse = reinterpret_cast<const MSLLHOOKSTRUCT*>(data);
  if (code == HC_ACTION && active && mouse->dwExtraInfo != Own_Input_Mark() &&
      (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN)) {
    const ObservedClick click{message == WM_RBUTTONDOWN ? PressedButton::Right : PressedButton::Left,
                              {mouse->pt.x, mouse->pt.y}, mouse->time};
    active->Tell([&](InputObserver& observer) { observer.Button_Down(click); });
  }
  return CallNextHookEx(nullptr, code, message, data);
}

LRESULT CALLBACK InputHooks::On_Keyboard(int code, WPARAM message, LPARAM data) {
  const auto* key = reinterpret_cast<const KBDLLHOOKSTRUCT*>(data);
  if (code == HC_ACTION && active && key->dwExtraInfo != Own_Input_Mark())
    active->Key(*key, message == WM_KEYDOWN || message == WM_SYSKEYDOWN);
  return CallNextHookEx(nullptr, code, message, data);
}

// Modifiers are followed here, from the hook's own presses: the system's key
// state is not yet up to date when a low-level hook hears a key.
void InputHooks::Key(const KBDLLHOOKSTRUCT& key, bool down) {
  const auto hold = [&](bool* sides, DWORD left, DWORD right, DWORD either) {
    if (key.vkCode == left || key.vkCode == either) sides[0] = down;
    if (key.vkCode == right) sides[1] = down;
    return key.vkCode == left || key.vkCode == right || key.vkCode == either;
  };
  if (hold(shift_, VK_LSHIFT, VK_RSHIFT, VK_SHIFT) || hold(control_, VK_LCONTROL, VK_RCONTROL, VK_CONTROL) ||
      hold(alt_, VK_LMENU, VK_RMENU, VK_MENU) || !down)
    return;
  ObservedKey observed{static_cast<std::uint16_t>(key.vkCode), 0, shift_[0] || shift_[1],
                       control_[0] || control_[1], alt_[0] || alt_[1]};
  if (key.vkCode == VK_PACKET) {  // a character sent as such, in UTF-16 units
    const auto unit = static_cast<wchar_t>(key.scanCode);
    if (unit >= 0xD800 && unit <= 0xDBFF) return void(highSurrogate_ = unit);
    observed.virtualKey = 0;
    observed.character = unit >= 0xDC00 && unit <= 0xDFFF && highSurrogate_
                             ? 0x10000 + ((highSurrogate_ - 0xD800) << 10) + (unit - 0xDC00)
                             : unit;
    highSurrogate_ = 0;
  } else if (observed.control && observed.alt && (observed.character = Character_Of(key, observed.shift, true, true))) {
    observed.control = observed.alt = false;  // AltGr: the character is the key's meaning
  } else {
    observed.character = Character_Of(key, observed.shift, false, !observed.control && !observed.alt);
  }
  Tell([&](InputObserver& observer) { observer.Key_Down(observed); });
}

}  // namespace velmora
