// Recording in the editor: the user's clicks and keys in another program, as
// the desktop reports them, become findwindow, sendbuttons and sendkeys lines.
#include <algorithm>
#include <variant>

#include "editor_fixture.h"
#include "key_writing.h"
#include "sim_desktop.h"
#include "virtual_keys.h"

namespace velmora::test {
namespace {

using C = ControlId;
using namespace virtual_key;

// One press of the user's: a click (at a time), or a key.
struct Press {
  std::variant<ObservedClick, ObservedKey> what;
};
Press Click_At(long x, long y, std::uint32_t ms, PressedButton button = PressedButton::Left) {
  return {ObservedClick{button, {x, y}, ms}};
}
Press Key(std::uint16_t vk, char32_t character = 0, bool shift = false, bool control = false, bool alt = false) {
  return {ObservedKey{vk, character, shift, control, alt}};
}
std::vector<Press> Typed(const std::string& text) {
  std::vector<Press> presses;
  for (char letter : text) presses.push_back(Key(0x41, static_cast<unsigned char>(letter)));
  return presses;
}

class RecorderTest : public EditorTest {
 protected:
  SimDesktop desktop{host};
  WindowHandle dialog = desktop.Add(desktop.DesktopWindow(), "Setup", "#32770", 0, {100, 100, 500, 400});
  WindowHandle next = desktop.Add(dialog, "Next >", "Button", 1, {400, 350, 480, 380});
  WindowHandle folder = desktop.Add(dialog, "", "Edit", 1019, {120, 120, 320, 140});
  WindowHandle editor = desktop.Add(desktop.DesktopWindow(), "Velmora - IDE", "VelmoraEditor", 0, {600, 0, 900, 300});
  WindowHandle menuButton = desktop.Add(editor, "&Velmora", "Button", 1001, {610, 10, 680, 30});

  const std::string nextLine = R"(FindWindow:  2, "Setup", "#32770", 0, 0.85, 0.8833, "Next >", "Button", 1, 0.5, 0.5, .30)";
  const std::string folderLine = R"(FindWindow:  2, "Setup", "#32770", 0, 0.3, 0.1, "", "Edit", 1019, 0.5, 0.5, .30)";

