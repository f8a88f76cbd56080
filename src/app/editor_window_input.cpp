// The user's input: notifications of the controls become the form's
// procedures or changes of the model's state.
#include "editor_window.h"

#include <commctrl.h>

#include <string>
#include <utility>

#include "about_box.h"
#include "editor_form.h"
#include "engine.h"
#include "envvar_setup_window.h"
#include "help_viewer.h"
#include "velmora_menu.h"

namespace velmora {

namespace {

constexpr int kRightButton = 2;
constexpr char kUsingHelpPage[] = "using-help";

long Selected_Index(HWND list) { return static_cast<long>(SendMessageA(list, LB_GETCURSEL, 0, 0)); }

}  // namespace

void EditorWindow::On_Command(ControlId id, int code) {
  switch (code) {
    case BN_CLICKED:
      On_Button_Clicked(id);
      break;
    case EN_CHANGE:
      if (!showingText_) On_Text_Changed(id);
      break;
    case EN_SETFOCUS:
    case LBN_SETFOCUS:
      controls_.FocusMoved(id);
      // Coming back to the form is no entering of the field: no pick starts.
      if (!restoringFocus_ && (id == ControlId::CommandLine || id == ControlId::Minutes))
        PostMessageA(window_, kFieldEntered, static_cast<WPARAM>(id), tabbing_ ? 1 : 0);
      break;
    case LBN_SELCHANGE:
      On_List_Selection_Changed(id);
      break;
    case LBN_DBLCLK:
      if (id == ControlId::TraceWindow) form_->TraceWindow_DblClick();
      break;
    default:
      break;
  }
}

// A pick or a dialog starts once the click that gave the field the focus has
// been handled, and takes the mouse capture from the field: otherwise the
// field would go on selecting text with the button long released.
void EditorWindow::On_Field_Entered(ControlId id, bool byKeyboard) {
  if (controls_.Focused() != id || GetFocus() != Control(id)) return;  // the focus has moved on
  if (GetCapture() == Control(id)) ReleaseCapture();
  form_->Field_Entered(id, byKeyboard);
}

void EditorWindow::On_Button_Clicked(ControlId id) {
  if (id == ControlId::VelmoraMenu) {
    if (const auto chosen = Track_Velmora_Menu(window_, Control(id))) On_Menu(*chosen);
    return;
  }
  if (Is_Option(id)) {
    controls_.SetChecked(id, SendMessageA(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED);
    return;
  }
  form_->Button_Clicked(id);
}

void EditorWindow::On_Menu(MenuId id) {
  switch (id) {
    case MenuId::HelpContents:
      return Show_Help_Contents(window_, form_->HelpFile());
    case MenuId::HelpOnHelp:
      return Show_Help_Page(window_, form_->HelpFile(), kUsingHelpPage);
    case MenuId::About:
      return Show_About_Box(window_);
    case MenuId::AssignEnvVar:
      return Show_EnvVar_Setup(reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(window_, GWLP_HINSTANCE)), window_,
                               engine_, form_->HelpFile());
  }
}

void EditorWindow::On_Text_Changed(ControlId id) {
  Take_Typed_Text(id);
  form_->Text_Changed(id);
}

// The catalogue: a click chooses an entry, the arrow keys only move the
// highlight (Enter chooses). The trace list: every new highlight is the
// current line.
void EditorWindow::On_List_Selection_Changed(ControlId id) {
  const long index = Selected_Index(Control(id));
  if (id == ControlId::CommandList) {
    form_->Panel().CommandList().Select(index);
    if (!keyboardMove_) form_->CommandList_Click(index);
  } else if (id == ControlId::TraceWindow) {
    engine_.TraceWindow.Select(index);
    form_->TraceWindow_Click();
  }
}

LRESULT CALLBACK EditorWindow::Control_Hook(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                            DWORD_PTR self) {
  bool handled = false;
  const LRESULT result =
      reinterpret_cast<EditorWindow*>(self)->Handle_Control_Message(control, message, wParam, lParam, handled);
  return handled ? result : DefSubclassProc(control, message, wParam, lParam);
}

// The catalogue takes Enter from the dialog keys and marks key moves; the
// file labels report the right button, held until it is released anywhere,
// and pass its release on.
LRESULT EditorWindow::Handle_Control_Message(HWND control, UINT message, WPARAM wParam, LPARAM lParam, bool& handled) {
  const auto id = static_cast<ControlId>(GetDlgCtrlID(control));
  handled = true;
  if (id == ControlId::CommandList) {
    const auto* key = reinterpret_cast<const MSG*>(lParam);
    if (message == WM_GETDLGCODE && key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN)
      return DefSubclassProc(control, message, wParam, lParam) | DLGC_WANTMESSAGE;
    if (message == WM_KEYDOWN && wParam == VK_RETURN) {
      form_->CommandList_Click(Selected_Index(control));
      return 0;
    }
    if (message == WM_CHAR && wParam == '\r') return 0;
    if (message == WM_KEYDOWN || message == WM_CHAR) {
      keyboardMove_ = true;
      const LRESULT result = DefSubclassProc(control, message, wParam, lParam);
      keyboardMove_ = false;
      return result;
    }
  } else if (message == WM_RBUTTONDOWN) {
    SetCapture(control);
    form_->Label_Mouse(id, kRightButton, true);
    return 0;
  } else if (message == WM_RBUTTONUP) {
    // The layout comes back first; the release then shows the label's What's-This.
    if (GetCapture() == control) ReleaseCapture();
    form_->Label_Mouse(id, kRightButton, false);
  }
  handled = false;
  return 0;
}

}  // namespace velmora
