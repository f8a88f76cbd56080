// The Editor form's model: its members and its procedures, as plain C++
// against the seams. The Win32 view forwards every event here and shows
// what FormControls holds; tests call the procedures directly.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "file_dialogs.h"
#include "form_controls.h"
#include "form_window.h"
#include "desktop.h"
#include "list_model.h"
#include "target_state.h"
#include "trace_extent.h"

namespace velmora {

struct Engine;
struct ParsedCommand;
class CRegSettings;

class EditorForm {
 public:
  EditorForm(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs,
             CRegSettings& settings);
  ~EditorForm();
  EditorForm(const EditorForm&) = delete;
  EditorForm& operator=(const EditorForm&) = delete;

  // Lifecycle and layout.
  void Form_Load_Interactive();  // the editor's own loading, after the engine's Form_Load
  void Form_Resize();
  // False when the user kept the form open (cancelled saving the changed script).
  bool Form_QueryUnload();
  void Set_Trace_HScroll_Bar();

  // The catalogue and the parameter panel.
  void Load_Commands(int catalogue);
  void CommandList_Click(long position);
  void Set_Control_State(const std::string& group, bool enabled = false);

  // Composing and editing lines.
  void InsertCommandButton_Click();
  void TraceWindow_DblClick();
  void RemoveCommandButton_Click();
  void Minutes_Change();
  void Seconds_Change();
  void CommandLine_Change();

  // Running the script from the editor.
  void ExecuteButton_Click();
  void ExecuteNextButton_Click();
  void BreakPointButton_Click();
  void TraceWindow_Click();

  // Picking a window or a screen position with the mouse.
  // Entered by Tab or Shift+Tab, a field that already holds a value is left
  // to correct by hand.
  void CommandLine_GotFocus(bool byKeyboard = false);
  void Minutes_GotFocus(bool byKeyboard = false);

  // Whether the form may close now. Not while a run or a pick is under way:
  // the close then waits until the current line or sample ends.
  bool May_Close_Now();

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
  bool Running = false;      // a run or a single step is under way
  bool Picking = false;      // a window or mouse-location pick is under way
  bool CloseRequested = false;  // the user closed the form during a run or pick
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
  void Share_Height(long formHeight);
  bool Script_Changes_May_Go();
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
  void Show_Choice_Options(std::uint8_t code);
  bool Insert_Allowed() const;
  void Place_Line(const std::string& line);
  void Set_Overwrite_Mode(bool on);
  void Fill_Panel(const ParsedCommand& parsed, const std::string& line);
  void Fill_Time(const std::string& time);
  void Lock_For_Run();
  void Unlock_After_Run();
  void Show_Halt_Button(int fontSize, const char* caption);
  void Report_Halt();
  void Request_Halt();
  bool Preprocess_For_Run();
  bool Run_Highlighted_Line();
  void Show_Breakpoint_State();
  void Disable_For_Pick(const char* title, const char* logLine, const char* hint);
  void Enable_After_Pick();
  std::optional<ScreenPoint> Wait_For_Still_Pointer(bool frameWindows);
  void Erase_Frame(WindowHandle framed);
  std::string Describe_Window(WindowHandle picked, ScreenPoint point, std::vector<WindowLevel>& levels);
  void Report_Matches(const std::vector<WindowLevel>& levels, WindowHandle picked);
  void Close_If_Requested();

  Engine& engine_;
  FormControls& controls_;
  FormWindow& window_;
  FileDialogs& dialogs_;
  CRegSettings& settings_;
  // The breakpoint button follows the highlighted script line, whatever moved it.
  class BreakpointCaption : public ListObserver {
   public:
    explicit BreakpointCaption(EditorForm& form) : form_(form) {}
    void OnCleared() override {}
    void OnInserted(std::size_t) override {}
    void OnChanged(std::size_t) override { form_.Show_Breakpoint_State(); }
    void OnRemoved(std::size_t) override {}
    void OnSelected(long) override { form_.Show_Breakpoint_State(); }

   private:
    EditorForm& form_;
  };

  TraceExtent traceExtent_;
  BreakpointCaption breakpointCaption_{*this};
  long traceExtentSent_ = -1;  // the extent last given to the trace list
};

}  // namespace velmora
