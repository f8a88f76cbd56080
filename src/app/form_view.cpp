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

FormView::FormView(FormControls& controls, const std::vector<ControlDeclaration>& table)
    : controls_(controls), scale_(Screen_Dpi()), fonts_(scale_.Dpi()), table_(table) {}

FormView::~FormView() {
  controls_.SetObserver(nullptr);
  if (window_) DestroyWindow(window_);
}

bool FormView::Create_Form(HINSTANCE instance, const char* className, HWND owner) {
  Register_Form_Class(instance, className, Procedure);
  Register_Frame_Class(instance);
  const RECT place = scale_.Pixels(controls_[ControlId::Form].Rect);
  window_ = CreateWindowExA(WS_EX_CONTROLPARENT, className, controls_[ControlId::Form].Caption.c_str(),
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
  for (const ControlDeclaration& declaration : table_) {
    const ControlState& state = controls_[declaration.Id];
    HWND parent = declaration.Parent == ControlId::Form ? window_ : Control(declaration.Parent);
    HWND control = Create_Control(declaration, state, parent, scale_, Starts_Option_Group(declaration.Id));
    handles_[declaration.Id] = control;
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Get(state.Font)), FALSE);
    if (state.Checked) SendMessageA(control, BM_SETCHECK, BST_CHECKED, 0);
    tips_.Set(control, state.ToolTip);
    // Only the text boxes: a hook on the lists would slow every line they show.
    if (declaration.Kind == ControlKind::TextBox) SetWindowSubclass(control, Text_Box_Hook, 0, 0);
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

HWND FormView::Control(ControlId id) const {
  if (id == ControlId::Form) return window_;
  const auto found = handles_.find(id);
  return found == handles_.end() ? nullptr : found->second;
}

const ControlDeclaration* FormView::Declaration(ControlId id) const {
  for (const ControlDeclaration& declaration : table_)
    if (declaration.Id == id) return &declaration;
  return nullptr;
}

bool FormView::Is_Option(ControlId id) const {
  const ControlDeclaration* declaration = Declaration(id);
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

void FormView::Take_Typed_Text(ControlId id) {
  HWND control = Control(id);
  DWORD caret = 0;
  SendMessageA(control, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  controls_.TextTyped(id, Window_Text(control), static_cast<long>(caret));
}

void FormView::Track_Placement() {
  if (!IsIconic(window_)) controls_.SetRect(ControlId::Form, Placement());
}

void FormView::Forget_Window() {
  auto* icon = reinterpret_cast<HICON>(SendMessageA(window_, WM_SETICON, ICON_BIG, 0));
  if (icon) DestroyIcon(icon);
  controls_.SetObserver(nullptr);
  handles_.clear();
  window_ = nullptr;
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

long FormView::Measure(ControlId list, const std::string& text) {
  if (!measureDc_) measureDc_.reset(CreateCompatibleDC(nullptr));
  const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(Control(list), WM_GETFONT, 0, 0));
  if (font) SelectObject(measureDc_.get(), font);  // the stock font stays the DC's own to restore
  SIZE size{};
  GetTextExtentPoint32A(measureDc_.get(), text.c_str(), static_cast<int>(text.size()), &size);
  return size.cx;
}

long FormView::Client_Width(ControlId list) {
  RECT client{};
  GetClientRect(Control(list), &client);
  return client.right - client.left;
}

// The font system gives the nearest face it has; its name tells the caller
// whether the wanted one exists.
std::string FormView::Set_List_Font(ControlId list, const std::string& name) {
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
