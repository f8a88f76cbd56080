// Keys and mouse clicks through the real Win32 desktop: the commands run on
// an interactive engine against windows of this thread, the input goes
// through SendInput, and each row checks what the windows received after a
// bounded pump.
#include <gtest/gtest.h>

#include <string>
#include <vector>

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

// One window: two edits for the keys, two buttons and a pad of our own
// class, which records its mouse button messages, for the mouse.
class DesktopInputTest : public DesktopEngineTest {
 protected:
  const std::string tag = ProcessTag();
  const std::string title = "Velmora Input Test " + tag;
  RecordingClass windowClass{"VelmoraInput" + tag};
  Windows windows;
  WindowRecord parent, pad;
  HWND main = nullptr, padWindow = nullptr;

  void SetUp() override {
    DesktopEngineTest::SetUp();
    ASSERT_TRUE(windowClass.Registered());
    main = windows.TopLevel(windowClass.Name(), title, {100, 100, 700, 420}, &parent);
    ASSERT_NE(main, nullptr);
    padWindow = windows.Child(main, windowClass.Name(), "Pad", 20, {20, 80, 320, 280}, 0, &pad);
    ASSERT_TRUE(windows.Child(main, "Button", "< Back", 11, {20, 20, 120, 50}) &&
                windows.Child(main, "Button", "Next >", 12, {140, 20, 240, 50}) && padWindow);
    ASSERT_TRUE(windows.Child(main, "Edit", "", 1001, {340, 10, 590, 32}, WS_BORDER | ES_AUTOHSCROLL));
    ASSERT_TRUE(windows.Child(main, "Edit", "", 1002, {340, 40, 590, 200},
                              WS_BORDER | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN));
    Pump_For(50);
  }
  void Use_Mouse(const std::string& code, long x, long y) {
    automation.UseMouse_Command(engine, true,
                                Parsed("usemouse: " + code + ", " + std::to_string(x) + ", " + std::to_string(y)));
  }
  // The pad's client point under a screen point.
  POINT On_Pad(POINT screen) const {
    ScreenToClient(padWindow, &screen);
    return screen;
  }
};

