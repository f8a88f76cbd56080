// PLACEHOLDER: replaced by the composer work.
#include "editor_form.h"
namespace velmora {
std::string EditorForm::Compose_Line() { return {}; }
void EditorForm::InsertCommandButton_Click() {}
void EditorForm::TraceWindow_DblClick() {}
void EditorForm::TraceWindow_Click() {}
void EditorForm::RemoveCommandButton_Click() {}
}  // namespace velmora
