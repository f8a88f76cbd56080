// launch.exe <program> <arguments-file> <seconds>: starts the program with an
// exact command line, waits for it and returns its exit status: 124 when it
// still ran after <seconds> (it and every program it started, all in one job
// object, are then ended), 125 when launch.exe itself failed.
//
// `wine prog.exe ARGS` re-quotes its arguments (a " becomes \"); here the
// first line of the UTF-8 <arguments-file> follows the quoted program name as
// written. Programs left running when the program ends by itself are the
// caller's to inspect or end; should launch.exe be killed, closing the job
// ends them. A start that Wine loses before any of the program's code runs
// (ERROR_INTERNAL_ERROR) is tried again, with a note on stderr.
#include <windows.h>
#include <shellapi.h>

#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

constexpr int kTimedOut = 124;
constexpr int kLaunchFailed = 125;
constexpr int kStartAttempts = 3;

int Fail(const wchar_t* what, const std::wstring& detail) {
  std::fwprintf(stderr, L"launch: %ls %ls (error %lu)\n", what, detail.c_str(), GetLastError());
  return kLaunchFailed;
}

std::wstring Widen(const std::string& utf8) {
  if (utf8.empty()) return {};
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring wide(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), length);
  return wide;
}

// Sets whether closing the job's last handle ends the processes still in it.
bool Kill_On_Close(HANDLE job, bool kill) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = kill ? JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE : 0;
  return SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
}

// Starts the program suspended, trying again when Wine lost it on the way.
bool Start_Suspended(const std::wstring& program, std::wstring commandLine, PROCESS_INFORMATION& process) {
  for (int attempt = 1;; ++attempt) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    std::wstring line = commandLine;  // CreateProcessW may write into it
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr, nullptr,
                       &startup, &process))
      return true;
    const DWORD error = GetLastError();
    if (error != ERROR_INTERNAL_ERROR || attempt == kStartAttempts) return false;
    std::fwprintf(stderr, L"launch: %ls died while starting (error %lu); starting it again\n", program.c_str(), error);
    Sleep(500);
  }
}

}  // namespace

int main() {
  int argc = 0;
  wchar_t** argv = CommandLineToArgvW(GetCommandLineW(), &argc);
  if (!argv || argc != 4) {
    std::fwprintf(stderr, L"usage: launch.exe <program> <arguments-file> <seconds>\n");
    return kLaunchFailed;
  }
  const std::wstring program = argv[1];
  const std::wstring argumentsFile = argv[2];
  const DWORD seconds = static_cast<DWORD>(std::wcstoul(argv[3], nullptr, 10));
  LocalFree(argv);

  std::ifstream file(std::filesystem::path(argumentsFile), std::ios::binary);
  if (!file) return Fail(L"cannot read", argumentsFile);
  std::string arguments;
  std::getline(file, arguments);
  arguments = arguments.substr(0, arguments.find('\r'));

  // The shape a Windows shell gives: the quoted program, a blank, the arguments.
  std::wstring commandLine = L"\"" + program + L"\"";
  if (!arguments.empty()) commandLine += L" " + Widen(arguments);

  HANDLE job = CreateJobObjectW(nullptr, nullptr);
  if (!job || !Kill_On_Close(job, true)) return Fail(L"cannot create a job object for", program);
  // Suspended until it is in the job, so that nothing it starts escapes.
  PROCESS_INFORMATION process{};
  if (!Start_Suspended(program, commandLine, process)) return Fail(L"cannot start", program);
  if (!AssignProcessToJobObject(job, process.hProcess)) {
    const int failed = Fail(L"cannot put into a job object:", program);
    TerminateProcess(process.hProcess, kLaunchFailed);
    return failed;
  }
  ResumeThread(process.hThread);
  CloseHandle(process.hThread);

  int status = kLaunchFailed;
  if (WaitForSingleObject(process.hProcess, seconds * 1000) == WAIT_TIMEOUT) {
    std::fwprintf(stderr, L"launch: %ls still running after %lu s; it and the programs it started terminated\n",
                  program.c_str(), seconds);
    TerminateJobObject(job, kTimedOut);
    WaitForSingleObject(process.hProcess, 10000);  // a process that will not die must not hold the run
    CloseHandle(job);
    status = kTimedOut;
  } else {
    DWORD code = 0;
    if (GetExitCodeProcess(process.hProcess, &code)) status = static_cast<int>(code);
    Kill_On_Close(job, false);
    CloseHandle(job);
  }
  CloseHandle(process.hProcess);
  return status;
}
