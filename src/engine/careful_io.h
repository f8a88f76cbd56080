// Guarded file and process operations: each performs one operation chosen by
// a code and turns a failure into an error report that names it.
#pragma once

#include <string>

#include "host.h"
#include "run_state.h"

namespace velmora {

struct Engine;

enum CarefulOperation : int {
  kRename = 0,
  kDelete = 1,
  kCopy = 2,
  kChangeDirectory = 10,
  kChangeDrive = 11,
  kOpenInput = 20,
  kOpenOutput = 21,
  kLineInput = 22,
  kPrintLine = 23,
  kWriteQuoted = 24,
  kClose = 29,
  kShell = 30,
};

// Returns the task identifier for kShell (-1 when the program could not be
// started) and 0 for every other operation. For kShell the file number
// carries the window style. A caller that explains a failure further gets
// the platform's error through `failure`.
long Careful_IO(Engine& engine, bool interactive, int operation, FileNumber& fileNumber, std::string& first,
                const std::string& second, const std::string& location, int kind, SystemError* failure = nullptr);

// True when the numbered file has no more lines, or is not open.
bool At_End_Of_File(Engine& engine, FileNumber fileNumber);

}  // namespace velmora
