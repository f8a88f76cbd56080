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

// What a radio button needs beside its text: the round box, the gap to the
// text and the focus rectangle around it.
int Button_Extra_Width() { return GetSystemMetrics(SM_CXMENUCHECK) + 2 * GetSystemMetrics(SM_CXEDGE) + 6; }

TEST(ChoiceCaptionsTest, EveryCaptionFitsItsOptionInItsFont) {
  const int dpi = Screen_Dpi();
  FontCache fonts(dpi);
  const TwipsScale scale(dpi);
  const ScopedMemoryDC dc(CreateCompatibleDC(nullptr));
  for (const ChoiceCaptions& choice : Choice_Captions()) {
    const std::pair<ControlId, const char*> options[] = {{ControlId::DebugState0, choice.First},
                                                         {ControlId::DebugState1, choice.Second}};
    for (const auto& [option, caption] : options) {
      SCOPED_TRACE(caption);
      const ScopedSelection font(dc.get(), fonts.Get(choice.Font));
      SIZE text{};
      GetTextExtentPoint32A(dc.get(), caption, lstrlenA(caption), &text);
      const RECT place = scale.Pixels(Find_Declaration(option)->Rect);
      EXPECT_LE(text.cx + Button_Extra_Width(), place.right - place.left);
    }
  }
}

}  // namespace
}  // namespace velmora::test
