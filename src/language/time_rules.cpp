#include "time_rules.h"


#include "numeric.h"
#include "script_text.h"
#include "trap.h"

namespace velmora {

namespace {

using namespace parameter_errors;

constexpr std::size_t kMostDigits = 5;  // the "99999" of the messages, counted in characters
constexpr double kSecondsPerMinute = 60;

// A time-out is a 32-bit count of seconds; a larger one is an overflow, not a wrap.
std::int32_t Whole_Seconds(double seconds) { return Rounded_To<std::int32_t>(seconds); }

}  // namespace

// time := minutes | [minutes] "." seconds     ("5." reads as "5")
CheckResult Read_Time(std::string_view text, double speedFactor, std::int32_t& timeOut) {
  if (!text.empty() && text.back() == '.') text = Trim_Blanks(text.substr(0, text.size() - 1));
  if (!Is_Numeric(text)) return &kTimeNotNumeric;

  const auto stop = text.find('.');
  if (stop == std::string_view::npos) {
    if (text.size() > kMostDigits) return &kMinutesTooLong;
    timeOut = Whole_Seconds(Number_In(text).value_or(0) * kSecondsPerMinute);
    return nullptr;
  }

  double minutes = 0;
  if (stop > 0) {
    const auto minutesText = text.substr(0, stop);
    if (minutesText.size() > kMostDigits) return &kMinutesBeforeStopTooLong;
    minutes = Number_In(minutesText).value_or(0);  // a sign alone ("-.30") is no minutes, as in ".30"
    timeOut = Whole_Seconds(minutes * kSecondsPerMinute);
  }
  const auto secondsText = text.substr(stop + 1);
  if (secondsText.size() > kMostDigits) return &kSecondsTooLong;
  const double seconds = Number_In(secondsText).value_or(0);  // "5.." leaves none
  // Digits after the full stop are seconds, not a fraction of a minute.
  timeOut = Whole_Seconds(Round_Half_Even(minutes * kSecondsPerMinute + seconds) * speedFactor);
  return nullptr;
}

}  // namespace velmora
