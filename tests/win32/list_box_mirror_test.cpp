// A list box mirroring a list model: the model's selection survives every
// item change, and so does the caret the arrow keys move from, and a script of 100,000 lines fills the list quickly.
#include <chrono>
#include <functional>
#include <string>

#include "desktop_fixture.h"
#include "list_box_mirror.h"

namespace velmora::test {
namespace {

class ListBoxMirrorTest : public testing::Test {
 protected:
  std::string Text(long index) const {
    char text[256] = "";
    SendMessageA(list_, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return text;
  }
  long Selected() const { return static_cast<long>(SendMessageA(list_, LB_GETCURSEL, 0, 0)); }
  long Caret() const { return static_cast<long>(SendMessageA(list_, LB_GETCARETINDEX, 0, 0)); }
  long Count() const { return static_cast<long>(SendMessageA(list_, LB_GETCOUNT, 0, 0)); }

  Windows windows_;
  HWND list_ = windows_.Child(windows_.TopLevel("STATIC", "", {0, 0, 400, 300}), "LISTBOX", "", 0, {0, 0, 380, 280},
                              WS_VSCROLL | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT);
  ListModel model_;
};

TEST_F(ListBoxMirrorTest, ShowsTheModelsSelectionAfterEveryItemChange) {
  const struct {
    const char* change;
    long selected;
    std::function<void(ListModel&)> apply;
  } rows[] = {
      {"the selected item replaced", 2, [](ListModel& m) { m.Set(2, "changed"); }},
      {"another item replaced", 2, [](ListModel& m) { m.Set(4, "changed"); }},
      {"the selected item removed", 2, [](ListModel& m) { m.Remove(2); }},
      {"an item before it removed", 2, [](ListModel& m) { m.Remove(0); }},
      {"an item inserted before it", 2, [](ListModel& m) { m.Insert(0, "new"); }},
      {"an item inserted at it", 2, [](ListModel& m) { m.Insert(2, "new"); }},
      {"the last item removed while selected", 4, [](ListModel& m) { m.Remove(m.Count() - 1); }},
  };
  for (const auto& row : rows) {
    model_.Clear();
    for (const char* item : {"a", "b", "c", "d", "e"}) model_.Add(item);
    model_.Select(row.selected);
    ListBoxMirror mirror(model_, list_);
    row.apply(model_);
    Pump_For(0);
    EXPECT_EQ(Selected(), model_.Selected()) << row.change;
    EXPECT_EQ(Caret(), model_.Selected()) << row.change;
    ASSERT_EQ(Count(), static_cast<long>(model_.Count())) << row.change;
    for (long i = 0; i < Count(); ++i) EXPECT_EQ(Text(i), model_.Item(i)) << row.change << ", item " << i;
  }
}

// Loading a script adds every line, then the block check rewrites many.
TEST_F(ListBoxMirrorTest, FillsAHundredThousandLinesInUnderTwoSeconds) {
  constexpr long kLines = 100000;
  ListBoxMirror mirror(model_, list_);
  const auto start = std::chrono::steady_clock::now();
  for (long i = 0; i < kLines; ++i) model_.Add("sendkeys: line " + std::to_string(i));
  model_.Select(0);
  for (long i = 0; i < kLines; i += 2) model_.Set(static_cast<std::size_t>(i), "  changed " + std::to_string(i));
  Pump_For(0);
  const auto elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  RecordProperty("seconds", std::to_string(elapsed));
  printf("filled in %.3f s\n", elapsed);
  EXPECT_LT(elapsed, 2.0);
  EXPECT_EQ(Count(), kLines);
  EXPECT_EQ(Text(kLines - 2), "  changed 99998");
  EXPECT_EQ(Selected(), 0);
}

}  // namespace
}  // namespace velmora::test
