// Key strings read into key events, and keys and clicks that reach the window the
// script found or are not sent: the decisions on a simulated desktop where other
// programs cover the target or take the foreground.
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "engine_fixture.h"
#include "key_notation.h"

namespace velmora::test {
namespace {

using Inputs = std::vector<KeyInput>;

// Virtual-key codes as Windows numbers them.
constexpr std::uint16_t kEnter = 0x0D, kTab = 0x09, kShift = 0x10, kCtrl = 0x11, kAlt = 0x12, kDown = 0x28;

void Append(Inputs& inputs, const Inputs& more) { inputs.insert(inputs.end(), more.begin(), more.end()); }
Inputs Down(std::uint16_t key) { return {{false, key, 0, false}}; }
Inputs Up(std::uint16_t key) { return {{false, key, 0, true}}; }
Inputs Press(std::uint16_t key) { return {{false, key, 0, false}, {false, key, 0, true}}; }
Inputs Type(std::u32string_view text) {
  Inputs inputs;
  for (char32_t c : text) Append(inputs, {{true, 0, c, false}, {true, 0, c, true}});
  return inputs;
}
Inputs Times(int count, const Inputs& once) {
  Inputs inputs;
  for (int time = 0; time < count; ++time) Append(inputs, once);
  return inputs;
}
// Seq(Down(kShift), Type(U"a"), Up(kShift)): the pieces in order.
template <typename... Pieces>
Inputs Seq(const Pieces&... pieces) {
  Inputs inputs;
  (Append(inputs, pieces), ...);
  return inputs;
}
Inputs Presses(std::initializer_list<std::uint16_t> keys) {
  Inputs inputs;
  for (std::uint16_t key : keys) Append(inputs, Press(key));
  return inputs;
}

TEST(KeyNotationTest, WellFormedStringsGiveTheirKeyEvents) {
  const std::pair<std::string, Inputs> rows[] = {
      {"C:\\Setup [x] 1!", Type(U"C:\\Setup [x] 1!")},
      {"a~\t\r\n\n\rb", Seq(Type(U"a"), Press(kEnter), Press(kTab), Times(3, Press(kEnter)), Type(U"b"))},
      // Names in any case, aliases, and the ends of the function keys.
      {"{ENTER}{esc}{Escape}{bksp}{DEL}{ins}{PgUp}{pgdn}{BREAK}{prtsc}{Help}{divide}{F1}{f16}{ScrollLock}",
       Presses({0x0D, 0x1B, 0x1B, 0x08, 0x2E, 0x2D, 0x21, 0x22, 0x03, 0x2C, 0x2F, 0x6F, 0x70, 0x7F, 0x91})},
      {"{down 4}{F12 2}{LEFT 007}", Seq(Times(4, Press(kDown)), Times(2, Press(0x7B)), Times(7, Press(0x25)))},
      {"{x 9999}", Times(9999, Type(U"x"))},
      {"+a^~%{F4}", Seq(Down(kShift), Type(U"a"), Up(kShift), Down(kCtrl), Press(kEnter), Up(kCtrl), Down(kAlt),
                        Press(0x73), Up(kAlt))},
      {"+ab^{x 3}", Seq(Down(kShift), Type(U"a"), Up(kShift), Type(U"b"), Down(kCtrl), Type(U"xxx"), Up(kCtrl))},
      {"+(a^b)c", Seq(Down(kShift), Type(U"a"), Down(kCtrl), Type(U"b"), Up(kCtrl), Up(kShift), Type(U"c"))},
      // Bytes are Windows-1252: the 0x80 row maps, the rest is Latin-1.
      {"\x80\x8A\x92\x97\x9F\xA0\xE9\xFF", Type(U"\u20AC\u0160\u2019\u2014\u0178\u00A0\u00E9\u00FF")}};
  for (const auto& [keys, expected] : rows) {
    const KeyParseResult result = Parse_Key_String(keys);
    EXPECT_TRUE(result.ok) << '"' << keys << "\": " << result.error;
    EXPECT_EQ(result.errorPosition, 0u) << '"' << keys << '"';
    EXPECT_EQ(result.inputs, expected) << '"' << keys << '"';
  }
}

TEST(KeyNotationTest, MalformedStringsSayWhatAndWhereAndSendNothing) {
  std::string million;  // 999,900 events
  for (int repeat = 0; repeat < 50; ++repeat) million += "{x 9999}";
  EXPECT_EQ(Parse_Key_String(million + std::string(50, 'a')).inputs.size(), 1000000u);
  // The keys and the position of the fault; the messages are in golden/automation.cases.
  const auto Refused_At = [](const std::string& keys, std::size_t position) {
    const KeyParseResult result = Parse_Key_String(keys);
    EXPECT_FALSE(result.ok || !result.inputs.empty()) << '"' << keys.substr(0, 20) << '"';
    EXPECT_EQ(result.errorPosition, position) << '"' << keys.substr(0, 20) << "\": " << result.error;
  };
  const std::pair<const char*, std::size_t> rows[] = {{"{ENTER", 1},  {"{ENTER}}", 8},    {"+(ab", 2}, {"abc{Foo}", 4},
                                                      {"{TAB x}", 1}, {"{TAB 10000}", 1}, {"ab^", 3},  {"{}a}", 1},
                                                      {"a+()", 3},    {"x\x81", 2}};
  for (const auto& [keys, position] : rows) Refused_At(keys, position);
  Refused_At(million + std::string(51, 'a'), 451);
  Refused_At(million + "+{x 9999}", 402);
}

class InputGuardTest : public AutomationTest {
 protected:
  WindowHandle dialog = 0, next = 0, folder = 0, other = 0, cancel = 0;
  void SetUp() override {
    AutomationTest::SetUp();
    Arrange_Windows();
  }
  // Each row its own windows: the last row's vanish, and no program meddles.
  void Next_Row() {
    desktop.At(dialog).vanishesAt = desktop.At(other).vanishesAt = host.clockMs;
    desktop.foregroundRefused = false;
    desktop.afterInput = nullptr;
    desktop.whileKeysQueued = desktop.beforeKeys = nullptr;
    host.onDoEvents = nullptr;
    Arrange_Windows();
  }
  void Arrange_Windows() {
    dialog = desktop.Add(1, "Setup", "#32770", 0, {100, 100, 500, 400});
    next = desktop.Add(dialog, "Next >", "Button", 12, {300, 350, 400, 382});
    folder = desktop.Add(dialog, "Folder", "Edit", 1001, {110, 120, 310, 141});
    other = desktop.Add(1, "Other Setup", "#32770", 0, {600, 500, 900, 700});
    cancel = desktop.Add(other, "Cancel", "Button", 2, {610, 510, 700, 540});
  }
  // Puts the other program's window over the point the click aims at.
  void Cover_Next(bool topmost) {
    desktop.At(other).rect = {250, 300, 550, 500};
    desktop.At(cancel).rect = {300, 340, 420, 390};
    desktop.At(other).topmost = topmost;
    desktop.TakeForeground(cancel);
  }
  bool Run(const std::string& findLine, const std::string& line, const std::function<void()>& arrange) {
    EXPECT_TRUE(Find(findLine));
    arrange();
    engine.DebugWindow.Clear(), desktop.mouseEvents.clear(), desktop.keys.clear(), desktop.keysSentTo.clear();
    return line.rfind("sendkeys", 0) == 0 ? Send(line.substr(11, line.size() - 12)) : Click(line.substr(13));
  }
  std::vector<std::string> Info_Lines() const {
    std::vector<std::string> lines;
    for (const std::string& l : DebugLines())
      if (l.rfind("Info:", 0) == 0) lines.push_back(l);
    return lines;
  }
};

constexpr char kFindNext[] = R"(findwindow: 2, "Setup", "#32770", 0, 0.5, 0.9, "Next >", "Button", 12, 0.5, 0.5, 0.05)";
constexpr char kFindFolder[] = R"(findwindow: 2, "Setup", "#32770", 0, 0, 0, "Folder", "Edit", 1001, 0.5, 0.5, 0.05)";

TEST_F(InputGuardTest, ClicksReachTheTargetOrAreNotSent) {
  struct Row {
    const char* what;
    std::function<void()> arrange;
    bool succeeds;
    std::size_t mouseEvents;  // the first move, the move to the point, the press and the release
    std::string info;
  };
  const Row rows[] = {
      {"another program's window over the point is put behind", [&] { Cover_Next(false); }, true, 4, ""},
      {"a window kept on top over the point stops the click", [&] { Cover_Next(true); }, false, 1,
       R"(Info: The click point is covered by "Cancel" (Button) of "Other Setup"; no click was sent.)"},
      {"a window of the target's own program over it (a tooltip) is no cover",
       [&] {
         Cover_Next(true);
         desktop.At(other).program = static_cast<std::uint32_t>(dialog);
       },
       true, 4, ""},
      {"a sibling control covering the target is",
       [&] {
         desktop.Add(dialog, "Banner", "Static", 5, {290, 340, 410, 390});
         desktop.SetParent(next, dialog);  // the last child lies below its siblings
       },
       false, 1, R"(Info: The click point is covered by "Banner" (Static) of "Setup"; no click was sent.)"},
      {"a target that keeps growing downwards", [&] { host.onDoEvents = [&] { ++desktop.At(next).rect.bottom; }; },
       false, 1, "Info: The window did not stand still within 10 seconds; no click was sent."},
      {"the foreground taken during the press: released on the target, and failed",
       [&] {
         desktop.afterInput = [&] {
           if (desktop.mouseEvents.size() == 3) desktop.TakeForeground(cancel);
         };
       },
       false, 4, R"(Info: "Other Setup" (#32770) took the foreground during the click; the click was not completed.)"},
  };
  // The fast pace waits less, never less carefully.
  for (const Pace pace : {Pace::Default, Pace::Fast})
    for (const Row& row : rows) {
      SCOPED_TRACE(row.what + std::string(pace == Pace::Fast ? ", fast" : ""));
      engine.state.RunPace = pace;
      const long long start = host.clockMs;
      EXPECT_EQ(Run(kFindNext, "sendbuttons: sl", row.arrange), row.succeeds);
      EXPECT_EQ(desktop.mouseEvents.size(), row.mouseEvents);
      EXPECT_EQ(Info_Lines(), row.info.empty() ? Lines{} : Lines{row.info});
      EXPECT_LE(host.clockMs - start, 1000 + 10 + 10000 + 285 + 999);  // findwindow, the budget, the click
      Next_Row();
    }
}

TEST_F(InputGuardTest, EveryKeyReachesTheTargetOrTheRestIsNotSent) {
  const std::string keys = "ab+(cd)e";  // four groups: a, b, Shift with c and d, e
  struct Row {
    const char* what;
    std::function<void()> arrange;
    bool succeeds;
    std::size_t groupsSent;
    std::string info;
    std::size_t groupsAstray = 0;  // queued as the keyboard went elsewhere
    std::string fastInfo = "";     // when the fast pace says otherwise: it cannot tell which keys were read
  };
  const auto steal_after_first_group = [&](bool keep) {
    desktop.afterInput = [&, keep] {
      if (desktop.keysSentTo.size() != 1) return;
      desktop.TakeForeground(cancel);
      desktop.foregroundRefused = keep;
    };
  };
  const auto steal_before_second_group = [&](bool keep) {
    desktop.beforeKeys = [&, keep, once = true]() mutable {
      if (!once || desktop.keysSentTo.size() != 1) return;
      once = false;
      desktop.TakeForeground(cancel);
      desktop.foregroundRefused = keep;
    };
  };
  const auto take_after_last_group = [&](bool closes) {
    desktop.afterInput = [&, closes] {
      if (desktop.keysSentTo.size() != 4) return;
      if (closes) desktop.At(dialog).vanishesAt = host.clockMs;
      desktop.TakeForeground(cancel);
    };
  };
  const Row rows[] = {
      {"a quiet desktop", [] {}, true, 4, ""},
      {"another control of the target's dialog keeps the focus: none is sent",
       [&] {
         desktop.TakeForeground(next);
         desktop.foregroundRefused = true;
       },
       false, 0, R"(Info: The keys would go to "Next >" (Button) of "Setup"; no keys were sent.)"},
      {"the keyboard taken between groups: the group read meanwhile is in doubt",
       [&] { steal_after_first_group(false); }, false, 1,
       R"(Info: "Cancel" (Button) of "Other Setup" took the keyboard focus while keys were sent; 5 of 5 keys may not have arrived.)"},
      // The system puts the focus on a reactivated window itself, not on its control.
      {"the focus found on the dialog itself between groups",
       [&] { desktop.afterInput = [&] { desktop.focus = desktop.keysSentTo.size() == 1 ? dialog : desktop.focus; }; },
       false, 1,
       R"(Info: "Setup" (#32770) took the keyboard focus while keys were sent; 5 of 5 keys may not have arrived.)"},
      {"the keyboard taken as a group goes: it goes again once taken back", [&] { steal_before_second_group(false); },
       true, 4, ""},
      {"the keyboard taken for good as a group goes: the rest is not sent", [&] { steal_before_second_group(true); },
       false, 1, R"(Info: "Cancel" (Button) of "Other Setup" took the keyboard focus; 4 of 5 keys were not sent.)"},
      {"the keyboard taken while the second group is queued: it is not trusted to have arrived",
       [&] {
         desktop.whileKeysQueued = [&] {
           if (desktop.keysSentTo.size() == 1) desktop.TakeForeground(cancel);
         };
       },
       false, 1,
       R"(Info: "Cancel" (Button) of "Other Setup" took the keyboard focus while keys were sent; 4 of 5 keys may not have arrived.)",
       1},
      {"the keyboard taken before the target read the last group", [&] { take_after_last_group(false); }, false, 4,
       R"(Info: "Cancel" (Button) of "Other Setup" took the keyboard focus while keys were sent; 1 of 5 keys may not have arrived.)",
       0,
       R"(Info: "Cancel" (Button) of "Other Setup" took the keyboard focus while keys were sent; 5 of 5 keys may not have arrived.)"},
      {"a target that closed on its keys took them", [&] { take_after_last_group(true); }, true, 4, ""},
  };
  for (const Pace pace : {Pace::Default, Pace::Fast})
    for (const Row& row : rows) {
      SCOPED_TRACE(row.what + std::string(pace == Pace::Fast ? ", fast" : ""));
      engine.state.RunPace = pace;
      EXPECT_EQ(Run(kFindFolder, "sendkeys: \"" + keys + "\"", row.arrange), row.succeeds);
      std::vector<WindowHandle> sentTo(row.groupsSent, folder);
      sentTo.insert(sentTo.end(), row.groupsAstray, cancel);
      EXPECT_EQ(desktop.keysSentTo, sentTo);
      const auto groups = Key_Groups(Parse_Key_String(keys).inputs);
      std::vector<KeyInput> expected;
      for (std::size_t i = 0; i < row.groupsSent + row.groupsAstray; ++i)
        expected.insert(expected.end(), groups[i].begin(), groups[i].end());
      EXPECT_EQ(desktop.keys, expected);
      const std::string info = pace == Pace::Fast && !row.fastInfo.empty() ? row.fastInfo : row.info;
      EXPECT_EQ(Info_Lines(), info.empty() ? Lines{} : Lines{info});
      Next_Row();
    }
}

}  // namespace
}  // namespace velmora::test
