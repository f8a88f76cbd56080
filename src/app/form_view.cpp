#include "form_view.h"

#include <commctrl.h>

namespace velmora {

namespace {

constexpr int kIconResource = 1;

void Register_Form_Class(HINSTANCE instance, const char* className, WNDPROC procedure) {
  WNDCLASSEXA formClass{};
  if (GetClassInfoExA(instance, className, &formClass)) return;
  formClass.cbSize = sizeof formClass;
  formClass.lpfnWndProc = procedure;
  formClass.hInstance = instance;
  formClass.hIconSm =
      static_cast<HICON>(LoadImageA(instance, MAKEINTRESOURCEA(kIconResource), IMAGE_ICON,
                                    GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED));
  formClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  formClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  formClass.lpszClassName = className;
  RegisterClassExA(&formClass);
}

// The window's own copy of the icon, which the form gives back when it goes.
void Give_Own_Icon(HWND window, HINSTANCE instance) {
  auto* icon = static_cast<HICON>(LoadImageA(instance, MAKEINTRESOURCEA(kIconResource), IMAGE_ICON,
                                             GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON), 0));
  if (icon) SendMessageA(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
}

}  // namespace

FormView::FormView(FormControls& controls, const FormDeclaration& form)
    : controls_(controls), form_(form), scale_(Screen_Dpi()), fonts_(scale_.Dpi()) {}

FormView::~FormView() {
  controls_.SetObserver(nullptr);
  if (window_) DestroyWindow(window_);
}

bool FormView::Create_Form(HINSTANCE instance, const char* className, HWND owner) {
  Register_Form_Class(instance, className, Procedure);
  Register_Frame_Class(instance);
  const RECT place = scale_.Pixels(controls_[form_.Form].Rect);
  window_ = CreateWindowExA(WS_EX_CONTROLPARENT, className, controls_[form_.Form].Caption.c_str(),
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, place.left, place.top, place.right - place.left,
                            place.bottom - place.top, owner, nullptr, instance, this);
  if (!window_) return false;
  Give_Own_Icon(window_, instance);
  tips_.Create(window_);
  Create_Controls();
  controls_.SetObserver(this);
  return true;
}

void FormView::Create_Controls() {
  for (const ControlDeclaration& declaration : form_.Controls) {
    const ControlState& state = controls_[declaration.Id];
    HWND control = Create_Control(declaration, state, Control(declaration.Parent), scale_);
    handles_[declaration.Id.Value()] = control;
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Get(state.Font)), FALSE);
    if (state.Checked) SendMessageA(control, BM_SETCHECK, BST_CHECKED, 0);
    tips_.Set(control, state.ToolTip);
    // Only the text boxes, and the controls the form asks for: a hook on the
    // lists would slow every line they show.
    if (declaration.Kind == ControlKind::TextBox) Hook_Control(declaration.Id);
  }
}

LRESULT CALLBACK FormView::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* create = reinterpret_cast<CREATESTRUCTA*>(lParam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* self = reinterpret_cast<FormView*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (!self || !self->window_) return DefWindowProcA(window, message, wParam, lParam);
  if (self->Handle_Help_Message(message, wParam, lParam)) return 0;
  if (message == WM_ACTIVATE && self->Keep_Focus_On_Activation(wParam)) return 0;
  if (message == WM_ENTERMENULOOP || message == WM_EXITMENULOOP) self->tips_.Activate(message == WM_EXITMENULOOP);
  return self->Handle_Message(message, wParam, lParam);
}

// The control that had the focus gets it back when the form is activated
// again (after a dialog, the help or another program), as in a dialog box;
// without this the form itself would take it.
bool FormView::Keep_Focus_On_Activation(WPARAM wParam) {
  if (LOWORD(wParam) == WA_INACTIVE) {
    HWND focus = GetFocus();
    if (focus && IsChild(window_, focus)) focusBefore_ = focus;
    return false;
  }
  if (HIWORD(wParam) || !focusBefore_ || !IsWindow(focusBefore_) || !IsChild(window_, focusBefore_)) return false;
  for (HWND up = focusBefore_; up != window_; up = GetParent(up))
    if (!IsWindowVisible(up) || !IsWindowEnabled(up)) return false;
  restoringFocus_ = true;
  SetFocus(focusBefore_);
  restoringFocus_ = false;
  return true;
}

HWND FormView::Control(ControlKey id) const {
  if (id == form_.Form) return window_;
  const auto found = handles_.find(id.Value());
  return found == handles_.end() ? nullptr : found->second;
}

bool FormView::Is_Option(ControlKey id) const {
  const ControlDeclaration* declaration = Find_Declaration(form_, id);
  return declaration && (declaration->Kind == ControlKind::OptionButton || declaration->Kind == ControlKind::CheckBox);
}

void FormView::Show(int showCommand) {
  if (pendingState_ == WindowState::Maximized) showCommand = SW_SHOWMAXIMIZED;
  if (pendingState_ == WindowState::Minimized) showCommand = SW_SHOWMINIMIZED;
  pendingState_.reset();
  ShowWindow(window_, showCommand);
  UpdateWindow(window_);
}

bool FormView::Press_Focused_Button(const MSG& message) {
  if (!window_ || message.message != WM_KEYDOWN || message.wParam != VK_RETURN) return false;
  HWND button = message.hwnd;
  if (button != GetFocus() || !IsChild(window_, button)) return false;
  if (!(SendMessageA(button, WM_GETDLGCODE, 0, 0) & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON))) return false;
  if (IsWindowEnabled(button)) SendMessageA(button, BM_CLICK, 0, 0);
  return true;
}

void FormView::Take_Typed_Text(ControlKey id) {
  HWND control = Control(id);
  DWORD caret = 0;
  SendMessageA(control, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  controls_.TextTyped(id, Window_Text(control), static_cast<long>(caret));
}

void FormView::Track_Placement() {
  if (!IsIconic(window_)) controls_.SetRect(form_.Form, Placement());
}

}  // namespace velmora
