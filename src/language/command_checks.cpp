#include "command_checks.h"

#include <cstdint>

#include "numeric.h"
#include "script_text.h"
#include "text.h"

namespace velmora {

namespace {

using namespace parameter_errors;

constexpr char kQuote = '"';
constexpr std::string_view kSeparator = "\" = \"";  // quote, blank, equals, blank, quote
constexpr char kLineFeed = '\n';
constexpr std::size_t kMostPositionDigits = 5;
constexpr double kMostPosition = 65535;  // the range of absolute mouse coordinates

bool Is_Quoted(std::string_view text) { return !text.empty() && text.front() == kQuote && text.back() == kQuote; }

// A letter check: the character at the place must be one of the set; a
// missing character passes (an empty text is always found).
bool Letter_In(std::string_view text, std::size_t place, std::string_view set) {
  return Occurs_In(set, Text_From(text, place).substr(0, 1));
}

// A mouse position: at most five characters that read as a number. The
// caller has already refused full stops and minus signs.
bool Read_Position(std::string_view text, std::int32_t& position) {
  if (text.size() > kMostPositionDigits) return false;
  const auto value = Number_In(text);
  if (!value) return false;
  position = Rounded_To<std::int32_t>(*value);
  return true;
}

}  // namespace

CheckResult Check_Quoted(std::string_view text, ParsedCommand& result) {
  if (!Is_Quoted(text)) return &kQuotesMissing;
  result.Parameters = Inner_Text(text);
  return nullptr;
}

CheckResult Check_Test(std::string_view text, ParsedCommand& result) {
  if (!Is_Quoted(text)) return &kTestQuotesMissing;
  const auto inner = Inner_Text(text);
  const auto separator = inner.find(kSeparator);
  if (separator == std::string_view::npos) return &kTestSeparatorMissing;
  const auto name = inner.substr(0, separator);
  const auto value = inner.substr(separator + kSeparator.size());
  if (value.find(kSeparator) != std::string_view::npos) return &kTestExtraSeparator;
  result.Parameters.assign(name).append(1, kLineFeed).append(value);
  return nullptr;
}

CheckResult Check_Condition(std::string_view text, ParsedCommand& result) {
  std::string word = Lower(Trim_Blanks(text));
  word.resize(word.find(' ') == std::string::npos ? word.size() : word.find(' '));
  if (word != "succeeded" && word != "failed") return &kNotACondition;
  result.Parameters = std::move(word);
  return nullptr;
}

// Checks in order, each stopping: illegal characters, click type, button,
// first comma, second comma, X, Y.
CheckResult Check_UseMouse(std::string_view text, ParsedCommand& result) {
  const std::string lower = Lower(text);
  const std::string_view letters(lower);
  if (letters.find_first_of(".-") != std::string_view::npos) return &kMouseIllegalCharacters;
  if (!Letter_In(letters, 0, "sdn")) return &kMouseBadClickType;
  if (!Letter_In(letters, 1, "lmrc")) return &kMouseBadButton;
  result.Parameters = letters.substr(0, 2);

  auto rest = Trim_Blanks(Text_From(letters, 2));
  const auto first = rest.find(',');
  if (first == std::string_view::npos) return &kMouseFirstCommaMissing;
  rest = Trim_Blanks(rest.substr(first + 1));
  const auto second = rest.find(',');
  if (second == std::string_view::npos) return &kMouseSecondCommaMissing;

  if (!Read_Position(Trim_Blanks(rest.substr(0, second)), result.MouseX)) return &kMouseXNotInteger;
  if (result.MouseX > kMostPosition) return &kMouseXTooLarge;
  if (!Read_Position(Trim_Blanks(rest.substr(second + 1)), result.MouseY)) return &kMouseYNotInteger;
  if (result.MouseY > kMostPosition) return &kMouseYTooLarge;
  return nullptr;
}

// Checks in order, each stopping: illegal characters, click type, button.
// Anything after the second letter is not looked at.
CheckResult Check_SendButtons(std::string_view text, ParsedCommand& result) {
  const std::string lower = Lower(text);
  const std::string_view letters(lower);
  if (letters.find_first_of(".-") != std::string_view::npos) return &kButtonsIllegalCharacters;
  if (!Letter_In(letters, 0, "sd")) return &kButtonsBadClickType;
  if (!Letter_In(letters, 1, "lmr")) return &kButtonsBadButton;
  result.Parameters = letters.substr(0, 2);
  return nullptr;
}

bool Read_Debug_State(std::string_view text, ParsedCommand& result) {
  std::string state = Lower(text);
  const bool known = state == "on" || state == "off";
  result.Parameters = known ? std::move(state) : "on";
  return known;
}

}  // namespace velmora
