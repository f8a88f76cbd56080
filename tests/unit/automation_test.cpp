// Finding the target window and sending it keys and clicks, on the simulated desktop.
#include <algorithm>
#include <random>
#include <tuple>

#include "engine_fixture.h"
#include "key_notation.h"
#include "screen_point.h"

namespace velmora::test {
namespace {

class FindWindowTest : public AutomationTest {
 protected:
  WindowHandle dialog = 0, next = 0;
  void Add_Dialog() {
    dialog = desktop.Add(1, "Setup", "#32770", 0, {100, 100, 500, 400});
    next = desktop.Add(dialog, "Next >", "Button", 12, {300, 350, 400, 382});
  }
  static constexpr const char* kNextLine =
      "findwindow: 2, \"Setup\", \"#32770\", 0, 0.5, 0.9, \"Next >\", \"Button\", 12, 0.5, 0.5, 0.10";
};

// The whole time-out is in golden/automation.cases; a halt request ends the
// wait after the search under way.
TEST_F(FindWindowTest, AHaltEndsTheWaitAfterTheSearchUnderWay) {
  engine.state.HaltRequested = true;
  EXPECT_FALSE(Find("findwindow: 1, \"Gone\", \"#32770\", 0, 0, 0, 1.00"));
  EXPECT_EQ(host.tenthSleeps, 10);
  EXPECT_EQ(DebugLines().at(1), "Total Elapsed Time:  1 second.");
}

class SeveralCandidatesTest : public FindWindowTest {
 protected:
  WindowHandle dialog2 = 0, next2 = 0;
  void SetUp() override {
    FindWindowTest::SetUp();
    Add_Dialog();
    dialog2 = desktop.Add(1, "Setup", "#32770", 0, {600, 100, 1000, 400});
    next2 = desktop.Add(dialog2, "Next >", "Button", 12, {800, 350, 900, 382});
  }
};

TEST_F(SeveralCandidatesTest, TheCandidateUnderItsPickedPointIsChosen) {
  desktop.At(next).rect = {0, 0, 1, 1};  // moved away: its dialog's picked point shows the dialog
  EXPECT_TRUE(Find(kNextLine));
  EXPECT_EQ(automation.Target().TargetList, (std::vector<WindowHandle>{0, next2, next}));
  EXPECT_EQ(DebugLines().back(), "==>  Using Window:  " + std::to_string(next2));
  // The nearer candidate is tried first: its dialog, then itself come forward.
  EXPECT_EQ(desktop.foregroundCalls, (std::vector<WindowHandle>{dialog2, next2}));
}

TEST_F(AutomationTest, SendKeysFocusesTheTargetAndTypesTheKeys) {
  const WindowHandle dialog = desktop.Add(1, "Setup", "#32770", 0, {100, 100, 501, 400});
  const WindowHandle edit = desktop.Add(dialog, "Folder", "Edit", 1001, {110, 120, 310, 141});
  ASSERT_TRUE(Find("findwindow: 2, \"Setup\", \"#32770\", 0, 0, 0, \"Folder\", \"Edit\", 1001, 0.5, 0.5, 0.05"));
  EXPECT_TRUE(Send("ab~"));
  EXPECT_EQ(desktop.keys, Parse_Key_String("ab~").inputs);
  // The pointer goes to the centre (halves to even) twice, each time with the focus.
  ASSERT_EQ(desktop.cursorMoves.size(), 2u);
  EXPECT_EQ(std::pair(desktop.cursorMoves[1].x, desktop.cursorMoves[1].y), std::pair(210L, 130L));
  EXPECT_EQ(desktop.foreground, dialog);
  EXPECT_EQ(desktop.focus, edit);
  EXPECT_EQ(automation.Search().TargetChildID, 1001);
}

using Record = SimDesktop::MouseRecord;

// The mouse events as (time since the first event, flags, x, y).
std::vector<std::vector<long long>> Timeline(const std::vector<Record>& events) {
  std::vector<std::vector<long long>> rows;
  for (const Record& e : events)
    rows.push_back({e.atMs - events.front().atMs, static_cast<long long>(e.flags), e.x, e.y});
  return rows;
}

TEST(ClickTest, CodesSelectButtonsAndTheUnitIsTheDoubleClickTimeOverOneAndAHalf) {
  const std::tuple<const char*, int, Click> cases[] = {{"dl", 500, {2, 4, true, 333}},
                                                       {"sm", 600, {32, 64, false, 400}},
                                                       {"dr", 250, {8, 16, true, 167}},
                                                       {"nc", 501, {0, 0, false, 334}}};
  for (const auto& [code, doubleClickTime, want] : cases) {
    const Click k = Click_Of(code, doubleClickTime);
    EXPECT_EQ(std::tie(k.down, k.up, k.isDouble, k.unitMs), std::tie(want.down, want.up, want.isDouble, want.unitMs))
        << code;
  }
  EXPECT_THROW(Click_Of("sx", 500), std::exception);
  EXPECT_THROW(Click_Of("", 500), std::exception);
}

TEST(PixelAtTest, RoundsHalvesToEvenAndKeepsTheWholeCoordinateWithin16Bits) {
  // The rectangle, the fractions across and down, and the pixel.
  const std::tuple<WindowRect, double, double, std::pair<long, long>> cases[] = {
      {{11, 21, 14, 24}, 0.5, 0.5, {13, 23}},
      {{-50, -50, 50, 50}, 0, 1, {-50, 50}},
      {{32700, 0, 32766, 10}, 1, 0, {32766, 0}}};
  for (const auto& [rect, fx, fy, pixel] : cases) {
    const ScreenPoint p = Pixel_At(rect, fx, fy);
    EXPECT_EQ(std::pair(p.x, p.y), pixel) << fx << ", " << fy;
  }
  // The offset alone fits; the coordinate it makes does not.
  EXPECT_THROW(Pixel_At({32760, 0, 32800, 10}, 0.5, 0), std::exception);
  EXPECT_THROW(Pixel_At({0, -40000, 10, 10}, 0, 0), std::exception);
}

TEST_F(AutomationTest, UseMouseMovesThenClicksWithPlainFlags) {
  const long long move = 0xFFFF8001;
  const std::pair<const char*, std::vector<std::vector<long long>>> cases[] = {
      {"usemouse: sl, 400, 300", {{0, move, 400, 300}, {0, 2, 400, 300}, {999, 4, 400, 300}}},
      {"usemouse: dr, 65535, 65535",
       {{0, move, 65535, 65535},
        {0, 8, 65535, 65535},
        {999, 16, 65535, 65535},
        {1332, 8, 65535, 65535},
        {2331, 16, 65535, 65535}}}};
  for (const auto& [line, timeline] : cases) {
    desktop.mouseEvents.clear();
    const long long before = host.clockMs;
    automation.UseMouse_Command(engine, true, Parsed(line));
    EXPECT_EQ(Timeline(desktop.mouseEvents), timeline) << line;
    const bool isDouble = line[10] == 'd';
    EXPECT_EQ(host.clockMs - before, isDouble ? 12 * 333 : 3 * 333) << line;  // t, 3t, 3t and 5t for a double
  }
  EXPECT_TRUE(DebugLines().empty());
}

class SendButtonsTest : public FindWindowTest {
 protected:
  void SetUp() override {
    FindWindowTest::SetUp();
    Add_Dialog();
    ASSERT_TRUE(Find(kNextLine));
    engine.DebugWindow.Clear(), host.tenthSleeps = 0, desktop.mouseEvents.clear();
  }
};

TEST_F(SendButtonsTest, ClicksThePickedPointOfTheTargetInNormalisedUnits) {
  EXPECT_TRUE(Click("sl"));
  // Centre (350, 366) of a 1024 x 768 screen: 350 * 65536 / 1024 = 22400, 366 * 65536 / 768 = 31232.
  const long long move = 0xFFFF8001;
  EXPECT_EQ(Timeline(desktop.mouseEvents), (std::vector<std::vector<long long>>{{0, move, 22400, 31232},
                                                                                {285, move, 22400, 31232},
                                                                                {285, move | 2, 22400, 31232},
                                                                                {285 + 999, move | 4, 22400, 31232}}));
}

TEST_F(SendButtonsTest, ADisabledTargetIsReportedAndNotClicked) {
  desktop.At(next).enabledAt = SimDesktop::kNever;
  EXPECT_FALSE(Click("dl"));
  EXPECT_EQ(desktop.mouseEvents.size(), 1u);  // only the first move
}

using WindowSearchTest = AutomationTest;

TEST_F(WindowSearchTest, PathsNameEveryAncestorWithTopLevelIdentifiersZero) {
  const WindowHandle setup = desktop.Add(1, "Setup", "#32770", 77), ok = desktop.Add(setup, "OK", "Button", 1);
  const WindowHandle inner = desktop.Add(desktop.Add(setup, "", "Static", 2), "inner", "Button", 3);
  EXPECT_EQ(Window_Path_Of(desktop, ok), "1, \"Button\", \"OK\", 0, \"#32770\", \"Setup\", 2");
  EXPECT_EQ(Window_Path_Of(desktop, inner),
            "3, \"Button\", \"inner\", 2, \"Static\", \"\", 0, \"#32770\", \"Setup\", 3");
}

// The plain walk that the search must agree with: every window below the
// start, descendants first, each tested in full.
void Full_Walk(Desktop& desktop, WindowHandle start, std::int32_t id, const std::string& text,
               const std::string& className, const std::string& path, std::vector<WindowHandle>& found) {
  for (WindowHandle child = desktop.GetWindow(start, WindowRelation::FirstChild); child != 0;
       child = desktop.GetWindow(child, WindowRelation::Next)) {
    Full_Walk(desktop, child, id, text, className, path, found);
    if (desktop.ClassName(child, kTextBufferSize) == className && desktop.WindowText(child, kTextBufferSize) == text &&
        Child_Id_Of(desktop, child) == id && Window_Path_Of(desktop, child) == path)
      found.push_back(child);
  }
}

// Random trees of child windows (some moved elsewhere with SetParent),
// top-level windows and pop-ups owned by them, copied dialogs, and texts
// that look like parts of a path.
struct RandomTree {
  SimDesktop& desktop;
  std::mt19937 random;
  std::vector<WindowHandle> all, topLevel;

