// The window search over real windows: each test builds its own tree of
// top-level windows, controls and nested children, searches it from the
// desktop through the Win32 desktop, and destroys it. Rows give the target
// described and the windows expected, in the order expected.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "desktop_fixture.h"
#include "near_windows.h"

namespace velmora::test {
namespace {

constexpr int kStaticId = -1;  // IDC_STATIC, as resource editors give labels
constexpr int kCutLength = kTextBufferSize - 1;

// One level of a path: identifier, class and text as the search writes them.
std::string Level(int id, const std::string& className, const std::string& text) {
  return std::to_string(id) + ", \"" + className + "\", \"" + text + "\", ";
}

class DesktopSearchTest : public DesktopEngineTest {
 protected:
  const std::string tag = ProcessTag();
  const std::string title = "Velmora Search Test " + tag;
  const std::string twinTitle = "Velmora Twin " + tag;
  const std::string popupTitle = "Velmora Owned " + tag, overlappedTitle = "Velmora Owned Overlapped " + tag;
  RecordingClass mainClass{"VelmoraSearch" + tag};
  Windows windows;
  HWND main = nullptr, ok = nullptr, label = nullptr, blank = nullptr, longText = nullptr, panel = nullptr,
       panelOk = nullptr, panelEdit = nullptr, twin1 = nullptr, twin2 = nullptr, next1 = nullptr, next2 = nullptr,
       popup = nullptr, overlapped = nullptr;
  HMENU menu = nullptr;
  std::vector<WindowHandle> found;

  void SetUp() override {
    DesktopEngineTest::SetUp();
    ASSERT_TRUE(mainClass.Registered());
    // A menu makes the top-level window's identifier field hold the menu
    // handle: the search must still count the window's identifier as 0.
    menu = CreateMenu();
    AppendMenuA(menu, MF_STRING, 100, "&File");
    main = windows.TopLevel(mainClass.Name(), title, {40, 40, 440, 340}, nullptr, WS_POPUP | WS_BORDER, nullptr, menu);
    ASSERT_NE(main, nullptr);
    ok = windows.Child(main, "Button", "OK", 1, {10, 10, 90, 35});
    label = windows.Child(main, "Static", "Name:", kStaticId, {10, 80, 80, 100});
    blank = windows.Child(main, "Static", "", 4, {90, 80, 160, 100});
    longText = windows.Child(main, "Static", std::string(300, 'x'), 5, {10, 110, 380, 130});
    panel = windows.Child(main, mainClass.Name(), "", 50, {10, 140, 380, 240});
    panelOk = windows.Child(panel, "Button", "OK", 1, {5, 5, 85, 30});
    panelEdit = windows.Child(panel, "Edit", "inside", 1002, {5, 40, 200, 62});
    // Two identical dialogs, as a setup program that shows its page twice.
    twin1 = windows.TopLevel("#32770", twinTitle, {40, 400, 340, 600});
    twin2 = windows.TopLevel("#32770", twinTitle, {400, 400, 700, 600});
    next1 = windows.Child(twin1, "Button", "Next >", 12, {200, 150, 280, 175});
    next2 = windows.Child(twin2, "Button", "Next >", 12, {200, 150, 280, 175});
    // GetParent of an owned popup is its owner, so the owner is part of the
    // popup's path; an owned overlapped window has no parent and stands alone.
    popup = windows.TopLevel(mainClass.Name(), popupTitle, {460, 40, 660, 140}, nullptr, WS_POPUP | WS_BORDER, main);
    overlapped =
        windows.TopLevel(mainClass.Name(), overlappedTitle, {460, 160, 660, 260}, nullptr, WS_OVERLAPPED, main);
    for (HWND w :
         {ok, label, blank, longText, panel, panelOk, panelEdit, twin1, twin2, next1, next2, popup, overlapped})
      ASSERT_NE(w, nullptr);
    ASSERT_EQ(GetWindow(overlapped, GW_OWNER), main);
    Pump_For(50);
  }
  void TearDown() override {
    // The menu goes with its window; one that was never attached is ours to free.
    if (main == nullptr && menu) DestroyMenu(menu);
  }