  RecorderTest() {
    engine.desktop = &desktop;
    engine.state.DebugOn = true;
    desktop.At(editor).program = desktop.ownProgram;
    engine.editor.ScriptFileName = "\"C:\\s\\a.vls\"";
    Script({"# heading", ""}, 1);
  }
  void Play(const std::vector<Press>& presses) {
    for (const Press& press : presses) {
      if (const auto* click = std::get_if<ObservedClick>(&press.what)) {
        desktop.inputObserver->Button_Down(*click);
        desktop.focus = desktop.WindowFromPoint(click->point);  // as the click gives it
      } else if (desktop.inputObserver) {
        desktop.inputObserver->Key_Down(std::get<ObservedKey>(press.what));
      }
    }
  }
  Lines Recorded() const {
    const Lines& all = engine.TraceWindow.Items();
    return Lines(all.begin() + 1, all.end() - 1);  // between the heading and the highlighted empty line
  }
  long Matches_Logged() const {
    const Lines& log = engine.DebugWindow.Items();
    return std::count(log.begin(), log.end(), "Info: 1 window matches the picked description now.");
  }
};

// The presses and the lines they leave.
TEST_F(RecorderTest, ClicksAndTypingBecomeTheLinesThatDoThemAgain) {
  std::vector<Press> typing = {Click_At(220, 130, 0), Key(kHome), Key(kEnd, 0, true)};
  for (Press& press : Typed("C:\\a (1)+{x}`")) typing.push_back(press);
  typing.push_back(Key(kReturn));
  const std::tuple<const char*, std::vector<Press>, Lines> rows[] = {
      {"a click", {Click_At(440, 365, 0)}, {nextLine, "SendButtons: sl"}},
      {"a right click", {Click_At(440, 365, 0, PressedButton::Right)}, {nextLine, "SendButtons: sr"}},
      {"the same target again", {Click_At(440, 365, 0), Click_At(440, 365, 5000)},
       {nextLine, "SendButtons: sl", "SendButtons: sl"}},
      {"a double click", {Click_At(440, 365, 0), Click_At(441, 364, 300)}, {nextLine, "SendButtons: dl"}},
      {"two clicks too far apart in time", {Click_At(440, 365, 0), Click_At(440, 365, 600)},
       {nextLine, "SendButtons: sl", "SendButtons: sl"}},
      {"a click elsewhere in between",
       {Click_At(440, 365, 0), Click_At(220, 130, 5000), Click_At(440, 365, 9000)},
       {nextLine, "SendButtons: sl", folderLine, "SendButtons: sl", nextLine, "SendButtons: sl"}},
      {"typing into the clicked field, the notation's own characters enclosed", typing,
       {folderLine, "SendButtons: sl", R"(SendKeys:  "{HOME}+{END}C:\a {(}1{)}{+}{{}x{}}``{ENTER}")"}},
      {"keys into a field not clicked, named keys counted, a modifier keeping its own",
       {Key(kDown), Key(kDown), Key(kDown), Key(kTab, 0, true), Key(kTab), Key(0x41, 'a', false, true),
        Key(0x4E, 'n', false, false, true), Key(kCapital), Key(0x70 + 9, 0, true)},
       {nextLine, R"(SendKeys:  "{DOWN 3}+{TAB}{TAB}^a%n+{F10}")"}},
      {"a click on the field after typing into it", {Click_At(220, 130, 0), Key(0x41, 'x'), Click_At(220, 130, 5000)},
       {folderLine, "SendButtons: sl", R"(SendKeys:  "x")", "SendButtons: sl"}},
      {"Velmora's own windows", {Click_At(640, 20, 0), Key(0x41, 'x')}, {}},
  };
  for (const auto& [name, presses, lines] : rows) {
    SCOPED_TRACE(name);
    Script({"# heading", ""}, 1);
    desktop.focus = next;
    form.Toggle_Recording();
    ASSERT_TRUE(form.Recording());
    Play(presses);
    EXPECT_EQ(Recorded(), lines);
    EXPECT_EQ(Matches_Logged(), std::count_if(lines.begin(), lines.end(), [](const std::string& line) {
                return line.rfind("FindWindow:", 0) == 0;
              }));
    if (form.Recording()) form.Toggle_Recording();
    EXPECT_EQ(desktop.inputObserver, nullptr);
  }
}

// While recording: the title says so and the catalogue is locked; a click into the editor ends
// it (not the menu button, whose entry does), and so does the system taking the hooks away.
TEST_F(RecorderTest, RecordingShowsLocksAndEndsOnAClickIntoTheEditorOrALostHook) {
  const WindowHandle text = desktop.Add(editor, "", "ListBox", 1301, {700, 100, 890, 290});
  // How the recording ends: a click into the script, the menu button then the entry, a lost hook.
  for (const int ending : {0, 1, 2}) {
    SCOPED_TRACE(ending);
    form.Toggle_Recording();
    EXPECT_NE(controls[C::Form].Caption.find("RECORDING"), std::string::npos);
    EXPECT_FALSE(controls[C::CommandList].Enabled);
    if (ending == 0) Play({Click_At(800, 200, 0)});
    if (ending == 1) {
      Play({Click_At(640, 20, 0)});
      EXPECT_TRUE(form.Recording());
      form.Toggle_Recording();
    }
    if (ending == 2) desktop.inputObserver->Observing_Lost("the system removed the hooks");
    EXPECT_FALSE(form.Recording());
    EXPECT_EQ(controls[C::Form].Caption, "Velmora - IDE");
    EXPECT_TRUE(controls[C::CommandList].Enabled);
    EXPECT_EQ(desktop.inputObserver, nullptr);
    EXPECT_EQ(Shown({"Info: Recording Ended! 0 lines recorded; the system removed the hooks."}), ending == 2);
  }
  (void)text;
  // Nothing to record into, or no hooks to be had: no recording, and a word why.
  desktop.observingAllowed = false;
  form.Toggle_Recording();
  EXPECT_TRUE(Shown({"Info: Nothing can be recorded: the system does not report the mouse and keys."}));
  engine.editor.ScriptFileName.clear();
  form.Toggle_Recording();
  EXPECT_TRUE(Shown({"Info: Nothing can be recorded before a script is open or created."}));
  EXPECT_FALSE(form.Recording());
}

// A typed character outside the script's code page has no notation; a lock key is left out.
TEST(KeyWriting, WhatTheNotationCannotWriteIsLeftOut) {
  EXPECT_EQ(Key_Notation_Of({0, U'\u20AC'}), "\x80");  // the euro sign has a byte of its own
  EXPECT_EQ(Key_Notation_Of({0, U'\u4E2D'}), "");
  EXPECT_EQ(Key_Notation_Of({kCapital}), "");
  EXPECT_EQ(Key_Notation_Of({0xFF}), "");
  std::string keys = "{UP 9999}";
  Append_Key(keys, "{UP}");
  EXPECT_EQ(keys, "{UP 9999}{UP}");
}

}  // namespace
}  // namespace velmora::test
