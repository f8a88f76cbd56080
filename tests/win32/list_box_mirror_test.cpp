// A list box mirroring a list model: the model's selection (and the caret the
// arrow keys move from) survives every item change, and the list scrolls
// sideways exactly as far as its widest item needs. (How fast it fills is the
// editor's opening benchmark's check.)
#include <functional>
#include <string>

#include "desktop_fixture.h"
#include "list_box_mirror.h"

namespace velmora::test {
namespace {

class ListBoxMirrorTest : public testing::Test {
 protected:
  long Ask(UINT message) const { return static_cast<long>(SendMessageA(list_, message, 0, 0)); }
  std::vector<std::string> Shown() const {
    std::vector<std::string> items(static_cast<std::size_t>(Ask(LB_GETCOUNT)), std::string(64, '\0'));
    for (std::size_t i = 0; i < items.size(); ++i)
      items[i].resize(SendMessageA(list_, LB_GETTEXT, i, reinterpret_cast<LPARAM>(items[i].data())));
    return items;
  }
  Windows windows_;
  HWND list_ = windows_.Child(windows_.TopLevel("STATIC", "", {0, 0, 400, 300}), "LISTBOX", "", 0, {0, 0, 380, 280},
                              WS_VSCROLL | WS_HSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT);
  ListModel model_;
};

TEST_F(ListBoxMirrorTest, ShowsTheModelsSelectionAfterEveryItemChange) {
  const std::pair<long, std::function<void(ListModel&)>> rows[] = {
      {2, [](ListModel& m) { m.Set(2, "changed"); }}, {2, [](ListModel& m) { m.Remove(2); }},
      {2, [](ListModel& m) { m.Remove(0); }},         {2, [](ListModel& m) { m.Insert(0, "new"); }},
      {2, [](ListModel& m) { m.Insert(2, "new"); }},  {4, [](ListModel& m) { m.Remove(m.Count() - 1); }}};
  for (const auto& [selected, change] : rows) {
    model_.Clear();
    for (const char* item : {"a", "b", "c", "d", "e"}) model_.Add(item);
    model_.Select(selected);
    ListBoxMirror mirror(model_, list_);
    change(model_);
    Pump_For(0);
    EXPECT_EQ(Shown(), model_.Items());
    EXPECT_EQ(Ask(LB_GETCURSEL), model_.Selected());
    EXPECT_EQ(Ask(LB_GETCARETINDEX), model_.Selected());
  }
}

TEST_F(ListBoxMirrorTest, ScrollsSidewaysToTheEndOfItsWidestItem) {
  ListBoxMirror mirror(model_, list_);
  RECT client{};
  GetClientRect(list_, &client);
  const std::pair<std::function<void()>, bool> rows[] = {
      {[&] { model_.Add("short"); }, false},
      {[&] { model_.Add(std::string(100, 'W')); }, true},
      {[&] { model_.Remove(1); }, false},
  };
  for (const auto& [change, scrolls] : rows) {
    change();
    Pump_For(0);
    mirror.Fit_Extent();
    EXPECT_EQ(Ask(LB_GETHORIZONTALEXTENT) > client.right, scrolls);
    if (!scrolls) {
      EXPECT_EQ(Ask(LB_GETHORIZONTALEXTENT), 0);
    }
  }
}

}  // namespace
}  // namespace velmora::test
