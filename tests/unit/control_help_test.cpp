#include <gtest/gtest.h>

#include "control_help.h"
#include "editor_layout.h"
#include "envvar_setup_layout.h"

namespace velmora::test {
namespace {

// Every control of each form has a text, and F1 on it opens a page of that
// form's help; F1 on the form itself opens the form's own page.
TEST(ControlHelpTest, EveryControlHasATextAndF1OpensAPageOfItsForm) {
  const struct {
    const std::vector<ControlDeclaration>* controls;
    HelpForm form;
    std::string page, areaPrefix;
  } forms[] = {{&Editor_Controls(), HelpForm::Editor, "editor", "editor-"},
               {&Batch_Controls(), HelpForm::BatchEditor, "batch-editor", "batch-editor"}};
  for (const auto& form : forms) {
    EXPECT_EQ(Help_Page_For(ControlId::Form, form.form), form.page);
    for (const ControlDeclaration& control : *form.controls) {
      SCOPED_TRACE(control.Name);
      const ControlHelp* help = Find_Control_Help(control.Id);
      ASSERT_NE(help, nullptr);
      EXPECT_GT(std::string(help->Text).size(), 10u);
      EXPECT_EQ(Help_Page_For(control.Id, form.form), help->Page);
      EXPECT_EQ(std::string(help->Page).rfind(form.areaPrefix, 0), 0u);
    }
  }
  EXPECT_EQ(Help_Topic("C:\\Velmora\\Velmora.chm", "editor-panel"), "C:\\Velmora\\Velmora.chm::/editor-panel.html");
}

}  // namespace
}  // namespace velmora::test
