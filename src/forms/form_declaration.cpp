#include "form_declaration.h"

namespace velmora {

const ControlDeclaration* Find_Declaration(const FormDeclaration& form, ControlKey id) {
  for (const ControlDeclaration& declaration : form.Controls)
    if (declaration.Id == id) return &declaration;
  return nullptr;
}

const ControlHelp* Find_Control_Help(const FormDeclaration& form, ControlKey id) {
  for (const ControlHelp& entry : form.Help)
    if (entry.Id == id) return &entry;
  return nullptr;
}

std::string Help_Page_For(const FormDeclaration& form, ControlKey focused) {
  if (const ControlHelp* entry = Find_Control_Help(form, focused)) return entry->Page;
  return form.HelpPage;
}

std::string Help_Topic(const std::string& helpFile, const std::string& page) {
  return helpFile + "::/" + page + ".html";
}

}  // namespace velmora
