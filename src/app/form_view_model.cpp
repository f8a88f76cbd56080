// Showing the model: every aspect of a control's state that changes is put
// onto its window; and the window's place and state, for the form.
#include "form_view.h"

namespace velmora {

void FormView::OnControlChanged(ControlKey id, ControlAspect aspect) {
  HWND control = Control(id);
  if (!control) return;
  const ControlState& state = controls_[id];
  switch (aspect) {
    case ControlAspect::Caption:
      Show_Text(control, state.Caption);
      break;
    case ControlAspect::ToolTip:
      if (id != form_.Form) tips_.Set(control, state.ToolTip);
      break;
    case ControlAspect::Enabled:
      EnableWindow(control, state.Enabled);
      break;
    case ControlAspect::Visible:
      if (id != form_.Form) ShowWindow(control, state.Visible ? SW_SHOWNA : SW_HIDE);
      break;
    case ControlAspect::Checked:
      SendMessageA(control, BM_SETCHECK, state.Checked ? BST_CHECKED : BST_UNCHECKED, 0);
      break;
    case ControlAspect::Inactive:
      InvalidateRect(control, nullptr, TRUE);
      break;
    case ControlAspect::Font:
      SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Get(state.Font)), TRUE);
      break;
    case ControlAspect::Rect:
      Show_Rect(id);
      break;
    case ControlAspect::Caret:
      SendMessageA(control, EM_SETSEL, static_cast<WPARAM>(state.Caret), state.Caret);
      break;
  }
}

void FormView::OnFocusRequested(ControlKey id) {
  if (HWND control = Control(id)) SetFocus(control);
}

// The edit control reports a text it was given as a change; that is not
// the user typing, so it is not passed back.
void FormView::Show_Text(HWND control, const std::string& text) {
  showingText_ = true;
  SetWindowTextA(control, text.c_str());
  showingText_ = false;
  const ControlKey id = Key_Of(GetDlgCtrlID(control));
  const ControlDeclaration* declaration = Find_Declaration(form_, id);
  if (control != window_ && declaration && declaration->Kind == ControlKind::TextBox) {
    const long caret = controls_[id].Caret;
    SendMessageA(control, EM_SETSEL, static_cast<WPARAM>(caret), caret);
  }
}

void FormView::Show_Rect(ControlKey id) {
  const TwipsRect& rect = controls_[id].Rect;
  if (id == form_.Form) {
    if (!(Placement() == rect)) SetPlacement(rect);
    return;
  }
  const RECT place = scale_.Pixels(rect);
  SetWindowPos(Control(id), nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

// Labels of unused fields are greyed; unused or disabled text boxes take
// the face colour as their background.
LRESULT FormView::On_Control_Colour(HDC dc, HWND control, bool edit) {
  const ControlKey id = Key_Of(GetDlgCtrlID(control));
  const ControlDeclaration* declaration = Find_Declaration(form_, id);
  const LRESULT standard = DefWindowProcA(window_, edit ? WM_CTLCOLOREDIT : WM_CTLCOLORSTATIC,
                                          reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(control));
  if (!declaration) return standard;
  const ControlState& state = controls_[id];
  if (state.Inactive) SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
  if (declaration->Kind == ControlKind::TextBox && (state.Inactive || !state.Enabled)) {
    SetBkColor(dc, GetSysColor(COLOR_BTNFACE));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
  }
  return standard;
}

void FormView::BringFocusToForeground() {
  HWND focus = GetFocus();
  SetForegroundWindow(focus ? GetAncestor(focus, GA_ROOT) : window_);
}

void FormView::Close() { PostMessageA(window_, WM_CLOSE, 0, 0); }

TwipsRect FormView::Placement() {
  RECT outer{};
  GetWindowRect(window_, &outer);
  return scale_.Twips(outer);
}

// Read as SetPlacement writes it, so that a stored place comes back the same.
TwipsRect FormView::RestoredPlacement() {
  if (!IsIconic(window_) && !IsZoomed(window_)) return Placement();
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window_, &placement);
  return scale_.Twips(placement.rcNormalPosition);
}

// A minimised or maximised form keeps the place as the one it returns to.
void FormView::SetPlacement(const TwipsRect& rect) {
  const RECT place = scale_.Pixels(rect);
  if (IsWindowVisible(window_) && (IsIconic(window_) || IsZoomed(window_))) {
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    GetWindowPlacement(window_, &placement);
    placement.rcNormalPosition = place;
    SetWindowPlacement(window_, &placement);
    return;
  }
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

WindowState FormView::State() {
  if (pendingState_) return *pendingState_;
  if (IsIconic(window_)) return WindowState::Minimized;
  return IsZoomed(window_) ? WindowState::Maximized : WindowState::Normal;
}

void FormView::SetState(WindowState state) {
  if (!IsWindowVisible(window_)) {
    pendingState_ = state;
    return;
  }
  const int command[] = {SW_RESTORE, SW_MINIMIZE, SW_MAXIMIZE};
  ShowWindow(window_, command[static_cast<int>(state)]);
}

long FormView::ScreenWidth() { return scale_.Twips(GetSystemMetrics(SM_CXSCREEN)); }

long FormView::ScreenHeight() { return scale_.Twips(GetSystemMetrics(SM_CYSCREEN)); }

// The font system gives the nearest face it has; its name tells the caller
// whether the wanted one exists.
std::string FormView::Set_List_Font(ControlKey list, const std::string& name) {
  FontSpec font = controls_[list].Font;
  font.Name = name;
  controls_.SetFont(list, font);
  const ScopedWindowDC dc(Control(list));
  const ScopedSelection selected(dc.get(), fonts_.Get(font));
  char face[LF_FACESIZE] = "";
  GetTextFaceA(dc.get(), LF_FACESIZE, face);
  return face;
}

}  // namespace velmora
