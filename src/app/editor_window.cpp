#include "editor_window.h"

#include <commctrl.h>

#include "editor_form.h"
#include "engine.h"

namespace velmora {

namespace {

constexpr char kClassName[] = "VelmoraEditor";
constexpr int kIconResource = 1;

void Register_Editor_Class(HINSTANCE instance, WNDPROC procedure) {
  WNDCLASSEXA editorClass{};
  editorClass.cbSize = sizeof editorClass;
  editorClass.lpfnWndProc = procedure;
  editorClass.hInstance = instance;
  editorClass.hIconSm =
      static_cast<HICON>(LoadImageA(instance, MAKEINTRESOURCEA(kIconResource), IMAGE_ICON,
                                    GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED));
  editorClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  editorClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  editorClass.lpszClassName = kClassName;
  RegisterClassExA(&editorClass);
}

// The window's own copy of the icon, which the form gives back when it is destroyed.
void Give_Own_Icon(HWND window, HINSTANCE instance) {
  auto* icon = static_cast<HICON>(LoadImageA(instance, MAKEINTRESOURCEA(kIconResource), IMAGE_ICON,
                                             GetSystemMetrics(SM_CXICON), GetSystemMetrics(SM_CYICON), 0));
  if (icon) SendMessageA(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(icon));
}

}  // namespace

EditorWindow::EditorWindow(Engine& engine, FormControls& controls)
    : engine_(engine), controls_(controls), scale_(Screen_Dpi()), fonts_(scale_.Dpi()) {}

EditorWindow::~EditorWindow() {
  controls_.SetObserver(nullptr);
  if (window_) DestroyWindow(window_);
}

bool EditorWindow::Create(HINSTANCE instance, EditorForm& form) {
  form_ = &form;
  INITCOMMONCONTROLSEX common{sizeof common, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&common);
  Register_Editor_Class(instance, Procedure);
  Register_Frame_Class(instance);
  const RECT place = scale_.Pixels(controls_[ControlId::Form].Rect);
  window_ = CreateWindowExA(WS_EX_CONTROLPARENT, kClassName, controls_[ControlId::Form].Caption.c_str(),
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, place.left, place.top, place.right - place.left,
                            place.bottom - place.top, nullptr, nullptr, instance, this);
  if (!window_) return false;
  Give_Own_Icon(window_, instance);
  tips_.Create(window_);
  Create_Controls();
  Attach_Lists();
  controls_.SetObserver(this);
  return true;
}

void EditorWindow::Create_Controls() {
  for (const ControlDeclaration& declaration : Editor_Controls()) {
    const ControlState& state = controls_[declaration.Id];
    HWND parent = declaration.Parent == ControlId::Form ? window_ : Control(declaration.Parent);
    HWND control = Create_Control(declaration, state, parent, scale_, Starts_Option_Group(declaration.Id));
    handles_[declaration.Id] = control;
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(fonts_.Get(state.Font)), FALSE);
    if (state.Checked) SendMessageA(control, BM_SETCHECK, BST_CHECKED, 0);
    tips_.Set(control, state.ToolTip);
  }
  for (ControlId hooked : {ControlId::CommandList, ControlId::ScriptFileLabel, ControlId::DebugFileLabel})
    SetWindowSubclass(Control(hooked), Control_Hook, 0, reinterpret_cast<DWORD_PTR>(this));
}

void EditorWindow::Attach_Lists() {
  commandMirror_ = std::make_unique<ListBoxMirror>(form_->CommandList, Control(ControlId::CommandList));
  traceMirror_ = std::make_unique<ListBoxMirror>(engine_.TraceWindow, Control(ControlId::TraceWindow));
  debugMirror_ = std::make_unique<ListBoxMirror>(engine_.DebugWindow, Control(ControlId::DebugWindow));
}

HWND EditorWindow::Control(ControlId id) const {
  if (id == ControlId::Form) return window_;
  const auto found = handles_.find(id);
  return found == handles_.end() ? nullptr : found->second;
}

void EditorWindow::Show(int showCommand) {
  if (pendingState_ == WindowState::Maximized) showCommand = SW_SHOWMAXIMIZED;
  if (pendingState_ == WindowState::Minimized) showCommand = SW_SHOWMINIMIZED;
  pendingState_.reset();
  ShowWindow(window_, showCommand);
  UpdateWindow(window_);
}

