// The editor form's window: the editor's controls, its lists mirrored from
// the models, and the user's input passed to the EditorForm's procedures; it
// also serves the engine as its surface.
#pragma once

#include <windows.h>

#include <memory>

#include "editor_surface.h"
#include "form_controls.h"
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

  // EditorSurface
  void EnableDebugFrame() override;
  std::string SetTraceFont(const std::string& name) override;

 private:
  // FormView
  void Lay_Out() override;
  bool May_Close() override;
  void Forget_Own_Windows() override;
  bool Own_Key(MSG& message) override;
  bool Own_Message(UINT message, WPARAM wParam, LPARAM lParam) override;
  bool Control_Message(HWND control, ControlKey id, UINT message, WPARAM wParam, LPARAM lParam,
                       LRESULT& result) override;
  std::string Help_File() const override;

  // Input, in editor_window_input.cpp.
  void Route_Notifications();
  void On_Menu_Button();
  void On_Menu(MenuId id);
  void On_List_Selection_Changed(ControlId id);
  void On_Field_Focused(ControlId id);
  void On_Field_Entered(ControlId id, bool byKeyboard);
  bool On_Catalogue_Message(HWND control, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

  Engine& engine_;
  EditorForm* form_ = nullptr;
  std::unique_ptr<ListBoxMirror> commandMirror_, traceMirror_, debugMirror_;
  bool keyboardMove_ = false;  // the catalogue's highlight moves by keys: not a choice
};

}  // namespace velmora
