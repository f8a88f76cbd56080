#include "preprocessor.h"

#include <string>
#include <vector>

#include "block_table.h"
#include "engine.h"
#include "error_report.h"
#include "parser.h"
#include "script_text.h"
#include "text.h"
#include "trap.h"

namespace velmora {

namespace {

constexpr const char* kLocationPrefix = "Velmora.(General).Preprocess_Command.";

// A block error: its title, the keyword's name in the message, the message's
// tail and its location.
struct BlockError {
  const char* title;
  const char* keyword;
  const char* tail;
  const char* location;
};

const BlockError kUntilLevel{"Mismatched Repeat-Until Level Error!", "UNTIL",
                             " is on a different level then its matching REPEAT!", "LogicalBlocksCrossError.1"};
const BlockError kUntilUnmatched{"Mismatched Repeat-Until Error!", "UNTIL", " has no matching REPEAT!",
                                 "NoMatchingRepeatError.1"};
const BlockError kElseLevel{"Mismatched If-Else Level Error!", "ELSE",
                            " is on a different level then its matching IF!", "LogicalBlocksCrossError.2"};
const BlockError kElseUnmatched{"Mismatched Else Error!", "ELSE", " has no matching IF!", "NoMatchingIfError.1"};
const BlockError kEndIfLevel{"Mismatched If-EndIf Level Error!", "ENDIF",
                             " is on a different level then its matching IF!", "LogicalBlocksCrossError.3"};
const BlockError kEndIfUnmatched{"Mismatched EndIf Error!", "ENDIF", " has no matching IF!", "NoMatchingIfError.2"};
const BlockError kEndWhileLevel{"Mismatched While-EndWhile Level Error!", "ENDWHILE",
                                " is on a different level then its matching WHILE!", "LogicalBlocksCrossError.4"};
const BlockError kEndWhileUnmatched{"Mismatched EndWhile Error!", "ENDWHILE", " has no matching WHILE!",
                                    "NoMatchingWhileError.1"};
const BlockError kIfOpen{"Mismatched If/EndIf Error!", "IF", " has no matching ENDIF!", "NoMatchingEndIfError.1"};
const BlockError kWhileOpen{"Mismatched While-EndWhile Error!", "WHILE", " has no matching ENDWHILE!",
                            "NoMatchingEndWhileError.1"};
const BlockError kRepeatOpen{"Mismatched Repeat-Until Error!", "REPEAT", " has no matching UNTIL!",
                             "NoMatchingUntilError.1"};

// An open block: its table item and its opening line.
struct OpenBlock {
  std::size_t item;
  long line;
};

// One pass over the script. Open blocks are kept on stacks so that finding
// the nearest open item of a kind never searches the table: the nearest open
// item of a kind is always the last one opened and not yet closed. The trace
// list is rebuilt as the pass goes: each line is taken from the script as it
// was and added to the list, so that the empty lines set between blocks are
// added at the list's end rather than inserted into its middle.
class Pass {
 public:
  Pass(Engine& engine, bool interactive, bool reformat)
      : engine_(engine),
        trace_(engine.TraceWindow),
        table_(engine.LogicalControls),
        interactive_(interactive),
        reformat_(reformat && interactive),
        checking_(static_cast<bool>(engine.reports.observer)) {}

  // False when a block error stopped the pass.
  bool Run();

 private:
  void Take_Next_Line();
  void Put_Back_The_Rest();
  bool Line(long& index);
  bool Blocks(std::uint8_t code, long index);
  bool Close_Else(long index);
  bool Close_If(long index);
  bool Close_Loop(std::vector<OpenBlock>& open, const char* closed, long index, const BlockError& level,
                  const BlockError& unmatched);
  bool Check_Level(const OpenBlock& block, long index, const BlockError& level);
  bool Check_All_Closed();
  void Reformat_Before(std::uint8_t code, long& index);
  void Reformat_After(std::uint8_t code);
  void Unindent(long index);
  bool Fail(const BlockError& error, long index);
  std::size_t Leading_Blanks(long index) const;

