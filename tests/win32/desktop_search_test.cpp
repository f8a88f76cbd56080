// The window search where the system's answers matter (label identifiers,
// cut texts, owners, Z order), and wintree's lines finding their windows.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "desktop_fixture.h"
#include "win32_handles.h"

namespace velmora::test {
namespace {

constexpr int kCutLength = kTextBufferSize - 1;

// One level of a path: identifier, class and text as the search writes them.
std::string Level(int id, const std::string& className, const std::string& text) {
  return std::to_string(id) + ", \"" + className + "\", \"" + text + "\", ";
}

using DesktopSearchTest = DesktopEngineTest;

TEST_F(DesktopSearchTest, FindsExactlyTheDescribedWindows) {
  const std::string tag = ProcessTag(), cls = "#32770";
  const std::string title = "Velmora Search Test " + tag, twinTitle = "Velmora Twin " + tag;
  const std::string popupTitle = "Velmora Owned " + tag, overlappedTitle = "Velmora Owned Overlapped " + tag;
  Windows windows;
  const HWND main = windows.TopLevel(cls, title, {40, 40, 440, 340});
  ASSERT_NE(main, nullptr);
  const HWND label = windows.Child(main, "Static", "Name:", -1, {10, 80, 80, 100});  // IDC_STATIC
  const HWND longText = windows.Child(main, "Static", std::string(300, 'x'), 5, {10, 110, 380, 130});
  // Two identical dialogs, as a setup program that shows its page twice.
  const HWND twin1 = windows.TopLevel(cls, twinTitle, {40, 400, 340, 600});
  const HWND twin2 = windows.TopLevel(cls, twinTitle, {400, 400, 700, 600});
  const HWND next1 = windows.Child(twin1, "Button", "Next >", 12, {200, 150, 280, 175});
  const HWND next2 = windows.Child(twin2, "Button", "Next >", 12, {200, 150, 280, 175});
  // GetParent of an owned popup is its owner; an owned overlapped window has none.
  const HWND popup = windows.TopLevel(cls, popupTitle, {460, 40, 660, 140}, WS_POPUP | WS_BORDER, main);
  const HWND overlapped = windows.TopLevel(cls, overlappedTitle, {460, 160, 660, 260}, WS_OVERLAPPED, main);
  for (HWND w : {label, longText, twin1, twin2, next1, next2, popup, overlapped}) ASSERT_NE(w, nullptr);
  ASSERT_EQ(GetWindow(overlapped, GW_OWNER), main);
  Pump_For(50);
  const std::string mainLevel = Level(0, cls, title), x254(kCutLength, 'x');
  const struct {
    const char* what;
    std::string text, className;
    std::int32_t id;
    std::string path;
    std::vector<HWND> expected;
  } rows[] = {
      // clang-format off
      {"IDC_STATIC label", "Name:", "Static", -1, Level(-1, "Static", "Name:") + mainLevel + "2", {label}},
      {"long text as cut", x254, "Static", 5, Level(5, "Static", x254) + mainLevel + "2", {longText}},
      {"two identical dialogs", "Next >", "Button", 12,
       Level(12, "Button", "Next >") + Level(0, cls, twinTitle) + "2", {next2, next1}},
      {"popup with its owner", popupTitle, cls, 0, Level(0, cls, popupTitle) + mainLevel + "2", {popup}},
      {"overlapped alone", overlappedTitle, cls, 0, Level(0, cls, overlappedTitle) + "1", {overlapped}},
      // clang-format on
  };
  // Siblings come in Z order: the later dialog lies on top, so the walk meets it first.
  SetWindowPos(twin2, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  for (const auto& row : rows) {
    std::vector<WindowHandle> found{0, 99, 98};  // whatever an earlier search left
    automation.Search().TargetChildID = row.id;
    const auto count = automation.Search().Find_Window_Like(found, Handle(GetDesktopWindow()), 0, row.text,
                                                            row.className, row.id, row.path);
    std::vector<WindowHandle> expected{0};  // the unused element, then the windows
    for (HWND w : row.expected) expected.push_back(Handle(w));
    EXPECT_EQ(count, row.expected.size()) << row.what;
    EXPECT_EQ(found, expected) << row.what;
  }
  EXPECT_TRUE(Problem_Lines().empty());
}

// What wintree.exe prints, this thread's messages dispatched meanwhile: it reads our windows.
std::string Wintree_Output(const std::string& arguments) {
  const std::string path = std::filesystem::temp_directory_path().string() + "\\wintree-" + ProcessTag() + ".txt";
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  const ScopedHandle out(CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, &inherited, CREATE_ALWAYS,
                                     FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  const ScopedHandle process(Start_Beside("wintree.exe", arguments, out.get()).hProcess);
  if (!Pump_Until([&] { return WaitForSingleObject(process.get(), 0) == WAIT_OBJECT_0; }, 20000)) {
    TerminateProcess(process.get(), 1);
    return "(not started or timed out)";
  }
  std::string text(1 << 16, '\0');
  DWORD read = 0;
  SetFilePointer(out.get(), 0, nullptr, FILE_BEGIN);
  ReadFile(out.get(), text.data(), static_cast<DWORD>(text.size()), &read, nullptr);
  return text.substr(0, read);
}

TEST_F(DesktopSearchTest, EveryWintreeLineIsACommentOrFindsItsWindow) {
  Windows windows;
  const std::string title = "Wintree Caf\xe9 " + ProcessTag();  // é in the ANSI code page
  const HWND main = windows.TopLevel("#32770", title, {100, 100, 500, 400});
  ASSERT_TRUE(main);
  windows.Child(main, "Static", "Line 1\r\nLine 2", 1001, {10, 10, 200, 50});
  windows.Child(main, "Static", "Name:", -1, {10, 60, 200, 80});  // IDC_STATIC, which no line can hold
  windows.Child(main, "Button", "`OK`", 1, {10, 100, 100, 130});
  std::istringstream output(Wintree_Output("--lines \"" + title + "\""));
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
  EXPECT_NE(found[0].find("\"" + title + "\", \"#32770\", 0"), std::string::npos) << found[0];
  EXPECT_NE(found[1].find("\"``OK``\", \"Button\", 1"), std::string::npos) << found[1];
  ASSERT_EQ(comments.size(), 2u);
  const std::string both = comments[0] + comments[1];
  EXPECT_NE(both.find("id=1001: no findwindow line, class \"Static\""), std::string::npos) << both;
  EXPECT_NE(both.find("id=-1: no findwindow line, class \"Static\""), std::string::npos) << both;
}

}  // namespace
}  // namespace velmora::test
