#include "screen_point.h"

#include <cstdint>

#include "numeric.h"
#include "trap.h"

namespace velmora {

long Rounded_Within(double value, double low, double high) {
  const double rounded = Round_Half_Even(value);
  if (!(rounded >= low && rounded <= high)) throw OverflowError();
  return static_cast<long>(rounded);
}

double Mouse_Share(long pixel, double screenPixels) { return static_cast<double>(pixel) * 65536.0 / screenPixels; }

long Pixel_Of_Mouse_Share(long share, int screenPixels) {
  return static_cast<long>(static_cast<long long>(share) * screenPixels / 65536);
}

ScreenPoint Pixel_At(const WindowRect& rect, double fx, double fy) {
  const auto along = [](long start, long end, double fraction) {
    return Rounded_Within(static_cast<double>(start) + Round_Half_Even(static_cast<double>(end - start) * fraction),
                          INT16_MIN, INT16_MAX);
  };
  return {along(rect.left, rect.right, fx), along(rect.top, rect.bottom, fy)};
}

}  // namespace velmora
