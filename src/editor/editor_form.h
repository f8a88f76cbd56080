// The Editor form's model: the parts that do its work, each against the
// seams, and the form's own life (loading, layout, closing). The Win32 view
// forwards every event here and shows what FormControls holds; tests call
// the procedures directly.
#pragma once

#include <string>

#include "command_panel.h"
#include "editor_activity.h"
#include "editor_run.h"
#include "file_dialogs.h"
#include "line_composer.h"
#include "recorder.h"
#include "screen_picker.h"
#include "script_files.h"

namespace velmora {

class EditorForm {
 public:
  EditorForm(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs, CRegSettings& settings);

  void Form_Load_Interactive();  // the editor's own loading, after the engine's Form_Load
  void Form_Resize();
  // False when the user kept the form open (cancelled saving the changed script).
  bool Form_QueryUnload();
  // Whether the form may close now. Not while a run or a pick is under way:
  // the close then waits until the current line or sample ends.
  bool May_Close_Now();

  // The view's events, by the control they come from.
  void Button_Clicked(ControlId button);
  void Text_Changed(ControlId field) { panel_.Field_Changed(field); }
  void Field_Entered(ControlId field, bool byKeyboard = false);
  void Label_Mouse(ControlId label, int button, bool down) { files_.Label_Mouse(label, button, down); }
  void CommandList_Click(long position) { panel_.CommandList_Click(position); }
  void TraceWindow_Click() { composer_.TraceWindow_Click(); }
  void TraceWindow_DblClick() { composer_.TraceWindow_DblClick(); }

  // The pace of the lines run here: kept in the settings, and said in the
  // debug output when it changes.
  void Toggle_Fast_Pace();
  bool Fast_Pace() const;
  // Recording the user's clicks and keys in other programs as script lines.
  void Toggle_Recording() { recorder_.Toggle(); }
  bool Recording() const { return recorder_.Recording(); }

  const std::string& HelpFile() const { return helpFile_; }
  CommandPanel& Panel() { return panel_; }
  ScriptFiles& Files() { return files_; }
  EditorActivity& Activity() { return activity_; }

 private:
  void Share_Height(long formHeight);

  Engine& engine_;
  FormControls& controls_;
  FormWindow& window_;
  CRegSettings& settings_;
  std::string helpFile_;
  EditorActivity activity_;
  CommandPanel panel_;
  LineComposer composer_;
  ScriptFiles files_;
  EditorRun runner_;
  ScreenPicker picker_;
  Recorder recorder_;
};

}  // namespace velmora
