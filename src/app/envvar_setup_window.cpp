#include "envvar_setup_window.h"

#include <commctrl.h>

#include <utility>

#include "about.h"
#include "engine.h"
#include "envvar_setup_layout.h"
#include "reg_settings.h"
#include "win32_file_dialogs.h"

namespace velmora {

namespace {

constexpr char kClassName[] = "VelmoraBatchEditor";

// Message boxes break lines at CR LF; the form's texts use either alone.
std::string With_Crlf(const std::string& text) {
  std::string shown;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
    if (text[i] == '\r' || text[i] == '\n') {
      shown += "\r\n";
    } else {
      shown += text[i];
    }
  }
  return shown;
}

}  // namespace

EnvVarSetupWindow::EnvVarSetupWindow(FormControls& controls, std::string helpFile)
    : FormView(controls, Batch_Controls()), helpFile_(std::move(helpFile)) {}

bool EnvVarSetupWindow::Create(HINSTANCE instance, HWND owner, EnvVarSetupForm& form) {
  form_ = &form;
  owner_ = owner;
  if (!Create_Form(instance, kClassName, owner)) return false;
  for (ControlId hooked : {ControlId::EnvVarValue, ControlId::OpenBatchButton})
    SetWindowSubclass(Control(hooked), Control_Hook, 0, reinterpret_cast<DWORD_PTR>(this));
  listMirror_ = std::make_unique<ListBoxMirror>(form.BatchWindow, Control(ControlId::BatchWindow));
  return true;
}

// The list's keys are taken here rather than by hooking the list, which
// would slow every line it shows: Up and Down step between SET lines, Enter
// chooses the highlighted line.
bool EnvVarSetupWindow::Translate_Dialog_Key(MSG& message) {
  if (!window_) return false;
  if (Translate_Help_Key(message) || Press_Focused_Button(message)) return true;
  if (message.message == WM_KEYDOWN && message.hwnd == Control(ControlId::BatchWindow) &&
      form_->BatchWindow_KeyDown(static_cast<int>(message.wParam)))
    return true;
  return IsDialogMessageA(window_, &message);
}

LRESULT EnvVarSetupWindow::Handle_Message(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (lParam) On_Command(static_cast<ControlId>(LOWORD(wParam)), HIWORD(wParam));
      return 0;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
      return On_Control_Colour(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam),
                               message == WM_CTLCOLOREDIT);
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) {
        Track_Placement();
        form_->Form_Resize();
      }
      return 0;
    case WM_MOVE:
      Track_Placement();
      return 0;
    case WM_CLOSE:
      On_Close();
      return 0;
    case WM_DESTROY:
      listMirror_.reset();
      Forget_Window();
      return 0;
    default:
      return DefWindowProcA(window_, message, wParam, lParam);
  }
}

void EnvVarSetupWindow::On_Command(ControlId id, int code) {
  switch (code) {
    case BN_CLICKED:
      if (id == ControlId::OpenBatchButton) form_->OpenBatchButton_Click();
      if (id == ControlId::SaveBatchButton) form_->SaveBatchButton_Click();
      if (id == ControlId::UpdateEnvVarButton) form_->UpdateEnvVarButton_Click();
      break;
    case EN_CHANGE:
      if (showingText_ || id != ControlId::EnvVarValue) break;
      Take_Typed_Text(id);
      form_->EnvVarValue_Change();
      break;
    case EN_SETFOCUS:
    case LBN_SETFOCUS:
      controls_.FocusMoved(id);
      break;
    case LBN_SELCHANGE:
      form_->BatchWindow.Select(static_cast<long>(SendMessageA(Control(id), LB_GETCURSEL, 0, 0)));
      form_->BatchWindow_Click();
      break;
    case LBN_DBLCLK:
      form_->BatchWindow_DblClick();
      break;
    default:
      break;
  }
}

// The owner is enabled again before this window goes, so that the system
// activates it rather than another program's window.
void EnvVarSetupWindow::On_Close() {
  if (!form_->Form_Unload()) return;
  if (owner_) EnableWindow(owner_, TRUE);
  DestroyWindow(window_);
}

LRESULT CALLBACK EnvVarSetupWindow::Control_Hook(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                                 DWORD_PTR self) {
  bool handled = false;
  const LRESULT result =
      reinterpret_cast<EnvVarSetupWindow*>(self)->Handle_Control_Message(control, message, wParam, lParam, handled);
  return handled ? result : DefSubclassProc(control, message, wParam, lParam);
}

// The value box: Enter updates, Escape and Ctrl+C abandon the edit.
LRESULT EnvVarSetupWindow::Handle_Control_Message(HWND control, UINT message, WPARAM wParam, LPARAM lParam,
                                                  bool& handled) {
  const auto id = static_cast<ControlId>(GetDlgCtrlID(control));
  handled = true;
  if (message == WM_GETDLGCODE && id == ControlId::EnvVarValue) {
    const auto* key = reinterpret_cast<const MSG*>(lParam);
    const bool wanted =
        key && key->message == WM_KEYDOWN && (key->wParam == VK_RETURN || key->wParam == VK_ESCAPE);
    return DefSubclassProc(control, message, wParam, lParam) | (wanted ? DLGC_WANTMESSAGE : 0);
  }
  if (id == ControlId::EnvVarValue && message == WM_CHAR && form_->EnvVarValue_KeyPress(static_cast<int>(wParam)))
    return 0;
  if (id == ControlId::OpenBatchButton && message == WM_SETFOCUS && !restoringFocus_) form_->OpenBatchButton_GotFocus();
  handled = false;
  return 0;
}

long EnvVarSetupWindow::MeasureBatchText(const std::string& text) { return Measure(ControlId::BatchWindow, text); }

long EnvVarSetupWindow::BatchWindowWidth() { return Client_Width(ControlId::BatchWindow); }

void EnvVarSetupWindow::SetBatchHorizontalExtent(long pixels) {
  SendMessageA(Control(ControlId::BatchWindow), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(pixels), 0);
}

std::string EnvVarSetupWindow::SetBatchFont(const std::string& name) {
  return Set_List_Font(ControlId::BatchWindow, name);
}

void EnvVarSetupWindow::ShowReport(const std::string& title, const std::string& text) {
  MessageBoxA(window_, With_Crlf(text).c_str(), title.c_str(), MB_OK | MB_ICONEXCLAMATION);
}

void Show_EnvVar_Setup(HINSTANCE instance, HWND owner, Engine& engine, const std::string& helpFile) {
  FormControls controls(kEnvVarSetupTitle, {0, 0, kDesignedBatchFormWidth, kDesignedBatchFormHeight}, Batch_Controls());
  EnvVarSetupWindow window(controls, helpFile);
  CRegSettings settings(engine.registry);
  settings.SetCompany(Company_Name());
  Win32FileDialogs dialogs;
  EnvVarSetupForm form(engine, controls, window, window, dialogs, settings);
  if (!window.Create(instance, owner, form)) return;
  dialogs.SetOwner(window.Handle());
  form.Form_Load();
  EnableWindow(owner, FALSE);
  window.Show(SW_SHOWNORMAL);
  form.Open_At_Start();
  MSG message;
  while (!window.Closed()) {
    const BOOL got = GetMessageA(&message, nullptr, 0, 0);
    if (got <= 0) {
      // The program is ending: the main loop must see the quit as well.
      if (got == 0) PostQuitMessage(static_cast<int>(message.wParam));
      break;
    }
    if (window.Translate_Dialog_Key(message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  EnableWindow(owner, TRUE);
}

}  // namespace velmora