  std::size_t Pick(std::size_t n) { return random() % n; }
  WindowHandle Add_Copy(WindowHandle parent, WindowHandle of) {
    const SimDesktop::Window original = desktop.At(of);
    const WindowHandle copy = desktop.Add(parent, original.text, original.className, original.id);
    desktop.At(copy).popup = original.popup;
    desktop.At(copy).owner = original.owner;
    all.push_back(copy);
    for (WindowHandle child : original.children) Add_Copy(copy, child);
    return copy;
  }
  bool Is_Below(WindowHandle window, WindowHandle ancestor) {
    for (WindowHandle w = window; w > 1; w = desktop.At(w).parent)
      if (w == ancestor) return true;
    return false;
  }
  void Build() {
    static const char* const texts[] = {"", "OK", "ok", "Setup", "a\", \"b", "\", ", "0, \"Button\", \"OK\", 2"};
    static const char* const classes[] = {"#32770", "Button", "Static"};
    static const long ids[] = {0, 1, 12, -1};
    const std::size_t count = 10 + Pick(80);
    while (all.size() < count) {
      if (!topLevel.empty() && Pick(12) == 0) {
        topLevel.push_back(Add_Copy(1, topLevel[Pick(topLevel.size())]));
        continue;
      }
      const bool top = all.empty() || Pick(4) == 0;
      // Half the children go under one of the latest windows, for deep trees.
      const std::size_t from = Pick(2) ? all.size() : std::min<std::size_t>(all.size(), 3);
      const WindowHandle parent = top ? 1 : all[all.size() - 1 - Pick(from)];
      const WindowHandle w = desktop.Add(parent, texts[Pick(7)], classes[Pick(3)], ids[Pick(4)]);
      if (top && !topLevel.empty() && Pick(3) == 0) {
        desktop.At(w).popup = true;
        desktop.At(w).owner = topLevel[Pick(topLevel.size())];
      }
      if (top) topLevel.push_back(w);
      all.push_back(w);
    }
    for (std::size_t moves = Pick(5); moves > 0; --moves) {
      const WindowHandle w = all[Pick(all.size())], to = all[Pick(all.size())];
      if (desktop.At(w).parent != 1 && !Is_Below(to, w)) desktop.SetParent(w, to);
    }
  }
};

TEST_F(WindowSearchTest, FindsWhatTheFullWalkFindsInRandomTrees) {
  std::size_t matches = 0;
  for (unsigned seed = 1; seed <= 300; ++seed) {
    SimDesktop sim(host);
    RandomTree tree{sim, std::mt19937(seed), {}, {}};
    tree.Build();
    WindowSearch search(engine, sim);
    for (int round = 0; round < 12; ++round) {
      const WindowHandle like = tree.all[tree.Pick(tree.all.size())];
      const WindowHandle pathOf = tree.Pick(4) == 0 ? tree.all[tree.Pick(tree.all.size())] : like;
      const WindowHandle start = tree.Pick(5) == 0 ? tree.all[tree.Pick(tree.all.size())] : 1;
      const std::string text = sim.WindowText(like, kTextBufferSize), className = sim.ClassName(like, kTextBufferSize);
      const std::int32_t id = Child_Id_Of(sim, like);
      const std::string path = Window_Path_Of(sim, pathOf);
      std::vector<WindowHandle> expected{0};
      Full_Walk(sim, start, id, text, className, path, expected);
      search.TargetChildID = id;
      std::vector<WindowHandle> found;
      const auto count = search.Find_Window_Like(found, start, 0, text, className, id, path);
      ASSERT_EQ(found, expected) << "seed " << seed << ", round " << round << ", path " << path;
      ASSERT_EQ(count, expected.size() - 1) << "seed " << seed;
      matches += count;
    }
  }
  EXPECT_GT(matches, 1000u);  // the trees gave the search something to find
}

}  // namespace
}  // namespace velmora::test
