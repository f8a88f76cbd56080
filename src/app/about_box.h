// The about box: the program's icon, its five about texts and an OK button.
#pragma once

#include <windows.h>

namespace velmora {

void Show_About_Box(HWND owner);

}  // namespace velmora
