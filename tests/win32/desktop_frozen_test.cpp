// The window commands against another program whose user-interface thread
// stops taking messages (frozen.exe, built beside this program): each
// command returns within its bound and says so in the log.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "desktop_fixture.h"
#include "win32_handles.h"

namespace velmora::test {
namespace {

constexpr int kFreezeId = 1;  // the button that freezes the program when clicked
constexpr int kEditId = 100;  // three identical edits
constexpr char kRunning[] = "Velmora Frozen - Running";
constexpr char kFrozen[] = "Velmora Frozen - Frozen";

class FrozenProgramTest : public DesktopEngineTest {
 protected:
  ScopedHandle process;
  HWND main = nullptr;

  void TearDown() override { End(); }

  void Start() {
    char path[MAX_PATH];
    ASSERT_GT(GetModuleFileNameA(nullptr, path, MAX_PATH), 0u);
    std::string commandLine = "\"" + std::string(path);
    commandLine = commandLine.substr(0, commandLine.find_last_of('\\') + 1) + "frozen.exe\"";
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    ASSERT_TRUE(
        CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &started));
    process.reset(started.hProcess);
    const ScopedHandle thread(started.hThread);  // only the process is needed
    ASSERT_TRUE(Pump_Until(
        [&] {
          main = ::FindWindowA("VelmoraFrozen", kRunning);
          DWORD owner = 0;
          if (main) GetWindowThreadProcessId(main, &owner);
          return owner == started.dwProcessId;
        },
        10000));
  }
  // The program's thread sleeps from the moment it takes this message.
  void Freeze() {
    ASSERT_TRUE(PostMessageA(main, WM_COMMAND, MAKEWPARAM(kFreezeId, BN_CLICKED), 0));
    char title[64] = {};
    ASSERT_TRUE(
        Pump_Until([&] { return GetWindowTextA(main, title, sizeof title) && title == std::string(kFrozen); }, 5000));
  }
  // Ends the program that this test started, by its process.
  void End() {
    if (!process) return;
    TerminateProcess(process.get(), 9);
    WaitForSingleObject(process.get(), 5000);
    process.reset();
  }
  // Runs the command and returns how long it took. Past the limit the
  // program is ended: whatever waits for it returns, and the row fails on
  // its time instead of hanging the run.
  DWORD Timed(DWORD limit, const std::function<void()>& command) {
    const ScopedHandle done(CreateEventA(nullptr, TRUE, FALSE, nullptr));
    std::thread watchdog([&] {
      if (WaitForSingleObject(done.get(), limit) == WAIT_TIMEOUT) TerminateProcess(process.get(), 9);
    });
    const DWORD start = GetTickCount();
    command();
    const DWORD elapsed = GetTickCount() - start;
    SetEvent(done.get());
    watchdog.join();
    return elapsed;
  }
};

TEST_F(FrozenProgramTest, EveryCommandGivesUpWithinItsBound) {
  RecordingClass coverClass("VelmoraCover" + ProcessTag());
  struct Row {
    const char* what;
    std::string before;  // a findwindow line run while the program responds
    bool covered;        // a window of ours lies over the program
    std::function<bool()> command;
    bool succeeds;
    std::string info;  // the one problem line expected
    DWORD boundMs;
  };
  const std::string button = Find_Line(kRunning, "VelmoraFrozen", "Freeze", "Button", kFreezeId);
  const Row rows[] = {
      {"findwindow", "", false, [&] { return Find(Find_Line(kFrozen, "VelmoraFrozen", "", "Edit", kEditId)); }, true,
       "Info: The window did not respond within 10 seconds.", 1000 + 10000},
      {"sendkeys", button, false, [&] { return Send("abc"); }, false,
       "Info: The window did not respond within 10 seconds; no keys were sent.", 10000},
      {"sendbuttons", button, true,
       [&] {
         bool succeeded = true;
         automation.SendButtons_Command(engine, true, Parsed("sendbuttons: sl"), succeeded);
         return succeeded;
       },
       false, "Info: The window did not respond within 10 seconds; no click was sent.", 10000},
      {"usemouse", "", false,
       [&] {
         automation.UseMouse_Command(engine, true, Parsed("usemouse: sl, 25000, 20000"));
         return true;
       },
       true, "", 1000},  // three click units of the default double-click time
  };
  constexpr DWORD kSlackMs = 1500;
  for (const Row& row : rows) {
    ASSERT_NO_FATAL_FAILURE(Start());
    if (!row.before.empty()) {
      ASSERT_TRUE(Find(row.before)) << row.what;
    }
    Windows windows;
    if (row.covered) {
      ASSERT_TRUE(coverClass.Registered());
      HWND cover = windows.TopLevel(coverClass.Name(), "Cover", {50, 50, 550, 450});
      SetWindowPos(cover, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ASSERT_NO_FATAL_FAILURE(Freeze());
    engine.DebugWindow.Clear();
    bool succeeded = !row.succeeds;
    const DWORD elapsed = Timed(row.boundMs + 5000, [&] { succeeded = row.command(); });
    EXPECT_LE(elapsed, row.boundMs + kSlackMs) << row.what;
    EXPECT_EQ(succeeded, row.succeeds) << row.what;
    EXPECT_EQ(Problem_Lines(), row.info.empty() ? std::vector<std::string>{} : std::vector<std::string>{row.info})
        << row.what;
    EXPECT_FALSE(engine.state.StopRunning) << row.what;
    End();
  }
}

// A program busy for six seconds (as a setup copying files on its window's
// thread), which then sends to one of our windows, taking no message until
// we answer: it answers well within the bound, so it is responsive, and
// waiting for it must not stop us answering.
TEST(ResponsivenessTest, AProgramThatAnswersWithinTheBoundIsResponsive) {
  Win32Desktop desktop;
  RecordingClass ourClass("VelmoraOurs" + ProcessTag());
  Windows windows;
  const HWND ours = windows.TopLevel(ourClass.Name(), "Ours", {0, 0, 20, 20});
  const ScopedHandle ready(CreateEventA(nullptr, TRUE, FALSE, nullptr)), wake(CreateEventA(nullptr, TRUE, FALSE, nullptr));
  HWND busy = nullptr;
  DWORD busyThread = 0;
  std::thread program([&] {
    busy = CreateWindowExA(0, "STATIC", "Busy", WS_POPUP | WS_VISIBLE, 300, 300, 100, 50, nullptr, nullptr, nullptr, nullptr);
    busyThread = GetCurrentThreadId();
    SetEvent(ready.get());
    WaitForSingleObject(wake.get(), 30000);
    DWORD_PTR result = 0;
    SendMessageTimeoutA(ours, WM_NULL, 0, 0, SMTO_BLOCK, 20000, &result);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    DestroyWindow(busy);
  });
  ASSERT_EQ(WaitForSingleObject(ready.get(), 5000), WAIT_OBJECT_0);
  Sleep(5500);  // past the five seconds after which the system calls a thread hung
  std::thread waker([&] {
    Sleep(300);
    SetEvent(wake.get());
  });
  const DWORD start = GetTickCount();
  EXPECT_TRUE(desktop.WaitUntilResponsive(Handle(busy), 10000));
  EXPECT_LT(GetTickCount() - start, 3000u);
  waker.join();
  SetEvent(wake.get());
  PostThreadMessageA(busyThread, WM_QUIT, 0, 0);
  // Answers what the program sends to us until it has ended.
  const ScopedHandle thread(OpenThread(SYNCHRONIZE, FALSE, busyThread));
  Pump_Until([&] { return !thread || WaitForSingleObject(thread.get(), 0) == WAIT_OBJECT_0; }, 10000);
  program.join();
}

}  // namespace
}  // namespace velmora::test
