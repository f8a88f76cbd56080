// The editor's controls on real windows: a list box mirroring a list model
// keeps the model's selection and caret through every item change and scrolls
// sideways only for an item too wide; the two choice options show each caption
// whole, in the font it comes with, at the screen's resolution.
#include <functional>
#include <string>

#include "catalogue_table.h"
#include "desktop_fixture.h"
#include "editor_layout.h"
#include "font_cache.h"
#include "list_box_mirror.h"
#include "twips.h"
#include "win32_handles.h"

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
  const std::function<void(ListModel&)> rows[] = {
      [](ListModel& m) { m.Set(2, "changed"); }, [](ListModel& m) { m.Remove(2); },
      [](ListModel& m) { m.Insert(0, "new"); }, [](ListModel& m) { m.Remove(0); }};
  for (const auto& change : rows) {
    model_.Clear();
    for (const char* item : {"a", "b", "c"}) model_.Add(item);
    model_.Select(2);
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
    EXPECT_TRUE(scrolls || Ask(LB_GETHORIZONTALEXTENT) == 0);
  }
}

TEST(ChoiceCaptionsTest, EveryCaptionFitsItsOptionInItsFont) {
  FontCache fonts(Screen_Dpi());
  const TwipsScale scale(Screen_Dpi());
  const ScopedMemoryDC dc(CreateCompatibleDC(nullptr));
  // Beside its text a radio button needs its round box, the gap and the focus rectangle.
  const int extra = GetSystemMetrics(SM_CXMENUCHECK) + 2 * GetSystemMetrics(SM_CXEDGE) + 6;
  for (const ChoiceCaptions& choice : Choice_Captions()) {
    const std::pair<ControlId, const char*> options[] = {{ControlId::DebugState0, choice.First},
                                                         {ControlId::DebugState1, choice.Second}};
    for (const auto& [option, caption] : options) {
      const ScopedSelection font(dc.get(), fonts.Get(choice.Font));
      SIZE text{};
      GetTextExtentPoint32A(dc.get(), caption, lstrlenA(caption), &text);
      const RECT place = scale.Pixels(Find_Declaration(option)->Rect);
      EXPECT_LE(text.cx + extra, place.right - place.left) << caption;
    }
  }
}

}  // namespace
}  // namespace velmora::test
