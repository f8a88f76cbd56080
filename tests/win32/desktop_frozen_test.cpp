// The window commands against a program whose window thread stops taking
// messages (frozen.exe): each returns within its bound and says so in the log.
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
    const PROCESS_INFORMATION started = Start_Beside("frozen.exe", "");
    process.reset(started.hProcess);
    ASSERT_TRUE(process);
    ASSERT_TRUE(Pump_Until(
        [&] {
          DWORD owner = 0;
          GetWindowThreadProcessId(main = ::FindWindowA("VelmoraFrozen", kRunning), &owner);
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
  void End() {
    if (!process) return;
    TerminateProcess(process.get(), 9);
    WaitForSingleObject(process.get(), 5000);
    process.reset();
  }
};

TEST_F(FrozenProgramTest, EveryCommandGivesUpWithinItsBound) {
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
      {"sendbuttons", button, true, [&] { return Click("sl"); }, false,
       "Info: The window did not respond within 10 seconds; no click was sent.", 10000},
      {"usemouse", "", false,
       [&] { return automation.UseMouse_Command(engine, true, Parsed("usemouse: sl, 25000, 20000")), true; }, true, "",
       1000},  // three click units of the default double-click time
  };
  constexpr DWORD kSlackMs = 1500;
  for (const Row& row : rows) {
    ASSERT_NO_FATAL_FAILURE(Start());
    ASSERT_TRUE(row.before.empty() || Find(row.before)) << row.what;
    Windows windows;
    if (row.covered) {
      HWND cover = windows.TopLevel("#32770", "Cover", {50, 50, 550, 450});
      SetWindowPos(cover, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ASSERT_NO_FATAL_FAILURE(Freeze());
    engine.DebugWindow.Clear();
    // A command that waits for the program instead runs into the test's time limit.
    const DWORD start = GetTickCount();
    const bool succeeded = row.command();
    EXPECT_LE(GetTickCount() - start, row.boundMs + kSlackMs) << row.what;
    EXPECT_EQ(succeeded, row.succeeds) << row.what;
    EXPECT_EQ(testing::PrintToString(Problem_Lines()), row.info.empty() ? "{}" : "{ \"" + row.info + "\" }")
        << row.what;
    EXPECT_FALSE(engine.state.StopRunning) << row.what;
    End();
  }
}

// What a waiting search hears of another program: its window appearing, and
// then, with the desktop quiet, nothing. (Wine reports no renames; the search's
// look every tenth finds those.)
TEST_F(FrozenProgramTest, AWaitForWindowChangesHearsAnotherProgramsWindowAppear) {
  const auto heard_within = [&](DWORD milliseconds) {
    for (const DWORD start = GetTickCount(); GetTickCount() - start < milliseconds;)
      if (desktop.WaitForWindowChange(100)) return true;
    return false;
  };
  desktop.WatchWindowChanges(true);
  const PROCESS_INFORMATION started = Start_Beside("frozen.exe", "");
  process.reset(started.hProcess);
  EXPECT_TRUE(heard_within(10000));
  int looks = 0;
  while (heard_within(500) && ++looks < 20) {
  }
  EXPECT_LT(looks, 20) << "the desktop never fell quiet";
  desktop.WatchWindowChanges(false);
}

// A program busy past the five seconds after which the system calls it hung,
// which then sends to our window: it answers within the bound, so it is
// responsive, and the wait must go on answering what it sends us.
TEST(ResponsivenessTest, AProgramThatAnswersWithinTheBoundIsResponsive) {
  Win32Desktop desktop;
  Windows windows;
  const HWND ours = windows.TopLevel("STATIC", "Ours", {0, 0, 20, 20});
  const ScopedHandle ready(CreateEventA(nullptr, TRUE, FALSE, nullptr)),
      wake(CreateEventA(nullptr, TRUE, FALSE, nullptr));
  HWND busy = nullptr;
  DWORD busyThread = 0;
  std::thread program([&] {
    busy = CreateWindowExA(0, "STATIC", "Busy", WS_POPUP | WS_VISIBLE, 300, 300, 100, 50, nullptr, nullptr, nullptr,
                           nullptr);
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
  std::thread waker([&] { Sleep(300), SetEvent(wake.get()); });
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
