#include "findwindow_syntax.h"

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>

#include "script_text.h"
#include "time_rules.h"
#include "trap.h"

namespace velmora {

namespace {

using namespace parameter_errors;

constexpr char kQuote = '"';
constexpr char kComma = ',';
constexpr char kItemEnd[] = ", ";
constexpr int kNumbersPerLevel = 3;  // ChildID, RelativeX, RelativeY

// The level count is an unsigned 8-bit number: more than 255 levels overflow.
CheckResult Read_Count(std::string_view countText, std::uint8_t& count) {
  const auto value = Number_In(countText);
  if (!value) return &kCountNotNumeric;
  if (!Is_Whole(*value) || *value < 1) return &kCountNotPositive;
  if (*value > std::numeric_limits<std::uint8_t>::max()) throw OverflowError();
  count = static_cast<std::uint8_t>(*value);
  return nullptr;
}

// A number in the usual decimal form, without exponent. Whole numbers, the
// usual case, are written as integers, so "-0" and "+7" become "0" and "7".
void Append_Decimal(std::string& parameters, double value) {
  char buffer[400];  // room for every double in fixed form
  constexpr double kExactWhole = 9007199254740992.0;  // 2^53
  if (Is_Whole(value) && std::fabs(value) < kExactWhole) {
    const auto written = std::to_chars(buffer, buffer + sizeof buffer, static_cast<long long>(value));
    parameters.append(buffer, written.ptr);
    return;
  }
  auto written = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed);
  if (written.ec != std::errc()) written = std::to_chars(buffer, buffer + sizeof buffer, value);
  parameters.append(buffer, written.ptr);
}

// Walks the parameter text level by level, building the normalised text.
class FindWindowWalk {
 public:
  FindWindowWalk(std::string_view text, std::string_view rest, std::string& parameters, FindWindowPlace* place)
      : text_(text), rest_(rest), parameters_(parameters), place_(place) {}

  std::string_view Rest() const { return rest_; }

  // string := '"' text-without-quotes '"' ','
  CheckResult Read_Quoted(bool opensNext) {
    if (rest_.empty() || rest_.front() != kQuote) return &kOpeningQuoteMissing;
    const auto closing = rest_.find(kQuote, 1);
    if (closing == std::string_view::npos) return &kClosingQuoteMissing;
    parameters_.append(rest_.substr(1, closing)).append(kItemEnd);  // the text and its closing quote
    if (opensNext) parameters_ += kQuote;
    rest_ = Trim_Blanks(rest_.substr(closing + 1));
    if (rest_.empty() || rest_.front() != kComma) return &kCommaAfterTextMissing;
    rest_ = Trim_Blanks(rest_.substr(1));
    return nullptr;
  }

  // number := digits ['.' digits] ','. The comma is checked only where
  // another number of the same level follows; elsewhere a missing comma
  // leaves nothing to cut at and fails as a text operation.
  CheckResult Read_Number(bool commaChecked, bool wholeOnly, bool opensNext) {
    const auto comma = rest_.find(kComma);
    if (comma == std::string_view::npos) {
      if (commaChecked) return &kCommaAfterNumberMissing;
      throw InvalidCallError();
    }
    const auto value = Number_In(rest_.substr(0, comma));
    if (!value) return &kChildIdNotNumeric;
    if (*value < 0 || (wholeOnly && !Is_Whole(*value))) return &kNumberNotValid;
    Append_Decimal(parameters_, *value);
    parameters_.append(kItemEnd);
    if (opensNext) parameters_ += kQuote;
    rest_ = Trim_Blanks(rest_.substr(comma + 1));
    return nullptr;
  }

  // Where the next field starts, for a checker.
  void Mark(int level, FindWindowPlace::Field field) {
    place_->level = level;
    place_->field = field;
    place_->offset = static_cast<std::size_t>(rest_.data() - text_.data());
  }

  // level := string string number number number
  CheckResult Read_Level(int level, bool lastLevel) {
    Mark(level, FindWindowPlace::kTitle);
    if (auto error = Read_Quoted(true)) return error;
    Mark(level, FindWindowPlace::kClass);
    if (auto error = Read_Quoted(false)) return error;
    for (int number = 0; number < kNumbersPerLevel; ++number) {
      const bool third = number == kNumbersPerLevel - 1;
      Mark(level, static_cast<FindWindowPlace::Field>(FindWindowPlace::kChildId + number));
      if (auto error = Read_Number(!lastLevel && !third, number == 0, third && !lastLevel)) return error;
    }
    return nullptr;
  }

 private:
  std::string_view text_;
  std::string_view rest_;
  std::string& parameters_;
  FindWindowPlace* place_;  // never null
};

}  // namespace

// findwindow := count ',' level {level} time
CheckResult Read_FindWindow(std::string_view text, double speedFactor, std::string& parameters,
                            std::int32_t& timeOut, FindWindowPlace* place) {
  FindWindowPlace ignored;
  if (!place) place = &ignored;
  *place = FindWindowPlace{};
  const auto comma = Position_Of(text, kComma);
  std::uint8_t count = 0;
  if (auto error = Read_Count(text.substr(0, comma), count)) return error;
  place->levels = count;

  parameters.reserve(text.size() + kNumbersPerLevel * count);  // numbers may grow by a leading "0"
  parameters.assign(std::to_string(count));
  parameters.append(kItemEnd);
  parameters += kQuote;
  FindWindowWalk walk(text, Trim_Blanks(text.substr(comma + 1)), parameters, place);
  for (int level = 1; level <= count; ++level)
    if (auto error = walk.Read_Level(level, level == count)) return error;
  walk.Mark(0, FindWindowPlace::kTime);
  return Read_Time(walk.Rest(), speedFactor, timeOut);
}

}  // namespace velmora
