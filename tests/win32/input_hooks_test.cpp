// The recorder's ears: the low-level hooks hear another program's clicks and
// keys with the characters they type, and never this program's own input.
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>
#include <vector>

#include "desktop_fixture.h"
#include "win32_input_hooks.h"

namespace velmora::test {
namespace {

// What the observer heard, as text: "L 300,200", "key 41 0041 shift", "lost: why".
class Heard : public InputObserver {
 public:
  std::vector<std::string> lines;
  DWORD slowMilliseconds = 0;  // how long each press keeps the observer
  void Button_Down(const ObservedClick& click) override {
    Sleep(slowMilliseconds);
    lines.push_back(std::string(click.button == PressedButton::Right ? "R " : "L ") + std::to_string(click.point.x) +
                    "," + std::to_string(click.point.y));
  }
  void Key_Down(const ObservedKey& key) override {
    char text[64];
    std::snprintf(text, sizeof text, "key %02X %04X%s%s%s", key.virtualKey, static_cast<unsigned>(key.character),
                  key.shift ? " shift" : "", key.control ? " ctrl" : "", key.alt ? " alt" : "");
    lines.push_back(text);
  }
  void Observing_Lost(const std::string& reason) override { lines.push_back("lost: " + reason); }
};

// A key, or with a unit a Unicode character as such.
INPUT Key(WORD vk, bool up, wchar_t unit = 0) {
  INPUT input{};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = vk;
  input.ki.wScan = unit;
  input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0) | (unit ? KEYEVENTF_UNICODE : 0);
  return input;
}
std::vector<INPUT> Press(WORD vk, std::vector<WORD> held = {}) {
  std::vector<INPUT> inputs;
  for (WORD modifier : held) inputs.push_back(Key(modifier, false));
  inputs.push_back(Key(vk, false));
  inputs.push_back(Key(vk, true));
  for (auto it = held.rbegin(); it != held.rend(); ++it) inputs.push_back(Key(*it, true));
  return inputs;
}
std::vector<INPUT> Mouse_Click(long x, long y, DWORD down, DWORD up) {
  std::vector<INPUT> inputs(3);
  for (INPUT& input : inputs) input.type = INPUT_MOUSE;
  inputs[0].mi.dx = x * 65536 / GetSystemMetrics(SM_CXSCREEN);
  inputs[0].mi.dy = y * 65536 / GetSystemMetrics(SM_CYSCREEN);
  inputs[0].mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
  inputs[1].mi.dwFlags = down;
  inputs[2].mi.dwFlags = up;
  return inputs;
}

class InputHooksTest : public DesktopEngineTest {
 protected:
  Windows windows;
  Heard heard;

  void SetUp() override {
    DesktopEngineTest::SetUp();
    // The keys land in a window of the test's own, not in whatever else is on the desktop.
    HWND field = windows.TopLevel("Edit", "Velmora Hook Test " + ProcessTag(), {40, 40, 240, 70});
    ASSERT_NE(field, nullptr);
    SetForegroundWindow(field);
    SetFocus(field);
    ASSERT_TRUE(desktop.ObserveInput(&heard));
  }
  void TearDown() override { desktop.ObserveInput(nullptr); }

  // Sent from another thread, as another program's input comes: the hooks are
  // called on this thread while it pumps.
  void Send_As_Another_Program(std::vector<INPUT> inputs) {
    std::atomic<bool> sent = false;
    std::thread sender([&] {
      SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
      sent = true;
    });
    Pump_Until([&] { return sent.load(); }, 3000);
    sender.join();
    Pump_For(100);  // hook calls still queued for this thread
  }
};

TEST_F(InputHooksTest, AnotherProgramsClicksAndKeysAreHeardWithTheirCharacters) {
  const std::pair<std::vector<INPUT>, std::vector<std::string>> rows[] = {
      {Mouse_Click(300, 200, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP), {"L 300,200"}},
      {Mouse_Click(310, 210, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP), {"R 310,210"}},
      {Mouse_Click(310, 210, MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP), {}},
      {Press('A', {VK_SHIFT}), {"key 41 0041 shift"}},
      {Press(VK_OEM_1, {VK_LSHIFT}), {"key BA 003A shift"}},
      {Press('A', {VK_CONTROL}), {"key 41 0061 ctrl"}},
      {Press(VK_RETURN), {"key 0D 0000"}},
      {Press(VK_END, {VK_SHIFT}), {"key 23 0000 shift"}},
      {{Key(0, false, 0xE9), Key(0, true, 0xE9)}, {"key 00 00E9"}},
  };
  for (const auto& [inputs, expected] : rows) {
    SCOPED_TRACE(expected.empty() ? "middle button" : expected.front());
    heard.lines.clear();
    Send_As_Another_Program(inputs);
    EXPECT_EQ(heard.lines, expected);
  }
}

TEST_F(InputHooksTest, InputThisProgramSendsItselfIsNotHeard) {
  desktop.MouseEvent(MOUSEEVENTF_RIGHTDOWN, 0, 0);
  desktop.MouseEvent(MOUSEEVENTF_RIGHTUP, 0, 0);
  desktop.SendKeyInputs({{true, 0, U'x', false}, {true, 0, U'x', true}, {false, VK_TAB, 0, false}}, 0);
  Pump_For(200);
  EXPECT_EQ(heard.lines, std::vector<std::string>{});
  desktop.ObserveInput(nullptr);
  Send_As_Another_Program(Press('B'));
  EXPECT_EQ(heard.lines, std::vector<std::string>{});  // stopped: nothing more
}

// Windows silently takes away a hook that answers too slowly: the observer is
// told, once the hook procedure has returned, and hears nothing more.
TEST_F(InputHooksTest, AnObserverTooSlowForTheSystemIsToldItLostTheHooks) {
  heard.slowMilliseconds = 250;
  Send_As_Another_Program(Mouse_Click(300, 200, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP));
  Pump_Until([&] { return heard.lines.size() >= 2; }, 2000);
  ASSERT_EQ(heard.lines.size(), 2u);
  EXPECT_EQ(heard.lines[1].rfind("lost: the system may have removed the input hooks: one event took ", 0), 0u)
      << heard.lines[1];
  heard.slowMilliseconds = 0;
  Send_As_Another_Program(Press('B'));
  EXPECT_EQ(heard.lines.size(), 2u);
}

}  // namespace
}  // namespace velmora::test
