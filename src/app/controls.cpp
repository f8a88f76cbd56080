#include "controls.h"

#include <commctrl.h>

#include "win32_handles.h"

namespace velmora {

namespace {

constexpr char kFrameClass[] = "VelmoraFrame";

HFONT Frame_Font(HWND frame) { return reinterpret_cast<HFONT>(GetWindowLongPtrA(frame, GWLP_USERDATA)); }

// An etched rectangle whose top line runs through the middle of the caption,
// with the caption on the face colour; greyed when the frame is disabled.
void Paint_Frame(HWND frame) {
  PAINTSTRUCT paint;
  HDC dc = BeginPaint(frame, &paint);
  const ScopedSelection font(dc, Frame_Font(frame));
  TEXTMETRICA metrics{};
  GetTextMetricsA(dc, &metrics);
  RECT edge;
  GetClientRect(frame, &edge);
  edge.top += metrics.tmHeight / 2;
  DrawEdge(dc, &edge, EDGE_ETCHED, BF_RECT);
  char caption[256] = "";
  const int length = GetWindowTextA(frame, caption, sizeof caption);
  if (length > 0) {
    const int indent = metrics.tmAveCharWidth;
    SIZE size{};
    GetTextExtentPoint32A(dc, caption, length, &size);
    RECT text{indent, 0, indent + size.cx + metrics.tmAveCharWidth, metrics.tmHeight};
    FillRect(dc, &text, GetSysColorBrush(COLOR_BTNFACE));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(IsWindowEnabled(frame) ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    text.left += metrics.tmAveCharWidth / 2;
    DrawTextA(dc, caption, length, &text, DT_SINGLELINE | DT_LEFT | DT_TOP);
  }
  EndPaint(frame, &paint);
}

LRESULT CALLBACK Frame_Procedure(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_PAINT:
      Paint_Frame(frame);
      return 0;
    case WM_SETFONT:
      SetWindowLongPtrA(frame, GWLP_USERDATA, static_cast<LONG_PTR>(wParam));
      if (LOWORD(lParam)) InvalidateRect(frame, nullptr, TRUE);
      return 0;
    case WM_GETFONT:
      return reinterpret_cast<LRESULT>(Frame_Font(frame));
    case WM_SETTEXT:
    case WM_ENABLE: {
      const LRESULT result = DefWindowProcA(frame, message, wParam, lParam);
      InvalidateRect(frame, nullptr, TRUE);
      return result;
    }
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_CONTEXTMENU:  // with the control it came from, not the frame
      return SendMessageA(GetParent(frame), message, wParam, lParam);
    default:
      return DefWindowProcA(frame, message, wParam, lParam);
  }
}

struct WindowKind {
  const char* ClassName;
  DWORD Style;
  DWORD ExStyle;
};

constexpr DWORD kTabStop = WS_TABSTOP | WS_GROUP;

WindowKind Kind_Of(ControlKind kind, bool firstOfGroup) {
  switch (kind) {
    case ControlKind::Frame:
      return {kFrameClass, WS_CLIPCHILDREN | WS_GROUP, WS_EX_CONTROLPARENT};
    case ControlKind::Label:
      return {"STATIC", SS_LEFT | SS_NOTIFY | SS_NOPREFIX | SS_EDITCONTROL, 0};
    case ControlKind::Cover:
      return {"STATIC", SS_ETCHEDFRAME, 0};
    case ControlKind::TextBox:
      return {"EDIT", ES_AUTOHSCROLL | kTabStop, WS_EX_CLIENTEDGE};
    case ControlKind::ListBox:
      return {"LISTBOX", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_HSCROLL | WS_VSCROLL | kTabStop, WS_EX_CLIENTEDGE};
    case ControlKind::Button:
      return {"BUTTON", BS_PUSHBUTTON | BS_MULTILINE | kTabStop, 0};
    case ControlKind::OptionButton:
      return {"BUTTON", BS_AUTORADIOBUTTON | (firstOfGroup ? kTabStop : 0u), 0};
    case ControlKind::CheckBox:
      return {"BUTTON", BS_AUTOCHECKBOX | kTabStop, 0};
  }
  return {"STATIC", 0, 0};
}

}  // namespace

void Register_Frame_Class(HINSTANCE instance) {
  WNDCLASSEXA frameClass{};
  frameClass.cbSize = sizeof frameClass;
  // Its edge follows its size: a frame made larger must not keep its old edge painted.
  frameClass.style = CS_HREDRAW | CS_VREDRAW;
  frameClass.lpfnWndProc = Frame_Procedure;
  frameClass.hInstance = instance;
  frameClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  frameClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  frameClass.lpszClassName = kFrameClass;
  RegisterClassExA(&frameClass);
}

std::string Window_Text(HWND window) {
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(window)) + 1, '\0');
  text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

HWND Create_Control(const ControlDeclaration& declaration, const ControlState& state, HWND parent,
                    const TwipsScale& scale) {
  const WindowKind kind = Kind_Of(declaration.Kind, declaration.StartsGroup);
  DWORD style = WS_CHILD | kind.Style;
  if (state.Visible) style |= WS_VISIBLE;
  if (!state.Enabled) style |= WS_DISABLED;
  const RECT place = scale.Pixels(state.Rect);
  const auto identifier = reinterpret_cast<HMENU>(static_cast<INT_PTR>(declaration.Id.Value()));
  return CreateWindowExA(kind.ExStyle, kind.ClassName, state.Caption.c_str(), style, place.left, place.top,
                         place.right - place.left, place.bottom - place.top, parent, identifier,
                         reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(parent, GWLP_HINSTANCE)), nullptr);
}

void ToolTips::Create(HWND owner) {
  window_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr,
                            reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(owner, GWLP_HINSTANCE)), nullptr);
}

void ToolTips::Set(HWND control, const std::string& text) {
  const bool known = tools_.contains(control);
  // A tool hooks its control's messages: lists without a tip stay unhooked.
  if (!window_ || (!known && text.empty())) return;
  tools_.insert(control);
  TTTOOLINFOA tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = GetParent(control);
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = const_cast<char*>(text.c_str());
  SendMessageA(window_, known ? TTM_UPDATETIPTEXTA : TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
}

void ToolTips::Activate(bool active) {
  if (!window_) return;
  if (!active) SendMessageA(window_, TTM_POP, 0, 0);
  SendMessageA(window_, TTM_ACTIVATE, active, 0);
}

}  // namespace velmora
