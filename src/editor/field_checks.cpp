// The change handlers of the panel's text fields: times and positions take
// digits only, and the insert button follows whether the line is complete.
#include <string_view>

#include "command_codes.h"
#include "command_panel.h"
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

// A time is a whole number of at most five digits that starts with 1 to 9.
bool Is_Time_Number(std::string_view text) {
  return text.size() <= kLongestNumber &&
         (text.empty() || (kLeadingDigits.find(text[0]) != std::string_view::npos &&
                           text.find_first_not_of(kDigits) == std::string_view::npos));
}

// What a pasted text leaves: its digits, without leading zeros, five at most.
std::string Time_Digits_Of(const std::string& text) {
  std::string digits;
  for (const char c : text)
    if (kDigits.find(c) != std::string_view::npos && !(digits.empty() && c == '0')) digits += c;
  return digits.substr(0, kLongestNumber);
}

}  // namespace

// A line can be made from the panel: the fields its command needs hold text,
// and a time or position is more than zero (an empty field counts as 0).
bool CommandPanel::Insert_Allowed() const {
  const auto text = [&](ControlId id) { return Trim(controls_[id].Caption); };
  const auto number = [&](ControlId id) { return Numeric_Value(text(id)).value_or(0); };
  const bool timeGiven = number(C::Minutes) + number(C::Seconds) > 0;
  switch (currentCode_) {
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
      return currentCode_ <= kSendButtonsCommand;
  }
}

// A character typed that does not fit a time is taken out again (the one
// before the caret); a paste that does not fit keeps only its digits. The
// variable name and text of test are free text.
void CommandPanel::Filter_Time_Field(ControlId field) {
  const std::string text = controls_[field].Caption;
  const long caret = controls_[field].Caret;
  if (currentCode_ != kTestCommand && !Is_Time_Number(text)) {
    const bool typed = caret > 0 && caret <= static_cast<long>(text.size());
    std::string without = text;
    if (typed) without.erase(static_cast<std::size_t>(caret - 1), 1);
    if (typed && Is_Time_Number(without)) {
      controls_.SetCaption(field, without);
      controls_.SetCaret(field, caret - 1);
    } else {
      const std::string digits = Time_Digits_Of(text);
      controls_.SetCaption(field, digits);
      controls_.SetCaret(field, static_cast<long>(digits.size()));
    }
  }
  controls_.SetEnabled(C::InsertCommandButton, Insert_Allowed());
}

// Each field reports its own errors, under its own name.
void CommandPanel::Field_Changed(ControlId field) {
  if (field == C::Minutes || field == C::Seconds) {
    const char* where =
        field == C::Minutes ? "Editor.Minutes.Change.TrappableErrors.1" : "Editor.Seconds.Change.TrappableErrors.1";
    return Trap(engine_, true, where, kGoOn, [&] { Filter_Time_Field(field); });
  }
  if (field != C::CommandLine) return;
  Trap(engine_, true, "Editor.CommandLine.Change.TrappableErrors.1", kGoOn,
       [&] { controls_.SetEnabled(C::InsertCommandButton, Insert_Allowed()); });
}

}  // namespace velmora
