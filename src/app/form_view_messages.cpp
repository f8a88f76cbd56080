// The messages every form handles alike: its size, place, closing and end,
// the controls' colours and notifications, the keys it takes before its
// controls, and the one message loop that serves every form.
#include "form_view.h"

#include <commctrl.h>

namespace velmora {

LRESULT FormView::Handle_Message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (lParam) On_Command(Key_Of(LOWORD(wParam)), HIWORD(wParam));
      return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
      return On_Control_Colour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam),
                               message == WM_CTLCOLOREDIT);
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) On_Size();
      return 0;
    case WM_MOVE:
      Track_Placement();
      return 0;
    case WM_CLOSE:
      On_Close();
      return 0;
    case WM_DESTROY:
      On_Destroy();
      return 0;
    default:
      return Own_Message(message, wParam, lParam) ? 0 : DefWindowProcA(window_, message, wParam, lParam);
  }
}

// Typed text and the focus are the model's before the form hears of them;
// option buttons and check boxes keep their own checked state.
void FormView::On_Command(ControlKey id, int code) {
  if (code == EN_CHANGE) {
    if (showingText_) return;
    Take_Typed_Text(id);
  }
  if (code == EN_SETFOCUS || code == LBN_SETFOCUS) controls_.FocusMoved(id);
  if (code == BN_CLICKED && Is_Option(id)) {
    controls_.SetChecked(id, SendMessageA(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED);
    return;
  }
  for (const Notification& notification : notifications_)
    if (notification.Control == id && notification.Code == code) notification.Handler();
}

// The form's size in its state, then its layout; a size the layout itself
// sets (the minimum) does not start another layout inside this one.
void FormView::On_Size() {
  if (IsIconic(window_)) return;
  Track_Placement();
  if (resizing_) return;
  resizing_ = true;
  Lay_Out();
  resizing_ = false;
}

// An owner is enabled again before this window goes, so that the system
// activates it rather than another program's window.
void FormView::On_Close() {
  if (!May_Close()) return;
  if (HWND owner = GetWindow(window_, GW_OWNER)) EnableWindow(owner, TRUE);
  DestroyWindow(window_);
}

// Gives back the window's icon and stops showing the model in windows about
// to go; that ends the form's message loop.
void FormView::On_Destroy() {
  Forget_Own_Windows();
  auto* icon = reinterpret_cast<HICON>(SendMessageA(window_, WM_SETICON, ICON_BIG, 0));
  if (icon) DestroyIcon(icon);
  controls_.SetObserver(nullptr);
  handles_.clear();
  window_ = nullptr;
}

void FormView::Hook_Control(ControlKey id) {
  SetWindowSubclass(Control(id), Control_Procedure, 0, reinterpret_cast<DWORD_PTR>(this));
}

// A text box has a menu of its own (Cut, Copy, Paste), which What's-This
// replaces: its request goes on to the form as the other controls' do. Text
// boxes hold one line, so the hook costs nothing that matters.
LRESULT CALLBACK FormView::Control_Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                             DWORD_PTR self) {
  auto* view = reinterpret_cast<FormView*>(self);
  const ControlKey id = view->Key_Of(GetDlgCtrlID(control));
  const ControlDeclaration* declaration = Find_Declaration(view->form_, id);
  if (message == WM_CONTEXTMENU && declaration && declaration->Kind == ControlKind::TextBox)
    return SendMessageA(GetParent(control), message, wParam, lParam);
  LRESULT result = 0;
  if (view->Control_Message(control, id, message, wParam, lParam, result)) return result;
  return DefSubclassProc(control, message, wParam, lParam);
}

bool FormView::Own_Key(MSG&) { return false; }

bool FormView::Own_Message(UINT, WPARAM, LPARAM) { return false; }

bool FormView::Control_Message(HWND, ControlKey, UINT, WPARAM, LPARAM, LRESULT&) { return false; }

bool FormView::Translate_Key(MSG& message) {
  if (!window_) return false;
  if (Translate_Help_Key(message) || Press_Focused_Button(message) || Own_Key(message)) return true;
  tabbing_ = message.message == WM_KEYDOWN && message.wParam == VK_TAB;
  const bool handled = IsDialogMessageA(window_, &message);
  tabbing_ = false;
  return handled;
}

void FormView::Run_Until_Closed() {
  MSG message;
  while (!Closed()) {
    const BOOL got = GetMessageA(&message, nullptr, 0, 0);
    if (got <= 0) {
      // The program is ending: a loop outside this one must see the quit as well.
      if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    if (Translate_Key(message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

}  // namespace velmora
