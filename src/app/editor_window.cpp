#include "editor_window.h"

#include <commctrl.h>

#include "editor_form.h"
#include "engine.h"

namespace velmora {

namespace {

constexpr char kClassName[] = "VelmoraEditor";

}  // namespace

EditorWindow::EditorWindow(Engine& engine, FormControls& controls)
    : FormView(controls, Editor_Controls()), engine_(engine) {}

bool EditorWindow::Create(HINSTANCE instance, EditorForm& form) {
  form_ = &form;
  INITCOMMONCONTROLSEX common{sizeof common, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&common);
  if (!Create_Form(instance, kClassName, nullptr)) return false;
  for (ControlId hooked : {ControlId::CommandList, ControlId::ScriptFileLabel, ControlId::DebugFileLabel})
    SetWindowSubclass(Control(hooked), Control_Hook, 0, reinterpret_cast<DWORD_PTR>(this));
  Attach_Lists();
  return true;
}

void EditorWindow::Attach_Lists() {
  commandMirror_ = std::make_unique<ListBoxMirror>(form_->Panel().CommandList(), Control(ControlId::CommandList));
  traceMirror_ = std::make_unique<ListBoxMirror>(engine_.TraceWindow, Control(ControlId::TraceWindow));
  debugMirror_ = std::make_unique<ListBoxMirror>(engine_.DebugWindow, Control(ControlId::DebugWindow));
}

// Enter on a script line does what a double click does, so lines can be
// edited from the keyboard. A click into a pick field that already has the
// focus (given back when the form was activated) still starts a pick. A field
// entered by Tab is told so: it may hold a description to correct by hand.
bool EditorWindow::Translate_Dialog_Key(MSG& message) {
  if (!window_) return false;
  if (Translate_Help_Key(message) || Press_Focused_Button(message)) return true;
  if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && message.hwnd == Control(ControlId::TraceWindow)) {
    form_->TraceWindow_DblClick();
    return true;
  }
  if (message.message == WM_LBUTTONDOWN && message.hwnd == GetFocus()) {
    for (const ControlId field : {ControlId::CommandLine, ControlId::Minutes})
      if (message.hwnd == Control(field)) PostMessageA(window_, kFieldEntered, static_cast<WPARAM>(field), 0);
  }
  tabbing_ = message.message == WM_KEYDOWN && message.wParam == VK_TAB;
  const bool handled = IsDialogMessageA(window_, &message);
  tabbing_ = false;
  return handled;
}

LRESULT EditorWindow::Handle_Message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (lParam) On_Command(static_cast<ControlId>(LOWORD(wParam)), HIWORD(wParam));
      return 0;
    case kFieldEntered:
      On_Field_Entered(static_cast<ControlId>(wParam), lParam != 0);
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
      return DefWindowProcA(window_, message, wParam, lParam);
  }
}

std::string EditorWindow::Help_File() const { return form_->HelpFile(); }

// The form's size in its state, then its layout; a size the layout itself
// sets (the minimum) does not start another layout inside this one.
void EditorWindow::On_Size() {
  if (IsIconic(window_)) return;
  controls_.SetRect(ControlId::Form, Placement());
  if (resizing_) return;
  resizing_ = true;
  form_->Form_Resize();
  resizing_ = false;
}

// A run or a pick under way ends first, then asks for the close again; a
// changed script the user does not let go keeps the editor open.
void EditorWindow::On_Close() {
  if (!form_->May_Close_Now() || !form_->Form_QueryUnload()) return;
  DestroyWindow(window_);
}

// Gives back the window's icon, stops mirroring into windows about to go, and
// ends the message loop.
void EditorWindow::On_Destroy() {
  commandMirror_.reset();
  traceMirror_.reset();
  debugMirror_.reset();
  Forget_Window();
  PostQuitMessage(0);
}

}  // namespace velmora