// Enter on a script line does what a double click does, so lines can be
// edited from the keyboard.
bool EditorWindow::Translate_Dialog_Key(MSG& message) {
  if (!window_) return false;
  if (message.message == WM_KEYDOWN && message.wParam == VK_RETURN && message.hwnd == Control(ControlId::TraceWindow)) {
    form_->TraceWindow_DblClick();
    return true;
  }
  return IsDialogMessageA(window_, &message);
}

LRESULT CALLBACK EditorWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* create = reinterpret_cast<CREATESTRUCTA*>(lParam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* self = reinterpret_cast<EditorWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (!self || !self->window_) return DefWindowProcA(window, message, wParam, lParam);
  return self->Handle_Message(message, wParam, lParam);
}

LRESULT EditorWindow::Handle_Message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (lParam) On_Command(static_cast<ControlId>(LOWORD(wParam)), HIWORD(wParam));
      return 0;
    case kFieldEntered:
      On_Field_Entered(static_cast<ControlId>(wParam));
      return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
      return On_Control_Colour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam),
                               message == WM_CTLCOLOREDIT);
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) On_Size();
      return 0;
    case WM_MOVE:
      On_Move();
      return 0;
    case WM_CLOSE:
      On_Close();
      return 0;
    case WM_DESTROY:
      On_Destroy();
      return 0;
    default:
      return DefWindowProcA(window_, message, wParam, lParam);
  }
}

// The form's size in its state, then its layout; a size the layout itself
// sets (the minimum) does not start another layout inside this one.
void EditorWindow::On_Size() {
  if (IsIconic(window_)) return;
  controls_.SetRect(ControlId::Form, Placement());
  if (resizing_) return;
  resizing_ = true;
  form_->Form_Resize();
  resizing_ = false;
}

void EditorWindow::On_Move() {
  if (!IsIconic(window_)) controls_.SetRect(ControlId::Form, Placement());
}

// A run or a pick under way ends first, then asks for the close again.
void EditorWindow::On_Close() {
  if (!form_->May_Close_Now()) return;
  form_->Form_QueryUnload();
  DestroyWindow(window_);
}

// Gives back the window's icon, stops mirroring into windows about to go, and
// ends the message loop.
void EditorWindow::On_Destroy() {
  auto* icon = reinterpret_cast<HICON>(SendMessageA(window_, WM_SETICON, ICON_BIG, 0));
  if (icon) DestroyIcon(icon);
  controls_.SetObserver(nullptr);
  commandMirror_.reset();
  traceMirror_.reset();
  debugMirror_.reset();
  handles_.clear();
  window_ = nullptr;
  PostQuitMessage(0);
}

void EditorWindow::BringFocusToForeground() {
  HWND focus = GetFocus();
  SetForegroundWindow(focus ? GetAncestor(focus, GA_ROOT) : window_);
}

void EditorWindow::Close() { PostMessageA(window_, WM_CLOSE, 0, 0); }

TwipsRect EditorWindow::Placement() {
  RECT outer{};
  GetWindowRect(window_, &outer);
  return scale_.Twips(outer);
}

// A minimised or maximised form keeps the place as the one it returns to.
void EditorWindow::SetPlacement(const TwipsRect& rect) {
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

WindowState EditorWindow::State() {
  if (pendingState_) return *pendingState_;
  if (IsIconic(window_)) return WindowState::Minimized;
  return IsZoomed(window_) ? WindowState::Maximized : WindowState::Normal;
}

void EditorWindow::SetState(WindowState state) {
  if (!IsWindowVisible(window_)) {
    pendingState_ = state;
    return;
  }
  const int command[] = {SW_RESTORE, SW_MINIMIZE, SW_MAXIMIZE};
  ShowWindow(window_, command[static_cast<int>(state)]);
}

long EditorWindow::ScreenWidth() { return scale_.Twips(GetSystemMetrics(SM_CXSCREEN)); }

long EditorWindow::ScreenHeight() { return scale_.Twips(GetSystemMetrics(SM_CYSCREEN)); }

}  // namespace velmora
