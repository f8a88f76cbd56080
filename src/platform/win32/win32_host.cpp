#include "win32_host.h"

#include <vector>

#include "process_arguments.h"
#include "win32_handles.h"
#include "win32_text.h"

namespace velmora {

namespace {

// A text file on disk. Input files are read whole at opening (scripts are
// small) and served line by line; every write is one WriteFile, so no line is
// lost when the process ends without closing the file.
class Win32File : public TextFile {
 public:
  Win32File(ScopedFile handle, std::string content) : handle_(std::move(handle)), content_(std::move(content)) {}

  bool AtEnd() override { return position_ >= content_.size(); }

  bool ReadLine(std::string& line, SystemError& error) override {
    if (position_ >= content_.size()) {
      error = {ERROR_HANDLE_EOF, System_Text(ERROR_HANDLE_EOF)};
      return false;
    }
    const auto end = content_.find_first_of("\r\n", position_);
    line = content_.substr(position_, end == std::string::npos ? std::string::npos : end - position_);
    position_ = end == std::string::npos ? content_.size() : end + 1;
    if (end != std::string::npos && content_[end] == '\r' && position_ < content_.size() &&
        content_[position_] == '\n')
      ++position_;
    return true;
  }

  bool Write(std::string_view text, SystemError& error) override {
    DWORD written = 0;
    if (!WriteFile(handle_.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) ||
        written != text.size()) {
      error = Last_Error();
      return false;
    }
    return true;
  }

  bool Close(SystemError& error) override {
    // Closed here, not by the owner, because a failed close is an error to report.
    if (!CloseHandle(handle_.release())) {
      error = Last_Error();
      return false;
    }
    return true;
  }

