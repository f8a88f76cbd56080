#include "whats_this.h"

#include <algorithm>

#include "controls.h"
#include "twips.h"

namespace velmora {

namespace {

constexpr int kMaximumWidth = 320;  // pixels at 96 dots per inch
constexpr int kMargin = 6;
constexpr int kPointerGap = 4;  // keeps the pop-up clear of the pointer's tip
constexpr UINT kTextFormat = DT_LEFT | DT_WORDBREAK | DT_NOPREFIX;

HWND shown = nullptr;

constexpr int kDesignDpi = 96;

int Scaled(int pixels) { return MulDiv(pixels, Screen_Dpi(), kDesignDpi); }

HFONT Popup_Font() { return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)); }

void Paint(HWND popup) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(popup, &paint);
  RECT area;
  GetClientRect(popup, &area);
  FillRect(dc, &area, GetSysColorBrush(COLOR_INFOBK));
  HGDIOBJ previous = SelectObject(dc, Popup_Font());
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, GetSysColor(COLOR_INFOTEXT));
  InflateRect(&area, -Scaled(kMargin), -Scaled(kMargin));
  const std::string text = Window_Text(popup);
  DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &area, kTextFormat);
  SelectObject(dc, previous);
  EndPaint(popup, &paint);
}

// Closing by a click or a key gives the activation back to the form; moving
// to another window (a posted WM_CLOSE) leaves it there.
void Close(HWND popup, bool toOwner) {
  HWND owner = GetWindow(popup, GW_OWNER);
  DestroyWindow(popup);
  if (toOwner && owner) SetActiveWindow(owner);
}

LRESULT CALLBACK Procedure(HWND popup, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint(popup);
      return 0;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
      Close(popup, true);
      return 0;
    case WM_ACTIVATE:
      // Not destroyed inside its own deactivation: the close comes next. The
      // default handling gives it the keyboard focus when it is activated.
      if (LOWORD(wParam) == WA_INACTIVE) PostMessageA(popup, WM_CLOSE, 0, 0);
      return DefWindowProcA(popup, message, wParam, lParam);
    case WM_DESTROY:
      if (shown == popup) shown = nullptr;
      return 0;
    default:
      return DefWindowProcA(popup, message, wParam, lParam);
  }
}

void Register_Class(HINSTANCE instance) {
  WNDCLASSEXA popupClass{};
  if (GetClassInfoExA(instance, kWhatsThisClass, &popupClass)) return;
  popupClass.cbSize = sizeof popupClass;
  popupClass.style = CS_DROPSHADOW | CS_SAVEBITS;
  popupClass.lpfnWndProc = Procedure;
  popupClass.hInstance = instance;
  popupClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  popupClass.lpszClassName = kWhatsThisClass;
  RegisterClassExA(&popupClass);
}

// The size the text needs, wrapped at the greatest width, with the margins.
SIZE Size_For(HWND owner, const std::string& text) {
  HDC dc = GetDC(owner);
  HGDIOBJ previous = SelectObject(dc, Popup_Font());
  RECT box{0, 0, Scaled(kMaximumWidth), 0};
  DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &box, kTextFormat | DT_CALCRECT);
  SelectObject(dc, previous);
  ReleaseDC(owner, dc);
  const int margins = 2 * Scaled(kMargin) + 2 * GetSystemMetrics(SM_CXBORDER);
  return {box.right - box.left + margins, box.bottom - box.top + margins};
}

// Below and right of the point, moved inside the screen the point is on.
POINT Place_For(POINT point, SIZE size, int gap) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoA(MonitorFromPoint(point, MONITOR_DEFAULTTONEAREST), &screen);
  const RECT& work = screen.rcWork;
  POINT place{point.x + gap, point.y + gap};
  if (place.x + size.cx > work.right) place.x = work.right - size.cx;
  if (place.y + size.cy > work.bottom) place.y = point.y - gap - size.cy;
  place.x = (std::max)(place.x, work.left);
  place.y = (std::max)(place.y, work.top);
  return place;
}

}  // namespace

void Show_Whats_This(HWND owner, const std::string& text, POINT screenPoint) {
  if (shown) DestroyWindow(shown);
  if (text.empty()) return;
  HWND form = GetAncestor(owner, GA_ROOT);
  auto* instance = reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(form, GWLP_HINSTANCE));
  Register_Class(instance);
  const SIZE size = Size_For(form, text);
  const POINT place = Place_For(screenPoint, size, Scaled(kPointerGap));
  shown = CreateWindowExA(WS_EX_TOOLWINDOW | WS_EX_TOPMOST, kWhatsThisClass, text.c_str(), WS_POPUP | WS_BORDER,
                          place.x, place.y, size.cx, size.cy, form, nullptr, instance, nullptr);
  if (!shown) return;
  ShowWindow(shown, SW_SHOW);
  SetForegroundWindow(shown);
}

}  // namespace velmora
