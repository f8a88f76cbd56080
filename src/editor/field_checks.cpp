// The change handlers of the panel's text fields: times and positions take
// digits only, and the insert button follows whether the line is complete.
#include <string_view>

#include "command_codes.h"
#include "editor_form.h"
#include "engine.h"
#include "numeric.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

using C = ControlId;

constexpr std::string_view kLeadingDigits = "123456789";
constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kLongestNumber = 5;

}  // namespace

// A line can be made from the panel: the fields its command needs hold text,
// and a time or position is more than zero (an empty field counts as 0).
bool EditorForm::Insert_Allowed() const {
  const auto text = [&](ControlId id) { return Trim(controls_[id].Caption); };
  const auto number = [&](ControlId id) { return Numeric_Value(text(id)).value_or(0); };
  const bool timeGiven = number(C::Minutes) + number(C::Seconds) > 0;
  switch (CurrentCode) {
    case kRunCommand:
    case kSendKeysCommand:
    case kCommentLine:
      return !text(C::CommandLine).empty();
    case kFindWindowCommand:
      return !text(C::CommandLine).empty() && timeGiven;
    case kWaitCommand:
    case kUseMouseCommand:
      return timeGiven;
    case kTestCommand:
      return !text(C::Minutes).empty();
    default:
      return CurrentCode <= kSendButtonsCommand;
  }
}

// The character before the caret is the one just typed: a number starts with
// 1 to 9 and goes on with digits, at most five of them. The variable name and
// text of test are free text.
void EditorForm::Filter_Time_Field(ControlId field) {
  const std::string text = controls_[field].Caption;
  const long caret = controls_[field].Caret;
  if (CurrentCode != kTestCommand && caret > 0 && caret <= static_cast<long>(text.size())) {
    const char typed = text[static_cast<std::size_t>(caret - 1)];
    const std::string_view allowed = caret == 1 ? kLeadingDigits : kDigits;
    if (allowed.find(typed) == std::string_view::npos || Trim(text).size() > kLongestNumber) {
      controls_.SetCaption(
          field, text.substr(0, static_cast<std::size_t>(caret - 1)) + text.substr(static_cast<std::size_t>(caret)));
      controls_.SetCaret(field, caret - 1);
    }
  }
  controls_.SetEnabled(C::InsertCommandButton, Insert_Allowed());
}

void EditorForm::Minutes_Change() {
  Trap(engine_, true, "Editor.Minutes.Change.TrappableErrors.1", kGoOn, [&] { Filter_Time_Field(C::Minutes); });
}

void EditorForm::Seconds_Change() {
  Trap(engine_, true, "Editor.Seconds.Change.TrappableErrors.1", kGoOn, [&] { Filter_Time_Field(C::Seconds); });
}

void EditorForm::CommandLine_Change() {
  Trap(engine_, true, "Editor.CommandLine.Change.TrappableErrors.1", kGoOn,
       [&] { controls_.SetEnabled(C::InsertCommandButton, Insert_Allowed()); });
}

}  // namespace velmora
