// A host made of memory: files in a map, an environment in a map, a fake
// clock that sleeping advances, and a record of what the engine asked for.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "host.h"

namespace velmora {

class SimHost : public Host {
 public:
  // What the tests set up.
  std::string commandLine;
  std::string programPath = "C:\\Velmora\\velmora.exe";
  std::map<std::string, std::string> environment;
  std::map<std::string, std::string> files;  // path -> content
  std::set<std::string> unopenable;          // paths whose opening fails
  std::set<std::string> unwritable;          // paths whose writes fail
  std::set<std::string> unclosable;          // paths whose closing fails
  std::set<std::string> unstartable;         // programs that cannot be started
  bool throwFromFileOperations = false;      // rename, delete, copy throw, as a broken layer would
  std::deque<bool> startOutcomes;            // outcomes of the next program starts, taken in order
  // Command lines whose start fails with this error.
  std::map<std::string, SystemError> startFailures;
  // What InspectProgram finds; every other path is missing.
  std::map<std::string, ProgramFile> programFiles;
  std::string dateTimeText = "21/11/2026 10:20:30";
  std::string decimalSeparator = ".";
  std::string currentDirectory = "C:\\Work";
  bool quitRequested = false;  // what DoEvents reports
  // Runs on every DoEvents: what the user does while the engine yields.
  std::function<void()> onDoEvents;

  // What the engine did.
  long long clockMs = 0;
  long long sleptMs = 0;
  int sleeps = 0;
  long long tenthSleeps = 0;  // sleeps of 95 ms: the tenths of a second that the engine paused
  int doEvents = 0;
  int beeps = 0;
  std::vector<std::string> startedPrograms;
  std::vector<std::string> operations;  // rename, delete, copy, chdir, chdrive, as text

  std::string CommandLine() override { return commandLine; }
  std::string ProgramPath() override { return programPath; }
  std::optional<std::string> GetEnv(const std::string& name) override;

  std::unique_ptr<TextFile> OpenText(const std::string& path, FileMode mode, SystemError& error) override;
  bool RenameFile(const std::string& from, const std::string& to, SystemError& error) override;
  bool DeleteFiles(const std::string& pattern, SystemError& error) override;
  bool CopyOneFile(const std::string& from, const std::string& to, SystemError& error) override;
  bool ChangeDirectory(const std::string& path, SystemError& error) override;
  bool ChangeDrive(const std::string& drive, SystemError& error) override;

  long StartProgram(const std::string& commandLine, WindowStyle style, SystemError& error) override;
  ProgramFile InspectProgram(const std::string& path) override;

  void Sleep(int milliseconds) override;
  long long ClockMilliseconds() override { return clockMs; }
  bool DoEvents() override {
    ++doEvents;
    if (onDoEvents) onDoEvents();
    return quitRequested;
  }
  bool FileExists(const std::string& path) override { return files.count(path) > 0; }
  std::string CurrentDirectory() override { return currentDirectory; }
  std::string DateTimeText() override { return dateTimeText; }
  std::string DecimalSeparator() override { return decimalSeparator; }
  void Beep() override { ++beeps; }
  [[noreturn]] void EndProcess(int exitCode) override { throw ProcessEnded{exitCode}; }

  // The lines of a file as written, split at CR LF.
  std::vector<std::string> Lines(const std::string& path) const;

  static SystemError NotFound() { return {53, "File not found"}; }
  static SystemError PathNotFound() { return {76, "Path not found"}; }
};

}  // namespace velmora
