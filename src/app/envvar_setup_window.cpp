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
    : FormView(controls, Batch_Form()), helpFile_(std::move(helpFile)) {}

bool EnvVarSetupWindow::Create(HINSTANCE instance, HWND owner, EnvVarSetupForm& form) {
  using B = BatchId;
  form_ = &form;
  if (!Create_Form(instance, kClassName, owner)) return false;
  Hook_Control(B::OpenBatchButton);
  listMirror_ = std::make_unique<ListBoxMirror>(form.BatchWindow, Control(B::BatchWindow));
  notifications_ = {
      {B::OpenBatchButton, BN_CLICKED, [this] { form_->OpenBatchButton_Click(); }},
      {B::SaveBatchButton, BN_CLICKED, [this] { form_->SaveBatchButton_Click(); }},
      {B::UpdateEnvVarButton, BN_CLICKED, [this] { form_->UpdateEnvVarButton_Click(); }},
      {B::EnvVarValue, EN_CHANGE, [this] { form_->EnvVarValue_Change(); }},
      {B::BatchWindow, LBN_SELCHANGE,
       [this] {
         form_->BatchWindow.Select(static_cast<long>(SendMessageA(Control(B::BatchWindow), LB_GETCURSEL, 0, 0)));
         form_->BatchWindow_Click();
       }},
      {B::BatchWindow, LBN_DBLCLK, [this] { form_->BatchWindow_DblClick(); }},
  };
  return true;
}

// The list's keys are taken here rather than by hooking the list, which
// would slow every line it shows: Up and Down step between SET lines, Enter
// chooses the highlighted line.
bool EnvVarSetupWindow::Own_Key(MSG& message) {
  return message.message == WM_KEYDOWN && message.hwnd == Control(BatchId::BatchWindow) &&
         form_->BatchWindow_KeyDown(static_cast<int>(message.wParam));
}

// The value box: Enter updates, Escape and Ctrl+C abandon the edit. The open
// button, entered, disables the value's commands.
bool EnvVarSetupWindow::Control_Message(HWND control, ControlKey key, UINT message, WPARAM wParam, LPARAM lParam,
                                        LRESULT& result) {
  const auto id = key.As<BatchId>();
  if (message == WM_GETDLGCODE && id == BatchId::EnvVarValue) {
    const auto* keyMessage = reinterpret_cast<const MSG*>(lParam);
    const bool wanted = keyMessage && keyMessage->message == WM_KEYDOWN &&
                        (keyMessage->wParam == VK_RETURN || keyMessage->wParam == VK_ESCAPE);
    result = DefSubclassProc(control, message, wParam, lParam) | (wanted ? DLGC_WANTMESSAGE : 0);
    return true;
  }
  if (id == BatchId::EnvVarValue && message == WM_CHAR && form_->EnvVarValue_KeyPress(static_cast<int>(wParam)))
    return true;
  if (id == BatchId::OpenBatchButton && message == WM_SETFOCUS && !restoringFocus_) form_->OpenBatchButton_GotFocus();
  return false;
}

std::string EnvVarSetupWindow::SetBatchFont(const std::string& name) {
  return Set_List_Font(BatchId::BatchWindow, name);
}

void EnvVarSetupWindow::ShowReport(const std::string& title, const std::string& text) {
  MessageBoxA(window_, With_Crlf(text).c_str(), title.c_str(), MB_OK | MB_ICONEXCLAMATION);
}

void Show_EnvVar_Setup(HINSTANCE instance, HWND owner, Engine& engine, const std::string& helpFile) {
  FormControls controls(Batch_Form());
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
  window.Run_Until_Closed();
  EnableWindow(owner, TRUE);
}

}  // namespace velmora
