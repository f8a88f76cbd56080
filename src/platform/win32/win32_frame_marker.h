// The frame that marks a window on the screen while the user picks one: a
// thin topmost window of our own laid along the marked window's edges.
// Drawing into another program's window shows nothing under Wine (each
// program paints its own windows), so the frame is a window that paints
// itself. Hit tests pass through it, so the window under the pointer is
// still the one below.
#pragma once

#include <windows.h>

namespace velmora {

class FrameMarker {
 public:
  FrameMarker() = default;
  ~FrameMarker();
  FrameMarker(const FrameMarker&) = delete;
  FrameMarker& operator=(const FrameMarker&) = delete;

  // Marks the window; marking the window already marked removes the frame.
  void Toggle(HWND window);
  // Removes the frame when it lies in the screen rectangle.
  void Remove_Within(const RECT& area);

 private:
  bool Create();
  void Hide();

  HWND frame_ = nullptr;
  HWND marked_ = nullptr;
  RECT place_{};
};

}  // namespace velmora
