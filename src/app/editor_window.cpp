#include "editor_window.h"

#include <commctrl.h>

#include "editor_form.h"
#include "editor_layout.h"
#include "engine.h"

namespace velmora {

namespace {

constexpr char kClassName[] = "VelmoraEditor";

}  // namespace

EditorWindow::EditorWindow(Engine& engine, FormControls& controls)
    : FormView(controls, Editor_Form()), engine_(engine) {}

bool EditorWindow::Create(HINSTANCE instance, EditorForm& form) {
  form_ = &form;
  INITCOMMONCONTROLSEX common{sizeof common, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&common);
  if (!Create_Form(instance, kClassName, nullptr)) return false;
  for (ControlId hooked : {ControlId::CommandList, ControlId::ScriptFileLabel, ControlId::DebugFileLabel})
    Hook_Control(hooked);
  commandMirror_ = std::make_unique<ListBoxMirror>(form_->Panel().CommandList(), Control(ControlId::CommandList));
  traceMirror_ = std::make_unique<ListBoxMirror>(engine_.TraceWindow, Control(ControlId::TraceWindow));
  debugMirror_ = std::make_unique<ListBoxMirror>(engine_.DebugWindow, Control(ControlId::DebugWindow));
  Route_Notifications();
  return true;
}

// Enter on a script line does what a double click does, so lines can be
// edited from the keyboard. A click into a pick field that already has the
// focus (given back when the form was activated) still starts a pick.
bool EditorWindow::Own_Key(MSG& message) {
  if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && message.hwnd == Control(ControlId::TraceWindow)) {
    form_->TraceWindow_DblClick();
    return true;
  }
  if (message.message == WM_LBUTTONDOWN && message.hwnd == GetFocus()) {
    for (const ControlId field : {ControlId::CommandLine, ControlId::Minutes})
      if (message.hwnd == Control(field)) PostMessageA(window_, kFieldEntered, static_cast<WPARAM>(field), 0);
  }
  return false;
}

bool EditorWindow::Own_Message(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message != kFieldEntered) return false;
  On_Field_Entered(static_cast<ControlId>(wParam), lParam != 0);
  return true;
}

std::string EditorWindow::Help_File() const { return form_->HelpFile(); }

void EditorWindow::Lay_Out() {
  form_->Form_Resize();
  for (ListBoxMirror* mirror : {traceMirror_.get(), debugMirror_.get()})
    if (mirror) mirror->Fit_Extent();
}

// A run or a pick under way ends first, then asks for the close again; a
// changed script the user does not let go keeps the editor open.
bool EditorWindow::May_Close() { return form_->May_Close_Now() && form_->Form_QueryUnload(); }

// Stops mirroring into windows about to go.
void EditorWindow::Forget_Own_Windows() {
  commandMirror_.reset();
  traceMirror_.reset();
  debugMirror_.reset();
}

}  // namespace velmora
