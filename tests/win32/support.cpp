#include "support.h"

#include <windows.h>

#include <atomic>
#include <stdexcept>

namespace velmora::test {

namespace {

void RemoveTree(const std::string& directory) {
  WIN32_FIND_DATAA found;
  const HANDLE search = FindFirstFileA((directory + "\\*").c_str(), &found);
  if (search != INVALID_HANDLE_VALUE) {
    do {
      const std::string name = found.cFileName;
      if (name == "." || name == "..") continue;
      const std::string path = directory + "\\" + name;
      if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
        RemoveTree(path);
      } else {
        SetFileAttributesA(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileA(path.c_str());
      }
    } while (FindNextFileA(search, &found));
    FindClose(search);
  }
  RemoveDirectoryA(directory.c_str());
}

}  // namespace

ScratchDir::ScratchDir() {
  static std::atomic<int> counter{0};
  char temp[MAX_PATH];
  const DWORD length = GetTempPathA(MAX_PATH, temp);
  if (length == 0 || length >= MAX_PATH) throw std::runtime_error("no temporary folder");
  std::string base(temp, length);
  if (base.back() == '\\') base.pop_back();
  root_ = base + "\\velmora-win32-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++counter);
  RemoveTree(root_);
  if (!CreateDirectoryA(root_.c_str(), nullptr)) throw std::runtime_error("cannot create " + root_);
}

ScratchDir::~ScratchDir() { RemoveTree(root_); }

void WriteBytes(const std::string& path, const std::string& bytes) {
  const HANDLE file =
      CreateFileA(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot create " + path);
  DWORD written = 0;
  const BOOL ok = WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  CloseHandle(file);
  if (!ok || written != bytes.size()) throw std::runtime_error("cannot write " + path);
}

std::optional<std::string> ReadBytes(const std::string& path) {
  const HANDLE file = CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return std::nullopt;
  std::string bytes;
  char buffer[4096];
  DWORD got = 0;
  while (ReadFile(file, buffer, sizeof buffer, &got, nullptr) && got > 0) bytes.append(buffer, got);
  CloseHandle(file);
  return bytes;
}

bool MakeDirectory(const std::string& path) { return CreateDirectoryA(path.c_str(), nullptr) != 0; }

std::set<std::string> FilesIn(const std::string& directory) {
  std::set<std::string> names;
  WIN32_FIND_DATAA found;
  const HANDLE search = FindFirstFileA((directory + "\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.insert(found.cFileName);
  } while (FindNextFileA(search, &found));
  FindClose(search);
  return names;
}

std::string CurrentDirectory() {
  char path[MAX_PATH];
  const DWORD length = GetCurrentDirectoryA(MAX_PATH, path);
  return std::string(path, length < MAX_PATH ? length : 0);
}

bool SetCurrent(const std::string& directory) { return SetCurrentDirectoryA(directory.c_str()) != 0; }

void SetEnvironment(const std::string& name, const std::string& value) {
  SetEnvironmentVariableA(name.c_str(), value.c_str());
}

void ClearEnvironment(const std::string& name) { SetEnvironmentVariableA(name.c_str(), nullptr); }

std::optional<unsigned long> WaitForProcess(long processId, unsigned long milliseconds) {
  const HANDLE process =
      OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(processId));
  if (!process) return std::nullopt;
  std::optional<unsigned long> result;
  DWORD code = 0;
  if (WaitForSingleObject(process, milliseconds) == WAIT_OBJECT_0 && GetExitCodeProcess(process, &code)) result = code;
  CloseHandle(process);
  return result;
}

std::string SystemFile(const std::string& name) {
  char path[MAX_PATH];
  const UINT length = GetSystemDirectoryA(path, MAX_PATH);
  return std::string(path, length) + "\\" + name;
}

}  // namespace velmora::test
