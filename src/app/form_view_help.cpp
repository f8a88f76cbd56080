// Help on every form: F1 opens the help page of the focused control's area,
// and a right-button release over a control shows its What's-This pop-up.
// Both reach the form without hooking its controls, whatever loop pumps the
// messages: the system turns F1 into WM_HELP, and a right-button release (or
// Shift+F10, or the menu key) into WM_CONTEXTMENU, and passes either from the
// control up to its parents. A hook on a list box would slow every one of its
// messages, a hundredfold under Wine, and a long script is many messages.
#include "form_view.h"

#include "help_viewer.h"
#include "whats_this.h"

namespace velmora {

namespace {

constexpr LPARAM kFromKeyboard = -1;  // WM_CONTEXTMENU asked for by a key, not at a point

POINT Point_Of(LPARAM lParam) { return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))}; }

// The innermost control under the point, disabled or not: a label inside a
// frame is the label, also when the frame (and so the label) is disabled and
// the request reaches the form from the frame rather than from the label.
HWND Innermost_At(HWND window, POINT clientPoint) {
  for (;;) {
    HWND child = ChildWindowFromPointEx(window, clientPoint, CWP_SKIPINVISIBLE);
    if (!child || child == window) return window;
    MapWindowPoints(window, child, &clientPoint, 1);
    window = child;
  }
}

bool Asks_For_Whats_This(const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  return message.wParam == VK_APPS || (message.wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0);
}

}  // namespace

// Shift+F10 and the menu key on a control: the pop-up below it. Taken before
// the control sees the key, as the dialog keys are: F10 would otherwise start
// the keyboard menu of the window when it is released.
bool FormView::Translate_Help_Key(const MSG& message) {
  if (!window_ || !Asks_For_Whats_This(message) || !IsChild(window_, message.hwnd)) return false;
  Show_Whats_This_Below(message.hwnd);
  return true;
}

// The form's help messages, from the form itself or passed up by a control.
bool FormView::Handle_Help_Message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_HELP) {
    const auto* info = reinterpret_cast<const HELPINFO*>(lParam);
    auto* window = static_cast<HWND>(info->hItemHandle);
    if (info->iContextType != HELPINFO_WINDOW) return true;  // a menu's item: no page of its own
    if (window == window_) Show_Help_For(form_.Form);
    if (IsChild(window_, window)) Show_Help_For(Key_Of(GetDlgCtrlID(window)));
    return true;
  }
  if (message != WM_CONTEXTMENU) return false;
  auto* window = reinterpret_cast<HWND>(wParam);
  if (window != window_ && !IsChild(window_, window)) return false;
  if (lParam == kFromKeyboard) {
    Show_Whats_This_Below(window);
    return true;
  }
  POINT point = Point_Of(lParam);
  ScreenToClient(window, &point);
  // Over the form's frame or caption the system menu stays.
  return Show_Whats_This_At(window, point);
}

void FormView::Show_Help_For(ControlKey id) { Show_Help_Page(window_, Help_File(), Help_Page_For(form_, id)); }

// The control at the point: the window itself, or the innermost child under
// the point, disabled or not (those get no mouse input of their own). Nothing when the
// button was released outside the window; false then.
bool FormView::Show_Whats_This_At(HWND window, POINT clientPoint) {
  RECT area;
  GetClientRect(window, &area);
  if (!PtInRect(&area, clientPoint)) return false;
  HWND target = Innermost_At(window, clientPoint);
  POINT screen = clientPoint;
  ClientToScreen(window, &screen);
  Show_Whats_This_Of(target, screen);
  return true;
}

void FormView::Show_Whats_This_Below(HWND control) {
  RECT place;
  GetWindowRect(control, &place);
  Show_Whats_This_Of(control, {place.left, place.bottom});
}

void FormView::Show_Whats_This_Of(HWND control, POINT screenPoint) {
  if (control == window_) return;
  if (const ControlHelp* help = Find_Control_Help(form_, Key_Of(GetDlgCtrlID(control))))
    Show_Whats_This(window_, help->Text, screenPoint);
}

}  // namespace velmora
