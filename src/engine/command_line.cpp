#include "command_line.h"

#include "engine.h"
#include "error_report.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

constexpr char kQuote = '"';

void Report_Bad_Line(Engine& engine, const std::string& message, const std::string& title,
                     const std::string& location) {
  Report_Error(engine, engine.state.InteractiveSession, -1, message + engine.host.CommandLine(), title,
               "Velmora.(General).Parse_CommandLine." + location, kFatal);
}

void Report_Badly_Formed(Engine& engine, const char* location) {
  Report_Bad_Line(engine, "Badly formed command line arguements found:  ", "Bad Command Line Found Error!", location);
}

}  // namespace

// The double quote is the only delimiter:
//   line      := '"' script '"' [ debug ]
//   debug     := text | text '"' name ['"' ...]
// A line without any quote is one quoted script name.
bool Parse_CommandLine(Engine& engine, const std::string& commandLine, std::string& scriptName,
                       std::string& debugName) {
  std::string line = commandLine;
  if (line.find(kQuote) == std::string::npos) line = kQuote + line + kQuote;

  const auto opening = line.find(kQuote);
  if (opening + 1 >= line.size()) {
    Report_Badly_Formed(engine, "BadCommandLineError.3");
    return false;
  }
  const std::string rest = Trim(std::string_view(line).substr(opening + 1));
  const auto closing = rest.find(kQuote);
  if (closing == std::string::npos) {
    Report_Bad_Line(engine, std::string("Only 1 Quote (") + kQuote + ") found on the Command Line:  ",
                    "Bad Quotes Found Error!", "BadQuotesError.1");
    return false;
  }
  scriptName = Trim(std::string_view(rest).substr(0, closing));
  if (closing + 1 >= rest.size()) return true;

  std::string debug = rest.substr(closing + 1);
  if (const auto quote = debug.find(kQuote); quote != std::string::npos) {
    if (quote + 1 >= debug.size()) {
      Report_Badly_Formed(engine, "BadCommandLineError.1");
      return false;
    }
    debug = debug.substr(quote + 1);
    if (const auto end = debug.find(kQuote); end != std::string::npos) debug.resize(end);
  }
  debugName = Trim(debug);
  return true;
}

}  // namespace velmora
