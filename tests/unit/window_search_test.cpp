#include <random>

#include "automation_fixture.h"

namespace velmora::test {
namespace {

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
