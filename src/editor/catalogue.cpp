// PLACEHOLDER: replaced by the catalogue work.
#include "editor_form.h"
namespace velmora {
void EditorForm::Load_Commands(int) {}
void EditorForm::CommandList_Click(long) {}
}  // namespace velmora
