// wintree.exe --lines on windows of this test: every line it prints is a
// comment or a findwindow line that finds its window again, with the texts
// in the ANSI code page that the search compares.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "desktop_fixture.h"
#include "support.h"

namespace velmora::test {
namespace {

// What wintree.exe (beside this program) prints for the arguments. This
// thread's messages are dispatched meanwhile: wintree reads our windows.
std::string Wintree_Output(const std::wstring& arguments) {
  ScratchDir dir;
  wchar_t self[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  std::wstring command = self;
  command = L"\"" + command.substr(0, command.rfind(L'\\') + 1) + L"wintree.exe\" " + arguments;
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const HANDLE out = CreateFileA(dir.Path("out.txt").c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                 CREATE_ALWAYS, 0, nullptr);
  STARTUPINFOW startup{};
  startup.cb = sizeof startup;
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = startup.hStdError = out;
  PROCESS_INFORMATION process{};
  const BOOL started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr,
                                      nullptr, &startup, &process);
  CloseHandle(out);
  if (!started) return "(not started)";
  const bool ended =
      Pump_Until([&] { return WaitForSingleObject(process.hProcess, 0) == WAIT_OBJECT_0; }, 20000);
  if (!ended) TerminateProcess(process.hProcess, 1);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return ended ? ReadBytes(dir.Path("out.txt")).value_or("(no output)") : "(timed out)";
}

class WintreeLinesTest : public DesktopEngineTest {};

TEST_F(WintreeLinesTest, EveryLineIsACommentOrFindsItsWindow) {
  const std::string tag = ProcessTag();
  RecordingClass frame("VelmoraWintree" + tag);
  ASSERT_TRUE(frame.Registered());
  Windows windows;
  const HWND main = windows.TopLevel(frame.Name(), "Wintree Caf\xe9 " + tag, {100, 100, 500, 400});
  ASSERT_TRUE(main);
  windows.Child(main, "Static", "Line 1\r\nLine 2", 1001, {10, 10, 200, 50});
  windows.Child(main, "Static", "Name:", -1, {10, 60, 200, 80});  // IDC_STATIC, which no line can hold
  windows.Child(main, "Button", "`OK`", 1, {10, 100, 100, 130});
  char ansiTitle[256] = {};
  GetWindowTextA(main, ansiTitle, sizeof ansiTitle);
  wchar_t wideTitle[256] = {};
  GetWindowTextW(main, wideTitle, 256);

  std::istringstream output(Wintree_Output(L"--lines \"" + std::wstring(wideTitle) + L"\""));
  std::vector<std::string> found, comments;
  for (std::string line; std::getline(output, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.rfind('#', 0) == 0) {
      comments.push_back(line);
      continue;
    }
    ASSERT_EQ(line.substr(line.size() - 6), ", 0.30") << line;
    EXPECT_TRUE(Find(line.substr(0, line.size() - 6) + ", 0.01")) << line;
    found.push_back(line);
  }
  // The window first, then its children in the order the system lists them.
  ASSERT_EQ(found.size(), 2u) << "comments: " << comments.size();
  EXPECT_NE(found[0].find(std::string("\"") + ansiTitle + "\", \"" + frame.Name() + "\", 0"), std::string::npos)
      << found[0];
  EXPECT_NE(found[1].find("\"``OK``\", \"Button\", 1"), std::string::npos) << found[1];
  ASSERT_EQ(comments.size(), 2u);
  const std::string both = comments[0] + comments[1];
  EXPECT_NE(both.find("id=1001: no findwindow line, class \"Static\""), std::string::npos) << both;
  EXPECT_NE(both.find("id=-1: no findwindow line, class \"Static\""), std::string::npos) << both;
}

}  // namespace
}  // namespace velmora::test
