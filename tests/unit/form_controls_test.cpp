// A form's controls: an option clears only its own group, and another form's
// identifier is refused rather than taken for one of this form's. A list's
// widest item, which sets how far the list scrolls sideways.
#include <gtest/gtest.h>

#include <functional>

#include "editor_layout.h"
#include "envvar_setup_layout.h"
#include "widest_item.h"

namespace velmora::test {
namespace {

TEST(FormControlsTest, AnOptionClearsOnlyItsGroupAndAnotherFormsIdentifierIsRefused) {
  FormControls controls{Editor_Form()};
  for (const ControlId id : {ControlId::MouseButton1, ControlId::DebugState0, ControlId::MouseButton2})
    controls.SetChecked(id, true);
  EXPECT_FALSE(controls[ControlId::MouseButton1].Checked);
  EXPECT_TRUE(controls[ControlId::DebugState0].Checked && controls[ControlId::MouseButton2].Checked);
  EXPECT_THROW(controls.SetCaption(BatchId::EnvVarValue, "x"), std::logic_error);
  EXPECT_THROW((void)controls[BatchId::Form], std::logic_error);
}

// After each change of the list, the widest item's width (a character's width is the scale).
TEST(WidestItemTest, FollowsEveryChangeOfTheList) {
  ListModel list;
  list.Add("abc");
  long scale = 1;
  WidestItem widest(list, [&scale](const std::string& text) { return static_cast<long>(text.size()) * scale; });
  const std::pair<std::function<void()>, long> rows[] = {
      {[&] { list.Add("a"); }, 3},          {[&] { list.Set(0, "ab"); }, 2},
      {[&] { list.Insert(0, "bb"); }, 2},   {[&] { list.Remove(1); }, 2},  // one of two as wide goes
      {[&] { list.Add("12345"); }, 5},      {[&] { list.Remove(2); }, 2},
      {[&] { scale = 3, widest.Remeasure(); }, 6}, {[&] { list.Clear(); }, 0},
  };
  for (const auto& [change, expected] : rows) {
    change();
    EXPECT_EQ(widest.Widest(), expected);
  }
}

}  // namespace
}  // namespace velmora::test
