// Raw Win32 access for the tests, kept out of the test files so that they
// need not include <windows.h> and its macros: scratch folders, file bytes,
// environment and process checks.
#pragma once

#include <optional>
#include <set>
#include <string>

namespace velmora::test {

// A fresh folder under the user's temporary folder, removed with its content
// when the test ends. Paths are built with Path("name").
class ScratchDir {
 public:
  ScratchDir();
  ~ScratchDir();
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;

  const std::string& Root() const { return root_; }
  std::string Path(const std::string& name) const { return root_ + "\\" + name; }

 private:
  std::string root_;
};

// Writes the bytes exactly; creates or truncates.
void WriteBytes(const std::string& path, const std::string& bytes);
// The file's bytes, or nothing when it cannot be opened. Shares reading and
// writing, so a file that another handle is writing can be read.
std::optional<std::string> ReadBytes(const std::string& path);
// The names of the files (not folders) directly inside a folder.
std::set<std::string> FilesIn(const std::string& directory);

// Sets a variable of the process environment with the Win32 call; a null
// value clears it.
void SetEnvironment(const std::string& name, const char* value);

// Waits for the process with this identifier to end and returns its exit
// code; nothing when no such process can be opened or it does not end in time.
std::optional<unsigned long> WaitForProcess(long processId, unsigned long milliseconds);

}  // namespace velmora::test
