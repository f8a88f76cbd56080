// PLACEHOLDER: replaced by the field checks work.
#include "editor_form.h"
namespace velmora {
void EditorForm::Minutes_Change() {}
void EditorForm::Seconds_Change() {}
void EditorForm::CommandLine_Change() {}
void EditorForm::Filter_Time_Field(ControlId) {}
}  // namespace velmora
