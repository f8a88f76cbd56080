// What every form's window shares: it creates its controls from the form's
// control table, shows what FormControls holds as it changes, and serves the
// form as its window (place, state, screen size). The editor and the batch
// editor derive their windows from it and add their own input handling.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "control_help.h"
#include "controls.h"
#include "font_cache.h"
#include "form_controls.h"
#include "form_window.h"
#include "twips.h"
#include "win32_handles.h"

namespace velmora {

class FormView : public ControlObserver, public FormWindow {
 public:
  FormView(FormControls& controls, const std::vector<ControlDeclaration>& table);
  ~FormView() override;
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;

  HWND Handle() const { return window_; }
  // Shows it in the state the form asked for while it was hidden.
  void Show(int showCommand);
  // Shift+F10 and the menu key over a control; the message loops ask it
  // first. True when it took the message.
  bool Translate_Help_Key(const MSG& message);
  // Enter on a focused push button presses it, as in a dialog box; true when
  // it took the message. The forms have no default button, so the dialog
  // manager would press none.
  bool Press_Focused_Button(const MSG& message);

  // ControlObserver
  void OnControlChanged(ControlId id, ControlAspect aspect) override;
  void OnFocusRequested(ControlId id) override;

  // FormWindow
  TwipsRect Placement() override;
  TwipsRect RestoredPlacement() override;
  void SetPlacement(const TwipsRect& rect) override;
  WindowState State() override;
  void SetState(WindowState state) override;
  long ScreenWidth() override;
  long ScreenHeight() override;
  void BringFocusToForeground() override;
  void Close() override;

 protected:
  // Registers the class (once) and creates the window hidden, with every
  // control of the table, and starts showing the model.
  bool Create_Form(HINSTANCE instance, const char* className, HWND owner);
  virtual LRESULT Handle_Message(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // The help file and the form whose page F1 opens when no control has help.
  virtual std::string Help_File() const = 0;
  virtual HelpForm Help_Form() const = 0;

  HWND Control(ControlId id) const;
  const ControlDeclaration* Declaration(ControlId id) const;
  bool Is_Option(ControlId id) const;
  // Width of the text in pixels in the list's font, and the list's inner width.
  long Measure(ControlId list, const std::string& text);
  long Client_Width(ControlId list);
  // Sets the list's font by name and returns the face the font system gave.
  std::string Set_List_Font(ControlId list, const std::string& name);
  LRESULT On_Control_Colour(HDC dc, HWND control, bool edit);
  // A text box's text and caret as the user left them, into the model.
  void Take_Typed_Text(ControlId id);
  // The model's size follows the window's; the caller lays out after it.
  void Track_Placement();
  // Ends showing the model: the window and its controls are going.
  void Forget_Window();

  FormControls& controls_;
  HWND window_ = nullptr;
  TwipsScale scale_;
  FontCache fonts_;
  bool showingText_ = false;     // the text change comes from the model, not from the user
  bool restoringFocus_ = false;  // the focus comes back on activation, not from the user

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool Keep_Focus_On_Activation(WPARAM wParam);
  // Help, in form_view_help.cpp: F1 and What's-This on every control.
  static LRESULT CALLBACK Text_Box_Hook(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR);
  bool Handle_Help_Message(UINT message, WPARAM wParam, LPARAM lParam);
  void Show_Help_For(ControlId id);
  bool Show_Whats_This_At(HWND window, POINT clientPoint);
  void Show_Whats_This_Below(HWND control);
  void Show_Whats_This_Of(HWND control, POINT screenPoint);
  void Create_Controls();
  void Show_Text(HWND control, const std::string& text);
  void Show_Rect(ControlId id);

  const std::vector<ControlDeclaration>& table_;
  // Text is measured on a memory device context of our own: a window's DC
  // costs a round trip to the display server on every line under Wine.
  ScopedMemoryDC measureDc_;
  ToolTips tips_;
  std::map<ControlId, HWND> handles_;
  std::optional<WindowState> pendingState_;  // asked for before the window was shown
  HWND focusBefore_ = nullptr;               // the control that had the focus when the form was left
};

}  // namespace velmora
