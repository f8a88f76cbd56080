#include "careful_io.h"

#include "engine.h"
#include "error_report.h"
#include "trap.h"

namespace velmora {

namespace {

// What one failed operation reports.
struct Failure {
  const char* title;
  std::string message;
};

SystemError Bad_File_Number() { return {52, "Bad file name or number"}; }

TextFile* Open_File(Engine& engine, FileNumber number, SystemError& error) {
  TextFile* file = engine.files.Find(number);
  if (!file) error = Bad_File_Number();
  return file;
}

bool Open_Text(Engine& engine, FileNumber& number, const std::string& path, FileMode mode, SystemError& error) {
  number = engine.files.FreeNumber();
  if (number == 0) {
    error = {67, "Too many files"};
    return false;
  }
  auto file = engine.host.OpenText(path, mode, error);
  if (!file) return false;
  engine.files.Attach(number, std::move(file));
  return true;
}

bool Close_Text(Engine& engine, FileNumber number, SystemError& error) {
  auto file = engine.files.Detach(number);
  return !file || file->Close(error);  // closing a number that is not open does nothing
}

// Performs the operation; on failure fills the report's title and message.
bool Perform(Engine& engine, int operation, FileNumber& number, std::string& first, const std::string& second,
             long& result, SystemError& error, Failure& failure) {
  Host& host = engine.host;
  switch (operation) {
    case kRename:
      failure = {"ReName Failure!", "Unable to Rename " + first + " as " + second};
      return host.RenameFile(first, second, error);
    case kDelete:
      failure = {"Kill Failure!", "Unable to Delete " + first};
      return host.DeleteFiles(first, error);
    case kCopy:
      failure = {"FileCopy Failure!", "Unable to Copy " + first + " to " + second};
      return host.CopyOneFile(first, second, error);
    case kChangeDirectory:
      failure = {"ChDir Failure!", "Unable to Change to Directory:  " + first};
      return host.ChangeDirectory(first, error);
    case kChangeDrive:
      failure = {"ChDrive Failure!", "Unable to Change to Drive:  " + first};
      return host.ChangeDrive(first, error);
    case kOpenInput:
      failure = {"Open Input Failure!", "Unable to Open " + first + " for Input"};
      if (Open_Text(engine, number, first, FileMode::Input, error)) return true;
      number = kNoFile;
      return false;
    case kOpenOutput:
      failure = {"Open Output Failure!", "Unable to Open " + first + " for Output"};
      return Open_Text(engine, number, first, FileMode::Output, error);
    case kLineInput: {
      failure = {"Line Input Failure!", "Unable to read a line of text"};
      TextFile* file = Open_File(engine, number, error);
      return file && file->ReadLine(first, error);
    }
    case kPrintLine: {
      failure = {"Print Failure!", "Unable to print a line of text"};
      TextFile* file = Open_File(engine, number, error);
      return file && file->Write(first + "\r\n", error);
    }
    case kWriteQuoted: {
      failure = {"Print Failure!", "Unable to write a line of text"};
      TextFile* file = Open_File(engine, number, error);
      return file && file->Write("\"" + first + "\"\r\n", error);
    }
    case kClose:
      failure = {"Close Failure!", "Unable to Close file"};
      return Close_Text(engine, number, error);
    case kShell:
      failure = {"Shell Failure!", "Unable to execute program:  " + first};
      result = host.StartProgram(first, static_cast<WindowStyle>(number), error);
      return result != -1;
    default:
      return true;  // every other code does nothing
  }
}

}  // namespace

long Careful_IO(Engine& engine, bool interactive, int operation, FileNumber& fileNumber, std::string& first,
                const std::string& second, const std::string& location, int kind, SystemError* failure) {
  long result = 0;
  Trap(engine, interactive, "Velmora.(General).Careful_IO.TrappableErrors.1", kFatal, [&] {
    SystemError error;
    Failure report{};
    if (Perform(engine, operation, fileNumber, first, second, result, error, report)) return;
    if (operation == kShell) result = -1;
    if (failure) *failure = error;
    Report_Error(engine, interactive, error.code, report.message + " -> " + error.text, report.title, location, kind);
  });
  return result;
}

bool At_End_Of_File(Engine& engine, FileNumber fileNumber) {
  TextFile* file = engine.files.Find(fileNumber);
  return !file || file->AtEnd();
}

}  // namespace velmora
