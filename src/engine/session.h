// A session's start and end: the speed factor, the start-up decision, the
// opening of the script and debug files with the session header, the
// automatic run loop, and the shut-down.
#pragma once

#include <string>

#include "run_state.h"

namespace velmora {

struct Engine;
class Host;

// What plays a script: checks it before the run, then runs the selected
// line and moves the selection. The language library supplies the real one.
class ScriptRunner {
 public:
  virtual ~ScriptRunner() = default;
  virtual void Preprocess(Engine& engine) = 0;
  virtual void Process_Line(Engine& engine) = 0;
};

// SPEED_FACTOR when it is numeric and above 0; 1 otherwise.
double Read_Speed_Factor(Host& host);

// What VELMORA_PACE chooses: the pace, and the header line that names the
// setting (empty when it is not set).
struct PaceSetting {
  Pace pace = Pace::Default;
  std::string headerLine;
};
PaceSetting Read_Pace(Host& host);

// The editor's start-up. Runs an automatic session when the command line names
// a script and a debug file (and then never returns); otherwise prepares the
// interactive session and returns.
void Form_Load(Engine& engine, ScriptRunner& runner);

[[noreturn]] void Run_Automatic_Session(Engine& engine, ScriptRunner& runner);

void Initial_Setup(Engine& engine, bool interactive, bool& debugOn, bool& stopRunning, FileNumber& scriptFileNumber,
                   FileNumber& debugFileNumber);

void Shut_Down(Engine& engine, bool interactive, FileNumber scriptFileNumber, FileNumber debugFileNumber);

// The index of the next line after the given one that holds a command (not
// blank, not a comment), or -1.
long Next_Executeable_Statement(Engine& engine, long index);

// Sleeps 95 ms and lets the user interface run, once for every tenth.
void Pause_Tenths(Engine& engine, int tenths);
// The pause between two lines: a tenth in the default pace; in the fast pace
// only the user interface runs.
void Pause_Between_Lines(Engine& engine);

}  // namespace velmora
