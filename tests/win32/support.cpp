#include "support.h"

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "win32_handles.h"

namespace velmora::test {

namespace fs = std::filesystem;

ScratchDir::ScratchDir() {
  static std::atomic<int> counter{0};
  const fs::path root = fs::temp_directory_path() /
                        ("velmora-win32-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++counter));
  fs::remove_all(root);
  fs::create_directory(root);
  root_ = root.string();
}

ScratchDir::~ScratchDir() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path);
}

std::optional<std::string> ReadBytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(file), {});
}

std::set<std::string> FilesIn(const std::string& directory) {
  std::set<std::string> names;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::directory_iterator(directory, error))
    if (!entry.is_directory()) names.insert(entry.path().filename().string());
  return names;
}

void SetEnvironment(const std::string& name, const char* value) { SetEnvironmentVariableA(name.c_str(), value); }

std::optional<unsigned long> WaitForProcess(long processId, unsigned long milliseconds) {
  const ScopedHandle process(
      OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(processId)));
  DWORD code = 0;
  if (!process || WaitForSingleObject(process.get(), milliseconds) != WAIT_OBJECT_0 ||
      !GetExitCodeProcess(process.get(), &code))
    return std::nullopt;
  return code;
}

}  // namespace velmora::test
