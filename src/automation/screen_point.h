// Screen coordinates computed from window rectangles, rounded the way the
// window and input commands need them.
#pragma once

#include "desktop.h"

namespace velmora {

// Rounds half to even; a result outside [low, high] is an overflow error.
long Rounded_Within(double value, double low, double high);

// A pixel's place across a screen of the given size, as a share of the 65536
// steps that absolute mouse positions count (not rounded).
double Mouse_Share(long pixel, double screenPixels);
// The pixel that a share of those 65536 steps falls on (rounded down).
long Pixel_Of_Mouse_Share(long share, int screenPixels);

// The pixel at the fractions of a rectangle's width and height: left +
// round(width × fx), top + round(height × fy), each a 16-bit integer.
ScreenPoint Pixel_At(const WindowRect& rect, double fx, double fy);

}  // namespace velmora
