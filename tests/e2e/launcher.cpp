// launch.exe: starts a program with an exact command line, waits for it and
// returns its exit status.
//
//   launch.exe <program> <arguments-file> [seconds]
//
// `wine prog.exe ARGS` re-quotes its arguments (a " becomes \"), so a program
// started that way never sees the line a Windows shell would give it. The
// first line of <arguments-file> (UTF-8, its line end removed) is put after
// the quoted program name exactly as written. A program still running after
// <seconds> (default 60) is terminated and launch.exe returns 124; a failure
// of launch.exe itself returns 125.
//
// The program runs in a job object, which every program it starts joins. A
// time-out ends the whole job, not the program alone: a wizard that a script
// started must not outlive its case. So does the end of launch.exe itself
// (the job is killed when its last handle closes), should launch.exe be
// killed from outside. When the program ends by itself, the programs it left
// running are left to the caller, which may still inspect or end them (and
// reports those it finds as left running).
//
// Under Wine a new process now and then dies while Wine itself starts it,
// before any of its code runs; CreateProcess then fails with
// ERROR_INTERNAL_ERROR. Such a start is tried again, with a note on stderr:
// the program under test never ran, so there is nothing of it to judge.
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
constexpr DWORD kDefaultSeconds = 60;
constexpr int kStartAttempts = 3;

int Fail(const wchar_t* what, const std::wstring& detail) {
  std::fwprintf(stderr, L"launch: %ls %ls (error %lu)\n", what, detail.c_str(), GetLastError());
  return kLaunchFailed;
}

bool ReadFirstLine(const std::wstring& path, std::string& line) {
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  if (!file) return false;
  std::getline(file, line);
  line = line.substr(0, line.find('\r'));
  return true;
}

std::wstring Widen(const std::string& utf8) {
  if (utf8.empty()) return {};
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring wide(static_cast<size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), length);
  return wide;
}

// A job that ends its processes when its last handle closes, unless
// Release_Job lifts that first.
HANDLE Create_Job() {
  HANDLE job = CreateJobObjectW(nullptr, nullptr);
  if (!job) return nullptr;
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  if (!SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits)) {
    CloseHandle(job);
    return nullptr;
  }
  return job;
}

// Closes the job without ending the processes still in it.
void Release_Job(HANDLE job) {
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  CloseHandle(job);
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
  if (!argv || argc < 3 || argc > 4) {
    std::fwprintf(stderr, L"usage: launch.exe <program> <arguments-file> [seconds]\n");
    return kLaunchFailed;
  }
  const std::wstring program = argv[1];
  const std::wstring argumentsFile = argv[2];
  const DWORD seconds = argc == 4 ? static_cast<DWORD>(std::wcstoul(argv[3], nullptr, 10)) : kDefaultSeconds;
  LocalFree(argv);

  std::string arguments;
  if (!ReadFirstLine(argumentsFile, arguments)) return Fail(L"cannot read", argumentsFile);

  // The shape a Windows shell gives: the quoted program, a blank, the arguments.
  std::wstring commandLine = L"\"" + program + L"\"";
  if (!arguments.empty()) commandLine += L" " + Widen(arguments);

  HANDLE job = Create_Job();
  if (!job) return Fail(L"cannot create a job object for", program);
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
    Release_Job(job);
  }
  CloseHandle(process.hProcess);
  return status;
}
