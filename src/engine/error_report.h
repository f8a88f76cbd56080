// The error report: a framed block in the debug log that either lets the
// program go on or ends the run.
#pragma once

#include <functional>
#include <string>

namespace velmora {

struct Engine;

// The last error report asked for, for a form that shows reports its own way.
struct ReportRecord {
  long code = 0;
  std::string message;
  std::string title;
  std::string location;
  int kind = 0;
  long line = -1;  // the script line (from 0) that the pass over the script was at; -1 outside it
};

// What the reporter keeps between reports.
struct ReportState {
  long made = 0;      // reports asked for, so a caller can tell that its step failed
  ReportRecord last;  // the last of them
  // A script checker wants every complaint rather than a run's first: when
  // set, reports go here instead of the log, end no session, and the pass
  // over the script goes on past block errors.
  std::function<void(const ReportRecord&)> observer;
  long line = -1;            // the line the pass over the script is at, for the reports it makes
  int depth = 0;             // reports under way; a report from inside one is not written
  bool nestedFatal = false;  // a fatal report arrived while another report was being written
};

void Report_Error(Engine& engine, bool interactive, long code, const std::string& message, const std::string& title,
                  const std::string& location, int kind);

}  // namespace velmora
