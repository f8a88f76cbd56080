// The editor's script and debug files: choosing them through the common
// dialogs, saving the script, loading a chosen pair, the names remembered
// between sessions, and the file labels.
#pragma once

#include <string>

#include "form_controls.h"

namespace velmora {

struct Engine;
class CRegSettings;
class CommandPanel;
class EditorActivity;
class FileDialogs;
class FormWindow;

class ScriptFiles {
 public:
  ScriptFiles(Engine& engine, FormControls& controls, FormWindow& window, FileDialogs& dialogs, CRegSettings& settings,
              CommandPanel& panel, EditorActivity& activity)
      : engine_(engine),
        controls_(controls),
        window_(window),
        dialogs_(dialogs),
        settings_(settings),
        panel_(panel),
        activity_(activity) {}

  void Open_Script_File();
  void Save_Script_File();
  void Save_Debug_File();
  void Browse_For_Program();
  void Load_Script_And_Debug();
  // The remembered names, and the script loaded without asking.
  void Load_At_Start();
  // False when the user keeps the changed script (Cancel, or a cancelled save).
  bool Script_Changes_May_Go();
  // On closing: the debug file closed, the names remembered.
  void Close_Files();
  // Holding the right button on a file label shows the whole name.
  void Label_Mouse(ControlId label, int button, bool down);

 private:
  void Change_Folder_For(const std::string& quotedName);
  void Show_File_Labels();
  bool Both_Names_Set() const;
  void Close_Debug_File();
  void Restore_File_Names();
  void Highlight_After_Load(long stoppedAt);
  void Stretch_Label(ControlId label, bool held);

  Engine& engine_;
  FormControls& controls_;
  FormWindow& window_;
  FileDialogs& dialogs_;
  CRegSettings& settings_;
  CommandPanel& panel_;
  EditorActivity& activity_;
  bool debugFileOpen_ = false;
  bool startupLoad_ = false;
  bool debugPromptPending_ = false;
};

}  // namespace velmora
