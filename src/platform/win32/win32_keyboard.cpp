#include "win32_keyboard.h"

#include <array>

#include "win32_input_hooks.h"

namespace velmora {

namespace {

bool Is_Extended(WORD vk) {
  switch (vk) {
    case VK_INSERT: case VK_DELETE: case VK_HOME: case VK_END: case VK_PRIOR: case VK_NEXT:
    case VK_LEFT: case VK_UP: case VK_RIGHT: case VK_DOWN: case VK_DIVIDE: case VK_NUMLOCK:
    case VK_SNAPSHOT: case VK_CANCEL:
      return true;
    default:
      return false;
  }
}

INPUT Key(WORD vk, bool up, HKL layout) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = vk;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyExA(vk, MAPVK_VK_TO_VSC, layout));
  input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0) | (Is_Extended(vk) ? KEYEVENTF_EXTENDEDKEY : 0);
  input.ki.dwExtraInfo = Own_Input_Mark();  // the editor's recorder leaves it out
  return input;
}

INPUT Unicode_Unit(WCHAR unit, bool up) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = unit;
  input.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0);
  input.ki.dwExtraInfo = Own_Input_Mark();
  return input;
}

void Add_Unicode(std::vector<INPUT>& out, char32_t character, bool up) {
  if (character < 0x10000) {
    out.push_back(Unicode_Unit(static_cast<WCHAR>(character), up));
    return;
  }
  const char32_t v = character - 0x10000;
  out.push_back(Unicode_Unit(static_cast<WCHAR>(0xD800 + (v >> 10)), up));
  out.push_back(Unicode_Unit(static_cast<WCHAR>(0xDC00 + (v & 0x3FF)), up));
}

// Shift, Ctrl and Alt, in the order of the layout's shift-state bits.
constexpr std::array<WORD, 3> kModifiers = {VK_SHIFT, VK_CONTROL, VK_MENU};

class Typist {
 public:
  explicit Typist(HKL layout) : layout_(layout) {}

  void Add(const KeyInput& input) {
    if (input.isCharacter) return Character(input.character, input.up);
    for (std::size_t i = 0; i < kModifiers.size(); ++i)
      if (kModifiers[i] == input.virtualKey) held_[i] = !input.up;
    out_.push_back(Key(input.virtualKey, input.up, layout_));
  }

  std::vector<INPUT> Take() { return std::move(out_); }

 private:
  // A character's key goes down with the modifiers it needs; they come up
  // again with the key.
  void Character(char32_t character, bool up) {
    const SHORT scan = character < 0x10000 ? VkKeyScanExW(static_cast<WCHAR>(character), layout_) : -1;
    if (scan == -1 || (HIBYTE(scan) & ~7) != 0) return Add_Unicode(out_, character, up);
    const WORD vk = LOBYTE(scan);
    const BYTE needs = HIBYTE(scan);
    if (!up) {
      for (std::size_t i = 0; i < kModifiers.size(); ++i)
        if ((needs & (1 << i)) && !held_[i]) pressedFor_[i] = true, out_.push_back(Key(kModifiers[i], false, layout_));
      out_.push_back(Key(vk, false, layout_));
      return;
    }
    out_.push_back(Key(vk, true, layout_));
    for (std::size_t i = kModifiers.size(); i-- > 0;)
      if (pressedFor_[i]) pressedFor_[i] = false, out_.push_back(Key(kModifiers[i], true, layout_));
  }

  HKL layout_;
  std::vector<INPUT> out_;
  std::array<bool, 3> held_{};        // held by the key string itself (+ ^ %)
  std::array<bool, 3> pressedFor_{};  // pressed for the character now down
};

}  // namespace

std::vector<INPUT> Keyboard_Inputs(const std::vector<KeyInput>& inputs, HKL layout) {
  Typist typist(layout);
  for (const KeyInput& input : inputs) typist.Add(input);
  return typist.Take();
}

}  // namespace velmora
