// The editor form's window: the editor's controls, its lists mirrored from
// the models, and the user's input passed to the EditorForm's procedures; it
// also serves the engine as its surface.
#pragma once

#include <windows.h>

#include <memory>

#include "editor_surface.h"
#include "form_view.h"
#include "list_box_mirror.h"

namespace velmora {

struct Engine;
class EditorForm;

class EditorWindow : public FormView, public EditorSurface {
 public:
  // Posted when a field that starts a pick or a dialog gets the focus.
  static constexpr UINT kFieldEntered = WM_APP + 1;

  EditorWindow(Engine& engine, FormControls& controls);

  // Creates the window hidden, with every control, and starts mirroring.
  bool Create(HINSTANCE instance, EditorForm& form);
  // Keyboard navigation (Tab, arrows, access keys); true when it took the message.
  bool Translate_Dialog_Key(MSG& message);

  // EditorSurface
  long MeasureDebugText(const std::string& text) override;
  long DebugWindowWidth() override;
  void SetDebugHorizontalExtent(long pixels) override;
  void EnableDebugFrame() override;
  long MeasureTraceText(const std::string& text) override;
  long TraceWindowWidth() override;
  void SetTraceHorizontalExtent(long pixels) override;
  std::string SetTraceFont(const std::string& name) override;

 private:
  static LRESULT CALLBACK Control_Hook(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR self);
  LRESULT Handle_Message(UINT message, WPARAM wParam, LPARAM lParam) override;
  std::string Help_File() const override;
  HelpForm Help_Form() const override { return HelpForm::Editor; }
  LRESULT Handle_Control_Message(HWND control, UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
  void Attach_Lists();

  // Input, in editor_window_input.cpp.
  void On_Command(ControlId id, int code);
  void On_Button_Clicked(ControlId id);
  void On_Menu(MenuId id);
  void On_Text_Changed(ControlId id);
  void On_List_Selection_Changed(ControlId id);
  void On_Field_Entered(ControlId id, bool byKeyboard);

  // The form's own events.
  void On_Size();
  void On_Close();
  void On_Destroy();

  Engine& engine_;
  EditorForm* form_ = nullptr;
  std::unique_ptr<ListBoxMirror> commandMirror_, traceMirror_, debugMirror_;
  bool keyboardMove_ = false;  // the catalogue's highlight moves by keys: not a choice
  bool tabbing_ = false;       // the focus moves by Tab or Shift+Tab
  bool resizing_ = false;
};

}  // namespace velmora
