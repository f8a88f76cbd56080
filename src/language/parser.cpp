#include "parser.h"

#include <array>
#include <new>
#include <stdexcept>

#include "command_checks.h"
#include "debug_log.h"
#include "engine.h"
#include "error_report.h"
#include "findwindow_syntax.h"
#include "script_text.h"
#include "text.h"
#include "time_rules.h"
#include "trap.h"

namespace velmora {

namespace {

constexpr std::string_view kCommandTable =
    "|run|findwindow|sendkeys|if|while|until|usemouse|wait|debug|quit|else|endif|endwhile|repeat|test|sendbuttons|";

// For each code, where "|" + word + "|" begins in the command table (counted
// from 1). The entries take the codes in order, passing over the blank line
// and the comment line, which have no word (position 0).
constexpr auto kTablePositions = [] {
  std::array<std::size_t, kSendButtonsCommand + 1> positions{};
  std::size_t bar = 0;
  for (std::size_t code = 0; code < positions.size(); ++code) {
    if (code == kBlankLine || code == kCommentLine) continue;
    positions[code] = bar + 1;
    bar = kCommandTable.find('|', bar + 1);
  }
  return positions;
}();
// As many entries as codes with a word: the last code's entry ends the table.
static_assert(kCommandTable.find('|', kTablePositions.back()) == kCommandTable.size() - 1);

constexpr char kCommentMark = '#';
constexpr char kWordEnd = ':';
constexpr long kNoErrorCode = -1;
constexpr char kLocationStart[] = "Velmora.(General).Parse_Command.";
constexpr char kTrapLocation[] = "Velmora.(General).Parse_Command.TrappableErrors.1";

// quit, else, endif, endwhile and repeat take no parameters and ignore any.
bool Takes_No_Parameters(std::uint8_t code) { return code >= kQuitCommand && code <= kRepeatCommand; }

// The code of a word framed by bars: the entry at whose position the framed
// word is first found in the table. A framed word starts with a bar, and
// every bar but the last starts an entry, so trying the entries in order
// finds what a search of the whole table would, without a scan per bar.
std::uint8_t Code_Of_Word(std::string_view framed) {
  for (std::size_t code = 0; code < kTablePositions.size(); ++code) {
    if (kTablePositions[code] == 0) continue;
    const auto start = kTablePositions[code] - 1;
    if (kCommandTable[start + 1] == framed[1] && kCommandTable.substr(start, framed.size()) == framed)
      return static_cast<std::uint8_t>(code);
  }
  return kUnknownCommand;
}

// One call: the line, its outputs and the engine it reports to.
class LineParser {
 public:
  LineParser(Engine& engine, bool interactive, std::string_view line, double speedFactor, ParsedCommand& result,
             std::int32_t lineIndex)
      : engine_(engine),
        interactive_(interactive),
        line_(line),
        speedFactor_(speedFactor),
        result_(result),
        lineIndex_(lineIndex) {}

  bool Parse() {
    result_.CommandWord.clear();
    result_.Parameters.clear();
    result_.TimeOut = 0;
    result_.ParseError = false;
    try {
      Split_Line();
    } catch (const std::exception& error) {
      Report_Trapped(error);
    }
    return result_.CommandCode != kUnknownCommand;
  }

 private:
  // line := [">>>"] word [":" parameters] | "#" comment | blanks
  void Split_Line() {
    auto line = Trim_Blanks(line_);
    if (interactive_) line = Without_Breakpoint_Mark(line);
    if (line.empty()) {
      result_.CommandCode = kBlankLine;
      return;
    }
    if (line.front() == kCommentMark) {
      result_.CommandCode = kCommentLine;
      result_.Parameters = Trim_Blanks(line.substr(1));
      return;
    }
    const auto colon = line.find(kWordEnd);
    const std::string word = Lower(Trim_Blanks(line.substr(0, colon)));
    const auto parameters = colon == std::string_view::npos ? std::string_view() : Trim_Blanks(line.substr(colon + 1));
    Take_Word(word);
    if (result_.CommandCode == kUnknownCommand || Takes_No_Parameters(result_.CommandCode)) return;
    // A command that needs parameters but has none is as good as unknown.
    if (parameters.empty()) {
      result_.CommandCode = kUnknownCommand;
      return;
    }
    Check_Parameters(parameters);
  }

