// The engine's context: the run state, the editor's values, the lists, the
// error reporter's state and the platform seams. Every engine procedure takes it first.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "desktop.h"
#include "editor_surface.h"
#include "error_report.h"
#include "file_table.h"
#include "host.h"
#include "list_model.h"
#include "registry.h"
#include "run_state.h"

namespace velmora {

class WindowAutomation;  // the window commands, supplied by the automation library

struct Engine {
  Engine(Host& h, Registry& r, Desktop* d = nullptr) : host(h), registry(r), desktop(d) {}

  Host& host;
  Registry& registry;
  Desktop* desktop;
  EditorSurface* surface = nullptr;  // the editor's window; none in an automatic session
  WindowAutomation* automation = nullptr;

  RunState state;
  EditorState editor;
  FileTable files;

  ListModel TraceWindow;      // the script lines; the selected index is the current line
  ListModel DebugWindow;      // the debug output shown in the editor
  ListModel LogicalControls;  // the block table
  // Beside the block table: for every script line, the block table item that
  // names it as a keyword line (-1 for none), so jumps need no search.
  std::vector<std::int32_t> BlockItemOfLine;

  ReportState reports;  // the error reporter's own state
};

}  // namespace velmora
