// The engine's context: the run state, the editor's values, the lists and
// the platform seams. Every engine procedure takes it first.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "desktop.h"
#include "editor_surface.h"
#include "file_table.h"
#include "host.h"
#include "list_model.h"
#include "registry.h"
#include "run_state.h"

namespace velmora {

class WindowAutomation;  // the window commands, supplied by the automation library

// The last error report asked for, for a form that shows reports its own way.
struct ReportRecord {
  long code = 0;
  std::string message;
  std::string title;
  std::string location;
  int kind = 0;
  long line = -1;  // the script line (from 0) that the pass over the script was at; -1 outside it
};

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

  long reportsMade = 0;      // error reports asked for, so a caller can tell that its step failed
  ReportRecord lastReport;   // the last of them
  int reportDepth = 0;       // error reports under way; a report from inside one is not written
  bool nestedFatal = false;  // a fatal report arrived while another report was being written

  // A script checker wants every complaint rather than a run's first: when
  // set, reports go here instead of the log, end no session, and the pass
  // over the script goes on past block errors.
  std::function<void(const ReportRecord&)> reportObserver;
  long reportLine = -1;  // the line the pass over the script is at, for the reports it makes
};

}  // namespace velmora
