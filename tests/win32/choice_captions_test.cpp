// The editor's two choice options show each caption they are given whole, in
// the font it comes with, at the screen's resolution.
#include <windows.h>

#include <gtest/gtest.h>

#include "catalogue_table.h"
#include "editor_layout.h"
#include "font_cache.h"
#include "twips.h"
#include "win32_handles.h"

namespace velmora::test {
namespace {

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
