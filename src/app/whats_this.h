// The What's-This pop-up: a small window with a control's help text, shown
// where the user released the right mouse button. A click anywhere, any key
// or moving to another window closes it; only one is shown at a time.
#pragma once

#include <windows.h>

#include <string>

namespace velmora {

// The pop-up's window class, by which scripts and tests find it; its window
// text is the help text it shows.
inline constexpr char kWhatsThisClass[] = "VelmoraWhatsThis";

// Shows the text with its top left corner near the screen point.
void Show_Whats_This(HWND owner, const std::string& text, POINT screenPoint);

}  // namespace velmora
