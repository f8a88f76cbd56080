#include "session_window.h"

#include "about.h"
#include "engine.h"

namespace velmora {

namespace {

constexpr char kClassName[] = "VelmoraSessionWindow";

HWND Create_List(HWND parent, int id) {
  return CreateWindowExA(WS_EX_CLIENTEDGE, "LISTBOX", "",
                         WS_CHILD | WS_VISIBLE | WS_VSCROLL | WS_HSCROLL | LBS_NOINTEGRALHEIGHT | LBS_NOTIFY, 0, 0, 0,
                         0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
}

}  // namespace

SessionWindow::~SessionWindow() {
  traceMirror_.reset();
  debugMirror_.reset();
}

bool SessionWindow::Create(HINSTANCE instance, int show) {
  WNDCLASSEXA windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = instance;
  windowClass.hIcon = LoadIconA(instance, MAKEINTRESOURCEA(1));
  windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
  windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
  windowClass.lpszClassName = kClassName;
  RegisterClassExA(&windowClass);

  window_ = CreateWindowExA(0, kClassName, About().Title.c_str(), WS_OVERLAPPEDWINDOW, CW_USEDEFAULT, CW_USEDEFAULT,
                            800, 600, nullptr, nullptr, instance, this);
  if (!window_) return false;
  traceList_ = Create_List(window_, 1);
  debugList_ = Create_List(window_, 2);
  SendMessageA(debugList_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), TRUE);
  traceMirror_ = std::make_unique<ListBoxMirror>(engine_.TraceWindow, traceList_);
  debugMirror_ = std::make_unique<ListBoxMirror>(engine_.DebugWindow, debugList_);
  Layout();
  ShowWindow(window_, show);
  return true;
}

LRESULT CALLBACK SessionWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    auto* create = reinterpret_cast<CREATESTRUCTA*>(lParam);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
  }
  auto* self = reinterpret_cast<SessionWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  switch (message) {
    case WM_SIZE:
      if (self) self->Layout();
      return 0;
    case WM_DESTROY:
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcA(window, message, wParam, lParam);
  }
}

void SessionWindow::Layout() {
  if (!traceList_) return;
  RECT client;
  GetClientRect(window_, &client);
  const int half = (client.bottom - client.top) / 2;
  MoveWindow(traceList_, 0, 0, client.right, half, TRUE);
  MoveWindow(debugList_, 0, half, client.right, client.bottom - half, TRUE);
}

long SessionWindow::MeasureDebugText(const std::string& text) {
  const ScopedWindowDC dc(debugList_);
  const ScopedSelection font(dc.get(), reinterpret_cast<HGDIOBJ>(SendMessageA(debugList_, WM_GETFONT, 0, 0)));
  SIZE size{};
  GetTextExtentPoint32A(dc.get(), text.c_str(), static_cast<int>(text.size()), &size);
  return size.cx;
}

long SessionWindow::DebugWindowWidth() {
  RECT client;
  GetClientRect(debugList_, &client);
  return client.right - client.left;
}

void SessionWindow::SetDebugHorizontalExtent(long pixels) {
  SendMessageA(debugList_, LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(pixels), 0);
}

void SessionWindow::EnableDebugFrame() { EnableWindow(debugList_, TRUE); }

std::string SessionWindow::SetTraceFont(const std::string& name) {
  ScopedFont font(CreateFontA(-13, 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET, OUT_DEFAULT_PRECIS,
                           CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, FIXED_PITCH | FF_MODERN, name.c_str()));
  SendMessageA(traceList_, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
  traceFont_ = std::move(font);  // the list box no longer uses the old one
  const ScopedWindowDC dc(traceList_);
  const ScopedSelection selected(dc.get(), traceFont_.get());
  char face[LF_FACESIZE] = "";
  GetTextFaceA(dc.get(), LF_FACESIZE, face);
  return face;
}

}  // namespace velmora