 private:
  ScopedFile handle_;
  std::string content_;
  std::size_t position_ = 0;
};

bool Read_All(HANDLE handle, std::string& content, SystemError& error) {
  char buffer[65536];
  for (;;) {
    DWORD read = 0;
    if (!ReadFile(handle, buffer, sizeof buffer, &read, nullptr)) {
      error = Last_Error();
      return false;
    }
    if (read == 0) return true;
    content.append(buffer, read);
  }
}

bool Fail(SystemError& error) {
  error = Last_Error();
  return false;
}

std::string Directory_Part(const std::string& pattern) {
  const auto slash = pattern.find_last_of("\\/:");
  return slash == std::string::npos ? std::string() : pattern.substr(0, slash + 1);
}

}  // namespace

std::string Win32Host::CommandLine() { return Arguments_Of(GetCommandLineA()); }

std::string Win32Host::ProgramPath() {
  char path[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
  return std::string(path, length);
}

std::optional<std::string> Win32Host::GetEnv(const std::string& name) {
  if (name.empty()) return std::nullopt;
  SetLastError(ERROR_SUCCESS);
  DWORD size = GetEnvironmentVariableA(name.c_str(), nullptr, 0);
  if (size == 0) {
    if (GetLastError() == ERROR_ENVVAR_NOT_FOUND) return std::nullopt;
    return std::string();
  }
  std::vector<char> value(size);
  size = GetEnvironmentVariableA(name.c_str(), value.data(), static_cast<DWORD>(value.size()));
  return std::string(value.data(), size);
}

std::unique_ptr<TextFile> Win32Host::OpenText(const std::string& path, FileMode mode, SystemError& error) {
  const bool input = mode == FileMode::Input;
  ScopedFile handle(
      CreateFileA(path.c_str(), input ? GENERIC_READ : GENERIC_WRITE, FILE_SHARE_READ | (input ? FILE_SHARE_WRITE : 0),
                  nullptr, input ? OPEN_EXISTING : CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!handle) {
    error = Last_Error();
    return nullptr;
  }
  std::string content;
  if (input && !Read_All(handle.get(), content, error)) return nullptr;
  return std::make_unique<Win32File>(std::move(handle), std::move(content));
}

bool Win32Host::RenameFile(const std::string& from, const std::string& to, SystemError& error) {
  return MoveFileA(from.c_str(), to.c_str()) || Fail(error);
}

bool Win32Host::DeleteFiles(const std::string& pattern, SystemError& error) {
  WIN32_FIND_DATAA found;
  const ScopedFind search(FindFirstFileA(pattern.c_str(), &found));
  if (!search) return Fail(error);
  const std::string directory = Directory_Part(pattern);
  bool deletedAny = false, ok = true;
  do {
    if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) continue;
    if (DeleteFileA((directory + found.cFileName).c_str())) {
      deletedAny = true;
    } else if (ok) {
      ok = Fail(error);
    }
  } while (FindNextFileA(search.get(), &found));
  if (ok && !deletedAny) {
    error = {ERROR_FILE_NOT_FOUND, System_Text(ERROR_FILE_NOT_FOUND)};
    return false;
  }
  return ok;
}

bool Win32Host::CopyOneFile(const std::string& from, const std::string& to, SystemError& error) {
  return ::CopyFileA(from.c_str(), to.c_str(), FALSE) || Fail(error);
}

bool Win32Host::ChangeDirectory(const std::string& path, SystemError& error) {
  return SetCurrentDirectoryA(path.c_str()) || Fail(error);
}

// Only the drive letter counts, as in "D", "d:" or "D:\Setup".
bool Win32Host::ChangeDrive(const std::string& drive, SystemError& error) {
  if (drive.empty() || !IsCharAlphaA(drive[0])) {
    error = {ERROR_INVALID_DRIVE, System_Text(ERROR_INVALID_DRIVE)};
    return false;
  }
  const std::string root = std::string(1, drive[0]) + ":";
  return SetCurrentDirectoryA(root.c_str()) || Fail(error);
}

long Win32Host::StartProgram(const std::string& commandLine, WindowStyle style, SystemError& error) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESHOWWINDOW;
  static constexpr WORD kShow[] = {SW_HIDE, SW_SHOWNORMAL, SW_SHOWMINIMIZED, SW_SHOWMAXIMIZED};
  const auto index = static_cast<std::size_t>(style);
  startup.wShowWindow = index < std::size(kShow) ? kShow[index] : SW_SHOWNORMAL;
  PROCESS_INFORMATION process{};
  if (commandLine.empty()) {
    error = SystemError{ERROR_FILE_NOT_FOUND, System_Text(ERROR_FILE_NOT_FOUND)};
    return -1;
  }
  // Under Wine a program can die while it starts when the machine is busy:
  // the start fails with ERROR_INTERNAL_ERROR and nothing runs. It is started
  // again, twice at most.
  constexpr int kStartAttempts = 3;
  for (int attempt = 1;; ++attempt) {
    std::vector<char> line(commandLine.begin(), commandLine.end());  // CreateProcessA may write into it
    line.push_back('\0');
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process)) break;
    if (GetLastError() != ERROR_INTERNAL_ERROR || attempt == kStartAttempts) {
      error = Last_Error();
      return -1;
    }
    ::Sleep(250);
  }
  const ScopedHandle thread(process.hThread), program(process.hProcess);
  return static_cast<long>(process.dwProcessId);
}

void Win32Host::Sleep(int milliseconds) { ::Sleep(milliseconds > 0 ? static_cast<DWORD>(milliseconds) : 0); }

long long Win32Host::ClockMilliseconds() { return static_cast<long long>(GetTickCount64()); }

bool Win32Host::DoEvents() { return !Dispatch_Pending_Messages(); }

bool Win32Host::FileExists(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::string Win32Host::CurrentDirectory() {
  char folder[MAX_PATH + 1] = "";
  const DWORD length = GetCurrentDirectoryA(sizeof folder, folder);
  return length > 0 && length < sizeof folder ? std::string(folder, length) : std::string();
}

std::string Win32Host::DateTimeText() {
  char date[128] = "", time[128] = "";
  GetDateFormatA(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, date, sizeof date);
  GetTimeFormatA(LOCALE_USER_DEFAULT, 0, nullptr, nullptr, time, sizeof time);
  return std::string(date) + " " + time;
}

std::string Win32Host::DecimalSeparator() {
  char separator[8] = "";
  return GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator) ? separator : ".";
}

void Win32Host::Beep() { MessageBeep(MB_OK); }

void Win32Host::EndProcess(int exitCode) { ExitProcess(static_cast<UINT>(exitCode)); }

}  // namespace velmora
