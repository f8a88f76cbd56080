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
  // Keyboard navigation (Tab, access keys); true when it took the message.
  bool Translate_Dialog_Key(MSG& message);
  bool Closed() const { return window_ == nullptr; }

  // BatchView
  long MeasureBatchText(const std::string& text) override;
  long BatchWindowWidth() override;
  void SetBatchHorizontalExtent(long pixels) override;
  std::string SetBatchFont(const std::string& name) override;
  void ShowReport(const std::string& title, const std::string& text) override;

 private:
  static LRESULT CALLBACK Control_Hook(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                       DWORD_PTR self);
  LRESULT Handle_Message(UINT message, WPARAM wParam, LPARAM lParam) override;
  std::string Help_File() const override { return helpFile_; }
  HelpForm Help_Form() const override { return HelpForm::BatchEditor; }
  LRESULT Handle_Control_Message(HWND control, UINT message, WPARAM wParam, LPARAM lParam, bool& handled);
  void On_Command(ControlId id, int code);
  void On_Close();

  EnvVarSetupForm* form_ = nullptr;
  HWND owner_ = nullptr;
  std::unique_ptr<ListBoxMirror> listMirror_;
  std::string helpFile_;
};

// Shows the batch editor modally: the owner waits, disabled, until it closes.
void Show_EnvVar_Setup(HINSTANCE instance, HWND owner, Engine& engine, const std::string& helpFile);

}  // namespace velmora