TEST_F(DesktopInputTest, AnEditReceivesExactlyWhatWasTyped) {
  // The control identifier of the target edit, the keys, and the edit's text.
  // clang-format off
  const std::tuple<int, std::string, std::wstring> rows[] = {
      {1001, "abc", L"abc"},
      {1001, "ABC!@#", L"ABC!@#"},                               // characters that need Shift
      {1001, "a1-=,./;'", L"a1-=,./;'"},                         // and some that need none
      {1001, "{{}x{}}", L"{x}"},                                 // braces typed literally
      {1001, "{+}{^}{%}{~}{(}{)}", L"+^%~()"},                   // the notation's own characters
      {1001, "{x 5}", L"xxxxx"},                                 // a repeat count
      {1001, "ab{BACKSPACE 2}c", L"c"},
      {1001, "+(abc)", L"ABC"},                                  // Shift held for a group
      {1001, "+a+!b", L"A!b"},                                   // a character that needs the Shift already held
      {1001, "abc{HOME}{DEL}", L"bc"},
      {1001, "xyz{HOME}+{END}q", L"q"},                          // Shift with an extended key selects
      {1001, "abc{LEFT 3}{Right}x{End}y", L"axbcy"},
      {1001, "a~b", L"ab"},                                      // Enter does nothing in a single-line edit
      {1001, "caf\xE9", L"caf\u00E9"},                           // Windows-1252 é: no key of the layout types it
      {1001, "\xC0\xDF\xFC\x80", L"\u00C0\u00DF\u00FC\u20AC"},   // À ß ü €
      {1002, "a~b", L"a\r\nb"},
      {1002, "one{Enter}two", L"one\r\ntwo"},
      {1001, "z", L"z"},                                         // the focus moves back to the chosen edit
  };
  // clang-format on
  int target = 0;
  for (const auto& [id, keys, expected] : rows) {
    HWND edit = GetDlgItem(main, id);
    SetWindowTextA(edit, "");
    if (id != target) {
      engine.DebugWindow.Clear();
      ASSERT_TRUE(Find(Find_Line(title, windowClass.Name(), "", "Edit", id))) << id;
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
  // The button's text and identifier, the click, and BN_CLICKED by identifier.
  const std::tuple<const char*, int, const char*, std::map<int, int>> rows[] = {
      {"Next >", 12, "sl", {{12, 1}}},
      {"Next >", 12, "sr", {}},  // a right click does not press a button
      {"Next >", 12, "dl", {{12, 2}}},
      {"< Back", 11, "sl", {{11, 1}}},
  };
  std::string target;
  for (const auto& [text, id, code, clicks] : rows) {
    if (text != target) {
      ASSERT_TRUE(Find(Find_Line(title, windowClass.Name(), text, "Button", id))) << text;
      target = text;
    }
    engine.DebugWindow.Clear();
    parent.clicksById.clear();
    EXPECT_TRUE(Click(code)) << code;
    Pump_Until([&] { return parent.clicksById == clicks; }, 500);
    EXPECT_EQ(parent.clicksById, clicks) << text << " " << code;
    POINT cursor;
    GetCursorPos(&cursor);
    EXPECT_EQ(WindowFromPoint(cursor), GetDlgItem(main, id)) << "the pointer rests on the button, " << code;
    EXPECT_TRUE(Problem_Lines().empty()) << testing::PrintToString(Problem_Lines());
  }
}

TEST_F(DesktopInputTest, UseMouseMovesToTheAbsolutePositionAndClicksThere) {
  const long width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
  // The smallest position of the 0..65535 range that the system maps to the pixel.
  auto Absolute = [](long pixel, long extent) { return (pixel * 65536 + extent - 1) / extent; };
  RECT padRect;
  GetWindowRect(padWindow, &padRect);
  const POINT inPad{padRect.left + 37, padRect.top + 51};
  const POINT inPad2{padRect.right - 20, padRect.bottom - 9};
  struct Row {
    const char* code;
    long x, y;      // as the script gives them
    POINT pixel;    // where the pointer must be
    UINT down, up;  // the messages the pad must get; 0: none
  };
  const Row rows[] = {
      {"nc", 0, 0, {0, 0}, 0, 0},
      {"nc", 65535, 65535, {width - 1, height - 1}, 0, 0},
      {"sl", Absolute(inPad.x, width), Absolute(inPad.y, height), inPad, WM_LBUTTONDOWN, WM_LBUTTONUP},
      {"sr", Absolute(inPad2.x, width), Absolute(inPad2.y, height), inPad2, WM_RBUTTONDOWN, WM_RBUTTONUP},
      {"sm", Absolute(inPad.x, width), Absolute(inPad.y, height), inPad, WM_MBUTTONDOWN, WM_MBUTTONUP},
      {"sc", Absolute(inPad2.x, width), Absolute(inPad2.y, height), inPad2, 0, 0},
  };
  for (const Row& row : rows) {
    pad.buttons.clear();
    Use_Mouse(row.code, row.x, row.y);
    const std::size_t expected = row.down ? 2 : 0;
    Pump_Until([&] { return pad.buttons.size() >= expected && expected > 0; }, 300);
    POINT cursor;
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, row.pixel.x) << row.code << " " << row.x;
    EXPECT_EQ(cursor.y, row.pixel.y) << row.code << " " << row.y;
    ASSERT_EQ(pad.buttons.size(), expected) << row.code;
    if (!expected) continue;
    const POINT client = On_Pad(row.pixel);
    EXPECT_EQ(pad.buttons[0].message, row.down) << row.code;
    EXPECT_EQ(pad.buttons[1].message, row.up) << row.code;
    for (const WindowRecord::Button& b : pad.buttons) {
      EXPECT_EQ(b.client.x, client.x) << row.code;
      EXPECT_EQ(b.client.y, client.y) << row.code;
    }
  }
  EXPECT_TRUE(engine.DebugWindow.Items().empty());
}

}  // namespace
}  // namespace velmora::test
