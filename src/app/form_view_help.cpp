// Help on every form: F1 opens the help page of the focused control's area,
// and a right-button release over a control shows its What's-This pop-up.
#include "form_view.h"

#include <commctrl.h>

#include "help_viewer.h"
#include "whats_this.h"

namespace velmora {

namespace {

constexpr UINT kKeyF1 = 0x004D;  // WM_KEYF1: the system's F1, which would become WM_HELP

POINT Point_Of(LPARAM lParam) { return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))}; }

}  // namespace

LRESULT CALLBACK FormView::Help_Hook(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR self) {
  auto* view = reinterpret_cast<FormView*>(self);
  switch (message) {
    case WM_RBUTTONUP: {
      // The control's own handling first (a file label restores its layout).
      const LRESULT result = DefSubclassProc(control, message, wParam, lParam);
      if (view->window_) view->Show_Whats_This_At(control, Point_Of(lParam));
      return result;
    }
    case WM_CONTEXTMENU:
      return 0;  // What's-This replaces the controls' own menus
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      // Shift+F10 and the menu key: the pop-up below the focused control.
      if (wParam == VK_APPS || (wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0)) {
        RECT place;
        GetWindowRect(control, &place);
        view->Show_Whats_This_Of(control, {place.left, place.bottom});
        return 0;
      }
      break;
    default:
      break;
  }
  if (view->Handle_Help_Message(control, message, wParam, lParam)) return 0;
  return DefSubclassProc(control, message, wParam, lParam);
}

// F1 on a control or on the form itself; the system's own F1 messages are
// taken here so that help opens once.
bool FormView::Handle_Help_Message(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (wParam != VK_F1) return false;
      Show_Help_For(window == window_ ? ControlId::Form : static_cast<ControlId>(GetDlgCtrlID(window)));
      return true;
    case kKeyF1:
    case WM_HELP:
      return true;
    case WM_RBUTTONUP:
      // The form itself: a disabled control, or a label that lets the mouse through.
      if (window != window_) return false;
      Show_Whats_This_At(window, Point_Of(lParam));
      return false;
    default:
      return false;
  }
}

void FormView::Show_Help_For(ControlId id) { Show_Help_Page(window_, Help_File(), Help_Page_For(id, Help_Form())); }

// The control at the point: the window itself, or the child under the point,
// disabled or not (those get no mouse input of their own). Nothing when the
// button was released outside the window.
void FormView::Show_Whats_This_At(HWND window, POINT clientPoint) {
  RECT area;
  GetClientRect(window, &area);
  if (!PtInRect(&area, clientPoint)) return;
  HWND target = window;
  HWND child = ChildWindowFromPointEx(window, clientPoint, CWP_SKIPINVISIBLE);
  if (child && child != window) target = child;
  POINT screen = clientPoint;
  ClientToScreen(window, &screen);
  Show_Whats_This_Of(target, screen);
}

void FormView::Show_Whats_This_Of(HWND control, POINT screenPoint) {
  if (control == window_) return;
  if (const ControlHelp* help = Find_Control_Help(static_cast<ControlId>(GetDlgCtrlID(control))))
    Show_Whats_This(window_, help->Text, screenPoint);
}

}  // namespace velmora
