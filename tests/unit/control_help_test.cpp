// The help of both forms' controls.
#include <gtest/gtest.h>

#include "editor_layout.h"
#include "envvar_setup_layout.h"

namespace velmora::test {
namespace {

// Every control has a text and a page of its form's help; F1 on the form opens the form's own page.
TEST(ControlHelpTest, EveryControlHasATextAndF1OpensAPageOfItsForm) {
  for (const FormDeclaration* form : {&Editor_Form(), &Batch_Form()}) {
    EXPECT_EQ(Help_Page_For(*form, form->Form), form->HelpPage);
    for (const ControlDeclaration& control : form->Controls) {
      ASSERT_NE(Find_Control_Help(*form, control.Id), nullptr) << control.Name;
      EXPECT_EQ(Help_Page_For(*form, control.Id).rfind(form->HelpPage, 0), 0u) << control.Name;
    }
  }
}

}  // namespace
}  // namespace velmora::test
