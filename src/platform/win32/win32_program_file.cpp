// Where starting a program finds its file, and what the file's header says:
// the run command explains a failed start with it.
#include <string>

#include "win32_handles.h"
#include "win32_host.h"

namespace velmora {

namespace {

bool Has_Folder(const std::string& path) { return path.find_first_of("\\/:") != std::string::npos; }

bool Has_Extension(const std::string& path) {
  const auto dot = path.rfind('.');
  return dot != std::string::npos && path.find_first_of("\\/:", dot) == std::string::npos;
}

bool Exists(const std::string& path) { return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES; }

std::string Folder_Of(const std::string& path) {
  const auto slash = path.find_last_of("\\/");
  return slash == std::string::npos ? std::string() : path.substr(0, slash);
}

template <class Call>
std::string Text_Of(Call call) {
  char text[MAX_PATH + 1] = "";
  const UINT length = call(text, static_cast<UINT>(sizeof text));
  return length > 0 && length < sizeof text ? std::string(text, length) : std::string();
}

// The folders that starting a program searches for a name without a folder, in its order.
std::string Search_Folders(const std::string& programPath) {
  const std::string windows = Text_Of([](char* t, UINT n) { return GetWindowsDirectoryA(t, n); });
  std::string folders =
      Folder_Of(programPath) + ";" + Text_Of([](char* t, UINT n) { return GetCurrentDirectoryA(n, t); }) + ";" +
      Text_Of([](char* t, UINT n) { return GetSystemDirectoryA(t, n); }) + ";" + windows + "\\System;" + windows;
  const DWORD size = GetEnvironmentVariableA("PATH", nullptr, 0);
  if (size > 0) {
    std::string path(size, '\0');
    path.resize(GetEnvironmentVariableA("PATH", path.data(), size));
    folders += ";" + path;
  }
  return folders;
}

// The file that starting the program would run, or "" when there is none.
std::string Locate(const std::string& path, const std::string& programPath) {
  if (path.empty()) return "";
  if (!Has_Folder(path)) {
    char found[MAX_PATH + 1] = "";
    const DWORD length =
        SearchPathA(Search_Folders(programPath).c_str(), path.c_str(), ".exe", sizeof found, found, nullptr);
    return length > 0 && length < sizeof found ? std::string(found, length) : std::string();
  }
  if (!Has_Extension(path) && Exists(path + ".exe")) return path + ".exe";
  return Exists(path) ? path : std::string();
}

bool Read_At(HANDLE file, LONG offset, void* into, DWORD size) {
  DWORD read = 0;
  return SetFilePointer(file, offset, nullptr, FILE_BEGIN) != INVALID_SET_FILE_POINTER &&
         ReadFile(file, into, size, &read, nullptr) && read == size;
}

// A 32-bit program runs where the system has its 32-bit part (Windows on
// Windows 64, or Wine's wine32): its own kernel32.dll.
bool Runs_32_Bit_Programs() {
  const std::string folder = Text_Of([](char* t, UINT n) { return GetSystemWow64DirectoryA(t, n); });
  return !folder.empty() && Exists(folder + "\\kernel32.dll");
}

ProgramFile Read_Header(const std::string& path) {
  using Kind = ProgramFile::Kind;
  const DWORD attributes = GetFileAttributesA(path.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) return {Kind::Folder};
  const ScopedFile file(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return {Kind::Unreadable};
  IMAGE_DOS_HEADER dos{};
  DWORD signature = 0;
  IMAGE_FILE_HEADER header{};
  if (!Read_At(file.get(), 0, &dos, sizeof dos) || dos.e_magic != IMAGE_DOS_SIGNATURE || dos.e_lfanew <= 0 ||
      !Read_At(file.get(), dos.e_lfanew, &signature, sizeof signature) || signature != IMAGE_NT_SIGNATURE ||
      !Read_At(file.get(), dos.e_lfanew + static_cast<LONG>(sizeof signature), &header, sizeof header))
    return {Kind::NotAProgram};
  const bool runs = header.Machine == IMAGE_FILE_MACHINE_AMD64 ||
                    (header.Machine == IMAGE_FILE_MACHINE_I386 && Runs_32_Bit_Programs());
  return {Kind::Program, header.Machine, runs};
}

}  // namespace

ProgramFile Win32Host::InspectProgram(const std::string& path) {
  const std::string file = Locate(path, ProgramPath());
  return file.empty() ? ProgramFile{} : Read_Header(file);
}

}  // namespace velmora