  // A known word keeps its bars ("|wait|"); an unknown one stays bare.
  void Take_Word(const std::string& word) {
    std::string framed;
    framed.reserve(word.size() + 2);
    framed.append(1, '|').append(word).append(1, '|');
    result_.CommandCode = Code_Of_Word(framed);
    result_.CommandWord = result_.CommandCode == kUnknownCommand ? word : std::move(framed);
  }

  void Check_Parameters(std::string_view parameters) {
    switch (result_.CommandCode) {
      case kRunCommand:
      case kSendKeysCommand:
        return Complain(Check_Quoted(parameters, result_), parameters);
      case kTestCommand:
        return Complain(Check_Test(parameters, result_), parameters);
      case kIfCommand:
      case kWhileCommand:
      case kUntilCommand:
        return Complain(Check_Condition(parameters, result_), parameters);
      case kUseMouseCommand:
        return Complain(Check_UseMouse(parameters, result_), parameters);
      case kSendButtonsCommand:
        return Complain(Check_SendButtons(parameters, result_), parameters);
      case kWaitCommand:
        result_.Parameters = parameters;
        return Complain(Read_Time(parameters, speedFactor_, result_.TimeOut), parameters);
      case kFindWindowCommand:
        return Complain(Read_FindWindow(parameters, speedFactor_, result_.Parameters, result_.TimeOut), parameters);
      case kDebugCommand:
        if (!Read_Debug_State(parameters, result_)) Assume_Debug_On();
        return;
      default:
        return;
    }
  }

  // A bad debug value is only logged, yet the line still counts as failed.
  void Assume_Debug_On() {
    Select_Line();
    result_.ParseError = true;
    Log_Trace(engine_, interactive_, kDebugAssumedOn);
  }

  // A failed check: the line is shown and reported as fatal.
  void Complain(CheckResult error, std::string_view parameters) {
    if (!error) return;
    Select_Line();
    result_.ParseError = true;
    std::string detail = error->detail;
    if (error->endsWithParameters) detail.append(parameters);
    Report_Error(engine_, interactive_, kNoErrorCode, detail, error->summary,
                 std::string(kLocationStart) + error->location, kFatal);
  }

  // A text operation that failed on a malformed line: the line is not accepted.
  void Report_Trapped(const std::exception& error) {
    result_.CommandCode = kUnknownCommand;
    result_.ParseError = true;
    Select_Line();
    const std::string detail =
        std::string("Invalid Parameters:  ") + error.what() + " in line:  " + std::string(Trim_Blanks(line_));
    Report_Error(engine_, interactive_, Error_Code_Of(error), detail, "Unexpected Trappable Error!", kTrapLocation,
                 kFatal);
  }

  // Shows the user which line is wrong. An index outside the list has no line to show.
  void Select_Line() {
    if (lineIndex_ == kNoEditorLine) return;
    if (lineIndex_ >= 0 && static_cast<std::size_t>(lineIndex_) < engine_.TraceWindow.Count())
      engine_.TraceWindow.Select(lineIndex_);
  }

  Engine& engine_;
  const bool interactive_;
  const std::string_view line_;
  const double speedFactor_;
  ParsedCommand& result_;
  const std::int32_t lineIndex_;
};

}  // namespace

bool Parse_Command(Engine& engine, bool Interactive, std::string_view ScriptLine, double SpeedFactor,
                   ParsedCommand& result, std::int32_t LineIndex) {
  return LineParser(engine, Interactive, ScriptLine, SpeedFactor, result, LineIndex).Parse();
}

}  // namespace velmora
