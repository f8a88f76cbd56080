// The batch editor's form: a batch file shown line by line, its SET lines
// found by stepping, one chosen and its value changed, and the file written
// back. Plain C++ against the seams; the Win32 window forwards its events here
// and shows what FormControls holds.
#pragma once

#include <optional>
#include <string>

#include "envvar_setup_layout.h"
#include "file_dialogs.h"
#include "form_window.h"
#include "list_model.h"

namespace velmora {

struct Engine;
class CRegSettings;

// What the form needs of its window beyond the controls' state: the list's
// font and showing the form's own reports.
class BatchView {
 public:
  virtual ~BatchView() = default;
  // Sets the list's font and returns the name of the font it now has.
  virtual std::string SetBatchFont(const std::string& name) = 0;
  virtual void ShowReport(const std::string& title, const std::string& text) = 0;
};

// The text of the form's own error report: its heading, the detail, the code,
// the location and what happens next.
std::string Form_Report_Text(long code, const std::string& message, const std::string& location, int kind);

class EnvVarSetupForm {
 public:
  EnvVarSetupForm(Engine& engine, FormControls& controls, FormWindow& window, BatchView& view, FileDialogs& dialogs,
                  CRegSettings& settings);

  // Lifecycle: placement and the remembered file, opened without a dialog
  // (or, with none, the open dialog).
  void Form_Load();
  void Open_At_Start();
  // False when the user kept the form open (cancelled saving the changed file).
  bool Form_Unload();
  void Form_Resize();

  // Files.
  void Open_Batch_File();
  // Reads the current file into the list; false when it could not be read.
  bool Initial_Setup();
  void Save_Batch_File();
  void OpenBatchButton_Click() { Open_Batch_File(); }
  void SaveBatchButton_Click() { Save_Batch_File(); }
  void OpenBatchButton_GotFocus() { Set_Command_State("DisableCommands"); }

  // Stepping and choosing.
  void Step_To_Next();
  void Step_To_Previous();
  void BatchWindow_Click();
  void BatchWindow_DblClick();
  // Up and Down step between SET lines, Enter chooses the highlighted line;
  // true when the key (a virtual-key code) was taken.
  bool BatchWindow_KeyDown(int key);

  // Editing the chosen value.
  void EnvVarValue_Change();
  // True when the key was taken.
  bool EnvVarValue_KeyPress(int character);
  void UpdateEnvVarButton_Click();

  void Set_Command_State(const std::string& word);

  ListModel BatchWindow;
  std::string BatchFileName;  // between double quotes; empty for none
  bool Modified = false;
  bool LoadWithoutDialog = false;

 private:
  void Show_Step(const std::optional<long>& found, const char* procedure);
  void Choose_Font();
  void Report(long code, const std::string& message, const std::string& summary, const std::string& location, int kind);
  void Report_Last_Failure();
  // Whether the changes may go: none, saved, or let go by the user.
  bool Changes_Settled();

  Engine& engine_;
  FormControls& controls_;
  FormWindow& window_;
  BatchView& view_;
  FileDialogs& dialogs_;
  CRegSettings& settings_;
  long chosen_ = ListModel::kNoSelection;  // the line whose value the fields show
};

}  // namespace velmora
