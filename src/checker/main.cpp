// velmora-check.exe: checks scripts without running them, for build
// pipelines and editors. The text is converted to the console's code page.
#include <windows.h>

#include <string>
#include <vector>

#include "checker_cli.h"
#include "win32_host.h"
#include "win32_registry.h"

namespace {

std::wstring Wide(const std::string& text) {
  if (text.empty()) return {};
  std::wstring wide(
      static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), nullptr, 0)),
      L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), static_cast<int>(text.size()), wide.data(),
                      static_cast<int>(wide.size()));
  return wide;
}

// A console gets the text as UTF-16; a pipe or file gets the console's code
// page, or the program's own when there is no console.
void Write(DWORD which, const std::string& text) {
  if (text.empty()) return;
  const HANDLE handle = GetStdHandle(which);
  std::wstring wide;
  for (const wchar_t c : Wide(text)) {
    if (c == L'\n') wide += L'\r';
    wide += c;
  }
  DWORD mode = 0, written = 0;
  if (GetConsoleMode(handle, &mode)) {
    WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
    return;
  }
  const UINT page = GetConsoleOutputCP() != 0 ? GetConsoleOutputCP() : CP_ACP;
  const int size =
      WideCharToMultiByte(page, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(page, 0, wide.data(), static_cast<int>(wide.size()), bytes.data(), size, nullptr, nullptr);
  WriteFile(handle, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace

// The C runtime expands wildcards in the arguments (scripts\*.vls), since
// neither cmd.exe nor a build tool does.
extern "C" {
int _dowildcard = -1;
}

int main(int argc, char** argv) {
  velmora::Win32Host host;
  velmora::Win32Registry registry;
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  velmora::CheckerOutput output;
  const int status = velmora::Run_Checker(host, registry, arguments, output);
  Write(STD_OUTPUT_HANDLE, output.out);
  Write(STD_ERROR_HANDLE, output.err);
  return status;
}
