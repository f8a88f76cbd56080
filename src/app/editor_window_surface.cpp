// The engine's view of the window: the debug frame and the trace font.
#include "editor_window.h"

namespace velmora {

void EditorWindow::EnableDebugFrame() {
  controls_.SetEnabled(ControlId::DebugFrame, true);
  controls_.SetEnabled(ControlId::DebugWindow, true);
}

std::string EditorWindow::SetTraceFont(const std::string& name) { return Set_List_Font(ControlId::TraceWindow, name); }

}  // namespace velmora
