// What every form's window shares: it creates its controls from the form's
// declaration, shows what FormControls holds as it changes, serves the form
// as its window (place, state, screen size), and handles the messages both
// forms handle alike (size, move, close, destroy, control colours, help, the
// dialog keys). A form's window supplies a table of what its controls'
// notifications do, and hooks for what is really its own.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls.h"
#include "font_cache.h"
#include "form_declaration.h"
#include "form_window.h"
#include "twips.h"
#include "win32_handles.h"

namespace velmora {

class FormView : public ControlObserver, public FormWindow {
 public:
  FormView(FormControls& controls, const FormDeclaration& form);
  ~FormView() override;
  FormView(const FormView&) = delete;
  FormView& operator=(const FormView&) = delete;

  HWND Handle() const { return window_; }
  bool Closed() const { return window_ == nullptr; }
  // Shows it in the state the form asked for while it was hidden.
  void Show(int showCommand);
  // Pumps the thread's messages until this form's window has gone; a quit
  // message ends it early and is passed on to the loop outside.
  void Run_Until_Closed();
  // The keys a form takes before its controls see them: help (Shift+F10, the
  // menu key), Enter on a push button, the form's own, then the dialog keys
  // (Tab, arrows, access keys). True when it took the message.
  bool Translate_Key(MSG& message);

  // ControlObserver
  void OnControlChanged(ControlKey id, ControlAspect aspect) override;
  void OnFocusRequested(ControlKey id) override;

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
  // What one notification (BN_CLICKED, EN_CHANGE, LBN_SELCHANGE, ...) of one
  // control does. Typed text and the focus reach the model before it runs.
  struct Notification {
    ControlKey Control;
    int Code;
    std::function<void()> Handler;
  };

  // Registers the class (once) and creates the window hidden, with every
  // control of the form, and starts showing the model.
  bool Create_Form(HINSTANCE instance, const char* className, HWND owner);
  // Passes the control's messages to Control_Message first.
  void Hook_Control(ControlKey id);

  // The form's own: its layout after a size change, whether it may close, the
  // windows it keeps of its own (forgotten before the controls go), its keys,
  // messages and control messages; and its help file.
  virtual void Lay_Out() = 0;
  virtual bool May_Close() = 0;
  virtual void Forget_Own_Windows() {}
  virtual bool Own_Key(MSG& message);
  virtual bool Own_Message(UINT message, WPARAM wParam, LPARAM lParam);
  virtual bool Control_Message(HWND control, ControlKey id, UINT message, WPARAM wParam, LPARAM lParam,
                               LRESULT& result);
  virtual std::string Help_File() const = 0;

  HWND Control(ControlKey id) const;
  ControlKey Key_Of(int identifier) const { return controls_.Form().Sibling(identifier); }
  bool Is_Option(ControlKey id) const;
  // Sets the list's font by name and returns the face the font system gave.
  std::string Set_List_Font(ControlKey list, const std::string& name);

  FormControls& controls_;
  std::vector<Notification> notifications_;
  HWND window_ = nullptr;
  bool tabbing_ = false;         // the focus moves by Tab or Shift+Tab
  bool restoringFocus_ = false;  // the focus comes back on activation, not from the user

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK Control_Procedure(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                            DWORD_PTR self);
  LRESULT Handle_Message(UINT message, WPARAM wParam, LPARAM lParam);
  void On_Command(ControlKey id, int code);
  void On_Size();
  void On_Close();
  void On_Destroy();
  bool Keep_Focus_On_Activation(WPARAM wParam);
  bool Press_Focused_Button(const MSG& message);
  LRESULT On_Control_Colour(HDC dc, HWND control, bool edit);
  // A text box's text and caret as the user left them, into the model.
  void Take_Typed_Text(ControlKey id);
  // The model's size follows the window's.
  void Track_Placement();
  // Help, in form_view_help.cpp: F1 and What's-This on every control.
  bool Translate_Help_Key(const MSG& message);
  bool Handle_Help_Message(UINT message, WPARAM wParam, LPARAM lParam);
  void Show_Help_For(ControlKey id);
  bool Show_Whats_This_At(HWND window, POINT clientPoint);
  void Show_Whats_This_Below(HWND control);
  void Show_Whats_This_Of(HWND control, POINT screenPoint);
  void Create_Controls();
  void Show_Text(HWND control, const std::string& text);
  void Show_Rect(ControlKey id);

  const FormDeclaration& form_;
  TwipsScale scale_;
  FontCache fonts_;
  bool showingText_ = false;  // the text change comes from the model, not from the user
  bool resizing_ = false;     // the layout is under way: a size it sets lays out nothing more
  ToolTips tips_;
  std::map<int, HWND> handles_;
  std::optional<WindowState> pendingState_;  // asked for before the window was shown
  HWND focusBefore_ = nullptr;               // the control that had the focus when the form was left
};

}  // namespace velmora
