// The editor form's window: creates the controls of the layout table, shows
// what FormControls holds, passes the user's input to the EditorForm's
// procedures, and serves the form and the engine as their window.
#pragma once

#include <windows.h>

#include <map>
#include <memory>
#include <optional>

#include "controls.h"
#include "editor_surface.h"
#include "font_cache.h"
#include "form_controls.h"
#include "form_window.h"
#include "list_box_mirror.h"
#include "twips.h"

namespace velmora {

struct Engine;
class EditorForm;

class EditorWindow : public ControlObserver, public FormWindow, public EditorSurface {
 public:
  // Posted when a field that starts a pick or a dialog gets the focus.
  static constexpr UINT kFieldEntered = WM_APP + 1;

  EditorWindow(Engine& engine, FormControls& controls);
  ~EditorWindow() override;
  EditorWindow(const EditorWindow&) = delete;
  EditorWindow& operator=(const EditorWindow&) = delete;

  // Creates the window hidden, with every control, and starts mirroring.
  bool Create(HINSTANCE instance, EditorForm& form);
  // Shows it in the state the form asked for while it was hidden.
  void Show(int showCommand);
  HWND Handle() const { return window_; }
  // Keyboard navigation (Tab, arrows, access keys); true when it took the message.
  bool Translate_Dialog_Key(MSG& message);

  // ControlObserver
  void OnControlChanged(ControlId id, ControlAspect aspect) override;
  void OnFocusRequested(ControlId id) override;

  // FormWindow
  TwipsRect Placement() override;
  void SetPlacement(const TwipsRect& rect) override;
  WindowState State() override;
  void SetState(WindowState state) override;
  long ScreenWidth() override;
  long ScreenHeight() override;
  void BringFocusToForeground() override;
  void Close() override;

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
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK Control_Hook(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR self);
  LRESULT Handle_Message(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT Handle_Control_Message(HWND control, UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
  void Create_Controls();
  void Attach_Lists();
  HWND Control(ControlId id) const;

  // Input, in editor_window_input.cpp.
  void On_Command(ControlId id, int code);
  void On_Button_Clicked(ControlId id);
  void On_Menu(MenuId id);
  void On_Text_Changed(ControlId id);
  void On_List_Selection_Changed(ControlId id);
  void On_Field_Entered(ControlId id);
  LRESULT On_Control_Colour(HDC dc, HWND control, bool edit);

  // The form's own events.
  void On_Size();
  void On_Move();
  void On_Close();
  void On_Destroy();

  void Show_Text(HWND control, const std::string& text);
  void Show_Rect(ControlId id);
  long Measure(ControlId list, const std::string& text);
  long Client_Width(ControlId list);

  Engine& engine_;
  FormControls& controls_;
  EditorForm* form_ = nullptr;
  HWND window_ = nullptr;
  TwipsScale scale_;
  FontCache fonts_;
  // Text is measured on a memory device context of our own: a window's DC
  // costs a round trip to the display server on every line under Wine.
  ScopedMemoryDC measureDc_;
  ToolTips tips_;
  std::map<ControlId, HWND> handles_;
  std::unique_ptr<ListBoxMirror> commandMirror_, traceMirror_, debugMirror_;
  std::optional<WindowState> pendingState_;  // asked for before the window was shown
  bool showingText_ = false;                 // the text change comes from the model, not from the user
  bool keyboardMove_ = false;                // the catalogue's highlight moves by keys: not a choice
  bool resizing_ = false;
};

}  // namespace velmora