  Engine& engine_;
  ListModel& trace_;
  ListModel& table_;
  bool interactive_;
  bool reformat_;
  bool checking_;         // a checker hears of every block error; a run stops at the first
  bool blockFailed_ = false;
  std::string prefix_;
  long firstParameterError_ = -1;
  std::vector<OpenBlock> ifs_;         // open ifs, with or without else
  std::vector<OpenBlock> ifsNoElse_;   // open ifs that have not passed an else
  std::vector<OpenBlock> whiles_;
  std::vector<OpenBlock> repeats_;
  std::vector<std::string> script_;  // the lines as they were before the pass
  std::size_t next_ = 0;             // the first line of script_ not yet in the list
  long selectedBefore_ = -1;         // the line selected before the pass
};

bool Pass::Run() {
  table_.Clear();
  selectedBefore_ = trace_.Selected();
  script_ = trace_.Take_Items();
  trace_.Reserve(script_.size());
  struct Restore {  // however the pass ends, no line of the script is lost
    Pass& pass;
    ~Restore() { pass.Put_Back_The_Rest(); }
  } restore{*this};
  while (next_ < script_.size()) {
    Take_Next_Line();
    long index = static_cast<long>(trace_.Count()) - 1;
    if (!Line(index)) return false;
  }
  if (!Check_All_Closed() || blockFailed_) return false;
  if (firstParameterError_ != -1) trace_.Select(firstParameterError_);
  Index_Block_Table(engine_);
  return true;
}

// The selected line stays selected unless the pass selects another first.
void Pass::Take_Next_Line() {
  const bool wasSelected = static_cast<long>(next_) == selectedBefore_;
  trace_.Add(std::move(script_[next_++]));
  if (wasSelected && trace_.Selected() == ListModel::kNoSelection)
    trace_.Select(static_cast<long>(trace_.Count()) - 1);
}

void Pass::Put_Back_The_Rest() {
  while (next_ < script_.size()) Take_Next_Line();
}

bool Pass::Line(long& index) {
  engine_.reports.line = index;
  const std::string line = Trim(trace_.Item(index));
  trace_.Set(static_cast<std::size_t>(index), line);
  ParsedCommand parsed;
  if (!Parse_Command(engine_, interactive_, interactive_ ? Without_Breakpoint_Mark(line) : line,
                     engine_.state.SpeedFactor, parsed, index)) {
    Report_Error(engine_, interactive_, -1, "Unknown Command:  " + line, "Unknown Command Found Error!",
                 std::string(kLocationPrefix) + "UnknownCommandError.1", kGoOn);
    trace_.Set(static_cast<std::size_t>(index), "# ERROR! # " + line);
    return true;
  }
  if (parsed.ParseError && firstParameterError_ == -1) firstParameterError_ = index;
  if (parsed.CommandCode != kQuitCommand) trace_.Set(static_cast<std::size_t>(index), prefix_ + line);
  if (reformat_) {
    Reformat_Before(parsed.CommandCode, index);
    Reformat_After(parsed.CommandCode);
  }
  return Blocks(parsed.CommandCode, index);
}

// The lower-cased, trimmed text of a line up to its first colon.
std::string Command_Word_Of(const std::string& line) { return Lower(Trim(line.substr(0, line.find(':')))); }

bool Listed(const char* list, const std::string& word) {
  return std::string_view(list).find("|" + word + "|") != std::string_view::npos;
}

// An empty line before a block that does not follow another block keyword or a test.
void Pass::Reformat_Before(std::uint8_t code, long& index) {
  if (code != kIfCommand && code != kWhileCommand && code != kRepeatCommand) return;
  if (index == 0 || Listed("||if|while|repeat|else|test|", Command_Word_Of(trace_.Item(index - 1)))) return;
  trace_.Insert(static_cast<std::size_t>(index), "");
  ++index;
}

// An empty line after a block's end unless another block keyword follows.
void Pass::Reformat_After(std::uint8_t code) {
  if (code != kEndIfCommand && code != kUntilCommand && code != kEndWhileCommand) return;
  if (next_ >= script_.size()) return;
  if (Listed("||>>>|else|endif|endwhile|until|", Command_Word_Of(script_[next_]))) return;
  trace_.Add("");
}

bool Pass::Blocks(std::uint8_t code, long index) {
  const std::string number = std::to_string(index);
  switch (code) {
    case kIfCommand:
      ifs_.push_back({table_.Count(), index});
      ifsNoElse_.push_back(ifs_.back());
      table_.Add("i " + number + ";");
      prefix_ += "  ";
      return true;
    case kWhileCommand:
    case kRepeatCommand:
      (code == kWhileCommand ? whiles_ : repeats_).push_back({table_.Count(), index});
      table_.Add((code == kWhileCommand ? "w " : "r ") + number);
      prefix_ += "  ";
      return true;
    case kElseCommand:
      return Close_Else(index);
    case kEndIfCommand:
      return Close_If(index);
    case kEndWhileCommand:
      return Close_Loop(whiles_, "we", index, kEndWhileLevel, kEndWhileUnmatched);
    case kUntilCommand:
      return Close_Loop(repeats_, "ru", index, kUntilLevel, kUntilUnmatched);
    default:
      return true;
  }
}

void Pass::Unindent(long index) {
  if (prefix_.size() <= 1) return;
  prefix_.erase(0, 2);
  trace_.Set(static_cast<std::size_t>(index), trace_.Item(index).substr(2));
}

bool Pass::Close_Else(long index) {
  Unindent(index);
  if (ifsNoElse_.empty()) return Fail(kElseUnmatched, index);
  const OpenBlock block = ifsNoElse_.back();
  if (!Check_Level(block, index, kElseLevel)) return false;
  ifsNoElse_.pop_back();
  table_.Set(block.item, "ie" + table_.Item(static_cast<long>(block.item)).substr(2) + std::to_string(index));
  return true;
}

bool Pass::Close_If(long index) {
  Unindent(index);
  if (ifs_.empty()) return Fail(kEndIfUnmatched, index);
  const OpenBlock block = ifs_.back();
  if (!Check_Level(block, index, kEndIfLevel)) return false;
  ifs_.pop_back();
  const std::string& item = table_.Item(static_cast<long>(block.item));
  if (item[1] == ' ') {
    ifsNoElse_.pop_back();
    table_.Set(block.item, "ix" + item.substr(2) + "0," + std::to_string(index));
  } else {
    table_.Set(block.item, item + "," + std::to_string(index));
  }
  return true;
}

bool Pass::Close_Loop(std::vector<OpenBlock>& open, const char* closed, long index, const BlockError& level,
                      const BlockError& unmatched) {
  Unindent(index);
  if (open.empty()) return Fail(unmatched, index);
  const OpenBlock block = open.back();
  if (!Check_Level(block, index, level)) return false;
  open.pop_back();
  table_.Set(block.item, closed + table_.Item(static_cast<long>(block.item)).substr(2) + "," + std::to_string(index));
  return true;
}

std::size_t Pass::Leading_Blanks(long index) const {
  const std::string& line = trace_.Item(index);
  const auto first = line.find_first_not_of(' ');
  return first == std::string::npos ? line.size() : first;
}

// An opening and its closing keyword must stand at the same indentation.
// A checker pairs them all the same, so that one fault is reported once.
bool Pass::Check_Level(const OpenBlock& block, long index, const BlockError& level) {
  if (Leading_Blanks(block.line) == Leading_Blanks(index)) return true;
  return Fail(level, index);
}

// The first block still open in the table, in table order, is an error
// (for a checker, every one). A run does not look for an if that passed its
// else and was never closed, and stops when it reaches that else; a checker
// names the if.
bool Pass::Check_All_Closed() {
  const auto& items = table_.Items();
  for (const std::string& item : items) {
    const bool elseNotClosed = checking_ && Starts_With(item, "ie") && item.find(',') == std::string::npos;
    const BlockError* error = Starts_With(item, "i ") || elseNotClosed ? &kIfOpen
                              : Starts_With(item, "w ")                ? &kWhileOpen
                              : Starts_With(item, "r ")                ? &kRepeatOpen
                                                                       : nullptr;
    if (!error) continue;
    if (!Fail(*error, Read_Block_Item(item).first)) return false;
  }
  return true;
}

// True when the pass goes on.
bool Pass::Fail(const BlockError& error, long index) {
  blockFailed_ = true;
  engine_.reports.line = index;
  trace_.Select(index);
  Report_Error(engine_, interactive_, -1,
               std::string(error.keyword) + " on line " + std::to_string(index + 1) + error.tail, error.title,
               std::string(kLocationPrefix) + error.location, kFatal);
  return checking_;
}

}  // namespace

void Preprocess_Commands(Engine& engine, bool Interactive, bool& /*DebugOn*/, bool Reformat,
                         bool& LastCommandSucceeded) {
  Trap(engine, Interactive, "Velmora.(General).Preprocess_Commands.TrappableErrors.1", kFatal, [&] {
    engine.BlockItemOfLine.clear();
    if (!Pass(engine, Interactive, Reformat).Run()) LastCommandSucceeded = false;
  });
  engine.reports.line = -1;
}

}  // namespace velmora
