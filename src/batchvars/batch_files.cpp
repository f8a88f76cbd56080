// The batch editor's files: choosing one, reading it into the list, writing
// the list back, and the form's own report of what failed.
#include "about.h"
#include "careful_io.h"
#include "engine.h"
#include "envvar_setup_form.h"
#include "form_placement.h"
#include "set_statements.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

constexpr const char* kBatchFilter = "Velmora Batch (*.bat)|*.bat|All Files (*.*)|*.*";
constexpr const char* kSpareLine = "   ";

}  // namespace

std::string Form_Report_Text(long code, const std::string& message, const std::string& location, int kind) {
  const bool fatal = kind == kFatal;
  return std::string(fatal ? "Fatal Error!" : "Error!") + "\n\n" + message +
         "\n\nError Code:  " + std::to_string(code) + "\nError Location:  " + location + "\n\n" +
         (fatal ? "Program will TERMINATE.  This operation was unsuccessful and caused a fatal error."
                : "Program will continue, but this operation was unsuccessful.");
}

void EnvVarSetupForm::Report_Last_Failure() {
  const ReportRecord& last = engine_.reports.last;
  Report(last.code, last.message, last.title, last.location, last.kind);
}

bool EnvVarSetupForm::Changes_Settled() {
  const std::string name = Unquoted(BatchFileName);
  return Changes_May_Go(dialogs_, name.empty() ? "the batch file" : name, Modified, [this] {
    Save_Batch_File();
    return !Modified;
  });
}

// A changed file is settled first (saved, or let go); when the question is
// cancelled or the save fails, the other file is not opened, so the changes stay.
void EnvVarSetupForm::Open_Batch_File() {
  std::string name;
  Trap(engine_, true, "EnvVarSetup.(General).Open_Batch_File.TrappableErrors.1", kGoOn, [&] {
    Change_To_Folder_Of(engine_.host, BatchFileName);
    if (LoadWithoutDialog) {
      name = Unquoted(BatchFileName);
      return;
    }
    const auto chosen = dialogs_.Show(
        {false, "New Batch File", ".BAT", kBatchFilter, engine_.host.CurrentDirectory(), Unquoted(BatchFileName)});
    if (chosen && Changes_Settled()) name = Trim(*chosen);
  });
  if (name.empty()) return;
  // The label names the file once it is in the list: a report of a failed
  // load never stands beside the name of the file that could not be read.
  Trap(engine_, true, "EnvVarSetup.(General).Open_Batch_File.TrappableErrors.2", kGoOn, [&] {
    const std::string previous = BatchFileName;
    BatchFileName = Quoted(name);
    if (Initial_Setup()) return controls_.SetCaption(BatchId::BatchFileLabel, "Batch: " + name);
    BatchFileName = previous;  // the list still shows the file it showed
  });
}

bool EnvVarSetupForm::Initial_Setup() {
  const long reportsBefore = engine_.reports.made;
  const auto failed = [&] { return engine_.reports.made != reportsBefore; };
  FileNumber file = kNoFile;
  std::string name = Unquoted(BatchFileName);
  Careful_IO(engine_, true, kOpenInput, file, name, "", "EnvVarSetup.(General).Initial_Setup.OpenInput.2", kGoOn);
  if (failed()) {
    Report_Last_Failure();
    return false;
  }
  BatchWindow.Clear();
  Choose_Font();
  BatchWindow.Add(Trace_Header_Line());
  while (!failed() && !At_End_Of_File(engine_, file)) {
    std::string line;
    Careful_IO(engine_, true, kLineInput, file, line, "", "EnvVarSetup.(General).Initial_Setup.Input.1", kGoOn);
    if (!failed()) BatchWindow.Add(std::move(line));
  }
  BatchWindow.Add(kSpareLine);
  std::string unused;
  Careful_IO(engine_, true, kClose, file, unused, "", "EnvVarSetup.(General).Initial_Setup.Close.1", kGoOn);
  if (failed()) Report_Last_Failure();
  Modified = false;
  BatchWindow.Select(0);
  Set_Command_State("EmptyCommands");
  Set_Command_State("Files");
  return true;
}

void EnvVarSetupForm::Choose_Font() {
  Choose_List_Font([this](const std::string& name) { return view_.SetBatchFont(name); });
}

// A failed step reports itself and leaves the file marked as changed.
void EnvVarSetupForm::Save_Batch_File() {
  const auto chosen = dialogs_.Show(
      {true, "Save Batch File", ".BAT", kBatchFilter, engine_.host.CurrentDirectory(), Unquoted(BatchFileName)});
  const std::string name = chosen ? Trim(*chosen) : std::string();
  if (name.empty()) return;

  const long reportsBefore = engine_.reports.made;
  const auto failed = [&] { return engine_.reports.made != reportsBefore; };
  FileNumber file = kNoFile;
  std::string path = name;
  Careful_IO(engine_, true, kOpenOutput, file, path, "", "EnvVarSetup.(General).Save_Batch_File.OpenOutput.1", kGoOn);
  for (std::string line : Lines_To_Save(BatchWindow.Items())) {
    if (failed()) break;
    Careful_IO(engine_, true, kPrintLine, file, line, "", "EnvVarSetup.(General).Save_Batch_File.Print.2", kGoOn);
  }
  std::string unused;
  Careful_IO(engine_, true, kClose, file, unused, "", "EnvVarSetup.(General).Save_Batch_File.Close.1", kGoOn);
  if (failed()) return Report_Last_Failure();

  BatchFileName = Quoted(name);
  controls_.SetCaption(BatchId::BatchFileLabel, "Batch: " + name);  // only a file written is named
  engine_.host.Beep();
  Modified = false;
  controls_.SetEnabled(BatchId::SaveBatchButton, false);
}

}  // namespace velmora
