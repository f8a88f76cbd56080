#include "error_report.h"

#include <cstdlib>

#include "about.h"
#include "debug_log.h"
#include "engine.h"
#include "session.h"
#include "trap.h"

namespace velmora {

namespace {

const std::string kRule(77, '-');

// Restores a flag when the scope ends, however it ends.
class FlagGuard {
 public:
  explicit FlagGuard(bool& flag) : flag_(flag), saved_(flag) { flag_ = true; }
  ~FlagGuard() { flag_ = saved_; }
  FlagGuard(const FlagGuard&) = delete;
  FlagGuard& operator=(const FlagGuard&) = delete;

 private:
  bool& flag_;
  bool saved_;
};

void Close_Block(Engine& engine, bool interactive) {
  Log_Always(engine, interactive, kRule);
  Log_Always(engine, interactive, "");
}

[[noreturn]] void End_Automatic_Session(Engine& engine) {
  engine.state.ReportingFatalError = true;
  // The closing rule goes out before the debug file is closed, so that the
  // file always ends with a whole block.
  Close_Block(engine, false);
  Shut_Down(engine, false, engine.state.ScriptFileNumber, engine.state.DebugFileNumber);
  engine.host.Beep();
  engine.host.EndProcess(1);
  std::abort();  // EndProcess never returns
}

}  // namespace

void Report_Error(Engine& engine, bool interactive, long code, const std::string& message, const std::string& title,
                  const std::string& location, int kind) {
  RunState& state = engine.state;
  ReportState& reports = engine.reports;
  ++reports.made;
  reports.last = {code, message, title, location, kind, reports.line};
  if (reports.observer) {
    if (kind == kFatal) state.StopRunning = true;
    reports.observer(reports.last);
    return;
  }
  // A report raised while a report writes its own lines (the debug file
  // itself failing) would only recurse: it is not written, but when it is
  // fatal the outer report ends the run in its place.
  if (state.ReportingFatalError) return;
  if (reports.depth > 0) {
    if (kind == kFatal) reports.nestedFatal = true;  // the outer report ends the run for it
    return;
  }
  ++reports.depth;
  struct DepthGuard {
    int& depth;
    ~DepthGuard() { --depth; }
  } depthGuard{reports.depth};

  Log_Always(engine, interactive, "");
  Log_Always(engine, interactive, kRule);
  Log_Always(engine, interactive, Identification_Line());
  if (kind == kFatal) {
    if (interactive && engine.surface) engine.surface->EnableDebugFrame();
    Log_Always(engine, interactive, "Fatal Error:  " + message + ".");
    Log_Always(engine, interactive, "Error Code:  " + std::to_string(code));
    Log_Always(engine, interactive, "Error Location:  " + location);
    Log_Always(engine, interactive,
               "Program will TERMINATE.  This operation was unsuccessful and caused a fatal error.");
    if (!interactive) End_Automatic_Session(engine);
    {
      FlagGuard guard(state.ReportingFatalError);
      Close_Block(engine, interactive);
    }
    state.ReportingFatalError = false;
    state.StopRunning = true;
    return;
  }
  Log_Always(engine, interactive, message + ".");
  Log_Always(engine, interactive, "Error Code:  " + std::to_string(code));
  Log_Always(engine, interactive, "Error Location:  " + location);
  Log_Always(engine, interactive, "Program will continue, but this operation was unsuccessful.");
  if (!state.StopRunning) Close_Block(engine, interactive);
  if (reports.nestedFatal) {
    reports.nestedFatal = false;
    if (!interactive) End_Automatic_Session(engine);
    state.StopRunning = true;
  }
}

}  // namespace velmora
