#include "control_help.h"

namespace velmora {

namespace {

#define VELMORA_CONTROL_HELP(id, page, title, text) {ControlId::id, page, title, text},
constexpr ControlHelp kControlHelp[] = {
#include "control_help_table.inc"
};
#undef VELMORA_CONTROL_HELP

}  // namespace

const ControlHelp* Find_Control_Help(ControlId id) {
  for (const ControlHelp& entry : kControlHelp)
    if (entry.Id == id) return &entry;
  return nullptr;
}

std::string Help_Page_For(ControlId focused, HelpForm form) {
  if (const ControlHelp* entry = Find_Control_Help(focused)) return entry->Page;
  return form == HelpForm::Editor ? "editor" : "batch-editor";
}

std::string Help_Topic(const std::string& helpFile, const std::string& page) {
  return helpFile + "::/" + page + ".html";
}

}  // namespace velmora
