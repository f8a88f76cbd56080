#include "environment.h"

#include <cstdint>

#include "debug_log.h"
#include "engine.h"
#include "trap.h"

namespace velmora {

namespace {

constexpr char kBackquote = '`';
constexpr char kMarker = '\n';  // an unpaired backquote while the expansion works

const char* const kCountWords[] = {"Two",      "Three",    "Four",    "Five",      "Six",       "Seven",
                                   "Eight",    "Nine",     "Ten",     "Eleven",    "Twelve",    "Thirteen",
                                   "Fourteen", "Fifteen",  "Sixteen", "Seventeen", "Eighteen",  "Nineteen"};

// Pass 1: a doubled backquote becomes one literal backquote, which is not
// looked at again; every other backquote becomes a marker. Copied into a new
// text in one sweep: erasing in place made long runs of backquotes quadratic.
void Mark_Backquotes(std::string& text) {
  std::string marked;
  marked.reserve(text.size());
  for (std::size_t p = 0; p < text.size(); ++p) {
    if (text[p] != kBackquote) {
      marked += text[p];
    } else if (p + 1 < text.size() && text[p + 1] == kBackquote) {
      marked += kBackquote;
      ++p;
    } else {
      marked += kMarker;
    }
  }
  text = std::move(marked);
}

// Pass 2: the text between two markers is a name, replaced by its value.
// Values are not scanned again. Returns the number of references.
std::uint8_t Replace_References(Engine& engine, std::string& text) {
  std::uint8_t count = 0;
  std::size_t from = 0;
  for (;;) {
    const auto first = text.find(kMarker, from);
    if (first == std::string::npos) break;
    const auto second = text.find(kMarker, first + 1);
    if (second == std::string::npos) {
      text[first] = kBackquote;
      break;
    }
    const std::string value = engine.host.GetEnv(text.substr(first + 1, second - first - 1)).value_or("");
    text.replace(first, second - first + 1, value);
    from = first + value.size();
    if (count == UINT8_MAX) throw OverflowError();
    ++count;
  }
  return count;
}

std::string Count_Line(unsigned count) {
  if (count == 1) return "One (1) Environment Variable Used.  Conversion follows:";
  if (count < 20)
    return std::string(kCountWords[count - 2]) + " (" + std::to_string(count) +
           ") Environment Variables Used.  Conversion follows:";
  return std::to_string(count) + " Environment Variables Used.  Conversion follows:";
}

}  // namespace

std::string Convert_EnvVars(Engine& engine, bool Interactive, const std::string& text) {
  std::string expanded = text;
  Trap(engine, Interactive, "Velmora.(General).Convert_EnvVars.TrappableErrors.1", kFatal, [&] {
    Mark_Backquotes(expanded);
    const std::uint8_t count = Replace_References(engine, expanded);
    if (count == 0) return;
    Log_Trace(engine, Interactive, Count_Line(count));
    Log_Trace(engine, Interactive, "     " + text);
    Log_Trace(engine, Interactive, " --> " + expanded);
  });
  return expanded;
}

std::optional<std::string> Expanded_Without_Values(const std::string& text) {
  std::string expanded = text;
  Mark_Backquotes(expanded);
  const auto first = expanded.find(kMarker);
  if (first == std::string::npos) return expanded;
  if (expanded.find(kMarker, first + 1) != std::string::npos) return std::nullopt;
  expanded[first] = kBackquote;
  return expanded;
}

void TestEnvironmentVariables_Command(Engine& engine, bool Interactive, const std::string& Parameters,
                                      bool& LastCommandSucceeded) {
  Trap(engine, Interactive, "Velmora.(General).TestEnvironmentVariables_Command.TrappableErrors.1", kFatal, [&] {
    const auto separator = Parameters.find('\n');
    const std::string left = Parameters.substr(0, separator);
    const std::string right = separator == std::string::npos ? std::string() : Parameters.substr(separator + 1);
    const std::string leftValue = Convert_EnvVars(engine, Interactive, left);
    const std::string rightValue = Convert_EnvVars(engine, Interactive, right);
    LastCommandSucceeded = leftValue == rightValue;
    Log_Trace(engine, Interactive,
              LastCommandSucceeded ? "  Match Found!  Test Succeeded." : "  No Match Found!  Test Failed.");
  });
}

}  // namespace velmora
