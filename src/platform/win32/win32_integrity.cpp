// The session and integrity questions of the Desktop seam: a service cannot
// see the user's windows, and a program that is not elevated cannot send
// input to one that is.
#include <vector>

#include "win32_desktop.h"
#include "win32_handles.h"
#include "win32_text.h"

namespace velmora {

namespace {

constexpr DWORD kUnknownIntegrity = 0;

DWORD Integrity_Of_Token(HANDLE token) {
  DWORD size = 0;
  GetTokenInformation(token, TokenIntegrityLevel, nullptr, 0, &size);
  if (size == 0) return kUnknownIntegrity;
  std::vector<BYTE> buffer(size);
  if (!GetTokenInformation(token, TokenIntegrityLevel, buffer.data(), size, &size)) return kUnknownIntegrity;
  const PSID sid = reinterpret_cast<TOKEN_MANDATORY_LABEL*>(buffer.data())->Label.Sid;
  const UCHAR count = *GetSidSubAuthorityCount(sid);
  return count > 0 ? *GetSidSubAuthority(sid, count - 1) : kUnknownIntegrity;
}

DWORD Own_Integrity() {
  ScopedHandle token;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.receive())) return kUnknownIntegrity;
  return Integrity_Of_Token(token.get());
}

}  // namespace

bool Win32Desktop::InServiceSession() {
  DWORD session = 0;
  return ProcessIdToSessionId(GetCurrentProcessId(), &session) && session == 0;
}

// An elevated program's token is closed to a program that is not elevated:
// being refused it, by a process that can be opened, tells as much as its level.
bool Win32Desktop::RunsAtHigherIntegrity(WindowHandle window) {
  DWORD processId = 0;
  if (!GetWindowThreadProcessId(Window_Of(window), &processId)) return false;
  static const DWORD own = Own_Integrity();  // a process keeps its level for life
  if (own == kUnknownIntegrity || own >= SECURITY_MANDATORY_HIGH_RID) return false;
  ScopedHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, processId));
  if (!process) return false;
  ScopedHandle token;
  if (!OpenProcessToken(process.get(), TOKEN_QUERY, token.receive())) return GetLastError() == ERROR_ACCESS_DENIED;
  return Integrity_Of_Token(token.get()) > own;
}

}  // namespace velmora
