// The engine's view of the window: text measured in the lists' own fonts,
// their widths and horizontal scroll extents, the debug frame and the
// trace font.
#include "editor_window.h"

namespace velmora {

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

std::string EditorWindow::SetTraceFont(const std::string& name) { return Set_List_Font(ControlId::TraceWindow, name); }

}  // namespace velmora