  std::uint16_t Search(HWND start, const std::string& text, const std::string& className, std::int32_t id,
                       const std::string& path) {
    automation.Search().TargetChildID = id;
    return automation.Search().Find_Window_Like(found, Handle(start), 0, text, className, id, path);
  }
  std::string MainLevel() const { return Level(0, mainClass.Name(), title); }
  // The found list a search should leave: the unused element, then the windows.
  static std::vector<WindowHandle> Found_List(const std::vector<HWND>& windows) {
    std::vector<WindowHandle> list{0};
    for (HWND w : windows) list.push_back(Handle(w));
    return list;
  }
};

TEST_F(DesktopSearchTest, FindsExactlyTheDescribedWindows) {
  const std::string cls = mainClass.Name();
  const std::string okPath = Level(1, "Button", "OK") + MainLevel() + "2";
  const std::string nextPath = Level(12, "Button", "Next >") + Level(0, "#32770", twinTitle) + "2";
  struct Row {
    const char* what;
    HWND start;  // null: the desktop
    std::string text, className;
    std::int32_t id;
    std::string path;
    std::vector<HWND> expected;
  };
  const std::string x254(kCutLength, 'x');
  const LONG menuId = GetWindowLongA(main, GWL_ID);
  // clang-format off
  const Row rows[] = {
      {"button in the window", nullptr, "OK", "Button", 1, okPath, {ok}},
      {"nested button", nullptr, "OK", "Button", 1,
       Level(1, "Button", "OK") + Level(50, cls, "") + MainLevel() + "3", {panelOk}},
      {"empty static", nullptr, "", "Static", 4, Level(4, "Static", "") + MainLevel() + "2", {blank}},
      {"IDC_STATIC label", nullptr, "Name:", "Static", kStaticId,
       Level(kStaticId, "Static", "Name:") + MainLevel() + "2", {label}},
      {"long text as cut", nullptr, x254, "Static", 5, Level(5, "Static", x254) + MainLevel() + "2", {longText}},
      {"top-level window", nullptr, title, cls, 0, MainLevel() + "1", {main}},
      {"top-level window by its menu handle", nullptr, title, cls, menuId, Level(menuId, cls, title) + "1", {}},
      {"below the start window", panel, "inside", "Edit", 1002,
       Level(1002, "Edit", "inside") + Level(50, cls, "") + MainLevel() + "3", {panelEdit}},
      {"two identical dialogs", nullptr, "Next >", "Button", 12, nextPath, {next2, next1}},
      {"popup with its owner", nullptr, popupTitle, cls, 0, Level(0, cls, popupTitle) + MainLevel() + "2", {popup}},
      {"popup without its owner", nullptr, popupTitle, cls, 0, Level(0, cls, popupTitle) + "1", {}},
      {"overlapped alone", nullptr, overlappedTitle, cls, 0, Level(0, cls, overlappedTitle) + "1", {overlapped}},
      {"overlapped with its owner", nullptr, overlappedTitle, cls, 0,
       Level(0, cls, overlappedTitle) + MainLevel() + "2", {}},
  };
  // clang-format on
  // Siblings come in Z order: the later dialog lies on top, so the walk meets it first.
  SetWindowPos(twin2, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  for (const Row& row : rows) {
    found = {0, 99, 98};  // whatever an earlier search left
    const auto count = Search(row.start ? row.start : GetDesktopWindow(), row.text, row.className, row.id, row.path);
    const std::vector<WindowHandle> expected = Found_List(row.expected);
    EXPECT_EQ(count, row.expected.size()) << row.what;
    EXPECT_EQ(found, expected) << row.what;
    for (HWND w : row.expected) EXPECT_EQ(Window_Path_Of(desktop, Handle(w)), row.path) << row.what;
  }
  EXPECT_TRUE(Problem_Lines().empty());
  // A near miss is judged by the same chain: the pop-up, at the top of the
  // tree, is a level below its owner. Nothing here can be elevated.
  const auto nearest = Nearest_Windows(desktop, {{title, cls}, {popupTitle + " ", cls}}, 1);
  ASSERT_EQ(nearest.size(), 1u);
  EXPECT_EQ(nearest[0].window, Handle(popup));
  EXPECT_EQ(nearest[0].matchingLevels, 1u);
  EXPECT_EQ(nearest[0].found, popupTitle);
  EXPECT_FALSE(desktop.RunsAtHigherIntegrity(Handle(popup)));
  EXPECT_FALSE(desktop.InServiceSession());
}

}  // namespace
}  // namespace velmora::test
