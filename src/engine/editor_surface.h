// What the engine asks of the editor's window while an interactive session
// runs: the debug frame and the trace font. The automatic session has no
// surface; the lists' sideways scrolling is the window's own business.
#pragma once

#include <functional>
#include <string>

namespace velmora {

class EditorSurface {
 public:
  virtual ~EditorSurface() = default;
  virtual void EnableDebugFrame() = 0;
  // Sets the trace list's font and returns the name of the font it now has.
  virtual std::string SetTraceFont(const std::string& name) = 0;
};

// The font name that asks for any fixed-pitch font the system has.
inline constexpr char kAnyFixedPitchFont[] = "";

// The lists of script and batch lines are in "Lucida Console" where the
// system has it, else "Courier New", else any fixed-pitch font: columns stay
// aligned on a system with neither. setFont sets the list's font by name and
// returns the face it got; the face chosen last is returned.
std::string Choose_List_Font(const std::function<std::string(const std::string&)>& setFont);

// The editor's own values that the engine reads and writes.
struct EditorState {
  std::string ScriptFileName;
  std::string DebugFileName;
  bool DebugLogHasOutput = false;
  bool NewSection = false;
  bool ScriptRunning = false;
  bool QuitRun = false;  // a quit line ran in the editor: the editor's run stops after it
};

}  // namespace velmora
