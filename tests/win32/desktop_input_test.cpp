// Keys and clicks through SendInput to windows of this thread: each row checks
// what the windows received after a bounded pump.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "desktop_fixture.h"

namespace velmora::test {
namespace {

std::wstring Text_Of(HWND window) {
  wchar_t text[512] = {};
  GetWindowTextW(window, text, 512);
  return text;
}

// Shift, Ctrl and Alt as the system's input state has them.
std::string Held_Modifiers() {
  std::string held;
  for (auto [key, name] : {std::pair{VK_SHIFT, "Shift"}, {VK_CONTROL, "Ctrl"}, {VK_MENU, "Alt"}})
    if (GetAsyncKeyState(key) & 0x8000) held += std::string(name) + " ";
  return held;
}

// The clicks this thread's buttons report to their parent, by control identifier.
std::map<int, int> clicks;
LRESULT CALLBACK Count_Clicks(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_COMMAND && HIWORD(wParam) == BN_CLICKED && lParam != 0) ++clicks[LOWORD(wParam)];
  return DefWindowProcA(window, message, wParam, lParam);
}
constexpr char kCounting[] = "VelmoraClickCounter";

// One window: two edits and two buttons.
class DesktopInputTest : public DesktopEngineTest {
 protected:
  const std::string title = "Velmora Input Test " + ProcessTag();
  Windows windows;
  HWND main = nullptr;

  void SetUp() override {
    DesktopEngineTest::SetUp();
    WNDCLASSA counting{};
    counting.lpfnWndProc = Count_Clicks, counting.hInstance = GetModuleHandleA(nullptr);
    counting.lpszClassName = kCounting;
    RegisterClassA(&counting);  // by the first test; later ones find it registered
    main = windows.TopLevel(kCounting, title, {100, 100, 700, 420});
    ASSERT_NE(main, nullptr);
    ASSERT_TRUE(windows.Child(main, "Button", "< Back", 11, {20, 20, 120, 50}) &&
                windows.Child(main, "Button", "Next >", 12, {140, 20, 240, 50}));
    ASSERT_TRUE(windows.Child(main, "Edit", "", 1001, {340, 10, 590, 32}, WS_BORDER | ES_AUTOHSCROLL));
    ASSERT_TRUE(windows.Child(main, "Edit", "", 1002, {340, 40, 590, 200},
                              WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN));
    Pump_For(50);
  }
};

TEST_F(DesktopInputTest, AnEditReceivesExactlyWhatWasTyped) {
  // The edit, the keys, its text. Shift where a character needs it (or has it held), extended keys, Enter,
  // characters that no key of the layout types, and the focus moving back.
  const std::tuple<int, std::string, std::wstring> rows[] = {
      {1001, "+a+!b", L"A!b"},
      {1001, "abc{HOME}{DEL}x{END}+{LEFT}q", L"xbq"},
      {1001, "caf\xE9\xC0\xDF\xFC\x80", L"caf\u00E9\u00C0\u00DF\u00FC\u20AC"},  // Windows-1252
      {1002, "a~b", L"a\r\nb"},
      {1001, "z", L"z"},
  };
  int target = 0;
  for (const auto& [id, keys, expected] : rows) {
    HWND edit = GetDlgItem(main, id);
    SetWindowTextA(edit, "");
    if (id != target) {
      engine.DebugWindow.Clear();
      ASSERT_TRUE(Find(Find_Line(title, kCounting, "", "Edit", id))) << id;
      ASSERT_EQ(automation.Target().TargetList.at(1), Handle(edit));
      target = id;
    }
    engine.DebugWindow.Clear();
    EXPECT_TRUE(Send(keys)) << keys;
    Pump_Until([&] { return Text_Of(edit) == expected; }, 1000);
    EXPECT_EQ(Text_Of(edit), expected) << keys;
    EXPECT_EQ(Held_Modifiers(), "") << "left down after " << keys;
    EXPECT_EQ(GetForegroundWindow(), main) << keys;
    EXPECT_EQ(GetFocus(), edit) << keys;
    EXPECT_TRUE(Problem_Lines().empty()) << keys << ": " << testing::PrintToString(Problem_Lines());
  }
}

TEST_F(DesktopInputTest, SendButtonsClicksTheButtonThatFindWindowChose) {
  const std::tuple<const char*, int, const char*, std::map<int, int>> rows[] = {
      {"Next >", 12, "sl", {{12, 1}}},
      {"Next >", 12, "sr", {}},  // a right click does not press a button
      {"Next >", 12, "dl", {{12, 2}}},
      {"< Back", 11, "sl", {{11, 1}}},
  };
  std::string target;
  for (const auto& [text, id, code, expected] : rows) {
    if (text != target) {
      ASSERT_TRUE(Find(Find_Line(title, kCounting, text, "Button", id))) << text;
      target = text;
    }
    engine.DebugWindow.Clear();
    clicks.clear();
    EXPECT_TRUE(Click(code)) << code;
    Pump_Until([&] { return clicks == expected; }, 2000);
    EXPECT_EQ(clicks, expected) << text << " " << code;
    POINT cursor;
    GetCursorPos(&cursor);
    EXPECT_EQ(WindowFromPoint(cursor), GetDlgItem(main, id)) << "the pointer rests on the button, " << code;
    EXPECT_TRUE(Problem_Lines().empty()) << testing::PrintToString(Problem_Lines());
  }
}

}  // namespace
}  // namespace velmora::test
