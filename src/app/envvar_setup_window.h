// The batch editor's window, shown modally over the editor: the batch
// editor's controls, its list mirrored from the form's model, and the user's
// input passed to the EnvVarSetupForm's procedures.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "envvar_setup_form.h"
#include "form_view.h"
#include "list_box_mirror.h"

namespace velmora {

struct Engine;

class EnvVarSetupWindow : public FormView, public BatchView {
 public:
  EnvVarSetupWindow(FormControls& controls, std::string helpFile);

  bool Create(HINSTANCE instance, HWND owner, EnvVarSetupForm& form);

  // BatchView
  std::string SetBatchFont(const std::string& name) override;
  void ShowReport(const std::string& title, const std::string& text) override;

 private:
  // FormView
  void Lay_Out() override {
    form_->Form_Resize();
    if (listMirror_) listMirror_->Fit_Extent();
  }
  bool May_Close() override { return form_->Form_Unload(); }
  void Forget_Own_Windows() override { listMirror_.reset(); }
  bool Own_Key(MSG& message) override;
  bool Control_Message(HWND control, ControlKey id, UINT message, WPARAM wParam, LPARAM lParam,
                       LRESULT& result) override;
  std::string Help_File() const override { return helpFile_; }

  EnvVarSetupForm* form_ = nullptr;
  std::unique_ptr<ListBoxMirror> listMirror_;
  std::string helpFile_;
};

// Shows the batch editor modally: the owner waits, disabled, until it closes.
void Show_EnvVar_Setup(HINSTANCE instance, HWND owner, Engine& engine, const std::string& helpFile);

}  // namespace velmora
