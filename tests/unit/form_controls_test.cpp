// A form's controls: an option clears only its own group, and another form's
// identifier is refused rather than taken for one of this form's.
#include <gtest/gtest.h>

#include "editor_layout.h"
#include "envvar_setup_layout.h"

namespace velmora::testing {
namespace {

TEST(FormControlsTest, AnOptionClearsOnlyItsGroupAndAnotherFormsIdentifierIsRefused) {
  FormControls controls{Editor_Form()};
  for (const ControlId id : {ControlId::MouseButton1, ControlId::DebugState0, ControlId::MouseButton2})
    controls.SetChecked(id, true);
  EXPECT_FALSE(controls[ControlId::MouseButton1].Checked);
  EXPECT_TRUE(controls[ControlId::DebugState0].Checked && controls[ControlId::MouseButton2].Checked);
  EXPECT_THROW(controls.SetCaption(BatchId::EnvVarValue, "x"), std::logic_error);
  EXPECT_THROW((void)controls[BatchId::Form], std::logic_error);
}

}  // namespace
}  // namespace velmora::testing
