// The batch editor's life, its command states, stepping from one SET line to
// the next, choosing one and changing its value.
#include "envvar_setup_form.h"

#include "engine.h"
#include "envvar_setup_layout.h"
#include "form_placement.h"
#include "reg_settings.h"
#include "set_statements.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

constexpr const char* kSection = "EnvVarSetup";
constexpr const char* kTryTip =
    "Try double clicking on a line like: set <EnvironmentVariableName>=<EnvironmentVariableValue>.";
constexpr long kNoErrorCode = -1;
constexpr int kEscape = 27;
constexpr int kControlC = 3;
constexpr int kEnter = 13;  // the character, and the virtual key
constexpr int kKeyUp = 0x26, kKeyDown = 0x28;

}  // namespace

EnvVarSetupForm::EnvVarSetupForm(Engine& engine, FormControls& controls, FormWindow& window, BatchView& view,
                                 FileDialogs& dialogs, CRegSettings& settings)
    : engine_(engine), controls_(controls), window_(window), view_(view), dialogs_(dialogs), settings_(settings) {}

void EnvVarSetupForm::Form_Load() {
  Restore_Form_Placement(settings_, kSection, window_);
  Set_Command_State("DisableCommands");
  controls_.SetEnabled(BatchId::SaveBatchButton, false);
  BatchFileName = Stored_File_Name(settings_, engine_.host, kSection, "Batch File");
}

// The remembered file opens without asking; with none, the open dialog asks.
void EnvVarSetupForm::Open_At_Start() {
  LoadWithoutDialog = !BatchFileName.empty();
  Open_Batch_File();
  LoadWithoutDialog = false;
}

// A changed file is settled before the form goes; Cancel keeps it open.
bool EnvVarSetupForm::Form_Unload() {
  if (!Changes_Settled()) return false;
  Save_Form_Placement(settings_, kSection, window_);
  settings_.SaveSetting(kSection, "Batch File", BatchFileName);
  return true;
}

void EnvVarSetupForm::Form_Resize() {
  if (window_.State() == WindowState::Minimized) return;
  TwipsRect form = window_.Placement();
  if (window_.State() == WindowState::Normal &&
      (form.Width < kMinimumBatchFormWidth || form.Height < kMinimumBatchFormHeight)) {
    form.Width = std::max(form.Width, kMinimumBatchFormWidth);
    form.Height = std::max(form.Height, kMinimumBatchFormHeight);
    window_.SetPlacement(form);
  }
  const long width = form.Width - (kDesignedBatchFormWidth - 7520);
  const auto place = [&](BatchId id, long left, long top, long w, long h) {
    controls_.SetRect(id, {left, top, w, h});
  };
  const TwipsRect list = controls_[BatchId::BatchWindow].Rect;
  const long listHeight = std::max(600L, form.Height - (kDesignedBatchFormHeight - 3960));
  place(BatchId::BatchFileLabel, 60, 480, width, 200);
  place(BatchId::BatchWindow, list.Left, list.Top, width, listHeight);
  place(BatchId::BatchFrame, 60, list.Top + listHeight + 60, width, 1320);
  place(BatchId::EnvVarNameLabel, 120, 280, width - 240, 240);
  place(BatchId::EnvVarValue, 120, 620, width - 2120, 300);
  place(BatchId::UpdateEnvVarButton, width - 1880, 580, 1760, 380);
}

// The fields' states by word; "Files" sets the file commands.
void EnvVarSetupForm::Set_Command_State(const std::string& word) {
  if (word == "Files") {
    controls_.SetEnabled(BatchId::OpenBatchButton, true);
    controls_.SetEnabled(BatchId::SaveBatchButton, Modified);
    return;
  }
  const bool enable = word == "EnableCommands";
  controls_.SetEnabled(BatchId::BatchFrame, word != "DisableCommands");
  controls_.SetEnabled(BatchId::UpdateEnvVarButton, enable);
  controls_.SetInactive(BatchId::EnvVarNameLabel, !enable);
  controls_.SetVisible(BatchId::EnvVarValue, enable);
  controls_.SetEnabled(BatchId::EnvVarValue, enable);
  if (enable) {
    controls_.SetToolTip(BatchId::EnvVarNameLabel, "This is the name of the Environment Variable.");
    controls_.SetToolTip(BatchId::EnvVarValue, "You may edit this value if you wish.");
    return;
  }
  chosen_ = ListModel::kNoSelection;
  controls_.SetCaption(BatchId::EnvVarNameLabel, "No Variable Selected");
  controls_.SetToolTip(BatchId::EnvVarNameLabel, kTryTip);
  controls_.SetToolTip(BatchId::EnvVarValue, kTryTip);
}

