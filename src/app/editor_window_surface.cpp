// The engine's view of the window: text measured in the lists' own fonts,
// their widths and horizontal scroll extents, the debug frame and the
// trace font.
#include "editor_window.h"
#include "win32_handles.h"

namespace velmora {

long EditorWindow::Measure(ControlId list, const std::string& text) {
  if (!measureDc_) measureDc_.reset(CreateCompatibleDC(nullptr));
  const auto font = reinterpret_cast<HGDIOBJ>(SendMessageA(Control(list), WM_GETFONT, 0, 0));
  if (font) SelectObject(measureDc_.get(), font);  // the stock font stays the DC's own to restore
  SIZE size{};
  GetTextExtentPoint32A(measureDc_.get(), text.c_str(), static_cast<int>(text.size()), &size);
  return size.cx;
}

long EditorWindow::Client_Width(ControlId list) {
  RECT client{};
  GetClientRect(Control(list), &client);
  return client.right - client.left;
}

long EditorWindow::MeasureDebugText(const std::string& text) { return Measure(ControlId::DebugWindow, text); }

long EditorWindow::DebugWindowWidth() { return Client_Width(ControlId::DebugWindow); }

void EditorWindow::SetDebugHorizontalExtent(long pixels) {
  SendMessageA(Control(ControlId::DebugWindow), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(pixels), 0);
}

void EditorWindow::EnableDebugFrame() {
  controls_.SetEnabled(ControlId::DebugFrame, true);
  controls_.SetEnabled(ControlId::DebugWindow, true);
}

long EditorWindow::MeasureTraceText(const std::string& text) { return Measure(ControlId::TraceWindow, text); }

long EditorWindow::TraceWindowWidth() { return Client_Width(ControlId::TraceWindow); }

void EditorWindow::SetTraceHorizontalExtent(long pixels) {
  SendMessageA(Control(ControlId::TraceWindow), LB_SETHORIZONTALEXTENT, static_cast<WPARAM>(pixels), 0);
}

// The font system gives the nearest face it has; its name tells the caller
// whether the wanted one exists.
std::string EditorWindow::SetTraceFont(const std::string& name) {
  FontSpec font = controls_[ControlId::TraceWindow].Font;
  font.Name = name;
  controls_.SetFont(ControlId::TraceWindow, font);
  HWND list = Control(ControlId::TraceWindow);
  const ScopedWindowDC dc(list);
  const ScopedSelection selected(dc.get(), fonts_.Get(font));
  char face[LF_FACESIZE] = "";
  GetTextFaceA(dc.get(), LF_FACESIZE, face);
  return face;
}

}  // namespace velmora
