#include "win32_frame_marker.h"

#include "win32_handles.h"

namespace velmora {

namespace {

constexpr char kFrameClass[] = "VelmoraPickFrame";
constexpr COLORREF kFrameColour = RGB(255, 0, 0);  // seen on light and dark windows alike

LRESULT CALLBACK Frame_Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCHITTEST) return HTTRANSPARENT;
  return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

FrameMarker::~FrameMarker() {
  if (frame_) DestroyWindow(frame_);
}

bool FrameMarker::Create() {
  if (frame_) return true;
  HINSTANCE instance = GetModuleHandleA(nullptr);
  WNDCLASSA frameClass{};
  frameClass.lpfnWndProc = Frame_Procedure;
  frameClass.hInstance = instance;
  frameClass.hbrBackground = CreateSolidBrush(kFrameColour);  // the class keeps it for the process's life
  frameClass.lpszClassName = kFrameClass;
  RegisterClassA(&frameClass);
  frame_ = CreateWindowExA(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TRANSPARENT, kFrameClass, "",
                           WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, instance, nullptr);
  return frame_ != nullptr;
}

// The frame lies inside the window's rectangle, three border widths wide:
// a region cut out of a topmost window.
void FrameMarker::Toggle(HWND window) {
  if (window == marked_) return Hide();
  RECT outer{};
  if (!GetWindowRect(window, &outer) || !Create()) return;
  const int width = outer.right - outer.left, height = outer.bottom - outer.top;
  const int thickness = 3 * GetSystemMetrics(SM_CXBORDER);
  ScopedRegion frame(CreateRectRgn(0, 0, width, height));
  const ScopedRegion inside(CreateRectRgn(thickness, thickness, width - thickness, height - thickness));
  if (!frame || !inside || CombineRgn(frame.get(), frame.get(), inside.get(), RGN_DIFF) == ERROR) return;
  if (SetWindowRgn(frame_, frame.get(), FALSE)) frame.release();  // the window owns the region from here on
  SetWindowPos(frame_, HWND_TOPMOST, outer.left, outer.top, width, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
  RedrawWindow(frame_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
  marked_ = window;
  place_ = outer;
}

void FrameMarker::Remove_Within(const RECT& area) {
  RECT common{};
  if (marked_ && IntersectRect(&common, &area, &place_)) Hide();
}

void FrameMarker::Hide() {
  if (frame_) ShowWindow(frame_, SW_HIDE);
  marked_ = nullptr;
}

}  // namespace velmora
