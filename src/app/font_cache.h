// One GDI font per font description, made at the screen's resolution and kept
// for the form's lifetime (controls only borrow them through WM_SETFONT).
#pragma once

#include <windows.h>

#include <map>
#include <string>
#include <tuple>

#include "control_state.h"
#include "win32_handles.h"

namespace velmora {

class FontCache {
 public:
  explicit FontCache(int dpi) : dpi_(dpi) {}
  HFONT Get(const FontSpec& spec);

 private:
  using Key = std::tuple<std::string, int, bool>;
  int dpi_;
  std::map<Key, ScopedFont> fonts_;
};

}  // namespace velmora
