// Twips (1/1440 inch), the unit of the form's layout, and pixels at the
// screen's resolution, so the form keeps its proportions at any DPI.
#pragma once

#include <windows.h>

#include "control_state.h"

namespace velmora {

constexpr int kTwipsPerInch = 1440;

class TwipsScale {
 public:
  explicit TwipsScale(int dpi) : dpi_(dpi) {}
  int Dpi() const { return dpi_; }
  int Pixels(long twips) const { return MulDiv(static_cast<int>(twips), dpi_, kTwipsPerInch); }
  long Twips(int pixels) const { return MulDiv(pixels, kTwipsPerInch, dpi_); }
  RECT Pixels(const TwipsRect& rect) const {
    const int left = Pixels(rect.Left), top = Pixels(rect.Top);
    return {left, top, left + Pixels(rect.Width), top + Pixels(rect.Height)};
  }
  TwipsRect Twips(const RECT& rect) const {
    return {Twips(rect.left), Twips(rect.top), Twips(rect.right - rect.left), Twips(rect.bottom - rect.top)};
  }

 private:
  int dpi_;
};

// The screen's logical resolution (the process is DPI aware, so this is the real one).
int Screen_Dpi();

}  // namespace velmora