void EnvVarSetupForm::Step_To_Next() {
  Show_Step(Next_EnvVar_Statement(BatchWindow.Items(), BatchWindow.Selected()), "Next_EnvVar_Statement");
}

bool EnvVarSetupForm::BatchWindow_KeyDown(int key) {
  switch (key) {
    case kKeyDown:
      Step_To_Next();
      return true;
    case kKeyUp:
      Step_To_Previous();
      return true;
    case kEnter:
      BatchWindow_DblClick();
      return true;
    default:
      return false;
  }
}

void EnvVarSetupForm::Step_To_Previous() {
  Show_Step(Previous_EnvVar_Statement(BatchWindow.Items(), BatchWindow.Selected()), "Previous_EnvVar_Statement");
}

// Without any SET line the selection stays where it is.
void EnvVarSetupForm::Show_Step(const std::optional<long>& found, const char* procedure) {
  if (!found) {
    Report(kNoErrorCode,
           "This File does not contain any SET Environment Variable statements.\rPerhaps you should load a different "
           "batch file?",
           "No SET Statements Found!", std::string("EnvVarSetup.(General).") + procedure + ".NoSETStatements.1", kGoOn);
    return;
  }
  BatchWindow.Select(*found);
  BatchWindow_Click();
}

// Moving off the chosen line abandons its edit, so an update can never
// overwrite a line other than the one whose value it shows.
void EnvVarSetupForm::BatchWindow_Click() {
  if (chosen_ != ListModel::kNoSelection && BatchWindow.Selected() != chosen_) Set_Command_State("EmptyCommands");
}

void EnvVarSetupForm::BatchWindow_DblClick() {
  const auto statement = Is_Set_Statement(Trim(BatchWindow.Item(BatchWindow.Selected())));
  if (!statement) return Set_Command_State("EmptyCommands");
  controls_.SetCaption(BatchId::EnvVarNameLabel, statement->name);
  controls_.SetCaret(BatchId::EnvVarValue, static_cast<long>(statement->value.size()));
  controls_.SetCaption(BatchId::EnvVarValue, statement->value);
  Set_Command_State("EnableCommands");
  chosen_ = BatchWindow.Selected();
  controls_.SetFocus(BatchId::EnvVarValue);
}

void EnvVarSetupForm::EnvVarValue_Change() {
  if (chosen_ != ListModel::kNoSelection) controls_.SetEnabled(BatchId::UpdateEnvVarButton, true);
}

// Escape and Ctrl+C abandon the edit; Enter updates the line.
bool EnvVarSetupForm::EnvVarValue_KeyPress(int character) {
  if (character == kEscape || character == kControlC) {
    Set_Command_State("EmptyCommands");
    return true;
  }
  if (character == kEnter && controls_[BatchId::UpdateEnvVarButton].Enabled) {
    UpdateEnvVarButton_Click();
    return true;
  }
  return false;
}

void EnvVarSetupForm::UpdateEnvVarButton_Click() {
  if (chosen_ == ListModel::kNoSelection) return;
  const std::string line = Updated_Set_Line(BatchWindow.Item(chosen_), controls_[BatchId::EnvVarNameLabel].Caption,
                                            controls_[BatchId::EnvVarValue].Caption);
  BatchWindow.Set(static_cast<std::size_t>(chosen_), line);
  BatchWindow.Select(chosen_);
  controls_.SetEnabled(BatchId::UpdateEnvVarButton, false);
  Modified = true;
  Set_Command_State("Files");
  controls_.SetFocus(BatchId::EnvVarValue);
}

void EnvVarSetupForm::Report(long code, const std::string& message, const std::string& summary,
                             const std::string& location, int kind) {
  view_.ShowReport(summary, Form_Report_Text(code, message, location, kind));
}

}  // namespace velmora
