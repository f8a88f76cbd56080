// PLACEHOLDER: replaced by the file work.
#include "editor_form.h"
namespace velmora {
void EditorForm::Open_Script_File() {}
void EditorForm::Save_Script_File() {}
void EditorForm::Save_Debug_File() {}
void EditorForm::Browse_For_Program() {}
void EditorForm::Load_Script_And_Debug() {}
void EditorForm::Change_Folder_For(const std::string&) {}
void EditorForm::Show_File_Labels() {}
void EditorForm::CommandLine_GotFocus() {}
void EditorForm::ScriptFileLabel_MouseDown(int) {}
void EditorForm::ScriptFileLabel_MouseUp(int) {}
void EditorForm::DebugFileLabel_MouseDown(int) {}
void EditorForm::DebugFileLabel_MouseUp(int) {}
}  // namespace velmora
