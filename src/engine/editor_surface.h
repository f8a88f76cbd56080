// What the engine asks of the editor's window while an interactive session
// runs: measuring debug lines, the debug list's scroll extent, the debug frame
// and the trace font. The automatic session has no surface.
#pragma once

#include <functional>
#include <string>

namespace velmora {

class EditorSurface {
 public:
  virtual ~EditorSurface() = default;
  // Width of the text in pixels, measured in the debug list's font.
  virtual long MeasureDebugText(const std::string& text) = 0;
  virtual long DebugWindowWidth() = 0;
  virtual void SetDebugHorizontalExtent(long pixels) = 0;
  virtual void EnableDebugFrame() = 0;
  // The same for the trace list, in its own font.
  virtual long MeasureTraceText(const std::string& text) = 0;
  virtual long TraceWindowWidth() = 0;
  virtual void SetTraceHorizontalExtent(long pixels) = 0;
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
  long WidestDebugLine = 0;
};

}  // namespace velmora
