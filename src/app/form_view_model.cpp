// Showing the model: every aspect of a control's state that changes is put
// onto its window.
#include "form_view.h"

namespace velmora {

void FormView::OnControlChanged(ControlId id, ControlAspect aspect) {
  HWND control = Control(id);
  if (!control) return;
  const ControlState& state = controls_[id];
  switch (aspect) {
    case ControlAspect::Caption:
      Show_Text(control, state.Caption);
      break;
    case ControlAspect::ToolTip:
      if (id != ControlId::Form) tips_.Set(control, state.ToolTip);
      break;
    case ControlAspect::Enabled:
      EnableWindow(control, state.Enabled);
      break;
    case ControlAspect::Visible:
      if (id != ControlId::Form) ShowWindow(control, state.Visible ? SW_SHOWNA : SW_HIDE);
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

void FormView::OnFocusRequested(ControlId id) {
  if (HWND control = Control(id)) SetFocus(control);
}

// The edit control reports a text it was given as a change; that is not
// the user typing, so it is not passed back.
void FormView::Show_Text(HWND control, const std::string& text) {
  showingText_ = true;
  SetWindowTextA(control, text.c_str());
  showingText_ = false;
  const ControlId id = static_cast<ControlId>(GetDlgCtrlID(control));
  const ControlDeclaration* declaration = Declaration(id);
  if (control != window_ && declaration && declaration->Kind == ControlKind::TextBox) {
    const long caret = controls_[id].Caret;
    SendMessageA(control, EM_SETSEL, static_cast<WPARAM>(caret), caret);
  }
}

void FormView::Show_Rect(ControlId id) {
  const TwipsRect& rect = controls_[id].Rect;
  if (id == ControlId::Form) {
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
  const auto id = static_cast<ControlId>(GetDlgCtrlID(control));
  const ControlDeclaration* declaration = Declaration(id);
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

}  // namespace velmora
