// The user's input: notifications of the controls become the form's
// procedures or changes of the model's state.
#include "editor_window.h"

#include <commctrl.h>

#include <string>

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

// The buttons whose click the form handles.
constexpr ControlId kFormButtons[] = {
    ControlId::OpenScriptButton,    ControlId::SaveScriptButton,    ControlId::CreateDebugButton,
    ControlId::InsertCommandButton, ControlId::RemoveCommandButton, ControlId::ExecuteButton,
    ControlId::ExecuteNextButton,   ControlId::BreakPointButton,
};

}  // namespace

// What the controls' notifications do; typed text and the focus are already
// in the model.
void EditorWindow::Route_Notifications() {
  using C = ControlId;
  notifications_ = {
      {C::VelmoraMenu, BN_CLICKED, [this] { On_Menu_Button(); }},
      {C::CommandLine, EN_CHANGE, [this] { form_->Text_Changed(C::CommandLine); }},
      {C::Minutes, EN_CHANGE, [this] { form_->Text_Changed(C::Minutes); }},
      {C::Seconds, EN_CHANGE, [this] { form_->Text_Changed(C::Seconds); }},
      {C::CommandLine, EN_SETFOCUS, [this] { On_Field_Focused(C::CommandLine); }},
      {C::Minutes, EN_SETFOCUS, [this] { On_Field_Focused(C::Minutes); }},
      {C::CommandList, LBN_SELCHANGE, [this] { On_List_Selection_Changed(C::CommandList); }},
      {C::TraceWindow, LBN_SELCHANGE, [this] { On_List_Selection_Changed(C::TraceWindow); }},
      {C::TraceWindow, LBN_DBLCLK, [this] { form_->TraceWindow_DblClick(); }},
  };
  for (const ControlId button : kFormButtons)
    notifications_.push_back({button, BN_CLICKED, [this, button] { form_->Button_Clicked(button); }});
}

// Coming back to the form is no entering of the field: no pick starts. A
// field entered by Tab is told so: it may hold a description to correct by hand.
void EditorWindow::On_Field_Focused(ControlId id) {
  if (!restoringFocus_) PostMessageA(window_, kFieldEntered, static_cast<WPARAM>(id), tabbing_ ? 1 : 0);
}

// A pick or a dialog starts once the click that gave the field the focus has
// been handled, and takes the mouse capture from the field: otherwise the
// field would go on selecting text with the button long released.
void EditorWindow::On_Field_Entered(ControlId id, bool byKeyboard) {
  if (controls_.Focused() != id || GetFocus() != Control(id)) return;  // the focus has moved on
  if (GetCapture() == Control(id)) ReleaseCapture();
  form_->Field_Entered(id, byKeyboard);
}

void EditorWindow::On_Menu_Button() {
  if (const auto chosen = Track_Velmora_Menu(window_, Control(ControlId::VelmoraMenu), form_->Fast_Pace(),
                                               form_->Recording()))
    On_Menu(*chosen);
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
    case MenuId::FastPace:
      return form_->Toggle_Fast_Pace();
    case MenuId::RecordActions:
      return form_->Toggle_Recording();
  }
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

// The catalogue takes Enter from the dialog keys and marks key moves; the
// file labels report the right button, held until it is released anywhere,
// and pass its release on.
bool EditorWindow::Control_Message(HWND control, ControlKey key, UINT message, WPARAM wParam, LPARAM lParam,
                                   LRESULT& result) {
  const auto id = key.As<ControlId>();
  if (id == ControlId::CommandList) return On_Catalogue_Message(control, message, wParam, lParam, result);
  if (id != ControlId::ScriptFileLabel && id != ControlId::DebugFileLabel) return false;
  if (message == WM_RBUTTONDOWN) {
    SetCapture(control);
    form_->Label_Mouse(id, kRightButton, true);
    return true;
  }
  if (message == WM_RBUTTONUP) {
    // The layout comes back first; the release then shows the label's What's-This.
    if (GetCapture() == control) ReleaseCapture();
    form_->Label_Mouse(id, kRightButton, false);
  }
  return false;
}

bool EditorWindow::On_Catalogue_Message(HWND control, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  const auto* key = reinterpret_cast<const MSG*>(lParam);
  if (message == WM_GETDLGCODE && key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN) {
    result = DefSubclassProc(control, message, wParam, lParam) | DLGC_WANTMESSAGE;
    return true;
  }
  if (message == WM_KEYDOWN && wParam == VK_RETURN) {
    form_->CommandList_Click(Selected_Index(control));
    return true;
  }
  if (message == WM_CHAR && wParam == '\r') return true;
  if (message != WM_KEYDOWN && message != WM_CHAR) return false;
  keyboardMove_ = true;
  result = DefSubclassProc(control, message, wParam, lParam);
  keyboardMove_ = false;
  return true;
}

}  // namespace velmora
