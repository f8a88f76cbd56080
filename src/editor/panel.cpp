// PLACEHOLDER: replaced by the panel work.
#include "editor_form.h"
namespace velmora {
void EditorForm::Set_Control_State(const std::string&, bool) {}
void EditorForm::Focus_First_Enabled_Field() {}
}  // namespace velmora
