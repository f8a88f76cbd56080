#include "findwindow_place.h"

#include <cstdint>
#include <exception>

#include "findwindow_syntax.h"
#include "script_text.h"

namespace velmora {

namespace {

constexpr int kFieldsPerLevel = 5;  // title, class, ChildID, RelativeX, RelativeY
constexpr char kQuote = '"';
constexpr char kComma = ',';

const char* const kFieldNames[] = {"the count of levels", "the title",     "the class", "the ChildID",
                                   "the RelativeX",       "the RelativeY", "the time"};

// The fields as an author counts them: a comma inside a quoted text (one
// that starts a field) separates nothing.
int Field_Count(std::string_view parameters) {
  int fields = 1;
  bool quoted = false, fieldStart = true;
  for (const char c : parameters) {
    if (quoted) {
      quoted = c != kQuote;
    } else if (c == kComma) {
      ++fields;
      fieldStart = true;
      continue;
    } else if (c == kQuote && fieldStart) {
      quoted = true;
    }
    if (c != ' ') fieldStart = false;
  }
  return fields;
}

// The field that starts the text: a quoted text with its quotes, else up to the next comma.
std::string_view Field_At(std::string_view rest) {
  rest = Trim_Blanks(rest);
  if (!rest.empty() && rest.front() == kQuote) {
    const auto closing = rest.find(kQuote, 1);
    if (closing != std::string_view::npos) return rest.substr(0, closing + 1);
  }
  return Trim_Blanks(rest.substr(0, rest.find(kComma)));
}

std::string Levels(int count) { return std::to_string(count) + (count == 1 ? " level" : " levels"); }

}  // namespace

std::string FindWindow_Fault_Place(std::string_view parameters, double speedFactor) {
  FindWindowPlace place;
  std::string normalised;
  std::int32_t timeOut = 0;
  try {
    Read_FindWindow(parameters, speedFactor, normalised, timeOut, &place);
  } catch (const std::exception&) {
    // a text operation that failed: the place is where it failed
  }
  if (parameters.find(kComma) == std::string_view::npos) return "the levels and the time are missing";
  std::string where = place.level > 0 ? "level " + std::to_string(place.level) + ", " : "";
  where += kFieldNames[place.field];
  const std::string_view field = Field_At(parameters.substr(place.offset));
  where += field.empty() ? std::string(" is missing") : " reads " + std::string(field);
  if (place.field == FindWindowPlace::kCount) return where;
  const int needed = 2 + kFieldsPerLevel * place.levels, found = Field_Count(parameters);
  if (found != needed)
    where += "; the line has " + std::to_string(found) + " fields where " + Levels(place.levels) + " and the time take " +
             std::to_string(needed);
  return where;
}

}  // namespace velmora
