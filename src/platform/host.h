// The Host seam: everything the engine needs from the operating system's
// process services: environment, files, starting programs, time, sound and
// the end of the process. Win32 and simulated implementations live beside it.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

// A failure as the platform reports it: its code and its own description.
struct SystemError {
  long code = 0;
  std::string text;
};

// One open text file. Lines end in CR LF, LF or a lone CR when read; every
// written line ends in CR LF.
class TextFile {
 public:
  virtual ~TextFile() = default;
  virtual bool AtEnd() = 0;
  virtual bool ReadLine(std::string& line, SystemError& error) = 0;
  virtual bool Write(std::string_view text, SystemError& error) = 0;
  virtual bool Close(SystemError& error) = 0;
};

enum class FileMode { Input, Output };

// How a started program's main window is shown.
enum class WindowStyle { Hidden = 0, NormalFocus = 1, MinimizedFocus = 2, MaximizedFocus = 3 };

// What a program's file is, as far as starting it goes.
struct ProgramFile {
  enum class Kind { Missing, Unreadable, Folder, NotAProgram, Program };
  Kind kind = Kind::Missing;
  std::uint16_t machine = 0;  // a program's processor (the machine field of its header)
  bool machineRuns = true;    // whether this system runs programs for that processor
};

// Thrown by EndProcess where the platform cannot end the process for real
// (the simulated host), so tests can observe the exit status. It is not a
// std::exception on purpose: no procedure's error trap may swallow it.
struct ProcessEnded {
  int exitCode;
};

class Host {
 public:
  virtual ~Host() = default;

  // The process's own arguments, without the program name, as the shell gave them.
  virtual std::string CommandLine() = 0;
  // The full path of the running program.
  virtual std::string ProgramPath() = 0;
  virtual std::optional<std::string> GetEnv(const std::string& name) = 0;

  virtual std::unique_ptr<TextFile> OpenText(const std::string& path, FileMode mode, SystemError& error) = 0;
  virtual bool RenameFile(const std::string& from, const std::string& to, SystemError& error) = 0;
  // Deletes every file that the pattern names (wildcards allowed); none is an error.
  virtual bool DeleteFiles(const std::string& pattern, SystemError& error) = 0;
  virtual bool CopyOneFile(const std::string& from, const std::string& to, SystemError& error) = 0;
  virtual bool ChangeDirectory(const std::string& path, SystemError& error) = 0;
  virtual bool ChangeDrive(const std::string& drive, SystemError& error) = 0;
  // True when a directory lookup finds the file (not a folder).
  virtual bool FileExists(const std::string& path) = 0;
  virtual std::string CurrentDirectory() = 0;

  // Starts a program from a command line; returns its task identifier, or -1.
  virtual long StartProgram(const std::string& commandLine, WindowStyle style, SystemError& error) = 0;
  // Finds the file that a program name or path names, where starting a
  // program looks for it (a name without a folder beside this program, in the
  // current folder, the system folders and the PATH; ".exe" added to a name
  // without an extension), and reads its header.
  virtual ProgramFile InspectProgram(const std::string& path) = 0;

  virtual void Sleep(int milliseconds) = 0;
  // Milliseconds since a fixed moment: what a wait measures itself against.
  virtual long long ClockMilliseconds() = 0;
  // Lets the user interface process its pending messages once. True when the
  // program has been asked to quit (the request stays pending for the main loop).
  virtual bool DoEvents() = 0;
  // The current date and time in the user's short date and long time formats, one blank between.
  virtual std::string DateTimeText() = 0;
  // The user's decimal separator, for numbers shown to the user.
  virtual std::string DecimalSeparator() = 0;

  virtual void Beep() = 0;
  [[noreturn]] virtual void EndProcess(int exitCode) = 0;
};

}  // namespace velmora
