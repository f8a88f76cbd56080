// The Editor form's model: its members and its procedures, as plain C++
// against the seams. The Win32 view forwards every event here and shows
// what FormControls holds; tests call the procedures directly.
#pragma once

#include <cstdint>
#include <string>

#include "file_dialogs.h"
#include "form_controls.h"
#include "form_window.h"
#include "list_model.h"
#include "trace_extent.h"

namespace velmora {

struct Engine;
struct ParsedCommand;
class CRegSettings;

class EditorForm {
 public:
  EditorForm(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs,
             CRegSettings& settings);

  // Lifecycle and layout.
  void Form_Load_Interactive();  // the editor's own loading, after the engine's Form_Load
  void Form_Resize();
  void Form_QueryUnload();
  void Set_Trace_HScroll_Bar();

  // The catalogue and the parameter panel.
  void Load_Commands(int catalogue);
  void CommandList_Click(long position);
  void Set_Control_State(const std::string& group, bool enabled = false);

  // Composing and editing lines.
  void InsertCommandButton_Click();
  void TraceWindow_DblClick();
  void TraceWindow_Click();
  void RemoveCommandButton_Click();
  void Minutes_Change();
  void Seconds_Change();
  void CommandLine_Change();
  void CommandLine_GotFocus();

  // Files.
  void OpenScriptButton_Click() { Open_Script_File(); }
  void SaveScriptButton_Click() { Save_Script_File(); }
  void CreateDebugButton_Click() { Save_Debug_File(); }
  void Open_Script_File();
  void Save_Script_File();
  void Save_Debug_File();
  void Browse_For_Program();
  void Load_Script_And_Debug();
  void ScriptFileLabel_MouseDown(int button);
  void ScriptFileLabel_MouseUp(int button);
  void DebugFileLabel_MouseDown(int button);
  void DebugFileLabel_MouseUp(int button);

  // Members of the form.
  static constexpr std::uint8_t kNoEntry = 255;
  // InsertCommandButton's captions; the overwrite one tells that a double
  // click put a script line in the panel.
  static constexpr char kInsertCaption[] = "Insert Command";
  static constexpr char kOverwriteCaption[] = "Overwrite Command";
  std::uint8_t CommandMap[17] = {kNoEntry};
  long ChosenPosition = kNoEntry;  // list position of the entry chosen last
  std::uint8_t CurrentCode = kNoEntry;
  int Catalogue = 1;
  bool OverwriteMode = false;
  bool ScriptChanged = false;
  bool DebugFileOpen = false;
  bool StartupLoad = false;
  bool DebugPromptPending = false;
  long ComposedTimeOut = 0;  // seconds of the last findwindow or wait line composed
  std::string HelpFile;

  ListModel CommandList;  // the catalogue shown; the view's list box mirrors it

  FormControls& Controls() { return controls_; }

 private:
  // Helpers of the procedures above live in their own files.
  std::string Compose_Line();
  void Change_Folder_For(const std::string& quotedName);
  void Show_File_Labels();
  void Focus_First_Enabled_Field();
  void Filter_Time_Field(ControlId field);
  void Close_Debug_File();
  bool Both_Names_Set() const;
  void Restore_Placement();
  void Restore_File_Names();
  void Save_Placement();
  void Set_Debug_HScroll_Bar();
  void Highlight_After_Load(long stoppedAt);
  void Stretch_Label(ControlId label, bool held);
  void Prepare_Panel(std::uint8_t code);
  void Reset_Panel(bool emptyTexts);
  void Write_Default(ControlId field, const char* text);
  void Show_Mouse_Options(const char* letters, int buttons);
  void Show_Choice_Options(const std::string& first, const std::string& second, const FontSpec& font,
                           const std::string& toolTip);
  bool Insert_Allowed() const;
  void Place_Line(const std::string& line);
  void Set_Overwrite_Mode(bool on);
  void Fill_Panel(const ParsedCommand& parsed, const std::string& line);
  void Fill_Time(const std::string& time);

  Engine& engine_;
  FormControls& controls_;
  FormWindow& window_;
  FileDialogs& dialogs_;
  CRegSettings& settings_;
  TraceExtent traceExtent_;
  long traceExtentSent_ = -1;  // the extent last given to the trace list
};

}  // namespace velmora
