// The Host seam on Windows.
#pragma once

#include "host.h"

namespace velmora {

class Win32Host : public Host {
 public:
  std::string CommandLine() override;
  std::string ProgramPath() override;
  std::optional<std::string> GetEnv(const std::string& name) override;

  std::unique_ptr<TextFile> OpenText(const std::string& path, FileMode mode, SystemError& error) override;
  bool RenameFile(const std::string& from, const std::string& to, SystemError& error) override;
  bool DeleteFiles(const std::string& pattern, SystemError& error) override;
  bool CopyOneFile(const std::string& from, const std::string& to, SystemError& error) override;
  bool ChangeDirectory(const std::string& path, SystemError& error) override;
  bool ChangeDrive(const std::string& drive, SystemError& error) override;

  long StartProgram(const std::string& commandLine, WindowStyle style, SystemError& error) override;
  ProgramFile InspectProgram(const std::string& path) override;  // win32_program_file.cpp

  void Sleep(int milliseconds) override;
  long long ClockMilliseconds() override;
  bool DoEvents() override;
  bool FileExists(const std::string& path) override;
  std::string CurrentDirectory() override;
  std::string DateTimeText() override;
  std::string DecimalSeparator() override;

  void Beep() override;
  [[noreturn]] void EndProcess(int exitCode) override;
};

}  // namespace velmora
